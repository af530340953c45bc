#include "reports/pages/calendar_pages.h"

#include <string>

#include "basics/number_text.h"
#include "core/money_text.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/rows.h"
#include "core/trap.h"
#include "planning/day_plans.h"
#include "planning/day_totals.h"
#include "platform/platform.h"
#include "reports/html/BuildHTML.h"
#include "reports/pages/page_files.h"
#include "reports/pages/placeholders.h"

namespace tavernook {

namespace {

constexpr int days_of_a_week = 7;
constexpr int cells_of_a_month = 42;

constexpr const char* bullet = "<img border=\"0\" src=\"point.gif\" width=\"10\" height=\"10\">";

struct DayFigures {
    std::string cost = "-";
    std::string fat = "-";
    std::string calories = "-";
};

DayFigures figures_of(const DayTotals& totals) {
    return {money_text(totals.cost, "##0.0#"), format_number(totals.fat, "##0.0") + " g",
            format_number(totals.calories, "####0") + " cal"};
}

std::string lines_of(const DayRecord& day, i16 size) {
    std::string lines;
    for (std::size_t place = 1; place <= day_places; ++place) {
        const i16 recipe = day.planned_meal[place];
        if (!is_live_row(meals, recipe)) continue;
        append_line(lines, {meals[recipe].name.right_trimmed(), bullet}, size);
    }
    for (std::size_t place = 1; place <= day_places; ++place) {
        const i16 item = day.planned_item[place];
        if (!is_live_row(items, item)) continue;
        append_line(lines, {"- ", items[item].name.right_trimmed()}, size);
    }
    return lines;
}

// The values of one page, a day at a time.
class CalendarPage {
  public:
    explicit CalendarPage(i16 size) : size_(size) {}

    void add_day(int cell, Date date) {
        const std::string n = std::to_string(cell);
        const CivilDate civil = civil_from_date(date);
        const std::vector<i16> slots = live_days_of(civil);
        DayFigures figures = figures_of({});
        std::string lines;
        if (!slots.empty()) {
            const i16 slot = slots.back();
            lines = lines_of(days[slot], size_);
            figures = {};
            tried([&] { figures = figures_of(day_totals(days[slot], day_quantities[slot])); });
        }
        is_empty_ = is_empty_ && lines.empty();
        values[n] = format_number(civil.day, "##");
        values["ct" + n] = std::move(lines);
        values["$" + n] = std::move(figures.cost);
        values["f" + n] = std::move(figures.fat);
        values["c" + n] = std::move(figures.calories);
    }

    void write(const std::string& name, const char* note) {
        values["note"] = is_empty_ ? note : "";
        const std::string path = in_program_folder("dat/" + name);
        replace_file(path + ".htm", with_first_replaced(file_bytes(path + ".dat"), values));
    }

    PageValues values;

  private:
    i16 size_;
    bool is_empty_ = true;
};

Date selected_date() {
    if (selected_month == 0) return date_alone(platform_clock().now());
    return date_from_civil(selected_year, selected_month, selected_day);
}

Date sunday_of(Date date) {
    return date - (weekday(date) - 1);
}

std::string long_date(Date date) {
    return format_date(date, date_day_first == 1 ? "d mmmm yyyy" : "mmmm d, yyyy");
}

void write_week(i16 size) {
    CalendarPage page(size);
    const Date first = sunday_of(selected_date());
    for (int day = 0; day < days_of_a_week; ++day) {
        page.values[std::string(1, static_cast<char>('a' + day))] = format_date(first + day, "ddd");
        page.add_day(day + 1, first + day);
    }
    page.values["title"] = long_date(first) + " - " + long_date(first + days_of_a_week - 1);
    page.write("cal", "Nothing is planned for this week.");
}

void write_month(Date shown, i16 size) {
    CalendarPage page(size);
    const CivilDate month = civil_from_date(shown);
    const Date first_of_month = date_from_civil(month.year, month.month, 1);
    const Date first = sunday_of(first_of_month);
    for (int day = 0; day < cells_of_a_month; ++day) {
        const bool is_outside = civil_from_date(first + day).month != month.month;
        page.values["o" + std::to_string(day + 1)] = is_outside ? "out" : "";
        page.add_day(day + 1, first + day);
    }
    page.values["title"] = format_date(first_of_month, "mmmm yyyy");
    page.write("calm", "Nothing is planned for this month.");
}

}  // namespace

bool Build_HTMLCal(i16 size) noexcept {
    return trap_in_module([&] { write_week(size); });
}

bool Build_HTMLCal_Month(i16 size, Date shown) noexcept {
    return trap_in_module([&] { write_month(shown == 0 ? selected_date() : shown, size); });
}

}  // namespace tavernook
