// The net beneath the screens.
#include "screens/parts/application.h"

#include <QTimer>
#include <gtest/gtest.h>
#include <stdexcept>

#include "basics/fault.h"
#include "fakes/test_platform.h"
#include "gui_support/net_guard.h"
#include "gui_support/warning_guard.h"
#include "platform/platform.h"

namespace tavernook {
namespace {

enum class Thrown { fault, cancel, other };

class Thrower : public QObject {
  public:
    explicit Thrower(Thrown thrown) : thrown_(thrown) {}
    bool event(QEvent*) override {
        if (thrown_ == Thrown::other) throw std::runtime_error("out of order");
        const bool cancel = thrown_ == Thrown::cancel;
        throw Fault{cancel ? fault_number::cancel_was_selected : fault_number::overflow, ""};
    }

  private:
    Thrown thrown_;
};

class Net : public testing::Test {
  protected:
    Net() {
        set_platform(
            {.clock = &platform.clock, .boxes = &platform.boxes, .files = &platform.files});
    }
    ~Net() override { clear_platform(); }

    static bool send(Thrown thrown) {
        Thrower receiver(thrown);
        QEvent event(QEvent::User);
        return QCoreApplication::sendEvent(&receiver, &event);
    }
    static void expect_caught(int faults) {
        EXPECT_EQ(faults_caught_by_net() - NetGuard::before(), faults);
        NetGuard::expected = faults;
    }

    TestPlatform platform;
};

TEST_F(Net, AFaultThatComesThroughQtBecomesTheBoxOfTheScreens) {
    platform.boxes.expect_message("there has been an error");
    EXPECT_FALSE(send(Thrown::fault));
    expect_caught(1);
}

TEST_F(Net, WhateverElseIsThrownDoesToo) {
    platform.boxes.expect_message("there has been an error");
    EXPECT_FALSE(send(Thrown::other));
    expect_caught(1);
}

TEST_F(Net, ACancelledDialogIsNoWordWorthButCounts) {
    platform.boxes.expect_none();
    EXPECT_FALSE(send(Thrown::cancel));
    expect_caught(1);
}

TEST_F(Net, WhatIsThrownBehindTheBoxIsOnlyCounted) {
    platform.boxes.expect_message("there has been an error").during([] {
        EXPECT_FALSE(send(Thrown::fault));
        EXPECT_FALSE(send(Thrown::fault));
    });
    EXPECT_FALSE(send(Thrown::fault));
    expect_caught(3);
    platform.boxes.expect_message("there has been an error");
    EXPECT_FALSE(send(Thrown::fault));
    expect_caught(4);
}

TEST_F(Net, ATickThatThrowsEndsNothing) {
    int ticks = 0;
    QTimer::singleShot(0, QCoreApplication::instance(), [&ticks] {
        ++ticks;
        throw Fault{fault_number::overflow, ""};
    });
    platform.boxes.expect_message("there has been an error");
    QCoreApplication::processEvents();
    EXPECT_EQ(ticks, 1);
    expect_caught(1);
}

}  // namespace
}  // namespace tavernook
