#include "support/generated_projects.h"

#include <string>

#include "core/project_data.h"
#include "core/project_file/project_file_format.h"
#include "inventory/lots.h"

namespace tavernook {

namespace {

// A small generator of its own, so that the projects are the same with every library.
class Numbers {
  public:
    int below(int limit) {
        state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<int>((state_ >> 33U) % static_cast<unsigned>(limit));
    }
    double quantity() { return below(100000) / 64.0; }
    i16 slot(int capacity) { return static_cast<i16>(1 + below(capacity)); }

  private:
    unsigned long long state_ = 20030401;
};

constexpr Date first_day = 45292;  // 1 January 2024

std::string numbered(const char* text, int number) {
    return text + std::to_string(number);
}

template <typename Record, int Capacity>
void name_rows(Table<Record, Capacity>& table, const char* text, int rows) {
    for (int row = 1; row <= rows; ++row) {
        table[row].name = numbered(text, row);
        table[row].in_use = 1;
    }
}

void fill_lots(i16 item, Numbers& numbers, int filled) {
    init_lot_record(item);
    LotRecord& record = lots[item];
    double total = 0;
    for (int place = 0; place < filled; ++place) {
        const auto index = static_cast<std::size_t>(place);
        record.lot_quantity[index] = 0.25 + numbers.below(400) / 4.0;
        record.creation_date[index] = first_day + numbers.below(900) + 0.375;
        record.expiration_date[index] = record.creation_date[index] + 30;
        total += record.lot_quantity[index];
    }
    record.current_lot = static_cast<i16>(filled > 0 ? numbers.below(filled) : 0);
    items[item].quantity = total;
}

void fill_item(i16 slot, Numbers& numbers) {
    ItemRecord& item = items[slot];
    item.category = numbers.slot(30);
    item.name = numbered("Item number ", slot);
    item.stock_quantity = numbers.quantity();
    item.qty_units = numbers.slot(13);
    item.storage_time = static_cast<i16>(numbers.below(400));
    item.restock_quantity = numbers.quantity();
    item.cost = numbers.below(5000) / 100.0;
    item.store = numbers.slot(8);
    item.locations = numbers.slot(200);
    item.fat = static_cast<i16>(numbers.below(60));
    item.calories = static_cast<i16>(numbers.below(900));
    item.serving_size = 1 + numbers.below(12) / 4.0;
    item.servings_per_qty_unit = 1 + numbers.below(40);
    item.serving_size_units = numbers.slot(13);
    item.in_use = 1;
    item.last_restock_date = first_day + numbers.below(900);
    item.store_order = static_cast<i16>(numbers.below(21));
    item.on_shopping_list = static_cast<i16>(numbers.below(2));
    item.shopping_quantity = item.on_shopping_list == 0 ? 0 : 1 + numbers.below(20) / 2.0;
    item.barcode = numbers.below(3) == 0 ? no_barcode : numbered("50123450", 10000 + slot);
}

void fill_details(i16 slot, Numbers& numbers) {
    ItemDetailRecord& detail = item_details[slot];
    for (i16* text : {&detail.manufacturer, &detail.brand, &detail.description, &detail.notes}) {
        *text = numbers.slot(200);
    }
    detail.created_date = first_day + slot / 8.0;
    for (f64* amount :
         {&detail.fat, &detail.calories, &detail.cholestorol, &detail.sodium, &detail.potassium,
          &detail.carbohydrates, &detail.fiber, &detail.sugars, &detail.protien}) {
        *amount = numbers.quantity();
    }
    for (i16* unit : {&detail.fat_units, &detail.calories_units, &detail.cholestorol_units,
                      &detail.sodium_units, &detail.potassium_units, &detail.carbohydrates_units,
                      &detail.fiber_units, &detail.sugars_units, &detail.protien_units}) {
        *unit = numbers.slot(13);
    }
}

void fill_meal(i16 slot, Numbers& numbers, int ingredients, int item_count) {
    MealRecord& meal = meals[slot];
    meal.name = numbered("Recipe ", slot);
    for (int place = 1; place <= ingredients; ++place) {
        const auto index = static_cast<std::size_t>(place);
        meal.ingredient_item[index] = numbers.slot(item_count);
        meal.ingredient_qty[index] = 0.5 + numbers.below(16) / 4.0;
    }
    meal.in_use = 1;
    meal.category = numbers.slot(30);
    meal.serving_size_units = numbers.slot(13);
    meal_serving_size[slot] = 1 + numbers.below(12);
    meal_documents[slot] = "*vk14household" + std::to_string(1000000 + slot).substr(1) + ".rtf";
}

void fill_day(i16 slot, Numbers& numbers, int places, int meal_count, int item_count) {
    DayRecord& day = days[slot];
    const CivilDate date = civil_from_date(first_day + slot - 1);
    day.month = static_cast<i16>(date.month);
    day.year = static_cast<i16>(date.year);
    day.day = static_cast<i16>(date.day);
    day.in_use = 1;
    day.audited = truth(slot % 2 == 0);
    for (int place = 1; place <= places; ++place) {
        const auto index = static_cast<std::size_t>(place);
        day.planned_meal[index] = numbers.slot(meal_count);
        day.planned_item[index] = numbers.slot(item_count);
        day_quantities[slot].meal_servings[index] = 1 + numbers.below(8) / 2.0;
        day_quantities[slot].item_quantity[index] = 0.25 + numbers.below(12) / 4.0;
    }
}

void fill_settings() {
    audit_hour = 22;
    audit_minute = 30;
    expiration_warning_days = 7;
    sales_tax = 8.25;
    scanner_comm_port = 3;
    scanner_reserved = 11;
    ftp_send_after_audit = -1;
    save_after_audit = 1;
    scanner_type = 2;
    project_created = first_day;
    ftp_server = "ftp.example.org";
    ftp_account = "household";
    ftp_password = "secret";
    ftp_directory = "/pages/food";
    audit_days_ahead = 2;
    currency_symbol = 163;
    font_size = 12;
    show_toolbar_text = -1;
    project_tag = 10;
    for (std::size_t word = 0; word < project_reserved_words.size(); ++word) {
        project_reserved_words[word] = static_cast<i16>(100 + word);
    }
    project_header.reserved = 77;
    file_version = project_file::current_file_version;
}

void fill_catagories(int rows) {
    name_rows(catagories, "Category ", rows);
    for (int row = 1; row <= rows; ++row) {
        catagories[row].type = row % 3 == 0 ? recipe_category_type : i16{0};
        catagories[row].parent = static_cast<i16>(row > 10 ? row - 10 : 0);
    }
}

void fill_wams(int lines) {
    for (int line = 1; line <= lines; ++line) {
        wams[line].in_use = -1;
        wams[line].text = numbered("1 jar no. ", line) + " = " + std::to_string(line) + " oz";
    }
}

void fill_strings(int rows, Numbers& numbers) {
    for (int row = 1; row <= rows; ++row) {
        pooled_strings[row] = numbered("Text in the pool, row ", row) +
                              std::string(static_cast<std::size_t>(numbers.below(40)), 'x');
    }
}

}  // namespace

void fill_typical_project() {
    Numbers numbers;
    fill_settings();
    fill_catagories(24);
    name_rows(stores, "Store ", 8);
    for (i16 slot = 1; slot <= 400; slot = static_cast<i16>(slot + 1 + numbers.below(3))) {
        fill_item(slot, numbers);
        fill_details(slot, numbers);
        fill_lots(slot, numbers, 1 + numbers.below(6));
    }
    for (i16 slot = 2; slot <= 60; slot = static_cast<i16>(slot + 2)) {
        fill_meal(slot, numbers, 3 + numbers.below(9), 400);
    }
    for (i16 slot = 5; slot <= 45; ++slot) fill_day(slot, numbers, 4, 60, 400);
    fill_wams(12);
    fill_strings(220, numbers);
}

void fill_full_project() {
    Numbers numbers;
    fill_settings();
    fill_catagories(catagory_capacity);
    name_rows(units, "unit", unit_capacity);
    name_rows(stores, "store", store_capacity);
    for (i16 slot = 1; slot <= item_capacity; ++slot) {
        fill_item(slot, numbers);
        fill_details(slot, numbers);
        fill_lots(slot, numbers, lot_places);
    }
    for (i16 slot = 1; slot <= meal_capacity; ++slot) {
        fill_meal(slot, numbers, ingredient_places, item_capacity);
    }
    for (i16 slot = 1; slot <= day_capacity; ++slot) {
        fill_day(slot, numbers, day_places, meal_capacity, item_capacity);
    }
    fill_wams(wam_capacity);
    fill_strings(pooled_string_capacity, numbers);
}

}  // namespace tavernook
