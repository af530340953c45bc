// The item on show while others change it, replace what it names, delete it, or take its slot; and
// items that cannot be shown.
#include <QCalendarWidget>
#include <QDialog>
#include <limits>

#include "core/changes.h"
#include "core/project_data.h"
#include "gui_support/modal_driver.h"
#include "inventory/replacement.h"
#include "screens/pantry/food_inventory_fixture.h"
#include "screens/parts/guard.h"
#include "screens/parts/house_colours.h"
#include "support/table_snapshot.h"

namespace tavernook {
namespace {

constexpr f64 no_date_at_all = std::numeric_limits<f64>::infinity();

class ItemThatChanges : public FoodInventoryTest {
  protected:
    static constexpr i16 sack = 20;
    static constexpr i16 bag = 21;

    void SetUp() override {
        FoodInventoryTest::SetUp();
        put_unit(sack, "Sack");
        put_unit(bag, "Bag");
        put_store(1, "Market");
        put_store(2, "Corner shop");
        put_item(1, "Rice", 1, 2);
        put_item(2, "Salt", 1, 1);
        items[1].qty_units = sack;
        items[1].store = 1;
        item_details[1].fat_units = sack;
        look_for_changes();
        open();
        choose_row("c1");
    }

    static void put_unit(i16 row, const char* name) {
        units[row].name = name;
        units[row].in_use = 1;
    }
    static void put_store(i16 row, const char* name) {
        stores[row].name = name;
        stores[row].in_use = 1;
    }
    static void delete_item_1() {
        items[1].in_use = 0;
        clear_item_record(1);
        clear_lot_record(1);
    }
    // Seen as what it is only by a look in between.
    static void put_tea_in_its_place() {
        delete_item_1();
        look_for_changes();
        put_item(1, "Tea", 1, 7);
        look_for_changes();
    }

