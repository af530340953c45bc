// Dates between the tables and Qt.
#pragma once

#include <QDate>
#include <QString>
#include <string_view>

#include "basics/date.h"

namespace tavernook {

QDate qdate_of(const CivilDate& date);
CivilDate civil_date_of(const QDate& date);
Date date_of(const QDate& date);  // its midnight

// Under the mask; empty for what no calendar has, as damaged files hold it. Never throws.
QString shown_date(Date date, std::string_view mask) noexcept;

// By the program's clock.
QDate todays_date();

}  // namespace tavernook
