#include "barcodes/barcode_on_show.h"

#include "barcodes/code39.h"
#include "core/project_data.h"
#include "core/rows.h"

namespace tavernook {

BarcodeOnShow barcode_on_show;

namespace {

std::string code_of(i16 number, bool is_meal) {
    if (is_meal) return is_live_row(meals, number) ? recipe_code(number) : "";
    const std::string code = item_code(row_or_none(items, number));
    return is_live_row(items, number) && code != no_barcode ? code : "";
}

}  // namespace

bool has_barcode(i16 item) noexcept {
    return !code_of(item, false).empty();
}

bool put_barcode_on_show(i16 number, bool is_meal) noexcept {
    const std::string code = code_of(number, is_meal);
    if (code.empty()) return false;
    const std::string file = save_barcode_picture(number, is_meal);
    if (file.empty()) return false;
    const Subject table = is_meal ? Subject::recipes : Subject::items;
    barcode_on_show = {RowRef(table, number), is_meal, code, file};
    return true;
}

std::string present_code() noexcept {
    return code_of(barcode_on_show.of.now(), barcode_on_show.is_meal);
}

void renew_barcode_on_show() noexcept {
    const std::string code = present_code();
    if (code.empty() || code == barcode_on_show.code) return;
    barcode_on_show.code = code;
    barcode_on_show.file = save_barcode_picture(barcode_on_show.of.now(), barcode_on_show.is_meal);
}

}  // namespace tavernook
