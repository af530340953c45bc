// The screens of stores and of units, mirror images of each other.
#include <QHeaderView>
#include <QLineEdit>
#include <QTimer>

#include "core/name_rows.h"
#include "screens/child_screen_fixture.h"
#include "screens/parts/guard.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

struct Form {
    const char* screen;
    const char* label;
    const char* title;
    const char* capitals;
    const char* refreshed;  // the call at the item screen when the form closes
};

const Form stores_form{"StoresForm", "Store Name", "Store", "STORE",
                       "FoodInventory refresh_stores"};
const Form units_form{"UnitsForm", "Unit Name", "Unit", "UNIT", "FoodInventory refresh_units"};

class NameRowsForms : public ChildScreenTest, public testing::WithParamInterface<Form> {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        for (i16 slot = 1; slot <= unit_capacity; ++slot) units[slot] = {};
    }

    bool is_store() const { return GetParam().screen == std::string("StoresForm"); }
    void put(i16 slot, const char* name) {
        stores[slot].name = name;
        stores[slot].in_use = 1;
        units[slot].name = name;
        units[slot].in_use = 1;
    }
    std::string name_in(i16 slot) const {
        return std::string(is_store() ? stores[slot].name.right_trimmed()
                                      : units[slot].name.right_trimmed());
    }
    int in_use(i16 slot) const { return is_store() ? stores[slot].in_use : units[slot].in_use; }

    // Item 1 to 3 by name, bought in or counted by that row.
    void use(i16 item, const char* name, i16 slot) {
        items[item].in_use = 1;
        items[item].name = name;
        items[item].store = slot;
        items[item].qty_units = slot;
    }

    void open_form() { open(GetParam().screen); }
    QTreeView& list() { return part<QTreeView>("name_list"); }
    QLineEdit& box() { return part<QLineEdit>("name_box"); }

    void expect_nothing_to_accept() {
        EXPECT_FALSE(box().isEnabled());
        EXPECT_FALSE(part("accept_button").isEnabled());
        EXPECT_FALSE(part("delete_button").isEnabled());
        EXPECT_EQ(is_store() ? store_edit_mode : unit_edit_mode, 0);
    }

    std::string question(const std::string& users) const {
        return std::string("This ") + GetParam().title + " is used by " + users +
               ".  Press YES to select a replacement " + GetParam().capitals +
               " or press NO to cancel the delete";
    }
};

INSTANTIATE_TEST_SUITE_P(Both, NameRowsForms, testing::Values(stores_form, units_form),
                         [](const auto& info) { return std::string(info.param.screen); });

TEST_P(NameRowsForms, HaveTheirWords) {
    open_form();
    EXPECT_EQ(screen->objectName().toStdString(), GetParam().screen);
    EXPECT_EQ(screen->windowTitle(), "Units Builder");
    EXPECT_EQ(plain(part<QLabel>("name_label").text()), GetParam().label);
    EXPECT_EQ(plain(part<QPushButton>("new_button").text()), "New");
    EXPECT_EQ(plain(part<QPushButton>("accept_button").text()), "Accept");
    EXPECT_EQ(plain(part<QPushButton>("delete_button").text()), "Delete ");
    EXPECT_EQ(plain(part<QPushButton>("close_button").text()), "Close");
    EXPECT_EQ(list().selectionMode(), QAbstractItemView::ExtendedSelection);
    expect_accessible_names();
    expect_unique_mnemonics();
    expect_every_button_has_a_mnemonic();
}

TEST_P(NameRowsForms, AnEmptyListSaysWhatToDoFirst) {
    open_form();
    EXPECT_EQ(list().model()->rowCount(), 0);
    EXPECT_TRUE(part("name_list_hint").isVisible());
    EXPECT_TRUE(part<QLabel>("name_list_hint").text().contains("press \"New\""));
    expect_nothing_to_accept();
    click("new_button");
    type("Corner shop");
    click("accept_button");
    EXPECT_FALSE(part("name_list_hint").isVisible());
}

TEST_P(NameRowsForms, ShowTheLiveRowsAndFreeTheBlankOnes) {
    put(2, "Dairy");
    put(5, "Bakery");
    put(7, "");
    open_form();
    EXPECT_EQ(column(list()), (Texts{"Dairy", "Bakery"}));
    EXPECT_EQ(in_use(7), 0);
}

