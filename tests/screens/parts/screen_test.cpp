#include "screens/parts/screen.h"

#include <QPointer>
#include <QPushButton>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

#include "core/changes.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "gui_support/warning_guard.h"
#include "platform/platform.h"

namespace tavernook {
namespace {

// Shows the name of unit 1, and counts what it is asked.
class UnitScreen : public Screen {
  public:
    void follow_changes() override {
        ++asked;
        if (!seen.is_stale()) return;
        ++drawn;
        shown = units[1].name.right_trimmed();
        seen.renew();
    }
    void update_commands() override { ++fitted; }

    Seen seen{Subject::units};
    std::string shown;
    int asked = 0;
    int drawn = 0;
    int fitted = 0;
};

class ScreenTest : public testing::Test {
  protected:
    ScreenTest() { look_for_changes(); }

    TestPlatform platform;
};

TEST_F(ScreenTest, ACommandIsFollowedByEveryScreenInSight) {
    UnitScreen one;
    UnitScreen other;
    UnitScreen hidden;
    one.show();
    other.show();
    one.run([] { units[1].name = "sack"; });
    EXPECT_EQ(one.shown, "sack");
    EXPECT_EQ(other.shown, "sack");
    EXPECT_EQ(hidden.shown, "");
    hidden.show();
    EXPECT_EQ(hidden.shown, "sack");
}

TEST_F(ScreenTest, WhatHasNotChangedIsNotDrawnAgain) {
    UnitScreen screen;
    screen.show();
    const int drawn = screen.drawn;
    const int asked = screen.asked;
    screen.run([] { items[4].name = "Milk"; });
    EXPECT_EQ(screen.drawn, drawn);
    EXPECT_EQ(screen.asked, asked + 1);
    screen.run([] { units[1].name = "jar"; });
    EXPECT_EQ(screen.drawn, drawn + 1);
}

TEST_F(ScreenTest, CommandsAreFittedAfterEachStep) {
    UnitScreen screen;
    screen.show();
    const int before = screen.fitted;
    screen.run([] {});
    EXPECT_EQ(screen.fitted, before + 1);
}

TEST_F(ScreenTest, AFaultIsOneBoxAndTheScreenGoesOn) {
    UnitScreen screen;
    screen.show();
    platform.boxes.expect_message("there has been an error");
    screen.run([] {
        units[1].name = "crate";
        units[-1].name = "none";
    });
    EXPECT_EQ(screen.shown, "crate");
    screen.run([] { units[1].name = "tin"; });
    EXPECT_EQ(screen.shown, "tin");
}

TEST_F(ScreenTest, AnExceptionOfTheLibraryIsABoxToo) {
    UnitScreen screen;
    platform.boxes.expect_message("there has been an error");
    screen.run([] { throw std::out_of_range("at"); });
    EXPECT_FALSE(screen.is_running());
}

TEST_F(ScreenTest, ACancelledFileDialogIsPassedOverInSilence) {
    UnitScreen screen;
    platform.boxes.expect_none();
    screen.run([] { throw Fault(fault_number::cancel_was_selected); });
    EXPECT_FALSE(screen.is_running());
}

TEST_F(ScreenTest, ABoxOfACommandStartsNoOtherCommandOfItsScreen) {
    UnitScreen screen;
    bool second = false;
    platform.boxes.expect_message("Sure?").during([&] {
        EXPECT_TRUE(screen.is_running());
        screen.run([&] { second = true; });
    });
    screen.run([] { boxes().message("Sure?"); });
    EXPECT_FALSE(second);
    screen.run([&] { second = true; });
    EXPECT_TRUE(second);
}

TEST_F(ScreenTest, TheMessageOfTheCommandBeforeGoes) {
    UnitScreen screen;
    screen.run([] { say(QStringLiteral("3 on the list.")); });
    EXPECT_EQ(platform.main.status[message_panel], "3 on the list.");
    screen.run([] {});
    EXPECT_EQ(platform.main.status[message_panel], "");
}

TEST_F(ScreenTest, AScreenMayGoInItsOwnCommand) {
    auto* screen = new UnitScreen;
    const QPointer<UnitScreen> there(screen);
    screen->show();
    screen->run([&] { delete screen; });
    EXPECT_TRUE(there.isNull());
}

TEST_F(ScreenTest, AScreenMayGoWhileAnotherOneFollows) {
    auto* second = new UnitScreen;
    class Deleting : public UnitScreen {
      public:
        void follow_changes() override { delete goes; }
        QPointer<UnitScreen> goes;
    };
    Deleting first;
    second->show();
    first.show();
    auto* third = new UnitScreen;
    third->show();
    first.goes = third;
    first.run([] { units[1].name = "bag"; });
    EXPECT_EQ(second->shown, "bag");
    EXPECT_TRUE(first.goes.isNull());
    delete second;
}

TEST_F(ScreenTest, AButtonRunsItsCommandAsAStep) {
    class WithButton : public UnitScreen {
      public:
        WithButton() {
            on_command(&button, [] { units[1].name = "box"; });
        }
        QPushButton button{this};
    };
    WithButton screen;
    screen.show();
    screen.button.click();
    EXPECT_EQ(screen.shown, "box");
}

// A screen that cannot follow must not bring a box at each tick of the clock.
TEST_F(ScreenTest, AFailureToFollowIsToldOnceUntilItWorksAgain) {
    class Failing : public UnitScreen {
      public:
        void follow_changes() override {
            if (fails) throw Fault(fault_number::overflow);
        }
        bool fails = false;
    };
    Failing screen;
    screen.show();
    screen.fails = true;
    platform.boxes.expect_message("there has been an error");
    end_of_step();
    end_of_step();
    screen.fails = false;
    end_of_step();
    screen.fails = true;
    platform.boxes.expect_message("there has been an error");
    end_of_step();
}

TEST_F(ScreenTest, GuardedTellsWhetherTheWorkCameToItsEnd) {
    EXPECT_TRUE(guarded([] {}));
    platform.boxes.expect_message("there has been an error");
    EXPECT_FALSE(guarded([] { throw Fault(fault_number::overflow); }));
    platform.boxes.expect_message("The list cannot be shown: Overflow");
    EXPECT_FALSE(guarded(
        [] { throw Fault(fault_number::overflow); },
        [](const Fault& fault) { return "The list cannot be shown: " + fault.description; }));
    EXPECT_FALSE(quietly([] { throw Fault(fault_number::overflow); }));
    EXPECT_TRUE(quietly([] {}));
}

// A box may be impossible to show; the program goes on all the same.
TEST_F(ScreenTest, ABoxThatFailsEndsNothing) {
    EXPECT_FALSE(guarded([] { throw Fault(fault_number::overflow); },
                         [](const Fault&) -> std::string { throw std::bad_alloc(); }));
}

}  // namespace
}  // namespace tavernook
