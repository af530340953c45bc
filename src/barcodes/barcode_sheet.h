// A sheet of labels as a page: each item's or recipe's code in the font "3 of 9 Barcode", which the
// program does not carry, and its name beneath. The page is "barcode/barcode<stem>.htm" under the
// program's folder, made anew at each run; <stem> is that of the project file.
#pragma once

#include <string>

#include "basics/values.h"

namespace tavernook {

struct SheetContents {
    bool items = false;
    bool recipes = false;
};

// False, after a box, when the page could not be written: an older page is as it was.
[[nodiscard]] bool Build_Doc(const SheetContents& contents) noexcept;

// Where the page is, whether it exists or not.
std::string sheet_path() noexcept;

// The last page is there and not empty.
bool has_sheet() noexcept;

}  // namespace tavernook
