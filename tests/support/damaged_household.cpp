#include "support/damaged_household.h"

#include <array>
#include <limits>

#include "core/project_data.h"
#include "core/project_file/project_file_format.h"
#include "inventory/lots.h"

namespace tavernook {

namespace {

constexpr f64 no_number = std::numeric_limits<f64>::quiet_NaN();
constexpr f64 endless = std::numeric_limits<f64>::infinity();
constexpr f64 huge = std::numeric_limits<f64>::max();

// Outside every table, or just behind one that has 100, 1000 or 10,000 records.
constexpr std::array<i16, 7> bad_words = {-1, -32768, 32767, 101, 1001, 10001, 30001};
constexpr std::array<f64, 7> bad_numbers = {no_number, endless, -endless, huge, -huge, -5, 1e15};

constexpr std::array item_words = {
    &ItemRecord::category,         &ItemRecord::qty_units,
    &ItemRecord::storage_time,     &ItemRecord::store,
    &ItemRecord::locations,        &ItemRecord::fat,
    &ItemRecord::calories,         &ItemRecord::store_order,
    &ItemRecord::on_shopping_list, &ItemRecord::serving_size_units,
};
constexpr std::array item_numbers = {
    &ItemRecord::quantity,          &ItemRecord::stock_quantity,
    &ItemRecord::restock_quantity,  &ItemRecord::cost,
    &ItemRecord::serving_size,      &ItemRecord::servings_per_qty_unit,
    &ItemRecord::last_restock_date, &ItemRecord::shopping_quantity,
};
constexpr std::array detail_words = {
    &ItemDetailRecord::manufacturer,      &ItemDetailRecord::brand,
    &ItemDetailRecord::description,       &ItemDetailRecord::notes,
    &ItemDetailRecord::fat_units,         &ItemDetailRecord::calories_units,
    &ItemDetailRecord::cholestorol_units, &ItemDetailRecord::sodium_units,
    &ItemDetailRecord::potassium_units,   &ItemDetailRecord::carbohydrates_units,
    &ItemDetailRecord::fiber_units,       &ItemDetailRecord::sugars_units,
    &ItemDetailRecord::protien_units,
};
constexpr std::array detail_numbers = {
    &ItemDetailRecord::created_date,  &ItemDetailRecord::fat,    &ItemDetailRecord::calories,
    &ItemDetailRecord::cholestorol,   &ItemDetailRecord::sodium, &ItemDetailRecord::potassium,
    &ItemDetailRecord::carbohydrates, &ItemDetailRecord::fiber,  &ItemDetailRecord::sugars,
    &ItemDetailRecord::protien,
};
constexpr std::array lot_numbers = {&LotRecord::creation_date, &LotRecord::expiration_date,
                                    &LotRecord::lot_quantity};

std::string numbered(const char* text, int number) {
    return text + std::to_string(number);
}

// --- items, their details and lots
// ----------------------------------------------------------------

class Items {
  public:
    void fill() {
        sound();
        for (const auto word : item_words) {
            for (const i16 bad : bad_words) items[sound()].*word = bad;
        }
        for (const auto number : item_numbers) {
            for (const f64 bad : bad_numbers) items[sound()].*number = bad;
            items[sound()].*number = 0;
        }
        for (const auto word : detail_words) {
            for (const i16 bad : bad_words) item_details[sound()].*word = bad;
        }
        for (const auto number : detail_numbers) {
            for (const f64 bad : bad_numbers) item_details[sound()].*number = bad;
        }
        fill_lots();
        for (std::size_t kind = 0; kind < bad_words.size(); ++kind) spoil_all(sound(), kind);
    }

  private:
    // A sound item in the next free slot, with one lot.
    i16 sound() {
        const i16 slot = ++last_;
        ItemRecord& item = items[slot];
        item.in_use = 1;
        item.name = numbered("Item ", slot);
        item.barcode = numbered("B", slot);
        item.category = 1;
        item.store = 1;
        item.qty_units = item.serving_size_units = 1;
        item.serving_size = 1;
        item.servings_per_qty_unit = 4;
        item.cost = 1.5;
        item.storage_time = 10;
        item.stock_quantity = 20;
        item.restock_quantity = 15;
        item.last_restock_date = damaged_household_today - 3;
        item.quantity = 10;
        item_details[slot].created_date = damaged_household_today - 100;
        init_lot_record(slot);
        LotRecord& lot = lots[slot];
        lot.lot_name[0] = numbered("L", slot);
        lot.lot_quantity[0] = 10;
        lot.creation_date[0] = damaged_household_today - 3;
        lot.expiration_date[0] = damaged_household_today + 7;
        return slot;
    }

