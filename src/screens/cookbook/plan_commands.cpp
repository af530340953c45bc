#include "screens/cookbook/plan_commands.h"

#include <algorithm>

#include "basics/number_text.h"
#include "basics/typed_numbers.h"
#include "core/project_data.h"
#include "planning/day_plans.h"
#include "platform/platform.h"
#include "screens/parts/plan_names.h"
#include "screens/parts/qt_dates.h"
#include "screens/parts/screen.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

bool is_audited(const QDate& date) {
    const std::vector<i16> held = live_days_of(civil_date_of(date));
    return std::any_of(held.begin(), held.end(), [](i16 slot) { return days[slot].audited != 0; });
}

bool still_waits(const QDate& date) {
    const bool is_shown = meal_plan() != nullptr && date_of_the_planner() == date;
    if (is_shown && !is_audited(date)) return true;
    const QString why =
        is_shown ? tr("%1 is audited by now. Press \"Edit Audited Day\" in the planner first.")
                 : tr("The planner does not show %1 any more. Press \"Add Recipe\" there again.");
    say(why.arg(spoken_date(date)));
    return false;
}

f64 ask_servings(i16 recipe) {
    const std::string unit = typed_text(recipe_unit(recipe));
    const auto typed =
        boxes().input("Meal Quantity to Add. 1 Servings = 1 " + unit, "Meal Quantity", "1");
    return typed ? leading_number(with_decimal_point(*typed)) : 0;
}

}  // namespace

QDate date_of_the_planner() {
    return {selected_year, selected_month, selected_day};
}

bool put_on_plan(RowRef recipe, std::optional<QDate> waiting) {
    if (recipe.now() == 0 || (waiting && !still_waits(*waiting))) return false;
    const f64 quantity = ask_servings(recipe.now());
    if (quantity == 0) return false;
    if (recipe.now() == 0) {
        say(tr("The recipe is not there any more."));
        return false;
    }
    if (waiting && !still_waits(*waiting)) return false;
    load_screen(QStringLiteral("MealPlan"));
    ports::MealPlan* planner = meal_plan();
    return planner != nullptr && planner->add_meal(recipe.now(), quantity);
}

}  // namespace tavernook
