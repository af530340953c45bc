#include "fakes/fake_boxes.h"

#include <utility>

namespace tavernook {

namespace {

const char* buttons_name(Buttons buttons) {
    switch (buttons) {
        case Buttons::ok:
            return "ok";
        case Buttons::yes_no:
            return "yes_no";
        case Buttons::yes_no_cancel:
            return "yes_no_cancel";
    }
    return "?";
}

const char* default_name(DefaultButton button) {
    return button == DefaultButton::no ? "no" : "first";
}

const char* answer_name(Answer answer) {
    switch (answer) {
        case Answer::ok:
            return "ok";
        case Answer::yes:
            return "yes";
        case Answer::no:
            return "no";
        case Answer::cancel:
            return "cancel";
    }
    return "?";
}

bool possible(Answer answer, Buttons buttons) {
    switch (answer) {
        case Answer::ok:
            return buttons == Buttons::ok;
        case Answer::yes:
        case Answer::no:
            return buttons != Buttons::ok;
        case Answer::cancel:
            return buttons == Buttons::yes_no_cancel;
    }
    return false;
}

// What the box answers when the user closes it.
Answer closed(Buttons buttons) {
    if (buttons == Buttons::ok) return Answer::ok;
    return buttons == Buttons::yes_no ? Answer::no : Answer::cancel;
}

std::string kind_difference(const ExpectedBox& expected, ExpectedBox::Kind kind) {
    if (expected.kind == kind) return {};
    return "\n  expected " + expected.name();
}

std::string message_differences(const ExpectedBox& expected, const std::string& text,
                                Buttons buttons, const std::string& title,
                                DefaultButton default_button) {
    std::string found = kind_difference(expected, ExpectedBox::Kind::message);
    if (!found.empty()) return found;
    found = difference("text", expected.text, text);
    found += difference("title", expected.title_text.value_or(title), title);
    found += difference("buttons", buttons_name(expected.button_set.value_or(buttons)),
                        buttons_name(buttons));
    found +=
        difference("default button", default_name(expected.enter_presses.value_or(default_button)),
                   default_name(default_button));
    if (!possible(expected.answer, buttons)) {
        found += std::string("\n  no button \"") + answer_name(expected.answer) + "\" among " +
                 buttons_name(buttons);
    }
    return found;
}

std::string input_differences(const ExpectedBox& expected, const std::string& prompt,
                              const std::string& title, const std::string& initial) {
    std::string found = kind_difference(expected, ExpectedBox::Kind::input);
    if (!found.empty()) return found;
    return difference("prompt", expected.text, prompt) +
           difference("title", expected.title_text.value_or(title), title) +
           difference("initial text", expected.initial, initial);
}

void report(const ExpectedBox& expected, const std::string& shown, const std::string& found) {
    if (found.empty()) return;
    ADD_FAILURE_AT(expected.origin.file, expected.origin.line) << "Differs: " << shown << found;
}

}  // namespace

std::string ExpectedBox::name() const {
    return (kind == Kind::message ? "message \"" : "input \"") + text + "\"";
}

ExpectedBox& FakeBoxes::expect_message(std::string text, Answer answer, const char* file,
                                       int line) {
    ExpectedBox box{ExpectedBox::Kind::message, std::move(text), Origin{file, line}};
    box.answer = answer;
    return script_.add(std::move(box));
}

ExpectedBox& FakeBoxes::expect_input(std::string prompt, std::string title, std::string initial,
                                     std::optional<std::string> answer, const char* file,
                                     int line) {
    ExpectedBox box{ExpectedBox::Kind::input, std::move(prompt), Origin{file, line}};
    box.title_text = std::move(title);
    box.initial = std::move(initial);
    box.typed = std::move(answer);
    return script_.add(std::move(box));
}

Answer FakeBoxes::message(std::string_view text, Buttons buttons, std::string_view title,
                          DefaultButton default_button) {
    const bool exclaims = std::exchange(warns_, false);
    const bool is_critical = std::exchange(is_critical_, false);
    log.add(std::string(text));
    const std::string shown = "message \"" + std::string(text) + "\"";
    const std::optional<ExpectedBox> expected = script_.take(shown);
    if (!expected) return closed(buttons);
    report(*expected, shown,
           message_differences(*expected, std::string(text), buttons, std::string(title),
                               default_button));
    if (expected->exclaims && !exclaims) {
        report(*expected, shown, "\n  without the exclamation icon");
    }
    if (expected->is_critical && !is_critical) {
        report(*expected, shown, "\n  without the critical icon");
    }
    run_what_comes_meanwhile(*expected);
    const bool answers = expected->kind == ExpectedBox::Kind::message;
    return answers && possible(expected->answer, buttons) ? expected->answer : closed(buttons);
}

void FakeBoxes::run_what_comes_meanwhile(const ExpectedBox& box) {
    if (!box.while_open) return;
    ++open_;
    box.while_open();
    --open_;
}

void FakeBoxes::warning(std::string_view text, std::string_view title) {
    warns_ = true;
    message(text, Buttons::ok, title);
}

Answer FakeBoxes::critical(std::string_view text, Buttons buttons, std::string_view title,
                           DefaultButton default_button) {
    is_critical_ = true;
    return message(text, buttons, title, default_button);
}

std::optional<std::string> FakeBoxes::input(std::string_view prompt, std::string_view title,
                                            std::string_view initial) {
    log.add(std::string(prompt));
    const std::string shown = "input \"" + std::string(prompt) + "\"";
    const std::optional<ExpectedBox> expected = script_.take(shown);
    if (!expected) return std::nullopt;
    report(*expected, shown,
           input_differences(*expected, std::string(prompt), std::string(title),
                             std::string(initial)));
    run_what_comes_meanwhile(*expected);
    return expected->typed;
}

}  // namespace tavernook