    void fill_lots() {
        for (const i16 bad : bad_words) lots[sound()].current_lot = bad;
        for (const i16 bad : {i16{16}, i16{0}}) lots[sound()].current_lot = bad;
        for (const i16 bad : bad_words) lots[sound()].active = bad;
        for (const auto numbers : lot_numbers) {
            for (const f64 bad : bad_numbers) {
                (lots[sound()].*numbers)[0] = bad;
                (lots[sound()].*numbers)[lot_places - 1] = bad;
                (lots[sound()].*numbers).fill(bad);
            }
        }
    }

    static void spoil_all(i16 slot, std::size_t kind) {
        for (const auto word : item_words) items[slot].*word = bad_words[kind];
        for (const auto number : item_numbers) items[slot].*number = bad_numbers[kind];
        for (const auto word : detail_words) item_details[slot].*word = bad_words[kind];
        for (const auto number : detail_numbers) item_details[slot].*number = bad_numbers[kind];
        for (const auto numbers : lot_numbers) (lots[slot].*numbers).fill(bad_numbers[kind]);
        lots[slot].current_lot = lots[slot].active = bad_words[kind];
    }

    i16 last_ = 0;
};

// --- categories, units, stores
// ---------------------------------------------------------------------

// `type` and `parent` of the next rows; each has an item of its own to be shown.
void fill_catagories() {
    struct Bad {
        i16 type;
        i16 parent;
    };
    constexpr i16 recipes = recipe_category_type;
    const std::vector<Bad> rows = {
        {0, 2},        {0, 4},        {0, 3},           {0, -1},        {0, -32768},
        {0, 101},      {0, 32767},    {0, 99},          {recipes, 10},  {recipes, 12},
        {recipes, 11}, {recipes, -1}, {recipes, 32767}, {recipes, 1},   {0, 13},
        {-7, 0},       {32767, 0},    {-32768, -32768}, {32767, 32767},
    };
    i16 row = 2;
    for (const Bad& bad : rows) {
        catagories[row].in_use = 1;
        catagories[row].name = numbered("Category ", row);
        catagories[row].type = bad.type;
        catagories[row].parent = bad.parent;
        items[row].category = row;  // items of that slot are sound but for one word
        ++row;
    }
    catagories[catagory_capacity].in_use = 1;
    catagories[catagory_capacity].name = numbered("Category ", catagory_capacity);
    catagories[catagory_capacity].parent = catagory_capacity;
}

void fill_names() {
    for (const int row : {1, 2, store_capacity}) {
        stores[row].in_use = 1;
        stores[row].name = numbered("Store ", row);
    }
    units[14].in_use = units[unit_capacity].in_use = 1;
    units[14].name = numbered("Unit ", 14);
    units[unit_capacity].name = numbered("Unit ", unit_capacity);
    // Names of nothing, of zeros, of control characters and of bytes that the code page lacks.
    const std::array<std::string, 4> odd = {"", std::string(12, '\0'), "\n\t\r\x1B",
                                            "\x81\x8D\xFF"};
    i16 row = 3;
    for (const std::string& name : odd) {
        stores[row].in_use = units[20 + row].in_use = 1;
        stores[row].name = units[20 + row].name = name;
        ++row;
    }
}

void fill_texts() {
    for (i16 row = 1; row <= 20; ++row) pooled_strings[row] = numbered("Text ", row);
    pooled_strings[21] = std::string("nothing\0behind it", 17);
    pooled_strings[22] = std::string(65535, 'x');
    pooled_strings[pooled_string_capacity] = "The last one";
    const std::array<std::string, 4> lines = {"", "no equals sign", "1 = 2 = 3",
                                              "= = nan inf \x01"};
    i16 line = 1;
    for (const std::string& text : lines) {
        wams[line].in_use = bad_words[static_cast<std::size_t>(line)];
        wams[line++].text = text;
    }
    wams[wam_capacity].in_use = -1;
    wams[wam_capacity].text = std::string(5000, '=');
}

// --- recipes
// ---------------------------------------------------------------------------------------

class Recipes {
  public:
    void fill() {
        sound();
        for (const i16 bad : bad_words) {
            for (const std::size_t place : {1, 2, ingredient_places}) {
                MealRecord& meal = meals[sound()];
                meal.ingredient_item[place] = bad;
                meal.ingredient_qty[place] = 1;
            }
            meals[sound()].category = bad;
            meals[sound()].serving_size_units = bad;
        }
        for (const f64 bad : bad_numbers) {
            meals[sound()].ingredient_qty[1] = bad;
            meal_serving_size[sound()] = bad;
        }
        meal_serving_size[sound()] = 0;
        for (const char* document :
             {"", ".", "..", "../../up.rtf", "/", "*", "*vk", "*vk14", "\n"}) {
            meal_documents[sound()] = document;
        }
        meal_documents[sound()] = std::string(65535, 'x');
        meal_documents[sound()] = std::string("a\0b.rtf", 7);
        // Ingredients that are free slots, and those whose items are spoilt in everything.
        meals[sound()].ingredient_item.fill(9000);
        for (std::size_t kind = 0; kind < bad_words.size(); ++kind) spoil_all(sound(), kind);
    }

