// Seeing, entering and changing items on their screen.
#include "screens/pantry/food_inventory_fixture.h"

namespace tavernook {
namespace {

class ItemScreen : public FoodInventoryTest {};

std::string name_of(i16 item) {
    return std::string(items[item].name.trimmed());
}
std::string unit_name(i16 row) {
    return std::string(units[row].name.trimmed());
}

TEST_F(ItemScreen, StartsEmptyAndSaysWhatToDo) {
    open();
    EXPECT_EQ(screen().windowTitle(), "Item Inventory");
    EXPECT_EQ(screen().getindex(), 0);
    EXPECT_TRUE(part<QLabel>("tree_hint").isVisible());
    EXPECT_EQ(text("tree_hint"), "Press \"New Item\" to enter your first item.");
    for (const char* name :
         {"item_toolbar_2_1", "item_toolbar_1_5", "item_toolbar_1_10", "item_toolbar_1_11"}) {
        EXPECT_FALSE(part<QAction>(name).isEnabled()) << name;
    }
    for (const char* name : {"item_toolbar_1_8", "item_toolbar_1_9"}) {
        EXPECT_TRUE(part<QAction>(name).isEnabled()) << name;
        EXPECT_FALSE(part<QAction>(name).toolTip().contains("Not available")) << name;
    }
    EXPECT_EQ(text("barcode"), "empty");
}

TEST_F(ItemScreen, AnItemIsCreatedByTheKeyboardAloneInAnEmptyProject) {
    press("Alt+P");
    press("I");
    settle();
    // The display of the tests gives the focus back only when asked.
    window.activateWindow();
    ASSERT_TRUE(becomes_active(window));
    settle();
    EXPECT_EQ(focused(), "item_tree");
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "Oats");
    press("Ins");
    settle();
    EXPECT_EQ(text("item_name"), "Oats");
    EXPECT_EQ(text("barcode"), "empty");
    EXPECT_EQ(text("exp_date"), "Exp Date");
    EXPECT_EQ(text("lot_track"), "Lot Track");
    EXPECT_EQ(focused(), "quantity");
    type("1,5");
    press("Return");
    EXPECT_EQ(focused(), "qty_units");
    type("Packet");
    press("Return");
    EXPECT_EQ(focused(), "stock_quantity");
    type("3 Packet");
    press("Return");
    type("1");
    press("Return");
    EXPECT_EQ(focused(), "cost");
    type("2.49");
    press("Return");
    EXPECT_EQ(focused(), "storage_time");
    type("90");
    press("Ctrl+Return");
    settle();
    ASSERT_EQ(screen().getindex(), 1);
    EXPECT_EQ(name_of(1), "Oats");
    EXPECT_EQ(items[1].quantity, 1.5);
    EXPECT_EQ(lot_total(1), 1.5);
    EXPECT_EQ(unit_name(items[1].qty_units), "Packet");
    EXPECT_EQ(items[1].qty_units, 14);
    EXPECT_EQ(items[1].stock_quantity, 3);
    EXPECT_EQ(items[1].restock_quantity, 1);
    EXPECT_EQ(items[1].cost, 2.49);
    EXPECT_EQ(items[1].storage_time, 90);
    EXPECT_EQ(items[1].category, 1);
    EXPECT_EQ(items[1].last_restock_date, 45427.5);
    EXPECT_EQ(items[1].barcode.trimmed(), "empty");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(marked(), "c1");
    EXPECT_EQ(text("exp_date"), "Exp 08/13/24");
    EXPECT_EQ(text("last_restock"), "05/15/2024");
    EXPECT_EQ(text("cost_label"), "Cost($)/Packet");
}

TEST_F(ItemScreen, EnterGoesThroughTheFieldsToAcceptWhichEnterPresses) {
    put_item(1, "Rice", 1, 2);
    open();
    choose_row("c1");
    tree().setFocus();
    press("Return");
    EXPECT_EQ(focused(), "item_name");
    std::vector<std::string> way;
    for (int steps = 0; steps < 60 && focused() != "description"; ++steps) {
        press("Return");
        way.push_back(focused());
    }
    EXPECT_EQ(way, (std::vector<std::string>{"item_category",
                                             "quantity",
                                             "qty_units",
                                             "stock_quantity",
                                             "restock_quantity",
                                             "cost",
                                             "storage_time",
                                             "store",
                                             "store_order",
                                             "location_1",
                                             "location_2",
                                             "location_3",
                                             "servings_per_qty_unit",
                                             "serving_size",
                                             "serving_size_units",
                                             "fat",
                                             "fat_units",
                                             "calories",
                                             "calories_units",
                                             "cholestorol",
                                             "cholestorol_units",
                                             "sodium",
                                             "sodium_units",
                                             "potassium",
                                             "potassium_units",
                                             "carbohydrates",
                                             "carbohydrates_units",
                                             "fiber",
                                             "fiber_units",
                                             "sugars",
                                             "sugars_units",
                                             "protien",
                                             "protien_units",
                                             "manufacturer",
                                             "brand",
                                             "description"}));
    type("Long");
    press("Return");  // a new line of the text
    press("Tab");
    EXPECT_EQ(focused(), "notes");
    part<QWidget>("item_toolbar_2_1_button").setFocus();
    press("Return");
    settle();
    EXPECT_EQ(pooled_strings[item_details[1].description], "Long\r\n");
}

TEST_F(ItemScreen, EveryFieldIsStoredAndShownAgain) {
    put_catagory(2, "Dairy");
    put_item(1, "Milk", 1, 2);
    open();
    screen().view_item(1, i16_true);
    const std::vector<std::pair<const char*, const char*>> entered = {
        {"item_name", "Whole milk"},
        {"qty_units", "liter(s)"},
        {"stock_quantity", "4.00"},
        {"restock_quantity", "1.25"},
        {"cost", "1.39"},
        {"storage_time", "7"},
        {"store", "Corner Dairy"},
        {"store_order", "12"},
        {"location_1", "Fridge"},
        {"location_2", "Door"},
        {"servings_per_qty_unit", "5.00"},
        {"serving_size", "200.00"},
        {"serving_size_units", "mL"},
        {"fat", "7.125"},
        {"fat_units", "gram(s)"},
        {"calories", "128.50"},
        {"calories_units", "kcal"},
        {"cholestorol", "20.00"},
        {"cholestorol_units", "mg"},
        {"sodium", "86.00"},
        {"sodium_units", "mg"},
        {"potassium", "300.00"},
        {"potassium_units", "mg"},
        {"carbohydrates", "9.60"},
        {"carbohydrates_units", "gram(s)"},
        {"fiber", "0.00"},
        {"fiber_units", "gram(s)"},
        {"sugars", "9.50"},
        {"sugars_units", "gram(s)"},
        {"protien", "6.60"},
        {"protien_units", "gram(s)"},
        {"manufacturer", "Hill Farm"},
        {"brand", "Caf\u00e9 au lait"},
        {"description", "Fresh"},
        {"notes", "Two lines,\nthe second."}};
    for (const auto& [name, value] : entered) enter(name, value);
    auto& category = part<QComboBox>("item_category");
    category.setCurrentIndex(category.findText("Dairy"));
    accept();
    screen().initialize_inv();
    EXPECT_EQ(text("item_name"), "");
    screen().view_item(1, i16_true);
    for (const auto& [name, value] : entered) EXPECT_EQ(text(name), value) << name;
    EXPECT_EQ(text("quantity"), "2.00");
    EXPECT_EQ(category.currentText(), "Dairy");
    const ItemRecord& item = items[1];
    const ItemDetailRecord& detail = item_details[1];
    EXPECT_EQ(name_of(1), "Whole milk");
    EXPECT_EQ(item.category, 2);
    EXPECT_EQ(item.stock_quantity, 4);
    EXPECT_EQ(item.restock_quantity, 1.25);
    EXPECT_EQ(item.cost, 1.39);
    EXPECT_EQ(item.storage_time, 7);
    EXPECT_EQ(std::string(stores[item.store].name.trimmed()), "Corner Dairy");
    EXPECT_EQ(item.store_order, 12);
    EXPECT_EQ(pooled_strings[item.locations], "Fridge,Door");
    EXPECT_EQ(item.servings_per_qty_unit, 5);
    EXPECT_EQ(item.serving_size, 200);
    EXPECT_EQ(unit_name(item.serving_size_units), "mL");
    EXPECT_EQ(detail.fat, 7.125);
    EXPECT_EQ(item.fat, 7);
    EXPECT_EQ(item.calories, 128);  // half to even
    EXPECT_EQ(unit_name(detail.calories_units), "kcal");
    EXPECT_EQ(pooled_strings[detail.brand], "Caf\xe9 au lait");
    EXPECT_EQ(pooled_strings[detail.notes], "Two lines,\r\nthe second.");
    EXPECT_EQ(text("note_line"), "Note:  1 Serving = 200.00 mL");
    EXPECT_EQ(text("servings_per_label"), "Servings/liter(s)");
    EXPECT_EQ(text("servings"), "10.00");
}

TEST_F(ItemScreen, ANewItemGetsItsWholeNumberFatAndCaloriesAtOnce) {
    open();
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "Nuts");
    screen().new_item();
    enter("fat", "14.6");
    enter("calories", "170.5");
    accept();
    EXPECT_EQ(items[1].fat, 15);
    EXPECT_EQ(items[1].calories, 170);
    EXPECT_EQ(item_details[1].fat, 14.6);
}

