// Items, their figures and their lots.
#include <cmath>

#include "aids/sample_project.h"
#include "basics/text.h"
#include "core/name_rows.h"
#include "core/project_data.h"
#include "core/string_storage.h"
#include "inventory/items.h"
#include "inventory/lots.h"
#include "sample_tables.h"

namespace tavernook::make_sample {

namespace {

constexpr int longest_ago = 3650;
constexpr f64 highest = 100000;

struct Nutrient {
    const char* column;
    const char* unit;
};
// In the order of nutrient_fields.
constexpr Nutrient nutrients[] = {
    {"Fat", "gram(s)"},   {"Calories", "kcal"},  {"Cholesterol", "mg"},
    {"Sodium", "mg"},     {"Potassium", "mg"},   {"Carbohydrates", "gram(s)"},
    {"Fiber", "gram(s)"}, {"Sugars", "gram(s)"}, {"Protein", "gram(s)"}};

const Row& food_of(const Row& row, const std::vector<Row>& foods) {
    for (const Row& food : foods) {
        if (food.text("Food") == row.text("Food")) return food;
    }
    row.fail("unknown food \"" + row.text("Food") + "\"");
}

// The table tells of 100 grams; the item of one serving, to hundredths.
void set_nutrients(i16 item, const Row& row, const std::vector<Row>& foods) {
    if (row.text("Food").empty()) return;
    const Row& food = food_of(row, foods);
    const f64 grams = row.number("Grams", 0.01, 2000);
    ItemDetailRecord& detail = item_details[item];
    for (std::size_t i = 0; i < nutrient_fields.size(); ++i) {
        const f64 of_hundred = food.number(nutrients[i].column, 0, highest);
        detail.*nutrient_fields[i].value = std::round(of_hundred * grams) / 100;
        detail.*nutrient_fields[i].unit = CheckUnits(nutrients[i].unit);
        if (detail.*nutrient_fields[i].unit == 0) row.fail("no unit for the figures");
    }
    items[item].fat = round_to_i16(detail.fat);
    items[item].calories = round_to_i16(detail.calories);
}

void set_texts(i16 item, const Row& row) {
    items[item].locations = add_string(row.text("Locations"));
    item_details[item].manufacturer = add_string(row.text("Manufacturer"));
    item_details[item].brand = add_string(row.text("Brand"));
    item_details[item].description = add_string(row.text("Description"));
    item_details[item].notes = add_string(row.text("Notes"));
}

i16 store_of(const Row& row) {
    const std::string& name = row.name("Store", 12);
    const i16 store = CheckStores(name);
    if (store == 0) row.fail("unknown store \"" + name + "\"");
    return store;
}

std::string barcode_of(const Row& row) {
    const std::string& barcode = row.text("Barcode");
    if (barcode != no_barcode && !is_in_store_barcode(barcode)) {
        row.fail("\"" + barcode + "\" is no barcode of a shop's own");
    }
    return barcode;
}

void set_stock_rules(ItemRecord& item, const Row& row) {
    item.qty_units = unit_of(row, "Quantity Unit");
    item.stock_quantity = row.number("Stock", 0, highest);
    item.restock_quantity = row.number("Restock", 0, highest);
    item.cost = row.number("Cost", 0, highest);
    item.storage_time = to_i16(row.whole("Keeps", 0, longest_ago));
    item.store = store_of(row);
    item.store_order = to_i16(row.whole("Order", 0, 20));
    item.last_restock_date = sample_first_day - row.whole("Restocked", 0, longest_ago);
}

void add_item(const Row& row, const std::vector<Row>& foods) {
    const std::string& name = row.name("Name", 32);
    if (find_item_by_name(name) != 0) row.fail("\"" + name + "\" is there already");
    const i16 slot = find_free_item_slot();
    ItemRecord& item = items[slot];
    item.in_use = 1;
    item.name = name;
    item.category = category_of(row, "Category", false);
    set_stock_rules(item, row);
    item.serving_size = row.number("Serving", 0.001, highest);
    item.serving_size_units = unit_of(row, "Serving Unit");
    item.servings_per_qty_unit = row.number("Servings", 0.001, highest);
    item.barcode = barcode_of(row);
    item_details[slot].created_date = project_created;
    set_texts(slot, row);
    set_nutrients(slot, row, foods);
    init_lot_record(slot);
}

int free_place(const LotRecord& lot, const Row& row) {
    for (int place = 0; place < lot_places; ++place) {
        if (lot.lot_quantity[static_cast<std::size_t>(place)] == 0) return place;
    }
    row.fail("the item has no room for another lot");
}

}  // namespace

i16 item_of(const Row& row, const std::string& column) {
    const i16 item = find_item_by_name(row.text(column));
    if (item == 0 || row.text(column).empty()) {
        row.fail("unknown item \"" + row.text(column) + "\"");
    }
    return item;
}

bool is_in_store_barcode(const std::string& digits) {
    if (digits.size() != 12 && digits.size() != 13) return false;
    if (digits.front() != '2') return false;
    int sum = 0;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (digits[i] < '0' || digits[i] > '9') return false;
        const bool counts_thrice = (digits.size() - i) % 2 == 0;
        sum += (digits[i] - '0') * (counts_thrice ? 3 : 1);
    }
    return sum % 10 == 0;
}

void add_items(const std::vector<Row>& rows, const std::vector<Row>& foods) {
    for (const Row& row : rows) add_item(row, foods);
}

void add_lots(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        const i16 item = item_of(row, "Item");
        LotRecord& lot = lots[item];
        const auto place = static_cast<std::size_t>(free_place(lot, row));
        const Date bought = sample_first_day - row.whole("Bought", 0, longest_ago);
        if (bought > items[item].last_restock_date) row.fail("bought after the last restock");
        lot.lot_quantity[place] = row.number("Quantity", 0.001, highest);
        lot.creation_date[place] = bought;
        lot.expiration_date[place] = bought + items[item].storage_time;
        items[item].quantity = lot_total(item);
    }
}

void mark_shopping_list() {
    for (ItemRecord& item : items) {
        const bool low = item.quantity <= item.restock_quantity;
        const f64 age = sample_first_day - item.last_restock_date;
        const bool expiring =
            item.storage_time != 0 && age + expiration_warning_days >= item.storage_time;
        if (item.in_use != 1 || item.stock_quantity == 0 || !(low || expiring)) continue;
        item.on_shopping_list = i16_true;
        item.shopping_quantity =
            expiring ? item.stock_quantity : item.stock_quantity - item.quantity;
    }
}

}  // namespace tavernook::make_sample
