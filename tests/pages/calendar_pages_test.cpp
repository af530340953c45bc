#include "reports/pages/calendar_pages.h"

#include "core/program_state.h"
#include "pages/pages_fixture.h"
#include "planning/planner_state.h"

namespace tavernook {
namespace {

constexpr i16 flour = 7;
constexpr i16 bread = 4;

constexpr const char* line_front =
    "<p style='margin-top: 0; margin-bottom: 0'><font size='1' face='Arial'>";
constexpr const char* line_end = "</font></p>";
constexpr const char* bullet = "<img border=\"0\" src=\"point.gif\" width=\"10\" height=\"10\">";

// A bag of flour costs 3 and gives 4 servings of 0.5 cups. The week of 15 May 2024 begins on
// Sunday, 12 May.
class CalendarPages : public PagesTest {
  protected:
    CalendarPages() {
        add_item(flour, "Flour");
        items[flour].cost = 3;
        items[flour].serving_size = 0.5;
        items[flour].servings_per_qty_unit = 4;
        items[flour].calories = 100;
        items[flour].fat = 3;
        item_details[flour].calories = 120.5;
        item_details[flour].fat = 1.25;
        add_meal(bread, "Bread");
        meal_serving_size[bread] = 4;
        put(bread, 1, flour, 2);
        put_file("dat/cal.dat", week_template());
        put_file("dat/calm.dat", "%1%|%2%|%42%|%ct3%|%$3%|%f3%|%c3%|%o3%|%o4%|%title%|%note%");
    }

    static std::string week_template() {
        std::string text;
        for (int day = 1; day <= 7; ++day) {
            const std::string n = std::to_string(day);
            text += std::string("%") + static_cast<char>('a' + day - 1) + "% %" + n + "% %ct" + n +
                    "% %$" + n + "% %f" + n + "% %c" + n + "%\n";
        }
        return text + "%title% %note%";
    }

    static void plan_item(i16 day, std::size_t place, i16 item, f64 quantity) {
        days[day].planned_item[place] = item;
        day_quantities[day].item_quantity[place] = quantity;
    }