TEST_F(ItemScreen, AnEmptyNameIsStoredAsUntitled) {
    open();
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "");
    screen().new_item();
    EXPECT_EQ(focused(), "item_name");
    accept();
    EXPECT_EQ(name_of(1), "<<UNTITLED>>");
    EXPECT_EQ(text("item_name"), "<<UNTITLED>>");
}

TEST_F(ItemScreen, CancellingTheNameChangesNothing) {
    put_item(1, "Rice", 1, 2);
    open();
    screen().view_item(1, i16_true);
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", std::nullopt);
    command("item_toolbar_1_1");
    EXPECT_EQ(screen().getindex(), 1);
    EXPECT_EQ(text("item_name"), "Rice");
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ItemScreen, AnUntouchedQuantityIsKeptToTheLastBit) {
    put_item(1, "Rice", 1, 1.0 / 3.0);
    items[1].stock_quantity = 2.0 / 3.0;
    open();
    screen().view_item(1, i16_true);
    EXPECT_EQ(text("quantity"), "0.33");
    enter("item_name", "Long rice");
    accept();
    EXPECT_EQ(name_of(1), "Long rice");
    EXPECT_EQ(items[1].quantity, 1.0 / 3.0);
    EXPECT_EQ(lots[1].lot_quantity[0], 1.0 / 3.0);
    EXPECT_EQ(items[1].stock_quantity, 2.0 / 3.0);
    EXPECT_EQ(items[1].last_restock_date, 45400);
}

