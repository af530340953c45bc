// The household's reference card: fixed kitchen conversions and up to 200 lines of the user's own.
// They are texts to read; nothing computes with them.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "basics/values.h"

namespace tavernook {

extern const std::array<std::string_view, 19> fixed_measures;

// The slots in use, ascending.
std::vector<i16> live_wams() noexcept;

// The first free slot, with a box when that is the last one, 200. 0, with the same box, when none
// is free.
i16 GetFreeWam() noexcept;

// The first slot whose text is the same but for trailing blanks, free slots counting as empty
// texts; 0 when there is none.
i16 CheckWams(std::string_view text) noexcept;

// A line's two fields. The left one keeps the blank in front of "=": kept, so that accepting a line
// unchanged adds one blank each time, as it always has.
struct MeasureParts {
    std::string left;
    std::string right;
};
MeasureParts split_measure(std::string_view line) noexcept;
std::string join_measure(std::string_view left, std::string_view right) noexcept;

}  // namespace tavernook
