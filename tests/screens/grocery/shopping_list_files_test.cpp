// The list as a file and as a page.
#include <fstream>
#include <iterator>

#include "reports/preview.h"
#include "screens/grocery/shopping_list_fixture.h"

namespace tavernook {
namespace {

class ShoppingListFiles : public ShoppingListScreen {
  protected:
    void SetUp() override {
        ShoppingListScreen::SetUp();
        open_list();
    }

    static constexpr const char* filter = "Grocery List (*.lst)|*.lst";

    void save_as(std::optional<std::string> path) {
        platform.dialogs.expect_save("Save List", std::move(path)).filter(filter);
        trigger("list_toolbar_3");
    }
    void load(std::optional<std::string> path) {
        platform.dialogs.expect_open("Load List", std::move(path)).filter(filter);
        trigger("list_toolbar_4");
    }
    void trigger(const char* name) { screen->findChild<QAction*>(QLatin1String(name))->trigger(); }

    void show_column(int column, bool shown) {
        const QList<QAction*> actions = part<QMenu>("viewmenu").actions();
        actions[column - 1]->setChecked(shown);
    }
    bool is_shown(int column) { return !list().header()->isSectionHidden(column); }

    std::string page() {
        std::ifstream file(platform.system.program + "/dat/list.htm", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(ShoppingListFiles, ASavedListComesBackWithItsColumns) {
    show_column(3, false);
    const std::string path = platform.path("week.lst");
    save_as(path);
    EXPECT_EQ(status(), "3 items are saved in week.lst.");
    items[apples].on_shopping_list = i16_false;
    want(salt, 4);
    show_column(3, true);
    show_column(5, false);
    load(path);
    EXPECT_EQ(names(), (Texts{"Apples", "Milk", "Bread"}));
    EXPECT_FALSE(is_shown(3));
    EXPECT_TRUE(is_shown(5));
    EXPECT_EQ(items[salt].on_shopping_list, 0);
    EXPECT_EQ(status(), "3 items are on the list from week.lst.");
}

// A list does not keep quantities.
TEST_F(ShoppingListFiles, ItemsOfWhichNothingIsToBeBoughtAreTold) {
    const std::string path = platform.path("week.lst");
    save_as(path);
    items[milk].shopping_quantity = 0;
    load(path);
    EXPECT_EQ(names(), (Texts{"Apples", "Bread"}));
    EXPECT_EQ(status(),
              "2 items are on the list from week.lst; nothing is to be bought of 1 more in it.");
}

TEST_F(ShoppingListFiles, WhatChangedElsewhereIsSavedToo) {
    want(salt, 4);
    save_as(platform.path("week.lst"));
    EXPECT_EQ(status(), "4 items are saved in week.lst.");
}

TEST_F(ShoppingListFiles, ACancelledDialogDoesNothing) {
    save_as(cancelled);
    load(cancelled);
    EXPECT_EQ(names().size(), 3u);
    EXPECT_EQ(status(), "");
}

TEST_F(ShoppingListFiles, AFileThatIsGoneLeavesTheListAsItIs) {
    platform.boxes.expect_message("there has been an error");
    load(platform.path("gone.lst"));
    EXPECT_EQ(names(), (Texts{"Apples", "Milk", "Bread"}));
    EXPECT_EQ(status(), "");
}

TEST_F(ShoppingListFiles, WhatCannotBeSavedIsTold) {
    platform.boxes.expect_message("there has been an error");
    std::ofstream(platform.path("nowhere")) << "a file where the folder should be";
    save_as(platform.path("nowhere/week.lst"));
    EXPECT_EQ(status(), "");
}

TEST_F(ShoppingListFiles, ALoadMarksTheProjectAsChanged) {
    const std::string path = platform.path("week.lst");
    save_as(path);
    project_modified = i16_false;
    load(path);
    EXPECT_EQ(project_modified, i16_true);
}

// The order of the rows and the columns are those on show.
TEST_F(ShoppingListFiles, ThePageIsTheListOnShow) {
    platform.disk.make_folder(platform.system.program + "/dat");
    click_header(0);
    click_header(0);
    const Texts shown = names();
    ASSERT_EQ(shown, (Texts{"Milk", "Bread", "Apples"}));
    show_column(2, false);
    trigger("list_toolbar_2");
    EXPECT_EQ(html_path, platform.system.program + "/dat/list.htm");
    EXPECT_EQ(preview_kind, 1);
    const std::string text = page();
    EXPECT_EQ(text.find("Store"), std::string::npos);
    EXPECT_NE(text.find("Category"), std::string::npos);
    EXPECT_LT(text.find("Milk"), text.find("Bread"));
    EXPECT_LT(text.find("Bread"), text.find("Apples"));
}

TEST_F(ShoppingListFiles, APageThatCannotBeMadeIsTold) {
    html_path = "before";
    const std::string folder = platform.system.program + "/dat";
    std::ofstream(folder) << "a file where the folder should be";
    trigger("list_toolbar_2");
    EXPECT_EQ(html_path, "before");
    EXPECT_EQ(status(), "The page could not be made. There is nothing to print.");
}

}  // namespace
}  // namespace tavernook
