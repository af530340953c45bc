// What the calendar shows of six weeks: 42 cells, the first being the Sunday on or before the first
// of the month.
#pragma once

#include <QDate>
#include <QStringList>
#include <array>

namespace tavernook {

inline constexpr int calendar_cell_count = 42;
inline constexpr int calendar_cell_names = 8;

struct CalendarCell {
    QDate date;
    bool in_month = false;
    bool today = false;
    bool planned = false;  // the date has a day in the table
    bool audited = false;
    int entries = 0;    // recipes and items planned on it
    QStringList names;  // of the first of them, at most calendar_cell_names
};

using CalendarCells = std::array<CalendarCell, calendar_cell_count>;

// The date of cell 0 for the month of that date.
QDate first_cell_date(const QDate& month);

// One pass over the days. Days of dates that no calendar has stand nowhere; where a damaged file
// holds a date twice, the last slot counts.
CalendarCells calendar_cells(const QDate& month, const QDate& today);

}  // namespace tavernook