  private:
    i16 sound() {
        const i16 slot = ++last_;
        meals[slot].in_use = 1;
        meals[slot].name = numbered("Recipe ", slot);
        meals[slot].serving_size_units = 1;
        meals[slot].ingredient_item[1] = 1;
        meals[slot].ingredient_qty[1] = 2;
        meal_serving_size[slot] = 2;
        return slot;
    }

    static void spoil_all(i16 slot, std::size_t kind) {
        meals[slot].ingredient_item.fill(bad_words[kind]);
        meals[slot].ingredient_qty.fill(bad_numbers[kind]);
        meals[slot].category = meals[slot].serving_size_units = bad_words[kind];
        meal_serving_size[slot] = bad_numbers[kind];
    }

    i16 last_ = 0;
};

// --- days
// ------------------------------------------------------------------------------------------

class Days {
  public:
    void fill() {
        sound();
        for (const i16 bad : bad_words) {
            for (const std::size_t place : {2, day_places}) {
                days[sound()].planned_item[place] = bad;
                day_quantities[last_].item_quantity[place] = 1;
                days[sound()].planned_meal[place] = bad;
                day_quantities[last_].meal_servings[place] = 1;
            }
            days[sound()].audited = bad;
            plan_spoilt_records(sound(), bad);
        }
        for (const f64 bad : bad_numbers) {
            day_quantities[sound()].item_quantity[1] = bad;
            day_quantities[sound()].meal_servings[1] = bad;
        }
        fill_dates();
        for (std::size_t kind = 0; kind < bad_words.size(); ++kind) spoil_all(sound(), kind);
    }

  private:
    // Each day before the one before it, so that the audit comes to all.
    i16 sound() {
        const i16 slot = ++last_;
        const CivilDate date = civil_from_date(damaged_household_sound_day - (slot - 1));
        days[slot].in_use = 1;
        days[slot].day = static_cast<i16>(date.day);
        days[slot].month = static_cast<i16>(date.month);
        days[slot].year = static_cast<i16>(date.year);
        days[slot].planned_item[1] = 1;
        days[slot].planned_meal[1] = 1;
        day_quantities[slot].item_quantity[1] = 0.125;
        day_quantities[slot].meal_servings[1] = 0.125;
        return slot;
    }

    // A day that plans every record in turn from a place of its own on.
    static void plan_spoilt_records(i16 day, i16 bad) {
        const auto first = static_cast<i16>(2 + (bad & 0x3F));
        for (int place = 2; place <= day_places; ++place) {
            const auto index = static_cast<std::size_t>(place);
            days[day].planned_item[index] = static_cast<i16>(first + 13 * place);
            days[day].planned_meal[index] = static_cast<i16>(2 + (first + place) % 70);
            day_quantities[day].item_quantity[index] = 0.125;
            day_quantities[day].meal_servings[index] = 0.125;
        }
    }

