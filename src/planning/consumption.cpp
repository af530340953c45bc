#include "planning/consumption.h"

#include <optional>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "inventory/lots.h"
#include "planning/day_places.h"

namespace tavernook {

namespace {

const Date long_past = date_from_civil(1980, 1, 1);

// Nothing for a date that no calendar has.
std::optional<Date> date_of(const DayRecord& day) {
    if (day.month == 0 && day.day == 0 && day.year == 0) return long_past;
    const bool in_range = day.month >= 1 && day.month <= 12 && day.day >= 1 && day.day <= 31 &&
                          day.year >= 100 && day.year <= 9999;
    if (!in_range) return std::nullopt;
    const Date date = date_from_civil(day.year, day.month, day.day);
    const bool is_there = civil_from_date(date) == CivilDate{day.year, day.month, day.day};
    return is_there ? std::optional<Date>(date) : std::nullopt;
}

// An item without servings takes no part in plans.
bool takes_part(i16 item) {
    return is_live_row(items, item) && items[item].servings_per_qty_unit != 0;
}

void consume(i16 item, f64 amount) {
    ensure_lot_record(item);
    remove_from_lots(item, amount);
    items[item].quantity = lot_total(item);
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
    if (!is_live_row(meals, slot)) return;
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
    if (day.in_use != 1 || day.audited != 0) return false;
    const std::optional<Date> date = date_of(day);
    return date && *date < limit;
}

void consume_day(i16 slot) {
    DayRecord& day = day_at(slot);
    const DayQuantityRecord& quantities = day_quantities[slot];
    project_modified = i16_true;
    consume_items(day, quantities);
    for (std::size_t place = 1; place <= day_places; ++place) {
        consume_meal(day.planned_meal[place], quantities.meal_servings[place]);
    }
    day.audited = i16_true;
}

}  // namespace tavernook
