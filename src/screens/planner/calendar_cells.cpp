#include "screens/planner/calendar_cells.h"

#include "core/project_data.h"
#include "screens/parts/plan_names.h"

namespace tavernook {

namespace {

using Places = std::array<i16, day_places + 1>;

void add_names(CalendarCell& cell, const Places& places, QString (*name)(i16)) {
    for (std::size_t place = 1; place <= day_places; ++place) {
        if (places[place] == 0) continue;
        ++cell.entries;
        if (cell.names.size() < calendar_cell_names) cell.names.append(name(places[place]));
    }
}

void fill(CalendarCell& cell, const DayRecord& day) {
    cell.planned = true;
    cell.audited = day.audited != 0;
    cell.entries = 0;
    cell.names.clear();
    add_names(cell, day.planned_meal, recipe_name);
    add_names(cell, day.planned_item, item_name);
}

void fill_from_days(CalendarCells& cells) {
    const QDate first = cells.front().date;
    for (i16 slot = 1; slot <= day_capacity; ++slot) {
        const DayRecord& day = days[slot];
        if (day.in_use != 1) continue;
        const QDate date(day.year, day.month, day.day);
        if (!date.isValid() || day.year < 1) continue;
        const qint64 cell = first.daysTo(date);
        if (cell >= 0 && cell < calendar_cell_count)
            fill(cells[static_cast<std::size_t>(cell)], day);
    }
}

}  // namespace

QDate first_cell_date(const QDate& month) {
    const QDate first(month.year(), month.month(), 1);
    return first.addDays(-(first.dayOfWeek() % 7));  // 7 is Sunday
}

CalendarCells calendar_cells(const QDate& month, const QDate& today) {
    CalendarCells cells;
    QDate date = first_cell_date(month);
    for (CalendarCell& cell : cells) {
        cell.date = date;
        cell.in_month = date.month() == month.month();
        cell.today = date == today;
        date = date.addDays(1);
    }
    fill_from_days(cells);
    return cells;
}

}  // namespace tavernook
