#include "shopping/list_file.h"

#include <random>

#include "core/project_data.h"
#include "shopping/list_rows.h"
#include "shopping/shopping_fixture.h"

namespace tavernook {
namespace {

constexpr ShownColumns all_shown = {true, true, true, true, true, true, true};
constexpr ShownColumns none_shown = {};

class ListFile : public ShoppingTest {
  protected:
    ListFile() {
        put_on_list(milk, 2);
        put_on_list(bread, 3);
        collect_list_items();
    }

    // The byte at a position of the file, from 1.
    static void set(std::string& bytes, std::size_t position, std::initializer_list<int> values) {
        for (const int value : values) bytes[position++ - 1] = static_cast<char>(value);
    }
    std::string saved(const ShownColumns& shown) {
        EXPECT_TRUE(Save_Shoplist(path, shown));
        return read_whole_file(path);
    }
    bool load(const std::string& bytes, ShownColumns& shown) {
        write_whole_file(path, bytes);
        return populate_loadlist(path, shown);
    }
    bool load(const std::string& bytes) {
        ShownColumns shown = {};
        return load(bytes, shown);
    }
    static std::vector<i16> listed() {
        std::vector<i16> found;
        for (i16 item = 1; item <= item_capacity; ++item) {
            if (items[item].on_shopping_list != 0) found.push_back(item);
        }
        return found;
    }

