#include "screens/planner/day_commands.h"

#include <optional>

#include "barcodes/scanned_code.h"
#include "basics/number_text.h"
#include "basics/text.h"
#include "basics/typed_numbers.h"
#include "core/changes.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "planning/day_clipboard.h"
#include "planning/day_plans.h"
#include "planning/recommendations.h"
#include "platform/platform.h"
#include "screens/parts/drag_text.h"
#include "screens/parts/plan_names.h"
#include "screens/parts/screen.h"
#include "screens/parts/shown_text.h"
#include "screens/planner/selected_day.h"

namespace tavernook {

namespace {

QString shown_date() {
    return spoken_date(selected_date());
}

// How much of it the day holds now.
f64 planned_quantity(Planned what, i16 number) {
    const bool is_recipe = what == Planned::recipe;
    const i16 place =
        is_recipe ? check_for_existing_meal_index(number) : find_day_item(number, current_day);
    if (place == 0) return 0;
    const DayQuantityRecord& quantities = day_quantities[current_day];
    const auto at = static_cast<std::size_t>(place);
    return is_recipe ? quantities.meal_servings[at] : quantities.item_quantity[at];
}

void say_planned(Planned what, i16 number) {
    const bool is_recipe = what == Planned::recipe;
    const QString name = is_recipe ? recipe_name(number) : item_name(number);
    const QString unit = is_recipe ? recipe_unit(number) : serving_unit(number);
    const QString quantity = shown_text(number_text(planned_quantity(what, number)));
    const QString amount = unit.isEmpty() ? quantity : quantity + QLatin1Char(' ') + unit;
    say(tr("%1 is planned on %2: %3 now.").arg(name, shown_date(), amount));
}

// The day and the record of a row, which a box may outlive.
struct RowOfDay {
    explicit RowOfDay(std::string_view key)
        : day(Subject::plans, current_day),
          recipe(Subject::recipes, get_meal_index(key)),
          item(Subject::items, get_item_index(key)) {}
    bool operator==(const RowOfDay&) const = default;

    RowRef day;
    RowRef recipe;
    RowRef item;
};

}  // namespace

void say_gone(Planned what) {
    say(what == Planned::recipe ? tr("This recipe is not there any more.")
                                : tr("This item is not there any more."));
}

// --- may it be planned -------------------------------------------------------------------------

bool may_plan() {
    if (!day_is_audited()) return true;
    say(day_is_held()
            ? tr("%1 is audited. Press \"Edit Audited Day\" first.").arg(shown_date())
            : tr("There is no room for another day. Delete some of the older days first."));
    return false;
}

bool may_drop(const QDate& date, const QString& text) {
    if (dragged(text).number == 0) return false;
    for (const i16 slot : live_days_of(civil_date_of(date))) {
        if (days[slot].audited == 0) continue;
        say(tr("%1 is audited. Nothing can be dropped on it.").arg(spoken_date(date)));
        return false;
    }
    return true;
}

// --- planning ----------------------------------------------------------------------------------

bool plan_recipe(i16 recipe, f64 quantity) {
    if (!may_plan()) return false;
    const bool is_planned = add_meal(recipe, quantity);
    is_planned ? say_planned(Planned::recipe, recipe) : say_gone(Planned::recipe);
    return is_planned;
}

void plan_item(i16 item, f64 servings) {
    if (!may_plan()) return;
    if (!Add_Item(item, servings)) return say_gone(Planned::item);
    say_planned(Planned::item, item);
}

void plan_code(const std::string& code) {
    if (!may_plan()) return;
    const ScannedCode meaning = meaning_of_code(code);
    if (!meaning.known()) {
        return say(tr("No recipe and no item has the barcode %1.").arg(shown_text(trim(code))));
    }
    if (meaning.recipe != 0) return void(plan_recipe(meaning.recipe, 1));
    plan_item(meaning.item, 1);
}

void plan_dragged(const QString& text) {
    const Dragged row = dragged(text);
    if (row.recipe() != 0) return void(plan_recipe(row.recipe(), 1));
    if (row.item() != 0) plan_item(row.item(), 1);
}

void plan_recommended(const std::string& key, bool zero_too) {
    const RowRef recipe(Subject::recipes, recommended_recipe(key));
    if (!may_plan()) return;
    if (recipe.now() == 0) return say_gone(Planned::recipe);
    const bool planned =
        zero_too ? add_recommended_meal(key) : add_recommended_meal_unless_zero(key);
    if (planned) return say_planned(Planned::recipe, recipe.now());
    if (recipe.now() == 0) return say_gone(Planned::recipe);
    may_plan();  // says when the day has been audited meanwhile
}

// --- a row -------------------------------------------------------------------------------------

void ask_quantity(const std::string& key, const QString& shown) {
    if (key.empty() || !may_plan()) return;
    const RowOfDay row(key);
    const std::optional<std::string> typed =
        boxes().input("Type new Quantity", "Modify Quantity", typed_text(shown));
    if (!typed || meal_plan() == nullptr || !may_plan()) return;
    const bool same = meal_plan()->selected_day_key() == key && RowOfDay(key) == row;
    if (!same) return say(tr("This row is not there any more."));
    const std::optional<f64> quantity = typed_number(*typed);
    if (quantity && *quantity >= 0) return modify_mealplan_qty(*quantity);
    const QString why = quantity ? tr("%1 is less than 0; the quantity stays.")
                                 : tr("\"%1\" is not a number; the quantity stays.");
    say(why.arg(shown_text(*typed)));
}

bool remove_row(const std::string& key) {
    if (!may_plan()) return false;
    if (key.empty()) {
        say(tr("Choose a row of the day first."));
        return false;
    }
    const i16 recipe = get_meal_index(key);
    const QString name = recipe != 0 ? recipe_name(recipe) : item_name(get_item_index(key));
    remove_day_entry(key);
    say(tr("%1 is taken off %2.").arg(name, shown_date()));
    return true;
}

// --- the whole day -----------------------------------------------------------------------------

void edit_day_shown() {
    if (day_is_audited() && day_is_held()) edit_audited_day();
}

void copy_day_shown() {
    copy_selected_day();
    say(day_is_held() ? tr("%1 is copied. Choose a date and paste it (Ctrl+V).").arg(shown_date())
                      : tr("Nothing is planned on %1.").arg(shown_date()));
}

void cut_day_shown() {
    cut_selected_day();
    say(day_is_held() ? tr("%1 moves to the date on which you paste it (Ctrl+V).").arg(shown_date())
                      : tr("Nothing is planned on %1.").arg(shown_date()));
}

void paste_here() {
    if (!day_clipboard.filled) return say(tr("Copy or cut a day first."));
    const QString day = shown_date();
    const bool done = paste_day(date_of(selected_date()));
    say(done ? tr("Pasted on %1.").arg(day) : tr("Nothing was pasted on %1.").arg(day));
}

void delete_here() {
    const QString day = shown_date();
    const bool held = day_is_held();
    delete_day_of(date_of(selected_date()));
    say(held ? tr("The plan of %1 is deleted.").arg(day)
             : tr("Nothing is planned on %1.").arg(day));
}

void delete_by_key() {
    if (day_is_held() && day_is_audited()) return delete_here();
    say(day_is_held() ? tr("The plan of %1 stays. To delete it, choose \"Delete\" in the menu of "
                           "the date (Shift+F10).")
                            .arg(shown_date())
                      : tr("Nothing is planned on %1.").arg(shown_date()));
}

}  // namespace tavernook
