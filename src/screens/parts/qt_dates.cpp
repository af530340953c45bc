#include "screens/parts/qt_dates.h"

#include "platform/platform.h"
#include "screens/parts/guard.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

QDate qdate_of(const CivilDate& date) {
    return {date.year, date.month, date.day};
}

CivilDate civil_date_of(const QDate& date) {
    return {date.year(), date.month(), date.day()};
}

Date date_of(const QDate& date) {
    return date_from_civil(date.year(), date.month(), date.day());
}

QString shown_date(Date date, std::string_view mask) noexcept {
    QString text;
    quietly([&] { text = shown_text(format_date(date, mask)); });
    return text;
}

QDate todays_date() {
    return qdate_of(civil_from_date(platform_clock().now()));
}

}  // namespace tavernook
