// Other programs, run by the tests, and the environment that they see.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>
#include <string>

namespace tavernook {

// A variable of the environment, set for as long as this lives.
class ScopedVariable {
  public:
    ScopedVariable(const char* name, const std::string& value)
        : name_(name), was_set_(qEnvironmentVariableIsSet(name)), before_(qgetenv(name)) {
        qputenv(name, QByteArray::fromStdString(value));
    }
    ~ScopedVariable() {
        if (was_set_) {
            qputenv(name_, before_);
        } else {
            qunsetenv(name_);
        }
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

  private:
    const char* name_;
    bool was_set_;
    QByteArray before_;
};

inline constexpr int process_time_limit_ms = 600'000;

// Standard output and standard error of a program that ends by itself, without the last line end;
// the test fails when the program does.
inline std::string output_of(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(process_time_limit_ms)) << program.toStdString();
    const std::string output = process.readAll().trimmed().toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << program.toStdString() << ": " << output;
    return output;
}

}  // namespace tavernook
