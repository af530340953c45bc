#include "fakes/program_state_reset.h"

#include "aids/lessons.h"
#include "barcodes/barcode_on_show.h"
#include "barcodes/scan_list.h"
#include "core/catagories.h"
#include "core/name_rows.h"
#include "core/program_state.h"
#include "core/project/daily_audit.h"
#include "core/project/known_files.h"
#include "core/project_data.h"
#include "inventory/usage_files.h"
#include "planning/planner_state.h"
#include "recipes/documents.h"
#include "reports/preview.h"
#include "reports/publishing.h"
#include "shopping/list_rows.h"

namespace tavernook {

namespace {

template <typename... Tables>
void blank_entry_0(Tables&... tables) {
    ((tables[0] = {}), ...);
}

void reset_tables() {
    reset_project_tables();
    blank_entry_0(items, item_details, lots, catagories, units, stores, meals, meal_serving_size,
                  meal_documents, days, day_quantities, wams, pooled_strings);
    for (CatagoryRecord& catagory : catagories) {
        catagory.type = 0;
        catagory.parent = 0;
    }
    for (i16& item : expiring_items) item = 0;
    for (i16& item : list_items) item = 0;
}

void reset_settings() {
    project_header = ProjectHeader{};
    project_reserved_words.fill(0);
    audit_hour = 0;
    audit_minute = 0;
    expiration_warning_days = 0;
    sales_tax = 0;
    scanner_comm_port = 0;
    scanner_reserved = 0;
    ftp_send_after_audit = 0;
    audit_on_startup = 0;
    save_after_audit = 0;
    scanner_type = 0;
    project_created = 0;
    ftp_server = "";
    ftp_account = "";
    ftp_password = "";
    ftp_directory = "";
    audit_days_ahead = 0;
    currency_symbol = default_currency_symbol;
    font_size = 0;
    show_toolbar_text = 0;
    project_tag = 0;
    project_path.clear();
    project_name.clear();
}

void reset_lesson() {
    tut_pages = {"", ""};
    tut_page = 1;
    tut_section = 0;
}

void reset_status() {
    project_open = i16_false;
    project_modified = i16_false;
    keep_documents();
    forget_usage_files();
    recipe_text_changed = i16_false;
    project_load_failed = i16_false;
    older_file_format = i16_false;
    date_day_first = 0;
    recipes_folder.clear();
    settings_file.clear();
    hide_welcome_dialog = i16_false;
    window_geometry = WindowGeometry{};
    audit_done_flag = i16_false;
    export_style = 0;
    barcode_on_show = {};
    set_htmlpath("", 0);
    set_repname("");
    reset_planner_state();
    current_catagory = 1;
    category_edit_mode = 0;
    store_list_map.fill(0);
    unit_list_map.fill(0);
    store_edit_mode = 0;
    unit_edit_mode = 0;
    store_list_row = 0;
    unit_list_row = 0;
    list_count = 0;
    selected_list_item = 0;
    total_text.clear();
    tax_text.clear();
    forget_project_files();
    drop_waiting_audit();
    scan_rows.clear();
}

}  // namespace

void reset_program_state() {
    reset_tables();
    reset_settings();
    reset_status();
    reset_lesson();
}

}  // namespace tavernook