TEST_F(ItemScreen, AnUntouchedQuantityNeverTakesBackStockThatMovedMeanwhile) {
    put_item(1, "Rice", 1, 5);
    open();
    screen().view_item(1, i16_true);
    lots[1].lot_quantity[0] = 3;
    items[1].quantity = 3;
    enter("cost", "2");
    accept();
    EXPECT_EQ(items[1].cost, 2);
    EXPECT_EQ(items[1].quantity, 3);
    EXPECT_EQ(lots[1].lot_quantity[1], 0);
    EXPECT_EQ(text("quantity"), "3.00");
}

TEST_F(ItemScreen, AHigherQuantityIsALotOfItsOwn) {
    put_item(1, "Rice", 1, 2);
    items[1].storage_time = 10;
    open();
    screen().view_item(1, i16_true);
    enter("quantity", "3,25 kg");
    accept();
    EXPECT_EQ(items[1].quantity, 3.25);
    EXPECT_EQ(lots[1].lot_quantity[0], 2);
    EXPECT_EQ(lots[1].lot_quantity[1], 1.25);
    EXPECT_EQ(lots[1].expiration_date[1], 45437.5);
    EXPECT_EQ(items[1].last_restock_date, 45427.5);
    EXPECT_EQ(text("quantity"), "3.25");
}

TEST_F(ItemScreen, TypingZeroKeepsTheStock) {
    put_item(1, "Rice", 1, 2);
    open();
    screen().view_item(1, i16_true);
    enter("quantity", "0");
    accept();
    EXPECT_EQ(items[1].quantity, 2);
    EXPECT_EQ(text("quantity"), "2.00");
}

TEST_F(ItemScreen, ACopyShowsTheSumOfItsLots) {
    put_item(1, "Rice", 1, 2);
    lots[1].lot_quantity[0] = 0;
    open();
    screen().view_item(1, i16_true);
    EXPECT_EQ(text("quantity"), "0.00");
    EXPECT_EQ(items[1].quantity, 2);
}