    void expect_nothing_on_show() {
        EXPECT_EQ(screen().getindex(), 0);
        for (const char* name : {"item_name", "quantity", "qty_units", "store", "cost", "notes"}) {
            EXPECT_EQ(text(name), "") << name;
        }
        EXPECT_EQ(text("item_category"), "");
        EXPECT_EQ(text("barcode"), "empty");
        EXPECT_EQ(text("exp_date"), "Exp Date..");
        EXPECT_EQ(text("servings"), "");
        EXPECT_FALSE(part<QAction>("item_toolbar_2_1").isEnabled());
        EXPECT_FALSE(part<QWidget>("item_name").isEnabled());
        EXPECT_FALSE(part<QWidget>("lot_track").isEnabled());
    }
};

// --- changed elsewhere -----------------------------------------------------------------------

TEST_F(ItemThatChanges, TheFormShowsIt) {
    items[1].name = "Long rice";
    items[1].cost = 3;
    items[1].storage_time = 10;
    items[1].last_restock_date = 45427;
    lots[1].lot_quantity[0] = 1.5;
    end_of_step();
    EXPECT_EQ(text("item_name"), "Long rice");
    EXPECT_EQ(text("cost"), "3.00");
    EXPECT_EQ(text("quantity"), "1.50");
    EXPECT_EQ(text("exp_date"), "Exp 05/25/24");
    EXPECT_EQ(text("last_restock"), "05/15/2024");
    choose_row("c2");  // nothing that the user has changed
    EXPECT_EQ(screen().getindex(), 2);
}

TEST_F(ItemThatChanges, TheFormTellsWhatWantsAttentionByIconColourAndWord) {
    auto& words = part<QLabel>("attention_words");
    auto& button = part<QWidget>("exp_date");
    EXPECT_TRUE(words.isHidden());
    EXPECT_EQ(button.accessibleDescription(), "");
    items[1].storage_time = 10;
    items[1].stock_quantity = 50;
    items[1].restock_quantity = 20;
    lots[1].lot_quantity[0] = 2;
    lots[1].expiration_date[0] = 45420;
    end_of_step();
    EXPECT_FALSE(words.isHidden());
    EXPECT_EQ(words.text(), "Expired, low");
    EXPECT_EQ(words.palette().color(QPalette::WindowText),
              house_colour(HouseColour::past_date, screen().palette()));
    EXPECT_FALSE(part<QWidget>("attention_line").findChild<QLabel*>()->pixmap().isNull());
    EXPECT_EQ(button.accessibleDescription(), "Expired, low");
    choose_row("c2");
    EXPECT_TRUE(words.isHidden());
    choose_row("c1");
    EXPECT_EQ(words.text(), "Expired, low");
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "Oats");
    command("item_toolbar_1_1");
    EXPECT_TRUE(words.isHidden());
    EXPECT_EQ(button.accessibleDescription(), "");
}

TEST_F(ItemThatChanges, WhatWasTypedStaysAndTheOtherBoxesFollow) {
    enter("cost", "4");
    enter("notes", "mine");
    items[1].cost = 3;
    items[1].name = "Long rice";
    lots[1].lot_quantity[0] = 1.5;
    items[1].quantity = 1.5;
    end_of_step();
    EXPECT_EQ(text("cost"), "4");
    EXPECT_EQ(text("notes"), "mine");
    EXPECT_EQ(text("item_name"), "Long rice");
    EXPECT_EQ(text("quantity"), "1.50");
    accept();
    EXPECT_EQ(items[1].cost, 4);
    EXPECT_EQ(items[1].quantity, 1.5);
    EXPECT_EQ(std::string(items[1].name.trimmed()), "Long rice");
}

TEST_F(ItemThatChanges, ATypedQuantityStaysWhateverTheStockDoes) {
    enter("quantity", "6");
    lots[1].lot_quantity[0] = 1;
    items[1].quantity = 1;
    end_of_step();
    EXPECT_EQ(text("quantity"), "6");
    accept();
    EXPECT_EQ(items[1].quantity, 6);
}

TEST_F(ItemThatChanges, AReplacedUnitDoesNotComeBackWithTheForm) {
    enter("cost", "4");
    platform.boxes.expect_message("All replacements completed successfully.");
    replace_row(sack, bag, ReplacementType::unit);
    end_of_step();
    EXPECT_EQ(text("qty_units"), "Bag");
    EXPECT_EQ(text("cost_label"), "Cost($)/Bag");
    accept();
    EXPECT_EQ(items[1].cost, 4);
    EXPECT_EQ(items[1].qty_units, bag);
    EXPECT_EQ(units[sack].in_use, 0);
    EXPECT_EQ(part<QComboBox>("qty_units").findText("Sack"), -1);
}

TEST_F(ItemThatChanges, AReplacedStoreDoesNotComeBackThoughNobodyLookedInBetween) {
    enter("cost", "4");
    platform.boxes.expect_message("All replacements completed successfully.");
    replace_row(1, 2, ReplacementType::store);
    accept();
    EXPECT_EQ(text("store"), "Corner shop");
    EXPECT_EQ(items[1].store, 2);
    EXPECT_EQ(stores[1].in_use, 0);
}

TEST_F(ItemThatChanges, ARenamedUnitAndStoreAreShownByTheirNewNames) {
    enter("notes", "mine");
    enter("fat_units", "drops");
    units[sack].name = "Big sack";
    stores[1].name = "Old market";
    end_of_step();
    EXPECT_EQ(text("qty_units"), "Big sack");
    EXPECT_EQ(text("store"), "Old market");
    EXPECT_EQ(text("fat_units"), "drops");
    accept();
    EXPECT_EQ(items[1].qty_units, sack);
    EXPECT_EQ(items[1].store, 1);
    EXPECT_NE(item_details[1].fat_units, sack);
}

TEST_F(ItemThatChanges, ItsCategoryIsShownByItsNewNameAndIsNoChange) {
    catagories[1].name = "Staples";
    put_catagory(2, "Grains");
    end_of_step();
    EXPECT_EQ(text("item_category"), "Staples");
    EXPECT_GE(part<QComboBox>("item_category").findText("Grains"), 0);
    items[1].category = 2;
    end_of_step();
    EXPECT_EQ(text("item_category"), "Grains");
    catagories[2].in_use = 0;
    end_of_step();
    EXPECT_EQ(text("item_category"), "Staples");
    choose_row("c2");
    EXPECT_EQ(screen().getindex(), 2);
}

TEST_F(ItemThatChanges, ASelectedTextStaysSelectedWhileOthersChange) {
    auto& cost = part<QLineEdit>("cost");
    cost.setFocus();
    cost.selectAll();
    lots[1].lot_quantity[0] = 1.5;
    end_of_step();
    EXPECT_EQ(text("quantity"), "1.50");
    EXPECT_EQ(cost.selectedText(), "0.00");
}

TEST_F(ItemThatChanges, ANewItemKeepsWhatWasTypedAndIsOfferedNewNames) {
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "Tea");
    screen().new_item();
    enter("qty_units", "Tin");
    enter("cost", "5");
    put_unit(22, "Pouch");
    put_catagory(2, "Drinks");
    end_of_step();
    EXPECT_EQ(text("item_name"), "Tea");
    EXPECT_EQ(text("qty_units"), "Tin");
    EXPECT_EQ(text("cost"), "5");
    EXPECT_EQ(text("item_category"), "General");
    EXPECT_GE(part<QComboBox>("item_category").findText("Drinks"), 0);
    EXPECT_GE(part<QComboBox>("qty_units").findText("Pouch"), 0);
    accept();
    EXPECT_EQ(items[3].cost, 5);
}

