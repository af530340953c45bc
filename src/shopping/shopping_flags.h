// Which items must be bought: two fields of the item record, `on_shopping_list` and
// `shopping_quantity`.
#pragma once

#include "basics/values.h"

namespace tavernook {

// The rule for one item, as its form is accepted. On the list, for what is missing up to
// stock_quantity, when it has a stock_quantity and is low or, not being on the list yet, at the end
// of its shelf life. Off the list otherwise; shopping_quantity then stays. `quantity` is taken as
// it stands.
void update_shopping_flag(i16 item);

}  // namespace tavernook
