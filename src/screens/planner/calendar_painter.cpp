#include "screens/planner/calendar_painter.h"

#include <QStyle>
#include <algorithm>

#include "screens/planner/calendar_grid.h"

namespace tavernook {

namespace {

constexpr int columns = 7;
constexpr int inset = calendar_inset;

}  // namespace

CalendarPainter::CalendarPainter(const CalendarGrid& grid, const CalendarMarks& marks,
                                 QPainter& painter)
    : grid_(grid), marks_(marks), painter_(painter) {}

void CalendarPainter::paint(const QRect& area) {
    paint_header();
    for (int number = 0; number < calendar_cell_count; ++number) {
        if (grid_.cell_rect(number).intersects(area)) paint_cell(number);
    }
    painter_.setPen(mixed(QPalette::Base, QPalette::Text, 0.25));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(grid_.rect().adjusted(0, grid_.header_height(), -1, -1));
    // On top of its neighbours.
    if (grid_.selected_cell() >= 0) paint_frame(grid_.cell_rect(grid_.selected_cell()));
}

// --- colours and sizes -------------------------------------------------------------------------

QFont CalendarPainter::name_font() const {
    QFont small = grid_.font();
    small.setPointSizeF(std::max(1.0, small.pointSizeF() * 0.9));
    return small;
}

int CalendarPainter::widest_weekday() const {
    int widest = 0;
    for (int column = 0; column < columns; ++column) {
        const QString name = CalendarGrid::column_name(column, QLocale::LongFormat);
        widest = std::max(widest, grid_.fontMetrics().horizontalAdvance(name));
    }
    return widest;
}

QRect CalendarPainter::mirrored(const QRect& within, const QRect& rect) const {
    return QStyle::visualRect(grid_.layoutDirection(), within, rect);
}

QColor CalendarPainter::mixed(QPalette::ColorRole role, QPalette::ColorRole other,
                              double share) const {
    const QColor one = grid_.palette().color(role);
    const QColor two = grid_.palette().color(other);
    const auto mix = [share](float a, float b) {
        return static_cast<float>(a * (1 - share) + b * share);
    };
    return QColor::fromRgbF(mix(one.redF(), two.redF()), mix(one.greenF(), two.greenF()),
                            mix(one.blueF(), two.blueF()));
}

QColor CalendarPainter::background_of(int number) const {
    if (number == grid_.drop_cell()) return mixed(QPalette::Base, QPalette::Highlight, 0.45);
    if (number == grid_.selected_cell()) return mixed(QPalette::Base, QPalette::Highlight, 0.25);
    return grid_.palette().color(grid_.cell(number).in_month ? QPalette::Base : QPalette::Window);
}

QColor CalendarPainter::text_colour(const CalendarCell& cell) const {
    return cell.in_month ? grid_.palette().color(QPalette::Text)
                         : mixed(QPalette::Window, QPalette::WindowText, 0.75);
}

// --- parts -------------------------------------------------------------------------------------

void CalendarPainter::paint_header() {
    const QRect band(0, 0, grid_.width(), grid_.header_height());
    painter_.fillRect(band, grid_.palette().color(QPalette::Window));
    painter_.setPen(grid_.palette().color(QPalette::WindowText));
    const QLocale::FormatType form = widest_weekday() > grid_.width() / columns - 2 * inset
                                         ? QLocale::ShortFormat
                                         : QLocale::LongFormat;
    for (int column = 0; column < columns; ++column) {
        const QRect cell = grid_.cell_rect(column);
        painter_.drawText(QRect(cell.left(), 0, cell.width(), band.height()), Qt::AlignCenter,
                          CalendarGrid::column_name(column, form));
    }
}

void CalendarPainter::paint_cell(int number) {
    const QRect rect = grid_.cell_rect(number);
    painter_.fillRect(rect, background_of(number));
    painter_.setPen(mixed(QPalette::Base, QPalette::Text, 0.25));
    painter_.drawLine(rect.topLeft(), rect.topRight());
    painter_.drawLine(rect.topLeft(), rect.bottomLeft());
    const QRect inner = rect.adjusted(inset, inset, -inset, -inset);
    const QRect line(inner.left(), inner.top(), inner.width(), grid_.fontMetrics().height());
    paint_number(line, grid_.cell(number));
    QRect rest = inner;
    rest.setTop(line.bottom() + 3);
    paint_names(rest, grid_.cell(number));
}

// The number at one end of the line, the mark at the other; "Today" between them where it fits.
void CalendarPainter::paint_number(const QRect& line, const CalendarCell& cell) {
    QFont bold = grid_.font();
    bold.setBold(cell.in_month);
    painter_.setFont(bold);
    const int wide = QFontMetrics(bold).horizontalAdvance(QStringLiteral("00")) + 2 * inset;
    paint_badge(mirrored(line, QRect(line.topLeft(), QSize(wide, line.height()))), cell);
    painter_.setFont(name_font());
    const int side = grid_.fontMetrics().height();
    if (cell.planned) {
        const QRect place = mirrored(
            line,
            QRect(line.right() - side + 1, line.top() + (line.height() - side) / 2, side, side));
        const QIcon& mark = cell.audited ? marks_.audited : marks_.planned;
        painter_.drawPixmap(place, mark.pixmap(place.size(), grid_.devicePixelRatioF()));
    }
    const QString today = CalendarGrid::tr("Today");
    const QRect middle =
        mirrored(line, line.adjusted(wide + inset, 0, cell.planned ? -side : 0, 0));
    if (cell.today && QFontMetrics(name_font()).horizontalAdvance(today) <= middle.width()) {
        painter_.setPen(grid_.palette().color(QPalette::Text));
        painter_.drawText(middle, Qt::AlignLeading | Qt::AlignVCenter, today);
    }
}

void CalendarPainter::paint_badge(const QRect& badge, const CalendarCell& cell) {
    QColor text = text_colour(cell);
    if (cell.today) {
        painter_.setRenderHint(QPainter::Antialiasing);
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(grid_.palette().color(QPalette::Text));
        painter_.drawRoundedRect(badge, inset, inset);
        painter_.setRenderHint(QPainter::Antialiasing, false);
        text = grid_.palette().color(QPalette::Base);
    }
    painter_.setPen(text);
    painter_.drawText(badge, Qt::AlignCenter, QString::number(cell.date.day()));
}

// As many whole lines as there is room for; the last one counts what is not shown.
void CalendarPainter::paint_names(QRect area, const CalendarCell& cell) {
    const QFontMetrics metrics(name_font());
    const int lines = area.height() / metrics.height();
    if (lines < 1 || cell.entries == 0) return;
    painter_.setPen(text_colour(cell));
    area.setHeight(metrics.height());
    const int names = static_cast<int>(cell.names.size());
    const int shown =
        cell.entries <= std::min(lines, names) ? cell.entries : std::min(lines - 1, names);
    const auto write = [&](const QString& text) {
        painter_.drawText(area, Qt::AlignLeading | Qt::AlignVCenter,
                          metrics.elidedText(text, Qt::ElideRight, area.width()));
        area.translate(0, metrics.height());
    };
    for (int n = 0; n < shown; ++n) write(cell.names[n]);
    if (shown == cell.entries) return;
    write(shown == 0 ? CalendarGrid::tr("%1 planned").arg(cell.entries)
                     : CalendarGrid::tr("+%1 more").arg(cell.entries - shown));
}

// Thicker while the keys go to the calendar.
void CalendarPainter::paint_frame(const QRect& rect) {
    const int thick = grid_.hasFocus() ? 4 : 2;
    painter_.setPen(QPen(grid_.palette().color(QPalette::Highlight), thick, Qt::SolidLine,
                         Qt::SquareCap, Qt::MiterJoin));
    const int half = thick / 2;
    painter_.drawRect(rect.adjusted(half, half, -half, -half));
}

}  // namespace tavernook
