// The clock of the daily audit, tick by tick.
#include "core/daily_audit.h"

#include <gtest/gtest.h>
#include <stdexcept>

#include "core/program_state.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {

namespace {

class DailyAudit : public testing::Test {
  protected:
    DailyAudit() {
        project_open = i16_true;
        set_audit_job([this] { ++audits; });
        choose(14, 30);
    }
    void choose(i16 hour, i16 minute) {
        audit_hour = hour;
        audit_minute = minute;
    }
    // The timer ticks at this time; the result is how many audits that brought.
    int tick(int day, int hour, int minute, int second = 0) {
        platform.clock.time = date_from_moment({2024, 5, day}, {hour, minute, second});
        const int before = audits;
        daily_audit_check();
        return audits - before;
    }
    std::string shown_time() {
        show_audit_time();
        return platform.main.status[2];
    }

    TestPlatform platform;
    int audits = 0;
};

TEST_F(DailyAudit, FiresOnceInTheChosenMinute) {
    EXPECT_EQ(tick(15, 14, 29, 59), 0);
    EXPECT_EQ(tick(15, 14, 30, 0), 1);
    EXPECT_EQ(tick(15, 14, 30, 1), 0);
    EXPECT_EQ(tick(15, 14, 30, 59), 0);
    EXPECT_EQ(tick(15, 14, 31, 0), 0);
}

TEST_F(DailyAudit, FiresInTheLastSecondOfTheMinuteToo) {
    EXPECT_EQ(tick(15, 14, 30, 59), 1);
}

TEST_F(DailyAudit, TheFlagStandsForTheMinuteAndIsClearedBehindIt) {
    EXPECT_EQ(audit_done_flag, 0);
    tick(15, 14, 30);
    EXPECT_EQ(audit_done_flag, -1);
    tick(15, 14, 30, 40);
    EXPECT_EQ(audit_done_flag, -1);
    tick(15, 14, 31);
    EXPECT_EQ(audit_done_flag, 0);
}

TEST_F(DailyAudit, FiresAgainTheNextDay) {
    EXPECT_EQ(tick(15, 14, 30), 1);
    EXPECT_EQ(tick(15, 14, 31), 0);
    EXPECT_EQ(tick(16, 14, 30), 1);
}

TEST_F(DailyAudit, WithoutATickInBetweenTheNextDayIsMissed) {
    // As when the machine slept through: the flag of yesterday's minute still stands.
    EXPECT_EQ(tick(15, 14, 30), 1);
    EXPECT_EQ(tick(16, 14, 30), 0);
}

TEST_F(DailyAudit, ATimeInTheAfternoonFiresTwelveHoursEarlierAsWell) {
    EXPECT_EQ(tick(15, 2, 30), 1);
    EXPECT_EQ(tick(15, 2, 31), 0);
    EXPECT_EQ(tick(15, 14, 30), 1);
}

TEST_F(DailyAudit, ATimeInTheMorningFiresInTheMorningOnly) {
    choose(2, 30);
    EXPECT_EQ(tick(15, 2, 30), 1);
    EXPECT_EQ(tick(15, 2, 31), 0);
    EXPECT_EQ(tick(15, 14, 30), 0);
}

TEST_F(DailyAudit, Hour0FiresAtMidnight) {
    choose(0, 0);
    EXPECT_EQ(tick(15, 23, 59), 0);
    EXPECT_EQ(tick(16, 0, 0), 1);
    EXPECT_EQ(tick(16, 12, 0), 0);
}

TEST_F(DailyAudit, Hour12FiresAtNoonAndAtMidnight) {
    choose(12, 5);
    EXPECT_EQ(tick(15, 0, 5), 1);
    EXPECT_EQ(tick(15, 0, 6), 0);
    EXPECT_EQ(tick(15, 12, 5), 1);
}

TEST_F(DailyAudit, Hour24FiresAtNoonOnly) {
    choose(24, 5);
    EXPECT_EQ(tick(15, 0, 5), 0);
    EXPECT_EQ(tick(15, 12, 5), 1);
}

TEST_F(DailyAudit, TheWrongHourOrMinuteDoesNotFire) {
    EXPECT_EQ(tick(15, 13, 30), 0);
    EXPECT_EQ(tick(15, 15, 30), 0);
    EXPECT_EQ(tick(15, 14, 0), 0);
}

TEST_F(DailyAudit, DoesNotFireWithoutAProject) {
    project_open = i16_false;
    EXPECT_EQ(tick(15, 14, 30), 0);
    EXPECT_EQ(audit_done_flag, 0);
    // A project that is opened within the minute is audited.
    project_open = i16_true;
    EXPECT_EQ(tick(15, 14, 30, 30), 1);
}

TEST_F(DailyAudit, TheFlagIsUpBeforeTheAuditRuns) {
    // Ticks that come while the audit shows its boxes must not start another one.
    set_audit_job([this] {
        ++audits;
        daily_audit_check();
    });
    EXPECT_EQ(tick(15, 14, 30), 1);
}

TEST_F(DailyAudit, EachTickSaysReady) {
    platform.main.status[3] = "Auditing...";
    tick(15, 10, 0);
    EXPECT_EQ(platform.main.status[3], "Ready");
    set_audit_job([this] { platform.main.set_status(3, "Auditing..."); });
    tick(15, 14, 30);
    EXPECT_EQ(platform.main.status[3], "Ready");
}

TEST_F(DailyAudit, AnErrorInItIsToldAndEndsTheProgramWithoutSaving) {
    project_modified = i16_true;
    project_path = platform.path("home.tvk");
    set_audit_job([] { throw Fault(fault_number::overflow); });
    platform.boxes.expect_message(
        "There has been an error in the Tavernook software.  Please report the error number 6 to "
        "Brenwyk Software.  Tavernook will now close.");
    tick(15, 14, 30);
    EXPECT_EQ(platform.main.program_ends, 1);
    EXPECT_EQ(platform.main.unloads, 0);
    EXPECT_TRUE(platform.files.log().empty());
    EXPECT_EQ(platform.transcript.back(), "window end program");
}

TEST_F(DailyAudit, ATickWithoutAnAuditJobIsHarmless) {
    set_audit_job({});
    tick(15, 14, 30);
    EXPECT_EQ(audit_done_flag, -1);
    EXPECT_EQ(platform.main.status[3], "Ready");
}

TEST_F(DailyAudit, TheTimeIsShownWithAmAndPm) {
    struct Case {
        i16 hour;
        i16 minute;
        const char* text;
    };
    for (const Case& c : {Case{0, 30, "Audit Time: -:-"}, Case{1, 0, "Audit Time: 1:00 AM"},
                          Case{11, 59, "Audit Time: 11:59 AM"}, Case{12, 0, "Audit Time: 12:00 AM"},
                          Case{13, 5, "Audit Time: 1:05 PM"}, Case{23, 59, "Audit Time: 11:59 PM"},
                          Case{24, 7, "Audit Time: 12:07 PM"}}) {
        choose(c.hour, c.minute);
        EXPECT_EQ(shown_time(), c.text) << c.hour;
    }
}

TEST_F(DailyAudit, HoursThatNoClockHasShowNoTime) {
    choose(25, 0);
    EXPECT_EQ(shown_time(), "Audit Time: -:-");
    choose(-1, 0);
    EXPECT_EQ(shown_time(), "Audit Time: -:-");
}

}  // namespace

}  // namespace tavernook
