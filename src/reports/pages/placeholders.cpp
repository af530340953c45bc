#include "reports/pages/placeholders.h"

#include <optional>
#include <utility>

namespace tavernook {

namespace {

// `value_of` gives what stands for a name, or nothing.
template <typename ValueOf>
std::string filled(std::string_view page, ValueOf value_of) {
    std::string text;
    text.reserve(page.size());
    std::size_t at = 0;
    while (true) {
        const std::size_t open = page.find('%', at);
        const std::size_t close = open == page.npos ? open : page.find('%', open + 1);
        if (close == page.npos) return text.append(page.substr(at));
        text += page.substr(at, open - at);
        const std::optional<std::string> value = value_of(page.substr(open + 1, close - open - 1));
        text += value ? *value : "%";
        at = (value ? close : open) + 1;
    }
}

}  // namespace

std::string with_first_replaced(std::string_view page, PageValues values) noexcept {
    return filled(page, [&](std::string_view name) -> std::optional<std::string> {
        const auto found = values.find(name);
        if (found == values.end()) return {};
        return std::move(values.extract(found).mapped());
    });
}

std::string with_all_replaced(std::string_view page, const PageValues& values) noexcept {
    return filled(page, [&](std::string_view name) -> std::optional<std::string> {
        const auto found = values.find(name);
        if (found == values.end()) return {};
        return found->second;
    });
}

PageValues numbered_values(const std::vector<std::string>& values, i16 count) noexcept {
    PageValues numbered;
    for (std::size_t number = 1; static_cast<int>(number) <= count; ++number) {
        numbered[std::to_string(number)] = number < values.size() ? values[number] : "";
    }
    return numbered;
}

}  // namespace tavernook
