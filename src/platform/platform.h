// Everything that the logic asks of the outside, in one place. The program hands over a full set
// at its start; tests hand over fakes. An entry that was never handed over is a programming error.
#pragma once

#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/file_associations.h"
#include "platform/file_dialogs.h"
#include "platform/files.h"
#include "platform/help_viewer.h"
#include "platform/main_window.h"
#include "platform/project_lock.h"
#include "platform/save_progress.h"
#include "platform/screen_ports.h"
#include "platform/settings_store.h"
#include "platform/system_info.h"

namespace tavernook {

class BatchScanner;  // platform/batch_scanner.h
class Cabinets;      // platform/cabinets.h
class FtpSession;    // platform/ftp_session.h
class HtmlViews;     // platform/html_view.h
class PrintPrompt;   // platform/html_view.h
class Speech;        // platform/speech.h
namespace ports {
class FtpExport;  // platform/ftp_export.h
}

struct Platform {
    Clock* clock = nullptr;
    Boxes* boxes = nullptr;
    FileDialogs* file_dialogs = nullptr;
    Files* files = nullptr;
    SettingsStore* settings_store = nullptr;
    FileAssociations* file_associations = nullptr;
    ProjectLock* project_lock = nullptr;
    SystemInfo* system_info = nullptr;
    HelpViewer* help_viewer = nullptr;
    ports::SaveProgress* save_progress = nullptr;
    ports::Main* main = nullptr;
    ports::Screens* screens = nullptr;
    ports::ReplaceItem* replace_item = nullptr;
    ports::ImportForm* import_form = nullptr;
    BatchScanner* batch_scanner = nullptr;
    Cabinets* cabinets = nullptr;
    FtpSession* ftp_session = nullptr;
    ports::FtpExport* ftp_export = nullptr;
    HtmlViews* html_views = nullptr;
    PrintPrompt* print_prompt = nullptr;
    Speech* speech = nullptr;
};

// Handed over once at the start (and by each test); nothing in it is owned.
void set_platform(const Platform& platform);
void clear_platform();

Clock& platform_clock();
Boxes& boxes();
FileDialogs& file_dialogs();
Files& files();
SettingsStore& settings_store();
FileAssociations& file_associations();
ProjectLock& project_lock();
SystemInfo& system_info();
HelpViewer& help_viewer();
ports::SaveProgress& save_progress();
ports::Main& main_window();
ports::Screens& screens();

// The screens that are loaded at the moment; null while a screen is not.
ports::FoodInventory* food_inventory();
ports::Mealbuilder* mealbuilder();
ports::MealPlan* meal_plan();
ports::ShoppingList* shopping_list();
ports::Reports* reports();
ports::CS1504GETUPC* scan_list();
ports::PP* preview();

// A screen tells of itself while it is loaded.
void set_food_inventory(ports::FoodInventory* screen);
void set_mealbuilder(ports::Mealbuilder* screen);
void set_meal_plan(ports::MealPlan* screen);
void set_shopping_list(ports::ShoppingList* screen);
void set_reports(ports::Reports* screen);
void set_scan_list(ports::CS1504GETUPC* screen);
void set_preview(ports::PP* screen);

ports::ReplaceItem& replace_item_screen();
ports::ImportForm& import_form();

Cabinets& cabinets();
BatchScanner& scanner_device();
FtpSession& ftp_session();
ports::FtpExport* ftp_export();  // null in a program without that window

HtmlViews& html_views();
PrintPrompt& print_prompt();

Speech& speech();

}  // namespace tavernook