    const std::string path = platform.path("week.lst");
};

TEST_F(ListFile, IsWrittenByPosition) {
    std::string expected(20101, '\0');
    set(expected, 10, {2, 0});
    set(expected, 20, {0xFF, 0xFF});   // categories
    set(expected, 50, {0xFF, 0xFF});   // quantities
    set(expected, 80, {0xFF, 0xFF});   // sub totals
    set(expected, 102, {4, 0, 9, 0});  // milk and bread, behind the entry that is not used
    EXPECT_EQ(saved({true, false, false, true, false, false, true}), expected);
}

TEST_F(ListFile, EachColumnHasItsPosition) {
    for (std::size_t column = 0; column < all_shown.size(); ++column) {
        ShownColumns shown = {};
        shown[column] = true;
        const std::string bytes = saved(shown);
        for (std::size_t other = 0; other < all_shown.size(); ++other) {
            EXPECT_EQ(bytes.substr(19 + 10 * other, 2) == "\xFF\xFF", other == column);
        }
    }
}

TEST_F(ListFile, AnEmptyListHasNoRowsAndNoNumbers) {
    remove_from_list(milk);
    remove_from_list(bread);
    collect_list_items();
    EXPECT_EQ(saved(none_shown), std::string(20101, '\0'));
}

TEST_F(ListFile, TheLastRowIsTheLastItem) {
    for (i16 item = 1; item <= item_capacity; ++item) put_on_list(item, 1);
    collect_list_items();
    const std::string bytes = saved(none_shown);
    ASSERT_EQ(bytes.size(), 20101u);
    EXPECT_EQ(bytes.substr(9, 2), "\x10\x27");
    EXPECT_EQ(bytes.substr(20099, 2), "\x10\x27");
    for (i16 item = 1; item <= item_capacity; ++item) items[item].on_shopping_list = 0;
    EXPECT_TRUE(load(bytes));
    EXPECT_EQ(listed().size(), 10000u);
}

TEST_F(ListFile, AnOlderLongerFileIsReplaced) {
    write_whole_file(path, std::string(30000, 'x'));
    EXPECT_EQ(saved(none_shown).size(), 20101u);
}

TEST_F(ListFile, LoadingClearsWhatWasOnTheListAndSetsTheColumns) {
    remove_from_list(milk);
    collect_list_items();
    const std::string only_bread = saved({false, true, false, false, false, false, true});
    items[bread].on_shopping_list = i16_false;
    put_on_list(milk, 1);
    ShownColumns shown = all_shown;
    project_modified = i16_false;
    EXPECT_TRUE(load(only_bread, shown));
    EXPECT_EQ(listed(), std::vector<i16>{bread});
    EXPECT_EQ(items[bread].on_shopping_list, -1);
    EXPECT_EQ(items[bread].shopping_quantity, 3);
    EXPECT_EQ(shown, (ShownColumns{false, true, false, false, false, false, true}));
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(ListFile, AFreeNumberIsPutOnTheListAndShowsNothing) {
    std::string bytes(20101, '\0');
    set(bytes, 10, {1, 0});
    set(bytes, 102, {0x39, 0x05});  // 1337
    EXPECT_TRUE(load(bytes));
    EXPECT_EQ(listed(), std::vector<i16>{1337});
    collect_list_items();
    EXPECT_EQ(list_count, 0);
}

TEST_F(ListFile, NumbersOutsideTheTableArePassedOver) {
    std::string bytes(20101, '\0');
    set(bytes, 10, {5, 0});
    set(bytes, 102, {0, 0, 0xFF, 0xFF, 0x11, 0x27, 0, 0x80, 9, 0});  // 0, -1, 10001, -32768, bread
    EXPECT_TRUE(load(bytes));
    EXPECT_EQ(listed(), std::vector<i16>{bread});
}

TEST_F(ListFile, ACountOutsideTheTableIsNotTrusted) {
    std::string bytes(20101, '\0');
    set(bytes, 20100, {9, 0});  // the last row
    set(bytes, 10, {0xFF, 0x7F});
    EXPECT_TRUE(load(bytes));
    EXPECT_EQ(listed(), std::vector<i16>{bread});
    set(bytes, 10, {0xFF, 0xFF});
    EXPECT_TRUE(load(bytes));
    EXPECT_TRUE(listed().empty());
}

TEST_F(ListFile, RowsBehindTheCountAreNotRead) {
    std::string bytes(20101, '\0');
    set(bytes, 10, {1, 0});
    set(bytes, 102, {4, 0, 9, 0});
    EXPECT_TRUE(load(bytes));
    EXPECT_EQ(listed(), std::vector<i16>{milk});
}

TEST_F(ListFile, AShortFileGivesWhatItHolds) {
    const std::string whole = saved(all_shown);
    EXPECT_TRUE(load(whole.substr(0, 104)));  // one row and half of the next
    EXPECT_EQ(listed(), std::vector<i16>{milk});
    ShownColumns shown = {};
    EXPECT_TRUE(load(whole.substr(0, 40), shown));  // half of the store orders
    EXPECT_EQ(shown, (ShownColumns{true, true, false, false, false, false, false}));
    EXPECT_TRUE(listed().empty());
    put_on_list(milk, 1);
    shown = all_shown;
    EXPECT_TRUE(load("", shown));
    EXPECT_EQ(shown, all_shown);
    EXPECT_TRUE(listed().empty());
}

TEST_F(ListFile, WhatIsBehindTheEndIsNotRead) {
    EXPECT_TRUE(load(saved(none_shown) + std::string(70000, 'x')));
    EXPECT_EQ(listed(), (std::vector<i16>{milk, bread}));
}

TEST_F(ListFile, AnyBytesGiveAListOfItems) {
    std::minstd_rand random(7);
    for (int turn = 0; turn < 60; ++turn) {
        std::string bytes(random() % 21000, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random() >> 8);
        EXPECT_TRUE(load(bytes));
        EXPECT_EQ(items[0].on_shopping_list, 0);
    }
}

TEST_F(ListFile, AFileThatCannotBeReadChangesNothing) {
    platform.boxes.expect_message("there has been an error");
    ShownColumns shown = all_shown;
    project_modified = i16_false;
    EXPECT_FALSE(populate_loadlist(platform.path("none.lst"), shown));
    EXPECT_EQ(listed(), (std::vector<i16>{milk, bread}));
    EXPECT_EQ(shown, all_shown);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ListFile, AFailedSaveLeavesTheFileBefore) {
    write_whole_file(path, "the list before");
    EXPECT_TRUE(Save_Shoplist(path, all_shown));
    const int rename = platform.files.operations();
    write_whole_file(path, "the list before");
    platform.files.start_over();
    platform.files.fail_at(rename, fault_number::disk_full);
    platform.boxes.expect_message("there has been an error");
    EXPECT_FALSE(Save_Shoplist(path, all_shown));
    EXPECT_EQ(read_whole_file(path), "the list before");
}

}  // namespace
}  // namespace tavernook
