#include "basics/date.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "basics/fault.h"
#include "basics/text.h"
#include "basics/values.h"

namespace tavernook {

namespace {

constexpr i64 seconds_per_day = 86400;

// Day counts of 1 January of year 1 and 31 December 9999.
constexpr i64 first_day = -693593;
constexpr i64 last_day = 2958465;

constexpr std::array<const char*, 7> day_names = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                  "Thursday", "Friday", "Saturday"};
constexpr std::array<const char*, 12> month_names = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

constexpr i64 floor_divide(i64 dividend, i64 divisor) {
    const i64 quotient = dividend / divisor;
    return dividend % divisor < 0 ? quotient - 1 : quotient;
}

// The conversions count years from March, so that the leap day is the last day of its year, and
// days from 1 March of year 0 in eras of 400 years.
constexpr i64 days_per_era = 146097;
constexpr i64 day_zero = 693899;  // 30 December 1899

constexpr i64 day_from_civil(i64 year, i64 month, i64 day) {
    const i64 march_year = month <= 2 ? year - 1 : year;
    const i64 months_from_march = (month + 9) % 12;
    const i64 era = floor_divide(march_year, 400);
    const i64 year_of_era = march_year - era * 400;
    const i64 day_of_year = (153 * months_from_march + 2) / 5 + day - 1;
    const i64 day_of_era = year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
    return era * days_per_era + day_of_era - day_zero;
}

constexpr CivilDate civil_from_day(i64 day) {
    const i64 shifted = day + day_zero;
    const i64 era = floor_divide(shifted, days_per_era);
    const i64 day_of_era = shifted - era * days_per_era;
    const i64 leap_days = day_of_era / 1460 - day_of_era / 36524 + day_of_era / 146096;
    const i64 year_of_era = (day_of_era - leap_days) / 365;
    const i64 day_of_year = day_of_era - (year_of_era * 365 + year_of_era / 4 - year_of_era / 100);
    const i64 months_from_march = (5 * day_of_year + 2) / 153;
    const i64 month = months_from_march < 10 ? months_from_march + 3 : months_from_march - 9;
    const i64 year = era * 400 + year_of_era + (month <= 2 ? 1 : 0);
    return {static_cast<int>(year), static_cast<int>(month),
            static_cast<int>(day_of_year - (153 * months_from_march + 2) / 5 + 1)};
}

static_assert(day_from_civil(1, 1, 1) == first_day && day_from_civil(9999, 12, 31) == last_day);
static_assert(day_from_civil(1899, 12, 30) == 0);

i64 checked_day(i64 day) {
    if (day < first_day || day > last_day) throw Fault(fault_number::overflow);
    return day;
}

i64 checked_day_from_civil(i64 year, i64 month, i64 day) {
    const i64 months = year * 12 + month - 1;
    const i64 carried_year = floor_divide(months, 12);
    return checked_day(day_from_civil(carried_year, months - carried_year * 12 + 1, day));
}

// A date after rounding to the second.
struct DayAndSecond {
    i64 day;
    i64 second;
};

DayAndSecond rounded(Date date) {
    // The time counts forward on both sides of day 0, so a whole day is left beyond each border.
    // Written so that NaN fails too.
    if (!(date > first_day - 1 && date < last_day + 1)) throw Fault(fault_number::overflow);
    const double whole = std::trunc(date);
    const i64 day = static_cast<i64>(whole);
    const i64 second = std::llround(std::fabs(date - whole) * seconds_per_day);
    if (second < seconds_per_day) return {day, second};
    return {checked_day(day + 1), 0};
}

TimeOfDay time_from_second(i64 second) {
    return {static_cast<int>(second / 3600), static_cast<int>(second / 60 % 60),
            static_cast<int>(second % 60)};
}

int weekday_of_day(i64 day) {
    // Day 0 was a Saturday.
    const i64 from_saturday = day - floor_divide(day, 7) * 7;
    return static_cast<int>((from_saturday + 6) % 7 + 1);
}

void append_number(std::string& text, int number, std::size_t least_digits) {
    const std::string digits = std::to_string(number);
    if (digits.size() < least_digits) text.append(least_digits - digits.size(), '0');
    text += digits;
}

std::string month_day_year(const CivilDate& date) {
    std::string text;
    append_number(text, date.month, 1);
    text += '/';
    append_number(text, date.day, 1);
    text += '/';
    append_number(text, date.year, 4);
    return text;
}

void append_name(std::string& text, std::string_view name, std::size_t length) {
    text += length == 3 ? name.substr(0, 3) : name;
}

constexpr std::string_view half_day_field = "am/pm";

bool same_ignoring_case(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower_case(x) == lower_case(y); });
}

// Walks over a date mask field by field.
class MaskWriter {
  public:
    MaskWriter(Date date, std::string_view mask)
        : MaskWriter(rounded(date), mask, lower_case(mask)) {}

    std::string write() {
        while (position_ < mask_.size()) {
            if (same_ignoring_case(mask_.substr(position_, half_day_field.size()),
                                   half_day_field)) {
                text_ += time_.hour < 12 ? "AM" : "PM";
                previous_field_ = 'a';
                position_ += half_day_field.size();
            } else {
                write_run();
            }
        }
        return std::move(text_);
    }

