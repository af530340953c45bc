#include "screens/frame/toolbar_keys.h"

#include <QAction>
#include <QKeyEvent>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "screens/frame/child_area.h"

namespace tavernook {

namespace {

// The one character that may be a code's; null for every other key.
QChar code_character(const QKeyEvent& key) {
    const QString text = key.text();
    if (text.size() != 1) return {};
    return text[0].isLetterOrNumber() || text[0] == QLatin1Char('.') ? text[0] : QChar();
}

void go(const QToolButton& from, int steps) {
    const std::vector<QToolButton*> buttons =
        buttons_in_reach(static_cast<const QToolBar&>(*from.parentWidget()));
    const auto here = std::find(buttons.begin(), buttons.end(), &from);
    const auto place = here - buttons.begin() + steps;
    if (here == buttons.end() || place < 0 || place >= std::ssize(buttons)) return;
    buttons[static_cast<std::size_t>(place)]->setFocus(steps < 0 ? Qt::BacktabFocusReason
                                                                 : Qt::TabFocusReason);
}

}  // namespace

std::vector<QToolButton*> buttons_in_reach(const QToolBar& bar) {
    std::vector<QToolButton*> buttons;
    const auto add = [&buttons](QToolButton* button) {
        if (button != nullptr && button->isEnabled() && button->isVisible()) {
            buttons.push_back(button);
        }
    };
    for (QAction* action : bar.actions()) {
        add(qobject_cast<QToolButton*>(bar.widgetForAction(action)));
    }
    add(bar.findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button")));
    return buttons;
}

ToolbarKeys::ToolbarKeys(const std::vector<QToolBar*>& bars, ChildArea& children, QObject* parent)
    : QObject(parent), children_(children) {
    for (const QToolBar* bar : bars) {
        for (auto* button : bar->findChildren<QToolButton*>(Qt::FindDirectChildrenOnly)) {
            button->installEventFilter(this);
        }
    }
}

bool ToolbarKeys::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::FocusIn) code_has_begun_ = false;
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease) return false;
    auto& key = static_cast<QKeyEvent&>(*event);
    if (children_.changes_screen(key)) return true;
    return type == QEvent::KeyPress && take_press(static_cast<QToolButton&>(*watched), key);
}

// True when the key is not for the button any more.
bool ToolbarKeys::take_press(QToolButton& button, QKeyEvent& key) {
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if ((key.modifiers() & commands) != Qt::NoModifier) return false;
    if (const QChar character = code_character(key); !character.isNull()) {
        if (!children_.type_into_screen(key) && character.isDigit()) code_has_begun_ = true;
        return true;
    }
    switch (key.key()) {
        case Qt::Key_Left:
        case Qt::Key_Up:
            go(button, -1);
            return true;
        case Qt::Key_Right:
        case Qt::Key_Down:
            go(button, 1);
            return true;
        case Qt::Key_Escape:
            children_.focus_child();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            press(button, key);
            return true;
        default:
            return false;
    }
}

void ToolbarKeys::press(QToolButton& button, const QKeyEvent& key) {
    const bool ends_code = std::exchange(code_has_begun_, false);
    if (!ends_code && !key.isAutoRepeat()) button.click();
}

}  // namespace tavernook
