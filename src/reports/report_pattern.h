// A search string, read once and held against many values.
#pragma once

#include <string>
#include <string_view>

#include "reports/report_fields.h"

namespace tavernook {

class ReportPattern {
  public:
    ReportPattern() = default;  // matches everything
    explicit ReportPattern(std::string_view search_string);

    bool matches(const ReportValue& value) const;
    bool matches_everything() const { return kind_ == Kind::everything; }

  private:
    enum class Kind { everything, less, greater, equal, not_equal, whole_text, end, start, part };

    void read_operator(char sign, std::string_view operand);
    void read_text(std::string_view search_string);
    bool compares_numbers() const { return kind_ >= Kind::less && kind_ <= Kind::not_equal; }
    bool number_matches(f64 number) const;
    bool text_matches(std::string_view stored) const;
    bool cannot_match(const ReportValue& value) const;

    Kind kind_ = Kind::everything;
    f64 number_ = 0;                      // behind an operator
    std::string text_;                    // without the "*" at its ends
    bool is_trimmed_ = true;              // no blank at its ends
    bool has_other_than_digits_ = false;  // a letter that no number and no date has, but for few
};

}  // namespace tavernook
