// A pocket calculator (aids/calculator.h): a display and its keys, which are pressed by the mouse
// or by the keys of the same signs. Enter is always "=". Delete takes back what was typed last,
// Escape everything; with nothing left to take back it closes the window. Ctrl+C copies the
// display, Ctrl+V types the number on the clipboard.
#pragma once

#include <memory>

#include "aids/calculator.h"
#include "screens/parts/screen.h"

class QPushButton;

namespace tavernook {

namespace Ui {
class Calculator;
}

class Calculator : public Screen {
    Q_OBJECT

  public:
    explicit Calculator(QWidget* parent = nullptr);
    ~Calculator() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void connect_keys();
    bool take(const QKeyEvent& key);
    QPushButton* button_of(const QKeyEvent& key) const;
    void copy();
    void paste();
    void tell(CalculatorNews news);
    void show_readout();

    std::unique_ptr<Ui::Calculator> ui_;
    CalculatorState state_;
};

}  // namespace tavernook
