#include "transfer/item_block.h"

#include <gtest/gtest.h>
#include <string>

#include "basics/byte_codec.h"
#include "basics/fault.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "transfer/memory_file.h"

namespace tavernook {
namespace {

constexpr i64 start = 100;  // where the block begins, counted from 1

class ItemBlockTest : public testing::Test {
  protected:
    ItemBlockTest() {
        items[7].name = "Rye flour";
        items[7].quantity = 2.5;
        items[7].in_use = 1;
        items[7].category = 3;
        items[7].qty_units = 40;
        items[7].serving_size_units = 41;
        items[7].store = 9;
        item_details[7].manufacturer = 11;
        item_details[7].brand = 12;
        item_details[7].description = 13;
        item_details[7].notes = 14;
        item_details[7].fat_units = 42;
        item_details[7].protien_units = 43;
        pooled_strings[11] = "Mill by the river";
        pooled_strings[12] = "Sunday";
        pooled_strings[13] = "Coarse";
        pooled_strings[14] = "For the sour dough";
        units[40].name = "bag";
        units[41].name = "gram(s)";
        units[42].name = "mg";
        units[43].name = "oz";
        stores[9].name = "Market";
        catagories[3].name = "Baking";
        catagories[3].in_use = 1;
    }

    i64 write(BlockKind kind) { return write_item_block(file, start, block_of_item(7), kind); }

    std::string at(i64 position, std::size_t count) {
        return file.bytes.substr(static_cast<std::size_t>(position - 1), count);
    }
    i32 number_at(i64 position) { return load_little_endian<i32>(at(position, 4).data()); }
    void put(i64 position, const std::string& bytes) {
        file.bytes.replace(static_cast<std::size_t>(position - 1), bytes.size(), bytes);
    }
    int fault_of_reading() {
        try {
            ItemBlock block;
            read_item_block(file, start, block, BlockKind::inventory);
            return 0;
        } catch (const Fault& fault) {
            return fault.number;
        }
    }

