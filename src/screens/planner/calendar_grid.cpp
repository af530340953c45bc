#include "screens/planner/calendar_grid.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QLocale>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include "screens/parts/icons.h"
#include "screens/parts/plan_names.h"
#include "screens/planner/calendar_grid_access.h"

namespace tavernook {

namespace {

constexpr int columns = 7;
constexpr int rows = calendar_cell_count / columns;

bool is_cell(int number) {
    return number >= 0 && number < calendar_cell_count;
}

void tell(QWidget& grid, QAccessible::Event what, int cell) {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent event(&grid, what);
    event.setChild(cell);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

CalendarGrid::CalendarGrid(QWidget* parent)
    : QWidget(parent), marks_{icon(QStringLiteral("planned")), icon(QStringLiteral("audited"))} {
    install_calendar_access();
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CalendarGrid::set_cells(const CalendarCells& cells) {
    cells_ = cells;
    update();
}

void CalendarGrid::select_cell(int number) {
    const int wanted = is_cell(number) ? number : -1;
    if (wanted == selected_) return;
    selected_ = wanted;
    update();
    if (selected_ < 0) return;
    tell(*this, QAccessible::Selection, selected_);
    if (hasFocus()) tell(*this, QAccessible::Focus, selected_);
}

void CalendarGrid::choose(int number) {
    if (!is_cell(number)) return;
    select_cell(number);
    Q_EMIT chosen(number);
}

// --- places ------------------------------------------------------------------------------------

QRect CalendarGrid::cell_rect(int number) const {
    const int column = number % columns;
    const int row = number / columns;
    const int top = header_height();
    const int room = height() - top;
    const int left = width() * column / columns;
    const int right = width() * (column + 1) / columns;
    const int upper = top + room * row / rows;
    const int lower = top + room * (row + 1) / rows;
    const QRect rect(left, upper, right - left, lower - upper);
    return QStyle::visualRect(layoutDirection(), this->rect(), rect);
}

int CalendarGrid::cell_at(const QPoint& place) const {
    for (int number = 0; number < calendar_cell_count; ++number) {
        if (cell_rect(number).contains(place)) return number;
    }
    return -1;
}

int CalendarGrid::header_height() const {
    return fontMetrics().height() * 3 / 2;
}

QSize CalendarGrid::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    return {columns * metrics.averageCharWidth() * 16,
            header_height() + rows * metrics.height() * 5};
}

// A number and its mark always find room.
QSize CalendarGrid::minimumSizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    const int cell_width =
        metrics.horizontalAdvance(QStringLiteral("00")) + metrics.height() + 4 * calendar_inset;
    const int cell_height = metrics.height() + 3 * calendar_inset;
    return {columns * cell_width, header_height() + rows * cell_height};
}

void CalendarGrid::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    CalendarPainter(*this, marks_, painter).paint(event->rect());
}

// --- words -------------------------------------------------------------------------------------

QString CalendarGrid::column_name(int column, QLocale::FormatType form) {
    return QLocale().standaloneDayName(column == 0 ? 7 : column, form);
}

QString CalendarGrid::cell_name(int number) const {
    if (!is_cell(number)) return {};
    const CalendarCell& shown = cell(number);
    QStringList parts{spoken_date(shown.date)};
    if (shown.today) parts.append(tr("today"));
    if (shown.audited) {
        parts.append(tr("audited"));
    } else if (shown.planned) {
        parts.append(tr("planned"));
    }
    return parts.join(QLatin1String(", "));
}

QString CalendarGrid::cell_description(int number) const {
    if (!is_cell(number) || cell(number).entries == 0) return {};
    const CalendarCell& shown = cell(number);
    QString text = shown.names.join(QLatin1String("; "));
    const auto more = shown.entries - shown.names.size();
    if (more > 0) text += tr("; and %1 more").arg(more);
    return text;
}

// --- what the user does ------------------------------------------------------------------------

bool CalendarGrid::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int number = cell_at(help->pos());
    if (number < 0) {
        QToolTip::hideText();
        return true;
    }
    QStringList lines{cell_name(number)};
    for (const QString& name : cell(number).names) lines.append(name);
    const auto more = cell(number).entries - cell(number).names.size();
    if (more > 0) lines.append(tr("and %1 more").arg(more));
    QToolTip::showText(help->globalPos(), lines.join(QLatin1Char('\n')), this, cell_rect(number));
    return true;
}

void CalendarGrid::mousePressEvent(QMouseEvent* event) {
    const int number = cell_at(event->position().toPoint());
    if (number >= 0) choose(number);
}

// The key of the context menu opens it at the marked cell.
void CalendarGrid::contextMenuEvent(QContextMenuEvent* event) {
    const bool by_key = event->reason() == QContextMenuEvent::Keyboard;
    const int number = by_key ? selected_ : cell_at(event->pos());
    if (number < 0) return;
    const QPoint place = by_key ? mapToGlobal(cell_rect(number).center()) : event->globalPos();
    Q_EMIT menu_wanted(number, place);
}

void CalendarGrid::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
    if (selected_ >= 0) tell(*this, QAccessible::Focus, selected_);
}

void CalendarGrid::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

// --- dropping ----------------------------------------------------------------------------------

void CalendarGrid::mark_drop(int number) {
    if (drop_cell_ == number) return;
    drop_cell_ = number;
    update();
}

void CalendarGrid::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasText()) event->acceptProposedAction();
}

void CalendarGrid::dragMoveEvent(QDragMoveEvent* event) {
    const int number = cell_at(event->position().toPoint());
    const bool fits = number >= 0 && may_drop_ && may_drop_(number, event->mimeData()->text());
    mark_drop(fits ? number : -1);
    event->setAccepted(fits);
}

void CalendarGrid::dragLeaveEvent(QDragLeaveEvent*) {
    mark_drop(-1);
}

void CalendarGrid::dropEvent(QDropEvent* event) {
    mark_drop(-1);
    const int number = cell_at(event->position().toPoint());
    const QString text = event->mimeData()->text();
    const bool fits = number >= 0 && may_drop_ && may_drop_(number, text);
    event->setAccepted(fits);
    if (fits) Q_EMIT dropped(number, text);
}

}  // namespace tavernook
