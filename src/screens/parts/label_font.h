#pragma once

#include <QString>

namespace tavernook {

// That the font of the labels is missing on this computer, and what to do; empty where it is there.
QString missing_label_font();

}  // namespace tavernook
