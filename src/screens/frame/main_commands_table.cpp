#include "screens/frame/main_commands_table.h"

#include "core/project/daily_audit.h"
#include "core/project/main_commands.h"
#include "platform/platform.h"
#include "reports/publishing.h"
#include "screens/frame/Main.h"
#include "screens/frame/ProjectSetup.h"
#include "screens/frame/child_area.h"
#include "transfer/backup.h"
#include "transfer/csv_export.h"
#include "transfer/merge.h"
#include "transfer/package.h"

namespace tavernook {

namespace {

void new_project(Main& window) {
    if (window.may_leave_project()) mnuFile_NewProject();
}
void open(Main& window) {
    if (window.may_leave_project()) mnuFile_Open();
}
void save(Main& window) {
    if (window.registry().settle_edits()) mnuFile_Save();
}
void save_as(Main& window) {
    if (window.registry().settle_edits()) mnuFile_SaveAs();
}
void close_project(Main& window) {
    if (window.may_leave_project()) mnuFile_Close();
}
void backup(Main&) {
    mnuFile_Backup();
}
void restore(Main& window) {
    if (window.may_leave_project()) mnuFile_Restore();
}
void pack(Main& window) {
    if (window.registry().settle_edits()) projpack_pack();
}
void unpack(Main& window) {
    if (window.may_leave_project()) projpack_unpack();
}
void export_csv(Main& window) {
    if (window.registry().settle_edits()) mnuFile_CSVExport();
}
void merge(Main& window) {
    if (window.registry().settle_edits()) mnuFile_ProjectMerge();
}
// Opened from here it books codes, however it was opened before.
void scan_list_to_book(Main& window) {
    window.registry().show(QStringLiteral("CS1504GETUPC"));
    if (ports::CS1504GETUPC* list = scan_list()) list->single_not_get();
}
void leave(Main&) {
    mnuFile_Exit();
}
void help(Main&) {
    load_help();
}
void help_search(Main&) {
    load_search();
}
void about(Main& window) {
    window.show_about();
}
// Where a lesson has it open beside itself, that one comes in front.
void project_setup(Main& window) {
    const QString name = QStringLiteral("ProjectSetup");
    if (window.registry().loaded(name) != nullptr) {
        window.registry().show(name);
    } else {
        ProjectSetup(&window).exec();
    }
}
void audit(Main&) {
    audit_now();
}
void send_to_web(Main&) {
    Project_SendtoWeb();
}
void tile(Main& window) {
    window.children().tile();
}
void cascade(Main& window) {
    window.children().cascade();
}

void give_full_size(Main& window) {
    window.registry().give_full_size();
}

constexpr const char* none = nullptr;

// clang-format off
constexpr MainCommand commands[] = {
    {"mnuFile_NewProject", new_project, none, Needs::nothing, none, "Start a new project."},
    {"mnuFile_Open", open, none, Needs::nothing, none, "Open a project from a file."},
    {"mnuFile_Save", save, none, Needs::project, none, "Save the open project."},
    {"mnuFile_SaveAs", save_as, none, Needs::project, none, "Save the open project under another name and go on with that."},
    {"mnuFile_Close", close_project, none, Needs::project, none, "Close the open project."},
    {"mnuFile_Backup", backup, none, Needs::project, none, "Copy the saved project into a smaller back-up file, without the recipes' texts."},
    {"mnuFile_Restore", restore, none, Needs::nothing, none, "Bring a project back from a back-up file."},
    {"mnuFile_Package", pack, none, Needs::project, none, "Pack the project to pass it on."},
    {"mnuFile_Unpack", unpack, none, Needs::nothing, none, "Unpack a project that was passed on."},
    {"mnuFile_CSVExport", export_csv, none, Needs::project, none, "Write the project's lists for use in a spreadsheet."},
    {"mnuFile_Merge", merge, none, Needs::project, none, "Take in the items and recipes of another project."},
    {"mnuFile_Exit", leave, none, Needs::nothing, none, "Leave Tavernook."},
    {"mnuProject_MealPlanning", nullptr, "MealPlan", Needs::project, none, "Plan meals on the calendar."},
    {"mnuProject_FoodInventory", nullptr, "FoodInventory", Needs::project, none, "See and change what is in stock."},
    {"mnuProject_MealBuilder", nullptr, "Mealbuilder", Needs::project, none, "See and write recipes."},
    {"Project_Setup", project_setup, none, Needs::project, none, "Change the project's settings."},
    {"Project_ScanList", nullptr, none, Needs::another_place, none, "Use the \"Scan List\" button of the toolbar, or Ctrl+5."},
    {"Project_ShoppingList", nullptr, "ShoppingList", Needs::project, none, "See what has to be bought."},
    {"mnu_wam", nullptr, "wam", Needs::project, none, "See and change weights and measures."},
    {"mnu_barcode", nullptr, "BCBuild", Needs::project, none, "Make a sheet of barcode labels."},
    {"Project_Calculator", nullptr, none, Needs::another_place, none, "Use the \"Calculator\" button of the toolbar, or Ctrl+9."},
    {"Project_SendtoWeb", send_to_web, none, Needs::project, none, "Publish calendar and lists on the web."},
    {"mnu_reports", nullptr, "Reports", Needs::project, none, "Find, list and print."},
    {"mnu_audit", audit, none, Needs::project, none, "Take what was planned out of the stock now."},
    {"mnu_vii", nullptr, "VII", Needs::project, none, "Work by ear: everything is spoken."},
    {"mnu_tile", tile, none, Needs::child_window, none, "Arrange the open screens side by side."},
    {"mnu_cascade", cascade, none, Needs::child_window, none, "Arrange the open screens one behind the other."},
    {"mnu_full", give_full_size, none, Needs::child_window, none, "Let the screens fill the window again."},
    {"mnu_tvkhelp", help, none, Needs::nothing, none, "Show the help pages."},
    {"mnu_tut", nullptr, "Dialog", Needs::nothing, none, "Learn Tavernook in short lessons."},
    {"mnuhelp_search", help_search, none, Needs::nothing, none, "Search the help pages for a word."},
    {"mnu_about", about, none, Needs::nothing, none, "Show the version and the licence."},

    {"toolbar_1_1", new_project, none, Needs::nothing, "new", "Start a new project."},
    {"toolbar_1_2", open, none, Needs::nothing, "open", "Open a project from a file."},
    {"toolbar_1_3", save, none, Needs::project_button, "save", "Save the open project."},
    {"toolbar_1_5", project_setup, none, Needs::project_button, "setup", "Change the project's settings."},
    {"toolbar_1_7", nullptr, "FoodInventory", Needs::project_button, "inventory", "See and change what is in stock."},
    {"toolbar_1_8", nullptr, "MealPlan", Needs::project_button, "meal_plan", "Plan meals on the calendar."},
    {"toolbar_1_9", nullptr, "Mealbuilder", Needs::project_button, "recipes", "See and write recipes."},
    {"toolbar_1_11", help, none, Needs::nothing, "help", "Show the help pages."},
    {"toolbar_2_1", nullptr, "Reports", Needs::project_button, "reports", "Find, list and print."},
    {"toolbar_2_2", scan_list_to_book, "CS1504GETUPC", Needs::project_button, "scan_list", "See the scanned codes and book them."},
    {"toolbar_2_3", nullptr, "ShoppingList", Needs::project_button, "grocery_list", "See what has to be bought."},
    {"toolbar_2_4", nullptr, "BCBuild", Needs::project_button, "barcodes", "Make a sheet of barcode labels."},
    {"toolbar_2_5", nullptr, "wam", Needs::project_button, "measures", "See and change weights and measures."},
    {"toolbar_2_6", audit, none, Needs::project_button, "audit", "Take what was planned out of the stock now."},
    {"toolbar_2_7", nullptr, "Calculator", Needs::nothing, "calculator", "Work something out."},
};
// clang-format on

}  // namespace

std::span<const MainCommand> main_commands() {
    return commands;
}

}  // namespace tavernook
