#include "screens/aids/VII.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <utility>

#include "aids/spoken_interface.h"
#include "platform/platform.h"
#include "platform/speech.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/table_copy.h"
#include "ui_VII.h"

namespace tavernook {

namespace {

constexpr std::size_t longest_scan = 1000;  // no code is as long
constexpr double goodbye_seconds = 20;

bool is_plain(const QKeyEvent& key) {
    return (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
}

// Those with an answer; 0 for other keys.
int function_key(const QKeyEvent& key) {
    const int number = key.key() - Qt::Key_F1 + 1;
    const bool answers = number == 10 || !answer_to_function_key(number).empty();
    return answers && key.modifiers() == Qt::NoModifier ? number : 0;
}

int code_of(const QKeyEvent& key) {
    if (is_enter(key)) return 13;
    if (key.key() == Qt::Key_Tab) return 9;
    return key.key() == Qt::Key_Pause ? 19 : 0;
}

}  // namespace

VII::VII(QWidget* parent) : Screen(parent), ui_(laid_out<Ui::VII>(*this)), voice_(speech()) {
    space_rows(*ui_->List1);
    copy_rows_by_keys(*ui_->List1);
    follow_font_size(*ui_->List1);
    ui_->List1->installEventFilter(this);
    for (const std::string& line : spoken_welcome()) placetext(line);
}

VII::~VII() {
    voice_.stop();
}

void VII::placetext(std::string_view text) {
    ui_->List1->addItem(shown_text(text));
    ui_->List1->setCurrentRow(ui_->List1->count() - 1);
    Speak(text);
}

// --- keys ----------------------------------------------------------------------------------------

// Tab goes on to the list all the same.
bool VII::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress && !ui_->List1->hasFocus()) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const std::string_view prompt = prompt_of_key(code_of(key));
        if (!prompt.empty()) Speak(prompt);
        if (key.key() == Qt::Key_Escape) close_screen(*this);
    }
    return Screen::event(event);
}

// The program's own shortcuts on those keys wait while the list has the focus.
bool VII::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        if (function_key(*static_cast<QKeyEvent*>(event)) == 0) return false;
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress && take(*static_cast<QKeyEvent*>(event))) return true;
    return Screen::eventFilter(watched, event);
}

// Whoever brings the screen in front gets to the list; a click beside it stays there.
void VII::focusInEvent(QFocusEvent* event) {
    Screen::focusInEvent(event);
    if (event->reason() == Qt::OtherFocusReason) ui_->List1->setFocus();
}

bool VII::take(const QKeyEvent& key) {
    const bool has_begun = !scan_buffer_.empty();
    if (const int number = function_key(key); number != 0) {
        run([this, number] { number == 10 ? say_goodbye() : answer_function_key(number); });
    } else if (is_enter(key) || (key.key() == Qt::Key_Tab && has_begun)) {
        run([this] { answer_scan(); });
    } else if (key.key() == Qt::Key_Escape) {
        has_begun ? scan_buffer_.clear() : close_screen(*this);
    } else if (key.key() == Qt::Key_Backspace) {
        if (has_begun) scan_buffer_.pop_back();
    } else if (is_plain(key) && !key.text().isEmpty() && key.text().front().isPrint()) {
        append(key.text());
    } else {
        return false;
    }
    return true;
}

void VII::append(const QString& typed) {
    if (scan_buffer_.size() < longest_scan) scan_buffer_ += typed_text(typed);
}

void VII::answer_function_key(int number) {
    voice_.stop();
    placetext(answer_to_function_key(number));
}

void VII::answer_scan() {
    const std::vector<std::string> lines = answer_to_scan(std::exchange(scan_buffer_, {}));
    if (!lines.empty()) voice_.stop();
    for (const std::string& line : lines) placetext(line);
}

// No audit begins any more. Nothing of this screen is touched behind the wait: it may have gone.
void VII::say_goodbye() {
    placetext(spoken_goodbye());
    main_window().enable_timer(false);
    platform_clock().wait_seconds(goodbye_seconds);
    main_window().end_program();
}

}  // namespace tavernook
