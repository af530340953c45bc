#include "planning/recommendations.h"

#include <numeric>
#include <optional>
#include <span>

#include "basics/number_text.h"
#include "basics/typed_numbers.h"
#include "core/changes.h"
#include "core/project_data.h"
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
// items from two passes over the recipes.
class RecipesOfItems {
  public:
    RecipesOfItems() {
        for_each_use([this](std::size_t item, i16) { ++first_[item + 1]; });
        std::partial_sum(first_.begin(), first_.end(), first_.begin());
        recipes_.resize(first_.back());
        std::vector<std::size_t> next = first_;
        for_each_use([&](std::size_t item, i16 recipe) { recipes_[next[item]++] = recipe; });
    }

    std::span<const i16> of(i16 number) const {
        const auto item = static_cast<std::size_t>(number);
        return std::span(recipes_).subspan(first_[item], first_[item + 1] - first_[item]);
    }

  private:
    template <typename Use>
    static void for_each_use(Use use) {
        std::vector<i16> latest(item_capacity + 1);
        for (i16 recipe = 1; recipe <= meal_capacity; ++recipe) {
            const MealRecord& meal = meals[recipe];
            if (meal.in_use != 1) continue;
            for (std::size_t place = 1; place <= ingredient_places; ++place) {
                const i16 number = meal.ingredient_item[place];
                if (number < 1 || number > item_capacity) continue;
                const auto item = static_cast<std::size_t>(number);
                if (latest[item] != recipe) use(item, recipe);
                latest[item] = recipe;
            }
        }
    }

    std::vector<std::size_t> first_ = std::vector<std::size_t>(item_capacity + 2);  // by item
    std::vector<i16> recipes_;
};

std::string caption_of(bool found) {
    if (!found) return "Tavernook has no meal recommendations at this time.";
    return "The meals listed below have expired items or are going to expire within the next " +
           std::to_string(expiration_warning_days) +
           " days.  Tavernook recommends using these meals or items soon.  Double Click on the "
           "Meal to add it to the Meal Plan.";
}

std::optional<f64> ask_quantity(std::string_view title) {
    const std::optional<std::string> typed = boxes().input(quantity_prompt, title, "");
    if (!typed) return std::nullopt;
    return leading_number(with_decimal_point(*typed));
}

// The recipe may go, and the day may be audited, while the box stands open.
bool plan_as_asked(std::string_view key, std::string_view title, bool zero_too) {
    const std::optional<i16> number = number_behind_colon(key);
    if (!number) return false;
    const RowRef recipe(Subject::recipes, *number);
    const std::optional<f64> quantity = ask_quantity(title);
    if (!quantity || (*quantity == 0 && !zero_too)) return false;
    const DayRecord& day = day_at(current_day);
    if (day.in_use == 1 && day.audited != 0) return false;
    return add_meal(recipe.now(), *quantity);
}

}  // namespace

std::string recommendation_key(const Recommendation& row) noexcept {
    return item_key(row.item, row.recipe);
}

MealRecommendations meal_recommendations() noexcept {
    MealRecommendations found;
    const std::vector<ExpiringItem> expiring = items_past_their_dates();
    if (!expiring.empty()) {
        const RecipesOfItems recipes;
        for (const ExpiringItem& item : expiring) {
            for (const i16 recipe : recipes.of(item.item)) {
                found.rows.push_back({item.item, recipe, item.quantity});
            }
        }
    }
    found.caption = caption_of(!found.rows.empty());
    return found;
}

i16 recommended_item(std::string_view key) noexcept {
    return get_index(key).value_or(0);
}

i16 recommended_recipe(std::string_view key) noexcept {
    return number_behind_colon(key).value_or(0);
}

bool add_recommended_meal(std::string_view key) {
    return plan_as_asked(key, "Add Meal", true);
}

bool add_recommended_meal_unless_zero(std::string_view key) {
    return plan_as_asked(key, "Add", false);
}

}  // namespace tavernook
