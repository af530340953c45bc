// The plan of a day on the planner: its list, its totals and what is done with its rows.
#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>

#include "screens/parts/screen_switch.h"
#include "screens/planner/meal_plan_fixture.h"

namespace tavernook {
namespace {

constexpr const char* item_question =
    "You have chosen to edit an audited day.  Do you want the inventory for this item to be "
    "adjusted as a result?";
constexpr const char* days_full =
    "No more Days left.  It is recommended that you delete some of the older days to allow for "
    "more days.";

class PlannerDay : public MealPlanTest {
  protected:
    void plan_today(i16 audited = 0) {
        put_day(1, 5, 15, audited);
        put_recipe_on(1, 4, soup, 2);
        put_item_on(1, 2, milk, 500);
    }
    std::string key(int row) {
        return day_list().model()->index(row, 0).data(Qt::UserRole).toString().toStdString();
    }
    Texts totals() { return {label("calories_total"), label("fat_total"), label("cost_total")}; }
    bool is_grey() { return day_list().viewport()->backgroundRole() == QPalette::Window; }
    bool enabled(const char* name) { return part<QAction>(name).isEnabled(); }
    ExpectedBox& expect_quantity_box(const char* present, std::optional<std::string> answer) {
        return platform.boxes.expect_input("Type new Quantity", "Modify Quantity", present,
                                           std::move(answer));
    }
    static void fill_all_days() {
        for (i16 slot = 1; slot <= day_capacity; ++slot) {
            const CivilDate date = civil_from_date(date_from_civil(2000, 1, 1) + slot);
            put_day(slot, to_i16(date.month), to_i16(date.day));
            days[slot].year = to_i16(date.year);
        }
    }
};

TEST_F(PlannerDay, ListsRecipesThenItemsWithTheirKeysAndUnits) {
    plan_today();
    put_recipe_on(1, 1, pie, 0.5);
    open_planner();
    EXPECT_EQ(plan_shown(), (Texts{"Pie 0.5 Cup(s)", "Soup 2 Cup(s)", "Milk 500 gram(s)"}));
    EXPECT_EQ(key(0), "m9:1");
    EXPECT_EQ(key(1), "m7:4");
    EXPECT_EQ(key(2), "i3:2");
    const QAbstractItemModel& model = *day_list().model();
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), "Quantity");
    EXPECT_EQ(model.index(0, 1).data(Qt::TextAlignmentRole).toInt(),
              int(Qt::AlignRight | Qt::AlignVCenter));
    EXPECT_EQ(label("day_state"), "Planned");
}

TEST_F(PlannerDay, TotalsCountItemsAndRecipes) {
    plan_today();
    open_planner();
    // Milk: 500 x 1.5, 500 x 0.25, 500 x 2 / (4 x 250). Soup: 2 x 150, 2 x 8, 2 x 2/4, each for
    // 4, planned for 2.
    EXPECT_EQ(totals(), (Texts{"900.0", "133.0g", "$1.50"}));
    click_cell(may_20);
    EXPECT_EQ(totals(), (Texts{"0", "0", "$0.00"}));
}

TEST_F(PlannerDay, AServingSizeOfZeroBecomesOneInTheRecord) {
    plan_today();
    meal_serving_size[soup] = 0;
    items[milk].servings_per_qty_unit = 0;
    open_planner();
    EXPECT_EQ(meal_serving_size[soup], 1);
    EXPECT_EQ(items[milk].servings_per_qty_unit, 1);
}

TEST_F(PlannerDay, AnEmptyDateIsGreyAndSaysWhatToDo) {
    plan_today();
    open_planner();
    EXPECT_FALSE(is_grey());
    click_cell(may_20);
    EXPECT_TRUE(is_grey());
    EXPECT_EQ(label("lv2_hint"),
              "Drop a recipe or an item here, scan a code, or press \"Add Recipe\".");
    EXPECT_TRUE(part<QLabel>("lv2_hint").isVisible());
    EXPECT_EQ(label("day_state"), "Nothing planned yet");
    EXPECT_TRUE(enabled("Toolbar2_1") && enabled("Toolbar2_2") && enabled("Toolbar2_3"));
    EXPECT_FALSE(enabled("Toolbar2_4"));
    planner().add_meal(pie, 1);
    EXPECT_FALSE(is_grey());
    EXPECT_EQ(told_date(), "5/20/2024");
}

