#include "barcodes/scanned_code.h"

#include "basics/number_text.h"
#include "basics/text.h"
#include "core/project_data.h"

namespace tavernook {

namespace {

bool is_recipe_code(std::string_view code) {
    return code.starts_with("tvk") || code.starts_with("TVK") || code.starts_with("Tvk");
}

i16 live_recipe(std::string_view digits) {
    if (digits.find_first_not_of("0123456789") != std::string_view::npos) return 0;
    const f64 number = leading_number(digits);
    if (!(number >= 1 && number <= meal_capacity)) return 0;
    const i16 slot = round_to_i16(number);
    return meals[slot].in_use == 1 ? slot : i16{0};
}

}  // namespace

ScannedCode meaning_of_code(std::string_view code) noexcept {
    const std::string_view text = trim(code);
    if (is_recipe_code(text)) return {.recipe = live_recipe(text.substr(3))};
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
