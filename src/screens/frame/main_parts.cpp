// The parts of the main window: commands, toolbars, status bar, start page, and what is dropped
// onto it.
#include <QAction>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLayout>
#include <QMdiSubWindow>
#include <QMetaObject>
#include <QMimeData>
#include <QShortcut>
#include <QToolButton>
#include <QUrl>
#include <algorithm>

#include "aids/sample_project.h"
#include "core/project_data.h"
#include "platform/platform.h"
#include "screens/frame/Main.h"
#include "screens/frame/StartPage.h"
#include "screens/frame/main_commands_table.h"
#include "screens/parts/icons.h"
#include "screens/parts/shown_text.h"
#include "ui_Main.h"

namespace tavernook {

namespace {

constexpr const char* longest_activity = "Opening Project...";

bool is_available(const MainCommand& command, const ScreenRegistry& registry) {
    if (command.run != nullptr) return true;
    return command.screen != nullptr && registry.knows(QLatin1String(command.screen));
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

// The one project that is dragged; empty for anything else.
QString dragged_project(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    if (urls.size() != 1 || !urls.first().isLocalFile()) return {};
    const QString path = urls.first().toLocalFile();
    return path.endsWith(QLatin1String(".tvk"), Qt::CaseInsensitive) ? path : QString();
}

QToolButton* first_enabled_button(const QToolBar* bar) {
    for (QAction* action : bar->actions()) {
        auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
        if (button != nullptr && button->isEnabled() && button->isVisible()) return button;
    }
    return nullptr;
}

}  // namespace

void Main::set_up_commands() {
    for (const MainCommand& command : main_commands()) {
        auto* action = findChild<QAction*>(QLatin1String(command.name));
        command_actions_.push_back(action);
        if (command.icon != nullptr) action->setIcon(icon(QLatin1String(command.icon)));
        connect(action, &QAction::triggered, this, [this, &command] { run_command(command); });
    }
    for (int place = 1; place <= 6; ++place) {
        auto* action = findChild<QAction*>(QStringLiteral("mnuRecentFile_%1").arg(place));
        action->setVisible(false);
        connect(action, &QAction::triggered, this, [this, place] { open_recent(place - 1); });
        recent_actions_.push_back(action);
    }
    auto* next_pane = new QShortcut(Qt::Key_F6, this);
    next_pane->setObjectName(QStringLiteral("next_pane"));
    connect(next_pane, &QShortcut::activated, this, &Main::focus_next_pane);
}

// The calculator's button has a blank for a caption, so that its icon stands in line.
void Main::set_up_toolbars() {
    ui_->toolbar_2_7->setIconText(QStringLiteral(" "));
    for (QToolBar* bar : {ui_->toolbar_1, ui_->toolbar_2}) {
        bar->setAccessibleName(bar->windowTitle());
        for (QAction* action : bar->actions()) {
            auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
            if (button == nullptr) continue;
            button->setObjectName(action->objectName() + QLatin1String("_button"));
            button->setFocusPolicy(Qt::TabFocus);
            button->setAccessibleName(action->text());
        }
    }
}

void Main::set_up_status_bar() {
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        auto* panel = new QLabel(this);
        panel->setObjectName(QStringLiteral("status_panel_%1").arg(i + 1));
        panel->setTextFormat(Qt::PlainText);
        panels_[i] = panel;
        if (i == 0) {
            statusBar()->addWidget(panel, 1);
            continue;
        }
        auto* line = new QFrame(this);
        line->setObjectName(QStringLiteral("status_line_%1").arg(i + 1));
        line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
        line->hide();
        statusBar()->addPermanentWidget(line);
        statusBar()->addPermanentWidget(panel);
    }
    panels_[0]->setAccessibleName(tr("Messages"));
    panels_[1]->setAccessibleName(tr("Time of the daily audit"));
    panels_[2]->setAccessibleName(tr("Present activity"));
    const int room = fontMetrics().horizontalAdvance(QLatin1String(longest_activity));
    panels_[2]->setMinimumWidth(room);
}

void Main::set_up_start_page() {
    QWidget* viewport = ui_->mdi_area->viewport();
    start_page_ = new StartPage(viewport);
    viewport->installEventFilter(this);
    connect(start_page_, &StartPage::new_wanted, ui_->mnuFile_NewProject, &QAction::trigger);
    connect(start_page_, &StartPage::open_wanted, ui_->mnuFile_Open, &QAction::trigger);
    connect(start_page_, &StartPage::sample_wanted, this, [this] { run(SeedProject); });
    connect(start_page_, &StartPage::recent_wanted, this, &Main::open_recent);
    ui_->mdi_area->setMinimumSize(start_page_->minimumSizeHint());
    connect(ui_->mdi_area, &QMdiArea::subWindowActivated, this, [this] { refresh(); });
    registry_->when_hidden([this] {
        if (!gone_) QMetaObject::invokeMethod(this, &Main::refresh, Qt::QueuedConnection);
    });
}

// Long work does not return to the event loop, so the bar is laid out and painted here.
void Main::set_status(int panel, std::string_view text) {
    if (panel < 1 || panel > static_cast<int>(panels_.size())) return;
    QLabel* label = panels_[static_cast<std::size_t>(panel) - 1];
    const QString shown = shown_text(text);
    if (label->text() == shown) return;
    label->setText(shown);
    // An empty panel needs no line before it.
    if (auto* line = statusBar()->findChild<QFrame*>(QStringLiteral("status_line_%1").arg(panel))) {
        line->setVisible(!shown.isEmpty());
    }
    if (!isVisible()) return;
    statusBar()->layout()->activate();
    statusBar()->repaint();
}

void Main::set_toolbar_state(int mode) {
    project_buttons_ = mode == 2;
    refresh_commands();
}

void Main::set_toolbar_captions(bool shown) {
    const auto style = shown ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly;
    for (QToolBar* bar : {ui_->toolbar_1, ui_->toolbar_2}) bar->setToolButtonStyle(style);
}

void Main::set_recent_files(const std::vector<std::string>& paths) {
    recent_paths_.clear();
    for (const std::string& path : paths) {
        if (!path.empty() && recent_paths_.size() < recent_actions_.size()) {
            recent_paths_.push_back(path);
        }
    }
    for (std::size_t i = 0; i < recent_actions_.size(); ++i) {
        QAction* action = recent_actions_[i];
        action->setVisible(i < recent_paths_.size());
        if (!action->isVisible()) continue;
        const QString path = shown_path(recent_paths_[i]);
        const QString name = without_mnemonics(QFileInfo(path).fileName());
        action->setText(QStringLiteral("&%1 %2").arg(i + 1).arg(name));
        action->setToolTip(path);
        action->setStatusTip(path);
    }
    start_page_->set_recent_files(recent_paths_);
    ui_->mdi_area->setMinimumSize(start_page_->minimumSizeHint());
}

void Main::refresh_commands() {
    const bool child = child_window_is_open();
    for (std::size_t i = 0; i < command_actions_.size(); ++i) {
        const MainCommand& command = main_commands()[i];
        const bool available = is_available(command, *registry_);
        const bool needs_met = command.needs == Needs::nothing ||
                               (command.needs == Needs::project && project_menus_) ||
                               (command.needs == Needs::project_button && project_buttons_) ||
                               (command.needs == Needs::child_window && child);
        command_actions_[i]->setEnabled(available && needs_met);
        const QString why_not = obstacle(command, available, needs_met);
        set_tips(*command_actions_[i],
                 (QLatin1String(command.tip) + QLatin1Char(' ') + why_not).trimmed());
    }
    // A child window closes by the same keys.
    const QKeySequence close_keys = child ? QKeySequence() : QKeySequence(Qt::CTRL | Qt::Key_W);
    if (ui_->mnuFile_Close->shortcut() != close_keys) ui_->mnuFile_Close->setShortcut(close_keys);
}

void Main::refresh_start_page() {
    const bool wanted = !child_window_is_open();
    if (wanted) {
        start_page_->setGeometry(ui_->mdi_area->viewport()->rect());
        if (project_menus_) {
            start_page_->show_project(
                shown_path(project_name),
                tr("This household is open. Its commands are in the menus and on the toolbars."));
        } else {
            start_page_->show_idle();
        }
    }
    if (start_page_->isHidden() == wanted) start_page_->setVisible(wanted);
}

bool Main::eventFilter(QObject* watched, QEvent* event) {
    if (!gone_ && watched == ui_->mdi_area->viewport()) {
        if (event->type() == QEvent::Resize) {
            start_page_->setGeometry(ui_->mdi_area->viewport()->rect());
        } else if (event->type() == QEvent::ChildRemoved || event->type() == QEvent::ChildAdded) {
            QMetaObject::invokeMethod(this, &Main::refresh, Qt::QueuedConnection);
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

// First toolbar, second toolbar, the screen, and around again.
void Main::focus_next_pane() {
    const QWidget* focused = focusWidget();
    const bool in_first = focused != nullptr && ui_->toolbar_1->isAncestorOf(focused);
    const bool in_second = focused != nullptr && ui_->toolbar_2->isAncestorOf(focused);
    QToolButton* next = nullptr;
    if (!in_first && !in_second) next = first_enabled_button(ui_->toolbar_1);
    if (next == nullptr && !in_second) next = first_enabled_button(ui_->toolbar_2);
    if (next != nullptr) return next->setFocus(Qt::TabFocusReason);
    if (QMdiSubWindow* child = ui_->mdi_area->activeSubWindow()) return child->setFocus();
    start_page_->focus_first();
}

void Main::dragEnterEvent(QDragEnterEvent* event) {
    if (busy_ == 0 && !dragged_project(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

// Later, as the program that the file is dragged from waits for the end of the drop.
void Main::dropEvent(QDropEvent* event) {
    const QString path = dragged_project(event->mimeData());
    if (path.isEmpty()) return;
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, path] { open_path(path.toStdString()); }, Qt::QueuedConnection);
}

}  // namespace tavernook
