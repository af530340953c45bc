#include "fakes/program_state_reset.h"

#include <cctype>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "core/program_state.h"
#include "core/project_data.h"
#include "fakes/temp_folder.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

TEST(ProgramStateResetTest, NothingOfAnEarlierTestStays) {
    items[0].name = "x";
    items[10000].in_use = 1;
    item_details[0].fat = 1;
    lots.grow(10000);
    lots[0].active = -1;
    lots[10001].active = -1;
    catagories[7].type = 32;
    catagories[7].parent = 3;
    catagories[0].name = "x";
    units[0].in_use = 1;
    stores[1].name = "x";
    meals[0].in_use = 1;
    meal_documents[3] = "x";
    days[0].year = 2024;
    day_quantities[0].item_quantity[1] = 2;
    wams[0].text = "x";
    pooled_strings[30000] = "x";
    expiring_items[0] = 1;
    expiring_items[10000] = 1;
    file_version = 1;
    project_header.days.position = 99;
    project_reserved_words[10] = 4;
    sales_tax = 7.5;
    currency_symbol = 163;
    ftp_password = "secret";
    project_path = "/a.tvk";
    project_modified = i16_true;
    window_geometry.width = 100;
    recipes_folder = "/r/";

    reset_program_state();

    EXPECT_TRUE(items[0].name.blank());
    EXPECT_EQ(items[10000].in_use, 0);
    EXPECT_EQ(item_details[0].fat, 0);
    EXPECT_EQ(lot_table_top, 0);
    EXPECT_EQ(lots[0].active, 0);
    lots.grow(10000);
    EXPECT_EQ(lots[10001].active, 0);
    lots.clear();
    EXPECT_EQ(catagories[7].type, 0);
    EXPECT_EQ(catagories[7].parent, 0);
    EXPECT_TRUE(catagories[0].name.blank());
    EXPECT_EQ(catagories[1].name.trimmed(), "General");
    EXPECT_EQ(units[0].in_use, 0);
    EXPECT_EQ(units[1].name.trimmed(), "each");
    EXPECT_TRUE(stores[1].name.blank());
    EXPECT_EQ(meals[0].in_use, 0);
    EXPECT_EQ(meal_documents[3], "");
    EXPECT_EQ(days[0].year, 0);
    EXPECT_EQ(day_quantities[0].item_quantity[1], 0);
    EXPECT_EQ(wams[0].text, "");
    EXPECT_EQ(pooled_strings[30000], "");
    EXPECT_EQ(expiring_items[0], 0);
    EXPECT_EQ(expiring_items[10000], 0);
    EXPECT_EQ(file_version, 0);
    EXPECT_EQ(project_header.days.position, 0);
    EXPECT_EQ(project_reserved_words[10], 0);
    EXPECT_EQ(sales_tax, 0);
    EXPECT_EQ(currency_symbol, 36);
    EXPECT_TRUE(ftp_password.blank());
    EXPECT_EQ(project_path, "");
    EXPECT_EQ(project_modified, 0);
    EXPECT_EQ(window_geometry, WindowGeometry{});
    EXPECT_EQ(recipes_folder, "");
}

// The names that a header declares as "extern TYPE NAME;". References are names for other globals.
Texts globals_declared_in(const std::string& header) {
    Texts names;
    std::istringstream lines(read_whole_file(header));
    for (std::string line; std::getline(lines, line);) {
        const std::string declaration = line.substr(0, line.find(';'));
        if (!declaration.starts_with("extern ") || declaration.find('&') != std::string::npos) {
            continue;
        }
        names.push_back(declaration.substr(declaration.rfind(' ') + 1));
    }
    return names;
}

bool has_word(const std::string& text, const std::string& word) {
    const auto part_of_word = [&](std::size_t at) {
        return at < text.size() &&
               (std::isalnum(static_cast<unsigned char>(text[at])) != 0 || text[at] == '_');
    };
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
        if (!part_of_word(at - 1) && !part_of_word(at + word.size())) return true;
    }
    return false;
}

// A global that is added to the program's state must be reset too, or tests would see each other.
TEST(ProgramStateResetTest, EveryGlobalIsReset) {
    const std::string source = TAVERNOOK_SOURCE_FOLDER;
    const std::string reset = read_whole_file(source + "/tests/fakes/program_state_reset.cpp");
    std::size_t globals = 0;
    for (const char* header : {"/src/core/project_data.h", "/src/core/program_state.h"}) {
        const Texts names = globals_declared_in(source + header);
        globals += names.size();
        for (const std::string& name : names) EXPECT_TRUE(has_word(reset, name)) << name;
    }
    // Far fewer would mean that the declarations were not found.
    EXPECT_GE(globals, 45u);
}

}  // namespace
}  // namespace tavernook