    void fill_dates() {
        struct BadDate {
            i16 day, month, year;
        };
        const std::vector<BadDate> dates = {
            {0, 0, 0},
            {31, 2, 2024},
            {30, 2, 2023},
            {1, 13, 2024},
            {0, 5, 2024},
            {1, 0, 2024},
            {15, 5, -5},
            {15, 5, 0},
            {15, 5, 32767},
            {-1, -1, -1},
            {32, 1, 2024},
            {32767, 32767, 32767},
            {-32768, -32768, -32768},
            {15, 5, 99},
            {14, 5, 2024},  // the sound day's date a second time
        };
        for (const BadDate& date : dates) {
            DayRecord& day = days[sound()];
            day.day = date.day;
            day.month = date.month;
            day.year = date.year;
        }
    }

    static void spoil_all(i16 slot, std::size_t kind) {
        days[slot].planned_item.fill(bad_words[kind]);
        days[slot].planned_meal.fill(bad_words[kind]);
        day_quantities[slot].item_quantity.fill(bad_numbers[kind]);
        day_quantities[slot].meal_servings.fill(bad_numbers[kind]);
    }

    i16 last_ = 0;
};

void fill_settings() {
    audit_hour = 99;
    audit_minute = -7;
    expiration_warning_days = -32768;
    sales_tax = no_number;
    scanner_comm_port = -1;
    scanner_reserved = 32767;
    scanner_type = 32767;
    project_created = no_number;
    ftp_server = std::string(128, '\xFF');
    ftp_account = std::string(64, '\0');
    audit_days_ahead = 0;  // so that days to come stay planned
    currency_symbol = -300;
    font_size = -3;
    show_toolbar_text = 32767;
    project_tag = -32768;
    project_header.reserved = -1;
    file_version = project_file::current_file_version;
}

// --- who is who
// ------------------------------------------------------------------------------------

// A name made of the prefix and a number must have the record's own number.
void judge(std::vector<std::string>& strangers, const char* table, int slot, std::string_view name,
           const char* prefix) {
    const std::string_view start(prefix);
    if (name.substr(0, start.size()) != start) return;
    const std::string_view number = name.substr(start.size());
    const bool is_number = number.find_first_not_of("0123456789") == std::string_view::npos;
    if (!is_number || number == std::to_string(slot)) return;
    strangers.push_back(std::string(table) + "[" + std::to_string(slot) + "] is named \"" +
                        std::string(name) + "\"");
}

template <typename Record, int Capacity>
void judge_names(std::vector<std::string>& strangers, const char* table,
                 const Table<Record, Capacity>& records, const char* prefix) {
    for (int slot = 1; slot <= Capacity; ++slot) {
        if (records[slot].in_use == 0) continue;
        judge(strangers, table, slot, records[slot].name.trimmed(), prefix);
    }
}

}  // namespace

void fill_damaged_household() {
    Items().fill();
    fill_catagories();
    fill_names();
    fill_texts();
    Recipes().fill();
    Days().fill();
    fill_settings();
}

std::vector<std::string> strangers_in_damaged_household() {
    std::vector<std::string> strangers;
    judge_names(strangers, "items", items, "Item ");
    judge_names(strangers, "catagories", catagories, "Category ");
    judge_names(strangers, "units", units, "Unit ");
    judge_names(strangers, "stores", stores, "Store ");
    judge_names(strangers, "meals", meals, "Recipe ");
    for (int slot = 1; slot <= item_capacity; ++slot) {
        if (items[slot].in_use == 0) continue;
        judge(strangers, "items", slot, items[slot].barcode.trimmed(), "B");
        if (slot >= lots.entries()) continue;
        judge(strangers, "lots", slot, lots[slot].lot_name[0].trimmed(), "L");
    }
    for (int row = 1; row <= 20; ++row) {
        judge(strangers, "pooled_strings", row, pooled_strings[row], "Text ");
    }
    return strangers;
}

}  // namespace tavernook
