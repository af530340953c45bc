#include "core/string_storage.h"
#include "core/where_used.h"
#include "inventory/items.h"
#include "inventory/pantry_fixture.h"
#include "inventory/replacement.h"

namespace tavernook {
namespace {

class ItemsAround : public PantryTest {
  protected:
    // Every field set to something of its own.
    i16 add_full_item(i16 item, std::string_view name) {
        add_item(item, name);
        ItemRecord& record = items[item];
        record.category = 3;
        record.stock_quantity = 4;
        record.restock_quantity = 2;
        record.cost = 1.75;
        record.store = 5;
        record.locations = add_string("cellar");
        record.fat = 6;
        record.calories = 7;
        record.serving_size = 0.5;
        record.servings_per_qty_unit = 12;
        record.serving_size_units = 8;
        record.last_restock_date = 45400;
        record.store_order = 9;
        record.on_shopping_list = -1;
        record.shopping_quantity = 11;
        record.barcode = "40123455";
        ItemDetailRecord& detail = item_details[item];
        detail.manufacturer = add_string("Miller");
        detail.brand = add_string("Snow");
        detail.description = add_string("fine");
        detail.notes = add_string("dry");
        detail.created_date = 45000;
        i16 unit = 1;
        for (const NutrientFields& fields : nutrient_fields) {
            detail.*fields.value = unit * 1.5;
            detail.*fields.unit = unit++;
        }
        fill_lots(item, 5, 6);
        return item;
    }

    static void expect_blank(i16 item) {
        ItemRecord blank;
        blank.barcode = "empty";
        EXPECT_EQ(items[item], blank);
        EXPECT_EQ(item_details[item], ItemDetailRecord{});
    }

