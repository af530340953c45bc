// The boxes of the item form that list names, units and stores: what others do to a name while the
// form is open, and what is offered while one types.
#include <QAbstractItemView>
#include <QCompleter>
#include <QDialog>
#include <QPushButton>

#include "core/changes.h"
#include "core/name_rows.h"
#include "core/project_data.h"
#include "gui_support/modal_driver.h"
#include "screens/pantry/food_inventory_fixture.h"

namespace tavernook {
namespace {

class NamesInTheForm : public FoodInventoryTest {
  protected:
    static constexpr i16 sack = 20;
    static constexpr i16 bag = 21;

    void SetUp() override {
        FoodInventoryTest::SetUp();
        put(units[sack], "Sack");
        put(units[bag], "Bag");
        put(stores[1], "Market");
        put(stores[2], "Corner shop");
        put_item(1, "Rice", 1, 2);
        items[1].qty_units = sack;
        items[1].serving_size_units = sack;
        items[1].store = 1;
        item_details[1].fat_units = bag;
        look_for_changes();
        open();
        choose_row("c1");
    }

    template <typename Record>
    static void put(Record& record, const char* name) {
        record.name = name;
        record.in_use = 1;
    }

    // --- on the screens of names, as the user does it

    QWidget& names_of(const char* form) {
        EXPECT_TRUE(window.registry().show(QLatin1String(form)));
        settle();
        return *window.registry().loaded(QLatin1String(form));
    }
    static void choose_name(QTreeView& list, const char* name) {
        const QModelIndexList found = list.model()->match(
            list.model()->index(0, 0), Qt::DisplayRole, QLatin1String(name), 1, Qt::MatchExactly);
        ASSERT_FALSE(found.isEmpty()) << name;
        list.setCurrentIndex(found.front());
    }
    void rename(const char* form, const char* from, const char* to) {
        QWidget& names = names_of(form);
        choose_name(child<QTreeView>(names, "name_list"), from);
        child<QLineEdit>(names, "name_box").setText(QLatin1String(to));
        child<QPushButton>(names, "accept_button").click();
        open();
    }
    void replace(const char* form, const char* gone, const char* replacement_name) {
        QWidget& names = names_of(form);
        choose_name(child<QTreeView>(names, "name_list"), gone);
        platform.replace_item.chosen = [&](i16 row, i16 type) {
            when_modal<QDialog>([&](QDialog& dialog) {
                choose_name(child<QTreeView>(dialog, "replacement_list"), replacement_name);
                child<QPushButton>(dialog, "replace_button").click();
            });
            replacement.ask_replacement(row, type);
        };
        const bool is_store = form == std::string("StoresForm");
        platform.boxes.expect_message(
            is_store ? "This Store is used by ITEM:Rice,.  Press YES to select a replacement STORE "
                       "or press NO to cancel the delete"
                     : "This Unit is used by ITEM:Rice,.  Press YES to select a replacement UNIT "
                       "or press NO to cancel the delete",
            Answer::yes);
        platform.boxes.expect_message("All replacements completed successfully.");
        child<QPushButton>(names, "delete_button").click();
        open();
    }

    // --- in the box

