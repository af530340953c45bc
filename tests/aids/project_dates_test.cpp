#include "aids/project_dates.h"

#include "basics/fault_expectation.h"
#include "core/project_file/project_file_testing.h"

namespace tavernook {
namespace {

// 28 February 2000 is day 36584 of the calendar, 28 February 1999 day 36219.
constexpr Date late_february = 36584;

class ProjectDates : public ProjectFileTest {
  protected:
    ProjectDates() {
        fill_small_project();
        project_created = late_february - 30;
        items[3].last_restock_date = late_february + 0.25;
        item_details[3].created_date = late_february - 10;
        lots[3].creation_date[1] = late_february;
        lots[3].expiration_date[1] = late_february + 7.5;
        plan(2000, 2, 28);
        bytes = save();
    }
    void plan(int year, int month, int day) {
        days[8].year = to_i16(year);
        days[8].month = to_i16(month);
        days[8].day = to_i16(day);
    }
    void open_moved_by(int days_later) { open(project_moved_by_days(bytes, days_later)); }
    CivilDate planned_day() { return {days[8].year, days[8].month, days[8].day}; }

    std::string bytes;
};

TEST_F(ProjectDates, EveryDateMovesWithItsTimeOfDay) {
    open_moved_by(1000);
    expect_opened();
    EXPECT_EQ(project_created, late_february + 970);
    EXPECT_EQ(items[3].last_restock_date, late_february + 1000.25);
    EXPECT_EQ(item_details[3].created_date, late_february + 990);
    EXPECT_EQ(lots[3].creation_date[1], late_february + 1000);
    EXPECT_EQ(lots[3].expiration_date[1], late_february + 1007.5);
    EXPECT_EQ(planned_day(), (CivilDate{2002, 11, 24}));
}

TEST_F(ProjectDates, WhatIsNoDateStaysNone) {
    open_moved_by(1000);
    EXPECT_EQ(items[4].last_restock_date, 0);
    EXPECT_EQ(item_details[4].created_date, 0);
    EXPECT_EQ(lots[3].creation_date[0], 0);
    EXPECT_EQ(lots[3].expiration_date[0], 0);
    EXPECT_EQ(days[9].year, 0);
}

TEST_F(ProjectDates, ADayWithoutADateStaysWithoutOne) {
    plan(0, 0, 0);
    bytes = save();
    open_moved_by(1000);
    expect_opened();
    EXPECT_EQ(planned_day(), (CivilDate{0, 0, 0}));
}

TEST_F(ProjectDates, PlannedDaysGoOverTheLeapDay) {
    open_moved_by(1);
    EXPECT_EQ(planned_day(), (CivilDate{2000, 2, 29}));
    open_moved_by(2);
    EXPECT_EQ(planned_day(), (CivilDate{2000, 3, 1}));
    open_moved_by(366);
    EXPECT_EQ(planned_day(), (CivilDate{2001, 2, 28}));
    open_moved_by(-59);
    EXPECT_EQ(planned_day(), (CivilDate{1999, 12, 31}));
}

TEST_F(ProjectDates, EverythingElseStaysByteForByte) {
    EXPECT_EQ(first_difference(bytes, project_moved_by_days(bytes, 0)), "");
    const std::string there = project_moved_by_days(bytes, 12345);
    EXPECT_NE(first_difference(bytes, there), "");
    EXPECT_EQ(first_difference(bytes, project_moved_by_days(there, -12345)), "");
}

TEST_F(ProjectDates, AFutureBeyondTheCalendarIsRefused) {
    EXPECT_EQ(fault_of([&] { (void)project_moved_by_days(bytes, 3'000'000); }),
              fault_number::overflow);
}

TEST_F(ProjectDates, TheOlderFormIsRefused) {
    file_version = 0;
    bytes = save();
    EXPECT_EQ(fault_of([&] { (void)project_moved_by_days(bytes, 1); }),
              fault_number::bad_record_number);
}

// The last date lies in the item details; what follows them may be short.
TEST_F(ProjectDates, BytesThatAreCutShortAreRefused) {
    const auto details = static_cast<std::size_t>(
        long_at(bytes, static_cast<std::size_t>(long_at(bytes, 39)) + 410));
    const std::size_t needed = details - 1 + 10001 * 106;
    for (std::size_t length = 0; length < needed; length += length < 5000 ? 7 : 9001) {
        const std::string part = bytes.substr(0, length);
        EXPECT_EQ(fault_of([&] { (void)project_moved_by_days(part, 1); }),
                  fault_number::bad_record_number)
            << length;
    }
    EXPECT_EQ(fault_of([&] { (void)project_moved_by_days(bytes.substr(0, needed - 1), 1); }),
              fault_number::bad_record_number);
    EXPECT_EQ(fault_of([&] { (void)project_moved_by_days(bytes.substr(0, needed), 1); }), 0);
}

TEST_F(ProjectDates, DamagedPositionsAreRefused) {
    for (const std::size_t position : {3U, 33U, 39U, 54U}) {
        for (const int wrong : {0, -1, 0x7FFFFFFF}) {
            Image damaged(bytes);
            damaged.position_word(position, wrong);
            EXPECT_EQ(fault_of([&] { (void)project_moved_by_days(damaged.bytes, 1); }),
                      fault_number::bad_record_number)
                << position << " " << wrong;
        }
    }
}

}  // namespace
}  // namespace tavernook