TEST_F(ItemThatChanges, SettingsAreFollowed) {
    currency_symbol = 163;
    end_of_step();
    EXPECT_EQ(text("cost_label"), "Cost(\u00a3)/Sack");
}

TEST_F(ItemThatChanges, TheListShowsWhatWasAddedAndWhatWasSold) {
    put_item(3, "Pepper", 1, 1);
    lots[1].lot_quantity[0] = 0.5;
    end_of_step();
    EXPECT_TRUE(model().index_of("c3").isValid());
    EXPECT_EQ(model().index_of("c1").siblingAtColumn(item_stock_column).data().toString(),
              "0.50 Sack");
    EXPECT_EQ(marked(), "c1");
}

TEST_F(ItemThatChanges, ItsQuantityFollowsAnAudit) {
    days[1].in_use = 1;
    days[1].month = 5;
    days[1].day = 14;
    days[1].year = 2024;
    days[1].planned_item[1] = 1;
    day_quantities[1].item_quantity[1] = 0.5;
    EXPECT_EQ(text("quantity"), "2.00");
    action("toolbar_2_6").trigger();
    EXPECT_EQ(text("quantity"), "1.50");
}

TEST_F(ItemThatChanges, ItsQuantityFollowsTheShoppingThatIsPutInStock) {
    items[1].on_shopping_list = i16_true;
    items[1].shopping_quantity = 3;
    ASSERT_TRUE(window.registry().show("ShoppingList"));
    settle();
    window.registry().loaded("ShoppingList")->findChild<QAction*>("list_toolbar_5")->trigger();
    ASSERT_TRUE(window.registry().show("FoodInventory"));
    settle();
    EXPECT_EQ(text("quantity"), "5.00");
}

TEST_F(ItemThatChanges, OutOfSightItFollowsWhenItComesBack) {
    click("close_screen");
    items[1].name = "Long rice";
    end_of_step();
    open();
    EXPECT_EQ(text("item_name"), "Long rice");
}

TEST_F(ItemThatChanges, ACodeBeingScannedGoesOnWhileOthersChange) {
    click("scan");
    type("0123");
    lots[1].lot_quantity[0] = 0.5;
    end_of_step();
    EXPECT_EQ(text("barcode"), "");
    type("45");
    press("Return");
    settle();
    EXPECT_EQ(text("barcode"), "012345");
}

