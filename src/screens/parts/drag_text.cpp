#include "screens/parts/drag_text.h"

#include "core/project_data.h"
#include "core/rows.h"

namespace tavernook {

Dragged dragged(const QString& text) noexcept {
    const bool is_recipe = text.startsWith(QLatin1Char('m'));
    if (!is_recipe && !text.startsWith(QLatin1Char('i'))) return {};
    bool is_number = false;
    const i16 number = QStringView(text).mid(1).toShort(&is_number);
    if (!is_number) return {};
    const bool is_live = is_recipe ? is_live_row(meals, number) : is_live_row(items, number);
    return is_live ? Dragged{is_recipe, number} : Dragged{};
}

QString text_of_dragged_item(i16 item) {
    return QLatin1Char('i') + QString::number(item);
}

QString text_of_dragged_recipe(i16 recipe) {
    return QLatin1Char('m') + QString::number(recipe);
}

}  // namespace tavernook
