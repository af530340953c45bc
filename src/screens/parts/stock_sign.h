// How stock that wants attention is told, the same on every screen: by an icon, a colour and a
// word, never by one of them alone. Lists take icon and colour from here, the words stand in the
// cell or in what the cell says beside its figure.
#pragma once

#include <QIcon>
#include <QVariant>

#include "basics/values.h"

namespace tavernook {

enum class StockSign { none, past_date, soon, low };

// What the item wants first; none for a number that is no item's.
StockSign stock_sign_of(i16 item);

// "Expired", "Expires soon", "Low", "Expired, low" ...; empty when all is well.
QString stock_words(i16 item);

// Draws nothing for none.
QIcon sign_icon(StockSign sign);

// What a cell answers for its icon and the colour of its words; nothing else, and nothing for none.
// In a selected row the view draws both in the colour of selected text.
QVariant sign_data(StockSign sign, int role);

}  // namespace tavernook
