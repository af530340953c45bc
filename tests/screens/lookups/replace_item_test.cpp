// The question what takes the place of a row in use.
#include <QDialog>
#include <QLineEdit>
#include <QTimer>
#include <functional>

#include "screens/child_screen_fixture.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

class ReplaceItemScreen : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        const char* names[] = {"Milk", "Butter", "Rye bread", "Brown bread"};
        for (i16 slot = 1; slot <= 4; ++slot) {
            items[slot].in_use = 1;
            items[slot].name = names[slot - 1];
            stores[slot].in_use = 1;
            stores[slot].name = std::string("Store ") + std::to_string(slot);
        }
    }

    // What the user does while the screen is open.
    void ask(i16 row, i16 type, const std::function<void()>& user) {
        bool came = false;
        QTimer::singleShot(0, [&] {
            screen = QApplication::activeModalWidget();
            ASSERT_NE(screen, nullptr);
            came = comes_true([this] { return QApplication::activeWindow() == screen; });
            if (came) user();
            static_cast<QDialog*>(screen)->reject();
        });
        replace_item_screen().ask_replacement(row, type);
        EXPECT_TRUE(came);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }

    QTreeView& list() { return part<QTreeView>("replacement_list"); }
    void expect_done() {
        platform.boxes.expect_message("All replacements completed successfully.");
    }
};

TEST_F(ReplaceItemScreen, ListsTheOthersAndNothingIsChosen) {
    ask(2, 1, [this] {
        EXPECT_EQ(screen->objectName(), "ReplaceItem");
        EXPECT_EQ(column(list()), (Texts{"Milk", "Rye bread", "Brown bread"}));
        EXPECT_EQ(list().model()->index(1, 0).data(Qt::UserRole), "t3");
        EXPECT_TRUE(part<QLabel>("question_label").text().contains("\"Butter\""));
        EXPECT_FALSE(part("replace_button").isEnabled());
        EXPECT_TRUE(list().selectionModel()->selectedRows().isEmpty());
        expect_accessible_names();
        expect_unique_mnemonics();
        expect_every_button_has_a_mnemonic();
        press("Return");  // chooses nothing, and the screen stays
        EXPECT_TRUE(screen->isVisible());
        click("close_button");
        EXPECT_FALSE(screen->isVisible());
    });
    EXPECT_EQ(items[2].in_use, 1);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ReplaceItemScreen, EscapeDoesNothing) {
    meals[1].in_use = 1;
    meals[1].ingredient_item[1] = 2;
    ask(2, 1, [this] {
        click_row(list(), 0);
        EXPECT_TRUE(part("replace_button").isEnabled());
        press("Escape");
        EXPECT_FALSE(screen->isVisible());
    });
    EXPECT_EQ(meals[1].ingredient_item[1], 2);
    EXPECT_EQ(items[2].in_use, 1);
}

TEST_F(ReplaceItemScreen, AnItemIsReplacedByTheMouse) {
    meals[1].in_use = 1;
    meals[1].ingredient_item[1] = 2;
    meals[1].ingredient_item[4] = 2;
    meals[1].ingredient_qty[4] = 3;
    days[7].in_use = 1;
    days[7].planned_item[30] = 2;
    CallLog calls;
    FakeFoodInventory item_screen(calls);
    expect_done();
    ask(2, 1, [this] {
        click_row(list(), 1);
        click("replace_button");
    });
    EXPECT_EQ(meals[1].ingredient_item[1], 3);
    EXPECT_EQ(meals[1].ingredient_item[4], 3);
    EXPECT_EQ(meals[1].ingredient_qty[4], 3);
    EXPECT_EQ(days[7].planned_item[30], 3);
    EXPECT_EQ(items[2].in_use, 0);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(calls.entries, Texts{});
}

TEST_F(ReplaceItemScreen, AStoreIsReplacedByTheKeyboardAlone) {
    items[1].store = 2;
    items[3].store = 1;
    expect_done();
    ask(2, 2, [this] {
        EXPECT_EQ(focused(), "filter_box");
        EXPECT_EQ(column(list()), (Texts{"Store 1", "Store 3", "Store 4"}));
        type("store 4");
        EXPECT_EQ(column(list()), (Texts{"Store 4"}));
        EXPECT_FALSE(part("replace_button").isEnabled());
        press("Down");
        EXPECT_EQ(focused(), "replacement_list");
        press("Return");
    });
    EXPECT_EQ(items[1].store, 4);
    EXPECT_EQ(items[3].store, 1);
    EXPECT_EQ(stores[2].in_use, 0);
    EXPECT_TRUE(stores[2].name.blank());
}

TEST_F(ReplaceItemScreen, AUnitOfServingsGoesIntoBothFields) {
    items[1].qty_units = 5;
    items[1].serving_size_units = 2;
    items[2].qty_units = 5;
    items[2].serving_size_units = 5;
    expect_done();
    ask(2, 3, [this] {
        // A new project has 13 units.
        EXPECT_EQ(list().model()->rowCount(), 12);
        EXPECT_EQ(list().model()->index(0, 0).data(Qt::UserRole), "t1");
        EXPECT_EQ(list().model()->index(1, 0).data(Qt::UserRole), "t3");
        double_click_row(list(), 1);
    });
    EXPECT_EQ(items[1].qty_units, 3);
    EXPECT_EQ(items[1].serving_size_units, 3);
    EXPECT_EQ(items[2].qty_units, 5);
    EXPECT_EQ(items[2].serving_size_units, 5);
    EXPECT_EQ(units[2].in_use, 0);
}

TEST_F(ReplaceItemScreen, WithNothingElseItCanOnlyBeClosed) {
    for (i16 slot = 1; slot <= 3; ++slot) items[slot].in_use = 0;
    ask(4, 1, [this] {
        EXPECT_EQ(list().model()->rowCount(), 0);
        EXPECT_TRUE(part("replacement_list_hint").isVisible());
        EXPECT_EQ(part<QLabel>("replacement_list_hint").text(),
                  "There is no other item: add one first.");
        EXPECT_FALSE(part("replace_button").isEnabled());
        press_letter("Alt+C");
        EXPECT_FALSE(screen->isVisible());
    });
    EXPECT_EQ(items[4].in_use, 1);
}

TEST_F(ReplaceItemScreen, AFilterThatLeavesNothingSaysSo) {
    ask(1, 1, [this] {
        click_row(list(), 0);
        part<QLineEdit>("filter_box").setFocus();
        type("bread");
        EXPECT_EQ(column(list()), (Texts{"Rye bread", "Brown bread"}));
        EXPECT_FALSE(part("replace_button").isEnabled());  // what was chosen is out of sight
        type("x");
        EXPECT_TRUE(part("replacement_list_hint").isVisible());
        EXPECT_EQ(part<QLabel>("replacement_list_hint").text(), "No name has this part.");
    });
}

TEST_F(ReplaceItemScreen, TheChoiceFollowsTheSortedList) {
    expect_done();
    meals[1].in_use = 1;
    meals[1].ingredient_item[1] = 1;
    ask(1, 1, [this] {
        list().sortByColumn(0, Qt::AscendingOrder);
        EXPECT_EQ(column(list()), (Texts{"Brown bread", "Butter", "Rye bread"}));
        click_row(list(), 0);
        press_letter("Alt+R");
    });
    EXPECT_EQ(meals[1].ingredient_item[1], 4);
}

}  // namespace
}  // namespace tavernook
