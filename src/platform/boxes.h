// Message boxes and input boxes. They run a nested event loop: count first, ask, then change.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavernook {

enum class Buttons { ok, yes_no, yes_no_cancel };
enum class Answer { ok, yes, no, cancel };

// What Enter presses: the first button, or No where there is one.
enum class DefaultButton { first, no };

class Boxes {
  public:
    virtual ~Boxes() = default;

    // A box that asks bears the question icon. Closing a box without a choice counts as Cancel, or
    // as No where there is no Cancel.
    virtual Answer message(std::string_view text, Buttons buttons = Buttons::ok,
                           std::string_view title = "Tavernook",
                           DefaultButton default_button = DefaultButton::first) = 0;

    // An OK box with the exclamation icon.
    virtual void warning(std::string_view text, std::string_view title) {
        message(text, Buttons::ok, title);
    }

    // A question with the critical icon.
    virtual Answer critical(std::string_view text, Buttons buttons, std::string_view title,
                            DefaultButton default_button) {
        return message(text, buttons, title, default_button);
    }

    // A box, a dialog or a menu waits for the user.
    virtual bool is_open() { return false; }

    // Nothing on Cancel, which differs from an empty answer.
    virtual std::optional<std::string> input(std::string_view prompt, std::string_view title,
                                             std::string_view initial) = 0;
};

}  // namespace tavernook
