// Search patterns from any bytes, held against values of each kind, by the rules written out. The
// input is eight bytes of a number, the pattern, a line end, and the value's text.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "basics/number_text.h"
#include "basics/text.h"
#include "reports/report_pattern.h"

namespace tavernook {
namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

bool compares(char sign, f64 value, f64 operand) {
    if (sign == '<') return value < operand;
    if (sign == '>') return value > operand;
    return (value == operand) == (sign == '=');
}

bool matches_by_the_rules(std::string_view pattern, const std::string& value) {
    if (pattern == "*") return true;
    const bool has_operator =
        !pattern.empty() && std::string_view("<>=!").find(pattern[0]) != std::string_view::npos;
    if (has_operator) {
        return compares(pattern[0], leading_number(value), leading_number(pattern.substr(1)));
    }
    const std::string text = lower_case(trim(value));
    const std::string wanted = lower_case(pattern);
    const bool in_front = pattern.starts_with('*');
    const bool behind = pattern.ends_with('*');
    if (in_front && behind) {
        return text.find(wanted.substr(1, wanted.size() - 2)) != std::string::npos;
    }
    if (!in_front && !behind) return text == wanted;
    const std::size_t taken = std::min(wanted.size() - 1, text.size());
    if (in_front) return trim(text.substr(text.size() - taken)) == wanted.substr(1);
    return trim(text.substr(0, taken)) == wanted.substr(0, wanted.size() - 1);
}

void match(std::string_view pattern, const ReportValue& value) {
    const bool by_the_rules = matches_by_the_rules(pattern, value_text(value));
    require(ReportPattern(pattern).matches(value) == by_the_rules);
}

void match_all(std::string_view input) {
    f64 number = 0;
    if (input.size() < sizeof number) return;
    std::memcpy(&number, input.data(), sizeof number);
    input.remove_prefix(sizeof number);
    const std::size_t line_end = std::min(input.find('\n'), input.size());
    const std::string_view pattern = input.substr(0, line_end);
    const std::string_view text = input.substr(std::min(line_end + 1, input.size()));
    match(pattern, {ValueKind::text, text, 0});
    for (const f64 one : {number, std::trunc(number), 0.0, 45427.5}) {
        match(pattern, {ValueKind::number, {}, one});
        match(pattern, {ValueKind::date, {}, one});
    }
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::match_all({reinterpret_cast<const char*>(data), size});
    return 0;
}
