// Templates from any bytes, filled with values that may hold anything, against the plainest way
// to do the same.
#include <cstdint>
#include <cstdlib>

#include "reports/pages/placeholders.h"

namespace tavernook {
namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

std::string plainly_filled(std::string_view page, PageValues values, bool is_each_used_once) {
    std::string text;
    for (std::size_t at = 0; at < page.size();) {
        const std::string* value = nullptr;
        std::string found;
        for (const auto& [name, one] : values) {
            const std::string placeholder = "%" + name + "%";
            if (page.substr(at, placeholder.size()) != placeholder) continue;
            value = &one;
            found = name;
        }
        if (value == nullptr) {
            text += page[at++];
            continue;
        }
        text += *value;
        at += found.size() + 2;
        if (is_each_used_once) values.erase(found);
    }
    return text;
}

// As templates name them. Values hold placeholders, and parts of the template itself.
PageValues values_from(std::string_view page) {
    PageValues values;
    for (const char* name : {"", "1", "2", "42", "a", "ct1", "$1", "title"}) {
        values[name] = "%1%" + std::string(page.substr(0, 9)) + "%";
    }
    values["2"] = "";
    return values;
}

void fill(std::string_view page) {
    require(with_first_replaced(page, {}) == page);
    require(with_all_replaced(page, {}) == page);
    const PageValues values = values_from(page);
    require(with_first_replaced(page, values) == plainly_filled(page, values, true));
    require(with_all_replaced(page, values) == plainly_filled(page, values, false));
    PageValues themselves;
    for (const auto& [name, value] : values) themselves[name] = "%" + name + "%";
    require(with_all_replaced(page, themselves) == page);
    const PageValues numbered = numbered_values({"none", "one", "two"}, 3);
    require(with_all_replaced(page, numbered) == plainly_filled(page, numbered, false));
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::fill({reinterpret_cast<const char*>(data), size});
    return 0;
}