    QComboBox& into(const char* name) {
        auto& box = part<QComboBox>(name);
        box.setFocus(Qt::TabFocusReason);
        return box;
    }
    static QCompleter& completer(QComboBox& box) { return *box.findChild<QCompleter*>(); }
    static QAbstractItemView& offers(QComboBox& box) { return *completer(box).popup(); }
    static std::vector<std::string> offered(QComboBox& box) {
        std::vector<std::string> names;
        if (!offers(box).isVisible()) return names;
        const QAbstractItemModel& model = *completer(box).completionModel();
        for (int row = 0; row < model.rowCount(); ++row) {
            names.push_back(model.index(row, 0).data().toString().toStdString());
        }
        return names;
    }
};

using Names = std::vector<std::string>;

// --- changed while the form is open ----------------------------------------------------------

TEST_F(NamesInTheForm, AUnitRenamedOnItsScreenDoesNotComeBack) {
    for (const bool with_edits : {false, true}) {
        if (with_edits) enter("notes", "mine");
        rename("UnitsForm", with_edits ? "Big sack" : "Sack",
               with_edits ? "Huge sack" : "Big sack");
        EXPECT_EQ(text("qty_units"), with_edits ? "Huge sack" : "Big sack");
        accept();
        EXPECT_EQ(items[1].qty_units, sack);
        EXPECT_EQ(items[1].serving_size_units, sack);
        EXPECT_EQ(CheckUnits("Sack"), 0);
        EXPECT_EQ(CheckUnits("Big sack"), with_edits ? 0 : sack);
    }
    EXPECT_EQ(pooled_strings[item_details[1].notes], "mine");
    EXPECT_EQ(item_details[1].fat_units, bag);
}

TEST_F(NamesInTheForm, AStoreRenamedOnItsScreenDoesNotComeBack) {
    enter("cost", "4");
    rename("StoresForm", "Market", "Old market");
    EXPECT_EQ(text("store"), "Old market");
    accept();
    EXPECT_EQ(items[1].cost, 4);
    EXPECT_EQ(items[1].store, 1);
    EXPECT_EQ(CheckStores("Market"), 0);
}

TEST_F(NamesInTheForm, AReplacedStoreDoesNotComeBack) {
    replace("StoresForm", "Market", "Corner shop");
    EXPECT_EQ(text("store"), "Corner shop");
    accept();
    EXPECT_EQ(items[1].store, 2);
    EXPECT_EQ(CheckStores("Market"), 0);
}

TEST_F(NamesInTheForm, AReplacedStoreDoesNotComeBackWithEditsElsewhere) {
    enter("notes", "mine");
    replace("StoresForm", "Market", "Corner shop");
    accept();
    EXPECT_EQ(pooled_strings[item_details[1].notes], "mine");
    EXPECT_EQ(items[1].store, 2);
    EXPECT_EQ(CheckStores("Market"), 0);
}

TEST_F(NamesInTheForm, AReplacedUnitDoesNotComeBackWithEditsElsewhere) {
    enter("cost", "4");
    replace("UnitsForm", "Sack", "Bag");
    EXPECT_EQ(text("qty_units"), "Bag");
    EXPECT_EQ(text("serving_size_units"), "Bag");
    accept();
    EXPECT_EQ(items[1].cost, 4);
    EXPECT_EQ(items[1].qty_units, bag);
    EXPECT_EQ(items[1].serving_size_units, bag);
    EXPECT_EQ(CheckUnits("Sack"), 0);
}

// --- offered while one types -----------------------------------------------------------------

TEST_F(NamesInTheForm, NamesInWhichItStandsAreOfferedWhileOneTypes) {
    QComboBox& box = into("qty_units");
    type("ACK");
    EXPECT_EQ(offered(box), Names{"Sack"});
    EXPECT_EQ(box.currentText(), "ACK");
    type("x");
    EXPECT_EQ(offered(box), Names{});
    EXPECT_EQ(box.currentText(), "ACKx");
    into("store");
    type("co");
    EXPECT_EQ(offered(part<QComboBox>("store")), Names{"Corner shop"});
    EXPECT_EQ(text("store"), "co");
    press("Escape");
    into("fat_units");
    type("sack");
    EXPECT_EQ(offered(part<QComboBox>("fat_units")), Names{"Sack"});
    EXPECT_EQ(text("fat_units"), "sack");
}

TEST_F(NamesInTheForm, AnOfferIsTakenByTheKeysAlone) {
    QComboBox& box = into("qty_units");
    type("ba");
    ASSERT_EQ(offered(box), Names{"Bag"});
    press("Down");
    press("Return");
    EXPECT_FALSE(offers(box).isVisible());
    EXPECT_EQ(text("qty_units"), "Bag");
    accept();
    EXPECT_EQ(items[1].qty_units, bag);
}

TEST_F(NamesInTheForm, AnOfferIsTakenByAClick) {
    QComboBox& box = into("store");
    type("SHOP");
    ASSERT_EQ(offered(box), Names{"Corner shop"});
    QAbstractItemView& list = offers(box);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualRect(list.model()->index(0, 0)).center());
    EXPECT_EQ(text("store"), "Corner shop");
}

TEST_F(NamesInTheForm, CtrlEnterAcceptsTheItemThoughNamesAreOffered) {
    QComboBox& box = into("qty_units");
    type("ba");
    ASSERT_TRUE(offers(box).isVisible());
    press("Ctrl+Return");
    EXPECT_FALSE(offers(box).isVisible());
    EXPECT_EQ(std::string(units[items[1].qty_units].name.trimmed()), "ba");
}

TEST_F(NamesInTheForm, AClickBesideTheOffersLeadsTheKeyboardToWhatWasClicked) {
    QComboBox& box = into("qty_units");
    type("sack");
    QAbstractItemView& list = offers(box);
    ASSERT_TRUE(list.isVisible());
    QWidget& clicked = part<QWidget>("storage_time");
    QTest::mousePress(&list, Qt::LeftButton, {},
                      list.mapFromGlobal(clicked.mapToGlobal(clicked.rect().center())));
    QTest::mouseRelease(&clicked, Qt::LeftButton);
    EXPECT_FALSE(list.isVisible());
    EXPECT_EQ(focused(), "storage_time");
    EXPECT_EQ(text("qty_units"), "sack");
}

TEST_F(NamesInTheForm, EnterWithoutAChoiceKeepsWhatWasTypedAndGoesOn) {
    QComboBox& box = into("qty_units");
    type("SAC");
    ASSERT_TRUE(offers(box).isVisible());
    press("Return");
    EXPECT_FALSE(offers(box).isVisible());
    EXPECT_EQ(text("qty_units"), "SAC");
    EXPECT_EQ(focused(), "stock_quantity");
    accept();
    EXPECT_EQ(std::string(units[items[1].qty_units].name.trimmed()), "SAC");
}

TEST_F(NamesInTheForm, TabKeepsWhatWasTypedToo) {
    QComboBox& box = into("store");
    type("mark");
    ASSERT_TRUE(offers(box).isVisible());
    press("Tab");
    EXPECT_FALSE(offers(box).isVisible());
    EXPECT_EQ(text("store"), "mark");
    EXPECT_EQ(focused(), "store_order");
    into("qty_units");
    type("sACK");  // its capitals, too
    press("Tab");
    EXPECT_EQ(text("qty_units"), "sACK");
    EXPECT_EQ(focused(), "stock_quantity");
    accept();
    EXPECT_EQ(items[1].qty_units, sack);
    EXPECT_EQ(units[sack].name.trimmed(), "Sack");
}

TEST_F(NamesInTheForm, EscapeBringsBackWhatWasTyped) {
    QComboBox& box = into("qty_units");
    type("ba");
    press("Down");
    EXPECT_EQ(text("qty_units"), "Bag");
    press("Escape");
    EXPECT_FALSE(offers(box).isVisible());
    EXPECT_EQ(text("qty_units"), "ba");
    EXPECT_TRUE(screen().isVisible());
    EXPECT_EQ(focused(), "qty_units");
}

TEST_F(NamesInTheForm, ANewNameIsOfferedAtOnce) {
    put(units[22], "Pouch");
    look_for_changes();
    screen().refresh_units();
    QComboBox& box = into("sodium_units");
    type("pou");
    const Names names = offered(box);
    EXPECT_NE(std::find(names.begin(), names.end(), "Pouch"), names.end());
}

}  // namespace
}  // namespace tavernook
