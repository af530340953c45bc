#include "core/weights_and_measures.h"

#include <algorithm>

#include "basics/text.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

const std::array<std::string_view, 19> fixed_measures{
    "3 Tsp = 1 Tbsp",    "4 Tbsp = 0.25 Cups",     "5 1/3 Tbsp = 1/3 Cup",
    "8 Tbsp =  1/2 Cup", "10 2/3 Tbsp = 2/3 Cup",  "12 Tbsp = 3/4 Cup",
    "16 Tbsp = 1 Cup",   "1 Tbsp = 1/2 Fluid Oz.", "1 Cup = 8 Fluid Oz.",
    "2 Cups = 1 Pint",   "1 Cup = 1/2 Pint",       "4 Cups = 1 Quart",
    "2 Pints = 1 Quart", "4 Quarts = 1 Gallon",    "1Tbsp = 14.79 mL",
    "1 Cup = 236.6 mL",  "1.06 Quarts = 1 Liter",  "1 lb. = 453.59 grams",
    "1 oz = 28.35 grams"};

std::vector<i16> live_wams() noexcept {
    std::vector<i16> slots;
    for (i16 slot = 1; slot <= wam_capacity; ++slot) {
        if (wams[slot].in_use != 0) slots.push_back(slot);
    }
    return slots;
}

i16 GetFreeWam() noexcept {
    i16 slot = 1;
    while (slot <= wam_capacity && wams[slot].in_use != 0) ++slot;
    if (slot >= wam_capacity) {
        boxes().message(
            "You have reached the limitation of User Defined 'Weights and Measures' allowed in "
            "Tavernook.  It is recommended that you delete some to allow for some more room.");
    }
    return slot <= wam_capacity ? slot : i16{0};
}

i16 CheckWams(std::string_view text) noexcept {
    i16 found = 0;
    const auto search = [&] {
        for (i16 slot = 1; slot <= wam_capacity && found == 0; ++slot) {
            if (trim_right(wams[slot].text) == trim_right(text)) found = slot;
        }
    };
    trap(search,
         [](const Fault& fault) { show_fault("CheckWams Function Error = " + fault.description); });
    return found;
}

MeasureParts split_measure(std::string_view line) noexcept {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return {"", std::string(line.substr(line.empty() ? 0 : 1))};
    return {std::string(line.substr(0, equals)),
            std::string(line.substr(std::min(equals + 2, line.size())))};
}

std::string join_measure(std::string_view left, std::string_view right) noexcept {
    return std::string(left) + " = " + std::string(right);
}

}  // namespace tavernook
