// The program's icons: line drawings in the colour of the palette's text, crisp at every size.
#pragma once

#include <QIcon>
#include <QString>

namespace tavernook {

// "new", "open" ... as in assets/icons. They follow changes of the palette. An unknown name
// gives an icon that draws nothing.
QIcon icon(const QString& name);

}  // namespace tavernook
