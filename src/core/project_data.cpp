#include "core/project_data.h"

#include "core/changes.h"

namespace tavernook {

Table<ItemRecord, item_capacity> items;
Table<ItemDetailRecord, item_capacity> item_details;
LotTable lots;
Table<CatagoryRecord, catagory_capacity> catagories;
Table<UnitRecord, unit_capacity> units;
Table<StoreRecord, store_capacity> stores;
Table<MealRecord, meal_capacity> meals;
Table<f64, meal_capacity> meal_serving_size;
Table<std::string, meal_capacity> meal_documents;
Table<DayRecord, day_capacity> days;
Table<DayQuantityRecord, day_capacity> day_quantities;
Table<WamRecord, wam_capacity> wams;
Table<std::string, pooled_string_capacity> pooled_strings;
Table<i16, item_capacity> expiring_items;

ProjectHeader project_header;
i16& file_version = project_header.file_version;
std::array<i16, 11> project_reserved_words{};

i16 audit_hour = 0;
i16 audit_minute = 0;
i16 expiration_warning_days = 0;
f64 sales_tax = 0;
i16 scanner_comm_port = 0;
i16 scanner_reserved = 0;
i16 ftp_send_after_audit = 0;
i16 audit_on_startup = 0;
i16 save_after_audit = 0;
i16 scanner_type = 0;
Date project_created = 0;
FixedString<128> ftp_server;
FixedString<64> ftp_account;
FixedString<32> ftp_password;
FixedString<128> ftp_directory;
i16 audit_days_ahead = 0;
i16 currency_symbol = default_currency_symbol;
i16 font_size = 0;
i16 show_toolbar_text = 0;
i16 project_tag = 0;

std::string project_path;
std::string project_name;

namespace {

constexpr const char* seeded_units[] = {"each",     "Cup(s)",    "tsp(s)", "tbsp(s)", "oz(s)",
                                        "liter(s)", "gallon(s)", "ft",     "in",      "kg(s)",
                                        "gram(s)",  "bottle(s)", "na"};

// Slots 1 upward; entry 0 is never live and stays as it is.
template <typename Record, int Capacity>
void blank_slots(Table<Record, Capacity>& table) {
    for (int slot = 1; slot <= Capacity; ++slot) table[slot] = Record{};
}

void reset_items() {
    ItemRecord free_item;
    free_item.barcode = no_barcode;
    for (int slot = 1; slot <= item_capacity; ++slot) {
        items[slot] = free_item;
        item_details[slot] = ItemDetailRecord{};
    }
    lots.clear();
}

void reset_catagories() {
    for (int slot = 1; slot <= catagory_capacity; ++slot) {
        catagories[slot].name = "";
        catagories[slot].in_use = 0;
    }
    catagories[1].name = "General";
    catagories[1].in_use = 1;
}

void reset_units() {
    blank_slots(units);
    int row = 0;
    for (const char* name : seeded_units) {
        ++row;
        units[row].name = name;
        units[row].in_use = 1;
    }
}

void reset_meals() {
    blank_slots(meals);
    for (f64& serving_size : meal_serving_size) serving_size = 0;
    for (std::string& document : meal_documents) document = {};
}

}  // namespace

void reset_project_tables() noexcept {
    forget_rows();
    reset_items();
    reset_catagories();
    blank_slots(days);
    blank_slots(day_quantities);
    reset_units();
    blank_slots(stores);
    reset_meals();
    for (WamRecord& line : wams) line = WamRecord{};
    for (std::string& text : pooled_strings) text = {};
    for (i16& item : expiring_items) item = 0;
    scanner_type = 0;
}

}  // namespace tavernook
