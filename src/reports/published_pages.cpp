#include "reports/published_pages.h"

#include <vector>

#include "core/trap.h"
#include "platform/platform.h"
#include "reports/pages/calendar_pages.h"
#include "reports/pages/list_page.h"
#include "reports/pages/usage_pages.h"
#include "shopping/list_rows.h"

namespace tavernook {

namespace {

bool build_list_without_screen(i16 size) {
    collect_list_items();
    const std::vector<ListColumn> columns(list_columns.begin(), list_columns.end());
    const std::vector<i16> listed(list_items.begin() + 1, list_items.begin() + 1 + list_count);
    return Build_HTMLlist(shopping_list_page(columns, listed), size);
}

}  // namespace

bool build_list_page(i16 size) noexcept {
    bool is_built = false;
    tried([&] {
        ports::ShoppingList* screen = shopping_list();
        is_built =
            screen != nullptr ? screen->Build_HTMLlist(size) : build_list_without_screen(size);
    });
    return is_built;
}

// What could not be made is told by its builder or missed when it is to be sent.
PageBuilders published_pages() noexcept {
    return {.build_main_report = [] { static_cast<void>(build_main_report()); },
            .Build_HTMLlist = [](i16 size) { static_cast<void>(build_list_page(size)); },
            .Build_HTMLCal_Month = [](i16 size) { static_cast<void>(Build_HTMLCal_Month(size)); }};
}

}  // namespace tavernook
