// An open project whose planner stands on a date.
#pragma once

#include "core/program_state.h"
#include "planning/day_clipboard.h"
#include "planning/day_plans.h"
#include "recipes/recipes_fixture.h"

namespace tavernook {

inline constexpr const char* days_full_warning =
    "No more Days left.  It is recommended that you delete some of the older days to allow for "
    "more days.";
inline constexpr const char* item_stock_question =
    "You have chosen to edit an audited day.  Do you want the inventory for this item to be "
    "adjusted as a result?";
inline constexpr const char* meal_stock_question = audited_day_question;

using Texts = std::vector<std::string>;

inline std::string copy_question(const std::string& date) {
    return "The day of " + date + " is already being used.  Do you want to copy over it?";
}

// Looks for its day as the planner does.
class PlannerScreen : public FakeMealPlan {
  public:
    using FakeMealPlan::FakeMealPlan;
    void populate_day() override {
        FakeMealPlan::populate_day();
        open_day();
    }
};

class PlanningTest : public RecipesTest {
  protected:
    static Date june(int day) { return date_from_civil(2024, 6, day); }

    static void select(i16 month, i16 day, i16 year) {
        selected_month = month;
        selected_day = day;
        selected_year = year;
    }

    // 2024, and the day is opened.
    static void open_june(i16 day) {
        select(6, day, 2024);
        open_day();
    }

    static void plan_item(i16 day, std::size_t place, i16 item, f64 quantity) {
        days[day].planned_item[place] = item;
        day_quantities[day].item_quantity[place] = quantity;
    }

    // Slots 1 to last, all on dates of the years from 1990 on.
    static void fill_days(i16 last) {
        for (i16 slot = 1; slot <= last; ++slot) {
            const CivilDate date = civil_from_date(date_from_civil(1990, 1, 1) + slot);
            add_day(slot, static_cast<i16>(date.month), static_cast<i16>(date.day),
                    static_cast<i16>(date.year));
        }
    }

    static void expect_date(i16 slot, i16 month, i16 day, i16 year) {
        EXPECT_EQ(days[slot].in_use, 1);
        EXPECT_EQ(days[slot].month, month);
        EXPECT_EQ(days[slot].day, day);
        EXPECT_EQ(days[slot].year, year);
    }

    // Nothing of a day, but for the quantities, which stay.
    static void expect_free(i16 slot) { EXPECT_EQ(days[slot], DayRecord{}) << "slot " << slot; }
};

}  // namespace tavernook
