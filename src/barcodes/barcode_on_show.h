// The one barcode that the window `BCGEN` shows: of an item or a recipe, drawn and saved as a
// picture. Whoever wants one on show says so here and brings the window up; the window follows.
#pragma once

#include <string>

#include "basics/values.h"
#include "core/changes.h"

namespace tavernook {

struct BarcodeOnShow {
    RowRef of;  // none: nothing is on show, or it has gone
    bool is_meal = false;
    std::string code;  // that was drawn
    std::string file;  // where the picture was saved; empty when it could not be
    bool operator==(const BarcodeOnShow&) const = default;
};

extern BarcodeOnShow barcode_on_show;

// The item has a code: neither "empty" nor a blank one.
bool has_barcode(i16 item) noexcept;

// Draws and saves the barcode of an item or of a recipe and has it on show. False when there is
// none such, and, after a box, when the picture could not be saved: what was on show stays.
[[nodiscard]] bool put_barcode_on_show(i16 number, bool is_meal) noexcept;

// Its code as the record bears it now; empty when the record or its code has gone.
std::string present_code() noexcept;

// Draws and saves it anew where the record bears another code by now. Where it cannot be saved a
// box tells, and `file` is empty.
void renew_barcode_on_show() noexcept;

}  // namespace tavernook
