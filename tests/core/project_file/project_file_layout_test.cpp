// Every byte of a saved project against bytes built by hand from docs/formats/project_file.md.
#include "core/project_file/project_file_testing.h"

namespace tavernook {

namespace {

constexpr std::size_t empty_project_size = 1677155;

constexpr const char* unit_names[] = {"each",     "Cup(s)",    "tsp(s)", "tbsp(s)", "oz(s)",
                                      "liter(s)", "gallon(s)", "ft",     "in",      "kg(s)",
                                      "gram(s)",  "bottle(s)", "na"};

// The setup block of a fresh program and its four positions.
void put_blank_setup(Image& image, std::size_t setup) {
    image.fixed(setup + 38, "", 128).fixed(setup + 170, "", 64);
    image.fixed(setup + 240, "", 32).fixed(setup + 280, "", 128);
    image.position_word(setup + 410, 5421).position_word(setup + 416, 1065528);
    image.position_word(setup + 422, 1125531).position_word(setup + 428, 1669148);
    image.word(setup + 440, 36);
}

// Two blank records, of which a file has one more than lot_table_top + 1.
void put_blank_lots(Image& image, std::size_t lots_position) {
    image.word(lots_position + 4, 1).position_word(lots_position + 6, 2);
    for (const std::size_t record : {lots_position + 14, lots_position + 14 + 516}) {
        image.fixed(record + 2, "", 16 * 8);
    }
}

std::string empty_project(int version) {
    Image image(std::string(empty_project_size, '\0'));
    image.word(1, 0).position_word(3, 100);
    image.word(7, 1).position_word(9, 102);
    image.word(13, 0).position_word(15, 144);
    image.word(19, 13).position_word(21, 146);
    image.word(25, 0).position_word(27, 408);
    image.word(31, 0).position_word(33, 410);
    image.position_word(39, 412).position_word(43, 1566).word(47, version);
    image.position_word(50, 3569).position_word(54, 4374);
    image.word(102, 1).fixed(104, "General", 32).word(136, 1);
    for (int unit = 1; unit <= 13; ++unit) {
        const std::size_t at = 146 + 20 * (unit - 1);
        image.word(at, unit).fixed(at + 2, unit_names[unit - 1], 12).word(at + 14, 1);
    }
    put_blank_setup(image, 412);
    put_blank_lots(image, 4374);
    return image.bytes;
}

class ProjectFileLayout : public ProjectFileTest {};

TEST_F(ProjectFileLayout, ANewProjectHasEveryByteWhereTheFormatPageSays) {
    const std::string bytes = save();
    EXPECT_EQ(bytes.size(), empty_project_size);
    EXPECT_EQ(first_difference(empty_project(0), bytes), "");
}

TEST_F(ProjectFileLayout, ANewProjectOfTheCurrentVersionDiffersInTheVersionOnly) {
    file_version = 1;
    EXPECT_EQ(first_difference(empty_project(1), save()), "");
}

TEST_F(ProjectFileLayout, TheOrderOfTheFileOperationsIsFixed) {
    save();
    platform.files.start_over();
    save();
    std::vector<std::string> steps;
    for (const std::string& entry : platform.files.log()) {
        if (entry.starts_with("open ") || entry.starts_with("remove ") ||
            entry.starts_with("rename ") || entry.starts_with("flush")) {
            steps.push_back(entry.starts_with("flush_folder") ? "flush_folder" : entry);
        }
    }
    const std::string opened = "open home.tvk read_write";
    const std::vector<std::string> expected = {"rename home.tvk -> home.previous.tvk",
                                               "remove home.tvk",
                                               opened,
                                               opened,
                                               opened,
                                               opened,
                                               opened,
                                               opened,
                                               opened,  // front; six blocks
                                               opened,
                                               "flush home.tvk",
                                               "flush_folder",
                                               "flush home.tvk",  // without its mark
                                               "remove home.previous.tvk"};
    EXPECT_EQ(steps, expected);
}

ItemRecord distinct_item(int seed) {
    ItemRecord item;
    item.category = seed + 1;
    item.name = "Name " + std::to_string(seed);
    item.quantity = seed + 0.5;
    item.stock_quantity = seed + 1.25;
    item.qty_units = seed + 2;
    item.storage_time = seed + 3;
    item.restock_quantity = seed + 2.125;
    item.cost = seed + 3.0625;
    item.store = seed + 4;
    item.locations = seed + 5;
    item.fat = seed + 6;
    item.calories = seed + 7;
    item.serving_size = seed + 4.5;
    item.servings_per_qty_unit = seed + 5.5;
    item.serving_size_units = -seed;
    item.in_use = 1;
    item.last_restock_date = seed + 40000.75;
    item.store_order = seed + 8;
    item.on_shopping_list = seed + 9;
    item.shopping_quantity = seed + 6.5;
    item.barcode = "bar" + std::to_string(seed);
    return item;
}

void put_distinct_item(Image& image, std::size_t at, int seed) {
    image.word(at, seed + 1).fixed(at + 2, "Name " + std::to_string(seed), 32);
    image.real(at + 34, seed + 0.5).real(at + 42, seed + 1.25);
    image.word(at + 50, seed + 2).word(at + 52, seed + 3);
    image.real(at + 54, seed + 2.125).real(at + 62, seed + 3.0625);
    image.word(at + 70, seed + 4).word(at + 72, seed + 5);
    image.word(at + 74, seed + 6).word(at + 76, seed + 7);
    image.real(at + 78, seed + 4.5).real(at + 86, seed + 5.5);
    image.word(at + 94, -seed).word(at + 96, 1).real(at + 98, seed + 40000.75);
    image.word(at + 106, seed + 8).word(at + 108, seed + 9).real(at + 110, seed + 6.5);
    image.fixed(at + 118, "bar" + std::to_string(seed), 32);
}

// Items in slots 3, 7 and 10000 at this spacing, from their section to the next.
void expect_items_spaced(const std::string& bytes, int stride) {
    Image expected(std::string(3 * stride + 2, '\0'));
    int number = 0;
    for (const int slot : {3, 7, 10000}) {
        const std::size_t at = 1 + stride * number++;
        expected.word(at, slot);
        put_distinct_item(expected, at + 2, slot);
    }
    EXPECT_EQ(first_difference(expected.bytes, bytes.substr(99, 3 * stride + 2)), "");
    EXPECT_EQ(word_at(bytes, 1), 3);
    EXPECT_EQ(long_at(bytes, 3), 100);
    EXPECT_EQ(long_at(bytes, 9), 100 + 3 * stride + 2);
}

TEST_F(ProjectFileLayout, ItemsStandAt176OrAt164Bytes) {
    for (const int slot : {3, 7, 10000}) items[slot] = distinct_item(slot);
    items[5] = distinct_item(5);
    items[5].in_use = 0;
    file_version = 1;
    expect_items_spaced(save(), 176);
    file_version = 0;
    expect_items_spaced(save(), 164);
    file_version = 2;
    expect_items_spaced(save(), 164);
}

TEST_F(ProjectFileLayout, CategoriesStandAt40Bytes) {
    catagories[1].type = 5;
    catagories[1].parent = -6;
    catagories[100].name = "Last of all the categories there can be";
    catagories[100].in_use = 1;
    catagories[100].type = 32;
    catagories[100].parent = 99;
    const std::string bytes = save();
    Image expected(std::string(82, '\0'));
    expected.word(1, 1).fixed(3, "General", 32).word(35, 1).word(37, 5).word(39, -6);
    expected.word(41, 100).fixed(43, "Last of all the categories there", 32);
    expected.word(75, 1).word(77, 32).word(79, 99);
    EXPECT_EQ(word_at(bytes, 7), 2);
    EXPECT_EQ(first_difference(expected.bytes, bytes.substr(101, 82)), "");
    EXPECT_EQ(long_at(bytes, 15), 102 + 82);
}

TEST_F(ProjectFileLayout, RecipesStandAt550Bytes) {
    MealRecord& meal = meals[2];
    meal.name = "Soup";
    meal.in_use = 1;
    meal.category = 12;
    meal.serving_size_units = 13;
    for (int place = 0; place <= 50; ++place) {
        meal.ingredient_item[place] = 300 + place;
        meal.ingredient_qty[place] = place / 4.0;
    }
    meals[1000].name = "Last";
    meals[1000].in_use = 1;
    Image expected(std::string(2 * 550 + 2, '\0'));
    expected.word(1, 2).fixed(3, "Soup", 32).word(545, 1).word(547, 12).word(549, 13);
    for (int place = 0; place <= 50; ++place) {
        expected.word(3 + 32 + 2 * place, 300 + place);
        expected.real(3 + 134 + 8 * place, place / 4.0);
    }
    expected.word(551, 1000).fixed(553, "Last", 32).word(551 + 544, 1);
    const std::string bytes = save();
    EXPECT_EQ(word_at(bytes, 13), 2);
    EXPECT_EQ(first_difference(expected.bytes, bytes.substr(143, 2 * 550 + 2)), "");
    EXPECT_EQ(long_at(bytes, 21), 144 + 2 * 550 + 2);
}

TEST_F(ProjectFileLayout, UnitsAndStoresStandAt20Bytes) {
    for (int unit = 2; unit <= 13; ++unit) units[unit].in_use = 0;
    units[1000].name = "thousandth and more";
    units[1000].in_use = 1;
    stores[6].name = "Corner";
    stores[6].in_use = 1;
    stores[1000].name = "Market";
    stores[1000].in_use = 1;
    const std::string bytes = save();
    Image expected(std::string(2 * 20 + 2 + 2 * 20 + 2, '\0'));
    expected.word(1, 1).fixed(3, "each", 12).word(15, 1);
    expected.word(21, 1000).fixed(23, "thousandth a", 12).word(35, 1);
    expected.word(43, 6).fixed(45, "Corner", 12).word(57, 1);
    expected.word(63, 1000).fixed(65, "Market", 12).word(77, 1);
    EXPECT_EQ(word_at(bytes, 19), 2);
    EXPECT_EQ(word_at(bytes, 25), 2);
    EXPECT_EQ(long_at(bytes, 27), 146 + 42);
    EXPECT_EQ(long_at(bytes, 33), 146 + 84);
    EXPECT_EQ(first_difference(expected.bytes, bytes.substr(145, 84)), "");
}

TEST_F(ProjectFileLayout, DaysStandAt137Bytes) {
    DayRecord& day = days[5];
    day.month = 2;
    day.year = 2024;
    day.day = 29;
    day.in_use = 1;
    day.audited = -1;
    for (int place = 0; place <= 30; ++place) {
        day.planned_meal[place] = 500 + place;
        day.planned_item[place] = 9000 + place;
    }
    days[1095].in_use = 1;
    Image expected(std::string(2 * 137 + 2, '\0'));
    expected.word(1, 5).word(3, 2).word(5, 2024).word(7, 29).word(133, 1).word(135, -1);
    for (int place = 0; place <= 30; ++place) {
        expected.word(3 + 6 + 2 * place, 500 + place).word(3 + 68 + 2 * place, 9000 + place);
    }
    expected.word(138, 1095).word(138 + 132, 1);
    const std::string bytes = save();
    EXPECT_EQ(word_at(bytes, 31), 2);
    EXPECT_EQ(long_at(bytes, 33), 410);
    EXPECT_EQ(long_at(bytes, 39), 410 + 2 * 137 + 2);
    EXPECT_EQ(first_difference(expected.bytes, bytes.substr(409, 2 * 137 + 2)), "");
}

void set_distinct_settings() {
    audit_hour = 21;
    audit_minute = 22;
    expiration_warning_days = 23;
    sales_tax = 8.375;
    scanner_comm_port = 24;
    scanner_reserved = 25;
    ftp_send_after_audit = 26;
    audit_on_startup = 27;
    save_after_audit = 28;
    scanner_type = 29;
    project_created = 45427.5;
    ftp_server = "server";
    ftp_account = "account";
    ftp_password = "password";
    ftp_directory = "directory";
    audit_days_ahead = 30;
    currency_symbol = 165;
    font_size = 31;
}

TEST_F(ProjectFileLayout, EverySettingHasItsOffset) {
    set_distinct_settings();
    const std::string bytes = save();
    Image expected(std::string(446, '\0'));
    put_blank_setup(expected, 1);
    expected.word(1, 21).word(3, 22).word(5, 23).real(7, 8.375).word(15, 24).word(17, 25);
    expected.word(19, 26).word(21, 27).word(23, 28).word(25, 29).real(29, 45427.5);
    expected.fixed(39, "server", 128).fixed(171, "account", 64);
    expected.fixed(241, "password", 32).fixed(281, "directory", 128);
    expected.word(435, 30).word(441, 165).word(445, 31);
    EXPECT_EQ(first_difference(expected.bytes, bytes.substr(411, 446)), "");
    EXPECT_EQ(bytes.substr(411 + 446, 1152 + 2 - 446), std::string(1152 + 2 - 446, '\0'));
}

TEST_F(ProjectFileLayout, TheWordsInFrontAreKept) {
    show_toolbar_text = -1;
    project_tag = 0x1234;
    project_header.reserved = 77;
    for (int word = 0; word < 11; ++word) project_reserved_words[word] = 700 + word;
    Image expected(empty_project(0));
    expected.word(37, 77).word(80, -1).word(84, 0x1234);
    for (int word = 0; word < 11; ++word) expected.word(58 + 2 * word, 700 + word);
    EXPECT_EQ(first_difference(expected.bytes, save()), "");
}

TEST_F(ProjectFileLayout, DocumentsAndMeasuresAreVariableStrings) {
    meal_documents[0] = "zero";
    meal_documents[1000] = "last";
    wams[0].in_use = 7;
    wams[200].in_use = -1;
    wams[200].text = "1 cup = 8 oz";
    const std::string bytes = save();
    Image documents(std::string(1001 * 2 + 8, '\0'));
    documents.variable(1, "zero");
    documents.variable(1 + 6 + 999 * 2, "last");
    EXPECT_EQ(first_difference(documents.bytes, bytes.substr(1565, documents.bytes.size())), "");

    const std::size_t wam_position = 1566 + 1001 * 2 + 8 + 1;
    EXPECT_EQ(long_at(bytes, 50), static_cast<std::int64_t>(wam_position));
    EXPECT_EQ(bytes[wam_position - 2], '\0');
    Image lines(std::string(201 * 4 + 12, '\0'));
    lines.word(1, 7).word(1 + 200 * 4, -1).variable(1 + 200 * 4 + 2, "1 cup = 8 oz");
    EXPECT_EQ(first_difference(lines.bytes, bytes.substr(wam_position - 1, lines.bytes.size())),
              "");
    EXPECT_EQ(long_at(bytes, 54), static_cast<std::int64_t>(wam_position + 201 * 4 + 12 + 1));
}

LotRecord distinct_lot(int seed) {
    LotRecord lot;
    lot.active = -1;
    lot.current_lot = seed;
    for (int place = 0; place < 16; ++place) {
        lot.lot_name[place] = "L" + std::to_string(seed + place);
        lot.creation_date[place] = seed + place + 0.25;
        lot.expiration_date[place] = seed + place + 0.5;
        lot.lot_quantity[place] = seed + place + 0.75;
    }
    return lot;
}

void put_distinct_lot(Image& image, std::size_t at, int seed) {
    image.word(at, -1).word(at + 514, seed);
    for (int place = 0; place < 16; ++place) {
        image.fixed(at + 2 + 8 * place, "L" + std::to_string(seed + place), 8);
        image.real(at + 130 + 8 * place, seed + place + 0.25);
        image.real(at + 258 + 8 * place, seed + place + 0.5);
        image.real(at + 386 + 8 * place, seed + place + 0.75);
    }
}

TEST_F(ProjectFileLayout, LotsReachToOneBeyondTheHighestItem) {
    lots.grow(3);
    for (const int item : {0, 1, 2, 3, 4}) lots[item] = distinct_lot(100 * item);
    const std::string bytes = save();
    Image expected(std::string(14 + 5 * 516, '\0'));
    expected.word(1, 3).word(5, 1).position_word(7, 5).position_word(11, 0);
    for (const int item : {0, 1, 2, 3, 4}) {
        put_distinct_lot(expected, 15 + 516 * item, 100 * item);
    }
    EXPECT_EQ(first_difference(expected.bytes, bytes.substr(4373, expected.bytes.size())), "");
    EXPECT_EQ(long_at(bytes, 412 + 410), 4374 + 14 + 5 * 516 + 1);
}

ItemDetailRecord distinct_detail(int seed) {
    ItemDetailRecord detail;
    detail.manufacturer = seed + 1;
    detail.brand = seed + 2;
    detail.description = seed + 3;
    detail.notes = seed + 4;
    detail.created_date = seed + 0.5;
    detail.fat = seed + 10;
    detail.fat_units = seed + 11;
    detail.calories = seed + 20;
    detail.calories_units = seed + 21;
    detail.cholestorol = seed + 30;
    detail.cholestorol_units = seed + 31;
    detail.sodium = seed + 40;
    detail.sodium_units = seed + 41;
    detail.potassium = seed + 50;
    detail.potassium_units = seed + 51;
    detail.carbohydrates = seed + 60;
    detail.carbohydrates_units = seed + 61;
    detail.fiber = seed + 70;
    detail.fiber_units = seed + 71;
    detail.sugars = seed + 80;
    detail.sugars_units = seed + 81;
    detail.protien = seed + 90;
    detail.protien_units = seed + 91;
    return detail;
}

void put_distinct_detail(Image& image, std::size_t at, int seed) {
    for (int text = 0; text < 4; ++text) image.word(at + 2 * text, seed + 1 + text);
    image.real(at + 8, seed + 0.5);
    for (int pair = 0; pair < 9; ++pair) {
        image.real(at + 16 + 10 * pair, seed + 10 + 10 * pair);
        image.word(at + 24 + 10 * pair, seed + 11 + 10 * pair);
    }
}

TEST_F(ProjectFileLayout, DetailsAreThereForEverySlotLiveOrNot) {
    Image expected(empty_project(0));
    for (const int slot : {0, 1, 9999, 10000}) {
        item_details[slot] = distinct_detail(slot);
        put_distinct_detail(expected, 5421 + 106 * slot, slot);
    }
    EXPECT_EQ(first_difference(expected.bytes, save()), "");
}

TEST_F(ProjectFileLayout, PooledStringsMoveWhatFollows) {
    pooled_strings[0] = "first";
    pooled_strings[30000] = "last";
    const std::string bytes = save();
    Image pool(std::string(30001 * 2 + 9, '\0'));
    pool.variable(1, "first");
    pool.variable(1 + 7 + 29999 * 2, "last");
    EXPECT_EQ(first_difference(pool.bytes, bytes.substr(1065527, pool.bytes.size())), "");
    EXPECT_EQ(long_at(bytes, 412 + 416), 1065528);
    EXPECT_EQ(long_at(bytes, 412 + 422), 1125531 + 9);
    EXPECT_EQ(long_at(bytes, 412 + 428), 1669148 + 9);
    EXPECT_EQ(bytes.size(), empty_project_size + 9);
}

TEST_F(ProjectFileLayout, DayQuantitiesAndRecipeServingsAreThereForEverySlot) {
    Image expected(empty_project(0));
    for (const int day : {0, 1, 1095}) {
        for (int place = 0; place <= 30; ++place) {
            day_quantities[day].meal_servings[place] = day + place + 0.5;
            day_quantities[day].item_quantity[place] = day + place + 0.125;
            expected.real(1125531 + 496 * day + 8 * place, day + place + 0.5);
            expected.real(1125531 + 496 * day + 248 + 8 * place, day + place + 0.125);
        }
    }
    for (const int meal : {0, 1, 1000}) {
        meal_serving_size[meal] = meal + 0.75;
        expected.real(1669148 + 8 * meal, meal + 0.75);
    }
    EXPECT_EQ(first_difference(expected.bytes, save()), "");
}

TEST_F(ProjectFileLayout, TheMomentOfSavingLeavesNoMarkInTheFile) {
    const std::string first = save();
    platform.clock.time += 400;
    EXPECT_EQ(first_difference(first, save()), "");
}

}  // namespace

}  // namespace tavernook
