// The list "Comm 1" to "Comm 16". Behind a number that the computer has a serial port for stands
// the port's name, as it is when the list comes in sight.
#pragma once

#include <QComboBox>

namespace tavernook {

class PortList : public QComboBox {
  public:
    explicit PortList(QWidget* parent = nullptr);

    void showPopup() override;

    // The chosen number stays.
    void name_ports();
};

}  // namespace tavernook
