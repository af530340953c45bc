// What is dragged from one list to another: plain text, "i" and the number of an item or "m" and
// the number of a recipe. Such a text comes from anywhere, other programs included.
#pragma once

#include <QString>

#include "basics/values.h"

namespace tavernook {

struct Dragged {
    bool is_recipe = false;
    i16 number = 0;  // 0 = neither

    i16 item() const { return is_recipe ? i16{0} : number; }
    i16 recipe() const { return is_recipe ? number : i16{0}; }
};

// Only what names a live item or recipe.
Dragged dragged(const QString& text) noexcept;

QString text_of_dragged_item(i16 item);
QString text_of_dragged_recipe(i16 recipe);

}  // namespace tavernook