TEST_P(NameRowsForms, CountTheItemsThatUseARow) {
    put(1, "Dairy");
    put(2, "Bakery");
    use(1, "Milk", 1);
    use(2, "Butter", 1);
    items[1].serving_size_units = 1;  // the same item still counts once
    open_form();
    EXPECT_EQ(column(list(), 1), (Texts{"2", "0"}));
}

TEST_P(NameRowsForms, NewAndAcceptByTheMouse) {
    put(1, "Dairy");
    open_form();
    click("new_button");
    EXPECT_TRUE(box().isEnabled());
    EXPECT_TRUE(part("accept_button").isEnabled());
    EXPECT_EQ(box().text(), "");
    type("Bakery");
    click("accept_button");
    EXPECT_EQ(name_in(2), "Bakery");
    EXPECT_EQ(in_use(2), 1);
    EXPECT_EQ(column(list()), (Texts{"Dairy", "Bakery"}));
    EXPECT_EQ(project_modified, i16_true);
    expect_nothing_to_accept();
}

TEST_P(NameRowsForms, SeveralNewOnesByTheKeyboardAlone) {
    open_form();
    press_letter("Alt+N");
    type("Dairy");
    press("Return");
    EXPECT_EQ(focused(), "new_button");
    press("Return");
    type("Bakery");
    press_letter("Alt+A");
    EXPECT_EQ(column(list()), (Texts{"Dairy", "Bakery"}));
}

TEST_P(NameRowsForms, APickedRowIsRenamedByTheMouse) {
    put(3, "Dairy");
    put(4, "Bakery");
    open_form();
    click_row(list(), 1);
    EXPECT_EQ(box().text(), "Bakery");
    EXPECT_NE(is_store() ? store_edit_mode : unit_edit_mode, 0);
    EXPECT_EQ(is_store() ? store_list_row : unit_list_row, 1);
    box().selectAll();
    QTest::keyClicks(&box(), "Miller");
    click("accept_button");
    EXPECT_EQ(name_in(4), "Miller");
    EXPECT_EQ(column(list()), (Texts{"Dairy", "Miller"}));
    EXPECT_EQ(project_modified, i16_true);
    expect_nothing_to_accept();
}

TEST_P(NameRowsForms, APickedRowIsRenamedByTheKeyboardAlone) {
    put(3, "Dairy");
    put(4, "Bakery");
    open_form();
    EXPECT_EQ(focused(), "name_list");
    press("B");  // type-ahead
    press("F2");
    EXPECT_EQ(focused(), "name_box");
    type("Miller");
    press("Return");
    EXPECT_EQ(name_in(4), "Miller");
    EXPECT_EQ(focused(), "name_list");
    press("Up");
    press("Return");  // the same as a double click
    EXPECT_EQ(focused(), "name_box");
    EXPECT_EQ(box().text(), "Dairy");
}

TEST_P(NameRowsForms, ADoubleClickBeginsToEdit) {
    put(3, "Dairy");
    open_form();
    double_click_row(list(), 0);
    EXPECT_EQ(focused(), "name_box");
    EXPECT_EQ(box().selectedText(), "Dairy");
}

TEST_P(NameRowsForms, NewAfterAPickMakesARowOfItsOwn) {
    put(1, "Dairy");
    open_form();
    click_row(list(), 0);
    click("new_button");
    type("Bakery");
    press("Return");
    EXPECT_EQ(column(list()), (Texts{"Dairy", "Bakery"}));
}

TEST_P(NameRowsForms, ANameUnchangedLeavesTheProjectUnchanged) {
    put(1, "Dairy");
    open_form();
    click_row(list(), 0);
    click("accept_button");
    EXPECT_EQ(column(list()), (Texts{"Dairy"}));
    EXPECT_EQ(project_modified, i16_false);
}

