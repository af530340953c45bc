#include "screens/frame/front_mark.h"

#include <QAction>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QToolButton>

#include "screens/frame/main_commands_table.h"
#include "screens/frame/screen_registry.h"
#include "screens/parts/checked_line.h"

namespace tavernook {

FrontMark::FrontMark(QMainWindow& window, const ScreenRegistry& registry, const QMdiArea& area)
    : registry_(registry), area_(area) {
    for (const MainCommand& command : main_commands()) {
        const QString name = QLatin1String(command.name);
        auto* button = window.findChild<QToolButton*>(name + QLatin1String("_button"));
        if (command.screen == nullptr || button == nullptr) continue;
        auto* action = window.findChild<QAction*>(name);
        action->setCheckable(true);
        new CheckedLine(*button);
        commands_.emplace_back(action, command.screen);
        connect(action, &QAction::toggled, this, &FrontMark::follow);
    }
    connect(&area_, &QMdiArea::subWindowActivated, this, &FrontMark::follow);
}

void FrontMark::follow() {
    const QMdiSubWindow* front = area_.activeSubWindow();
    for (const auto& [action, screen] : commands_) {
        const QWidget* loaded = registry_.loaded(QLatin1String(screen));
        action->setChecked(loaded != nullptr && front != nullptr && front->widget() == loaded);
    }
}

}  // namespace tavernook
