// What a code stands for that was scanned or typed on a screen of plans.
#pragma once

#include <string_view>

#include "basics/values.h"

namespace tavernook {

// At most one of them; both are 0 for an unknown code.
struct ScannedCode {
    i16 recipe = 0;
    i16 item = 0;
    bool known() const { return recipe != 0 || item != 0; }
};

// "tvk", "TVK" or "Tvk" and digits name the live recipe of that slot; with anything else behind
// them they name nothing. Any other code names the live item that bears it. Blanks around the code
// do not count.
ScannedCode meaning_of_code(std::string_view code) noexcept;

// The first live item of that barcode, capitals counting and blanks around both not; 0 when there
// is none, and for "empty" and a blank code, which no item bears. Of a longer code the 32 bytes
// count that an item can bear.
i16 find_scanned_item(std::string_view barcode) noexcept;

}  // namespace tavernook
