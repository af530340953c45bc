#include "accessible/private_desktop.h"

#include <QDBusMessage>
#include <QDir>
#include <QFile>

#include "fakes/temp_folder.h"
#include "gui_support/processes.h"

namespace tavernook {

namespace {

const QString session_name = QStringLiteral("session of the test");
const QString accessible_name = QStringLiteral("accessible programs of the test");

const QString launcher_service = QStringLiteral("/usr/share/dbus-1/services/org.a11y.Bus.service");

// A bus that starts the launcher of the registry, and nothing else of what is installed.
QByteArray session_configuration(const QString& folder) {
    return QStringLiteral(
               "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\" "
               "\"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
               "<busconfig>\n"
               "  <type>session</type>\n"
               "  <listen>unix:path=%1/session</listen>\n"
               "  <auth>EXTERNAL</auth>\n"
               "  <servicedir>%1/services</servicedir>\n"
               "  <policy context=\"default\">\n"
               "    <allow send_destination=\"*\" eavesdrop=\"true\"/>\n"
               "    <allow eavesdrop=\"true\"/>\n"
               "    <allow own=\"*\"/>\n"
               "  </policy>\n"
               "</busconfig>\n")
        .arg(folder)
        .toUtf8();
}

void end(QProcess& process) {
    if (process.state() == QProcess::NotRunning) return;
    process.terminate();
    process.waitForFinished(process_time_limit_ms);
}

}  // namespace

PrivateDesktop::PrivateDesktop() : environment_(QProcessEnvironment::systemEnvironment()) {
    for (const char* name : {"AT_SPI_BUS_ADDRESS", "DBUS_SESSION_BUS_ADDRESS", "WAYLAND_DISPLAY",
                             "NO_AT_BRIDGE", "DBUS_STARTER_ADDRESS"}) {
        environment_.remove(QLatin1String(name));
    }
    environment_.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder_.path());
    environment_.insert(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("memory"));
    environment_.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment_.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    if (!start_display()) {
        missing_ = QStringLiteral("a display (package xvfb)");
    } else if (!start_session()) {
        missing_ = QStringLiteral("a session bus (packages dbus-daemon and at-spi2-core)");
    } else if (!find_registry()) {
        missing_ = QStringLiteral("the registry of accessible programs (package at-spi2-core)");
    }
}

PrivateDesktop::~PrivateDesktop() {
    accessible_.reset();
    QDBusConnection::disconnectFromBus(accessible_name);
    QDBusConnection::disconnectFromBus(session_name);
    end(session_);
    end(display_);
}

// Empty when the program is not there, or ended without a word.
QString PrivateDesktop::first_line_of(QProcess& process, const QString& program,
                                      const QStringList& arguments) {
    process.setProcessEnvironment(environment_);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    while (!process.canReadLine() && process.waitForReadyRead(process_time_limit_ms)) {
    }
    return QString::fromLocal8Bit(process.readLine()).trimmed();
}

bool PrivateDesktop::start_display() {
    const QString number = first_line_of(
        display_, QStringLiteral("Xvfb"),
        {"-displayfd", "1", "-screen", "0", "1366x768x24", "-nolisten", "tcp", "-noreset"});
    environment_.insert(QStringLiteral("DISPLAY"), QLatin1Char(':') + number);
    return !number.isEmpty();
}

bool PrivateDesktop::start_session() {
    const QDir folder(folder_.path());
    folder.mkdir(QStringLiteral("services"));
    const QString service = folder.filePath(QStringLiteral("services/org.a11y.Bus.service"));
    if (!QFile::copy(launcher_service, service)) return false;
    const QString configuration = folder.filePath(QStringLiteral("session.conf"));
    write_whole_file(configuration.toStdString(),
                     session_configuration(folder_.path()).toStdString());
    const QString address =
        first_line_of(session_, QStringLiteral("dbus-daemon"),
                      {"--config-file=" + configuration, "--nofork", "--print-address=1"});
    environment_.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
    return !address.isEmpty();
}

bool PrivateDesktop::find_registry() {
    const QString session = environment_.value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    const auto call = QDBusMessage::createMethodCall("org.a11y.Bus", "/org/a11y/bus",
                                                     "org.a11y.Bus", "GetAddress");
    const QDBusMessage reply = QDBusConnection::connectToBus(session, session_name)
                                   .call(call, QDBus::Block, process_time_limit_ms);
    if (reply.type() != QDBusMessage::ReplyMessage) return false;
    accessible_ =
        QDBusConnection::connectToBus(reply.arguments().value(0).toString(), accessible_name);
    const auto ping = QDBusMessage::createMethodCall(
        "org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.freedesktop.DBus.Peer", "Ping");
    return accessible_->isConnected() &&
           accessible_->call(ping, QDBus::Block, process_time_limit_ms).type() ==
               QDBusMessage::ReplyMessage;
}

}  // namespace tavernook