    TestPlatform platform;
    MemoryFile file;
};

// P = 100: 150 + 106 bytes of records, then Q = 356.
TEST_F(ItemBlockTest, AnInventoryBlockHasItsTextsWhereTheTableSays) {
    const i64 next = write(BlockKind::inventory);
    EXPECT_EQ(at(102, 32), "Rye flour" + std::string(23, ' '));
    EXPECT_EQ(at(356, 32), "Mill by the river" + std::string(15, '\0'));
    EXPECT_EQ(at(388, 32), "Sunday" + std::string(26, '\0'));
    EXPECT_EQ(number_at(420), 6);
    EXPECT_EQ(at(424, 6), "Coarse");
    EXPECT_EQ(number_at(430), 18);
    EXPECT_EQ(at(434, 18), "For the sour dough");
    EXPECT_EQ(at(452, 12), "bag         ");
    EXPECT_EQ(at(464, 12), "Market      ");
    EXPECT_EQ(at(496, 12), "gram(s)     ");
    EXPECT_EQ(at(508, 12), "mg          ");
    EXPECT_EQ(at(604, 12), "oz          ");
    EXPECT_EQ(at(616, 32), "Baking" + std::string(26, ' '));
    EXPECT_EQ(next, 648);  // S + 196
    EXPECT_EQ(file.bytes.size(), 647u);
}

// The quantity stands between the records: Q = 364.
TEST_F(ItemBlockTest, AnIngredientHasItsQuantityBetweenTheRecordsAndNoCategory) {
    ItemBlock block = block_of_item(7);
    block.ingredient_qty = 1.5;
    const i64 next = write_item_block(file, start, block, BlockKind::ingredient);
    EXPECT_EQ(load_little_endian<f64>(at(250, 8).data()), 1.5);
    EXPECT_EQ(at(364, 17), "Mill by the river");
    EXPECT_EQ(at(460, 12), "bag         ");
    EXPECT_EQ(next, 460 + 164);
    ItemBlock read;
    EXPECT_EQ(read_item_block(file, start, read, BlockKind::ingredient), next);
    EXPECT_EQ(read.ingredient_qty, 1.5);
    EXPECT_EQ(read.nutrient_units[8], "oz");
}

TEST_F(ItemBlockTest, WhatWasWrittenIsRead) {
    const i64 next = write(BlockKind::inventory);
    ItemBlock block;
    EXPECT_EQ(read_item_block(file, start, block, BlockKind::inventory), next);
    EXPECT_EQ(block.item, items[7]);
    EXPECT_EQ(block.detail, item_details[7]);
    EXPECT_EQ(block.manufacturer, "Mill by the river");
    EXPECT_EQ(block.brand, "Sunday");
    EXPECT_EQ(block.notes, "For the sour dough");
    EXPECT_EQ(block.store, "Market");
    EXPECT_EQ(block.category, "Baking");
}

TEST_F(ItemBlockTest, TwelveLettersOfABrandAreRead) {
    pooled_strings[12] = "Sunday morning best";
    write(BlockKind::inventory);
    ItemBlock block;
    read_item_block(file, start, block, BlockKind::inventory);
    EXPECT_EQ(block.brand, "Sunday morni");
}

TEST_F(ItemBlockTest, ATextLongerThanItsPlaceLeavesTheNextOneAlone) {
    pooled_strings[11] = std::string(70, 'm');
    item_details[7].brand = 0;
    write(BlockKind::inventory);
    EXPECT_EQ(at(356, 32), std::string(32, 'm'));
    EXPECT_EQ(at(388, 32), std::string(32, '\0'));
}

// Other writers leave blanks, or NULs, or both behind a text.
TEST_F(ItemBlockTest, PaddingOfEitherKindIsNoText) {
    write(BlockKind::inventory);
    put(452, std::string("cup\0\0\0\0\0\0\0\0\0", 12));
    put(464, std::string("Shop \0 \0    ", 12));
    put(388, std::string(32, ' '));
    ItemBlock block;
    read_item_block(file, start, block, BlockKind::inventory);
    EXPECT_EQ(block.qty_units, "cup");
    EXPECT_EQ(block.store, "Shop");
    EXPECT_EQ(block.brand, "");
}

TEST_F(ItemBlockTest, AShortFileIsTold) {
    write(BlockKind::inventory);
    const std::string whole = file.bytes;
    for (const std::size_t length : {99u, 200u, 355u, 419u, 421u, 425u, 433u, 440u, 500u, 646u}) {
        file.bytes = whole.substr(0, length);
        EXPECT_EQ(fault_of_reading(), 63) << length;
    }
}

TEST_F(ItemBlockTest, AnImpossibleLengthIsTold) {
    write(BlockKind::inventory);
    const std::string whole = file.bytes;
    for (const i64 position : {420, 430}) {
        for (const char* length : {"\xFF\xFF\xFF\xFF", "\xFF\xFF\xFF\x7F", "\x01\x04\x01\x01"}) {
            file.bytes = whole;
            put(position, length);
            EXPECT_EQ(fault_of_reading(), 63) << position;
        }
    }
}

TEST_F(ItemBlockTest, AFigureThatIsNoNumberCountsAsNone) {
    for (const f64 figure : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        items[7].quantity = items[7].cost = figure;
        items[7].stock_quantity = 3;
        item_details[7].fat = item_details[7].created_date = figure;
        write(BlockKind::inventory);
        ItemBlock block;
        read_item_block(file, start, block, BlockKind::inventory);
        EXPECT_EQ(block.item.quantity, 0);
        EXPECT_EQ(block.item.cost, 0);
        EXPECT_EQ(block.item.stock_quantity, 3);
        EXPECT_EQ(block.detail.fat, 0);
        EXPECT_EQ(block.detail.created_date, 0);
    }
}

TEST_F(ItemBlockTest, NumbersThatNameNothingTravelAsNothing) {
    items[7].qty_units = -5;
    items[7].store = 32000;
    item_details[7].manufacturer = -1;
    item_details[7].notes = 31000;
    items[7].category = 101;
    const ItemBlock block = block_of_item(7);
    EXPECT_EQ(block.qty_units + block.store + block.manufacturer + block.notes + block.category,
              "");
    EXPECT_EQ(block_of_item(0).item, ItemRecord{});
    EXPECT_EQ(block_of_item(10001).item, ItemRecord{});
}

}  // namespace
}  // namespace tavernook
