// The lots of an item: 16 places in a ring, each with a quantity and two dates. The record number is
// the item number; records are made on demand.
#pragma once

#include "basics/values.h"

namespace tavernook {

// Makes or blanks the item's record: default names, no quantities, no dates, active. Fault 9 for
// an item number outside 0..10000.
void init_lot_record(i16 item);

// Gives an item that has no lots yet its whole `quantity` in place 0, dated by its last restock.
void first_lot_from_item(i16 item);

// The same for every live item that has no record yet: files from before lots existed have none.
void first_lots_of_all_items();

}  // namespace tavernook
