#include "planning/day_settlement.h"

#include <optional>

#include "core/changes.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/trap.h"
#include "inventory/lots.h"
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

// The item may go, and the place may get another one, while the question stands open.
void restore_day_item_stock(i16 item, i16 day, i16 place) {
    const RowRef asked(Subject::items, item);
    const RowRef planned(Subject::plans, day);
    const Answer answer = boxes().message(
        "You have chosen to edit an audited day.  Do you want the inventory for this item to be "
        "adjusted as a result?",
        Buttons::yes_no, "Inventory Adjustment", DefaultButton::no);
    const bool same = asked.now() != 0 && planned.now() != 0 &&
                      days[day].planned_item[place_index(place)] == item;
    if (answer != Answer::yes || !same) return;
    const f64 quantity = stock_of_place(item, day, place);
    ensure_lot_record(item);
    add_to_lots(item, quantity);
}

// The first Fault; the other places are settled all the same.
std::optional<Fault> settle_items(const RowRef& day) {
    std::optional<Fault> first;
    for (i16 place = 1; place <= day_places; ++place) {
        const i16 item = row_or_none(days, day.now()).planned_item[place_index(place)];
        if (!is_live_row(items, item)) continue;
        trap([&] { restore_day_item_stock(item, day.now(), place); },
             [&first](const Fault& fault) {
                 if (!first) first = fault;
             });
    }
    return first;
}

bool settle_recipes(const RowRef& day) {
    bool settled = true;
    for (i16 place = 1; place <= day_places; ++place) {
        const i16 recipe = row_or_none(days, day.now()).planned_meal[place_index(place)];
        if (!restore_day_meal_stock(recipe, day.now(), place)) settled = false;
    }
    return settled;
}

}  // namespace

bool release_audited_day(i16 day) noexcept {
    bool recipes_settled = true;
    const bool items_settled = trap_in_screen([&] {
        day_at(day);
        const RowRef settled(Subject::plans, day);
        const std::optional<Fault> failure = settle_items(settled);
        recipes_settled = settle_recipes(settled);
        if (!day_is_empty(settled.now())) project_modified = i16_true;
        if (failure) throw *failure;
    });
    return items_settled && recipes_settled;
}

void edit_audited_day() noexcept {
    if (!trap_in_screen([] { day_at(current_day).audited = 0; })) return;
    project_modified = i16_true;
    ports::MealPlan* screen = meal_plan();
    if (screen != nullptr) screen->set_day_editable(true);
    release_audited_day(current_day);
    screen = meal_plan();
    if (screen == nullptr) return;
    screen->CalendarUpdate(100);
    screen->populate_days_Meals_Items();
}

}  // namespace tavernook
