// The sample household: a project with its recipe documents that comes with the program and lies in
// the program's folder as "sample17.tvk". Its dates count from the day on which it is laid out.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "basics/date.h"

namespace tavernook {

// The day that stands for "today" in the sample as it is shipped: 1 January 2000.
inline constexpr Date sample_first_day = 36526;

inline constexpr const char* sample_file_name = "sample17.tvk";

// What comes with the program: names below the program's folder, the project among them, and the
// bytes of each.
struct ShippedSample {
    std::vector<std::string> names;
    std::function<std::string(const std::string& name)> bytes;
};

// The program hands it over; a program without a sample lays nothing out.
void set_shipped_sample(ShippedSample sample) noexcept;

// Places what is missing, the project last and its dates moved to `today`; what is there already
// stays, a project of which only the previous version is left too. Each file comes into being
// complete or not at all. False when one could not be placed; the others are.
[[nodiscard]] bool lay_out_sample_project(Date today) noexcept;

// Unless a project is open, opens the sample, laying it out first where it has been deleted. Asks
// nothing; a box when it cannot be opened.
void SeedProject() noexcept;

}  // namespace tavernook
