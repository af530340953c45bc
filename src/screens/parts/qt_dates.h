// Dates between the tables and Qt.
#pragma once

#include <QDate>

#include "basics/date.h"

namespace tavernook {

QDate qdate_of(const CivilDate& date);
CivilDate civil_date_of(const QDate& date);
Date date_of(const QDate& date);  // its midnight

// By the program's clock.
QDate todays_date();

}  // namespace tavernook
