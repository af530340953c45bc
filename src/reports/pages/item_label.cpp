#include "reports/pages/item_label.h"

#include "barcodes/code39.h"
#include "basics/number_text.h"
#include "core/money_text.h"
#include "core/program_folders.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/rows.h"
#include "core/trap.h"
#include "inventory/item_form.h"
#include "reports/pages/page_files.h"
#include "reports/pages/placeholders.h"

namespace tavernook {

namespace {

constexpr i16 label_values = 16;
constexpr const char* stock_mask = "#####0.00";
constexpr const char* serving_mask = "#0.00#";

std::string unit_name(i16 unit) {
    return std::string(row_or_none(units, unit).name.right_trimmed());
}

std::string amount(f64 value, const char* mask, i16 unit) {
    return format_number(value, mask) + " " + unit_name(unit);
}

void add_code(std::vector<std::string>& values, const ItemRecord& item) {
    const std::string code(item.barcode.trimmed());
    const bool has_code = !code.empty() && code != no_barcode;
    values.push_back(has_code ? code39_symbol(code) : "");
    values.push_back(has_code ? "(Barcode: " + code + ")" : "");
}

std::vector<std::string> values_of(i16 number) {
    const ItemRecord& item = items[number];
    const ItemDetailRecord& details = item_details[number];
    std::vector<std::string> values = {
        "", std::string(item.name.right_trimmed()),
        amount(stock_of(number), stock_mask, item.qty_units),
        format_number(item.servings_per_qty_unit, serving_mask) + " servings per 1 " +
            unit_name(item.qty_units),
        amount(item.serving_size, serving_mask, item.serving_size_units)};
    for (const NutrientFields& nutrient : nutrient_fields) {
        values.push_back(amount(details.*nutrient.value, serving_mask, details.*nutrient.unit));
    }
    values.push_back(money_text(item.cost, "#0.00"));
    add_code(values, item);
    return values;
}

void write_label(i16 item) {
    const std::string path = in_program_folder("barcode/labeldat");
    replace_file(path + ".htm", with_all_replaced(file_bytes(path + ".dat"),
                                                  numbered_values(values_of(item), label_values)));
}

}  // namespace

bool Build_Item_Label(i16 item) noexcept {
    return is_live_row(items, item) && trap_in_module([&] { write_label(item); });
}

}  // namespace tavernook
