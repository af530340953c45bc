// The lots of an item, the only way in which stock moves. 16 places form a ring; a place is empty
// exactly when its quantity is 0. `current_lot` is where the next removal starts and where the next
// addition starts to look for an empty place, so stock leaves in the order in which it arrived.
// Every move writes the item's usage history and keeps `quantity` equal to the sum of the lots.
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

// Makes or blanks the item's record: default names, no quantities, no dates, active. Fault 9 for
// an item number outside 0..10000.
void init_lot_record(i16 item);

// The same, but inactive: the item has been deleted.
void clear_lot_record(i16 item);

// Gives an item that has no lots yet its whole `quantity` in place 0, dated by its last restock.
void first_lot_from_item(i16 item);

// The same for every live item that has no record yet: files from before lots existed have none.
void first_lots_of_all_items();

// For readers that walk items: first_lot_from_item where the item has no record yet.
void ensure_lot_record(i16 item);

f64 lot_total(i16 item);

// -1 placed in the next empty place with its own dates; 0 when all 16 are filled: then only
// current_lot has moved, and nothing is said.
i16 add_to_lots(i16 item, f64 quantity);

// -1 taken; 0 when the lots hold less, with a box and nothing changed. Fault 6, before anything
// moves, when the current lot does not fit into 16 bits; kept, callers report it.
i16 remove_from_lots(i16 item, f64 quantity);

// The next place of the ring.
i16 next_lot(i16 place);

// The first place of that name, case apart, or -1 with a box. The name given is not trimmed.
i16 find_lot_by_name(i16 item, std::string_view name);

// Sets one lot by hand; the caller then sets the item's quantity to lot_total.
void set_lot_quantity(i16 item, f64 quantity, i16 place);

// What the lots past their date hold, seen from d days ago, d being the day of the month of
// expiration_warning_days as a date (0 gives 30, 1 gives 31, n from 2 to 32 gives n - 1). Kept:
// recommendations have always counted so.
f64 expiring_quantity(i16 item);

// "Lot A" for place 0 to "Lot P" for place 15.
std::string default_lot_name(i16 place);

// Back to an empty lot of the default name. No usage entry is written.
void delete_lot(i16 item, i16 place);

// Makes it the lot that removals draw from; an empty one gets its dates now.
void set_current_lot(i16 item, i16 place);

}  // namespace tavernook
