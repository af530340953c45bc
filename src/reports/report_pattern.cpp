#include "reports/report_pattern.h"

#include <algorithm>
#include <cmath>

#include "basics/number_text.h"
#include "basics/text.h"
#include "reports/case_blind.h"
#include "reports/report_filter.h"

namespace tavernook {

namespace {

constexpr std::string_view operators = "<>=!";

// All that the texts of finite numbers and of dates but 0 are made of.
constexpr std::string_view figures = "0123456789.-/";

// By the rule for leading numbers. A finite number is what its text says.
f64 number_of(const ReportValue& value) {
    switch (value.kind) {
        case ValueKind::number:
            return std::isfinite(value.number) ? value.number : 0;
        case ValueKind::date:
            return leading_number(value_text(value));
        default:
            return leading_number(value.text);
    }
}

}  // namespace

i16 special_ops(std::string_view search_string) noexcept {
    const bool in_front = search_string.starts_with('*');
    const bool behind = search_string.ends_with('*');
    if (in_front && behind) return 3;
    return behind ? 2 : in_front ? 1 : 0;
}

ReportPattern::ReportPattern(std::string_view search_string) {
    if (search_string == "*") return;
    const bool has_operator =
        !search_string.empty() && operators.find(search_string[0]) != std::string_view::npos;
    if (has_operator) {
        read_operator(search_string[0], search_string.substr(1));
    } else {
        read_text(search_string);
    }
}

void ReportPattern::read_operator(char sign, std::string_view operand) {
    kind_ = sign == '<'   ? Kind::less
            : sign == '>' ? Kind::greater
            : sign == '=' ? Kind::equal
                          : Kind::not_equal;
    number_ = leading_number(operand);
}

void ReportPattern::read_text(std::string_view search_string) {
    switch (special_ops(search_string)) {
        case 0:
            kind_ = Kind::whole_text;
            text_ = search_string;
            break;
        case 1:
            kind_ = Kind::end;
            text_ = search_string.substr(1);
            break;
        case 2:
            kind_ = Kind::start;
            text_ = search_string.substr(0, search_string.size() - 1);
            break;
        default:
            kind_ = Kind::part;
            text_ = search_string.substr(1, search_string.size() - 2);
    }
    is_trimmed_ = trim(text_).size() == text_.size();
    has_other_than_digits_ = text_.find_first_not_of(figures) != std::string::npos;
}

bool ReportPattern::matches(const ReportValue& value) const {
    if (kind_ == Kind::everything) return true;
    if (compares_numbers()) return number_matches(number_of(value));
    if (value.kind == ValueKind::text) return text_matches(value.text);
    return !cannot_match(value) && text_matches(value_text(value));
}

bool ReportPattern::number_matches(f64 number) const {
    switch (kind_) {
        case Kind::less:
            return number < number_;
        case Kind::greater:
            return number > number_;
        case Kind::equal:
            return number == number_;
        default:
            return number != number_;
    }
}

bool ReportPattern::text_matches(std::string_view stored) const {
    // Blanks around the text hide nothing of a part without such, and cutting them takes time.
    if (kind_ == Kind::part && is_trimmed_) return contains_case_blind(stored, text_);
    const std::string_view text = trim(stored);
    const std::size_t taken = std::min(text_.size(), text.size());
    switch (kind_) {
        case Kind::end:
            return is_same_case_blind(trim(text.substr(text.size() - taken)), text_);
        case Kind::start:
            return is_same_case_blind(trim(text.substr(0, taken)), text_);
        case Kind::part:
            return contains_case_blind(text, text_);
        default:
            return is_same_case_blind(text, text_);
    }
}

// Spares the texts of numbers and dates where one letter of the pattern tells.
bool ReportPattern::cannot_match(const ReportValue& value) const {
    const bool has_letters = value.kind == ValueKind::number ? !std::isfinite(value.number)
                                                             : std::trunc(value.number) == 0;
    return has_other_than_digits_ && !has_letters;
}

}  // namespace tavernook
