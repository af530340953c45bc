// How recent projects are called where there is little room. Paths are the file system's own bytes.
#pragma once

#include <QFontMetrics>
#include <QString>
#include <string>
#include <vector>

namespace tavernook {

// Cut in its middle where it is longer than some forty letters.
QString shortened(const QString& text, const QFontMetrics& metrics);

// What tells the folder of the path at `place` from those of the other projects whose file has the
// same name: its last parts, as few as are needed. Empty where no other file has the name.
QString telling_folder(std::size_t place, const std::vector<std::string>& paths);

}  // namespace tavernook
