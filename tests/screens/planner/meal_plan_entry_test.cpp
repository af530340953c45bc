// Codes and dragged rows on the planner.
#include "screens/planner/meal_plan_fixture.h"

namespace tavernook {
namespace {

// The published scheme: each byte XOR 67, the bits in groups of six, each group a letter. Of texts
// whose length is a multiple of three.
QByteArray encoded(const std::string& text) {
    const std::string letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-";
    std::string bits;
    for (const char byte : text) {
        for (int bit = 7; bit >= 0; --bit) bits += ((byte ^ 67) >> bit & 1) != 0 ? '1' : '0';
    }
    QByteArray line;
    for (std::size_t i = 0; i < bits.size(); i += 6) {
        line += letters[std::stoul(bits.substr(i, 6), nullptr, 2)];
    }
    return line;
}

class PlannerEntry : public MealPlanTest {
  protected:
    void SetUp() override {
        MealPlanTest::SetUp();
        items[flour].barcode = "036000291452";
    }
    void expect_barcode_box(const char* initial, std::optional<std::string> answer) {
        platform.boxes.expect_input("Enter Barcode", "Barcode Entry", initial, std::move(answer));
    }
};

TEST_F(PlannerEntry, ARecipeCodePlansOneServing) {
    open_planner();
    scan("tvk7");
    EXPECT_EQ(plan_shown(), Texts{"Soup 1 Cup(s)"});
    EXPECT_EQ(panel(1), "Soup is planned on Wednesday, May 15: 1 Cup(s) now.");
    EXPECT_EQ(entry().text(), "");
    scan("TVK7");
    scan("Tvk7");
    EXPECT_EQ(panel(1), "Soup is planned on Wednesday, May 15: 3 Cup(s) now.");
    EXPECT_EQ(day_quantities[1].meal_servings[1], 3);
    EXPECT_EQ(focused(), "Text1");
}

TEST_F(PlannerEntry, AnItemIsFoundByItsBarcode) {
    open_planner();
    scan("4006381333931");
    EXPECT_EQ(plan_shown(), Texts{"Milk 250 gram(s)"});
    EXPECT_EQ(panel(1), "Milk is planned on Wednesday, May 15: 250 gram(s) now.");
    EXPECT_TRUE(grid().cell(may_15).planned);
}

TEST_F(PlannerEntry, TabEndsACodeToo) {
    open_planner();
    scan("4006381333931", "Tab");
    EXPECT_EQ(plan_shown(), Texts{"Milk 250 gram(s)"});
    EXPECT_EQ(focused(), "Text1");
    press("Tab");  // nothing stands in the box any more
    EXPECT_EQ(focused(), "lv2");
}

TEST_F(PlannerEntry, AnUnknownCodeSaysSoAndBlocksNothing) {
    open_planner();
    scan("5000112548167");
    EXPECT_EQ(panel(1), "No recipe and no item has the barcode 5000112548167.");
    scan("tvk8");
    EXPECT_EQ(panel(1), "No recipe and no item has the barcode tvk8.");
    scan("empty");
    EXPECT_EQ(plan_shown(), Texts{});
    EXPECT_EQ(project_modified, i16_false);
    scan("4006381333931");
    EXPECT_EQ(plan_shown(), Texts{"Milk 250 gram(s)"});
}

TEST_F(PlannerEntry, ADeletedRecipesCodeIsUnknownAndADropOfItIsRefused) {
    open_planner();
    meals[soup].in_use = 0;
    scan("tvk7");
    EXPECT_EQ(panel(1), "No recipe and no item has the barcode tvk7.");
    EXPECT_FALSE(drop_on_list("m7"));
    EXPECT_FALSE(drop_on_cell(may_20, "m7"));
    EXPECT_EQ(days[1], DayRecord{});
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(PlannerEntry, OnlyDigitsBehindTheLettersNameARecipe) {
    open_planner();
    for (const char* code : {"tvk7.9", "tvk+7", "tvk7x"}) {
        scan(code);
        EXPECT_EQ(panel(1), std::string("No recipe and no item has the barcode ") + code + ".");
    }
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(PlannerEntry, EnterWithoutACodeDoesNothing) {
    open_planner();
    press("Return");
    scan("   ");
    EXPECT_EQ(plan_shown(), Texts{});
    EXPECT_EQ(panel(1), "");
}

TEST_F(PlannerEntry, TheDevicesOwnSchemeIsDecoded) {
    scanner_type = 2;
    open_planner();
    const QByteArray line = ".aaaa.bbbb." + encoded("036000291452") + ".";
    scan(line.constData());
    EXPECT_EQ(plan_shown(), Texts{"Flour 100 gram(s)"});
    scan("036000291452");
    EXPECT_EQ(panel(1), "No barcode could be read. Please scan again.");
    EXPECT_EQ(plan_shown(), Texts{"Flour 100 gram(s)"});
}

TEST_F(PlannerEntry, WithoutAScannerABoxAsks) {
    scanner_type = 3;
    open_planner();
    expect_barcode_box("", "tvk7");
    press("Return");
    EXPECT_EQ(plan_shown(), Texts{"Soup 1 Cup(s)"});
    type("036");
    expect_barcode_box("036", "036000291452");
    press("Return");
    expect_barcode_box("", std::nullopt);
    press("Return");
    expect_barcode_box("", " ");
    press("Return");
    EXPECT_EQ(plan_shown(), (Texts{"Soup 1 Cup(s)", "Flour 100 gram(s)"}));
}

TEST_F(PlannerEntry, WithTheBatchScannerEnterDoesNothing) {
    scanner_type = 1;
    open_planner();
    scan("tvk7");
    EXPECT_EQ(plan_shown(), Texts{});
}

TEST_F(PlannerEntry, AnAuditedDayTakesNoCode) {
    put_day(1, 5, 15, -1);
    put_recipe_on(1, 1, pie, 1);
    open_planner();
    scan("tvk7");
    EXPECT_EQ(plan_shown(), Texts{"Pie 1 Cup(s)"});
    EXPECT_EQ(panel(1), "Wednesday, May 15 is audited. Press \"Edit Audited Day\" first.");
    EXPECT_EQ(entry().text(), "");
}

// Every part that takes the focus, but for boxes that are text in themselves.
TEST_F(PlannerEntry, LettersOfACodeCountWhereverTheFocusIs) {
    items[milk].barcode = "AB-12";
    items[flour].barcode = "KLM";
    open_planner();
    f64 expected = 0;
    for (QWidget* where : screen->findChildren<QWidget*>()) {
        const bool takes_focus = where->focusPolicy() != Qt::NoFocus && where->isVisible() &&
                                 where->isEnabled() && where->focusProxy() == nullptr;
        if (!takes_focus || where->objectName() == "Label11") continue;
        const std::string name = where->objectName().toStdString();
        for (const char* code : {"AB-12", "tvk7", "KLM"}) {
            where->setFocus();
            scan(code);
        }
        ++expected;
        EXPECT_EQ(day_quantities[1].item_quantity[1], 250 * expected) << name;
        EXPECT_EQ(day_quantities[1].meal_servings[1], expected) << name;
        EXPECT_EQ(day_quantities[1].item_quantity[2], 100 * expected) << name;
        EXPECT_EQ(told_date(), "5/15/2024") << name;
    }
    EXPECT_GE(expected, 10);
}

TEST_F(PlannerEntry, WhatWasBegunGoesWithAnotherDate) {
    open_planner();
    type("x");
    press("Down");
    EXPECT_EQ(entry().text(), "");
    press("Up");
    type("9");
    click("next_month");
    click("previous_month");
    scan("4006381333931");
    EXPECT_EQ(plan_shown(), Texts{"Milk 250 gram(s)"});
}

TEST_F(PlannerEntry, AScanCountsWhereverTheFocusIs) {
    put_day(1, 5, 20);
    put_recipe_on(1, 1, pie, 1);
    open_planner();
    f64 expected = 0;
    for (const char* where : {"calendar_grid", "lv2", "recommendations", "Combo1", "FlatScrollBar2",
                              "previous_month", "Toolbar2_1_button", "Command2"}) {
        part(where).setFocus();
        scan("4006381333931");
        expected += 250;
        EXPECT_EQ(day_quantities[2].item_quantity[1], expected) << where;
        EXPECT_EQ(selected_year, 2024) << where;
        part(where).setFocus();
        scan("TVK7");
        EXPECT_EQ(day_quantities[2].meal_servings[1], expected / 250) << where;
        EXPECT_EQ(told_date(), "5/15/2024") << where;
    }
}

TEST_F(PlannerEntry, TheDevicesOwnSchemeCountsInAListToo) {
    scanner_type = 2;
    open_planner();
    day_list().setFocus();
    const QByteArray line = ".aaaa.bbbb." + encoded("036000291452") + ".";
    scan(line.constData());
    EXPECT_EQ(plan_shown(), Texts{"Flour 100 gram(s)"});
}

TEST_F(PlannerEntry, LettersFindRowsInTheLists) {
    put_day(1, 5, 15);
    put_recipe_on(1, 1, pie, 1);
    put_recipe_on(1, 2, soup, 1);
    put_item_on(1, 1, milk, 1);
    open_planner();
    select_row(0);
    type("m");
    EXPECT_EQ(planner().selected_day_key(), "i3:1");
    EXPECT_EQ(focused(), "lv2");
    EXPECT_EQ(entry().text(), "");
}

TEST_F(PlannerEntry, LettersOfAListAreNoPartOfALaterCode) {
    open_planner();
    day_list().setFocus();
    type("t");
    entry().setFocus();
    scan("4006381333931");
    day_list().setFocus();
    type("tv");
    press("Down");
    scan("4006381333931");
    day_list().setFocus();
    type("xtx");
    scan("4006381333931");
    EXPECT_EQ(plan_shown(), Texts{"Milk 750 gram(s)"});
}

TEST_F(PlannerEntry, AnAbandonedEntryGivesWayToTheNextScan) {
    open_planner();
    type("99");
    part("Command2").setFocus();
    scan("4006381333931");
    EXPECT_EQ(plan_shown(), Texts{"Milk 250 gram(s)"});
}

TEST_F(PlannerEntry, FourDigitsInTheYearAreAYear) {
    open_planner();
    part<QSpinBox>("FlatScrollBar2").setFocus();
    part<QSpinBox>("FlatScrollBar2").selectAll();
    type("2031");
    press("Return");
    EXPECT_EQ(told_date(), "5/15/2031");
    EXPECT_EQ(entry().text(), "");
}

TEST_F(PlannerEntry, RowsAreDroppedOnTheDay) {
    open_planner();
    EXPECT_TRUE(drop_on_list("m7"));
    EXPECT_TRUE(drop_on_list("i3"));
    EXPECT_EQ(plan_shown(), (Texts{"Soup 1 Cup(s)", "Milk 250 gram(s)"}));
    EXPECT_EQ(panel(1), "Milk is planned on Wednesday, May 15: 250 gram(s) now.");
}

TEST_F(PlannerEntry, ADropOnACellSelectsItFirst) {
    open_planner();
    EXPECT_TRUE(drop_on_cell(may_20, "m7"));
    EXPECT_EQ(told_date(), "5/20/2024");
    EXPECT_EQ(plan_shown(), Texts{"Soup 1 Cup(s)"});
    EXPECT_TRUE(grid().cell(may_20).planned);
    EXPECT_FALSE(grid().cell(may_15).planned);
    EXPECT_TRUE(drop_on_cell(june_8, "i3"));
    EXPECT_EQ(told_date(), "6/8/2024");
}

TEST_F(PlannerEntry, NothingIsDroppedOnAnAuditedDay) {
    put_day(1, 5, 16, -1);
    put_recipe_on(1, 1, pie, 1);
    open_planner();
    EXPECT_FALSE(drop_on_cell(may_16, "m7"));
    EXPECT_EQ(told_date(), "5/15/2024");
    EXPECT_EQ(panel(1), "Thursday, May 16 is audited. Nothing can be dropped on it.");
    click_cell(may_16);
    EXPECT_FALSE(drop_on_list("m7"));
    EXPECT_EQ(plan_shown(), Texts{"Pie 1 Cup(s)"});
    EXPECT_EQ(panel(1), "Thursday, May 16 is audited. Nothing can be dropped on it.");
}

TEST_F(PlannerEntry, OnlyRowsOfItemsAndRecipesAreTaken) {
    open_planner();
    for (const char* text : {"", "7", "m", "i", "x7", "m0", "m-7", "m8", "m1001", "i10001", "i9",
                             "m7x", "hello", "i99999999999"}) {
        EXPECT_FALSE(drop_on_list(text)) << text;
        EXPECT_FALSE(drop_on_cell(may_20, text)) << text;
    }
    EXPECT_FALSE(drop(grid(), QPoint(20, 2), "m7"));  // the line of the weekdays
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(told_date(), "5/15/2024");
}

}  // namespace
}  // namespace tavernook
