#include "planning/day_settlement.h"

#include <optional>

#include "core/program_state.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/lots.h"
#include "inventory/shown_quantity.h"
#include "planning/day_places.h"
#include "planning/planner_state.h"
#include "platform/platform.h"
#include "recipes/meal_plans.h"

namespace tavernook {

namespace {

// In the item's quantity units.
f64 stock_of_place(i16 item, i16 day, i16 place) {
    const ItemRecord& record = items[item];
    return divide(day_quantities[day].item_quantity[place_index(place)],
                  record.servings_per_qty_unit * record.serving_size);
}

void restore_day_item_stock(i16 item, i16 day, i16 place) {
    const Answer answer = boxes().message(
        "You have chosen to edit an audited day.  Do you want the inventory for this item to be "
        "adjusted as a result?",
        Buttons::yes_no, "Inventory Adjustment", DefaultButton::no);
    if (answer != Answer::yes) return;
    const f64 quantity = stock_of_place(item, day, place);
    ensure_lot_record(item);
    add_to_lots(item, quantity);
    refresh_shown_quantity(item);
}

}  // namespace

void release_audited_day(i16 day) {
    const DayRecord& record = day_at(day);
    std::optional<Fault> first_fault;
    const auto keep_fault = [&first_fault](const Fault& fault) {
        if (!first_fault) first_fault = fault;
    };
    for (i16 place = 1; place <= day_places; ++place) {
        const i16 item = record.planned_item[place_index(place)];
        if (item != 0) trap([&] { restore_day_item_stock(item, day, place); }, keep_fault);
    }
    for (i16 place = 1; place <= day_places; ++place) {
        const i16 recipe = record.planned_meal[place_index(place)];
        if (recipe != 0) trap([&] { restore_day_meal_stock(recipe, day, place); }, keep_fault);
    }
    if (!day_is_empty(day)) project_modified = i16_true;
    if (first_fault) throw *first_fault;
}

void edit_audited_day() {
    day_at(current_day).audited = 0;
    project_modified = i16_true;
    ports::MealPlan* screen = meal_plan();
    if (screen != nullptr) screen->set_day_editable(true);
    trap_in_screen([] { release_audited_day(current_day); });
    screen = meal_plan();
    if (screen == nullptr) return;
    screen->CalendarUpdate(100);
    screen->populate_days_Meals_Items();
}

}  // namespace tavernook