TEST_F(ItemScreen, AnItemWithoutLotsGetsItsFirstOne) {
    put_item(1, "Rice", 1, 2);
    lots.clear();
    open();
    screen().view_item(1, i16_true);
    EXPECT_EQ(lots[1].active, i16_true);
    EXPECT_EQ(lots[1].lot_quantity[0], 2);
    EXPECT_EQ(text("quantity"), "2.00");
}

TEST_F(ItemScreen, TheCurrencySignStandsInTheCostLabel) {
    currency_symbol = 163;
    put_item(1, "Rice", 1, 2);
    open();
    EXPECT_EQ(text("cost_label"), "Cost(\u00a3)/...");
    screen().view_item(1, i16_true);
    enter("qty_units", "bag");
    EXPECT_EQ(text("cost_label"), "Cost(\u00a3)/bag");
}

TEST_F(ItemScreen, UnsavedEditsAreAskedAboutBeforeAnotherItemIsShown) {
    put_item(1, "Rice", 1, 2);
    put_item(2, "Salt", 1, 1);
    open();
    choose_row("c1");
    choose_row("c2");
    choose_row("c1");  // nothing was changed: no question
    enter("cost", "4");
    platform.boxes.expect_message("Save the changes to \"Rice\"?", Answer::cancel)
        .title("Item Inventory")
        .buttons(Buttons::yes_no_cancel);
    choose_row("c2");
    EXPECT_EQ(screen().getindex(), 1);
    EXPECT_EQ(marked(), "c1");
    EXPECT_EQ(text("cost"), "4");
    EXPECT_EQ(items[1].cost, 0);
    platform.boxes.expect_message("Save the changes to \"Rice\"?", Answer::yes);
    choose_row("c2");
    EXPECT_EQ(items[1].cost, 4);
    EXPECT_EQ(screen().getindex(), 2);
    EXPECT_EQ(marked(), "c2");
    EXPECT_EQ(text("item_name"), "Salt");
    enter("cost", "9");
    platform.boxes.expect_message("Save the changes to \"Salt\"?", Answer::no);
    choose_row("r1");
    EXPECT_EQ(items[2].cost, 0);
    EXPECT_EQ(screen().getindex(), 0);
    EXPECT_EQ(current_catagory, 1);
}

TEST_F(ItemScreen, TypingTheOldTextAgainIsNoChange) {
    put_item(1, "Rice", 1, 2);
    put_item(2, "Salt", 1, 1);
    open();
    choose_row("c1");
    enter("item_name", "Rices");
    enter("item_name", "Rice");
    choose_row("c2");
    EXPECT_EQ(screen().getindex(), 2);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ItemScreen, ClosingAsksAndCancelKeepsItOpen) {
    put_item(1, "Rice", 1, 2);
    open();
    choose_row("c1");
    enter("brand", "Acme");
    platform.boxes.expect_message("Save the changes to \"Rice\"?", Answer::cancel);
    press("Ctrl+W");
    settle();
    ASSERT_NE(window.registry().loaded("FoodInventory"), nullptr);
    EXPECT_EQ(text("brand"), "Acme");
    platform.boxes.expect_message("Save the changes to \"Rice\"?", Answer::yes);
    press("Ctrl+W");
    settle();
    EXPECT_EQ(window.registry().loaded("FoodInventory"), nullptr);
    EXPECT_EQ(pooled_strings[item_details[1].brand], "Acme");
}

TEST_F(ItemScreen, SavingTheProjectAsksAboutTheItemFirst) {
    put_item(1, "Rice", 1, 2);
    open();
    choose_row("c1");
    enter("cost", "4");
    platform.boxes.expect_message("Save the changes to \"Rice\"?", Answer::yes);
    press("Ctrl+S");
    settle();
    EXPECT_EQ(items[1].cost, 4);
    EXPECT_EQ(project_modified, i16_false);
    press("Ctrl+S");
}

TEST_F(ItemScreen, ClosingTheProgramAsksAboutTheItemFirst) {
    put_item(1, "Rice", 1, 2);
    open();
    choose_row("c1");
    enter("cost", "4");
    platform.boxes.expect_message("Save the changes to \"Rice\"?", Answer::cancel);
    EXPECT_FALSE(window.close());
    platform.boxes.expect_message("Save the changes to \"Rice\"?", Answer::no);
    EXPECT_TRUE(window.close());
    EXPECT_EQ(items[1].cost, 0);
}

