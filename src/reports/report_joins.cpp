#include "reports/report_joins.h"

#include "reports/case_blind.h"

namespace tavernook {

namespace {

// Where a row looks for its words, and what they do.
struct JoinRule {
    int and_at;
    int or_and_xor_at;
    Join on_or = Join::with_or;
    Join on_xor = Join::with_xor;
};

JoinRule rule_of(int row) {
    if (row < first_lot_row) return {row - 1, row - 1};
    switch ((row - first_lot_row) % 3) {
        case 0:
            return {row - 1, row};
        case 1:
            return {row - 1, row - 1};
        default:
            return {row - 1, row - 2, Join::with_and, Join::with_and};
    }
}

}  // namespace

bool joins_by(std::string_view logic_string, std::string_view word) noexcept {
    return is_same_case_blind(logic_string, word);
}

RowJoins row_joins(const std::array<std::string, filter_entries>& logic_strings) noexcept {
    RowJoins joins{};
    const auto says = [&](int row, std::string_view word) {
        return joins_by(logic_strings[static_cast<std::size_t>(row)], word);
    };
    for (int row = 2; row <= report_rows; ++row) {
        const JoinRule rule = rule_of(row);
        Join& join = joins[static_cast<std::size_t>(row)];
        if (says(rule.and_at, "and")) {
            join = Join::with_and;
        } else if (says(rule.or_and_xor_at, "or")) {
            join = rule.on_or;
        } else if (says(rule.or_and_xor_at, "xor")) {
            join = rule.on_xor;
        }
    }
    return joins;
}

bool joined(Join join, bool result, bool matches) noexcept {
    switch (join) {
        case Join::with_and:
            return result && matches;
        case Join::with_or:
            return result || matches;
        case Join::with_xor:
            return result != matches;
        default:
            return result;
    }
}

}  // namespace tavernook
