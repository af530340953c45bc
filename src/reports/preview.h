// What the print preview shows: a page, of which kind it is, and what may be done with it. The
// screen `PP` owns none of it; it asks here.
//
//   kind                     page                  may be
//   0  Week Review           dat/cal.htm           edited
//   1  Print Preview         dat/list.htm          noted on, made in other sizes
//   2  Month Review          dat/calm.htm          edited
//   3  Item Label            barcode/labeldat.htm  edited
//   4  Reports               reports/rlist.htm     typed into at once, other sizes, gridlines
//   5  Usage Reports         reports/item.htm      edited
//   6  Project Information   reports/general.htm   edited
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "basics/values.h"
#include "platform/html_view.h"

namespace tavernook {

struct PreviewControls {
    const char* title;
    bool has_edit = false;       // "Edit", and "Insert Image" behind it
    bool has_notes = false;      // "Add Notes"
    bool has_sizes = false;      // "Font Size"
    bool has_gridlines = false;  // "Gridlines"
    bool edits_at_once = false;
    bool is_wide = false;    // a sheet of paper is to lie across
    bool has_codes = false;  // drawn by the labels' font
};

extern std::string html_path;
extern i16 preview_kind;
extern std::string report_name;  // heading of a report's page

void set_htmlpath(std::string_view path, i16 kind) noexcept;
void set_repname(std::string_view name) noexcept;

// Of a number that is no kind: everything off.
const PreviewControls& preview_controls(i16 kind) noexcept;

// "Small" 1, "Medium" 2, "Large" 3, anything else 6.
i16 font_size_named(std::string_view text) noexcept;

// The page of `preview_kind` anew. False when it was not: the page on show stays as it is then, and
// the message panel says why. Kinds 3 and 5 are never made anew, of which nothing is said.
[[nodiscard]] bool rebuild_page(i16 size, bool border) noexcept;

// Rows of tables in a page's file, titles too; 0 when it cannot be read.
int rows_on_page(const std::string& path) noexcept;

// A view to show the page in. Null when the engine for pages cannot be loaded, and why.
struct PageView {
    std::unique_ptr<HtmlView> view;
    std::string trouble;
};
PageView new_page_view() noexcept;

// --- the commands that print: each makes its page and shows it in the preview. A page that could
// --- not be made is told, and no preview comes up.

void preview_week() noexcept;   // of the selected date
void preview_month() noexcept;  // of the selected date
void preview_list() noexcept;   // of the list's screen
void preview_label(i16 item) noexcept;
void preview_report(std::string_view name) noexcept;  // of the reports' screen, gridlines off
void preview_usage(i16 item) noexcept;                // audits first
void preview_project() noexcept;

}  // namespace tavernook
