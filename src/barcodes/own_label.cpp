#include "barcodes/own_label.h"

#include "basics/number_text.h"

namespace tavernook {

bool is_own_label(std::string_view code) noexcept {
    return code.starts_with("tvk") || code.starts_with("TVK") || code.starts_with("Tvk");
}

i16 slot_of_label(std::string_view code, int capacity) noexcept {
    const std::string_view digits = code.substr(3);
    if (digits.find_first_not_of("0123456789") != std::string_view::npos) return 0;
    const f64 number = leading_number(digits);
    return number >= 1 && number <= capacity ? static_cast<i16>(number) : i16{0};
}

}  // namespace tavernook
