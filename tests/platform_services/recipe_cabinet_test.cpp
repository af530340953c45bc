// A recipe file with everything real: packed, unpacked, and refused where it is damaged.
#include "platform/platform.h"
#include "platform_services/cabinet_files.h"
#include "transfer/recipe_exchange_fixture.h"

namespace tavernook {
namespace {

class RecipeInACabinet : public RecipeExchangeTest {
  protected:
    RecipeInACabinet() {
        set_platform({.clock = &platform.clock,
                      .boxes = &platform.boxes,
                      .file_dialogs = &platform.dialogs,
                      .files = &platform.files,
                      .system_info = &platform.system,
                      .save_progress = &platform.progress,
                      .main = &platform.main,
                      .cabinets = &cabinets});
        make_recipe(4, "Soup");
        meals[4].ingredient_item[1] = make_item(12, "Sugar");
        store_document(4, text);
        export_soup(4);
        open_project("cabin.tvk");
    }

    CabinetFiles cabinets;
    const std::string text = "{\\rtf1 " + std::string(200'000, 'x') + "}";
};

TEST_F(RecipeInACabinet, GoesOutAndComesIn) {
    EXPECT_EQ(read_whole_file(soup_file).substr(0, 4), "MSCF");
    EXPECT_EQ(import_soup(), 1);
    EXPECT_EQ(name_of_recipe(1), "Soup");
    EXPECT_EQ(name_of_item(ingredient(1, 1)), "Sugar");
    EXPECT_TRUE(read_whole_file(recipes_folder + "cabin000001.rtf") == text);
}

TEST_F(RecipeInACabinet, ADamagedOneChangesNothing) {
    std::string bytes = read_whole_file(soup_file);
    bytes[bytes.size() / 2] ^= 0x10;
    write_whole_file(soup_file, bytes);
    platform.boxes.expect_message("Import_RPF63");
    EXPECT_EQ(import_soup(), 0);
    EXPECT_EQ(meals[1], MealRecord{});
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(message(), "soup.rpf was not imported: it is no recipe file, or a damaged one.");
}

}  // namespace
}  // namespace tavernook
