#include "reports/pages/list_page.h"

#include "core/program_folders.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "reports/html/BuildHTML.h"

namespace tavernook {

namespace {

std::string title_row(const std::vector<std::string>& titles, i16 size) {
    std::string row = TagRow();
    for (const std::string& title : titles) row += TagCell(TagBold() + title + TagBoldEnd(), size);
    return row + TagRowEnd();
}

void append_row(std::string& text, const std::vector<std::string>& cells, i16 size) {
    text += TagRow();
    for (const std::string_view cell : cells) append_cell(text, cell.empty() ? "-" : cell, size);
    text += TagRowEnd();
}

}  // namespace

ListPage shopping_list_page(const std::vector<ListColumn>& columns,
                            const std::vector<i16>& items) noexcept {
    ListPage page{{}, tax_text, total_text};
    for (const ListColumn column : columns) page.list.titles.push_back(column_title(column));
    for (const i16 item : items) {
        std::vector<std::string>& cells = page.list.rows.emplace_back();
        for (const ListColumn column : columns) cells.push_back(cell_text(column, item));
    }
    return page;
}

std::string list_page_text(const ListPage& page, Date today, i16 size) noexcept {
    const std::string heading = "Shopping List " + date_text(date_alone(today));
    std::string text = TagHead();
    text +=
        TagPara(TagFont("arial", size) + TagBold() + heading + TagBoldEnd() + TagFontEnd(), size);
    text += TagRule() + TagTable(0, 100) + title_row(page.list.titles, size);
    for (const std::vector<std::string>& row : page.list.rows) append_row(text, row, size);
    text += TagTableEnd();
    if (page.list.rows.empty()) text += TagPara("There is nothing on the shopping list.", size);
    text += TagRule() + TagLine("Sales Tax = " + page.tax_text, size);
    text += TagLine("Total Cost = " + page.total_text, size);
    text += TagTail();
    return text;
}

bool Build_HTMLlist(const ListPage& page, i16 size) noexcept {
    return tried([&] {
        replace_file(in_program_folder("dat/list.htm"),
                     list_page_text(page, platform_clock().now(), size));
    });
}

}  // namespace tavernook
