#include "reports/preview.h"

#include "core/changes.h"
#include "core/program_folders.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "reports/case_blind.h"
#include "reports/pages/calendar_pages.h"
#include "reports/pages/item_label.h"
#include "reports/pages/page_files.h"
#include "reports/pages/usage_pages.h"

namespace tavernook {

std::string html_path;
i16 preview_kind = 0;
std::string report_name;

namespace {

enum Kind : i16 {
    week_review = 0,
    shopping_list_page = 1,
    month_review = 2,
    item_label = 3,
    report_page = 4,
    usage_report = 5,
    project_information = 6
};

constexpr PreviewControls off = {.title = ""};
constexpr PreviewControls controls[] = {
    {.title = "Week Review", .has_edit = true},
    {.title = "Print Preview", .has_notes = true, .has_sizes = true},
    {.title = "Month Review", .has_edit = true, .is_wide = true},
    {.title = "Item Label", .has_edit = true, .has_codes = true},
    {.title = "Reports",
     .has_sizes = true,
     .has_gridlines = true,
     .edits_at_once = true,
     .is_wide = true},
    {.title = "Usage Reports", .has_edit = true},
    {.title = "Project Information", .has_edit = true}};

constexpr i16 first_size = 1;
constexpr std::string_view row_begin = "<tr";

void tell(const std::string& text) {
    main_window().set_status(message_panel, text);
}

// Why there is no page; empty when there is one.
using Trouble = std::string;

Trouble unless(bool made) {
    return made ? "" : "The page could not be made.";
}

Trouble make_list(i16 size) {
    ports::ShoppingList* screen = shopping_list();
    if (screen == nullptr) return "The page is made of the shopping list, which is not open.";
    bool made = false;
    tried([&] { made = screen->Build_HTMLlist(size); });
    return unless(made);
}

Trouble make_report(i16 size, bool border, std::string_view name) {
    ports::Reports* screen = reports();
    if (screen == nullptr) return "The page is made of the reports' list, which is not open.";
    bool made = false;
    tried([&] { made = screen->Build_HTML_Report_list(size, border, name); });
    return unless(made);
}

Trouble make_page(i16 kind, i16 size, bool border) {
    switch (kind) {
        case week_review:
            return unless(Build_HTMLCal(size));
        case shopping_list_page:
            return make_list(size);
        case month_review:
            return unless(Build_HTMLCal_Month(size));
        case report_page:
            return make_report(size, border, report_name);
        case project_information:
            return unless(build_general_report());
        default:
            return unless(false);
    }
}

bool is_made_anew(i16 kind) {
    return kind >= week_review && kind <= project_information && kind != item_label &&
           kind != usage_report;
}

void show(const Trouble& trouble, const char* page, Kind kind) {
    if (!trouble.empty()) return tell(trouble + " There is nothing to print.");
    set_htmlpath(in_program_folder(page), kind);
    screens().show_preview();
}

void show_page_of(i16 item, bool (*build)(i16), const char* page, Kind kind) {
    const RowRef held(Subject::items, item);
    const Trouble trouble = held.now() == 0 ? "" : unless(build(item));
    if (held.now() == 0) return tell("This item is not there any more.");
    show(trouble, page, kind);
}

}  // namespace

void set_htmlpath(std::string_view path, i16 kind) noexcept {
    html_path = path;
    preview_kind = kind;
}

void set_repname(std::string_view name) noexcept {
    report_name = name;
}

const PreviewControls& preview_controls(i16 kind) noexcept {
    const bool is_known = kind >= week_review && kind <= project_information;
    return is_known ? controls[kind] : off;
}

i16 font_size_named(std::string_view text) noexcept {
    if (text == "Small") return 1;
    if (text == "Medium") return 2;
    if (text == "Large") return 3;
    return 6;
}

bool rebuild_page(i16 size, bool border) noexcept {
    bool made = false;
    trap_in_module([&] {
        if (!is_made_anew(preview_kind)) return;
        const Trouble trouble = make_page(preview_kind, size, border);
        made = trouble.empty();
        if (!made) tell(trouble + " The one on show stays as it is.");
    });
    return made;
}

int rows_on_page(const std::string& path) noexcept {
    int rows = 0;
    tried([&] {
        const std::string bytes = file_bytes(path);
        const std::string_view page = bytes;
        for (std::size_t at = page.find('<'); at != page.npos; at = page.find('<', at + 1)) {
            if (is_same_case_blind(page.substr(at, row_begin.size()), row_begin)) ++rows;
        }
    });
    return rows;
}

PageView new_page_view() noexcept {
    PageView made;
    trap([&] { made.view = html_views().make(); },
         [&](const Fault& fault) { made.trouble = fault.description; });
    return made;
}

// --- the commands that print ---------------------------------------------------------------------

// The builders put a page in an old one's place in one step, so that none is missing where a new
// one could not be made.

void preview_week() noexcept {
    trap_in_module([] { show(unless(Build_HTMLCal()), "dat/cal.htm", week_review); });
}

void preview_month() noexcept {
    trap_in_module([] { show(unless(Build_HTMLCal_Month()), "dat/calm.htm", month_review); });
}

void preview_list() noexcept {
    trap_in_module([] { show(make_list(first_size), "dat/list.htm", shopping_list_page); });
}

void preview_label(i16 item) noexcept {
    trap_in_module(
        [item] { show_page_of(item, Build_Item_Label, "barcode/labeldat.htm", item_label); });
}

// The page on show keeps its name when there is no new one.
void preview_report(std::string_view name) noexcept {
    trap_in_module([name] {
        const Trouble trouble = make_report(first_size, false, name);
        if (trouble.empty()) set_repname(name);
        show(trouble, "reports/rlist.htm", report_page);
    });
}

void preview_usage(i16 item) noexcept {
    trap_in_module(
        [item] { show_page_of(item, build_item_report, "reports/item.htm", usage_report); });
}

void preview_project() noexcept {
    trap_in_module(
        [] { show(unless(build_general_report()), "reports/general.htm", project_information); });
}

}  // namespace tavernook