  private:
    MaskWriter(const DayAndSecond& moment, std::string_view mask, const std::string& lower_mask)
        : mask_(mask),
          day_(moment.day),
          date_(civil_from_day(moment.day)),
          time_(time_from_second(moment.second)),
          twelve_hours_(lower_mask.find(half_day_field) != std::string::npos) {}

    // One field, or one character that stands as it is.
    void write_run() {
        const char letter = lower_case(mask_[position_]);
        const std::size_t length = field_length(letter);
        if (length == 0) {
            text_ += mask_[position_];
            ++position_;
            return;
        }
        const bool minutes = letter == 'm' && length <= 2 && previous_field_ == 'h';
        write_field(minutes ? 'n' : letter, length);
        previous_field_ = minutes ? 'n' : letter;
        position_ += length;
    }

    // How many of the same letters from here on are one field; 0 when there is no field here.
    std::size_t field_length(char letter) const {
        const bool up_to_four = letter == 'd' || letter == 'm' || letter == 'y';
        const bool up_to_two = letter == 'h' || letter == 'n' || letter == 's';
        const std::size_t longest = up_to_four ? 4 : up_to_two ? 2 : 0;
        std::size_t length = 0;
        while (length < longest && position_ + length < mask_.size() &&
               lower_case(mask_[position_ + length]) == letter) {
            ++length;
        }
        return letter == 'y' ? length / 2 * 2 : length;
    }

    void write_field(char letter, std::size_t length) {
        switch (letter) {
            case 'd':
                if (length <= 2) return append_number(text_, date_.day, length);
                return append_name(
                    text_, day_names[static_cast<std::size_t>(weekday_of_day(day_) - 1)], length);
            case 'm':
                if (length <= 2) return append_number(text_, date_.month, length);
                return append_name(text_, month_names[static_cast<std::size_t>(date_.month - 1)],
                                   length);
            case 'y':
                return append_number(text_, length == 4 ? date_.year : date_.year % 100, length);
            case 'h':
                return append_number(text_, twelve_hours_ ? (time_.hour + 11) % 12 + 1 : time_.hour,
                                     length);
            case 'n':
                return append_number(text_, time_.minute, length);
            default:
                return append_number(text_, time_.second, length);
        }
    }

    std::string_view mask_;
    i64 day_;
    CivilDate date_;
    TimeOfDay time_;
    bool twelve_hours_;
    std::size_t position_ = 0;
    char previous_field_ = ' ';
    std::string text_;
};

// Digits only, at least one and at most `most`; takes them off the front. -1 otherwise.
int take_digits(std::string_view& text, std::size_t most) {
    const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    if (count == 0 || count > most) return -1;
    int number = -1;
    std::from_chars(text.data(), text.data() + count, number);
    text.remove_prefix(count);
    return number;
}

bool take_slash(std::string_view& text) {
    if (text.empty() || text.front() != '/') return false;
    text.remove_prefix(1);
    return true;
}

}  // namespace

Date date_from_civil(int year, int month, int day) {
    return static_cast<Date>(checked_day_from_civil(year, month, day));
}

Date date_from_moment(const CivilDate& date, const TimeOfDay& time) {
    const i64 seconds = i64{time.hour} * 3600 + i64{time.minute} * 60 + time.second;
    const i64 carried_days = floor_divide(seconds, seconds_per_day);
    const i64 day =
        checked_day(checked_day_from_civil(date.year, date.month, date.day) + carried_days);
    const double fraction = static_cast<double>(seconds - carried_days * seconds_per_day) /
                            static_cast<double>(seconds_per_day);
    const auto whole = static_cast<double>(day);
    return day < 0 ? whole - fraction : whole + fraction;
}

Moment moment_from_date(Date date) {
    const DayAndSecond moment = rounded(date);
    return {civil_from_day(moment.day), time_from_second(moment.second)};
}

CivilDate civil_from_date(Date date) {
    return civil_from_day(rounded(date).day);
}

TimeOfDay time_from_date(Date date) {
    return time_from_second(rounded(date).second);
}

Date date_alone(Date date) {
    return std::trunc(date);
}

int weekday(Date date) {
    return weekday_of_day(rounded(date).day);
}

std::string date_text(Date date) {
    const DayAndSecond moment = rounded(date);
    if (moment.day == 0) return format_date(date, "h:mm:ss AM/PM");
    if (moment.second == 0) return month_day_year(civil_from_day(moment.day));
    return format_date(date, "m/d/yyyy h:mm:ss AM/PM");
}

std::string format_date(Date date, std::string_view mask) {
    return MaskWriter(date, mask).write();
}

Date date_from_text(std::string_view text) {
    const int month = take_digits(text, 2);
    const bool first_slash = take_slash(text);
    const int day = take_digits(text, 2);
    const bool second_slash = take_slash(text);
    const int year = take_digits(text, 4);
    const bool well_formed =
        first_slash && second_slash && text.empty() && month >= 1 && month <= 12 && year >= 100;
    if (!well_formed) throw Fault(fault_number::type_mismatch);
    const i64 count = day_from_civil(year, month, day);
    // A day that its month does not have lands in a neighbour.
    if (civil_from_day(count) != CivilDate{year, month, day}) {
        throw Fault(fault_number::type_mismatch);
    }
    return static_cast<Date>(count);
}

}  // namespace tavernook
