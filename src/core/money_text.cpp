#include "core/money_text.h"

#include "basics/number_text.h"
#include "core/project_data.h"

namespace tavernook {

std::string money_text(f64 amount, std::string_view mask) noexcept {
    return static_cast<char>(currency_symbol) + format_number(amount, mask);
}

}  // namespace tavernook
