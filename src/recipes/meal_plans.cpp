#include "recipes/meal_plans.h"

#include <vector>

#include "core/changes.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/trap.h"
#include "inventory/lots.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

struct PlannedPlace {
    i16 day;
    i16 place;
};

struct StockReturn {
    i16 item;
    f64 quantity;
};
using StockReturns = std::vector<StockReturn>;

std::size_t index_of(i16 place) {
    if (place < 1 || place > day_places) throw Fault(fault_number::subscript_out_of_range);
    return static_cast<std::size_t>(place);
}

bool is_planned_at(i16 slot, i16 day, i16 place) {
    if (place < 1 || place > day_places) return false;
    return row_or_none(days, day).planned_meal[static_cast<std::size_t>(place)] == slot;
}

std::vector<PlannedPlace> places_that_hold(i16 slot) {
    std::vector<PlannedPlace> found;
    for (i16 day = 1; day <= day_capacity; ++day) {
        if (days[day].in_use != 1) continue;
        for (i16 place = 1; place <= day_places; ++place) {
            if (days[day].planned_meal[index_of(place)] == slot) found.push_back({day, place});
        }
    }
    return found;
}

// Kept: the serving size divides twice, and households' stock has always been counted so.
StockReturns stock_returns(i16 slot, i16 day, i16 place) {
    const f64 servings = day_quantities[day].meal_servings[index_of(place)];
    StockReturns returns;
    if (!is_live_row(meals, slot)) return returns;
    const MealRecord& meal = meals[slot];
    const f64 size = meal_serving_size[slot];
    for (std::size_t at = 1; at <= ingredient_places; ++at) {
        const i16 item = meal.ingredient_item[at];
        if (!is_live_row(items, item)) continue;
        const ItemRecord& record = items[item];
        const f64 share = divide(record.serving_size, record.servings_per_qty_unit);
        const f64 quantity = divide(divide(servings, size), size) * meal.ingredient_qty[at] * share;
        returns.push_back({item, quantity});
    }
    return returns;
}

void give_back(const StockReturns& returns) {
    for (const auto& [item, quantity] : returns) {
        ensure_lot_record(item);
        add_to_lots(item, quantity);
    }
}

// All figures first: a Fault comes before anything has changed.
void take_out_of_plans(i16 slot, Answer adjust_stock) {
    const std::vector<PlannedPlace> planned = places_that_hold(slot);
    std::vector<StockReturns> returns(planned.size());
    if (adjust_stock == Answer::yes) {
        for (std::size_t n = 0; n < planned.size(); ++n) {
            returns[n] = stock_returns(slot, planned[n].day, planned[n].place);
        }
    }
    for (std::size_t n = 0; n < planned.size(); ++n) {
        give_back(returns[n]);
        days[planned[n].day].planned_meal[index_of(planned[n].place)] = 0;
    }
}

}  // namespace

bool remove_meal_from_plans(i16 slot, Answer adjust_stock) noexcept {
    if (slot < 1) return true;  // 0 stands for "none" in every place that is free
    return trap_in_module([=] { take_out_of_plans(slot, adjust_stock); });
}

bool restore_day_meal_stock(i16 slot, i16 day, i16 place) noexcept {
    const RowRef asked(Subject::recipes, slot);
    const RowRef planned(Subject::plans, day);
    if (asked.now() == 0) return true;
    const Answer answer = boxes().message(
        "You have chosen to edit an audited day.  Do you want the inventory for the items used by "
        "this Meal to be adjusted as a result?",
        Buttons::yes_no, "Inventory Adjustment", DefaultButton::no);
    const bool gone = asked.now() == 0 || RowRef(Subject::plans, day) != planned ||
                      !is_planned_at(slot, day, place);
    return answer != Answer::yes || gone || restore_day_meal_stock_quietly(slot, day, place);
}

bool restore_day_meal_stock_quietly(i16 slot, i16 day, i16 place) noexcept {
    return trap_in_module([=] { give_back(stock_returns(slot, day, place)); });
}

}  // namespace tavernook
