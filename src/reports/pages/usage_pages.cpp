#include "reports/pages/usage_pages.h"

#include <algorithm>

#include "basics/code_page.h"
#include "basics/date.h"
#include "core/program_folders.h"
#include "core/project/audit.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/rows.h"
#include "core/trap.h"
#include "inventory/usage_history.h"
#include "platform/platform.h"
#include "reports/pages/page_files.h"
#include "reports/pages/placeholders.h"

namespace tavernook {

namespace {

constexpr i16 values_of_item_page = 8;
constexpr i16 values_of_project_page = 7;

// Long enough for the words that begin a usage table, so that a template can put the rest
// elsewhere.
constexpr std::size_t usage_front = 15;

std::string page_path(std::string path) {
    return path.replace(path.size() - std::min<std::size_t>(path.size(), 3), 3, "htm");
}

// Nothing for a date that no calendar has.
std::string text_of_date(Date date) {
    std::string text;
    tried([&] { text = date_text(date); });
    return text;
}

std::string time_of_making() {
    return "This Report Created on " + date_text(platform_clock().now());
}

template <typename Record, int N>
std::string count_of_live(const Table<Record, N>& table) {
    return std::to_string(std::count_if(table.begin() + 1, table.end(),
                                        [](const Record& row) { return row.in_use == 1; }));
}

std::vector<std::string> values_of_item(i16 item) {
    std::vector<std::string> values(values_of_item_page + 1);
    values[1] = text_from_utf8(project_name);
    values[2] = text_of_date(row_or_none(item_details, item).created_date);
    const std::string usage = Get_Item_Usage(item);
    const bool has_usage = usage != "*";
    values[4] =
        has_usage ? usage.substr(std::min(usage.size(), usage_front)) : "No current data on usage";
    values[6] = time_of_making();
    values[7] = has_usage ? usage.substr(0, usage_front) : values[4];
    values[8] = row_or_none(items, item).name.stored();
    return values;
}

std::vector<std::string> values_of_project() {
    return {"",
            text_from_utf8(project_name),
            text_of_date(project_created),
            count_of_live(items),
            count_of_live(meals),
            count_of_live(days),
            time_of_making()};
}

bool build(const char* template_name, const std::vector<std::string>& values, i16 count) {
    const std::string path = in_program_folder(template_name);
    if (fill_template(values, count, path)) return true;
    tried([&] {
        if (!files().exists(path)) remove_if_there(page_path(path));
    });
    return false;
}

bool trap_in_page(const auto& work) {
    return trap(work, [](const Fault& fault) { show_fault("error: " + fault.description); });
}

}  // namespace

bool fill_template(const std::vector<std::string>& values, i16 count,
                   const std::string& template_path) noexcept {
    return trap_in_page([&] {
        replace_file(page_path(template_path),
                     with_all_replaced(file_bytes(template_path), numbered_values(values, count)));
    });
}

bool build_item_report(i16 item) noexcept {
    audit_inventory();
    return build("reports/item.dat", values_of_item(item), values_of_item_page);
}

bool build_main_report() noexcept {
    return build("reports/main.dat", values_of_project(), values_of_project_page);
}

bool build_general_report() noexcept {
    return build("reports/general.dat", values_of_project(), values_of_project_page);
}

}  // namespace tavernook
