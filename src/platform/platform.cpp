#include "platform/platform.h"

#include <cstdio>
#include <cstdlib>

namespace tavernook {

namespace {

Platform handed_over;
ports::FoodInventory* loaded_food_inventory = nullptr;
ports::Mealbuilder* loaded_mealbuilder = nullptr;
ports::MealPlan* loaded_meal_plan = nullptr;
ports::ShoppingList* loaded_shopping_list = nullptr;
ports::Reports* loaded_reports = nullptr;
ports::CS1504GETUPC* loaded_scan_list = nullptr;
ports::PP* loaded_preview = nullptr;

template <typename Service>
Service& required(Service* service, const char* name) {
    if (service == nullptr) {
        std::fprintf(stderr, "The platform has no %s.\n", name);
        std::abort();
    }
    return *service;
}

}  // namespace

void set_platform(const Platform& platform) {
    handed_over = platform;
}
void clear_platform() {
    handed_over = Platform{};
}

Clock& platform_clock() {
    return required(handed_over.clock, "clock");
}
Boxes& boxes() {
    return required(handed_over.boxes, "boxes");
}
FileDialogs& file_dialogs() {
    return required(handed_over.file_dialogs, "file dialogs");
}
Files& files() {
    return required(handed_over.files, "files");
}
SettingsStore& settings_store() {
    return required(handed_over.settings_store, "settings store");
}
FileAssociations& file_associations() {
    return required(handed_over.file_associations, "file associations");
}
ProjectLock& project_lock() {
    return required(handed_over.project_lock, "project lock");
}
SystemInfo& system_info() {
    return required(handed_over.system_info, "system info");
}
HelpViewer& help_viewer() {
    return required(handed_over.help_viewer, "help viewer");
}
ports::SaveProgress& save_progress() {
    return required(handed_over.save_progress, "progress window");
}
ports::Main& main_window() {
    return required(handed_over.main, "main window");
}
ports::Screens& screens() {
    return required(handed_over.screens, "screens");
}

ports::ReplaceItem& replace_item_screen() {
    return required(handed_over.replace_item, "replacement screen");
}

ports::ImportForm& import_form() {
    return required(handed_over.import_form, "status window");
}

Cabinets& cabinets() {
    return required(handed_over.cabinets, "cabinets");
}
BatchScanner& scanner_device() {
    return required(handed_over.batch_scanner, "batch scanner");
}

FtpSession& ftp_session() {
    return required(handed_over.ftp_session, "FTP session");
}
ports::FtpExport* ftp_export() {
    return handed_over.ftp_export;
}

HtmlViews& html_views() {
    return required(handed_over.html_views, "view of pages");
}
PrintPrompt& print_prompt() {
    return required(handed_over.print_prompt, "print dialog");
}

Speech& speech() {
    return required(handed_over.speech, "voice");
}

ports::FoodInventory* food_inventory() {
    return loaded_food_inventory;
}
ports::Mealbuilder* mealbuilder() {
    return loaded_mealbuilder;
}
ports::MealPlan* meal_plan() {
    return loaded_meal_plan;
}
ports::ShoppingList* shopping_list() {
    return loaded_shopping_list;
}
ports::Reports* reports() {
    return loaded_reports;
}
ports::CS1504GETUPC* scan_list() {
    return loaded_scan_list;
}
ports::PP* preview() {
    return loaded_preview;
}
void set_food_inventory(ports::FoodInventory* screen) {
    loaded_food_inventory = screen;
}
void set_mealbuilder(ports::Mealbuilder* screen) {
    loaded_mealbuilder = screen;
}
void set_meal_plan(ports::MealPlan* screen) {
    loaded_meal_plan = screen;
}
void set_shopping_list(ports::ShoppingList* screen) {
    loaded_shopping_list = screen;
}
void set_reports(ports::Reports* screen) {
    loaded_reports = screen;
}
void set_scan_list(ports::CS1504GETUPC* screen) {
    loaded_scan_list = screen;
}
void set_preview(ports::PP* screen) {
    loaded_preview = screen;
}

}  // namespace tavernook
