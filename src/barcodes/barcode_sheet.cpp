#include "barcodes/barcode_sheet.h"

#include <string_view>

#include "barcodes/code39.h"
#include "core/program_folders.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr char star = '*';
constexpr std::string_view no_code = "*EMPTY*";

constexpr std::string_view page_begin =
    "<html><head><title>Barcodes</title></head><body><table border='0' width='600' "
    "align = 'center' cellspacing='0' cellpadding='0'>";
constexpr std::string_view page_end = "</table></body></html>";
constexpr std::string_view row_begin =
    "<tr><td width=\"800\" ><p style='margin-top: 0; margin-bottom: 0' align='left'>"
    "<font face=\"3 of 9 Barcode\" size=\"7\">*";
constexpr std::string_view caption_begin =
    "*</font></p><p style='margin-top: 0; margin-bottom: 0' align=\"left\">"
    "<font face='Arial' size='1'><b>";
constexpr std::size_t usual_row = 320;
constexpr std::string_view row_end = "</b></font></p><p>&nbsp</p></td></tr>";

std::string_view without_outer_stars(std::string_view code) {
    const std::size_t first = code.find_first_not_of(star);
    if (first == code.npos) return {};
    return code.substr(first, code.find_last_not_of(star) - first + 1);
}

// Empty for an item without a code.
std::string starred_code(const ItemRecord& item) {
    std::string code = item_code(item);
    if (code == no_barcode || without_outer_stars(code).empty()) return {};
    if (!code.starts_with(star)) code.insert(code.begin(), star);
    if (!code.ends_with(star)) code += star;
    return code;
}

void append_row(std::string& page, std::string_view name, std::string_view code) {
    page.append(row_begin).append(without_outer_stars(code)).append(caption_begin);
    page.append(name).append(" (").append(code).append(")").append(row_end);
}

void append_item(std::string& page, SheetLabels& labels, const ItemRecord& item) {
    const std::string code = starred_code(item);
    append_row(page, item.name.right_trimmed(), code.empty() ? no_code : code);
    ++labels.items;
    if (code.empty()) {
        ++labels.without_code;
    } else if (!is_read_back(item_code(item))) {
        ++labels.misread;
    }
}

std::string page_of(const SheetContents& contents, SheetLabels& labels) {
    std::string page;
    page.reserve(usual_row * (item_capacity + meal_capacity));  // what is not written costs nothing
    page += page_begin;
    for (i16 item = 1; contents.items && item <= item_capacity; ++item) {
        if (items[item].in_use == 1) append_item(page, labels, items[item]);
    }
    for (i16 recipe = 1; contents.recipes && recipe <= meal_capacity; ++recipe) {
        if (meals[recipe].in_use != 1) continue;
        append_row(page, meals[recipe].name.right_trimmed(), recipe_code(recipe));
        ++labels.recipes;
    }
    return page.append(page_end);
}

}  // namespace

BuiltSheet Build_Doc(const SheetContents& contents) noexcept {
    BuiltSheet built;
    built.is_written =
        trap_in_module([&] { replace_file(sheet_path(), page_of(contents, built.labels)); });
    return built;
}

std::string sheet_path() noexcept {
    return in_program_folder("barcode/barcode" + project_stem() + ".htm");
}

bool has_sheet() noexcept {
    bool has = false;
    tried([&] {
        const std::string path = sheet_path();
        has = files().exists(path) && files().open(path, OpenMode::read)->length() > 0;
    });
    return has;
}

}  // namespace tavernook
