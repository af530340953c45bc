// Six weeks of a calendar, drawn by itself: each cell with the number of its day, a mark and the
// first names of what is planned. It owns no facts; what is done to it comes out as a signal.
#pragma once

#include <QLocale>
#include <QWidget>
#include <functional>

#include "screens/planner/calendar_cells.h"
#include "screens/planner/calendar_painter.h"

namespace tavernook {

class CalendarGrid : public QWidget {
    Q_OBJECT

  public:
    // Whether a text may be dropped on a cell.
    using DropRule = std::function<bool(int cell, const QString& text)>;

    explicit CalendarGrid(QWidget* parent = nullptr);

    void set_cells(const CalendarCells& cells);
    const CalendarCell& cell(int number) const { return cells_[static_cast<std::size_t>(number)]; }

    // Marks the cell, -1 for none, without a signal; assistive technology is told.
    void select_cell(int number);
    int selected_cell() const { return selected_; }

    int drop_cell() const { return drop_cell_; }  // that takes what is dragged over it; -1 = none

    // As the user does by a click.
    void choose(int number);

    void set_drop_rule(DropRule rule) { may_drop_ = std::move(rule); }

    int cell_at(const QPoint& place) const;  // -1 outside the cells
    QRect cell_rect(int number) const;
    int header_height() const;

    // For assistive technology: "Tuesday, November 24, planned" and what is planned.
    QString cell_name(int number) const;
    QString cell_description(int number) const;

    // The weekday.
    static QString column_name(int column, QLocale::FormatType form = QLocale::LongFormat);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    void chosen(int cell);
    void menu_wanted(int cell, const QPoint& place);  // place on the screen
    void dropped(int cell, const QString& text);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void mark_drop(int number);

    CalendarMarks marks_;
    CalendarCells cells_{};
    int selected_ = -1;
    int drop_cell_ = -1;
    DropRule may_drop_;
};

}  // namespace tavernook
