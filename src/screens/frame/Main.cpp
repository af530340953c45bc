#include "screens/frame/Main.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QScreen>

#include "core/program_state.h"
#include "core/project/daily_audit.h"
#include "core/project/main_commands.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "screens/frame/About.h"
#include "screens/frame/SaveProgress.h"
#include "screens/frame/StartPage.h"
#include "screens/frame/main_commands_table.h"
#include "screens/frame/window_place.h"
#include "screens/parts/shown_text.h"
#include "ui_Main.h"

namespace tavernook {

namespace {

constexpr const char* settings_section = "Window";

QList<QRect> places_on_screens() {
    QList<QRect> places{QGuiApplication::primaryScreen()->availableGeometry()};
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen != QGuiApplication::primaryScreen()) places.append(screen->availableGeometry());
    }
    return places;
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
    progress_ = new SaveProgress(this);
    set_up_commands();
    set_up_toolbars();
    set_up_status_bar();
    set_up_start_page();
    set_toolbar_captions(true);
    set_geometry(WindowGeometry{});
    refresh();
}

Main::~Main() {
    gone_ = true;
    timers_.stop();
    disconnect(ui_->mdi_area, nullptr, this, nullptr);
    ui_->mdi_area->viewport()->removeEventFilter(this);
    hide();  // the child windows still hear of it, as long as their registry is there
}

void Main::load(const std::string& command_line) {
    {
        const Busy busy(*this);
        main_load(command_line);
    }
    if (!command_line.empty()) tell_when_not_opened(command_line);
    restore_window();
    refresh();
    start_page_->focus_first();
}

void Main::set_title(std::string_view title) {
    title_ = title;
    refresh_title();
    refresh_start_page();
}

void Main::enable_project_menus(bool enabled) {
    project_menus_ = enabled;
    refresh_commands();
}

WindowGeometry Main::geometry() {
    if (!isMaximized() && !isFullScreen() && !isMinimized()) {
        return geometry_from_rect(QRect(pos(), size()));
    }
    const QPoint frame = QWidget::geometry().topLeft() - pos();
    const QRect normal = normalGeometry();
    return geometry_from_rect(QRect(normal.topLeft() - frame, normal.size()));
}

void Main::set_geometry(const WindowGeometry& geometry) {
    const QList<QRect> screens = places_on_screens();
    const QRect place = geometry == WindowGeometry{}
                            ? designed_place(screens.first())
                            : reachable_place(rect_from_geometry(geometry), screens);
    resize(place.size());
    move(place.topLeft());
}

void Main::enable_timer(bool enabled) {
    if (enabled) {
        timers_.start();
    } else {
        timers_.stop();
    }
}

void Main::show_welcome_dialog() {
    registry_->show(QStringLiteral("Dialog"));
}

void Main::unload() {
    unloading_ = true;
    close();
    unloading_ = false;
}

void Main::end_program() {
    gone_ = true;
    timers_.stop();
    hide();
    Q_EMIT unloaded();
}

void Main::closeEvent(QCloseEvent* event) {
    if (gone_) return event->accept();
    event->ignore();
    if (busy_ > 0 && !unloading_) return;
    {
        const Busy busy(*this);
        if (!registry_->settle_edits() || !main_unload()) return;
        remember_window();
    }
    event->accept();
    end_program();
}

void Main::first_tick() {
    const bool quiet =
        busy_ == 0 && !progress_->work_is_running() && QApplication::activeModalWidget() == nullptr;
    if (!quiet) return;
    const Busy busy(*this);
    daily_audit_check();
}

void Main::run(const std::function<void()>& command) {
    if (busy_ > 0 || gone_) return;
    {
        const Busy busy(*this);
        set_status(message_panel, "");
        command();
    }
    if (!gone_) refresh();
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
    if (place < recent_paths_.size()) open_path(recent_paths_[place]);
}

// By value, as opening changes the list that the path may come from.
void Main::open_path(const std::string& path) {
    run([this, wanted = path] {
        if (!registry_->settle_edits()) return;
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
}

void Main::show_about() {
    auto* about = new About(this);
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->open();
}

void Main::tile() {
    ui_->mdi_area->tileSubWindows();
}
void Main::cascade() {
    ui_->mdi_area->cascadeSubWindows();
}

void Main::refresh() {
    refresh_title();
    refresh_commands();
    refresh_start_page();
}

// "[*]" in a file's name is no placeholder for a mark.
void Main::refresh_title() {
    QString shown = shown_text(title_);
    shown.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    if (project_modified != 0) shown += QLatin1Char('*');
    if (windowTitle() != shown) setWindowTitle(shown);
}

bool Main::child_window_is_open() const {
    const auto children = ui_->mdi_area->subWindowList();
    return std::any_of(children.begin(), children.end(),
                       [](const QMdiSubWindow* child) { return !child->isHidden(); });
}

void Main::remember_window() {
    trap_in_module([this] {
        settings_store().set(settings_section, "Maximised", isMaximized() ? "1" : "0");
        settings_store().set(settings_section, "Toolbars", saveState().toBase64().toStdString());
    });
}

void Main::restore_window() {
    trap_in_module([this] {
        const std::string toolbars = settings_store().get(settings_section, "Toolbars");
        if (!toolbars.empty()) {
            restoreState(QByteArray::fromBase64(QByteArray::fromStdString(toolbars)));
        }
        if (settings_store().get(settings_section, "Maximised") == "1") {
            setWindowState(windowState() | Qt::WindowMaximized);
        }
    });
}

}  // namespace tavernook