    std::string week() {
        EXPECT_TRUE(Build_HTMLCal());
        return page("dat/cal.htm");
    }
    // Line n of the week, 0 for Sunday.
    std::string day_of_week(int n) {
        std::string text = week();
        for (; n > 0; --n) text.erase(0, text.find('\n') + 1);
        return text.substr(0, text.find('\n'));
    }
    std::string month(Date shown = 0) {
        EXPECT_TRUE(Build_HTMLCal_Month(1, shown));
        return page("dat/calm.htm");
    }
};

TEST_F(CalendarPages, AnEmptyWeekSaysSo) {
    EXPECT_EQ(week(),
              "Sun 12  $0.0 0.0 g 0 cal\nMon 13  $0.0 0.0 g 0 cal\nTue 14  $0.0 0.0 g 0 cal\n"
              "Wed 15  $0.0 0.0 g 0 cal\nThu 16  $0.0 0.0 g 0 cal\nFri 17  $0.0 0.0 g 0 cal\n"
              "Sat 18  $0.0 0.0 g 0 cal\nMay 12, 2024 - May 18, 2024 Nothing is planned for this "
              "week.");
}

TEST_F(CalendarPages, ADayHasItsRecipesThenItsItemsAndTheTotalsOfThePlanner) {
    add_day(5, 5, 14, 2024);
    plan_item(5, 1, flour, 1.5);  // 180.75 cal, 1.875 g, 2.25
    plan(5, 30, bread, 2);        // 100 cal, 3 g, 0.75
    EXPECT_EQ(day_of_week(2), std::string("Tue 14 ") + line_front + "Bread" + bullet + line_end +
                                  line_front + "- Flour" + line_end + " $3.0 4.9 g 281 cal");
    EXPECT_EQ(week().find("Nothing is planned"), std::string::npos);
}

TEST_F(CalendarPages, AServingSizeOf0CountsAs1) {
    add_day(5, 5, 12, 2024);
    meal_serving_size[bread] = 0;
    plan(5, 1, bread, 2);
    EXPECT_NE(day_of_week(0).find(" $3.0 12.0 g 400 cal"), std::string::npos);
    EXPECT_EQ(meal_serving_size[bread], 0);
}

TEST_F(CalendarPages, TheSizeIsThatOfThePlan) {
    add_day(5, 5, 12, 2024);
    plan(5, 1, bread, 2);
    EXPECT_TRUE(Build_HTMLCal(3));
    EXPECT_NE(page("dat/cal.htm").find("<font size='3' face='Arial'>Bread"), std::string::npos);
    EXPECT_TRUE(Build_HTMLCal_Month(6, date_from_civil(2024, 6, 1)));
}

TEST_F(CalendarPages, TheWeekIsThatOfTheSelectedDate) {
    selected_year = 2024;
    selected_month = 3;
    selected_day = 2;  // a Saturday; the year has a leap day
    EXPECT_EQ(day_of_week(0).substr(0, 6), "Sun 25");
    EXPECT_EQ(day_of_week(4).substr(0, 6), "Thu 29");
    EXPECT_EQ(day_of_week(5).substr(0, 6), "Fri 1 ");
    selected_day = 3;
    EXPECT_EQ(day_of_week(0).substr(0, 6), "Sun 3 ");
}

TEST_F(CalendarPages, DatesBeginWithTheDayWhereTheUsersDo) {
    date_day_first = 1;
    EXPECT_NE(week().find("12 May 2024 - 18 May 2024"), std::string::npos);
}

TEST_F(CalendarPages, OnlyLiveDaysOfTheDateCount) {
    add_day(5, 5, 12, 2023);
    add_day(6, 5, 12, 2024);
    plan(5, 1, bread, 2);
    plan(6, 1, bread, 2);
    days[6].in_use = 0;
    EXPECT_EQ(day_of_week(0), "Sun 12  $0.0 0.0 g 0 cal");
}

TEST_F(CalendarPages, OfADateThatStandsTwiceTheLastSlotCounts) {
    add_day(5, 5, 12, 2024);
    add_day(9, 5, 12, 2024);
    plan(5, 1, bread, 2);
    plan_item(9, 1, flour, 1);
    EXPECT_EQ(occurrences(day_of_week(0), "Bread"), 0);
    EXPECT_EQ(occurrences(day_of_week(0), "- Flour"), 1);
}

TEST_F(CalendarPages, WhatNamesNothingLiveIsPassedOver) {
    add_day(5, 5, 12, 2024);
    plan(5, 1, 999, 2);
    plan(5, 2, -3, 2);
    plan_item(5, 1, 32767, 1);
    EXPECT_EQ(day_of_week(0), "Sun 12  $0.0 0.0 g 0 cal");
}

TEST_F(CalendarPages, ThePlaceThatIsNeverUsedIsNotShown) {
    add_day(5, 5, 12, 2024);
    plan(5, 0, bread, 2);
    plan_item(5, 0, flour, 1);
    EXPECT_EQ(day_of_week(0), "Sun 12  $0.0 0.0 g 0 cal");
}

TEST_F(CalendarPages, FiguresThatCannotBeWorkedOutAreNotTold) {
    add_day(5, 5, 12, 2024);
    items[flour].serving_size = 0;
    plan_item(5, 1, flour, 1.5);
    EXPECT_EQ(day_of_week(0),
              std::string("Sun 12 ") + line_front + "- Flour" + line_end + " - - -");
}

TEST_F(CalendarPages, OfEachPlaceholderTheFirstCounts) {
    put_file("dat/cal.dat", "%1% %1% %A% %a% %8%");
    EXPECT_EQ(week(), "12 %1% %A% Sun %8%");
}

TEST_F(CalendarPages, NamesStandAsTheyAreWhateverTheyHold) {
    add_day(5, 5, 12, 2024);
    meals[bread].name = "<b>%$1% %ct1%\x80";
    plan(5, 1, bread, 2);
    EXPECT_NE(day_of_week(0).find(std::string("<b>%$1% %ct1%\x80") + bullet), std::string::npos);
}

TEST_F(CalendarPages, TheMonthHas42CellsFromTheSundayOnOrBeforeTheFirst) {
    // May 2024 begins on a Wednesday: 28 April to 8 June.
    EXPECT_EQ(month(),
              "28|29|8||$0.0|0.0 g|0 cal|out||May 2024|Nothing is planned for this month.");
    // September 2024 begins on a Sunday.
    EXPECT_EQ(month(date_from_civil(2024, 9, 30)),
              "1|2|12||$0.0|0.0 g|0 cal|||September 2024|Nothing is planned for this month.");
}

TEST_F(CalendarPages, ACellOfTheMonthShowsItsDay) {
    add_day(5, 4, 30, 2024);
    plan(5, 1, bread, 4);
    EXPECT_EQ(month(), std::string("28|29|8|") + line_front + "Bread" + bullet + line_end +
                           "|$1.5|6.0 g|200 cal|out||May 2024|");
}

TEST_F(CalendarPages, WithoutATemplateThereIsABoxAndThePageBeforeStays) {
    std::filesystem::remove(in_program("dat/cal.dat"));
    std::filesystem::remove(in_program("dat/calm.dat"));
    put_file("dat/cal.htm", "the page before");
    expect_trapped(
        53, [] { return Build_HTMLCal(); }, false);
    expect_trapped(
        53, [] { return Build_HTMLCal_Month(); }, false);
    EXPECT_EQ(page("dat/cal.htm"), "the page before");
}

TEST_F(CalendarPages, APageThatCannotBeWrittenLeavesTheOneBefore) {
    put_file("dat/calm.htm", "the page before");
    EXPECT_TRUE(Build_HTMLCal_Month());
    const int rename = platform.files.operations();
    put_file("dat/calm.htm", "the page before");
    platform.files.start_over();
    platform.files.fail_at(rename, fault_number::disk_full);
    expect_trapped(
        61, [] { return Build_HTMLCal_Month(); }, false);
    EXPECT_EQ(page("dat/calm.htm"), "the page before");
    EXPECT_FALSE(is_there("dat/calm.htm.new"));
}

}  // namespace
}  // namespace tavernook
