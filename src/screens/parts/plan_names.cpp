#include "screens/parts/plan_names.h"

#include "core/project_data.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

template <typename Rows>
QString name_of(const Rows& table, i16 row, int capacity) {
    return row >= 1 && row <= capacity ? shown_text(table[row].name.trimmed()) : QString();
}

}  // namespace

QString recipe_name(i16 recipe) {
    return name_of(meals, recipe, meal_capacity);
}

QString item_name(i16 item) {
    return name_of(items, item, item_capacity);
}

QString recipe_unit(i16 recipe) {
    if (recipe < 1 || recipe > meal_capacity) return {};
    return name_of(units, meals[recipe].serving_size_units, unit_capacity);
}

QString serving_unit(i16 item) {
    if (item < 1 || item > item_capacity) return {};
    return name_of(units, items[item].serving_size_units, unit_capacity);
}

}  // namespace tavernook
