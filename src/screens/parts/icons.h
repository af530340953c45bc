// The program's icons: line drawings in the colour of the palette's text with a part in the accent
// colour, by which they are told apart; signs of stock have the colour of what they tell. Crisp at
// every size. A drawing names its lines "currentColor", and the colours of the house by their tone
// for light windows, so that any program shows the file as it looks there. Disabled, selected, or
// marked in an open menu, an icon has one tone.
#pragma once

#include <QIcon>
#include <QString>

namespace tavernook {

// "new", "open" ... as in assets/icons. They follow changes of the palette. An unknown name
// gives an icon that draws nothing.
QIcon icon(const QString& name);

}  // namespace tavernook
