// The scan list: the codes that came in by any scanner or from a file, each with a quantity and a
// lot, until they are booked (scan_booking.h). Nothing of it is saved.
//
// A row is a code and what its user said of it. Which item bears the code is looked up anew
// whenever it matters, since items come, go and get other codes while a row stands; what a row says
// of its item in the meantime is for the eye only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basics/values.h"

namespace tavernook {

struct ScanRow {
    i32 id = 0;  // from 1; never used again in a run
    std::string barcode;
    std::string name;      // of the item, or "unknown item"
    std::string quantity;  // a number as text
    std::string units;     // empty for an unknown item
    std::string lot;       // "Auto": the ring of the lots decides
    bool is_known = false;
    bool is_marked = true;  // to be booked with the next command
};

// In the order in which the codes came, and so of their ids.
extern std::vector<ScanRow> scan_rows;

inline constexpr std::size_t most_scan_rows = 32767;
inline constexpr std::string_view auto_lot = "Auto";

// Nothing where the row has gone.
const ScanRow* scan_row(i32 id) noexcept;

// The first slot 1 to 10000 whose barcode equals the text, capitals counting; 0 when there is none.
// The slots' barcodes are trimmed on the way. Kept: whether the slot is in use is not looked at, so
// that "empty" finds the first item without a code.
i16 find_barcode(std::string_view barcode) noexcept;

// The live item that a code of the list means; 0 when there is none. A code that begins with "TVK"
// ("tvk" and "Tvk" count as well, but for the Cue Cat) and goes on with a number is the program's
// own label and means the item of that number. Any other code, and a label of no item, is looked up
// by find_barcode and, where that finds no live item, as a code that a live one bears: with blanks
// around it, or longer than an item can bear. A blank code means none.
i16 item_of_scan(std::string_view code) noexcept;

// Appends a row: the code without blanks at its end, 1 for a quantity of 0, "Auto" for a blank lot.
// Fault 6 when the list is full, Fault 13 for a quantity that is no number: the box is the
// caller's.
void populate_item(std::string_view barcode, f64 quantity, std::string_view lot);

// Rows of that code show the item's present units and this name. A box of its own for a number
// outside the table.
void refresh_item(std::string_view barcode, std::string_view name, i16 item) noexcept;

// What all rows say of their items, anew.
void refresh_scan_rows() noexcept;

// Of the first row of that code, rounded half to even; 0 without such a row and, with a box, for a
// quantity beyond 16 bits.
i16 GetQTY(std::string_view barcode) noexcept;

// The first row of that code; those rows, whichever are still there; all of them.
void delete_barcode(std::string_view barcode) noexcept;
void delete_scan_rows(std::vector<i32> ids) noexcept;
void clear_scan_list() noexcept;

// Those rows are marked, and no others.
void mark_scan_rows(std::vector<i32> ids) noexcept;

// Ask for the row's quantity or lot. Nothing changes by a cancelled box, a row that goes meanwhile,
// a text that is no number (which is told), and an empty lot.
void ModQuantity(i32 id) noexcept;
void ModLot(i32 id) noexcept;

// "ERROR 5 ERROR DESCRIPTIONInvalid procedure call": how the list's commands tell a Fault.
std::string scan_list_message(i32 number, std::string_view description) noexcept;

}  // namespace tavernook
