#include "planning/recommendations.h"

#include <optional>

#include "basics/number_text.h"
#include "core/project_data.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "planning/day_plans.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr const char* quantity_prompt = "Enter quantity to add";

struct ExpiringItem {
    i16 item;
    f64 quantity;
};

std::vector<ExpiringItem> items_past_their_dates() {
    std::vector<ExpiringItem> found;
    for (i16 item = 1; item <= item_capacity; ++item) {
        if (items[item].in_use != 1) continue;
        ensure_lot_record(item);
        const f64 quantity = expiring_quantity(item);
        if (quantity > 0) found.push_back({item, quantity});
    }
    return found;
}

// The live recipes of each item, ascending and each once: the answers of meal_uses_item for all
// items from one pass over the recipes.
class RecipesOfItems {
  public:
    RecipesOfItems() {
        for (i16 recipe = 1; recipe <= meal_capacity; ++recipe) {
            if (meals[recipe].in_use == 1) enter(recipe);
        }
    }

    const std::vector<i16>& of(i16 item) const { return recipes_[static_cast<std::size_t>(item)]; }

  private:
    void enter(i16 recipe) {
        for (std::size_t place = 1; place <= ingredient_places; ++place) {
            const i16 item = meals[recipe].ingredient_item[place];
            if (item < 1 || item > item_capacity) continue;
            std::vector<i16>& held = recipes_[static_cast<std::size_t>(item)];
            if (held.empty() || held.back() != recipe) held.push_back(recipe);
        }
    }

    std::vector<std::vector<i16>> recipes_{item_capacity + 1};
};

Recommendation row_of(const ExpiringItem& expiring, i16 recipe) {
    return {.item = expiring.item,
            .recipe = recipe,
            .key = item_key(expiring.item, recipe),
            .recipe_name = std::string(meals[recipe].name.trimmed()),
            .item_name = std::string(items[expiring.item].name.trimmed()),
            .quantity = number_text(expiring.quantity)};
}

std::string caption_of(bool found) {
    if (!found) return "Tavernook has no meal recommendations at this time.";
    return "The meals listed below have expired items or are going to expire within the next " +
           std::to_string(expiration_warning_days) +
           " days.  Tavernook recommends using these meals or items soon.  Double Click on the "
           "Meal to add it to the Meal Plan.";
}

f64 ask_quantity(std::string_view title) {
    const std::string typed = boxes().input(quantity_prompt, title, "").value_or("");
    return leading_number(with_decimal_point(typed));
}

}  // namespace

MealRecommendations meal_recommendations() {
    MealRecommendations found;
    const std::vector<ExpiringItem> expiring = items_past_their_dates();
    if (!expiring.empty()) {
        const RecipesOfItems recipes;
        for (const ExpiringItem& item : expiring) {
            for (const i16 recipe : recipes.of(item.item)) {
                found.rows.push_back(row_of(item, recipe));
            }
        }
    }
    found.caption = caption_of(!found.rows.empty());
    return found;
}

i16 recommended_item(std::string_view key) {
    return get_index(key).value_or(0);
}

i16 recommended_recipe(std::string_view key) {
    return number_behind_colon(key).value_or(0);
}

void add_recommended_meal(std::string_view key) {
    const std::optional<i16> recipe = number_behind_colon(key);
    if (recipe) add_meal(*recipe, ask_quantity("Add Meal"));
}

void add_recommended_meal_unless_zero(std::string_view key) {
    const std::optional<i16> recipe = number_behind_colon(key);
    if (!recipe) return;
    const f64 quantity = ask_quantity("Add");
    if (quantity != 0) add_meal(*recipe, quantity);
}

}  // namespace tavernook
