#include "screens/pantry/item_toolbars.h"

#include <QAction>
#include <QToolBar>
#include <QToolButton>

#include "screens/parts/list_parts.h"
#include "screens/parts/toolbar_parts.h"

namespace tavernook {

namespace {

void dress_accept(QToolBar& bar) {
    QAction* accept = bar.actions().constFirst();
    auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(accept));
    button->setAutoRaise(false);
    QFont large = button->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.2);
    button->setFont(large);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        on_keys(*button, key, [accept] { accept->trigger(); });
    }
}

}  // namespace

void dress_item_toolbars(QWidget& screen, QToolBar& commands, QToolBar& accept) {
    fill_toolbar(screen, commands,
                 {{1, "new_item"},
                  {2, "new_category"},
                  {3, nullptr},
                  {4, "delete"},
                  {5, "copy"},
                  {6, "stores"},
                  {7, "units"},
                  {8, "import"},
                  {9, "export"},
                  {10, "usage"},
                  {11, "label"}});
    fill_toolbar(screen, accept, {{1, "accept"}});
    show_captions(commands);
    const int line = screen.fontMetrics().height();
    accept.setIconSize(QSize(line * 2, line * 2));
    accept.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    dress_accept(accept);
}

std::vector<QWidget*> buttons_in_order(const QToolBar& bar) {
    std::vector<QWidget*> buttons;
    for (QAction* action : bar.actions()) {
        if (!action->isSeparator()) buttons.push_back(bar.widgetForAction(action));
    }
    return buttons;
}

}  // namespace tavernook
