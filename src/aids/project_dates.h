// The dates of a project file, moved as a whole without opening it.
#pragma once

#include <string>

namespace tavernook {

// The same project some days later (or earlier, when negative): creation dates, last restocks, the
// dates of lots and the planned days. Dates that are none stay none. Everything else stays byte for
// byte. Fault 63 when the bytes are no whole project of the present form, Fault 6 when a date
// leaves the years 1..9999.
std::string project_moved_by_days(std::string bytes, int days);

}  // namespace tavernook
