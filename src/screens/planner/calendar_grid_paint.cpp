// How the calendar is drawn: colours of the palette only, sizes from the font.
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>

#include "screens/planner/calendar_grid.h"

namespace tavernook {

namespace {

constexpr int columns = 7;
constexpr int inset = 4;

}  // namespace

int CalendarGrid::header_height() const {
    return fontMetrics().height() * 3 / 2;
}

QFont CalendarGrid::name_font() const {
    QFont small = font();
    small.setPointSizeF(std::max(1.0, small.pointSizeF() * 0.9));
    return small;
}

int CalendarGrid::icon_side() const {
    return fontMetrics().height();
}

QSize CalendarGrid::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    return {columns * metrics.averageCharWidth() * 16, header_height() + 6 * metrics.height() * 5};
}

// A number and its mark always find room.
QSize CalendarGrid::minimumSizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    const int cell_width =
        metrics.horizontalAdvance(QStringLiteral("00")) + icon_side() + 4 * inset;
    const int cell_height = metrics.height() + 3 * inset;
    return {columns * cell_width, header_height() + 6 * cell_height};
}

QColor CalendarGrid::mixed(QPalette::ColorRole role, QPalette::ColorRole other,
                           double share) const {
    const QColor one = palette().color(role);
    const QColor two = palette().color(other);
    const auto mix = [share](float a, float b) {
        return static_cast<float>(a * (1 - share) + b * share);
    };
    return QColor::fromRgbF(mix(one.redF(), two.redF()), mix(one.greenF(), two.greenF()),
                            mix(one.blueF(), two.blueF()));
}

QColor CalendarGrid::background_of(int number) const {
    if (number == drop_cell_) return mixed(QPalette::Base, QPalette::Highlight, 0.45);
    if (number == selected_) return mixed(QPalette::Base, QPalette::Highlight, 0.25);
    return palette().color(cell(number).in_month ? QPalette::Base : QPalette::Window);
}

void CalendarGrid::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    paint_header(painter);
    for (int number = 0; number < calendar_cell_count; ++number) {
        if (cell_rect(number).intersects(event->rect())) paint_cell(painter, number);
    }
    painter.setPen(mixed(QPalette::Base, QPalette::Text, 0.25));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, header_height(), -1, -1));
    // On top of its neighbours.
    if (selected_ >= 0) paint_frame(painter, cell_rect(selected_));
}

void CalendarGrid::paint_header(QPainter& painter) const {
    const QRect band(0, 0, width(), header_height());
    painter.fillRect(band, palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::WindowText));
    const QLocale::FormatType form = widest_weekday() > width() / columns - 2 * inset
                                         ? QLocale::ShortFormat
                                         : QLocale::LongFormat;
    for (int column = 0; column < columns; ++column) {
        const QRect cell = cell_rect(column);
        painter.drawText(QRect(cell.left(), 0, cell.width(), band.height()), Qt::AlignCenter,
                         column_name(column, form));
    }
}

int CalendarGrid::widest_weekday() const {
    int widest = 0;
    for (int column = 0; column < columns; ++column) {
        const QString name = column_name(column, QLocale::LongFormat);
        widest = std::max(widest, fontMetrics().horizontalAdvance(name));
    }
    return widest;
}

void CalendarGrid::paint_cell(QPainter& painter, int number) const {
    const QRect rect = cell_rect(number);
    painter.fillRect(rect, background_of(number));
    painter.setPen(mixed(QPalette::Base, QPalette::Text, 0.25));
    painter.drawLine(rect.topLeft(), rect.topRight());
    painter.drawLine(rect.topLeft(), rect.bottomLeft());
    const QRect inner = rect.adjusted(inset, inset, -inset, -inset);
    const CalendarCell& shown = cell(number);
    const QRect line(inner.left(), inner.top(), inner.width(), fontMetrics().height());
    paint_number(painter, line, shown);
    QRect rest = inner;
    rest.setTop(line.bottom() + 3);
    paint_names(painter, rest, shown);
}

// The number at one end of the line, the mark at the other; "Today" between them where it fits.
void CalendarGrid::paint_number(QPainter& painter, const QRect& line,
                                const CalendarCell& cell) const {
    const QString number = QString::number(cell.date.day());
    QFont bold = font();
    bold.setBold(cell.in_month);
    painter.setFont(bold);
    const int wide = QFontMetrics(bold).horizontalAdvance(QStringLiteral("00")) + 2 * inset;
    const QRect badge = QStyle::visualRect(layoutDirection(), line,
                                           QRect(line.topLeft(), QSize(wide, line.height())));
    QColor text = cell.in_month ? palette().color(QPalette::Text)
                                : mixed(QPalette::Window, QPalette::WindowText, 0.75);
    if (cell.today) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::Text));
        painter.drawRoundedRect(badge, inset, inset);
        painter.setRenderHint(QPainter::Antialiasing, false);
        text = palette().color(QPalette::Base);
    }
    painter.setPen(text);
    painter.drawText(badge, Qt::AlignCenter, number);
    painter.setFont(name_font());
    const int side = icon_side();
    if (cell.planned) {
        const QRect place = QStyle::visualRect(
            layoutDirection(), line,
            QRect(line.right() - side + 1, line.top() + (line.height() - side) / 2, side, side));
        const QIcon& mark = cell.audited ? audited_mark_ : planned_mark_;
        painter.drawPixmap(place, mark.pixmap(place.size(), devicePixelRatioF()));
    }
    const QString today = tr("Today");
    const QRect middle = QStyle::visualRect(
        layoutDirection(), line, line.adjusted(wide + inset, 0, cell.planned ? -side : 0, 0));
    if (cell.today && QFontMetrics(name_font()).horizontalAdvance(today) <= middle.width()) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(middle, Qt::AlignLeading | Qt::AlignVCenter, today);
    }
}

// As many whole lines as there is room for; the last one counts what is not shown.
void CalendarGrid::paint_names(QPainter& painter, QRect area, const CalendarCell& cell) const {
    const QFontMetrics metrics(name_font());
    const int lines = area.height() / metrics.height();
    if (lines < 1 || cell.entries == 0) return;
    painter.setPen(cell.in_month ? palette().color(QPalette::Text)
                                 : mixed(QPalette::Window, QPalette::WindowText, 0.75));
    area.setHeight(metrics.height());
    const int names = static_cast<int>(cell.names.size());
    const int shown =
        cell.entries <= std::min(lines, names) ? cell.entries : std::min(lines - 1, names);
    for (int n = 0; n < shown; ++n) {
        painter.drawText(area, Qt::AlignLeading | Qt::AlignVCenter,
                         metrics.elidedText(cell.names[n], Qt::ElideRight, area.width()));
        area.translate(0, metrics.height());
    }
    if (shown == cell.entries) return;
    const QString rest =
        shown == 0 ? tr("%1 planned").arg(cell.entries) : tr("+%1 more").arg(cell.entries - shown);
    painter.drawText(area, Qt::AlignLeading | Qt::AlignVCenter,
                     metrics.elidedText(rest, Qt::ElideRight, area.width()));
}

// Thicker while the keys go to the calendar.
void CalendarGrid::paint_frame(QPainter& painter, const QRect& rect) const {
    const int thick = hasFocus() ? 4 : 2;
    painter.setPen(QPen(palette().color(QPalette::Highlight), thick, Qt::SolidLine, Qt::SquareCap,
                        Qt::MiterJoin));
    const int half = thick / 2;
    painter.drawRect(rect.adjusted(half, half, -half, -half));
}

}  // namespace tavernook
