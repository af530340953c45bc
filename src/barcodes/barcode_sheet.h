// A sheet of labels as a page: each item's or recipe's code in the font "3 of 9 Barcode", which the
// program does not carry, and its name beneath. The page is "barcode/barcode<stem>.htm" under the
// program's folder, made anew at each run; <stem> is that of the project file.
//
// A code stands between exactly one pair of stars there, as scanners want it; the caption beneath
// has an item's code with the stars that the table holds, and one at each end in any case. An item
// without a code, also one of nothing but blanks and stars, has the code "*EMPTY*". Names and codes
// go into the page as they stand.
#pragma once

#include <string>

#include "basics/values.h"

namespace tavernook {

// The family that computers must have to draw the codes.
inline constexpr char label_font[] = "3 of 9 Barcode";

struct SheetContents {
    bool items = false;
    bool recipes = false;
};

// The labels of a sheet; the last two counts are of the items among them.
struct SheetLabels {
    int items = 0;
    int recipes = 0;
    int without_code = 0;
    int misread = 0;  // what a scanner reads is not the item's code, or nothing at all
    bool operator==(const SheetLabels&) const = default;
};

struct BuiltSheet {
    bool is_written = false;  // false, after a box: an older page is as it was
    SheetLabels labels;
};

BuiltSheet Build_Doc(const SheetContents& contents) noexcept;

// Where the page is, whether it exists or not.
std::string sheet_path() noexcept;

// The last page is there and not empty.
bool has_sheet() noexcept;

}  // namespace tavernook