TEST_P(NameRowsForms, ANameMadeBlankFreesItsRowAndItemsKeepTheNumber) {
    put(1, "Dairy");
    put(2, "Bakery");
    use(1, "Milk", 1);
    open_form();
    click_row(list(), 0);
    box().clear();
    click("accept_button");
    EXPECT_EQ(column(list()), (Texts{"Bakery"}));
    EXPECT_EQ(in_use(1), 0);
    EXPECT_EQ(items[1].store, 1);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_P(NameRowsForms, NamesAreCutAtTwelveLettersWhileTyping) {
    open_form();
    click("new_button");
    type("Abcdefghijklmno");
    EXPECT_EQ(box().text(), "Abcdefghijkl");
    press("Return");
    EXPECT_EQ(name_in(1), "Abcdefghijkl");
}

TEST_P(NameRowsForms, UnusedOnesGoByTheButtonAndByTheKey) {
    put(1, "Dairy");
    put(2, "Bakery");
    put(3, "Market");
    open_form();
    click_row(list(), 1);
    click("delete_button");
    EXPECT_EQ(column(list()), (Texts{"Dairy", "Market"}));
    EXPECT_EQ(in_use(2), 0);
    EXPECT_EQ(name_in(2), "");
    EXPECT_EQ(project_modified, i16_true);
    expect_nothing_to_accept();
    press("End");
    press("Delete");
    EXPECT_EQ(column(list()), (Texts{"Dairy"}));
}

TEST_P(NameRowsForms, SeveralGoAtOnce) {
    put(1, "Dairy");
    put(2, "Bakery");
    put(3, "Market");
    open_form();
    click_row(list(), 0);
    click_row(list(), 2, Qt::ControlModifier);
    click("delete_button");
    EXPECT_EQ(column(list()), (Texts{"Bakery"}));
}

TEST_P(NameRowsForms, NoForOneInUseEndsTheWholeCommand) {
    for (i16 slot = 1; slot <= 3; ++slot)
        put(slot, slot == 1 ? "One" : slot == 2 ? "Two" : "Three");
    use(1, "Milk", 2);
    use(2, "Butter", 2);
    open_form();
    list().selectAll();
    platform.boxes.expect_message(question("ITEM:Milk,ITEM:Butter,"), Answer::no)
        .buttons(Buttons::yes_no);
    click("delete_button");
    EXPECT_EQ(column(list()), (Texts{"Two", "Three"}));
    EXPECT_EQ(project_modified, i16_true);  // the first one went before the question
    EXPECT_EQ(list().selectionModel()->selectedRows().size(), 2);
}

TEST_P(NameRowsForms, NoForTheOnlyOneLeavesTheProjectUnchanged) {
    put(1, "Dairy");
    use(1, "Milk", 1);
    open_form();
    click_row(list(), 0);
    platform.boxes.expect_message(question("ITEM:Milk,"), Answer::no);
    press("Delete");
    EXPECT_EQ(column(list()), (Texts{"Dairy"}));
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(box().text(), "Dairy");
}

TEST_P(NameRowsForms, YesLetsTheUserChooseWhatTakesItsPlace) {
    put(1, "Dairy");
    put(2, "Bakery");
    put(3, "Market");
    use(1, "Milk", 1);
    open_form();
    click_row(list(), 0);
    click_row(list(), 2, Qt::ControlModifier);
    platform.boxes.expect_message(question("ITEM:Milk,"), Answer::yes);
    platform.boxes.expect_message("All replacements completed successfully.");
    bool asked = false;
    QTimer::singleShot(0, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        asked = true;
        auto* choices = dialog->findChild<QTreeView*>("replacement_list");
        EXPECT_EQ(column(*choices), (Texts{"Bakery", "Market"}));
        click_row(*choices, 0);
        QTest::mouseClick(dialog->findChild<QPushButton*>("replace_button"), Qt::LeftButton);
    });
    click("delete_button");
    EXPECT_TRUE(asked);
    EXPECT_EQ(items[1].store, is_store() ? 2 : 1);
    EXPECT_EQ(items[1].qty_units, is_store() ? 1 : 2);
    EXPECT_EQ(column(list()), (Texts{"Bakery"}));
    EXPECT_EQ(project_modified, i16_true);
}

