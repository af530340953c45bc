// Dates: f64 day counts from 30 December 1899, the fraction being the time of day; 0 means none.
// Before that day the whole part counts down and the fraction still counts the time forward:
// -1.25 is 29 December 1899, 06:00. Calendar arithmetic is the proleptic Gregorian one.
#pragma once

#include <string>
#include <string_view>

namespace tavernook {

using Date = double;

struct CivilDate {
    int year;
    int month;  // 1..12
    int day;    // 1..31
    bool operator==(const CivilDate&) const = default;
};

struct TimeOfDay {
    int hour;  // 0..23
    int minute;
    int second;
    bool operator==(const TimeOfDay&) const = default;
};

struct Moment {
    CivilDate date;
    TimeOfDay time;
};

// Years 1..9999; months and days outside their range carry over, as 0 March does into February.
// Fault 6 when the result leaves the years 1..9999.
Date date_from_civil(int year, int month, int day);

// Carries over as well, times outside their range too.
Date date_from_moment(const CivilDate& date, const TimeOfDay& time);

// The time is rounded to the second, and a round-up at midnight carries into the date.
// Fault 6 outside the years 1..9999 and for NaN.
Moment moment_from_date(Date date);
CivilDate civil_from_date(Date date);
TimeOfDay time_from_date(Date date);

// Midnight of the same day.
Date date_alone(Date date);

// 1 = Sunday .. 7 = Saturday.
int weekday(Date date);

// General date text: "m/d/yyyy h:mm:ss AM/PM"; the date alone when the fraction is 0; the time
// alone when the whole is 0, so that 0 gives "12:00:00 AM". Judged after rounding to the second.
std::string date_text(Date date);

// Masks, case-insensitive: d dd ddd dddd, m mm mmm mmmm (minutes behind an h), yy yyyy, h hh,
// n nn (minutes), s ss, AM/PM. With AM/PM present hours run 1..12. All else stands as it is.
// Fault 6 as in moment_from_date.
std::string format_date(Date date, std::string_view mask);

// "m/d/yyyy", with or without leading zeros. Fault 13 for anything else, for dates that no
// calendar has, and for years outside 100..9999.
Date date_from_text(std::string_view text);

}  // namespace tavernook
