// ".rcg" from any bytes: every file is readable, and what was read and written back reads the same.
// Then its search strings, which are anybody's patterns, are held against values of each kind.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "reports/report_file_format.h"
#include "reports/report_pattern.h"

namespace tavernook {

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

void match_all(const std::string& pattern) {
    const ReportPattern parsed(pattern);
    for (const std::string_view text : {"", "   ", "Whole milk   ", "12 oz"}) {
        (void)parsed.matches({ValueKind::text, text, 0});
    }
    // What is spared must not change the answer.
    for (const f64 number : {0.0, 1.0, -12.5, 45427.5, 1e300}) {
        for (const ValueKind kind : {ValueKind::number, ValueKind::date}) {
            const ReportValue value{kind, {}, number};
            const std::string text = value_text(value);
            require(parsed.matches(value) == parsed.matches({ValueKind::text, text, 0}));
        }
    }
}

void read_and_write(std::string_view input) {
    const auto filter = std::make_unique<ReportFilter>();
    ReportLook look;
    decode_report(input, *filter, look);
    require(look.sort.order == 0 || look.sort.order == 1);
    require(look.sort.key >= 0 && look.sort.key < report_column_slots);
    const ReportName name = report_name_in(input).value_or(ReportName());

    const std::string written = encode_report(name, *filter, look, input);
    const auto again = std::make_unique<ReportFilter>();
    ReportLook look_again;
    decode_report(written, *again, look_again);
    require(again->row_checked == filter->row_checked);
    require(again->search_strings == filter->search_strings);
    require(look_again == look);
    require(report_name_in(written) == name);
    require(encode_report(name, *filter, look, written) == written);
    for (const std::string& pattern : filter->search_strings) match_all(pattern);
    match_all(std::string(input.substr(0, 100)));
}

}  // namespace

}  // namespace tavernook

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::read_and_write({reinterpret_cast<const char*>(data), size});
    return 0;
}
