#include "screens/parts/qt_dates.h"

#include "platform/platform.h"

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

QDate todays_date() {
    return qdate_of(civil_from_date(platform_clock().now()));
}

}  // namespace tavernook
