// The spoken interface (aids/spoken_interface.h), for whoever cannot see the windows: a list of all
// that was said, the last of it selected. While the screen is loaded the main window shows no
// toolbars.
//
// On the list F2 to F6 and F10 speak, and every other key goes to `scan_buffer`, up to the Enter or
// Tab that ends a code. Backspace takes one back; Escape takes all back, and closes the screen when
// there are none. Where the window itself has the focus, by a click beside the list, some keys
// prompt to what a scanner does.
//
// F10 says goodbye, waits for the words and ends the program, whatever has become of this screen
// meanwhile.
#pragma once

#include <memory>
#include <string>

#include "screens/parts/screen.h"

namespace tavernook {

class Speech;

namespace Ui {
class VII;
}

class VII : public Screen {
    Q_OBJECT

  public:
    explicit VII(QWidget* parent = nullptr);
    ~VII() override;  // what is being said ends with it

    // Lists the text, selects it and says it.
    void placetext(std::string_view text);

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    bool take(const QKeyEvent& key);
    void append(const QString& typed);
    void answer_function_key(int number);
    void answer_scan();
    void say_goodbye();

    std::unique_ptr<Ui::VII> ui_;
    Speech& voice_;
    std::string scan_buffer_;
};

}  // namespace tavernook
