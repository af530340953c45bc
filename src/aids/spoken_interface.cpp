#include "aids/spoken_interface.h"

#include "barcodes/own_label.h"
#include "barcodes/scanned_code.h"
#include "barcodes/scanners.h"
#include "basics/number_text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "core/trap.h"
#include "platform/platform.h"
#include "platform/speech.h"

namespace tavernook {

namespace {

// The scanner with a scheme of its own gives capitals only.
bool is_recipe_code(std::string_view code) {
    return scanner_type == cue_cat ? code.starts_with("TVK") : is_own_label(code);
}

std::vector<std::string> answer_to_recipe(std::string_view code) {
    const i16 recipe = slot_of_label(code, meal_capacity);
    if (!is_live_row(meals, recipe)) return {};
    return {"You have scanned meal ... " + std::string(meals[recipe].name.right_trimmed())};
}

std::vector<std::string> answer_to_item(std::string_view code) {
    const i16 slot = find_scanned_item(code);
    if (slot == 0) return {};
    const ItemRecord& item = items[slot];
    std::vector<std::string> lines{"You have scanned item ... " +
                                   std::string(item.name.right_trimmed())};
    if (scanner_type == keyboard_wedge) {
        const std::string_view unit = row_or_none(units, item.qty_units).name.right_trimmed();
        lines.push_back("this item is currently stocked at ... " + number_text(item.quantity) +
                        " .. " + std::string(unit));
    }
    return lines;
}

}  // namespace

void Speak(std::string_view text) noexcept {
    speech().speak(text);
}

std::vector<std::string> spoken_welcome() noexcept {
    return {"Visually Impaired Interface. Version 1.7",
            "You are using project " + project_name,
            "Press F2 to hear shopping list items",
            "Press F3 to hear Expired items",
            "Press F4 to plan meals",
            "Press F5 to order items"};
}

std::string_view answer_to_function_key(int number) noexcept {
    switch (number) {
        case 2:
            return "Shopping List";
        case 3:
            return "Expired items";
        case 4:
            return "Plan Meals";
        case 5:
            return "order items";
        case 6:
            return "ya";
        default:
            return {};
    }
}

std::string spoken_goodbye() noexcept {
    std::string moment;
    tried([&] { moment = date_text(platform_clock().now()); });
    return "Exiting Tavern .. O .. K ... it is now ... " + moment + " ....  Goodbye";
}

std::string_view prompt_of_key(int code) noexcept {
    switch (code) {
        case 9:
            return "Auditing Inventory";
        case 13:
            return "Scan Complete";
        case 19:
            return "ready for scan.  Place item in front of scanner.";
        default:
            return {};
    }
}

std::vector<std::string> answer_to_scan(std::string_view line) noexcept {
    if (scanner_type != keyboard_wedge && scanner_type != cue_cat) return {};
    const std::string code = code_in_line(line);
    return is_recipe_code(code) ? answer_to_recipe(code) : answer_to_item(code);
}

}  // namespace tavernook