TEST_F(ItemScreen, ANewItemThatWasNotAcceptedIsAskedAbout) {
    put_item(1, "Rice", 1, 2);
    open();
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "Oats");
    screen().new_item();
    platform.boxes.expect_message("Save the new item \"Oats\"?", Answer::no);
    choose_row("c1");
    EXPECT_EQ(screen().getindex(), 1);
    EXPECT_EQ(items[2].in_use, 0);
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "Oats");
    screen().new_item();
    platform.boxes.expect_message("Save the new item \"Oats\"?", Answer::yes);
    screen().view_item(1, i16_true);
    EXPECT_EQ(name_of(2), "Oats");
    EXPECT_EQ(screen().getindex(), 1);
}

TEST_F(ItemScreen, AFailureIsToldAndTheEditsStay) {
    put_item(1, "Rice", 1, 2);
    open();
    choose_row("c1");
    enter("storage_time", "99999");
    enter("quantity", "5");
    platform.boxes.expect_message("Tavernook error: rt6:6. Contact Brenwyk Software.");
    accept();
    EXPECT_EQ(text("storage_time"), "99999");
    EXPECT_EQ(items[1].quantity, 2);
    EXPECT_EQ(items[1].storage_time, 0);
    EXPECT_EQ(project_modified, i16_false);
    enter("storage_time", "99");
    accept();
    EXPECT_EQ(items[1].quantity, 5);
}

TEST_F(ItemScreen, AnotherScreensChangeOfStockIsShownButNotOverTypedText) {
    put_item(1, "Rice", 1, 2);
    open();
    choose_row("c1");
    lots[1].lot_quantity[0] = 1.5;
    items[1].quantity = 1.5;
    screen().refresh_quantity();
    EXPECT_EQ(text("quantity"), "1.50");
    enter("quantity", "6");
    items[1].quantity = 1.25;
    screen().refresh_quantity();
    screen().view_item(1, i16_true);  // the same item again
    EXPECT_EQ(text("quantity"), "6");
    enter("quantity", "1.50");
    choose_row("r1");
}

TEST_F(ItemScreen, UnitAndStoreListsFollowTheTablesAndKeepWhatIsShown) {
    put_item(1, "Rice", 1, 2);
    items[1].qty_units = 10;
    open();
    choose_row("c1");
    enter("fat_units", "drops");
    units[14].name = "Sack";
    units[14].in_use = 1;
    stores[1].name = "Market";
    stores[1].in_use = 1;
    screen().refresh_units();
    screen().refresh_stores();
    EXPECT_EQ(text("qty_units"), "kg(s)");
    EXPECT_EQ(text("fat_units"), "drops");
    EXPECT_GE(part<QComboBox>("sodium_units").findText("Sack"), 0);
    EXPECT_EQ(part<QComboBox>("sodium_units").count(), 14);
    EXPECT_EQ(part<QComboBox>("store").findText("Market"), 0);
    EXPECT_EQ(text("store"), "");
}

TEST_F(ItemScreen, AcceptingAnItemThatIsLowPutsItOnTheShoppingList) {
    put_item(1, "Rice", 1, 2);
    open();
    choose_row("c1");
    enter("stock_quantity", "6");
    enter("restock_quantity", "2");
    accept();
    EXPECT_EQ(items[1].on_shopping_list, i16_true);
    EXPECT_EQ(items[1].shopping_quantity, 4);
}

TEST_F(ItemScreen, OtherScreensLearnOfAnAcceptedItem) {
    put_item(1, "Rice", 1, 2);
    items[1].barcode = "0123";
    open();
    choose_row("c1");
    {
        FakeReports fake_reports(platform.calls);
        FakeShoppingList fake_list(platform.calls);
        FakeScanList fake_scan_list(platform.calls);
        platform.calls.entries.clear();
        enter("item_name", "Wild rice");
        accept();
        items[1].on_shopping_list = i16_true;
        accept();
    }
    const std::vector<std::string> others{"CS1504GETUPC refresh_item 0123 Wild rice 1",
                                          "Reports search_engine", "Reports populate_list"};
    std::vector<std::string> expected{"ShoppingList populate_list", "ShoppingList populate_list2"};
    for (int times = 0; times < 2; ++times) {
        expected.insert(expected.end(), others.begin(), others.end());
    }
    EXPECT_EQ(platform.calls.entries, expected);
}

}  // namespace
}  // namespace tavernook