    static void plan_flour(i16 flour) {
        meals[4].name = "  Bread";
        meals[4].in_use = 1;
        meals[4].ingredient_item[1] = flour;
        meals[4].ingredient_item[50] = flour;
        meals[9].name = "Cake";
        meals[9].in_use = 1;
        meals[9].ingredient_item[2] = flour;
        days[2] = DayRecord{};
        days[2].month = 5;
        days[2].day = 7;
        days[2].year = 2024;
        days[2].in_use = 1;
        days[2].planned_item[30] = flour;
    }
};

using ItemCopy = ItemsAround;
using ItemDeletion = ItemsAround;
using ItemSearch = ItemsAround;

constexpr const char* flour_question =
    "Press YES to select a replacement ITEM or press NO to cancel the delete. This item is used by "
    "MEAL:Bread,MEAL:Bread,MEAL:Cake,DAY:5/7/2024,";

TEST_F(ItemCopy, HasTheFieldsOfItsSource) {
    const i16 flour = add_full_item(1, "Flour");
    EXPECT_EQ(copy_item(flour, 8), 2);
    ItemRecord expected = items[flour];
    expected.name = "Copy of Flour";
    expected.category = 8;
    EXPECT_EQ(items[2], expected);
    EXPECT_EQ(item_details[2], item_details[flour]);
    EXPECT_EQ(items[2].barcode, "40123455");
    EXPECT_EQ(items[flour].category, 3);
}

TEST_F(ItemCopy, ShowsTheStockOnlyUntilTheLotsAreSummed) {
    const i16 flour = add_full_item(1, "Flour");
    const i16 copy = copy_item(flour, 8);
    EXPECT_EQ(items[copy].quantity, 11);
    EXPECT_EQ(lot_total(copy), 0);
    EXPECT_EQ(lots[copy].active, -1);
    add_to_lots(copy, 0);
    EXPECT_EQ(items[copy].quantity, 0);
    EXPECT_EQ(items[flour].quantity, 11);
    EXPECT_EQ(lot_total(flour), 11);
}

TEST_F(ItemCopy, LosesTheEndOfALongName) {
    add_full_item(1, "A name of 24 characters.");
    EXPECT_EQ(items[copy_item(1, 1)].name.stored(), "Copy of A name of 24 characters.");
    items[1].name = "A name of 25 characters..";
    EXPECT_EQ(items[copy_item(1, 1)].name.stored(), "Copy of A name of 25 characters.");
}

TEST_F(ItemCopy, TakesTheBlanksInFrontOfTheName) {
    add_full_item(1, "  Flour");
    EXPECT_EQ(items[copy_item(1, 1)].name.stored(), "Copy of   Flour                 ");
}

TEST_F(ItemCopy, OfAFullTableTakesTheLastSlotWithABox) {
    const i16 flour = add_full_item(1, "Flour");
    for (i16 slot = 2; slot <= item_capacity; ++slot) items[slot].in_use = 1;
    platform.boxes.expect_message(
        "You have reached the limitation of items allowed in Tavernook.  It is recommended that "
        "you delete some items to allow for some more room.");
    EXPECT_EQ(copy_item(flour, 8), 10000);
    EXPECT_EQ(items[10000].name, "Copy of Flour");
}

TEST_F(ItemDeletion, OfAnUnusedItemAsksNothing) {
    const i16 flour = add_full_item(1, "Flour");
    EXPECT_EQ(items[flour].on_shopping_list, -1);  // by hand: no reason to ask
    EXPECT_EQ(delete_item(flour), -1);
    expect_blank(flour);
    EXPECT_EQ(lots[flour].active, 0);
    EXPECT_EQ(lot_total(flour), 0);
    EXPECT_EQ(lots[flour].lot_name[15], "Lot P");
    EXPECT_TRUE(platform.calls.entries.empty());
}

TEST_F(ItemDeletion, LeavesTheTextsInThePool) {
    add_full_item(1, "Flour");
    delete_item(1);
    for (const char* text : {"cellar", "Miller", "Snow", "fine", "dry"}) {
        EXPECT_NE(find_string(text), 0) << text;
    }
}

TEST_F(ItemDeletion, FreesTheSlotForTheNextItem) {
    add_full_item(1, "Flour");
    add_full_item(2, "Rice");
    delete_item(1);
    EXPECT_EQ(find_free_item_slot(), 1);
}

TEST_F(ItemDeletion, RecipesAndDaysThatAreNotLiveAreNoUsers) {
    const i16 flour = add_full_item(1, "Flour");
    plan_flour(flour);
    meals[4].in_use = meals[9].in_use = days[2].in_use = 0;
    meals[5].in_use = 1;
    meals[5].ingredient_item[0] = flour;  // place 0 is never used
    EXPECT_EQ(delete_item(flour), -1);
    expect_blank(flour);
}

TEST_F(ItemDeletion, OfAUsedItemAsksAndNoKeepsEverything) {
    const i16 flour = add_full_item(1, "Flour");
    plan_flour(flour);
    const ItemRecord before = items[flour];
    const LotRecord lots_before = lots[flour];
    platform.boxes.expect_message(flour_question, Answer::no).buttons(Buttons::yes_no);
    EXPECT_EQ(delete_item(flour), 0);
    EXPECT_EQ(items[flour], before);
    EXPECT_EQ(lots[flour], lots_before);
    EXPECT_TRUE(platform.calls.entries.empty());
}

TEST_F(ItemDeletion, YesHandsTheItemToTheReplacementScreen) {
    const i16 flour = add_full_item(1, "Flour");
    plan_flour(flour);
    const ItemRecord before = items[flour];
    platform.boxes.expect_message(flour_question, Answer::yes);
    EXPECT_EQ(delete_item(flour), -1);
    EXPECT_EQ(platform.calls.entries, (std::vector<std::string>{"ReplaceItem 1 type 1"}));
    EXPECT_EQ(items[flour], before);  // the user closed the screen
}

TEST_F(ItemDeletion, AReplacementTakesEveryPlaceAndThenTheItemIsGone) {
    const i16 flour = add_full_item(1, "Flour");
    const i16 spelt = add_full_item(2, "Spelt");
    plan_flour(flour);
    FakeFoodInventory screen(platform.calls);
    platform.replace_item.chosen = [&](i16 row, i16) {
        replace_row(row, spelt, ReplacementType::item);
    };
    platform.boxes.expect_message(flour_question, Answer::yes);
    platform.boxes.expect_message("All replacements completed successfully.");
    EXPECT_EQ(delete_item(flour), -1);
    EXPECT_EQ(meals[4].ingredient_item[1], spelt);
    EXPECT_EQ(meals[4].ingredient_item[50], spelt);
    EXPECT_EQ(meals[9].ingredient_item[2], spelt);
    EXPECT_EQ(days[2].planned_item[30], spelt);
    expect_blank(flour);
    EXPECT_EQ(lots[flour].active, 0);
    EXPECT_EQ(platform.calls.entries.back(), "ReplaceItem 1 type 1");
}

TEST_F(ItemDeletion, WithoutALotRecordMakesABlankOne) {
    items[6].name = "Salt";
    items[6].in_use = 1;
    EXPECT_EQ(delete_item(6), -1);
    EXPECT_EQ(lot_table_top, 6);
    EXPECT_EQ(lots[6].active, 0);
}

TEST_F(ItemDeletion, NumbersOutsideTheTableAreTold) {
    expect_trapped(
        9, [] { return delete_item(10001); }, 0);
    expect_trapped(
        9, [] { return delete_item(-1); }, 0);
    expect_trapped(
        9, [] { return copy_item(10001, 1); }, 0);
    expect_trapped(9, [] { clear_item_record(-1); });
}

TEST_F(ItemDeletion, ClearingARecordKeepsInUse) {
    add_full_item(1, "Flour");
    clear_item_record(1);
    EXPECT_EQ(items[1].in_use, 1);
    items[1].in_use = 0;
    expect_blank(1);
    EXPECT_EQ(lot_total(1), 11);  // the lots are not the record's
}

TEST_F(ItemSearch, ByNameFoldsCapitalsAndBlanks) {
    items[12].name = "  Wheat FLOUR";
    EXPECT_EQ(find_item_by_name(" wheat flour  "), 12);
    EXPECT_EQ(find_item_by_name("wheat"), 0);
}

TEST_F(ItemSearch, ByNameFoldsAccentedLetters) {
    items[12].name =
        "CR\xC8ME FRA\xCE"
        "CHE";
    EXPECT_EQ(find_item_by_name("cr\xE8me fra\xEE"
                                "che"),
              12);
}

TEST_F(ItemSearch, ByNameGivesTheFirstLiveOrNot) {
    items[3].name = "Rice";
    items[8].name = "Rice";
    items[8].in_use = 1;
    EXPECT_EQ(find_item_by_name("rice"), 3);
}

TEST_F(ItemSearch, ByNameReachesTheLastSlot) {
    items[10000].name = "Zest";
    EXPECT_EQ(find_item_by_name("zest"), 10000);
}

TEST_F(ItemSearch, ByNameDoesNotCutALongName) {
    items[4].name = "A name of thirty-three character";
    EXPECT_EQ(find_item_by_name("A name of thirty-three characters"), 0);
}

TEST_F(ItemSearch, ExactTellsCapitalsApart) {
    items[5].name = "Rice";
    EXPECT_EQ(find_item_exact("Rice"), 5);
    EXPECT_EQ(find_item_exact("rice"), 0);
    EXPECT_EQ(find_item_exact("Rice "), 0);  // the name in the slot is trimmed, the argument is not
    items[2].name = " Rice";
    EXPECT_EQ(find_item_exact("Rice"), 5);
    EXPECT_EQ(find_item_exact(" Rice"), 2);
}

TEST_F(ItemSearch, ExactNeverFindsTheLastSlot) {
    items[10000].name = "Zest";
    EXPECT_EQ(find_item_exact("Zest"), 0);
    items[9999].name = "Zest";
    EXPECT_EQ(find_item_exact("Zest"), 9999);
}

TEST_F(ItemSearch, OfABlankNameFindsTheFirstFreeSlot) {
    items[1].name = "Rice";
    EXPECT_EQ(find_item_by_name("  "), 2);
    EXPECT_EQ(find_item_exact(""), 2);
}

}  // namespace
}  // namespace tavernook
