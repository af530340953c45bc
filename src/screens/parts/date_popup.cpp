#include "screens/parts/date_popup.h"

#include <QCalendarWidget>
#include <QLabel>
#include <QScreen>
#include <QTextCharFormat>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace tavernook {

namespace {

QPoint place_beside(const QWidget& field, const QRect& cell, const QSize& size) {
    const QRect screen = field.screen()->availableGeometry();
    QPoint place = field.mapToGlobal(cell.bottomLeft());
    if (place.y() + size.height() > screen.bottom()) {
        place.setY(field.mapToGlobal(cell.topLeft()).y() - size.height());
    }
    const int furthest = std::max(screen.left(), screen.right() - size.width());
    return {std::clamp(place.x(), screen.left(), furthest), std::max(place.y(), screen.top())};
}

// Days that can be typed, digit by digit. Between any two of them are fewer than 32,768, which is
// as long as anything keeps.
const QDate earliest(1990, 1, 1);
const QDate latest(2078, 12, 31);

}  // namespace

DatePopup::DatePopup(QWidget& parent, const Names& names)
    : QFrame(&parent, Qt::Popup), heading_(new QLabel(this)), calendar_(new QCalendarWidget(this)) {
    setObjectName(QLatin1String(names.frame));
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    // A click on the button that opens it only closes it again.
    setAttribute(Qt::WA_NoMouseReplay);
    calendar_->setObjectName(QLatin1String(names.calendar));
    heading_->setObjectName(calendar_->objectName() + QLatin1String("_label"));
    heading_->setTextFormat(Qt::PlainText);
    calendar_->setDateRange(earliest, latest);
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    // Red weekends are hard to read on a dark palette, and mean nothing here.
    calendar_->setWeekdayTextFormat(Qt::Saturday, {});
    calendar_->setWeekdayTextFormat(Qt::Sunday, {});
    setFocusProxy(calendar_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(8);
    layout->addWidget(heading_);
    layout->addWidget(calendar_);
    name_parts();
    connect(calendar_, &QCalendarWidget::clicked, this, &DatePopup::pick);
    connect(calendar_, &QCalendarWidget::activated, this, &DatePopup::pick);
}

// For assistive technology.
void DatePopup::name_parts() {
    const std::pair<const char*, QString> names[] = {{"qt_calendar_prevmonth", tr("Month before")},
                                                     {"qt_calendar_nextmonth", tr("Month after")},
                                                     {"qt_calendar_yearedit", tr("Year")}};
    for (const auto& [name, shown] : names) name_part(name, shown);
    connect(calendar_, &QCalendarWidget::currentPageChanged, this, &DatePopup::name_page);
    name_page(calendar_->yearShown(), calendar_->monthShown());
}

// The buttons that show month and year are heard with what they show, and the days with both.
void DatePopup::name_page(int year, int month) {
    const QString name = calendar_->locale().standaloneMonthName(month);
    name_part("qt_calendar_monthbutton", tr("Month: %1").arg(name));
    name_part("qt_calendar_yearbutton", tr("Year: %1").arg(year));
    name_part("qt_calendar_calendarview", tr("Days of %1 %2").arg(name).arg(year));
}

void DatePopup::name_part(const char* name, const QString& shown) {
    auto* part = calendar_->findChild<QWidget*>(QLatin1String(name));
    if (part != nullptr) part->setAccessibleName(shown);
}

void DatePopup::set_heading(const QString& heading) {
    heading_->setText(heading);
    calendar_->setAccessibleName(heading);
}

void DatePopup::ask(QWidget& field, const QRect& place, const QString& heading) {
    const QDate day = todays_date();
    field_ = &field;
    set_heading(heading);
    calendar_->setSelectedDate(day);
    adjustSize();
    move(place_beside(field, place, size()));
    show();
    // How big it is shows only now, when it comes up for the first time.
    move(place_beside(field, place, size()));
    calendar_->setFocus(Qt::OtherFocusReason);
}

// A double click tells of its day twice.
void DatePopup::pick(const QDate& day) {
    if (!isVisible()) return;
    hide();
    Q_EMIT picked(day);
}

void DatePopup::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    if (field_ != nullptr && field_->isVisible()) field_->setFocus(Qt::OtherFocusReason);
}

}  // namespace tavernook
