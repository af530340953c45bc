// The lots of an item, the only way in which stock moves. 16 places form a ring; a place is empty
// exactly when its quantity is 0. `current_lot` is where the next removal starts and where the next
// addition starts to look for an empty place, so stock leaves in the order in which it arrived.
// Every move writes the item's usage history and keeps `quantity` equal to the sum of the lots.
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

struct LotRecord;

// What a reader may look at; a blank record where the item has none.
const LotRecord& lot_record_or_none(i16 item) noexcept;

// Makes or blanks the item's record: default names, no quantities, no dates, active. A box for an
// item number outside 0..10000.
void init_lot_record(i16 item) noexcept;

// The same, but inactive: the item has been deleted.
void clear_lot_record(i16 item) noexcept;

// Gives an item that has no lots yet its whole `quantity` in place 0, dated by its last restock. A
// box for an item number outside 0..10000.
void first_lot_from_item(i16 item) noexcept;

// The same for every live item that has no record yet: files from before lots existed have none.
void first_lots_of_all_items() noexcept;

// For readers that walk items: first_lot_from_item where the item has no record yet.
void ensure_lot_record(i16 item) noexcept;

// 0 for an item without a record.
f64 lot_total(i16 item) noexcept;

// The place that removals draw from; 0 where a damaged file names none.
i16 current_lot_of(i16 item) noexcept;

// -1 placed in the next empty place with its own dates; 0 when all 16 are filled: then only
// current_lot has moved, and nothing is said. 0 with a box, and nothing changed, for an item
// without a record and a quantity that is no number.
i16 add_to_lots(i16 item, f64 quantity) noexcept;

// -1 taken; 0, with a box and nothing changed, when the lots hold less, when the current lot cannot
// be read, and for an item without a record.
i16 remove_from_lots(i16 item, f64 quantity) noexcept;

// False for a current lot that does not fit into 16 bits, and for lots or an amount that are no
// numbers: nothing can be removed then. Kept: only the current lot is looked at.
bool current_lot_is_readable(i16 item) noexcept;

// The next place of the ring.
i16 next_lot(i16 place) noexcept;

// The first place of that name, case apart, or -1 with a box. The name given is not trimmed.
i16 find_lot_by_name(i16 item, std::string_view name) noexcept;

// Sets one lot by hand; the caller then sets the item's quantity to lot_total. False, with a box
// and nothing changed, for an item without a record, a place that is none, and a quantity that is
// no number.
bool set_lot_quantity(i16 item, f64 quantity, i16 place) noexcept;

// What the lots past their date hold, seen from d days ago, d being the day of the month of
// expiration_warning_days as a date (0 gives 30, 1 gives 31, n from 2 to 32 gives n - 1). Kept:
// recommendations have always counted so. 0 for an item without a record.
f64 expiring_quantity(i16 item) noexcept;

// "Lot A" for place 0 to "Lot P" for place 15.
std::string default_lot_name(i16 place) noexcept;

// Back to an empty lot of the default name. No usage entry is written. False as above.
bool delete_lot(i16 item, i16 place) noexcept;

// Makes it the lot that removals draw from; an empty one gets its dates now. False as above.
bool set_current_lot(i16 item, i16 place) noexcept;

}  // namespace tavernook
