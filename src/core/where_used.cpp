#include "core/where_used.h"

#include <algorithm>

#include "core/project_data.h"

namespace tavernook {

namespace {

template <typename Uses>
std::string items_that(Uses&& uses) {
    std::string users;
    for (i16 slot = 1; slot <= item_capacity; ++slot) {
        const ItemRecord& item = items[slot];
        if (item.in_use == 1 && uses(item)) {
            users.append("ITEM:").append(item.name.right_trimmed()).append(",");
        }
    }
    return users;
}

// Place 0 is never used.
template <typename Places>
auto times_held(const Places& places, i16 wanted) {
    return std::count(places.begin() + 1, places.end(), wanted);
}

void append_times(std::string& users, long count, const std::string& entry) {
    for (; count > 0; --count) users += entry;
}

template <typename Places>
void append_days(std::string& users, Places places, i16 wanted) {
    for (i16 slot = 1; slot <= day_capacity; ++slot) {
        const DayRecord& day = days[slot];
        if (day.in_use != 1) continue;
        const auto count = times_held(day.*places, wanted);
        if (count > 0) append_times(users, count, "DAY:" + day_date_text(day) + ",");
    }
}

void append_meals(std::string& users, i16 item) {
    for (i16 slot = 1; slot <= meal_capacity; ++slot) {
        const MealRecord& meal = meals[slot];
        if (meal.in_use != 1) continue;
        const auto count = times_held(meal.ingredient_item, item);
        if (count > 0) {
            append_times(users, count, "MEAL:" + std::string(meal.name.trimmed()) + ",");
        }
    }
}

}  // namespace

std::string item_store_users(i16 store) noexcept {
    return items_that([store](const ItemRecord& item) { return item.store == store; });
}

std::string item_unit_users(i16 unit) noexcept {
    return items_that([unit](const ItemRecord& item) {
        return item.qty_units == unit || item.serving_size_units == unit;
    });
}

std::string item_users(i16 item) noexcept {
    std::string users;
    append_meals(users, item);
    append_days(users, &DayRecord::planned_item, item);
    return users;
}

std::string meal_users(i16 meal) noexcept {
    std::string users;
    append_days(users, &DayRecord::planned_meal, meal);
    return users;
}

std::string day_date_text(const DayRecord& day) noexcept {
    return std::to_string(day.month) + "/" + std::to_string(day.day) + "/" +
           std::to_string(day.year);
}

}  // namespace tavernook