TEST_F(ItemThatChanges, TheMonthViewIsForTheItemOnShowOnly) {
    click("exp_date");
    EXPECT_TRUE(part<QWidget>("month_box").isVisible());
    delete_item_1();
    end_of_step();
    EXPECT_FALSE(part<QWidget>("month_box").isVisible());
    expect_nothing_on_show();
}

// --- deleted elsewhere -----------------------------------------------------------------------

TEST_F(ItemThatChanges, ADeletedItemLeavesAnEmptyFormThatSaysSo) {
    enter("cost", "4");
    delete_item_1();
    end_of_step();
    expect_nothing_on_show();
    EXPECT_EQ(panel(1), "The item that was on show has been deleted.");
    choose_row("c2");  // no question about edits that are gone
    EXPECT_EQ(screen().getindex(), 2);
    EXPECT_EQ(panel(1), "");
}

TEST_F(ItemThatChanges, AnotherItemInItsSlotIsNotShown) {
    put_tea_in_its_place();
    EXPECT_EQ(screen().getindex(), 0);
    end_of_step();
    expect_nothing_on_show();
    choose_row("c1");
    EXPECT_EQ(text("item_name"), "Tea");
}

TEST_F(ItemThatChanges, EditsAreNeverStoredInAnotherItemOfThatSlot) {
    enter("item_name", "Long rice");
    put_tea_in_its_place();
    accept();
    EXPECT_EQ(std::string(items[1].name.trimmed()), "Tea");
    EXPECT_EQ(items[1].quantity, 7);
    expect_nothing_on_show();
}

TEST_F(ItemThatChanges, NeitherAreThoseThatWereAskedAboutMeanwhile) {
    enter("item_name", "Long rice");
    platform.boxes.expect_message("Save the changes to \"Long rice\"?", Answer::yes).during([] {
        put_tea_in_its_place();
    });
    choose_row("c2");
    EXPECT_EQ(std::string(items[1].name.trimmed()), "Tea");
    EXPECT_EQ(screen().getindex(), 2);
    EXPECT_EQ(text("item_name"), "Salt");
}

TEST_F(ItemThatChanges, ADeletedItemIsNotHandedOver) {
    FakeMealPlan planner(platform.calls);
    screen().set_return(2);
    enter("cost", "4");
    platform.calls.clear();
    platform.boxes.expect_message("Save the changes to \"Rice\"?", Answer::no).during([] {
        put_tea_in_its_place();
    });
    click("add_item");
    EXPECT_TRUE(platform.calls.entries.empty());
    EXPECT_TRUE(screen().isVisible());
}

TEST_F(ItemThatChanges, ACodeThatWasAskedForADeletedItemIsNotTaken) {
    scanner_type = 3;
    platform.boxes.expect_input("Enter Barcode", "Barcode Entry", "", "333").during([] {
        put_tea_in_its_place();
        end_of_step();
    });
    click("scan");
    expect_nothing_on_show();
}

TEST_F(ItemThatChanges, ADeletedItemIsNotCopied) {
    command("item_toolbar_1_5");
    auto* dialog = screen().findChild<QDialog*>("copydialog");
    ASSERT_NE(dialog, nullptr);
    put_tea_in_its_place();
    dialog->accept();
    settle();
    EXPECT_EQ(items[3].in_use, 0);
    EXPECT_EQ(project_modified, i16_false);
}

// --- that was to be replaced -----------------------------------------------------------------

TEST_F(ItemThatChanges, AReplacementThatIsCancelledChangesNothing) {
    meals[1].in_use = 1;
    meals[1].name = "Soup";
    meals[1].ingredient_item[1] = 1;
    end_of_step();
    enter("cost", "4");
    project_modified = i16_false;
    const TableSnapshot before;
    platform.replace_item.chosen = [this](i16 row, i16 type) {
        when_modal<QDialog>([](QDialog& dialog) { dialog.reject(); });
        replacement.ask_replacement(row, type);
    };
    for (const bool by_port : {false, true}) {
        platform.boxes.expect_message(
            "Press YES to select a replacement ITEM or press NO to cancel the delete. This item is "
            "used by MEAL:Soup,",
            Answer::yes);
        by_port ? screen().delete_food_item() : command("item_toolbar_1_4");
        EXPECT_EQ(TableSnapshot().difference(before), "");
        EXPECT_EQ(project_modified, i16_false);
        EXPECT_EQ(screen().getindex(), 1);
        EXPECT_EQ(text("cost"), "4");
        EXPECT_EQ(marked(), "c1");
    }
}

