// A serial port over QSerialPort. While it waits an event loop of its own runs, so that windows
// repaint and hear the user.
#pragma once

#include <memory>

#include "platform_services/serial_line.h"

class QEventLoop;
class QSerialPort;

namespace tavernook {

class QtSerialLine : public SerialLine {
  public:
    // How long a goodbye may take; windows stand still meanwhile.
    explicit QtSerialLine(Milliseconds goodbye = Milliseconds(100));
    ~QtSerialLine() override;

    std::vector<std::string> ports() override;
    void open(const std::string& port) override;
    bool is_open() const override;
    void send(std::string_view bytes) override;
    std::string receive(Milliseconds longest) override;
    void wake() noexcept override;
    void discard() override;
    void close() noexcept override;
    void close_with(std::string_view goodbye) noexcept override;
    Milliseconds now() const override;

  private:
    QSerialPort& port();

    const Milliseconds goodbye_;
    std::unique_ptr<QSerialPort> port_;  // made at its first use
    QEventLoop* waiting_ = nullptr;
};

}  // namespace tavernook
