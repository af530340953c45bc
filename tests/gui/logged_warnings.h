// While it lives, a warning that Qt logs fails the running test.
#pragma once

#include <QString>
#include <QtGlobal>
#include <gtest/gtest.h>

namespace tavernook {

class LoggedWarnings {
  public:
    LoggedWarnings() : before_(qInstallMessageHandler(fail)) {}
    ~LoggedWarnings() { qInstallMessageHandler(before_); }
    LoggedWarnings(const LoggedWarnings&) = delete;
    LoggedWarnings& operator=(const LoggedWarnings&) = delete;

  private:
    static void fail(QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtDebugMsg || type == QtInfoMsg) return;
        // What a display made of memory alone cannot do is no fault of the program.
        if (text.startsWith(QLatin1String("This plugin does not support "))) return;
        ADD_FAILURE() << "Logged: " << text.toStdString();
    }

    QtMessageHandler before_;
};

}  // namespace tavernook
