#include "platform_qt/qt_serial_line.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QSerialPort>
#include <QSerialPortInfo>
#include <QTimer>

#include "basics/fault.h"
#include "platform_qt/qt_text.h"
#include "platform_services/cs1504_protocol.h"
#include "platform_services/serial_ports.h"

namespace tavernook {

namespace {

// Nobody reads between two calls.
constexpr qint64 most_bytes_kept = 2 * cs1504::longest_reply;

// A command is a few bytes: milliseconds on any line that works.
constexpr int longest_send_ms = 500;

// A virtual port cannot set its control lines and says so; that is no loss.
bool is_end_of_port(QSerialPort::SerialPortError error) {
    return error != QSerialPort::NoError && error != QSerialPort::UnsupportedOperationError &&
           error != QSerialPort::TimeoutError;
}

Fault refusal_of(const QSerialPort& port, const std::string& name) {
    const std::string shown = "The port " + text_from_utf8(name);
    if (port.error() == QSerialPort::DeviceNotFoundError) {
        return Fault(fault_number::path_not_found, shown + " is not there.");
    }
    if (port.error() != QSerialPort::PermissionError) {
        return Fault(fault_number::device_io_error,
                     shown + " cannot be opened: " + qstring_to_text(port.errorString()) + ".");
    }
    const QFileInfo device(QDir(QStringLiteral("/dev")), port.portName());
    const bool may_use_it = device.isReadable() && device.isWritable();
    return Fault(fault_number::permission_denied,
                 shown + (may_use_it ? " is in use by another program."
                                     : " may not be used by this account."));
}

}  // namespace

QtSerialLine::QtSerialLine(Milliseconds goodbye) : goodbye_(goodbye) {}
QtSerialLine::~QtSerialLine() = default;

std::vector<std::string> QtSerialLine::ports() {
    if (!qEnvironmentVariableIsEmpty(serial_ports_variable)) {
        return named_serial_ports(qgetenv(serial_ports_variable).toStdString());
    }
    std::vector<std::string> names;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        names.push_back(qstring_to_path(info.portName()));
    }
    return listed_serial_ports(std::move(names));
}

// A port that has gone reports errors without end until it is closed.
QSerialPort& QtSerialLine::port() {
    if (port_ != nullptr) return *port_;
    port_ = std::make_unique<QSerialPort>();
    port_->setReadBufferSize(most_bytes_kept);
    port_->setBaudRate(cs1504::line_speed);
    port_->setDataBits(QSerialPort::Data8);
    port_->setParity(QSerialPort::OddParity);
    port_->setStopBits(QSerialPort::OneStop);
    port_->setFlowControl(QSerialPort::NoFlowControl);
    QObject::connect(port_.get(), &QSerialPort::errorOccurred, port_.get(),
                     [this](QSerialPort::SerialPortError error) {
                         if (port_->isOpen() && is_end_of_port(error)) close();
                     });
    QObject::connect(port_.get(), &QSerialPort::readyRead, port_.get(), [this] { wake(); });
    return *port_;
}

void QtSerialLine::open(const std::string& name) {
    close();
    port().setPortName(path_to_qstring(name));
    if (!port().open(QIODevice::ReadWrite)) throw refusal_of(port(), name);
    port().setDataTerminalReady(true);
}

bool QtSerialLine::is_open() const {
    return port_ != nullptr && port_->isOpen();
}

void QtSerialLine::send(std::string_view bytes) {
    if (!is_open()) return;
    port_->write(bytes.data(), static_cast<qint64>(bytes.size()));
    port_->waitForBytesWritten(longest_send_ms);
}

std::string QtSerialLine::receive(Milliseconds longest) {
    if (is_open() && port_->bytesAvailable() == 0) {
        QEventLoop loop;
        QTimer::singleShot(longest, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        waiting_ = &loop;
        loop.exec();
        waiting_ = nullptr;
    }
    return is_open() ? port_->readAll().toStdString() : std::string();
}

void QtSerialLine::wake() noexcept {
    if (waiting_ != nullptr) waiting_->quit();
}

void QtSerialLine::discard() {
    if (is_open()) port_->clear(QSerialPort::Input);
}

void QtSerialLine::close() noexcept {
    if (is_open()) port_->close();
    wake();
}

// An answer tells that it has arrived; closing would take speed and parity from what is on its way.
void QtSerialLine::close_with(std::string_view goodbye) noexcept {
    try {
        send(goodbye);
        if (is_open()) port_->waitForReadyRead(static_cast<int>(goodbye_.count()));
    } catch (...) {
        // It has gone without a goodbye.
    }
    close();
}

SerialLine::Milliseconds QtSerialLine::now() const {
    return std::chrono::duration_cast<Milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

}  // namespace tavernook
