// A display, a bus and a registry of accessible programs of the test's own: what runs on them
// reaches nobody's desktop, and nobody reaches it.
#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <optional>

namespace tavernook {

class PrivateDesktop {
  public:
    PrivateDesktop();
    ~PrivateDesktop();

    // What this machine lacks for it; empty when the desktop stands.
    const QString& missing() const { return missing_; }

    // For the programs that are to run on it.
    QProcessEnvironment environment() const { return environment_; }

    // Where accessible programs and those who read them meet.
    const QDBusConnection& accessible() const { return *accessible_; }

  private:
    bool start_display();
    bool start_session();
    bool find_registry();
    QString first_line_of(QProcess& process, const QString& program, const QStringList& arguments);

    QTemporaryDir folder_;
    QProcessEnvironment environment_;
    QProcess display_;
    QProcess session_;
    std::optional<QDBusConnection> accessible_;
    QString missing_;
};

}  // namespace tavernook
