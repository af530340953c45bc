// Copy, cut, paste and delete of whole days on the planner, by its popup menu and by keys.
#include <QClipboard>

#include "basics/number_text.h"
#include "screens/parts/screen_switch.h"
#include "screens/planner/meal_plan_fixture.h"

namespace tavernook {
namespace {

constexpr const char* item_question =
    "You have chosen to edit an audited day.  Do you want the inventory for this item to be "
    "adjusted as a result?";

class PlannerPopup : public MealPlanTest {
  protected:
    void SetUp() override {
        MealPlanTest::SetUp();
        put_day(1, 5, 16);
        put_recipe_on(1, 2, soup, 3);
        put_item_on(1, 1, milk, 500);
    }
    // What the table holds of a date of May 2024: "Soup 3, Milk 500".
    static std::string held(i16 day) {
        std::string text;
        for (const i16 slot : live_days_of({2024, 5, day})) {
            for (std::size_t place = 1; place <= day_places; ++place) {
                const i16 recipe = days[slot].planned_meal[place];
                if (recipe == 0) continue;
                text += std::string(meals[recipe].name.trimmed()) + " " +
                        number_text(day_quantities[slot].meal_servings[place]) + ",";
            }
            for (std::size_t place = 1; place <= day_places; ++place) {
                const i16 item = days[slot].planned_item[place];
                if (item == 0) continue;
                text += std::string(items[item].name.trimmed()) + " " +
                        number_text(day_quantities[slot].item_quantity[place]) + ",";
            }
        }
        return text;
    }
    void choose(const char* entry_name) { choose_in_popup(grid(), "popmenu", entry_name); }
    ExpectedBox& expect_copy_question(const char* date, Answer answer) {
        return platform.boxes
            .expect_message(std::string("The day of ") + date +
                                " is already being used.  Do you want to copy over it?",
                            answer)
            .title("Copy Day")
            .default_button(DefaultButton::no)
            .critical();
    }
};

TEST_F(PlannerPopup, ARightClickSelectsTheCellAndNothingIsChosenYet) {
    open_planner();
    const QPoint place = grid().cell_rect(may_20).center();
    QTest::mouseClick(&grid(), Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, grid().mapToGlobal(place));
    QCoreApplication::sendEvent(&grid(), &event);
    EXPECT_EQ(told_date(), "5/20/2024");
    EXPECT_EQ(planner().popup_choice(), 255);
    EXPECT_TRUE(part<QMenu>("popmenu").isVisible());
    press("Escape");
    EXPECT_EQ(planner().popup_choice(), 255);
}

TEST_F(PlannerPopup, CopyAndPasteLayTheDayOverAnotherDate) {
    open_planner();
    click_cell(may_16);
    EXPECT_FALSE(part<QAction>("POPMenu_Paste").isEnabled());
    choose("POPMenu_Copy");
    EXPECT_EQ(copy_source_day, 1);
    click_cell(may_20);
    choose("POPMenu_Paste");
    EXPECT_EQ(held(20), "Soup 3,Milk 500,");
    EXPECT_EQ(held(16), "Soup 3,Milk 500,");
    EXPECT_EQ(plan_shown(), (Texts{"Soup 3 Cup(s)", "Milk 500 gram(s)"}));
    EXPECT_TRUE(grid().cell(may_20).planned);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(planner().popup_choice(), 255);
}

TEST_F(PlannerPopup, TheKeysDoTheSameInTheEntryBoxAndInTheCalendar) {
    open_planner();
    for (const char* where : {"Text1", "calendar_grid"}) {
        click_cell(may_16);
        part(where).setFocus();
        press("Ctrl+C");
        EXPECT_EQ(panel(1), "Thursday, May 16 is copied. Choose a date and paste it (Ctrl+V).");
        press("Right");
        press("Ctrl+V");
        EXPECT_EQ(held(17), "Soup 3,Milk 500,") << where;
        EXPECT_EQ(panel(1), "Pasted on Friday, May 17.");
        choose("POPMenu_Delete");
        EXPECT_EQ(held(17), "") << where;
        EXPECT_EQ(panel(1), "The plan of Friday, May 17 is deleted.");
    }
}

TEST_F(PlannerPopup, ACutDayGoesWhenItIsPasted) {
    open_planner();
    click_cell(may_16);
    choose("POPMenu_Cut");
    EXPECT_EQ(held(16), "Soup 3,Milk 500,");
    click_cell(may_20);
    press("Ctrl+V");
    EXPECT_EQ(held(20), "Soup 3,Milk 500,");
    EXPECT_EQ(held(16), "");
    EXPECT_FALSE(grid().cell(may_16).planned);
    EXPECT_EQ(plan_shown().size(), 2u);
    EXPECT_FALSE(part<QAction>("POPMenu_Paste").isEnabled());
}

TEST_F(PlannerPopup, ACutDayPastedOntoItsOwnDateStays) {
    open_planner();
    click_cell(may_16);
    press("Ctrl+X");
    press("Ctrl+V");
    EXPECT_EQ(held(16), "Soup 3,Milk 500,");
    EXPECT_EQ(panel(1), "Nothing was pasted on Thursday, May 16.");
}

TEST_F(PlannerPopup, ACutDayStaysWhenTheDateIsKeptAsItIs) {
    put_day(2, 5, 20);
    put_recipe_on(2, 1, pie, 1);
    open_planner();
    click_cell(may_16);
    press("Ctrl+X");
    click_cell(may_20);
    expect_copy_question("5/20/2024", Answer::no);
    press("Ctrl+V");
    EXPECT_EQ(held(16), "Soup 3,Milk 500,");
    EXPECT_EQ(held(20), "Pie 1,");
}

TEST_F(PlannerPopup, PastingOverADateKeepsWhatTheSourceLeavesEmpty) {
    put_day(2, 5, 20);
    put_recipe_on(2, 1, pie, 1);
    open_planner();
    click_cell(may_16);
    press("Ctrl+C");
    click_cell(may_20);
    expect_copy_question("5/20/2024", Answer::yes);
    press("Ctrl+V");
    EXPECT_EQ(held(20), "Pie 1,Soup 3,Milk 500,");
}

TEST_F(PlannerPopup, AnAuditedDayIsSettledBeforeItIsDeleted) {
    days[1].audited = -1;
    days[1].planned_meal[2] = 0;
    open_planner();
    click_cell(may_16);
    platform.boxes.expect_message(item_question, Answer::yes)
        .title("Inventory Adjustment")
        .default_button(DefaultButton::no);
    choose("POPMenu_Delete");
    EXPECT_EQ(held(16), "");
    EXPECT_EQ(lot_total(milk), 6.5);  // 500 grams of litres that hold 4 times 250
}

TEST_F(PlannerPopup, AnAuditedDayIsSettledWhenItWasCut) {
    days[1].audited = -1;
    days[1].planned_meal[2] = 0;
    open_planner();
    click_cell(may_16);
    press("Ctrl+X");
    click_cell(may_20);
    platform.boxes.expect_message(item_question, Answer::no);
    press("Ctrl+V");
    EXPECT_EQ(held(16), "");
    EXPECT_EQ(held(20), "Milk 500,");
    EXPECT_FALSE(grid().cell(may_20).audited);
    EXPECT_EQ(lot_total(milk), 6);
}

TEST_F(PlannerPopup, TheDeleteKeyLeavesAPlainDay) {
    open_planner();
    for (const char* where : {"Text1", "calendar_grid"}) {
        click_cell(may_16);
        part(where).setFocus();
        press("Delete");
        EXPECT_EQ(held(16), "Soup 3,Milk 500,") << where;
        EXPECT_EQ(panel(1),
                  "The plan of Thursday, May 16 stays. To delete it, choose \"Delete\" in the menu "
                  "of the date (Shift+F10).");
    }
    entry().setFocus();
    type("12");
    press("Home");
    for (int n = 0; n < 4; ++n) press("Delete");  // two would have been enough
    EXPECT_EQ(held(16), "Soup 3,Milk 500,");
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(PlannerPopup, TheDeleteKeySettlesAndDeletesAnAuditedDay) {
    days[1].audited = -1;
    days[1].planned_meal[2] = 0;
    open_planner();
    click_cell(may_16);
    entry().setFocus();
    platform.boxes.expect_message(item_question, Answer::yes).title("Inventory Adjustment");
    press("Delete");
    EXPECT_EQ(held(16), "");
    EXPECT_EQ(lot_total(milk), 6.5);
    EXPECT_EQ(panel(1), "The plan of Thursday, May 16 is deleted.");
}

TEST_F(PlannerPopup, ADayThatGoesWhileItsCopyIsAskedAboutStaysGone) {
    put_day(2, 5, 20);
    put_recipe_on(2, 1, pie, 1);
    open_planner();
    click_cell(may_16);
    press("Ctrl+C");
    click_cell(may_20);
    expect_copy_question("5/20/2024", Answer::yes).during([] {
        days[2] = DayRecord{};
        changed_elsewhere();
    });
    press("Ctrl+V");
    EXPECT_EQ(held(20), "");
    EXPECT_EQ(panel(1), "Nothing was pasted on Monday, May 20.");
}

TEST_F(PlannerPopup, DeletingAnEmptyDateChangesNoDay) {
    open_planner();
    press("Delete");
    EXPECT_EQ(held(16), "Soup 3,Milk 500,");
    EXPECT_EQ(panel(1), "Nothing is planned on Wednesday, May 15.");
}

TEST_F(PlannerPopup, PastingWithoutACopySaysSo) {
    QApplication::clipboard()->clear();
    open_planner();
    press("Ctrl+V");
    EXPECT_EQ(panel(1), "Copy or cut a day first.");
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(PlannerPopup, ACodeOfAnotherProgramIsPastedWhileNoDayWaits) {
    QApplication::clipboard()->setText("tvk7");
    open_planner();
    press("Ctrl+V");
    EXPECT_EQ(entry().text(), "tvk7");
    press("Escape");
    click_cell(may_16);
    press("Ctrl+C");
    click_cell(may_20);
    entry().setFocus();
    press("Ctrl+V");
    EXPECT_EQ(entry().text(), "");
    EXPECT_EQ(held(20), "Soup 3,Milk 500,");
}

TEST_F(PlannerPopup, WithATextInTheEntryBoxTheKeysEditIt) {
    open_planner();
    click_cell(may_16);
    entry().setFocus();
    type("1234");
    press("Left");
    press("Delete");
    EXPECT_EQ(entry().text(), "123");
    press("Ctrl+A");
    press("Ctrl+C");
    EXPECT_EQ(QApplication::clipboard()->text(), "123");
    EXPECT_EQ(told_date(), "5/16/2024");
    EXPECT_EQ(held(16), "Soup 3,Milk 500,");
    EXPECT_FALSE(day_clipboard.filled);
    press("Escape");
    EXPECT_EQ(entry().text(), "");
}

TEST_F(PlannerPopup, AddsByTheOtherScreens) {
    open_planner();
    click_cell(may_20);
    choose("popmenu_add_meal");
    EXPECT_EQ(calls.entries, Texts{"Mealbuilder set_return 1"});
    show_screen("MealPlan");
    settle();
    choose("popmenu_add_item");
    EXPECT_TRUE(is_open("FoodInventory"));
}

TEST_F(PlannerPopup, ShiftF10OpensTheMenus) {
    open_planner();
    click_cell(may_16);
    for (const auto& [where, menu] :
         {std::pair("calendar_grid", "popmenu"), std::pair("lv2", "mealplanpop")}) {
        part(where).setFocus(Qt::TabFocusReason);
        press("Shift+F10");
        EXPECT_TRUE(part<QMenu>(menu).isVisible()) << menu;
        press("Escape");
    }
}

TEST_F(PlannerPopup, AChoiceIsCarriedOutOnceAndNoneIsNone) {
    open_planner();
    EXPECT_EQ(planner().popup_choice(), 255);
    click_cell(may_16);
    planner().set_popup(MealPlan::popup_delete);
    EXPECT_EQ(planner().popup_choice(), 2);
    click_cell(may_20);
    EXPECT_EQ(held(16), "Soup 3,Milk 500,");
}

}  // namespace
}  // namespace tavernook
