#include "reports/report_filter.h"

#include <algorithm>
#include <vector>

#include "basics/text.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "reports/report_joins.h"
#include "reports/report_pattern.h"

namespace tavernook {

namespace {

constexpr int rows_checked_at_first = 22;

std::size_t entry(int row) {
    return static_cast<std::size_t>(row);
}

bool is_row(int row) {
    return row >= 1 && row <= report_rows;
}

void set_defaults(ReportFilter& filter, int last_entry) {
    for (int row = 1; row <= last_entry; ++row) {
        filter.search_strings[entry(row)] = "*";
        filter.logic_strings[entry(row)] = "AND";
    }
    for (int row = 1; row <= report_rows; ++row) {
        filter.row_checked[entry(row)] = truth(row <= rows_checked_at_first);
    }
}

// What a row contributes to the running result, and where the walk goes on behind it. A row whose
// join cannot change the result as it stands ("and" with false, "or" with true) is passed by.
struct Step {
    int row;
    Join join;
    ReportPattern pattern;
    std::size_t next_when_false = 0;
    std::size_t next_when_true = 0;
};

// The name, joined by "or" to the false that the walk begins with, and the rows that can make a
// difference. An "and" with what always matches makes none.
std::vector<Step> steps_of(const ReportFilter& filter) {
    const RowJoins joins = row_joins(filter.logic_strings);
    std::vector<Step> steps = {
        {item_row, Join::with_or, ReportPattern(filter.search_strings[item_row])}};
    for (int row = item_row + 1; row <= report_rows; ++row) {
        const Join join = joins[entry(row)];
        ReportPattern pattern(filter.search_strings[entry(row)]);
        const bool changes_nothing = join == Join::with_and && pattern.matches_everything();
        if (join == Join::none || changes_nothing) continue;
        steps.push_back({row, join, std::move(pattern)});
    }
    return steps;
}

void connect(std::vector<Step>& steps) {
    std::size_t when_false = steps.size();
    std::size_t when_true = steps.size();
    for (std::size_t number = steps.size(); number-- > 0;) {
        Step& step = steps[number];
        step.next_when_false = when_false;
        step.next_when_true = when_true;
        if (step.join != Join::with_and) when_false = number;
        if (step.join != Join::with_or) when_true = number;
    }
}

bool item_matches(i16 item, const std::vector<Step>& steps) {
    const ReportItem of = report_item(item);
    bool result = false;
    for (std::size_t number = 0; number < steps.size();) {
        const Step& step = steps[number];
        const bool matches = step.pattern.matches(field_value(step.row, of));
        result = joined(step.join, result, matches);
        number = result ? step.next_when_true : step.next_when_false;
    }
    return result;
}

void search(ReportFilter& filter) {
    std::vector<Step> steps = steps_of(filter);
    connect(steps);
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (items[item].in_use != 1) continue;
        filter.result_flags[entry(item)] = truth(item_matches(item, steps));
    }
}

bool is_logic_string(std::string_view text) {
    return joins_by(text, "and") || joins_by(text, "or") || joins_by(text, "xor");
}

// The answer that is worth storing; empty where the command ends.
std::string asked_logic_string(const std::string& present) {
    for (;;) {
        const std::string reply =
            boxes()
                .input("Enter the Logic String (AND, OR, XOR)", "Logic String", present)
                .value_or("");
        if (reply.empty() || is_logic_string(reply)) return reply;
        boxes().message(reply + " is not a valid logic string.  Please use AND, OR, XOR");
    }
}

bool store_answer(std::string& present, std::string answer) {
    if (answer.empty()) return false;
    present = std::move(answer);
    return true;
}

}  // namespace

void begin_report_filter(ReportFilter& filter) noexcept {
    set_defaults(filter, filter_entries - 1);
}

void reset_report_filter(ReportFilter& filter) noexcept {
    set_defaults(filter, report_rows);
}

bool IS_Match(const ReportFilter& filter, i16 /*item_index*/, const ReportValue& value,
              int row) noexcept {
    bool found = false;
    trap(
        [&] {
            if (row < 0 || row >= filter_entries) throw Fault(fault_number::subscript_out_of_range);
            found = ReportPattern(filter.search_strings[entry(row)]).matches(value);
        },
        [](const Fault& fault) {
            show_fault("Error in the IS_MATCH routine, Error = " + std::to_string(fault.number) +
                       " Description = " + fault.description);
        });
    return found;
}

void search_engine(ReportFilter& filter) noexcept {
    trap_in_screen([&] { search(filter); });
}

bool ask_search_string(ReportFilter& filter, int row) noexcept {
    bool stored = false;
    trap_in_screen([&] {
        if (!is_row(row)) return;
        std::string& present = filter.search_strings[entry(row)];
        const auto reply = boxes().input("Enter the Search String", "Search String", present);
        stored = store_answer(present, reply.value_or(""));
    });
    return stored;
}

bool ask_logic_string(ReportFilter& filter, int row) noexcept {
    bool stored = false;
    trap_in_screen([&] {
        if (!is_row(row)) return;
        std::string& present = filter.logic_strings[entry(row)];
        stored = store_answer(present, asked_logic_string(present));
    });
    return stored;
}

void view_none_or_all(ReportFilter& filter) noexcept {
    for (int row = 2; row <= report_rows; ++row) {
        filter.row_checked[entry(row)] = filter.view_all_next;
    }
    filter.view_all_next = truth(filter.view_all_next == i16_false);
}

std::string_view view_button_caption(const ReportFilter& filter) noexcept {
    return filter.view_all_next == i16_false ? "View None" : "View All";
}

void check_row(ReportFilter& filter, int row, bool checked) noexcept {
    if (is_row(row)) filter.row_checked[entry(row)] = truth(checked || row == item_row);
}

}  // namespace tavernook
