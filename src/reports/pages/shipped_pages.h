// The templates of the pages and the pictures that they show, as they come with the program. They
// lie in its folders "dat", "reports" and "barcode", where the user may change them.
#pragma once

#include <array>
#include <functional>
#include <string>

namespace tavernook {

struct ShippedPage {
    const char* folder;
    const char* name;
};

inline constexpr std::array<ShippedPage, 12> shipped_pages = {{{"dat", "cal.dat"},
                                                               {"dat", "calm.dat"},
                                                               {"dat", "point.gif"},
                                                               {"dat", "month.jpg"},
                                                               {"reports", "item.dat"},
                                                               {"reports", "main.dat"},
                                                               {"reports", "general.dat"},
                                                               {"reports", "point.gif"},
                                                               {"reports", "tvkr.jpg"},
                                                               {"reports", "list.jpg"},
                                                               {"reports", "mv.jpg"},
                                                               {"barcode", "labeldat.dat"}}};

// Places those that are missing, and those that an older program has placed and nobody has changed
// (`core/shipped_file`), each whole or not at all; `bytes` gives the content of a name and may throw
// a Fault. What the user has changed stays. False when one could not be placed; the others are.
[[nodiscard]] bool lay_out_pages(
    const std::function<std::string(const std::string& name)>& bytes) noexcept;

}  // namespace tavernook