// --- that a damaged file has made ------------------------------------------------------------

TEST_F(ItemThatChanges, ADateThatNoCalendarHasIsShownAsNone) {
    items[2].last_restock_date = no_date_at_all;
    choose_row("c2");
    EXPECT_EQ(text("item_name"), "Salt");
    EXPECT_EQ(text("last_restock"), "");
    EXPECT_EQ(text("exp_date"), "Exp Date..");
    items[2].storage_time = 5;
    end_of_step();
    EXPECT_EQ(text("exp_date"), "Exp Date..");
    enter("cost", "4");
    accept();
    EXPECT_EQ(items[2].cost, 4);
    EXPECT_EQ(items[1].cost, 0);
}

// Whatever stops the form half way: neither item is on show then, and neither gets the other's
// fields.
TEST_F(ItemThatChanges, AnItemThatCannotBeShownWholeLeavesNothingOnShow) {
    items[2].cost = 7;
    end_of_step();
    const ItemRecord rice = items[1];
    const ItemRecord salt = items[2];
    QObject::connect(&part<QLineEdit>("cost"), &QLineEdit::textChanged, &screen(),
                     [](const QString& shown) {
                         if (shown == "7.00") throw Fault(fault_number::overflow);
                     });
    enter("notes", "mine");
    platform.boxes.expect_message("Save the changes to \"Rice\"?", Answer::no);
    platform.boxes.expect_message("Error in item inventory mousedown: Overflow");
    choose_row("c2");
    expect_nothing_on_show();
    screen().accept_item(false);
    accept();
    EXPECT_EQ(items[1], rice);
    EXPECT_EQ(items[2], salt);
    choose_row("c1");
    EXPECT_EQ(text("item_name"), "Rice");
    EXPECT_EQ(screen().getindex(), 1);
}

TEST_F(ItemThatChanges, AFigureThatNoWholeNumberFitsKeepsNobodyFromAccepting) {
    item_details[2].fat = no_date_at_all;
    item_details[2].calories = 1e300;
    items[2].fat = 3;
    items[2].calories = 7;
    choose_row("c2");
    enter("cost", "4");
    accept();
    EXPECT_EQ(items[2].cost, 4);
    EXPECT_EQ(items[2].fat, 3);
    EXPECT_EQ(items[2].calories, 7);
    enter("calories", "40000");  // typed, it is refused
    platform.boxes.expect_message("Tavernook error: rt6:6. Contact Brenwyk Software.");
    accept();
    EXPECT_EQ(item_details[2].calories, 1e300);
}

TEST_F(ItemThatChanges, NumbersThatNameNoRowAreShownAsNone) {
    items[2].qty_units = 32000;
    items[2].serving_size_units = -4;
    items[2].store = 1001;
    items[2].locations = 30001;
    items[2].category = 999;
    item_details[2].brand = -1;
    item_details[2].notes = 32767;
    item_details[2].sodium_units = 1001;
    end_of_step();
    choose_row("c2");
    EXPECT_EQ(screen().getindex(), 2);
    EXPECT_EQ(text("item_name"), "Salt");
    for (const char* name : {"qty_units", "serving_size_units", "store", "location_1", "brand",
                             "notes", "sodium_units"}) {
        EXPECT_EQ(text(name), "") << name;
    }
    EXPECT_EQ(text("item_category"), "General");
    accept();
    EXPECT_EQ(items[2].category, 999);
    EXPECT_EQ(items[2].qty_units, 0);
    EXPECT_EQ(items[2].store, 0);
}

}  // namespace
}  // namespace tavernook
