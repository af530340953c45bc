// Amounts of money as texts.
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

// The project's currency sign joined to the number under the mask: "$1.50", "$-1.50".
std::string money_text(f64 amount, std::string_view mask) noexcept;

}  // namespace tavernook
