#include "screens/frame/Main.h"

#include <QAction>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMetaObject>
#include <QMimeData>
#include <QUrl>
#include <utility>

#include "aids/sample_project.h"
#include "core/program_state.h"
#include "core/project/daily_audit.h"
#include "core/project/main_commands.h"
#include "core/project_data.h"
#include "platform/platform.h"
#include "reports/publishing.h"
#include "screens/frame/About.h"
#include "screens/frame/SaveProgress.h"
#include "screens/frame/StartPage.h"
#include "screens/frame/child_area.h"
#include "screens/frame/front_mark.h"
#include "screens/frame/help_key.h"
#include "screens/frame/main_actions.h"
#include "screens/frame/main_commands_table.h"
#include "screens/frame/pane_keys.h"
#include "screens/frame/toolbar_keys.h"
#include "screens/frame/toolbar_rows.h"
#include "screens/frame/window_memory.h"
#include "screens/parts/shown_text.h"
#include "screens/scanning/scanned_codes.h"
#include "ui_Main.h"

namespace tavernook {

namespace {

// The one project that is dragged; empty for anything else.
QString dragged_project(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    if (urls.size() != 1 || !urls.first().isLocalFile()) return {};
    const QString path = urls.first().toLocalFile();
    return path.endsWith(QLatin1String(".tvk"), Qt::CaseInsensitive) ? path : QString();
}

}  // namespace

// Keeps further commands, ticks and closing away while one command runs.
class Main::Busy {
  public:
    explicit Busy(Main& window) : window_(window) { ++window_.busy_; }
    ~Busy() { --window_.busy_; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    Main& window_;
};

Main::Main()
    : ui_(std::make_unique<Ui::Main>()),
      timers_(
          this, [this] { first_tick(); }, [this] { refresh(); }) {
    ui_->setupUi(this);
    registry_ = std::make_unique<ScreenRegistry>(*ui_->mdi_area);
    status_bar_ = std::make_unique<MainStatusBar>(*statusBar());
    progress_ = new SaveProgress(this);
    actions_ = new MainActions(*this, *registry_);
    children_ = new ChildArea(*ui_->mdi_area, *registry_, this);
    new ToolbarKeys({ui_->toolbar_1, ui_->toolbar_2}, *children_, this);
    new PaneKeys(*this, *actions_, *children_);
    new ToolbarRows(*this, *ui_->toolbar_1, *ui_->toolbar_2);
    new HelpKey(*this, *children_, *progress_);
    front_mark_ = std::make_unique<FrontMark>(*this, *registry_, *ui_->mdi_area);
    connect_parts();
    set_toolbar_captions(true);
    set_geometry(WindowGeometry{});
    refresh();
}

Main::~Main() {
    gone_ = true;
    timers_.stop();
    children_->let_go();
    hide();  // the child windows still hear of it, as long as their registry is there
}

void Main::connect_parts() {
    connect(actions_, &MainActions::command_wanted, this, &Main::run_command);
    connect(actions_, &MainActions::recent_wanted, this, &Main::open_recent);
    connect(children_, &ChildArea::changed, this, [this] {
        if (!gone_) refresh();
    });
    const StartPage& start = children_->start_page();
    connect(&start, &StartPage::new_wanted, ui_->mnuFile_NewProject, &QAction::trigger);
    connect(&start, &StartPage::open_wanted, ui_->mnuFile_Open, &QAction::trigger);
    connect(&start, &StartPage::sample_wanted, this, [this] { run(SeedProject); });
    connect(&start, &StartPage::recent_wanted, this, &Main::open_recent);
}

// --- what the logic tells ------------------------------------------------------------------------

void Main::load(const std::string& command_line) {
    {
        const Busy busy(*this);
        main_load(command_line);
    }
    if (!command_line.empty()) tell_when_not_opened(command_line);
    restore_window(*this);
    end_of_step();
    refresh();
    children_->focus_start_page();
}

void Main::set_title(std::string_view title) {
    title_ = title;
    refresh_title();
    children_->refresh(actions_->are_project_menus_allowed());
}

void Main::set_status(int panel, std::string_view text) {
    status_bar_->set_text(panel, text);
}

void Main::set_toolbar_state(int mode) {
    const bool open = mode == 2;
    if (!open) {
        for (const int panel : {message_panel, audit_time_panel}) set_status(panel, "");
    }
    actions_->allow_project_buttons(open);
    actions_->refresh(children_->has_child_window());
}

void Main::set_toolbar_captions(bool shown) {
    actions_->set_captions(shown);
}

void Main::set_recent_files(const std::vector<std::string>& paths) {
    actions_->set_recent_files(paths);
    children_->set_recent_files(actions_->recent_files());
}

void Main::enable_project_menus(bool enabled) {
    actions_->allow_project_menus(enabled);
    actions_->refresh(children_->has_child_window());
}

WindowGeometry Main::geometry() {
    return present_geometry(*this);
}

void Main::set_geometry(const WindowGeometry& geometry) {
    place_window(*this, geometry);
}

void Main::enable_timer(bool enabled) {
    if (enabled) {
        timers_.start();
    } else {
        timers_.stop();
    }
}

void Main::show_welcome_dialog() {
    welcome_wanted_ = true;
    if (isVisible()) welcome();
}

void Main::welcome() {
    if (std::exchange(welcome_wanted_, false)) registry_->show(QStringLiteral("Dialog"));
}

void Main::unload() {
    unloading_ = true;
    close();
    unloading_ = false;
}

void Main::end_program() {
    if (gone_) return;
    gone_ = true;
    timers_.stop();
    cancel_export();
    hide();
    Q_EMIT unloaded();
}

// --- steps ---------------------------------------------------------------------------------------

void Main::closeEvent(QCloseEvent* event) {
    if (gone_) return event->accept();
    event->ignore();
    if (busy_ > 0 && !unloading_) return;
    if (!may_close()) return end_of_step();
    event->accept();
    end_program();
}

bool Main::may_leave_project() {
    return registry_->settle_edits() && may_lose_scanned_codes() && registry_->may_end_work();
}

bool Main::may_close() {
    const Busy busy(*this);
    bool may = false;
    guarded([&] { may = may_leave_project() && main_unload(); });
    if (may) remember_window(*this);
    return may;
}

void Main::first_tick() {
    note_audit_minute();
    const bool quiet = !gone_ && busy_ == 0 && !progress_->work_is_running() && !boxes().is_open();
    if (!quiet) return;
    {
        const Busy busy(*this);
        daily_audit_check();
    }
    if (!gone_) end_of_step();
}

void Main::run(const Work& command) {
    if (busy_ > 0 || gone_) return;
    {
        const Busy busy(*this);
        set_status(message_panel, "");
        guarded(command);
    }
    if (gone_) return;
    end_of_step();
    refresh();
}

void Main::run_command(const MainCommand& command) {
    run([&] {
        if (command.run != nullptr) {
            command.run(*this);
        } else if (command.screen != nullptr) {
            registry_->show(QLatin1String(command.screen));
        }
    });
}

void Main::open_recent(int index) {
    const auto place = static_cast<std::size_t>(index);
    const std::vector<std::string>& paths = actions_->recent_files();
    if (place < paths.size()) open_path(paths[place]);
}

// By value, as opening changes the list that the path may come from.
void Main::open_path(const std::string& path) {
    run([this, wanted = path] {
        if (!may_leave_project()) return;
        project_load_failed = i16_false;
        open_recent_project(wanted);
        tell_when_not_opened(wanted);
    });
}

// A file that is not there has no box of its own.
void Main::tell_when_not_opened(const std::string& path) {
    if (project_load_failed == 0) return;
    const QString name = shown_path(file_name_part(path));
    set_status(message_panel,
               text_from_utf8(tr("%1 could not be opened.").arg(name).toStdString()));
    children_->set_recent_files(actions_->recent_files());
}

void Main::focus_screen() {
    children_->focus_child();
}

void Main::show_about() {
    auto* about = new About(this);
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->open();
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

// --- what is shown -------------------------------------------------------------------------------

void Main::refresh() {
    refresh_title();
    actions_->set_toolbars_shown(!is_spoken());
    actions_->refresh(children_->has_child_window());
    children_->refresh(actions_->are_project_menus_allowed());
}

bool Main::is_spoken() const {
    const QWidget* screen = registry_->loaded(QStringLiteral("VII"));
    return screen != nullptr && !screen->parentWidget()->isHidden();
}

// "[*]" in a file's name is no placeholder for a mark.
void Main::refresh_title() {
    QString shown = shown_text(title_);
    shown.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    if (project_modified != 0) shown += QLatin1Char('*');
    const QString child = children_->whole_title();
    if (!child.isEmpty()) shown = tr("%1 - [%2]").arg(shown, child);
    if (windowTitle() != shown) setWindowTitle(shown);
}

}  // namespace tavernook
