// The program's own labels: "tvk" in one of three spellings, and the digits of a slot.
#pragma once

#include <string_view>

#include "basics/values.h"

namespace tavernook {

// "tvk", "TVK" or "Tvk" stands in front, whatever follows.
bool is_own_label(std::string_view code) noexcept;

// The slot 1 to `capacity` that such a label names; 0 where anything but digits follows, or another
// number.
i16 slot_of_label(std::string_view code, int capacity) noexcept;

}  // namespace tavernook