TEST_F(PlannerDay, AnAuditedDayCannotBeChangedBeforeItsEditing) {
    plan_today(-1);
    open_planner();
    EXPECT_TRUE(is_grey());
    EXPECT_EQ(label("day_state"), "Audited: taken out of the stock");
    for (const char* name : {"Toolbar2_1", "Toolbar2_2", "Toolbar2_3", "mealplan_mod_qty"}) {
        EXPECT_FALSE(enabled(name)) << name;
    }
    planner().add_meal(pie, 1);
    planner().Add_Item(flour, 1);
    EXPECT_EQ(plan_shown(), (Texts{"Soup 2 Cup(s)", "Milk 500 gram(s)"}));
    EXPECT_EQ(panel(1), "Wednesday, May 15 is audited. Press \"Edit Audited Day\" first.");
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(PlannerDay, EditingAnAuditedDaySettlesAndOpensIt) {
    plan_today(-1);
    days[1].planned_meal[4] = 0;
    open_planner();
    EXPECT_TRUE(enabled("Toolbar2_4"));
    platform.boxes.expect_message(item_question, Answer::yes).title("Inventory Adjustment");
    trigger("Toolbar2_4");
    EXPECT_EQ(days[1].audited, 0);
    EXPECT_EQ(lot_total(milk), 6.5);
    EXPECT_EQ(plan_shown(), Texts{"Milk 500 gram(s)"});
    EXPECT_FALSE(is_grey());
    EXPECT_TRUE(enabled("Toolbar2_1") && enabled("Toolbar2_2") && enabled("Toolbar2_3"));
    EXPECT_FALSE(enabled("Toolbar2_4"));
    EXPECT_FALSE(grid().cell(may_15).audited);
}

TEST_F(PlannerDay, AnAuditByTheClockClosesTheDayShown) {
    plan_today();
    open_planner();
    EXPECT_TRUE(enabled("Toolbar2_1"));
    audit_hour = 12;  // it is 12:00
    audit_minute = 0;
    EXPECT_TRUE(tick("timer_1"));
    EXPECT_EQ(days[1].audited, -1);
    EXPECT_FALSE(enabled("Toolbar2_1"));
    EXPECT_TRUE(enabled("Toolbar2_4"));
    EXPECT_TRUE(is_grey());
    EXPECT_EQ(label("day_state"), "Audited: taken out of the stock");
}

TEST_F(PlannerDay, AddingTheSameTwiceAddsTheQuantities) {
    open_planner();
    planner().Add_Item(milk, 1);
    planner().Add_Item(milk, 0.5);
    planner().add_meal(soup, 1);
    planner().add_meal(soup, 2);
    EXPECT_EQ(plan_shown(), (Texts{"Soup 3 Cup(s)", "Milk 375 gram(s)"}));
}

TEST_F(PlannerDay, RemovingTakesTheSelectedRowAndMarksTheNext) {
    plan_today();
    put_recipe_on(1, 5, pie, 1);
    open_planner();
    select_row(0);
    trigger("Toolbar2_3");
    EXPECT_EQ(plan_shown(), (Texts{"Pie 1 Cup(s)", "Milk 500 gram(s)"}));
    EXPECT_EQ(day_list().currentIndex().row(), 0);
    EXPECT_EQ(panel(1), "Soup is taken off Wednesday, May 15.");
    select_row(1);
    press("Delete");
    EXPECT_EQ(plan_shown(), Texts{"Pie 1 Cup(s)"});
    EXPECT_EQ(days[1].in_use, 1);
    EXPECT_EQ(grid().cell(may_15).names, QStringList{"Pie"});
}

TEST_F(PlannerDay, RemovingTheLastRowDeletesTheDay) {
    plan_today();
    days[1].planned_meal[4] = 0;
    open_planner();
    select_row(0);
    press("Delete");
    EXPECT_EQ(days[1], DayRecord{});
    EXPECT_FALSE(grid().cell(may_15).planned);
    EXPECT_TRUE(is_grey());
    EXPECT_EQ(totals(), (Texts{"0", "0", "$0.00"}));
}

TEST_F(PlannerDay, RemovingWithoutARowSaysSo) {
    plan_today();
    open_planner();
    trigger("Toolbar2_3");
    EXPECT_EQ(plan_shown().size(), 2u);
    EXPECT_EQ(panel(1), "Choose a row of the day first.");
}

TEST_F(PlannerDay, TheQuantityOfARowIsChanged) {
    plan_today();
    open_planner();
    select_row(0);
    expect_quantity_box("2", "4");
    choose_in_popup(day_list(), "mealplanpop", "mealplan_mod_qty");
    EXPECT_EQ(day_quantities[1].meal_servings[4], 4);
    EXPECT_EQ(plain(part<QAction>("mealplan_mod_qty").text()), "Modify Quantity");
    select_row(1);
    expect_quantity_box("500", "12,5");
    press("F2");
    EXPECT_EQ(day_quantities[1].item_quantity[2], 12.5);
    EXPECT_EQ(plan_shown(), (Texts{"Soup 4 Cup(s)", "Milk 12.5 gram(s)"}));
    EXPECT_EQ(day_list().currentIndex().row(), 1);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(PlannerDay, ACancelledOrUnreadableQuantityChangesNothing) {
    plan_today();
    open_planner();
    select_row(0);
    expect_quantity_box("2", std::nullopt);
    press("F2");
    expect_quantity_box("2", "plenty");
    press("F2");
    EXPECT_EQ(day_quantities[1].meal_servings[4], 2);
    EXPECT_EQ(panel(1), "\"plenty\" is not a number; the quantity stays.");
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(PlannerDay, AQuantityBelowZeroIsRefused) {
    plan_today();
    open_planner();
    for (const int row : {0, 1}) {
        select_row(row);
        expect_quantity_box(row == 0 ? "2" : "500", "-0,5");
        press("F2");
        EXPECT_EQ(panel(1), "-0,5 is less than 0; the quantity stays.");
    }
    EXPECT_EQ(plan_shown(), (Texts{"Soup 2 Cup(s)", "Milk 500 gram(s)"}));
    EXPECT_EQ(project_modified, i16_false);
    select_row(0);
    expect_quantity_box("2", "0");
    press("F2");
    EXPECT_EQ(day_quantities[1].meal_servings[4], 0);
}

TEST_F(PlannerDay, TheQuantityOfAnAuditedDayStays) {
    plan_today(-1);
    open_planner();
    select_row(0);
    press("F2");
    press("Delete");
    EXPECT_EQ(plan_shown(), (Texts{"Soup 2 Cup(s)", "Milk 500 gram(s)"}));
}

TEST_F(PlannerDay, ADoubleClickOrEnterOpensTheRecipeOrTheItem) {
    plan_today(-1);
    open_planner();
    double_click_row(day_list(), 0);
    EXPECT_EQ(calls.entries, Texts{"Mealbuilder set_meal 7"});
    show_screen("MealPlan");
    settle();
    select_row(1);
    press("Return");
    ASSERT_TRUE(is_open("FoodInventory"));
    EXPECT_EQ(food_inventory()->getindex(), milk);
}

TEST_F(PlannerDay, TheRecipeManagerIsOpenedForThePlanner) {
    open_planner();
    click("Toolbar2_1_button");
    EXPECT_TRUE(is_open("Mealbuilder"));
    EXPECT_EQ(calls.entries, Texts{"Mealbuilder set_return 1"});
}

TEST_F(PlannerDay, TheInventoryHandsItsItemToTheDay) {
    open_planner();
    click_cell(may_20);
    click("Toolbar2_2_button");
    ASSERT_NE(food_inventory(), nullptr);
    food_inventory()->view_item(milk, i16_true);
    QWidget* inventory = window.registry().loaded("FoodInventory");
    EXPECT_EQ(inventory->findChild<QPushButton*>("add_item")->text(), "Add Item to Day");
    inventory->findChild<QLineEdit*>("quantity_to_add")->setText("3");
    inventory->findChild<QPushButton*>("add_item")->click();
    settle();
    EXPECT_FALSE(inventory->isVisible());
    EXPECT_EQ(plan_shown(), Texts{"Milk 750 gram(s)"});
    EXPECT_EQ(panel(1), "Milk is added to Monday, May 20: 3 x 250 gram(s) = 750 gram(s).");
    EXPECT_TRUE(grid().cell(may_20).planned);
}

TEST_F(PlannerDay, AFullTableWarnsOnceForEachOpeningOfADate) {
    fill_all_days();
    platform.boxes.expect_message(days_full);
    open_planner();
    platform.boxes.expect_message(days_full);
    click_cell(may_20);
    click_cell(may_20);
    press("Delete");
    planner().populate_day();
    EXPECT_EQ(plan_shown(), Texts{});
    EXPECT_EQ(current_day, day_capacity);
}

TEST_F(PlannerDay, TheLastSlotIsTakenOverAsItIs) {
    fill_all_days();
    put_recipe_on(day_capacity, 1, pie, 1);
    platform.boxes.expect_message(days_full);
    open_planner();
    EXPECT_EQ(plan_shown(), Texts{});
    planner().add_meal(soup, 2);
    EXPECT_EQ(plan_shown(), (Texts{"Pie 1 Cup(s)", "Soup 2 Cup(s)"}));
    EXPECT_EQ(days[day_capacity].year, 2024);
}

// Every way onto a date that has no slot of its own any more: the box, then the plan.
class PlannerOfAFullTable : public PlannerDay {
  protected:
    void SetUp() override {
        PlannerDay::SetUp();
        fill_all_days();
        days[200].in_use = 0;  // the slot that the planner opens
        expiration_warning_days = 10;
        lots[milk].expiration_date[0] = 45427 - 9;
        open_planner();
        put_day(200, 5, 20);  // another date takes it
        put_recipe_on(200, 1, pie, 1);
        changed_elsewhere();
    }
    ExpectedBox& expect_box() {
        return platform.boxes.expect_message(days_full).during([] {
            EXPECT_EQ(days[day_capacity].planned_meal[1], 0);
            EXPECT_EQ(days[day_capacity].planned_item[1], 0);
            EXPECT_EQ(project_modified, i16_false);
        });
    }
    static void expect_planned() {
        EXPECT_EQ(days[day_capacity].year, 2024);
        EXPECT_EQ(days[day_capacity].day, 15);
        EXPECT_EQ(days[200].day, 20);
    }
};

TEST_F(PlannerOfAFullTable, AScanIsToldFirst) {
    expect_box();
    scan("tvk7");
    expect_planned();
    scan("tvk7");
    EXPECT_EQ(plan_shown(), Texts{"Soup 2 Cup(s)"});
}

TEST_F(PlannerOfAFullTable, ADropIsToldFirst) {
    expect_box();
    EXPECT_TRUE(drop_on_list("i3"));
    expect_planned();
}

TEST_F(PlannerOfAFullTable, ADropOnAnotherDateIsToldByItsOpening) {
    platform.boxes.expect_message(days_full);
    EXPECT_TRUE(drop_on_cell(june_8, "i3"));
    EXPECT_EQ(days[day_capacity].month, 6);
}

TEST_F(PlannerOfAFullTable, ARecommendationIsToldFirst) {
    platform.boxes.expect_input("Enter quantity to add", "Add", "", "2");
    expect_box();
    double_click_row(recommended(), 0);
    expect_planned();
}

TEST_F(PlannerOfAFullTable, APasteIsToldFirst) {
    click_cell(may_20);
    press("Ctrl+C");
    platform.boxes.expect_message(days_full);  // opening the free date
    click_cell(may_15);
    platform.boxes.expect_message(days_full);
    press("Ctrl+V");
    expect_planned();
}

TEST_F(PlannerOfAFullTable, WhatOtherScreensHandOverIsToldFirst) {
    expect_box();
    meal_plan()->Add_Item(milk, 1);
    expect_planned();
    meal_plan()->add_meal(pie, 1);
    EXPECT_EQ(plan_shown(), (Texts{"Pie 1 Cup(s)", "Milk 250 gram(s)"}));
}

TEST_F(PlannerDay, AnotherDatesAuditedDayIsNotTakenOver) {
    fill_all_days();
    days[day_capacity].audited = -1;
    platform.boxes.expect_message(days_full);
    open_planner();
    planner().add_meal(soup, 2);
    EXPECT_EQ(days[day_capacity].planned_meal[1], 0);
    EXPECT_FALSE(enabled("Toolbar2_4"));
    EXPECT_EQ(panel(1), "There is no room for another day. Delete some of the older days first.");
}

TEST_F(PlannerDay, SelectionAndScrollStayThroughARefresh) {
    put_day(1, 5, 15);
    for (std::size_t place = 1; place <= day_places; ++place) {
        put_recipe_on(1, place, place % 2 == 0 ? soup : pie, static_cast<f64>(place));
        put_item_on(1, place, milk, 1);
    }
    open_planner();
    select_row(40);
    const int scrolled = day_list().verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    planner().populate_days_Meals_Items();
    EXPECT_EQ(planner().selected_day_key(), "i3:11");
    EXPECT_EQ(day_list().verticalScrollBar()->value(), scrolled);
    EXPECT_EQ(day_list().verticalScrollBar()->objectName(), "FlatScrollBar1");
}

TEST_F(PlannerDay, RowsAreSortedByAClickAndCopiedByKeys) {
    plan_today();
    put_recipe_on(1, 5, pie, 10);
    open_planner();
    day_list().header()->setSortIndicator(1, Qt::AscendingOrder);
    EXPECT_EQ(column(day_list(), 1), (Texts{"2", "10", "500"}));
    select_row(1);
    EXPECT_EQ(planner().selected_day_key(), "m9:5");
    press("Ctrl+C");
    EXPECT_EQ(QApplication::clipboard()->text(), "Pie\t10\tCup(s)");
    EXPECT_FALSE(day_clipboard.filled);
}

TEST_F(PlannerDay, ComingBackShowsWhatWasChangedElsewhere) {
    plan_today();
    open_planner();
    show_screen("wam");
    settle();
    meals[soup].name = "Broth";
    day_quantities[1].item_quantity[2] = 7;
    changed_elsewhere();
    show_screen("MealPlan");
    settle();
    EXPECT_EQ(plan_shown(), (Texts{"Broth 2 Cup(s)", "Milk 7 gram(s)"}));
    EXPECT_EQ(grid().cell(may_15).names, (QStringList{"Broth", "Milk"}));
}

TEST_F(PlannerDay, ComingBackCountsTheTotalsAnew) {
    put_day(1, 5, 15);
    put_item_on(1, 1, milk, 500);  // half a litre at 2 a litre
    open_planner();
    EXPECT_EQ(totals()[2], "$1.00");
    show_screen("wam");
    settle();
    items[milk].cost = 3;
    currency_symbol = 163;
    changed_elsewhere();
    show_screen("MealPlan");
    settle();
    EXPECT_EQ(totals()[2],
              "\xC2\xA3"
              "1.50");
}

TEST_F(PlannerDay, ComingBackChangesNoRecordAndAsksNothing) {
    put_day(1, 5, 15);
    put_item_on(1, 1, milk, 500);
    open_planner();
    show_screen("wam");
    settle();
    items[milk].servings_per_qty_unit = 0;
    items[milk].serving_size = 0;
    changed_elsewhere();
    show_screen("MealPlan");
    settle();
    EXPECT_EQ(items[milk].servings_per_qty_unit, 0);
    EXPECT_EQ(totals()[2], "$1.00");
}

TEST_F(PlannerDay, CountedAsNotYetDrawnItIsDrawnAtItsNextShow) {
    open_planner();
    click_cell(may_20);
    put_day(9, 5, 20);
    put_recipe_on(9, 1, soup, 2);
    window.registry().hide_all();
    meal_plan()->set_firstcall();
    show_screen("MealPlan");
    settle();
    EXPECT_EQ(told_date(), "5/20/2024");
    EXPECT_EQ(plan_shown(), Texts{"Soup 2 Cup(s)"});
    EXPECT_TRUE(grid().cell(may_20).planned);
}

TEST_F(PlannerDay, AnItemThatCannotBeCountedIsTold) {
    plan_today();
    open_planner();
    items[milk].serving_size = 0;
    platform.boxes.expect_message("there has been an error");
    planner().populate_days_Meals_Items();
    EXPECT_EQ(plan_shown().size(), 2u);
    EXPECT_EQ(totals()[2], "$0.00");
}

}  // namespace
}  // namespace tavernook
