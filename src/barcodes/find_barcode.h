// Which item bears a barcode.
#pragma once

#include <string_view>

#include "basics/values.h"

namespace tavernook {

// The first item, live or not, that bears exactly this code; 0 when there is none. On the way every
// item's barcode is trimmed where it stands.
i16 find_barcode(std::string_view barcode);

// The same among what can be booked and bought: 0 for an item that is not live, and for the word
// that stands for "no barcode" or no word at all.
i16 find_scanned_item(std::string_view barcode);

}  // namespace tavernook
