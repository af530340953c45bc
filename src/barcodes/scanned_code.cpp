#include "barcodes/scanned_code.h"

#include "barcodes/own_label.h"
#include "basics/text.h"
#include "core/project_data.h"
#include "core/rows.h"

namespace tavernook {

namespace {

i16 live_recipe(std::string_view label) {
    const i16 slot = slot_of_label(label, meal_capacity);
    return is_live_row(meals, slot) ? slot : i16{0};
}

}  // namespace

ScannedCode meaning_of_code(std::string_view code) noexcept {
    const std::string_view text = trim(code);
    if (is_own_label(text)) return {.recipe = live_recipe(text)};
    return {.item = find_scanned_item(text)};
}

i16 find_scanned_item(std::string_view barcode) noexcept {
    const FixedString<32> wanted(trim(barcode));  // cut as a longer code is when it is stored
    if (wanted.blank() || wanted == no_barcode) return 0;
    for (i16 item = 1; item <= item_capacity; ++item) {
        const bool same = items[item].barcode.trimmed() == wanted.trimmed();
        if (same && items[item].in_use == 1) return item;
    }
    return 0;
}

}  // namespace tavernook
