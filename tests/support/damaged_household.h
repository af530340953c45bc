// A household as a damaged project file may hold it, the same at every run. Every field of every
// kind of record is, in a record of its own, out of range, negative, huge, infinite or no number at
// all; the rest of that record is sound. Then each kind has a record in which all fields are so at
// once. Between them stand a few sound ones, which have to work as if nothing were wrong.
//
// Each record bears its own slot in its name ("Item 17", barcode "B17", first lot "L17"), so that
// one that took another's fields is seen.
#pragma once

#include <string>
#include <vector>

#include "basics/date.h"
#include "basics/values.h"

namespace tavernook {

// Fills the global tables and the settings; the caller has reset them. The sound records are
// item 1, recipe 1 (two servings of item 1) and day 1, which plans one of each.
void fill_damaged_household();

inline constexpr Date damaged_household_today = 45427;      // 15 May 2024, in the fakes' clock
inline constexpr Date damaged_household_sound_day = 45426;  // day 1: 14 May 2024, not yet audited

// The live records that do not bear their own name any more, one sentence each.
std::vector<std::string> strangers_in_damaged_household();

}  // namespace tavernook
