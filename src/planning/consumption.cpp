#include "planning/consumption.h"

#include <string>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "inventory/lots.h"
#include "inventory/shown_quantity.h"
#include "planning/day_places.h"

namespace tavernook {

namespace {

// A cleared slot, whose fields are all 0, stands for a day that is long past.
Date date_of(const DayRecord& day) {
    std::string text =
        std::to_string(day.month) + "/" + std::to_string(day.day) + "/" + std::to_string(day.year);
    if (text == "0/0/0") text = "1/1/1980";
    return date_from_text(text);
}

// An item without servings takes no part in plans.
bool takes_part(i16 item) {
    return item != 0 && items[item].servings_per_qty_unit != 0;
}

void consume(i16 item, f64 amount) {
    ensure_lot_record(item);
    remove_from_lots(item, amount);
    items[item].quantity = lot_total(item);
    refresh_shown_quantity(item);
}

void consume_items(const DayRecord& day, const DayQuantityRecord& quantities) {
    for (std::size_t place = 1; place <= day_places; ++place) {
        const i16 item = day.planned_item[place];
        if (!takes_part(item)) continue;
        const f64 in_unit = items[item].serving_size * items[item].servings_per_qty_unit;
        consume(item, divide(quantities.item_quantity[place], in_unit));
    }
}

// Kept: an ingredient without a quantity takes one whole unit, and households plan with that.
void consume_meal(i16 slot, f64 servings) {
    const MealRecord& meal = meals[slot];
    const f64 size = meal_serving_size[slot];
    for (std::size_t place = 1; place <= ingredient_places; ++place) {
        const i16 item = meal.ingredient_item[place];
        if (!takes_part(item)) continue;
        const f64 per_batch = meal.ingredient_qty[place] * size / items[item].servings_per_qty_unit;
        consume(item, (per_batch == 0 ? 1.0 : per_batch) * servings);
    }
}

}  // namespace

bool is_due(const DayRecord& day, Date limit) noexcept {
    return day.in_use == 1 && day.audited == 0 && date_of(day) < limit;
}

void consume_day(i16 slot) {
    DayRecord& day = day_at(slot);
    const DayQuantityRecord& quantities = day_quantities[slot];
    project_modified = i16_true;
    consume_items(day, quantities);
    for (std::size_t place = 1; place <= day_places; ++place) {
        const i16 meal = day.planned_meal[place];
        if (meal != 0) consume_meal(meal, quantities.meal_servings[place]);
    }
    day.audited = i16_true;
}

}  // namespace tavernook
