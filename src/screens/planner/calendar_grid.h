// Six weeks of a calendar, drawn by itself: each cell with the number of its day, a mark and the
// first names of what is planned. It owns no facts; what is done to it comes out as a signal.
#pragma once

#include <QIcon>
#include <QLocale>
#include <QWidget>
#include <functional>

#include "screens/planner/calendar_cells.h"

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

    // As the user does by a click.
    void choose(int number);

    void set_drop_rule(DropRule rule) { may_drop_ = std::move(rule); }

    int cell_at(const QPoint& place) const;  // -1 outside the cells
    QRect cell_rect(int number) const;

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
    int header_height() const;
    QFont name_font() const;
    int icon_side() const;
    int widest_weekday() const;
    QColor mixed(QPalette::ColorRole role, QPalette::ColorRole other, double share) const;
    QColor background_of(int number) const;

    void paint_header(QPainter& painter) const;
    void paint_cell(QPainter& painter, int number) const;
    void paint_number(QPainter& painter, const QRect& line, const CalendarCell& cell) const;
    void paint_names(QPainter& painter, QRect area, const CalendarCell& cell) const;
    void paint_frame(QPainter& painter, const QRect& rect) const;
    void mark_drop(int number);

    QIcon planned_mark_;
    QIcon audited_mark_;
    CalendarCells cells_{};
    int selected_ = -1;
    int drop_cell_ = -1;
    DropRule may_drop_;
};

}  // namespace tavernook
