// The shopping list as a page, "dat/list.htm" under the program's folder.
#pragma once

#include <string>
#include <vector>

#include "basics/date.h"
#include "basics/values.h"
#include "reports/pages/text_table.h"
#include "shopping/list_rows.h"

namespace tavernook {

struct ListPage {
    TextTable list;
    std::string tax_text;
    std::string total_text;
};

// The items with the columns given and the present totals; `collect_list_items` comes first.
ListPage shopping_list_page(const std::vector<ListColumn>& columns,
                            const std::vector<i16>& items) noexcept;

// An empty cell is written as "-"; a list without rows says that it is empty.
std::string list_page_text(const ListPage& page, Date today, i16 size) noexcept;

// Writes the page, whole, under today's date. False, without a box, when that failed: an older page
// is as it was then.
[[nodiscard]] bool Build_HTMLlist(const ListPage& page, i16 size = 1) noexcept;

}  // namespace tavernook
