#include "core/project/main_commands.h"

#include "basics/code_page.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/companions.h"
#include "core/project/daily_audit.h"
#include "core/project/file_management.h"
#include "core/project/previous_version.h"
#include "core/project/project_claim.h"
#include "core/project/recent_files.h"
#include "core/project/settings_file.h"
#include "core/project_data.h"
#include "core/project_file/project_file_format.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr i16 shown = 0;
constexpr i16 silent = 1;
constexpr const char* no_help =
    "Unable to display Help Contents. There is no Help associated with this project.";

FileDialogRequest project_dialog(const char* title) {
    return {title, "Tavernook Files (*.tvk)|*.tvk", in_program_folder("*.tvk")};
}

// Saving moves the old file aside: behind a link that must be the file, or the link would go.
std::string path_to_save(const char* title) {
    return files().behind_link(file_dialogs().save_file(project_dialog(title)));
}

void show_project_title() {
    main_window().set_title("Tavernook - " + text_from_utf8(project_name));
}

void read_date_order() {
    const std::string format = system_info().short_date_format();
    const char first = format.empty() ? ' ' : format.front();
    if (first == 'm' || first == 'M') date_day_first = 0;
    if (first == 'd' || first == 'D') date_day_first = 1;
}

void set_program_defaults() {
    project_open = i16_false;
    expiration_warning_days = 10;
    audit_hour = 23;
    audit_minute = 59;
    sales_tax = 0;
}

// The path is claimed already, and the project that was open before has been saved or let go. The
// title shows the name, or else the file's.
void open_project_at(const std::string& path, const std::string& name = {}) {
    set_project_path(path);
    if (!name.empty()) project_name = name;
    Project_Open();
    if (project_load_failed != 0) return give_up_project();
    load_recent_menu();
}

// A file that is gone leaves the open project alone; there is no box for it.
bool is_there_to_open(const std::string& path) {
    if (files().exists(path) || previous_version_exists(path)) return true;
    project_load_failed = i16_true;
    return false;
}

// True when the open project has given way, whether or not the new one could be opened.
bool replace_open_project(const std::string& path) {
    const std::string project = project_of_previous_version(files().behind_link(path));
    if (!is_there_to_open(project) || !claim_project(project)) return false;
    reset_project_tables();
    open_project_at(project);
    return true;
}

// False when the user wants to keep the open project.
bool let_go_of_open_project() {
    if (project_open == 0) return true;
    add_recent_project(project_path);
    bool may_go_on = false;
    return Project_Modified(may_go_on);
}

bool changes_were_dropped = false;

bool modified_was_saved() {
    if (!Project_Save(shown)) return false;
    project_modified = i16_false;
    return true;
}

bool modified_was_dropped() {
    changes_were_dropped = true;
    project_modified = i16_false;
    return true;
}

bool ask_to_save() {
    if (project_modified == 0) return true;
    switch (boxes().message("Project has been modified.  Would you like to save before closing?",
                            Buttons::yes_no_cancel, "Project Modified")) {
        case Answer::yes:
            return modified_was_saved();
        case Answer::no:
            return modified_was_dropped();
        default:
            return false;
    }
}

// A command after which another project is open. "No" to saving drops changes together with their
// project: where that stays open after all, as after a cancelled dialog, they are still unsaved.
template <typename Command>
bool replacing_project(std::string_view procedure, Command&& command) {
    changes_were_dropped = false;
    bool replaced = false;
    trap_in_main(procedure, [&] { replaced = command(); });
    if (!replaced && changes_were_dropped) project_modified = i16_true;
    return replaced;
}

// The account of the project before is nobody else's; the other settings stay.
void blank_ftp_account() {
    ftp_server = "";
    ftp_account = "";
    ftp_password = "";
    ftp_directory = "";
}

void write_new_project(const std::string& path) {
    set_project_path(path);
    screens().unload_all();
    drop_companions();
    reset_project_tables();
    blank_ftp_account();
    project_open = i16_false;
    drop_waiting_audit();
    if (!Project_Save(silent)) return give_up_project();
    settle_companions(FileStamp{});
    // Only now: the first file carries the version that memory had, and its item spacing.
    file_version = project_file::current_file_version;
    older_file_format = i16_false;
    main_window().set_toolbar_state(2);
    main_window().enable_project_menus(true);
    project_open = i16_true;
    scanner_type = 0;
    show_project_title();
    keep_only_claim(project_path);
}

bool create_project() {
    project_created = date_alone(platform_clock().now());
    bool may_go_on = false;
    if (!Project_Modified(may_go_on)) return false;
    const std::string path = path_to_save("New Project");
    if (!may_start_project_at(path) || !claim_project(path)) return false;
    write_new_project(path);
    return true;
}

void save_under(const std::string& path) {
    const std::string old_path = project_path;
    const std::string old_name = project_name;
    const CompanionsTakenAlong taken_along;
    set_project_path(path);
    if (Project_Save(shown)) {
        project_modified = i16_false;
        show_project_title();
    } else {
        project_path = old_path;
        project_name = old_name;
    }
    keep_only_claim(project_path);
}

