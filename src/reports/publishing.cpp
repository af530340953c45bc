#include "reports/publishing.h"

#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/project_settings.h"
#include "core/trap.h"
#include "platform/ftp_session.h"
#include "platform/platform.h"

namespace tavernook {

i16 export_style = 0;

namespace {

bool runs = false;
bool cancelled = false;
bool is_over = false;  // the session is closed, and only the window goes

constexpr i16 size_on_the_web = 1;

struct Upload {
    const char* folder;
    const char* name;
    int progress;  // when it has been sent
};

constexpr Upload uploads[] = {
    {"dat/", "calm.htm", 20},     {"dat/", "month.jpg", 30},    {"dat/", "list.htm", 40},
    {"reports/", "main.htm", 75}, {"reports/", "tvkr.jpg", 76}, {"reports/", "point.gif", 77},
    {"reports/", "list.jpg", 78}, {"reports/", "mv.jpg", 90},
};

// With "http://" in front the host is the rest as it is stored, blanks and all.
FtpAccount stored_account() {
    constexpr std::string_view http = "http://";
    const std::string_view stored = ftp_server.stored();
    const bool has_http = stored.substr(0, http.size()) == http;
    return {.server = std::string(has_http ? stored.substr(http.size()) : trim_right(stored)),
            .name = std::string(ftp_account.right_trimmed()),
            .password = std::string(ftp_password.right_trimmed())};
}

class Export {
  public:
    Export(ports::FtpExport& window, const PageBuilders& pages) : window_(window), pages_(pages) {}

    void run();
    std::string sent_files() const;

  private:
    void begin(std::string_view text, int progress);
    void build_pages();
    void connect();
    void send_files();
    void disconnect();
    void stop_if_cancelled() const;

    ports::FtpExport& window_;
    const PageBuilders& pages_;
    const FtpAccount account_ = stored_account();
    // "root" is a directory like any other.
    const std::string directory_{ftp_directory.right_trimmed()};
    const std::string project_ = project_path;
    std::size_t sent_ = 0;
};

void Export::run() {
    build_pages();
    connect();
    ftp_session().change_directory(directory_);
    send_files();
    disconnect();
}

void Export::stop_if_cancelled() const {
    const bool is_here = project_open != 0 && project_path == project_;
    if (cancelled || !is_here) throw Fault(fault_number::cancel_was_selected);
}

void Export::begin(std::string_view text, int progress) {
    window_.updatetext(text);
    window_.set_progress(progress);
    stop_if_cancelled();
}

void remove_page(std::string_view name) {
    const std::string path = in_program_folder(name);
    if (files().is_taken(path)) files().remove(path);
}

// The window hears nobody while a page is made, so that all its faults are those of the export.
void make(const auto& page) {
    const Unattended quiet(export_style == 1);
    page();
}

void Export::build_pages() {
    begin("Building Main Report", 1);
    make([this] { pages_.build_main_report(); });
    begin("Building Grocery List", 5);
    remove_page("dat/list.htm");
    make([this] { pages_.Build_HTMLlist(size_on_the_web); });
    begin("Building Month View", 8);
    remove_page("dat/calm.htm");
    make([this] { pages_.Build_HTMLCal_Month(size_on_the_web); });
}

void Export::connect() {
    if (!ftp_session().is_encrypted(account_.server)) {
        window_.updatetext(
            "The password goes to the server unencrypted.  An address that begins with \"ftps://\" "
            "or \"sftp://\" encrypts it.");
    }
    stop_if_cancelled();
    ftp_session().open(account_,
                       {.status = [this](std::string_view line) { window_.updatetext(line); }});
    window_.set_progress(10);
}

void Export::send_files() {
    for (const Upload& upload : uploads) {
        ftp_session().put_file(upload.name,
                               in_program_folder(std::string(upload.folder) + upload.name));
        ++sent_;
        window_.set_progress(upload.progress);
    }
}

void Export::disconnect() {
    ftp_session().close();
    window_.set_progress(100);
    window_.enable_close(true);
}

std::string Export::sent_files() const {
    return std::to_string(sent_) + " of " + std::to_string(std::size(uploads)) +
           " files were sent to " + std::string(trim_right(account_.server)) + ".";
}

void tell_result(const std::string& text) {
    main_window().set_status(message_panel, text);
}

void tell_failure(const Fault& fault, const std::string& sent_files) {
    const std::string text =
        "There has been an error.  Please notify Brenwyk Software that an error occured while "
        "doing an FTP export with the error code " +
        std::to_string(fault.number) + " and description of " + fault.description;
    if (export_style == 1) return tell_result(text);
    tell_result("Publishing has failed.  " + sent_files);
    show_fault(text);
}

void leave_cancelled(ports::FtpExport& window, const std::string& sent_files) {
    const std::string text = "Publishing was cancelled.  " + sent_files;
    tell_result(text);
    window.updatetext(text);
    window.enable_close(true);
}

void export_pages(ports::FtpExport& window, const PageBuilders& pages) {
    Export work(window, pages);
    std::optional<Fault> failure;
    const bool is_sent = trap([&] { work.run(); }, [&](const Fault& fault) { failure = fault; });
    ftp_session().close();
    is_over = true;
    if (is_sent) tell_result(work.sent_files());
    if (failure) tell_failure(*failure, work.sent_files());
    if (!is_sent && !failure) leave_cancelled(window, work.sent_files());
    if (failure || export_style == 1) window.unload();
}

}  // namespace

void setstyle(i16 style) noexcept {
    export_style = style;
}

void Project_SendtoWeb() noexcept {
    trap_in_main("Project_SendtoWeb", [] {
        if (!ftp_account_is_complete()) {
            boxes().message(incomplete_ftp_account);
            return;
        }
        ports::FtpExport* window = ftp_export();
        if (window == nullptr) return;
        window->setstyle(0);
        window->show();
    });
}

void send_reports(ports::FtpExport& window, const PageBuilders& pages) noexcept {
    if (std::exchange(runs, true)) return;
    cancelled = false;
    if (!trap_in_module([&] { export_pages(window, pages); })) ftp_session().close();
    runs = false;
    is_over = false;
}

void cancel_export() noexcept {
    if (!runs || is_over) return;  // the session would keep it for the next export
    cancelled = true;
    ftp_session().cancel();
}

bool export_runs() noexcept {
    return runs;
}

}  // namespace tavernook