TEST_P(NameRowsForms, TheLastRowComesWithItsWarning) {
    for (i16 slot = 1; slot <= 999; ++slot) put(slot, "Name");
    open_form();
    click("new_button");
    type("The last");
    platform.boxes.expect_message(
        is_store() ? "You have reached the limitation of stores allowed in Tavernook.  It is "
                     "recommended that you delete some stores to allow for some more room."
                   : "You have reached the limitation of Units allowed in Tavernook.  It is "
                     "recommended that you delete some units to allow for some more room.");
    press("Return");
    EXPECT_EQ(name_in(1000), "The last");
    EXPECT_EQ(list().model()->rowCount(), 1000);
}

TEST_P(NameRowsForms, CommandsWorkOnTheRightRowsWhenTheListIsSorted) {
    put(1, "Market");
    put(2, "bakery");
    put(3, "Dairy");
    open_form();
    list().sortByColumn(0, Qt::AscendingOrder);
    EXPECT_EQ(column(list()), (Texts{"bakery", "Dairy", "Market"}));
    click_row(list(), 0);
    EXPECT_EQ(box().text(), "bakery");
    box().setText("Miller");
    click("accept_button");
    EXPECT_EQ(name_in(2), "Miller");
    EXPECT_EQ(column(list()), (Texts{"Dairy", "Market", "Miller"}));
    click_row(list(), 0);
    press("Delete");
    EXPECT_EQ(in_use(3), 0);
    EXPECT_EQ(column(list()), (Texts{"Market", "Miller"}));
}

TEST_P(NameRowsForms, ClosingRefreshesTheBoxesOfTheItemScreen) {
    CallLog calls;
    FakeFoodInventory item_screen(calls);
    for (const char* way : {"button", "Alt+C", "Escape", "Ctrl+W"}) {
        calls.entries.clear();
        open_form();
        if (way == std::string("button")) {
            click("close_button");
        } else {
            press_letter(way);
        }
        settle();
        EXPECT_FALSE(is_open(GetParam().screen)) << way;
        EXPECT_EQ(calls.entries, (Texts{GetParam().refreshed})) << way;
    }
}

TEST_P(NameRowsForms, WhatOthersChangeComesIntoTheListAndTheBox) {
    put(1, "Dairy");
    put(2, "Bakery");
    open_form();
    end_of_step();
    click_row(list(), 1);
    put(2, "Miller");
    put(3, "Market");
    use(1, "Milk", 3);
    end_of_step();
    EXPECT_EQ(column(list()), (Texts{"Dairy", "Miller", "Market"}));
    EXPECT_EQ(column(list(), 1), (Texts{"0", "0", "1"}));
    EXPECT_EQ(box().text(), "Miller");
}

TEST_P(NameRowsForms, WhatWasTypedStaysWhenOthersChangeTheTable) {
    put(2, "Bakery");
    open_form();
    end_of_step();
    click_row(list(), 0);
    press("F2");
    type("Miller");
    put(1, "Dairy");  // the row of the map is another one now
    end_of_step();
    EXPECT_EQ(box().text(), "Miller");
    press("Return");
    EXPECT_EQ(column(list()), (Texts{"Dairy", "Miller"}));
}

TEST_P(NameRowsForms, ANameThatHasGoneMeanwhileIsNotAccepted) {
    put(1, "Dairy");
    put(2, "Bakery");
    open_form();
    end_of_step();
    click_row(list(), 0);
    press("F2");
    type("Miller");
    stores[1] = {};
    units[1] = {};
    end_of_step();
    press("Return");
    EXPECT_EQ(column(list()), (Texts{"Bakery"}));
    EXPECT_EQ(panel(1), is_store() ? "This store is not there any more."
                                   : "This unit is not there any more.");
    EXPECT_EQ(project_modified, i16_false);
    expect_nothing_to_accept();
}

TEST_P(NameRowsForms, EscapeTakesBackWhatWasTypedBeforeItCloses) {
    put(1, "Dairy");
    open_form();
    click_row(list(), 0);
    press("F2");
    type("Xyz");
    press("Escape");
    EXPECT_TRUE(is_open(GetParam().screen));
    EXPECT_EQ(box().text(), "Dairy");
    press("Escape");
    settle();
    EXPECT_FALSE(is_open(GetParam().screen));
    EXPECT_EQ(name_in(1), "Dairy");
}

}  // namespace
}  // namespace tavernook