void remove_what_killed_programs_left() {
    for (const std::string& folder :
         {recipes_folder, in_program_folder("reports"), in_program_folder("dat"),
          in_program_folder("barcode"), system_info().settings_folder()}) {
        files().remove_left_over(folder);
    }
}

void load_main_window(const std::string& command_line) {
    read_date_order();
    recipes_folder = in_program_folder("recipes/");
    main_window().set_status(activity_panel, "Start-up");
    settings_file = system_info().settings_folder() + "/TVK.dat";
    load_window_state();
    if (window_geometry != WindowGeometry{}) main_window().set_geometry(window_geometry);
    set_program_defaults();
    main_window().set_toolbar_state(1);
    main_window().enable_project_menus(false);
    remove_what_killed_programs_left();
    load_recent_menu();
    if (hide_welcome_dialog == 0 && command_line.empty()) main_window().show_welcome_dialog();
    if (!command_line.empty()) open_project_at(files().behind_link(command_line));
    main_window().start_timer_pair();
}

}  // namespace

void main_load(const std::string& command_line) noexcept {
    trap_in_main("", [&] { load_main_window(command_line); });
}

bool mnuFile_NewProject() noexcept {
    const Date created_before = project_created;
    const bool replaced = replacing_project("mnufile_newproject_click", create_project);
    if (!replaced) project_created = created_before;
    return replaced && project_open != 0;
}

void mnuFile_Open() noexcept {
    main_open();
}

bool main_open() noexcept {
    const bool replaced = replacing_project("Main_Open", [] {
        if (!let_go_of_open_project()) return false;
        return replace_open_project(file_dialogs().open_file(project_dialog("Open Project")));
    });
    return replaced && project_open != 0;
}

void open_recent_project(const std::string& path) noexcept {
    replacing_project("mnuRecentFile_Click",
                      [&] { return let_go_of_open_project() && replace_open_project(path); });
}

bool open_brought_project(std::string_view procedure, const std::string& path,
                          const std::string& name, const std::function<void()>& bring) noexcept {
    return replacing_project(procedure, [&] {
        if (!let_go_of_open_project()) return false;
        bring();
        reset_project_tables();
        open_project_at(path, name);
        return true;
    });
}

void mnuFile_Save() noexcept {
    if (project_open == 0) return;  // the path may still be that of the last one
    trap_in_main("mnuFile_Save_Click", [] {
        const i16 modified_before = project_modified;
        project_modified = i16_false;
        if (!Project_Save(shown)) project_modified = modified_before;
    });
}

void mnuFile_SaveAs() noexcept {
    if (project_open == 0) return;
    trap_in_main("mnuFile_SaveAs_Click", [] {
        const std::string path = path_to_save("Save As");
        // The open project's own name stays usable when only its last save failed.
        if (path != project_path && !may_start_project_at(path)) return;
        if (claim_project(path)) save_under(path);
    });
}

void mnuFile_Close() noexcept {
    trap_in_main("mnuFile_Close_Click", [] {
        bool may_go_on = false;
        if (Project_Modified(may_go_on)) project_close();
    });
}

void mnuFile_Exit() noexcept {
    trap_in_main("mnuFile_Exit_Click", [] {
        window_geometry = main_window().geometry();
        save_window_state();
        main_window().unload();
    });
}

bool main_unload() noexcept {
    bool may_go_on = false;
    if (!Project_Modified(may_go_on)) return false;
    trap_in_main("Main_Unload", [] {
        window_geometry = main_window().geometry();
        save_window_state();
        add_recent_project(project_path);
        note_last_project(project_path);
        platform_clock().wait_seconds(0.1);
        screens().unload_all();
        drop_companions();
        release_claims();
    });
    return true;
}

bool Project_Modified(bool& may_go_on) noexcept {
    may_go_on = false;
    trap_in_main("Project_Modified", [&] { may_go_on = ask_to_save(); });
    return may_go_on;
}

void project_close() noexcept {
    trap_in_main("project_close", [] {
        reset_project_tables();
        project_open = i16_false;
        drop_waiting_audit();
        project_modified = i16_false;
        main_window().set_title("Tavernook");
        main_window().enable_project_menus(false);
        screens().unload_all();
        main_window().set_toolbar_state(1);
        drop_companions();  // behind all that writes into the status bar
        release_claims();
    });
}

void give_up_project() noexcept {
    project_close();
    set_project_path({});
}

void init_forms() noexcept {
    trap_in_main("init_forms", [] { screens().load_food_inventory(); });
}

void load_help() noexcept {
    trap_in_main("load_help", [] {
        if (!help_viewer().show_contents()) boxes().message(no_help);
    });
}

void load_search() noexcept {
    trap_in_main("load_search", [] {
        if (!help_viewer().show_search()) boxes().message(no_help);
    });
}

void load_help_on(const std::string& screen) noexcept {
    trap_in_main("load_help_on", [&] {
        if (!help_viewer().show_page(screen)) boxes().message(no_help);
    });
}

}  // namespace tavernook
