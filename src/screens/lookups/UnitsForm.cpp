#include "screens/lookups/UnitsForm.h"

#include "core/name_rows.h"
#include "core/rows.h"

namespace tavernook {

namespace {

std::string_view name_of(i16 slot) {
    const UnitRecord& unit = row_or_none(units, slot);
    return unit.in_use == 1 ? unit.name.right_trimmed() : std::string_view();
}

// An item counts once, whichever of its two fields holds the unit.
void count_uses(std::array<int, 1001>& by_slot) {
    const auto count = [&by_slot](i16 unit) {
        if (unit >= 1 && unit <= unit_capacity) ++by_slot[static_cast<std::size_t>(unit)];
    };
    for (const ItemRecord& item : items) {
        if (item.in_use != 1) continue;
        count(item.qty_units);
        if (item.serving_size_units != item.qty_units) count(item.serving_size_units);
    }
}

}  // namespace

UnitsForm::UnitsForm(QWidget* parent)
    : NameRowsForm({.table = Subject::units,
                    .label = tr("&Unit Name"),
                    .one = tr("unit"),
                    .plural = tr("Units"),
                    .longest_name = static_cast<int>(decltype(UnitRecord::name)::size),
                    .list_map = unit_list_map,
                    .edit_mode = unit_edit_mode,
                    .list_row = unit_list_row,
                    .name_of = name_of,
                    .count_uses = count_uses,
                    .refresh_list = refresh_unit_list,
                    .accept = accept_unit,
                    .delete_selected = delete_selected_units,
                    .refresh_boxes = refresh_unit_combos},
                   parent) {
    setObjectName(QStringLiteral("UnitsForm"));
}

}  // namespace tavernook
