// The program's own colours, beside those of the palette: one accent, and one each for stock that
// is past its date and for stock that soon will be or runs low. None of them ever tells something
// alone; an icon or a word says the same.
//
// Each has a tone for light and one for dark windows. On a palette where neither is readable, it
// goes towards the palette's own text until it is.
#pragma once

#include <QColor>

class QPalette;

namespace tavernook {

enum class HouseColour { accent, past_date, low };

// Readable as words, so at least 4.5 to 1, on the palette's window and on its lists; on a palette
// whose own text is not, the palette's text.
QColor house_colour(HouseColour which, const QPalette& palette);

// 1 to 21, as the web's guidelines for accessible contents reckon it. What is see-through counts as
// solid.
double contrast(const QColor& one, const QColor& other);

}  // namespace tavernook
