#include "recipes/recipe_names.h"

#include "basics/text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"

namespace tavernook {

namespace {

template <typename Record>
bool rename(Record& record, std::string_view name) {
    auto changed = record.name;
    changed = trim(name);
    if (trim(name).empty() || changed == record.name) return false;
    record.name = changed;
    project_modified = i16_true;
    return true;
}

}  // namespace

bool is_live_meal(i16 slot) noexcept {
    return is_live_row(meals, slot);
}

i16 home_recipe_catagory(i16 slot) noexcept {
    const i16 catagory = row_or_none(meals, slot).category;
    return is_recipe_catagory(catagory) ? catagory : i16{0};
}

bool rename_meal(i16 slot, std::string_view name) noexcept {
    return is_live_meal(slot) && rename(meals[slot], name);
}

bool move_meal(i16 slot, i16 catagory) noexcept {
    const bool known = catagory == 0 || is_recipe_catagory(catagory);
    if (!known || !is_live_meal(slot) || meals[slot].category == catagory) return false;
    meals[slot].category = catagory;
    project_modified = i16_true;
    return true;
}

i16 unit_named(std::string_view name) noexcept {
    const std::string wanted = lower_case(trim(name));
    if (wanted.empty()) return 0;
    for (i16 row = 1; row <= unit_capacity; ++row) {
        if (units[row].in_use == 1 && lower_case(units[row].name.trimmed()) == wanted) return row;
    }
    return 0;
}

}  // namespace tavernook
