// What must be bought. The list is no table of its own: it is two fields of the item record,
// `on_shopping_list` and `shopping_quantity`. Routines that take an item or a recipe show a box for
// a number outside its table, 0 included; nothing has changed then, and those that tell answer
// false.
#pragma once

#include <vector>

#include "basics/values.h"

namespace tavernook {

// The scan of all items. `quantity` becomes the sum of the lots, a live item's at least 0. On the
// list goes a live item with a stock_quantity that is low, for what is missing, or that is at the
// end of its shelf life, for the whole stock_quantity: what is left of it counts as lost. Every
// other item goes off, added by hand or not; shopping_quantity then stays. Computed anew each time,
// it does not count as a change of the project. A failure shows its box and ends it.
void build_shopping_list() noexcept;

// The rule for one item, as its form is accepted. On the list, for what is missing up to
// stock_quantity, when it has a stock_quantity and is low or, not being on the list yet, at the end
// of its shelf life. Off the list otherwise; shopping_quantity then stays. `quantity` is taken as
// it stands.
void update_shopping_flag(i16 item) noexcept;

// One more of it.
bool add_to_list(i16 item) noexcept;

// Every ingredient goes on the list. Kept: each one's quantity becomes one more than that of the
// item whose number equals the recipe's; the ingredients' own figures play no part. An ingredient
// outside the table is passed over.
bool add_recipe_to_list(i16 recipe) noexcept;

bool remove_from_list(i16 item) noexcept;

// Ask for the item's shopping_quantity or store_order. What is typed counts by its leading number,
// a negative one too, and is 0 without one; a cancelled box changes nothing. Nothing changes
// either, and the status bar says so, when the item goes while the box stands open. A store order
// beyond 16 bits shows a box and changes nothing.
void change_shopping_quantity(i16 item) noexcept;
void change_store_order(i16 item) noexcept;

// What became of the entries when the list went into stock, by number. An entry of 0 is in none.
struct Booking {
    std::vector<i16> placed;       // each in a lot of its own
    std::vector<i16> without_lot;  // found no empty lot: off the list, the stock as it was
    std::vector<i16> failed;       // told by a box each; still on the list
};

// The whole list goes into stock: each entry into a lot of its own, restocked today, and off the
// list; shopping_quantity stays. Kept: an entry that finds no empty lot goes off the list all the
// same, and a negative quantity makes a negative lot. An entry that can have no lots, as a free
// slot can have none, and one whose quantity is no number, fail; the others go on.
Booking book_list_into_stock() noexcept;

}  // namespace tavernook
