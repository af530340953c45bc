// A warning that Qt logs fails the test that caused it. Including this file once in a test program
// is enough.
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <gtest/gtest.h>

namespace tavernook {

// Watches the log while a test runs; debug texts and what is logged between the tests go where
// they went before.
class WarningGuard : public testing::EmptyTestEventListener {
  public:
    void OnTestStart(const testing::TestInfo&) override { before = qInstallMessageHandler(judge); }
    void OnTestEnd(const testing::TestInfo&) override { qInstallMessageHandler(before); }

    // The running test says that a warning with this text has to come, and has not come yet.
    static inline QString expected;

  private:
    static void judge(QtMsgType type, const QMessageLogContext& context, const QString& text) {
        // What a display made of memory alone cannot do is no fault of the program.
        if (text.startsWith(QLatin1String("This plugin does not support "))) return;
        const bool is_bad = type == QtWarningMsg || type == QtCriticalMsg;
        if (is_bad && !expected.isEmpty() && text.contains(expected)) {
            expected.clear();
        } else if (is_bad) {
            const char* category = context.category == nullptr ? "" : context.category;
            ADD_FAILURE() << "Logged (" << category << "): " << text.toStdString();
        } else if (before != nullptr) {
            before(type, context, text);
        }
    }

    static inline QtMessageHandler before = nullptr;
};

// For a test that provokes a warning: one that contains `text` must come while this lives.
class ExpectedWarning {
  public:
    explicit ExpectedWarning(const QString& text) { WarningGuard::expected = text; }
    ~ExpectedWarning() {
        EXPECT_TRUE(WarningGuard::expected.isEmpty())
            << "Not logged: " << WarningGuard::expected.toStdString();
        WarningGuard::expected.clear();
    }
    ExpectedWarning(const ExpectedWarning&) = delete;
    ExpectedWarning& operator=(const ExpectedWarning&) = delete;
};

inline bool watch_warnings() {
    testing::UnitTest::GetInstance()->listeners().Append(new WarningGuard);
    return true;
}
inline const bool warnings_are_watched = watch_warnings();

}  // namespace tavernook
