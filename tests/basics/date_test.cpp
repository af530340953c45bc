#include "basics/date.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "basics/fault_expectation.h"

namespace tavernook {
namespace {

struct KnownDay {
    int year, month, day;
    double count;
    int weekday;
};

// From another implementation of the proleptic Gregorian calendar.
constexpr KnownDay known_days[] = {
    {1, 1, 1, -693593, 2},      {1, 1, 2, -693592, 3},      {1, 3, 1, -693534, 5},
    {4, 2, 29, -692439, 1},     {100, 1, 1, -657434, 6},    {100, 3, 1, -657375, 2},
    {400, 2, 29, -547803, 3},   {999, 12, 31, -328717, 3},  {1000, 1, 1, -328716, 4},
    {1066, 10, 14, -304324, 1}, {1492, 10, 12, -148732, 4}, {1582, 10, 4, -115869, 2},
    {1582, 10, 5, -115868, 3},  {1582, 10, 14, -115859, 5}, {1582, 10, 15, -115858, 6},
    {1600, 2, 29, -109512, 3},  {1600, 3, 1, -109511, 4},   {1700, 2, 28, -72988, 1},
    {1700, 3, 1, -72987, 2},    {1752, 9, 3, -53808, 1},    {1776, 7, 4, -45103, 5},
    {1800, 3, 1, -36463, 7},    {1899, 12, 29, -1, 6},      {1899, 12, 30, 0, 7},
    {1899, 12, 31, 1, 1},       {1900, 1, 1, 2, 2},         {1900, 2, 28, 60, 4},
    {1900, 3, 1, 61, 5},        {1904, 2, 29, 1521, 2},     {1969, 7, 20, 25404, 1},
    {1970, 1, 1, 25569, 5},     {1999, 12, 31, 36525, 6},   {2000, 2, 29, 36585, 3},
    {2000, 3, 1, 36586, 4},     {2024, 2, 29, 45351, 5},    {2038, 1, 19, 50424, 3},
    {2100, 2, 28, 73109, 1},    {2100, 3, 1, 73110, 2},     {2400, 2, 29, 182682, 3},
    {3000, 6, 15, 401934, 1},   {9999, 12, 30, 2958464, 5}, {9999, 12, 31, 2958465, 6},
};

TEST(Date, CountsKnownDays) {
    for (const auto& [year, month, day, count, day_of_week] : known_days) {
        EXPECT_EQ(date_from_civil(year, month, day), count) << year << "-" << month << "-" << day;
        EXPECT_EQ(civil_from_date(count), (CivilDate{year, month, day})) << count;
        EXPECT_EQ(weekday(count), day_of_week) << count;
    }
}

bool is_leap(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int days_in_month(int year, int month) {
    if (month == 2) return is_leap(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

TEST(Date, EveryDayOfTheCalendarComesBackAndTheWeekGoesOn) {
    double count = -693593;
    int day_of_week = 2;  // 1 January of year 1 was a Monday
    for (int year = 1; year <= 9999; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= days_in_month(year, month); ++day) {
                ASSERT_EQ(date_from_civil(year, month, day), count) << year;
                ASSERT_EQ(civil_from_date(count), (CivilDate{year, month, day})) << count;
                ASSERT_EQ(weekday(count), day_of_week) << count;
                count += 1;
                day_of_week = day_of_week % 7 + 1;
            }
        }
    }
    EXPECT_EQ(count, 2958466);
}

TEST(Date, MonthsAndDaysCarryOver) {
    EXPECT_EQ(date_from_civil(2023, 3, 0), date_from_civil(2023, 2, 28));
    EXPECT_EQ(date_from_civil(2024, 3, 0), date_from_civil(2024, 2, 29));
    EXPECT_EQ(date_from_civil(2023, 2, 29), date_from_civil(2023, 3, 1));
    EXPECT_EQ(date_from_civil(2023, 13, 1), date_from_civil(2024, 1, 1));
    EXPECT_EQ(date_from_civil(2023, 0, 15), date_from_civil(2022, 12, 15));
    EXPECT_EQ(date_from_civil(2023, -11, 15), date_from_civil(2022, 1, 15));
    EXPECT_EQ(date_from_civil(2023, -12, 15), date_from_civil(2021, 12, 15));
    EXPECT_EQ(date_from_civil(2023, 25, 15), date_from_civil(2025, 1, 15));
    EXPECT_EQ(date_from_civil(2023, 1, 366), date_from_civil(2024, 1, 1));
    EXPECT_EQ(date_from_civil(2023, 1, -364), date_from_civil(2022, 1, 1));
    EXPECT_EQ(date_from_civil(10000, 1, 0), date_from_civil(9999, 12, 31));
    EXPECT_EQ(date_from_civil(0, 13, 1), date_from_civil(1, 1, 1));
}

TEST(Date, ResultsOutsideTheYearsFault) {
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    EXPECT_EQ(fault_of([] { date_from_civil(0, 12, 31); }), 6);
    EXPECT_EQ(fault_of([] { date_from_civil(1, 1, 0); }), 6);
    EXPECT_EQ(fault_of([] { date_from_civil(1, 0, 31); }), 6);
    EXPECT_EQ(fault_of([] { date_from_civil(10000, 1, 1); }), 6);
    EXPECT_EQ(fault_of([] { date_from_civil(9999, 12, 32); }), 6);
    EXPECT_EQ(fault_of([] { date_from_civil(9999, 13, 1); }), 6);
    EXPECT_EQ(fault_of([] { date_from_civil(most, most, most); }), 6);
    EXPECT_EQ(fault_of([] { date_from_civil(least, least, least); }), 6);
    EXPECT_EQ(fault_of([] { date_from_civil(2000, 1, most); }), 6);
    EXPECT_EQ(fault_of([] { date_from_civil(2000, most, 1); }), 6);
}

TEST(Date, CountsOutsideTheYearsFault) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double date : {-693594.0, 2958466.0, 1e9, -1e9, 1e300, -1e300, infinity, -infinity,
                              std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(fault_of([&] { moment_from_date(date); }), 6) << date;
        EXPECT_EQ(fault_of([&] { civil_from_date(date); }), 6) << date;
        EXPECT_EQ(fault_of([&] { time_from_date(date); }), 6) << date;
        EXPECT_EQ(fault_of([&] { weekday(date); }), 6) << date;
        EXPECT_EQ(fault_of([&] { date_text(date); }), 6) << date;
        EXPECT_EQ(fault_of([&] { format_date(date, "m/d/yyyy"); }), 6) << date;
    }
}

TEST(Date, TheFirstAndLastDayHaveAllTheirHours) {
    EXPECT_EQ(date_text(-693593.75), "1/1/0001 6:00:00 PM");
    EXPECT_EQ(date_text(2958465.75), "12/31/9999 6:00:00 PM");
    EXPECT_EQ(fault_of([] { moment_from_date(2958465.999999); }), 6);  // rounds into year 10000
}

TEST(Date, TheTimeCountsForwardBeforeDayZeroToo) {
    EXPECT_EQ(moment_from_date(-1.25).date, (CivilDate{1899, 12, 29}));
    EXPECT_EQ(moment_from_date(-1.25).time, (TimeOfDay{6, 0, 0}));
    EXPECT_EQ(moment_from_date(1.25).date, (CivilDate{1899, 12, 31}));
    EXPECT_EQ(moment_from_date(1.25).time, (TimeOfDay{6, 0, 0}));
    EXPECT_EQ(moment_from_date(-0.25).date, (CivilDate{1899, 12, 30}));
    EXPECT_EQ(moment_from_date(-0.25).time, (TimeOfDay{6, 0, 0}));
    EXPECT_EQ(date_from_moment({1899, 12, 29}, {6, 0, 0}), -1.25);
    EXPECT_EQ(date_from_moment({1899, 12, 30}, {6, 0, 0}), 0.25);
    EXPECT_EQ(date_from_moment({1899, 12, 31}, {18, 0, 0}), 1.75);
    EXPECT_EQ(weekday(-1.25), 6);
    EXPECT_EQ(weekday(-1.75), 6);
}

TEST(Date, EverySecondOfADayComesBack) {
    for (const CivilDate day :
         {CivilDate{2024, 2, 29}, CivilDate{1899, 12, 29}, CivilDate{1899, 12, 30},
          CivilDate{1, 1, 1}, CivilDate{9999, 12, 31}}) {
        for (int second = 0; second < 86400; ++second) {
            const TimeOfDay time{second / 3600, second % 3600 / 60, second % 60};
            const Moment moment = moment_from_date(date_from_moment(day, time));
            ASSERT_EQ(moment.date, day) << second;
            ASSERT_EQ(moment.time, time) << second;
        }
    }
}

TEST(Date, TimesAreRoundedToTheSecond) {
    EXPECT_EQ(time_from_date(45000 + 0.4 / 86400), (TimeOfDay{0, 0, 0}));
    EXPECT_EQ(time_from_date(45000 + 0.6 / 86400), (TimeOfDay{0, 0, 1}));
    EXPECT_EQ(time_from_date(45000 + 3599.6 / 86400), (TimeOfDay{1, 0, 0}));
}

TEST(Date, RoundingUpAtMidnightCarriesIntoTheDate) {
    const double last_moment = 86399.7 / 86400;
    EXPECT_EQ(civil_from_date(45350 + last_moment), (CivilDate{2024, 2, 29}));
    EXPECT_EQ(time_from_date(45350 + last_moment), (TimeOfDay{0, 0, 0}));
    EXPECT_EQ(weekday(45350 + last_moment), 5);
    EXPECT_EQ(civil_from_date(-1 - last_moment), (CivilDate{1899, 12, 30}));
    EXPECT_EQ(civil_from_date(-2 - last_moment), (CivilDate{1899, 12, 29}));
    EXPECT_EQ(date_text(36525 + last_moment), "1/1/2000");
    EXPECT_EQ(date_text(36525 + 86399.4 / 86400), "12/31/1999 11:59:59 PM");
    EXPECT_EQ(date_text(last_moment), "12/31/1899");
}

TEST(Date, MomentsCarryOverToo) {
    EXPECT_EQ(date_from_moment({2023, 12, 31}, {24, 0, 0}), date_from_civil(2024, 1, 1));
    EXPECT_EQ(date_from_moment({2024, 1, 1}, {0, -60, 0}),
              date_from_moment({2023, 12, 31}, {23, 0, 0}));
    EXPECT_EQ(date_from_moment({2024, 1, 1}, {0, 0, 86400 + 21600}),
              date_from_civil(2024, 1, 2) + 0.25);
    EXPECT_EQ(fault_of([] { date_from_moment({9999, 12, 31}, {24, 0, 0}); }), 6);
    EXPECT_EQ(fault_of([] { date_from_moment({1, 1, 1}, {0, 0, -1}); }), 6);
}

TEST(DateText, ShowsDateAndTime) {
    EXPECT_EQ(date_text(45351.5), "2/29/2024 12:00:00 PM");
    EXPECT_EQ(date_text(45351 + 3661.0 / 86400), "2/29/2024 1:01:01 AM");
    EXPECT_EQ(date_text(45351 + 86399.0 / 86400), "2/29/2024 11:59:59 PM");
    EXPECT_EQ(date_text(45351 + 61.0 / 86400), "2/29/2024 12:01:01 AM");
    EXPECT_EQ(date_text(-1.25), "12/29/1899 6:00:00 AM");
}

TEST(DateText, ShowsTheDateAloneAtMidnight) {
    EXPECT_EQ(date_text(45351), "2/29/2024");
    EXPECT_EQ(date_text(1), "12/31/1899");
    EXPECT_EQ(date_text(-1), "12/29/1899");
    EXPECT_EQ(date_text(2958465), "12/31/9999");
    EXPECT_EQ(date_text(-657434), "1/1/0100");
}

TEST(DateText, ShowsTheTimeAloneWithoutADay) {
    EXPECT_EQ(date_text(0), "12:00:00 AM");
    EXPECT_EQ(date_text(-0.0), "12:00:00 AM");
    EXPECT_EQ(date_text(0.5), "12:00:00 PM");
    EXPECT_EQ(date_text(0.75), "6:00:00 PM");
    EXPECT_EQ(date_text(-0.25), "6:00:00 AM");
}

// Tuesday 5 March 2024, 15:04:09.
double sample() {
    return 45356 + (15 * 3600 + 4 * 60 + 9) / 86400.0;
}

TEST(FormatDate, KnowsEveryField) {
    EXPECT_EQ(format_date(sample(), "d"), "5");
    EXPECT_EQ(format_date(sample(), "dd"), "05");
    EXPECT_EQ(format_date(sample(), "ddd"), "Tue");
    EXPECT_EQ(format_date(sample(), "dddd"), "Tuesday");
    EXPECT_EQ(format_date(sample(), "m"), "3");
    EXPECT_EQ(format_date(sample(), "mm"), "03");
    EXPECT_EQ(format_date(sample(), "mmm"), "Mar");
    EXPECT_EQ(format_date(sample(), "mmmm"), "March");
    EXPECT_EQ(format_date(sample(), "yy"), "24");
    EXPECT_EQ(format_date(sample(), "yyyy"), "2024");
    EXPECT_EQ(format_date(sample(), "h"), "15");
    EXPECT_EQ(format_date(sample(), "n"), "4");
    EXPECT_EQ(format_date(sample(), "nn"), "04");
    EXPECT_EQ(format_date(sample(), "s"), "9");
    EXPECT_EQ(format_date(sample(), "ss"), "09");
    EXPECT_EQ(format_date(45356.25, "hh"), "06");
}

TEST(FormatDate, WritesWholeDates) {
    EXPECT_EQ(format_date(sample(), "mm/dd/yyyy"), "03/05/2024");
    EXPECT_EQ(format_date(sample(), "MM/DD/YY"), "03/05/24");
    EXPECT_EQ(format_date(sample(), "Mm/dD/yYyY"), "03/05/2024");
    EXPECT_EQ(format_date(sample(), "m/d/yyyy h:mm:ss AM/PM"), "3/5/2024 3:04:09 PM");
    EXPECT_EQ(format_date(sample(), "dddd, mmmm d, yyyy"), "Tuesday, March 5, 2024");
    EXPECT_EQ(format_date(sample(), "mmddyyyy"), "03052024");
    EXPECT_EQ(format_date(sample(), "yyyymmddhhnnss"), "20240305150409");
}

TEST(FormatDate, MonthLettersBehindAnHourAreMinutes) {
    EXPECT_EQ(format_date(sample(), "h:m"), "15:4");
    EXPECT_EQ(format_date(sample(), "hh:mm"), "15:04");
    EXPECT_EQ(format_date(sample(), "hhmm"), "1504");
    EXPECT_EQ(format_date(sample(), "HH:MM:SS"), "15:04:09");
    EXPECT_EQ(format_date(sample(), "mm hh:mm mm"), "03 15:04 03");
    EXPECT_EQ(format_date(sample(), "h:nn mm"), "15:04 03");
    EXPECT_EQ(format_date(sample(), "h d mm"), "15 5 03");
    EXPECT_EQ(format_date(sample(), "h mmm"), "15 Mar");
    EXPECT_EQ(format_date(sample(), "mm:ss"), "03:09");
    EXPECT_EQ(format_date(sample(), "h AM/PM mm"), "3 PM 03");
}

TEST(FormatDate, HalfDaysRunFromTwelveToEleven) {
    const char* const expected[] = {"12 AM", "1 AM", "2 AM", "3 AM", "4 AM",  "5 AM",
                                    "6 AM",  "7 AM", "8 AM", "9 AM", "10 AM", "11 AM",
                                    "12 PM", "1 PM", "2 PM", "3 PM", "4 PM",  "5 PM",
                                    "6 PM",  "7 PM", "8 PM", "9 PM", "10 PM", "11 PM"};
    for (int hour = 0; hour < 24; ++hour) {
        const double date = date_from_moment({2024, 3, 5}, {hour, 0, 0});
        EXPECT_EQ(format_date(date, "h AM/PM"), expected[hour]);
        EXPECT_EQ(format_date(date, "h"), std::to_string(hour));
    }
    EXPECT_EQ(format_date(sample(), "am/pm h"), "PM 3");
    EXPECT_EQ(format_date(sample(), "hh Am/pM"), "03 PM");
}

TEST(FormatDate, AllElseStands) {
    EXPECT_EQ(format_date(sample(), ""), "");
    EXPECT_EQ(format_date(sample(), "[-.,%#0] \xE9"), "[-.,%#0] \xE9");
    EXPECT_EQ(format_date(sample(), "a/p"), "a/p");
    EXPECT_EQ(format_date(sample(), "y"), "y");
    EXPECT_EQ(format_date(sample(), "yyy"), "24y");
    EXPECT_EQ(format_date(sample(), "ddddd"), "Tuesday5");
    EXPECT_EQ(format_date(sample(), "sss"), "099");
}

TEST(FormatDate, ShortYearsArePadded) {
    EXPECT_EQ(format_date(date_from_civil(5, 1, 2), "m/d/yyyy"), "1/2/0005");
    EXPECT_EQ(format_date(date_from_civil(2005, 1, 2), "yy"), "05");
    EXPECT_EQ(format_date(date_from_civil(1900, 1, 2), "yy"), "00");
}

TEST(FormatDate, NamesEveryMonthAndDay) {
    const char* const months[] = {"January",   "February", "March",    "April",
                                  "May",       "June",     "July",     "August",
                                  "September", "October",  "November", "December"};
    for (int month = 1; month <= 12; ++month) {
        const double date = date_from_civil(2023, month, 1);
        EXPECT_EQ(format_date(date, "mmmm"), months[month - 1]);
        EXPECT_EQ(format_date(date, "mmm"), std::string(months[month - 1]).substr(0, 3));
    }
    const char* const days[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                "Thursday", "Friday", "Saturday"};
    for (int day = 0; day < 7; ++day) {
        const double date = date_from_civil(2023, 1, 1 + day);  // a Sunday
        EXPECT_EQ(format_date(date, "dddd"), days[day]);
        EXPECT_EQ(format_date(date, "ddd"), std::string(days[day]).substr(0, 3));
    }
}

TEST(DateFromText, ReadsDatesWithAndWithoutLeadingZeros) {
    EXPECT_EQ(date_from_text("3/5/2024"), 45356);
    EXPECT_EQ(date_from_text("03/05/2024"), 45356);
    EXPECT_EQ(date_from_text("3/05/2024"), 45356);
    EXPECT_EQ(date_from_text("12/31/9999"), 2958465);
    EXPECT_EQ(date_from_text("1/1/100"), -657434);
    EXPECT_EQ(date_from_text("1/1/0100"), -657434);
    EXPECT_EQ(date_from_text("2/29/2000"), 36585);
    EXPECT_EQ(date_from_text("12/30/1899"), 0);
}

TEST(DateFromText, EverythingElseIsATypeMismatch) {
    for (const char* text : {"",
                             " ",
                             "/",
                             "//",
                             "3/5",
                             "3/5/",
                             "3//2024",
                             "/5/2024",
                             "3/5/2024/",
                             "3/5/2024 ",
                             " 3/5/2024",
                             "3 /5/2024",
                             "3-5-2024",
                             "3.5.2024",
                             "3/5/24",
                             "3/5/99",
                             "3/5/0099",
                             "3/5/02024",
                             "003/5/2024",
                             "3/005/2024",
                             "3/5/20245",
                             "3/5/10000",
                             "+3/5/2024",
                             "-3/5/2024",
                             "3/-5/2024",
                             "3/5/-2024",
                             "3/5/2024 1:00:00 AM",
                             "a/b/c",
                             "3/5/2O24",
                             "2024/3/5",
                             "99999999999/1/2024",
                             "March 5, 2024"}) {
        EXPECT_EQ(fault_of([&] { date_from_text(text); }), 13) << text;
    }
}

TEST(DateFromText, DatesThatNoCalendarHasAreATypeMismatch) {
    for (const char* text : {"0/1/2024", "13/1/2024", "1/0/2024", "1/32/2024", "4/31/2024",
                             "2/30/2024", "2/29/2023", "2/29/1900", "2/29/2100", "12/32/9999"}) {
        EXPECT_EQ(fault_of([&] { date_from_text(text); }), 13) << text;
    }
}

TEST(DateFromText, ReadsWhatDateTextWrites) {
    for (double date = -657434; date <= 2958465; date += 97) {
        if (date == 0) continue;
        ASSERT_EQ(date_from_text(date_text(date)), date);
    }
}

}  // namespace
}  // namespace tavernook
