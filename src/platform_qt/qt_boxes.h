// Boxes over the active window. Texts are shown as they are, never read as markup.
#pragma once

#include "platform/boxes.h"

namespace tavernook {

// For tests and assistive technology the boxes bear the object names "message_box" and
// "input_box", their buttons "button_ok", "button_yes", "button_no" and "button_cancel", and the
// field of the input box "input_field". A text that would push the buttons off the screen scrolls
// in a pane "long_text", also by the Page keys from wherever the focus is.
// A code that a scanner types while a message box stands open does not answer it: behind a digit
// letters do nothing, and the Enter or Tab that ends the code is swallowed; then the box is as
// before. The letters in front of the first digit are keys like any. An input box takes the code.
class QtBoxes : public Boxes {
  public:
    Answer message(std::string_view text, Buttons buttons, std::string_view title,
                   DefaultButton default_button = DefaultButton::first) override;
    void warning(std::string_view text, std::string_view title) override;
    Answer critical(std::string_view text, Buttons buttons, std::string_view title,
                    DefaultButton default_button) override;

    // Counts every modal window and every popup of the program, the file dialogs among them, also
    // the desktop's own.
    bool is_open() override;
    std::optional<std::string> input(std::string_view prompt, std::string_view title,
                                     std::string_view initial) override;
};

}  // namespace tavernook
