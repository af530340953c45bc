// Message and input boxes that answer by script.
//
//   boxes.expect_message("Save the changes?", Answer::yes).buttons(Buttons::yes_no_cancel);
//   boxes.expect_input("How many?", "Restock", "1", "12");
//
// Boxes must come in that order with exactly these texts. Any other box fails the test and is
// answered as if the user had closed it; so does an answer that the box has no button for. With
// no script at all a box aborts the process.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/call_log.h"
#include "fakes/script.h"
#include "platform/boxes.h"

namespace tavernook {

struct ExpectedBox {
    enum class Kind { message, input };

    Kind kind;
    std::string text;
    Origin origin;
    Answer answer = Answer::ok;                    // of a message
    std::string initial{};                         // of an input
    std::optional<std::string> typed{};            // of an input; nothing = Cancel
    std::optional<std::string> title_text{};       // not checked where it is nothing
    std::optional<Buttons> button_set{};           // not checked where it is nothing
    std::optional<DefaultButton> enter_presses{};  // not checked where it is nothing
    bool exclaims = false;                         // not checked where it is false
    bool is_critical = false;                      // not checked where it is false
    std::function<void()> while_open{};

    ExpectedBox& title(std::string expected) {
        title_text = std::move(expected);
        return *this;
    }
    ExpectedBox& buttons(Buttons expected) {
        button_set = expected;
        return *this;
    }
    ExpectedBox& default_button(DefaultButton expected) {
        enter_presses = expected;
        return *this;
    }
    // The box bears the exclamation icon.
    ExpectedBox& warning() {
        exclaims = true;
        return *this;
    }
    // The box bears the critical icon.
    ExpectedBox& critical() {
        is_critical = true;
        return *this;
    }
    // Runs while the box is open, as the events do that arrive meanwhile.
    ExpectedBox& during(std::function<void()> body) {
        while_open = std::move(body);
        return *this;
    }
    std::string name() const;
};

class FakeBoxes : public Boxes {
  public:
    ~FakeBoxes() override { check_used_up(); }

    ExpectedBox& expect_message(std::string text, Answer answer = Answer::ok,
                                const char* file = __builtin_FILE(), int line = __builtin_LINE());

    // The answer std::nullopt is Cancel.
    ExpectedBox& expect_input(std::string prompt, std::string title, std::string initial,
                              std::optional<std::string> answer,
                              const char* file = __builtin_FILE(), int line = __builtin_LINE());

    // An empty script: a box fails the test instead of aborting it.
    void expect_none() { script_.install(); }
    void check_used_up() { script_.check_used_up(); }

    // The texts of all boxes so far.
    const std::vector<std::string>& shown() const { return log.entries; }

    Answer message(std::string_view text, Buttons buttons, std::string_view title,
                   DefaultButton default_button = DefaultButton::first) override;
    void warning(std::string_view text, std::string_view title) override;
    Answer critical(std::string_view text, Buttons buttons, std::string_view title,
                    DefaultButton default_button) override;
    std::optional<std::string> input(std::string_view prompt, std::string_view title,
                                     std::string_view initial) override;

    // While `during` of a box runs.
    bool is_open() override { return open_ > 0; }

    CallLog log;

  private:
    Script<ExpectedBox> script_;
    void run_what_comes_meanwhile(const ExpectedBox& box);

    int open_ = 0;
    bool warns_ = false;        // the box being asked came through warning()
    bool is_critical_ = false;  // ... through critical()
};

}  // namespace tavernook
