// One day of a household through the real windows and files: planned, eaten, bought, saved, opened
// again, and taken back.
#include "screens/typical_day_fixture.h"
#include "support/table_snapshot.h"

namespace tavernook {
namespace {

constexpr const char* item_question =
    "You have chosen to edit an audited day.  Do you want the inventory for this item to be "
    "adjusted as a result?";
constexpr const char* recipe_question =
    "You have chosen to edit an audited day.  Do you want the inventory for the items used by this "
    "Meal to be adjusted as a result?";

class HouseholdDay : public TypicalDay {
  protected:
    void morning();
    void plan_the_day();
    void dinner_is_taken_from_the_stock();
    void the_list_tells_what_is_low();
    void recommended_for_tomorrow();
    void bought_and_put_in_stock();
    void saved_closed_and_opened();
    void the_day_is_given_back();
    void the_next_dinner();

    void expect_plan_and_totals();
    void expect_stock_after_shopping();

    Date shopping_time = 0;
};

// Refreshing with nothing planned takes nothing, but tells what has to be bought.
void HouseholdDay::morning() {
    open_recipes();
    choose_recipe(pancakes);
    recipe_text().setFocus();
    type("Whisk, rest, fry.");
    open_shopping_list();
    EXPECT_EQ(shopping_shown(), Texts{});
    open_planner();
    // Cream would be at its end 4 days before now: 11 May, 12:00 is before 11 May, 18:00.
    EXPECT_EQ(label("Label4"), "Tavernook has no meal recommendations at this time.");
    press("F5");
    open_shopping_list();
    // Cream: bought 9.5 days ago, 5 days of warning, keeps 10: bought in full, 2 at 2.00.
    // Butter: 0.25 is not above 0.5, so 1 - 0.25 at 8.00. With 7.5 %: 10.00 x 1.075.
    EXPECT_EQ(shopping_shown(), (Texts{"Cream 2.00 $4.00", "Butter .75 $6.00"}));
    EXPECT_EQ(label("total_label"), "$10.75");
    expect_lots(flour, {0.5, 2}, 0);
}

void HouseholdDay::plan_the_day() {
    open_planner();
    EXPECT_EQ(focused(), "Text1");
    scan("TVK7");

    // By the key from the calendar: the recipe manager, a recipe, a quarter of a serving.
    grid().setFocus();
    press("Return");
    ASSERT_TRUE(is_open("Mealbuilder"));
    open_recipes();
    choose_recipe(pudding);
    platform.boxes.expect_input("Meal Quantity to Add. 1 Servings = 1 Cup(s)", "Meal Quantity", "1",
                                "0.25");
    trigger("Toolbar1_5");
    press("Escape");

    // By dragging: one serving of milk, and flour twice.
    const auto dragged_milk = row_of_item(milk);
    const auto dragged_flour = row_of_item(flour);
    open_planner();
    EXPECT_TRUE(drop_on_cell(cell_of_may_15, *dragged_milk));
    EXPECT_TRUE(drop_on_cell(cell_of_may_15, *dragged_flour));
    EXPECT_TRUE(drop_on_cell(cell_of_may_15, *dragged_flour));
    expect_plan_and_totals();
    EXPECT_EQ(label("day_state"), "Planned");
    EXPECT_EQ(grid().cell_name(cell_of_may_15).toStdString(), "Wednesday, May 15, today, planned");
}

// Recipes first, each the sum of its ingredients / yield x servings:
//   Pancakes (yield 2, planned 1)        Pudding (yield 4, planned 0.25)
//   flour 4 x 440, 4 x 1, 4 x 1.20 / 8   cream 2 x 200, 2 x 20, 2 x 2.00 / 4
//   milk  2 x 150, 2 x 8, 2 x 1.60 / 4   eggs  2 x 70,  2 x 5,  2 x 0.30
//   eggs  3 x 70,  3 x 5, 3 x 0.30       milk  4 x 150, 4 x 8,  4 x 1.60 / 4
//   = 2270, 35, 2.30; / 2: 1135, 17.5,   = 1140, 82, 3.20; / 4 x 0.25: 71.25, 5.125, 0.20
//     1.15
// Then the items: 1 cup of milk: 150.5, 8.25, 1.60 / 4 = 0.40;
//   250 grams of flour: 875, 62.5, 250 x 1.20 / (8 x 125) = 0.30.
// Together 2231.75 calories, 93.375 g of fat and 2.05.
void HouseholdDay::expect_plan_and_totals() {
    EXPECT_EQ(plan_shown(), (Texts{"Pancakes 1 each", "Pudding 0.25 Cup(s)", "Milk 1 Cup(s)",
                                   "Flour 250 gram(s)"}));
    EXPECT_EQ(totals_shown(), (Texts{"2231.75", "93.38g", "$2.05"}));
}

void HouseholdDay::dinner_is_taken_from_the_stock() {
    open_inventory();
    auto& tree = part<QTreeView>("item_tree");
    tree.setCurrentIndex(static_cast<const CatagoryTreeModel&>(*tree.model()).index_of("c4"));
    settle();
    EXPECT_EQ(part<QLineEdit>("quantity").text(), "2.75");
    let_time_come(may_15, 18, 29);
    expect_lots(milk, {0.75, 1, 1}, 0);
    EXPECT_EQ(days[1].audited, 0);

    let_time_come(may_15, 18, 30);
    EXPECT_EQ(days[1].audited, -1);
    EXPECT_EQ(panel(3), "Ready");
    // The items: milk 1 / (1 x 4) = 0.25, flour 250 / (125 x 8) = 0.25.
    // Pancakes, ingredient x yield / servings in a unit x planned: flour 4 x 2 / 8 x 1 = 1,
    // milk 2 x 2 / 4 x 1 = 1, eggs 3 x 2 / 1 x 1 = 6, salt 0, which counts as 1 whole unit.
    // Pudding: cream 2 x 4 / 4 x 0.25 = 0.5, eggs 2 x 4 / 1 x 0.25 = 2, milk 4 x 4 / 4 x 0.25 = 1.
    // Milk: 0.25 leaves 0.5 of lot A; 1 is that and half of B; 1 is the rest of B and half of C.
    expect_lots(milk, {0, 0, 0.5}, 2);
    expect_lot_dates(milk, 0, 0, 0);
    expect_lot_dates(milk, 1, 0, 0);
    expect_lot_dates(milk, 2, may_1 + 9, may_1 + 23);
    expect_lots(flour, {0, 1.25}, 1);  // 0.25 leaves 0.25 of A; 1 is that and 0.75 of B
    expect_lots(eggs, {4}, 0);         // 12 - 6 - 2
    expect_lots(cream, {0.5, 1}, 0);
    expect_lots(salt, {2}, 0);
    expect_lots(butter, {0.25}, 0);
    EXPECT_EQ(part<QLineEdit>("quantity").text(), "0.50");  // of the milk on the item screen

    // The other ticks of that minute, and of the next, take nothing more.
    let_time_come(may_15, 18, 30);
    let_time_come(may_15, 18, 31);
    expect_lots(milk, {0, 0, 0.5}, 2);
}

// Bought is what fills up the stock, everything at the end of its shelf life in full:
//   flour  4 - 1.25 = 2.75 x 1.20 = 3.30     eggs  12 - 4 = 8 x 0.30 = 2.40
//   milk   6 - 0.5  = 5.5 x 1.60  = 8.80     cream 2 x 2.00 = 4.00, though 1.5 are there
//   butter 1 - 0.25 = 0.75 x 8.00 = 6.00     24.50 x 1.075 = 26.3375
// Salt has no level to be kept at and is never asked for.
void HouseholdDay::the_list_tells_what_is_low() {
    open_shopping_list();
    EXPECT_EQ(shopping_shown(), (Texts{"Flour 2.75 $3.30", "Milk 5.50 $8.80", "Eggs 8.00 $2.40",
                                       "Cream 2.00 $4.00", "Butter .75 $6.00"}));
    EXPECT_EQ(label("total_label"), "$26.34");
    EXPECT_EQ(label("tax_label"), "7.50%");
    EXPECT_EQ(label("count_label"), "5 items");
}

// 4 days before 15 May, 18:31 is 11 May, 18:31: what is left of the cream's first lot is past it.
void HouseholdDay::recommended_for_tomorrow() {
    open_planner();
    EXPECT_EQ(label("day_state"), "Audited: taken out of the stock");
    EXPECT_EQ(grid().cell_name(cell_of_may_15).toStdString(), "Wednesday, May 15, today, audited");
    for (const char* changing : {"Toolbar2_1", "Toolbar2_2", "Toolbar2_3"}) {
        EXPECT_FALSE(part<QAction>(changing).isEnabled()) << changing;
    }
    part<QLineEdit>("Text1").setFocus();
    scan("TVK7");
    EXPECT_EQ(panel(1), "Wednesday, May 15 is audited. Press \"Edit Audited Day\" first.");
    press("F5");
    EXPECT_EQ(recommended(), Texts{"Pudding Cream 0.5"});
    EXPECT_EQ(label("Label4"),
              "The meals listed below have expired items or are going to expire within the next 5 "
              "days.  Tavernook recommends using these meals or items soon.  Double Click on the "
              "Meal to add it to the Meal Plan.");
    expect_lots(cream, {0.5, 1}, 0);  // the day is not taken twice
    click_cell(cell_of_may_16);
    platform.boxes.expect_input("Enter quantity to add", "Add", "", "0.125");
    double_click_row(part<QTreeView>("recommendations"), 0);
    EXPECT_EQ(plan_shown(), Texts{"Pudding 0.125 Cup(s)"});
    // 1140 / 4 x 0.125 = 35.625, 82 / 4 x 0.125 = 2.5625, 3.20 / 4 x 0.125 = 0.10.
    EXPECT_EQ(totals_shown(), (Texts{"35.63", "2.56g", "$0.10"}));
    EXPECT_EQ(days[2].day, 16);
    EXPECT_EQ(days[2].audited, 0);
}

void HouseholdDay::bought_and_put_in_stock() {
    open_shopping_list();
    // One unit of salt by hand: (24.50 + 0.40) x 1.075 = 26.7675.
    double_click_row(part<QTreeView>("quick_pick_list"), 4);
    EXPECT_EQ(shopping_shown(), (Texts{"Flour 2.75 $3.30", "Milk 5.50 $8.80", "Eggs 8.00 $2.40",
                                       "Cream 2.00 $4.00", "Salt 1.00 $0.40", "Butter .75 $6.00"}));
    EXPECT_EQ(label("total_label"), "$26.77");
    platform.clock.time = shopping_time = may_15 + 20.0 / 24;
    trigger("list_toolbar_5");
    EXPECT_EQ(shopping_shown(), Texts{});
    EXPECT_EQ(panel(1), "6 items were put in stock: Flour, Milk, Eggs and 3 more.");
    expect_stock_after_shopping();
    for (const i16 item : {flour, milk, eggs, cream, salt, butter}) {
        EXPECT_EQ(items[item].last_restock_date, may_15) << item;
    }
    // The eggs are scanned anew; what was bought before counts on: 8 + 1 at 0.30, x 1.075 = 2.9025.
    part<QLineEdit>("Text1").setFocus();
    scan("9006");
    EXPECT_EQ(shopping_shown(), Texts{"Eggs 9.00 $2.70"});
    EXPECT_EQ(label("total_label"), "$2.90");
    open_planner();
    EXPECT_EQ(recommended(), Texts{"Pudding Cream 0.5"});  // the old lot is still there
}

// Each amount goes as one lot into the first empty place behind the current one.
void HouseholdDay::expect_stock_after_shopping() {
    expect_lots(flour, {0, 1.25, 2.75}, 1);
    expect_lots(milk, {0, 0, 0.5, 5.5}, 2);
    expect_lots(eggs, {4, 8}, 0);
    expect_lots(cream, {0.5, 1, 2}, 0);
    expect_lots(salt, {2, 1}, 0);
    expect_lots(butter, {0.25, 0.75}, 0);
    expect_lot_dates(milk, 3, shopping_time, shopping_time + 14);
    expect_lot_dates(cream, 2, shopping_time, shopping_time + 10);
    expect_lot_dates(salt, 1, shopping_time, shopping_time + 400);
    expect_off_list(flour, 2.75);
    expect_off_list(milk, 5.5);
    expect_off_list(cream, 2);
    expect_off_list(salt, 1);
    expect_off_list(butter, 0.75);
}

void HouseholdDay::saved_closed_and_opened() {
    press("Ctrl+S");
    EXPECT_EQ(project_modified, i16_false);
    const TableSnapshot saved;
    choose("Alt+F", "mnuFile_Close");
    EXPECT_EQ(shown_title(), "Tavernook");
    EXPECT_FALSE(is_open("MealPlan"));
    EXPECT_FALSE(is_open("ShoppingList"));
    open_by_keys(platform.path("home.tvk"));
    EXPECT_EQ(saved.difference(TableSnapshot()), "");
    ASSERT_TRUE(is_open("MealPlan"));

    expect_stock_after_shopping();
    EXPECT_EQ(items[eggs].on_shopping_list, -1);
    EXPECT_EQ(items[eggs].shopping_quantity, 9);
    open_planner();
    expect_plan_and_totals();
    EXPECT_EQ(label("day_state"), "Audited: taken out of the stock");
    click_cell(cell_of_may_16);
    EXPECT_EQ(plan_shown(), Texts{"Pudding 0.125 Cup(s)"});
    EXPECT_EQ(recommended(), Texts{"Pudding Cream 0.5"});
    open_shopping_list();
    EXPECT_EQ(shopping_shown(), Texts{"Eggs 9.00 $2.70"});
    open_recipes();
    choose_recipe(pancakes);
    EXPECT_EQ(recipe_text().toPlainText(), "Whisk, rest, fry.");
    EXPECT_EQ(meal_documents[pancakes], "*vk14home000007.rtf");
    // Of every item that has moved there is a history, and of no other.
    EXPECT_EQ(platform.disk.list(platform.system.program + "/reports", ".dat").size(), 6U);
}

// The other way round: the milk as an item and the pancakes go back, the flour and the pudding stay
// eaten. Milk 1 / (4 x 1) = 0.25. Pancakes, planned / yield / yield x ingredient x size of a
// serving / servings in a unit: 1 / 2 / 2 = 0.25, then flour x 4 x 125 / 8 = 15.625,
// milk x 2 x 1 / 4 = 0.125, eggs x 3 x 1 / 1 = 0.75, salt x 0 = 0, for which there is no lot.
void HouseholdDay::the_day_is_given_back() {
    open_planner();
    click_cell(cell_of_may_15);
    platform.boxes.expect_message(item_question, Answer::yes).title("Inventory Adjustment");
    platform.boxes.expect_message(item_question, Answer::no).title("Inventory Adjustment");
    platform.boxes.expect_message(recipe_question, Answer::yes).title("Inventory Adjustment");
    platform.boxes.expect_message(recipe_question, Answer::no).title("Inventory Adjustment");
    trigger("Toolbar2_4");
    platform.boxes.check_used_up();
    EXPECT_EQ(days[1].audited, 0);
    EXPECT_EQ(label("day_state"), "Planned");
    expect_plan_and_totals();
    expect_lots(milk, {0, 0, 0.5, 5.5, 0.25, 0.125}, 2);
    expect_lots(flour, {0, 1.25, 2.75, 15.625}, 1);
    expect_lots(eggs, {4, 8, 0.75}, 0);
    expect_lots(cream, {0.5, 1, 2}, 0);
    expect_lots(salt, {2, 1}, 0);

    click_row(day_list(), 0);
    trigger("Toolbar2_3");
    EXPECT_EQ(plan_shown(), (Texts{"Pudding 0.25 Cup(s)", "Milk 1 Cup(s)", "Flour 250 gram(s)"}));
    // Without the pancakes: 2231.75 - 1135, 93.375 - 17.5, 2.05 - 1.15.
    EXPECT_EQ(totals_shown(), (Texts{"1096.75", "75.88g", "$0.90"}));
}

// The next audit takes what is left of the day that was given back, then the new one.
//   15 May: milk 0.25, flour 0.25; pudding as before: cream 0.5, eggs 2, milk 1
//   16 May: pudding x 0.125: cream 0.25, eggs 1, milk 0.5
// Milk: 0.25 leaves 0.25 of lot C; 1 is that and 0.75 of D; 0.5 more of D. The cream's old lot is
// used up to the last drop, which passes the turn to the next.
void HouseholdDay::the_next_dinner() {
    let_time_come(may_15 + 1, 18, 29);
    let_time_come(may_15 + 1, 18, 30);
    EXPECT_EQ(days[1].audited, -1);
    EXPECT_EQ(days[2].audited, -1);
    expect_lots(milk, {0, 0, 0, 4.25, 0.25, 0.125}, 3);
    expect_lots(flour, {0, 1, 2.75, 15.625}, 1);
    expect_lots(eggs, {1, 8, 0.75}, 0);
    expect_lots(cream, {0, 0.75, 2}, 1);
    expect_lots(salt, {2, 1}, 0);
    open_planner();
    press("F5");
    EXPECT_EQ(recommended(), Texts{});
    // Everything is there in plenty, and the eggs' hand-made entry goes with the new list.
    open_shopping_list();
    EXPECT_EQ(shopping_shown(), Texts{});
    EXPECT_EQ(label("total_label"), "$.00");
}

TEST_F(HouseholdDay, IsPlannedEatenBoughtSavedAndTakenBack) {
    morning();
    plan_the_day();
    dinner_is_taken_from_the_stock();
    the_list_tells_what_is_low();
    recommended_for_tomorrow();
    bought_and_put_in_stock();
    saved_closed_and_opened();
    the_day_is_given_back();
    the_next_dinner();
    project_modified = i16_false;
}

// Nobody was there at the audit's minute. Opened in the morning, the project takes yesterday's
// pancakes, saves itself, and takes them only once.
TEST_F(HouseholdDay, IsMadeUpForWhenTheProjectIsOpenedLater) {
    open_planner();
    scan("TVK7");
    audit_on_startup = i16_true;
    save_after_audit = i16_true;
    press("Ctrl+S");
    action("mnuFile_Close").trigger();
    platform.clock.time = may_15 + 1 + 8.0 / 24;
    for (const int opened : {1, 2}) {
        SCOPED_TRACE(opened);
        open_by_keys(platform.path("home.tvk"));
        ASSERT_TRUE(is_open("MealPlan"));
        EXPECT_EQ(days[1].audited, -1);
        // Flour 1, of which lot A has half; milk 1; eggs 6; one whole unit of salt.
        expect_lots(flour, {0, 1.5}, 1);
        expect_lots(milk, {0, 0.75, 1}, 1);
        expect_lots(eggs, {6}, 0);
        expect_lots(salt, {2}, 0);
        expect_lots(cream, {1, 1}, 0);
        open_shopping_list();
        // Flour and eggs stand exactly at the level at which they are bought.
        // 3.00 + 6.80 + 1.80 + 4.00 + 6.00 = 21.60, x 1.075 = 23.22.
        EXPECT_EQ(shopping_shown(), (Texts{"Flour 2.50 $3.00", "Milk 4.25 $6.80", "Eggs 6.00 $1.80",
                                           "Cream 2.00 $4.00", "Butter .75 $6.00"}));
        EXPECT_EQ(label("total_label"), "$23.22");
        open_planner();
        click_cell(cell_of_may_15);
        EXPECT_EQ(label("day_state"), "Audited: taken out of the stock");
        EXPECT_EQ(project_modified, i16_false);
        action("mnuFile_Close").trigger();
        EXPECT_FALSE(is_open("MealPlan"));
    }
}

}  // namespace
}  // namespace tavernook
