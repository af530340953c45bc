// Rows of the scan list are booked: as new stock, as used stock, or onto the shopping list. Each
// goes row by row in the list's order and looks every code up at its turn, behind the boxes too. A
// code that no item bears is asked about and may become a new item. What was booked leaves the
// list, and so does what the user did not want to add; what could not be booked stays and is told.
//
// A quantity that is no number ends the run with the box of the list's commands; the rows before it
// are booked and leave the list.
#pragma once

#include <string>
#include <vector>

#include "basics/values.h"

namespace tavernook {

struct ScanBooking {
    int booked = 0;
    int ignored = 0;                // off the list, as the user did not want them
    std::vector<std::string> kept;  // still on the list, "Milk (0123): no empty lot"
};

// `rows` are ids of rows, in any order; what has gone is passed over.

// Into the item's lots: the next empty one for "Auto"; a named lot takes the quantity in place of
// what it held. Kept: it is not added.
ScanBooking Add_New(const std::vector<i32>& rows) noexcept;

// Out of the item's lots. Kept: of a named lot no more than less than it holds can be taken; no
// usage is written for it and the item's quantity stays until its lots are summed next.
ScanBooking Used_Update(const std::vector<i32>& rows) noexcept;

// The row's quantity more of it is to be bought.
ScanBooking Add_Shopping_List(const std::vector<i32>& rows) noexcept;

}  // namespace tavernook
