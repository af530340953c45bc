#include "gui_support/warning_guard.h"

#include <QTimer>
#include <gtest/gtest-spi.h>

namespace tavernook {
namespace {

TEST(WarningGuardTest, AWarningFailsTheTest) {
    EXPECT_NONFATAL_FAILURE(qWarning("something is wrong"), "something is wrong");
    EXPECT_NONFATAL_FAILURE(qCritical("something is worse"), "something is worse");
}

TEST(WarningGuardTest, AWarningOfQtsOwnFailsTheTest) {
    QTimer timer;
    EXPECT_NONFATAL_FAILURE(
        QObject::connect(&timer, SIGNAL(no_such_signal()), &timer, SLOT(stop())), "no_such_signal");
}

TEST(WarningGuardTest, AnExpectedWarningPassesOnce) {
    {
        const ExpectedWarning expected(QStringLiteral("wrong"));
        qWarning("something is wrong");
        EXPECT_NONFATAL_FAILURE(qWarning("something is wrong"), "something is wrong");
    }
    EXPECT_NONFATAL_FAILURE(ExpectedWarning(QStringLiteral("never logged")), "never logged");
    EXPECT_NONFATAL_FAILURE(qWarning("never logged"), "never logged");
}

TEST(WarningGuardTest, DebugTextsPass) {
    qDebug("harmless");
    qInfo("harmless");
}

}  // namespace
}  // namespace tavernook
