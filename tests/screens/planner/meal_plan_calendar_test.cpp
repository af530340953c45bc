// The planner's calendar: month, year, dates, and what its cells show.
#include <QWheelEvent>
#include <fstream>
#include <iterator>

#include "platform_qt/shipped_page_files.h"
#include "reports/pages/shipped_pages.h"
#include "reports/preview.h"
#include "screens/planner/meal_plan_fixture.h"

namespace tavernook {
namespace {

class PlannerCalendar : public MealPlanTest {
  protected:
    std::string page(const std::string& name) {
        std::ifstream file(platform.system.program + "/dat/" + name + ".htm", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::string month_shown() {
        return part<QComboBox>("Combo1").currentText().toStdString() + " " +
               part<QLineEdit>("Label11").text().toStdString();
    }
    QImage picture_of(int cell) {
        planner().CalendarUpdate(100);
        return grid().grab(grid().cell_rect(cell)).toImage();
    }
    std::string first_date() { return grid().cell(0).date.toString(Qt::ISODate).toStdString(); }
};

TEST_F(PlannerCalendar, ShowsTodayAtFirst) {
    open_planner();
    EXPECT_EQ(screen->windowTitle(), "Meal Planning");
    EXPECT_EQ(label("Label6"), "Wednesday - 05/15/2024");
    EXPECT_EQ(month_shown(), "May 2024");
    EXPECT_EQ(part<QSpinBox>("FlatScrollBar2").value(), 2024);
    EXPECT_EQ(first_date(), "2024-04-28");
    EXPECT_EQ(grid().selected_cell(), may_15);
    EXPECT_TRUE(grid().cell(may_15).today);
    EXPECT_EQ(told_date(), "5/15/2024");
    EXPECT_EQ(focused(), "Text1");
}

TEST_F(PlannerCalendar, TheFirstCellIsTheSundayOnOrBeforeTheFirst) {
    EXPECT_EQ(first_cell_date(QDate(2024, 5, 20)), QDate(2024, 4, 28));
    EXPECT_EQ(first_cell_date(QDate(2026, 2, 1)), QDate(2026, 2, 1));   // a Sunday itself
    EXPECT_EQ(first_cell_date(QDate(2025, 2, 1)), QDate(2025, 1, 26));  // a Saturday
    EXPECT_EQ(first_cell_date(QDate(2025, 1, 9)), QDate(2024, 12, 29));
}

TEST_F(PlannerCalendar, AClickSelectsADate) {
    open_planner();
    click_cell(may_20);
    EXPECT_EQ(told_date(), "5/20/2024");
    EXPECT_EQ(label("Label6"), "Monday - 05/20/2024");
    EXPECT_EQ(grid().selected_cell(), may_20);
    EXPECT_EQ(focused(), "calendar_grid");
}

TEST_F(PlannerCalendar, EveryCellIsHitInItsMiddleAndTheHeaderIsNone) {
    open_planner();
    for (int cell = 0; cell < calendar_cell_count; ++cell) {
        EXPECT_EQ(grid().cell_at(grid().cell_rect(cell).center()), cell);
    }
    EXPECT_EQ(grid().cell_at(QPoint(20, 2)), -1);
    QTest::mouseClick(&grid(), Qt::LeftButton, {}, QPoint(20, 2));
    EXPECT_EQ(told_date(), "5/15/2024");
}

TEST_F(PlannerCalendar, DatesOfTheNeighbourMonthsCanBeSelected) {
    open_planner();
    click_cell(april_28);
    EXPECT_EQ(told_date(), "4/28/2024");
    click_cell(june_8);
    EXPECT_EQ(told_date(), "6/8/2024");
    EXPECT_EQ(month_shown(), "May 2024");
}

TEST_F(PlannerCalendar, ArrowKeysStepADayAndAWeek) {
    open_planner();
    for (const char* part_name : {"Text1", "calendar_grid"}) {
        part(part_name).setFocus();
        click_cell(may_15);
        part(part_name).setFocus();
        press("Right");
        EXPECT_EQ(told_date(), "5/16/2024") << part_name;
        press("Down");
        EXPECT_EQ(told_date(), "5/23/2024");
        press("Left");
        EXPECT_EQ(told_date(), "5/22/2024");
        press("Up");
        EXPECT_EQ(told_date(), "5/15/2024");
        EXPECT_EQ(focused(), part_name);
    }
}

TEST_F(PlannerCalendar, ArrowKeysStayWithinTheCells) {
    open_planner();
    click_cell(april_28);
    press("Left");
    press("Up");
    EXPECT_EQ(told_date(), "4/28/2024");
    click_cell(june_8);
    press("Right");
    press("Down");
    EXPECT_EQ(told_date(), "6/8/2024");
}

TEST_F(PlannerCalendar, PageKeysTurnTheMonthAndTheDateComesAlong) {
    open_planner();
    click_cell(33);  // 31 May
    press("PgDown");
    EXPECT_EQ(month_shown(), "June 2024");
    EXPECT_EQ(told_date(), "6/30/2024");
    EXPECT_EQ(grid().cell(grid().selected_cell()).date, QDate(2024, 6, 30));
    EXPECT_EQ(label("Label6"), "Sunday - 06/30/2024");
    press("PgUp");
    EXPECT_EQ(told_date(), "5/30/2024");
}

TEST_F(PlannerCalendar, MonthsTurnOverTheYear) {
    open_planner();
    for (int month = 0; month < 8; ++month) click("next_month");
    EXPECT_EQ(month_shown(), "January 2025");
    click("previous_month");
    EXPECT_EQ(month_shown(), "December 2024");
    EXPECT_EQ(told_date(), "12/15/2024");
    EXPECT_EQ(grid().cell(0).date, QDate(2024, 12, 1));
}

TEST_F(PlannerCalendar, TheMonthBoxChoosesAMonth) {
    open_planner();
    part("Combo1").setFocus();
    press("Down");
    EXPECT_EQ(month_shown(), "June 2024");
    EXPECT_EQ(told_date(), "6/15/2024");
    EXPECT_EQ(part<QComboBox>("Combo1").count(), 12);
}

TEST_F(PlannerCalendar, TheYearIsTyped) {
    open_planner();
    put_day(1, 2, 29);
    part("Combo1").setFocus();
    for (int month = 0; month < 3; ++month) press("Up");
    click_cell(32);  // 29 February 2024
    EXPECT_EQ(told_date(), "2/29/2024");
    part<QSpinBox>("FlatScrollBar2").setFocus();
    part<QSpinBox>("FlatScrollBar2").selectAll();
    type("2023");
    press("Return");
    EXPECT_EQ(month_shown(), "February 2023");
    EXPECT_EQ(told_date(), "2/28/2023");
}

TEST_F(PlannerCalendar, TheFirstAndTheLastYearAreTheBorders) {
    open_planner();
    auto& year = part<QSpinBox>("FlatScrollBar2");
    year.setValue(year.minimum());
    for (int month = 0; month < 6; ++month) click("previous_month");
    EXPECT_EQ(month_shown(), "January 1900");
    year.setValue(year.maximum());
    for (int month = 0; month < 13; ++month) click("next_month");
    EXPECT_EQ(month_shown(), "December 9998");
    click_cell(june_8);
    EXPECT_EQ(selected_year, 9999);
}

TEST_F(PlannerCalendar, TheWheelTurnsNoMonthInPassing) {
    open_planner();
    auto& box = part<QComboBox>("Combo1");
    QWheelEvent turn(QPointF(5, 5), box.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), {}, {},
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&box, &turn);
    EXPECT_EQ(month_shown(), "May 2024");
}

TEST_F(PlannerCalendar, TodayComesBackByItsButton) {
    open_planner();
    click("next_month");
    click_cell(3);
    trigger("Toolbar1_2");
    EXPECT_EQ(month_shown(), "May 2024");
    EXPECT_EQ(label("Label6"), "Wednesday - 05/15/2024");
    EXPECT_EQ(grid().selected_cell(), may_15);
}

// Sunday, 19 May, is the first day of the week of the 20th.
TEST_F(PlannerCalendar, TheWeekAndTheMonthOfTheSelectedDateArePages) {
    ASSERT_TRUE(lay_out_pages(shipped_page_file));
    open_planner();
    click_cell(may_20);
    const std::pair<const char*, const char*> pages[] = {{"Toolbar1_1", "cal"},
                                                         {"Toolbar1_3", "calm"}};
    for (const auto& [button, name] : pages) {
        trigger(button);
        EXPECT_EQ(html_path, platform.system.program + "/dat/" + name + ".htm");
        EXPECT_EQ(preview_kind, name == std::string("cal") ? 0 : 2);
    }
    EXPECT_NE(page("cal").find("May 19, 2024 - May 25, 2024"), std::string::npos);
    EXPECT_NE(page("calm").find("May 2024"), std::string::npos);
}

TEST_F(PlannerCalendar, APageThatCannotBeMadeIsTold) {
    html_path = "before";
    open_planner();
    platform.boxes.expect_message("Tavernook error: rt6:76. Contact Brenwyk Software.");
    trigger("Toolbar1_1");
    EXPECT_EQ(html_path, "before");
    EXPECT_EQ(panel(1), "The page could not be made. There is nothing to print.");
}

TEST_F(PlannerCalendar, Mode100KeepsTheMonthAndAnyOtherShowsTheDate) {
    open_planner();
    selected_month = 8;
    planner().CalendarUpdate(100);
    EXPECT_EQ(month_shown(), "May 2024");
    planner().CalendarUpdate(0);
    EXPECT_EQ(month_shown(), "August 2024");
}

TEST_F(PlannerCalendar, LookingAtEmptyDatesCreatesNoDay) {
    open_planner();
    for (int cell = 0; cell < calendar_cell_count; ++cell) click_cell(cell);
    press("PgDown");
    for (i16 slot = 1; slot <= day_capacity; ++slot) EXPECT_EQ(days[slot], DayRecord{});
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(PlannerCalendar, TheFirstPlanOfADateGivesItsCellAPicture) {
    open_planner();
    const QImage before = picture_of(may_15);
    EXPECT_FALSE(grid().cell(may_15).planned);
    planner().add_meal(soup, 1);
    EXPECT_TRUE(grid().cell(may_15).planned);
    EXPECT_EQ(grid().cell(may_15).names, QStringList{"Soup"});
    EXPECT_NE(picture_of(may_15), before);
}

TEST_F(PlannerCalendar, AnAuditedDayLooksAndIsToldDifferently) {
    put_day(1, 5, 14);
    open_planner();
    const QImage planned = picture_of(may_15 - 1);
    EXPECT_EQ(grid().cell_name(may_15 - 1), "Tuesday, May 14, planned");
    days[1].audited = -1;
    const QImage audited = picture_of(may_15 - 1);
    EXPECT_EQ(grid().cell_name(may_15 - 1), "Tuesday, May 14, audited");
    EXPECT_NE(audited, planned);
    days[1].in_use = 0;
    EXPECT_NE(picture_of(may_15 - 1), planned);
    EXPECT_NE(picture_of(may_15 - 1), audited);
    EXPECT_EQ(grid().cell_name(may_15 - 1), "Tuesday, May 14");
    EXPECT_EQ(grid().cell_name(may_15), "Wednesday, May 15, today");
}

TEST_F(PlannerCalendar, DatesAreToldInTheUsersOrder) {
    open_planner();
    date_day_first = 1;
    EXPECT_EQ(grid().cell_name(may_20), "Monday, 20 May");
}

TEST_F(PlannerCalendar, ACellNamesWhatIsPlannedAndCountsTheRest) {
    put_day(1, 5, 20);
    for (std::size_t place = 1; place <= 11; ++place) put_recipe_on(1, place, soup, 1);
    put_item_on(1, 30, milk, 5);
    open_planner();
    EXPECT_EQ(grid().cell(may_20).entries, 12);
    EXPECT_EQ(grid().cell_description(may_20),
              "Soup; Soup; Soup; Soup; Soup; Soup; Soup; Soup; and 4 more");
    put_day(2, 5, 16);
    put_recipe_on(2, 3, pie, 1);
    put_item_on(2, 1, milk, 5);
    planner().CalendarUpdate(100);
    EXPECT_EQ(grid().cell_description(may_16), "Pie; Milk");
    EXPECT_EQ(grid().cell_description(may_15), "");
}

TEST_F(PlannerCalendar, DaysOfNoCalendarStandNowhereAndNeverCrash) {
    put_day(1, 13, 5);
    put_day(2, 2, 31);
    put_day(3, 0, 0);
    put_day(4, 5, 20);
    days[4].year = 24;
    put_day(5, 5, 21);
    put_recipe_on(5, 1, 5000, 1);
    put_recipe_on(5, 2, -4, 1);
    put_item_on(5, 1, 32000, 1);
    put_day(6, 5, 22);
    days[6].year = -2024;
    open_planner();
    int planned = 0;
    for (int cell = 0; cell < calendar_cell_count; ++cell) planned += grid().cell(cell).planned;
    EXPECT_EQ(planned, 1);
    grid().grab();
    click_cell(may_20 + 1);
    EXPECT_EQ(day_list().model()->rowCount(), 3);
}

TEST_F(PlannerCalendar, OfADateThatIsHeldTwiceTheLastDayCounts) {
    put_day(2, 5, 20);
    put_recipe_on(2, 1, soup, 1);
    put_day(5, 5, 20, -1);
    put_recipe_on(5, 1, pie, 1);
    open_planner();
    EXPECT_EQ(grid().cell(may_20).names, QStringList{"Pie"});
    EXPECT_TRUE(grid().cell(may_20).audited);
    click_cell(may_20);
    EXPECT_EQ(current_day, 5);
}

TEST_F(PlannerCalendar, ReopeningTheScreenShowsTodayAndForgetsTheClipboard) {
    put_day(1, 5, 20);
    open_planner();
    click_cell(may_20);
    press("Ctrl+C");
    EXPECT_TRUE(day_clipboard.filled);
    screen->parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(meal_plan(), nullptr);
    open_planner();
    EXPECT_EQ(told_date(), "5/15/2024");
    EXPECT_FALSE(day_clipboard.filled);
}

TEST_F(PlannerCalendar, AnAuditMarksTheDaysAndTheDateStays) {
    put_day(1, 5, 14);
    open_planner();
    click_cell(may_20);
    action("toolbar_2_6").trigger();
    EXPECT_TRUE(grid().cell(may_15 - 1).audited);
    EXPECT_EQ(told_date(), "5/20/2024");
}

}  // namespace
}  // namespace tavernook
