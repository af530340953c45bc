// How the calendar is drawn: colours of the palette only, sizes from the font.
#pragma once

#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QPalette>

namespace tavernook {

class CalendarGrid;
struct CalendarCell;

// What marks a planned and an audited day.
struct CalendarMarks {
    QIcon planned;
    QIcon audited;
};

inline constexpr int calendar_inset = 4;  // of what stands in a cell

class CalendarPainter {
  public:
    CalendarPainter(const CalendarGrid& grid, const CalendarMarks& marks, QPainter& painter);

    // The header, and the cells that touch the area.
    void paint(const QRect& area);

  private:
    void paint_header();
    void paint_cell(int number);
    void paint_number(const QRect& line, const CalendarCell& cell);
    void paint_badge(const QRect& badge, const CalendarCell& cell);
    void paint_names(QRect area, const CalendarCell& cell);
    void paint_frame(const QRect& rect);

    QFont name_font() const;
    int widest_weekday() const;
    QRect mirrored(const QRect& within, const QRect& rect) const;
    QColor mixed(QPalette::ColorRole role, QPalette::ColorRole other, double share) const;
    QColor background_of(int number) const;
    QColor text_colour(const CalendarCell& cell) const;

    const CalendarGrid& grid_;
    const CalendarMarks& marks_;
    QPainter& painter_;
};

}  // namespace tavernook
