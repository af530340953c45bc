#include "screens/frame/pane_keys.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QShortcut>

#include "screens/frame/child_area.h"
#include "screens/frame/main_actions.h"
#include "screens/frame/tutorial.h"

namespace tavernook {

PaneKeys::PaneKeys(QMainWindow& window, MainActions& actions, ChildArea& children)
    : QObject(&window), window_(window), actions_(actions), children_(children) {
    connect(new QShortcut(Qt::Key_F6, &window), &QShortcut::activated, this,
            [this] { focus_next(); });
    connect(new QShortcut(Qt::Key_F10, &window), &QShortcut::activated, this,
            [this] { open_menus(); });
}

void PaneKeys::focus_next() {
    QWidget* docked = reader_in_sight(window_);
    const bool is_in_it = docked != nullptr && docked->isAncestorOf(window_.focusWidget());
    if (!is_in_it && actions_.focus_next_toolbar()) return;
    if (is_in_it || docked == nullptr) return children_.focus_child();
    docked->setFocus(Qt::TabFocusReason);
}

void PaneKeys::open_menus() {
    QMenuBar& menus = *window_.menuBar();
    menus.setActiveAction(menus.actions().first());
}

}  // namespace tavernook
