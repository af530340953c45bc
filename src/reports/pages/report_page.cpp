#include "reports/pages/report_page.h"

#include <algorithm>

#include "core/program_folders.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "reports/html/BuildHTML.h"

namespace tavernook {

namespace {

std::string heading(std::string_view name, Date today, i16 size) {
    std::string text = TagFont("arial", size) + TagBold() + "Tavernook Report-";
    text.append(name).append(" ").append(TagBoldEnd()).append(date_text(date_alone(today)));
    return TagPara(text + TagFontEnd(), size);
}

std::string title_row(const TextTable& report, i16 size) {
    const std::size_t columns = report.rows.empty() ? 0 : report.rows.front().size();
    const std::string rule = TagLine(TagRule(), size);
    std::string row = TagRow();
    for (std::size_t column = 0; column < std::min(columns, report.titles.size()); ++column) {
        row += TagCell(report.titles[column] + rule, size);
    }
    return row + TagRowEnd();
}

// The first cell is the row's own text, the others go with it.
void append_row(std::string& text, const std::vector<std::string>& cells, i16 size) {
    text += TagRow();
    bool is_first = true;
    for (const std::string& cell : cells) {
        if (is_first) {
            append_cell(text, TagBold() + cell + TagBoldEnd(), size);
        } else {
            append_cell(text, cell, size);
        }
        is_first = false;
    }
    text += TagRowEnd();
}

}  // namespace

std::string report_page_text(const TextTable& report, i16 size, bool border, std::string_view name,
                             Date today) noexcept {
    std::string text;
    text.reserve(room_for(report));
    text += TagHead() + heading(name, today, size);
    text += TagTable(border ? 1 : 0, 0) + title_row(report, size);
    for (const std::vector<std::string>& row : report.rows) append_row(text, row, size);
    text += TagTableEnd();
    if (report.rows.empty()) text += TagPara("Nothing was found for this report.", size);
    text += TagRule() + TagTail();
    return text;
}

bool Build_HTML_Report_list(const TextTable& report, i16 size, bool border,
                            std::string_view name) noexcept {
    return tried([&] {
        replace_file(in_program_folder("reports/rlist.htm"),
                     report_page_text(report, size, border, name, platform_clock().now()));
    });
}

}  // namespace tavernook
