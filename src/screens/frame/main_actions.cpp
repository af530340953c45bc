#include "screens/frame/main_actions.h"

#include <QAction>
#include <QFileInfo>
#include <QMainWindow>
#include <QToolBar>
#include <QToolButton>
#include <utility>

#include "screens/frame/main_commands_table.h"
#include "screens/frame/recent_names.h"
#include "screens/frame/screen_registry.h"
#include "screens/frame/toolbar_keys.h"
#include "screens/parts/icons.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

bool is_available(const MainCommand& command, const ScreenRegistry& registry) {
    if (command.screen != nullptr) return registry.knows(QLatin1String(command.screen));
    return command.run != nullptr;
}

// Why a command is disabled, as a sentence; empty when it is enabled.
QString obstacle(const MainCommand& command, bool available, bool needs_met) {
    if (command.needs == Needs::another_place) return {};
    if (!available) return QObject::tr("Not available in this version.");
    if (needs_met) return {};
    return command.needs == Needs::child_window ? QObject::tr("No screen is open.")
                                                : QObject::tr("Open a project first.");
}

void set_tips(QAction& action, const QString& tip) {
    action.setStatusTip(tip);
    const bool on_toolbar = action.objectName().startsWith(QLatin1String("toolbar_"));
    action.setToolTip(on_toolbar ? action.text() + QLatin1Char('\n') + tip : tip);
}

QToolButton* first_button(const QToolBar& bar) {
    const std::vector<QToolButton*> buttons = buttons_in_reach(bar);
    return buttons.empty() ? nullptr : buttons.front();
}

}  // namespace

MainActions::MainActions(QMainWindow& window, const ScreenRegistry& registry)
    : QObject(&window),
      window_(window),
      registry_(registry),
      first_(window.findChild<QToolBar*>(QStringLiteral("toolbar_1"))),
      second_(window.findChild<QToolBar*>(QStringLiteral("toolbar_2"))),
      close_project_(window.findChild<QAction*>(QStringLiteral("mnuFile_Close"))) {
    find_commands();
    find_recent_places();
    // The calculator's button has a blank for a caption, so that its icon stands in line.
    window.findChild<QAction*>(QStringLiteral("toolbar_2_7"))->setIconText(QStringLiteral(" "));
    dress_toolbar(*first_);
    dress_toolbar(*second_);
}

void MainActions::find_commands() {
    for (const MainCommand& command : main_commands()) {
        auto* action = window_.findChild<QAction*>(QLatin1String(command.name));
        commands_.push_back(action);
        if (command.icon != nullptr) action->setIcon(icon(QLatin1String(command.icon)));
        connect(action, &QAction::triggered, this,
                [this, &command] { Q_EMIT command_wanted(command); });
    }
}

void MainActions::find_recent_places() {
    for (int place = 0; place < 6; ++place) {
        auto* action =
            window_.findChild<QAction*>(QStringLiteral("mnuRecentFile_%1").arg(place + 1));
        action->setVisible(false);
        connect(action, &QAction::triggered, this, [this, place] { Q_EMIT recent_wanted(place); });
        recent_places_.push_back(action);
    }
}

void MainActions::dress_toolbar(QToolBar& bar) {
    bar.setAccessibleName(bar.windowTitle());
    for (QAction* action : bar.actions()) {
        auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(action));
        if (button == nullptr) continue;
        button->setObjectName(action->objectName() + QLatin1String("_button"));
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(action->text());
    }
}

void MainActions::set_captions(bool shown) {
    const auto style = shown ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly;
    for (QToolBar* bar : {first_, second_}) bar->setToolButtonStyle(style);
}

void MainActions::set_toolbars_shown(bool shown) {
    if (shown) {
        for (QToolBar* bar : std::exchange(put_away_, {})) bar->show();
        return;
    }
    for (QToolBar* bar : {first_, second_}) {
        if (bar->isHidden()) continue;
        bar->hide();
        put_away_.push_back(bar);
    }
}

void MainActions::set_recent_files(const std::vector<std::string>& paths) {
    recent_paths_.clear();
    for (const std::string& path : paths) {
        if (!path.empty() && recent_paths_.size() < recent_places_.size()) {
            recent_paths_.push_back(path);
        }
    }
    for (std::size_t place = 0; place < recent_places_.size(); ++place) show_recent(place);
}

void MainActions::show_recent(std::size_t place) {
    QAction& action = *recent_places_[place];
    action.setVisible(place < recent_paths_.size());
    if (!action.isVisible()) return;
    const QString path = shown_path(recent_paths_[place]);
    const QFontMetrics metrics = window_.fontMetrics();
    QString name = shortened(QFileInfo(path).fileName(), metrics);
    const QString folder = telling_folder(place, recent_paths_);
    if (!folder.isEmpty()) name = tr("%1   in %2").arg(name, shortened(folder, metrics));
    action.setText(QStringLiteral("&%1 ").arg(place + 1) + without_mnemonics(name));
    action.setToolTip(path);
    action.setStatusTip(path);
}

void MainActions::refresh(bool child_window_is_open) {
    for (std::size_t place = 0; place < commands_.size(); ++place) {
        refresh_command(place, child_window_is_open);
    }
    // A child window closes by the same keys.
    const QKeySequence close_keys =
        child_window_is_open ? QKeySequence() : QKeySequence(Qt::CTRL | Qt::Key_W);
    if (close_project_->shortcut() != close_keys) close_project_->setShortcut(close_keys);
}

void MainActions::refresh_command(std::size_t place, bool child_window_is_open) {
    const MainCommand& command = main_commands()[place];
    const bool available = is_available(command, registry_);
    const bool needs_met = command.needs == Needs::nothing ||
                           (command.needs == Needs::project && project_menus_) ||
                           (command.needs == Needs::project_button && project_buttons_) ||
                           (command.needs == Needs::child_window && child_window_is_open);
    commands_[place]->setEnabled(available && needs_met);
    const QString why_not = obstacle(command, available, needs_met);
    set_tips(*commands_[place],
             (QLatin1String(command.tip) + QLatin1Char(' ') + why_not).trimmed());
}

bool MainActions::focus_next_toolbar() {
    const QWidget* focused = window_.focusWidget();
    const bool in_first = focused != nullptr && first_->isAncestorOf(focused);
    const bool in_second = focused != nullptr && second_->isAncestorOf(focused);
    QToolButton* next = nullptr;
    if (!in_first && !in_second) next = first_button(*first_);
    if (next == nullptr && !in_second) next = first_button(*second_);
    if (next != nullptr) next->setFocus(Qt::TabFocusReason);
    return next != nullptr;
}

}  // namespace tavernook
