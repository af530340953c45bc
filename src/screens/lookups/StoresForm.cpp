#include "screens/lookups/StoresForm.h"

#include "core/name_rows.h"
#include "core/rows.h"

namespace tavernook {

namespace {

std::string_view name_of(i16 slot) {
    const StoreRecord& store = row_or_none(stores, slot);
    return store.in_use == 1 ? store.name.right_trimmed() : std::string_view();
}

void count_uses(std::array<int, 1001>& by_slot) {
    for (const ItemRecord& item : items) {
        if (item.in_use != 1 || item.store < 1 || item.store > store_capacity) continue;
        ++by_slot[static_cast<std::size_t>(item.store)];
    }
}

}  // namespace

StoresForm::StoresForm(QWidget* parent)
    : NameRowsForm({.table = Subject::stores,
                    .label = tr("&Store Name"),
                    .one = tr("store"),
                    .plural = tr("Stores"),
                    .longest_name = static_cast<int>(decltype(StoreRecord::name)::size),
                    .list_map = store_list_map,
                    .edit_mode = store_edit_mode,
                    .list_row = store_list_row,
                    .name_of = name_of,
                    .count_uses = count_uses,
                    .refresh_list = refresh_store_list,
                    .accept = accept_store,
                    .delete_selected = delete_selected_stores,
                    .refresh_boxes = refresh_store_combo},
                   parent) {
    setObjectName(QStringLiteral("StoresForm"));
}

}  // namespace tavernook
