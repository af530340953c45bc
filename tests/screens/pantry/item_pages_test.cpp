// The pages of one item, from its screen.
#include <fstream>
#include <iterator>

#include "inventory/items.h"
#include "platform_qt/shipped_page_files.h"
#include "reports/pages/shipped_pages.h"
#include "reports/preview.h"
#include "screens/pantry/food_inventory_fixture.h"

namespace tavernook {
namespace {

class ItemPages : public FoodInventoryTest {
  protected:
    void SetUp() override {
        FoodInventoryTest::SetUp();
        ASSERT_TRUE(lay_out_pages(shipped_page_file));
        put_item(1, "Rice", 1, 2);
        end_of_step();
        open();
        screen().view_item(1, i16_true);
        html_path = "before";
    }

    static constexpr const char* usage = "item_toolbar_1_10";
    static constexpr const char* label = "item_toolbar_1_11";

    std::string page(const char* name) {
        std::ifstream file(platform.system.program + "/" + name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(ItemPages, AreItsUsageAndItsLabel) {
    command(usage);
    EXPECT_EQ(html_path, platform.system.program + "/reports/item.htm");
    EXPECT_EQ(preview_kind, 5);
    EXPECT_NE(page("reports/item.htm").find("Rice"), std::string::npos);
    command(label);
    EXPECT_EQ(html_path, platform.system.program + "/barcode/labeldat.htm");
    EXPECT_EQ(preview_kind, 3);
    EXPECT_NE(page("barcode/labeldat.htm").find("Rice"), std::string::npos);
}

TEST_F(ItemPages, TellWhatIsAcceptedAndAskBefore) {
    enter("item_name", "Long rice");
    platform.boxes.expect_message("Save the changes to \"Long rice\"?", Answer::yes);
    command(label);
    EXPECT_NE(page("barcode/labeldat.htm").find("Long rice"), std::string::npos);
    enter("item_name", "Short rice");
    platform.boxes.expect_message("Save the changes to \"Short rice\"?", Answer::cancel);
    html_path = "before";
    command(label);
    EXPECT_EQ(html_path, "before");
    EXPECT_EQ(text("item_name"), "Short rice");
}

TEST_F(ItemPages, AnItemThatGoesMeanwhileHasNone) {
    enter("item_name", "Long rice");
    platform.boxes.expect_message("Save the changes to \"Long rice\"?", Answer::no).during([] {
        items[1] = ItemRecord{};
        end_of_step();
    });
    command(usage);
    EXPECT_EQ(html_path, "before");
    EXPECT_EQ(panel(1), "This item is not there any more.");
}

TEST_F(ItemPages, AreOffWithoutAnItem) {
    screen().initialize_inv();
    end_of_step();
    EXPECT_FALSE(part<QAction>(usage).isEnabled());
    EXPECT_FALSE(part<QAction>(label).isEnabled());
}

}  // namespace
}  // namespace tavernook
