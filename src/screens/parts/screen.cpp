#include "screens/parts/screen.h"

#include <QAbstractButton>
#include <QAction>
#include <algorithm>
#include <utility>
#include <vector>

#include "platform/platform.h"
#include "screens/parts/screens_in_sight.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

std::vector<Screen*>& all_screens() {
    static std::vector<Screen*> screens;
    return screens;
}

}  // namespace

void add_screen(Screen& screen) {
    all_screens().push_back(&screen);
}

void remove_screen(Screen& screen) {
    std::erase(all_screens(), &screen);
}

// A screen that follows may make another one go.
void follow_in_sight() noexcept {
    const std::vector<Screen*> present = all_screens();
    for (Screen* screen : present) {
        const auto& left = all_screens();
        const bool still_there = std::find(left.begin(), left.end(), screen) != left.end();
        if (still_there && screen->isVisible()) screen->follow();
    }
}

Screen::Screen(QWidget* parent) : QWidget(parent) {
    add_screen(*this);
}

Screen::~Screen() {
    remove_screen(*this);
}

void Screen::run(const Work& command) noexcept {
    steps_.run(command);
}

void Screen::follow() noexcept {
    const Work work = [this] {
        follow_changes();
        update_commands();
    };
    follows_ = follows_ ? guarded(work) : quietly(work);
}

void Screen::on_command(QAction* action, Work command) {
    connect(action, &QAction::triggered, this,
            [this, command = std::move(command)] { run(command); });
}

void Screen::on_command(QAbstractButton* button, Work command) {
    connect(button, &QAbstractButton::clicked, this,
            [this, command = std::move(command)] { run(command); });
}

// The screen and its panes stand on the way round, too; by their focus proxies they would lead into
// the middle.
bool Screen::focusNextPrevChild(bool next) {
    std::vector<std::pair<QWidget*, QWidget*>> proxies;
    QList<QWidget*> parts = findChildren<QWidget*>();
    parts.append(this);
    for (QWidget* part : parts) {
        const bool is_stop = part->focusPolicy() != Qt::NoFocus;
        if (is_stop || !part->isAncestorOf(part->focusProxy())) continue;
        proxies.emplace_back(part, part->focusProxy());
        part->setFocusProxy(nullptr);
    }
    const bool moved = QWidget::focusNextPrevChild(next);
    for (const auto& [part, proxy] : proxies) part->setFocusProxy(proxy);
    return moved;
}

void Screen::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    follow();
}

QString tr(const char* text) {
    return QObject::tr(text);
}

void say(const QString& text) {
    say(std::string_view(typed_text(text)));
}

void say(std::string_view text) {
    main_window().set_status(message_panel, text);
}

}  // namespace tavernook
