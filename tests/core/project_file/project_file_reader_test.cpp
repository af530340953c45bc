// What a reader must hold, at both sides of each border.
#include "core/project_file/project_file_reader.h"

#include <cmath>
#include <limits>

#include "../../../fuzz/memory_files.h"
#include "core/project_file/project_file_testing.h"

namespace tavernook {

namespace {

// Positions of the header's fields.
constexpr std::size_t count_slots[] = {1, 7, 13, 19, 25, 31};
constexpr std::size_t position_slots[] = {3, 9, 15, 21, 27, 33, 39, 43};
constexpr int capacities[] = {10000, 100, 1000, 1000, 1000, 1095};

class ProjectFileReader : public ProjectFileTest {
  protected:
    ProjectFileReader() {
        fill_small_project();
        bytes = save();
        length = static_cast<std::int64_t>(bytes.size());
        setup = static_cast<std::size_t>(long_at(bytes, 39));
        lots_position = static_cast<std::size_t>(long_at(bytes, 54));
    }

    Image changed() const { return Image(bytes); }

    std::string bytes;
    std::int64_t length;
    std::size_t setup;
    std::size_t lots_position;
};

TEST_F(ProjectFileReader, OpensTheFileItStartsFrom) {
    open();
    expect_opened();
    EXPECT_EQ(items[3].name, "Flour");
    EXPECT_EQ(lots[3].lot_quantity[1], 12.5);
    EXPECT_EQ(meal_serving_size[9], 4);
}

TEST_F(ProjectFileReader, StoreOrderOutside1To20Becomes0) {
    const std::pair<int, int> orders[] = {{-32768, 0}, {-1, 0}, {0, 0},    {1, 1},
                                          {20, 20},    {21, 0}, {32767, 0}};
    for (const auto& [stored, loaded] : orders) {
        open(changed().word(102 + 106, stored).bytes);
        EXPECT_EQ(items[3].store_order, loaded) << stored;
    }
}

TEST_F(ProjectFileReader, AShoppingQuantityOutOfRangeTakesTheItemOffTheList) {
    for (const double kept : {0.001, 0.5, 9999.5, 10000.0}) {
        open(changed().real(102 + 110, kept).bytes);
        EXPECT_EQ(items[3].shopping_quantity, kept);
        EXPECT_EQ(items[3].on_shopping_list, 1) << kept;
    }
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double dropped :
         {0.0005, std::nextafter(0.001, 0.0), 0.0, -1.0, std::nextafter(10000.0, infinity), 10000.5,
          infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}) {
        open(changed().real(102 + 110, dropped).bytes);
        EXPECT_EQ(items[3].shopping_quantity, 0) << dropped;
        EXPECT_EQ(items[3].on_shopping_list, 0) << dropped;
    }
}

TEST_F(ProjectFileReader, OnlyThreeCurrencySymbolsAreKept) {
    const std::pair<int, int> symbols[] = {{36, 36},  {165, 165}, {163, 163}, {0, 36},
                                           {35, 36},  {37, 36},   {162, 36},  {164, 36},
                                           {166, 36}, {-1, 36},   {128, 36}};
    for (const auto& [stored, loaded] : symbols) {
        open(changed().word(setup + 440, stored).bytes);
        EXPECT_EQ(currency_symbol, loaded) << stored;
    }
}

TEST_F(ProjectFileReader, AFileWithoutCreationDateKeepsItsMeasuresPositionAt52) {
    const auto wam_position = long_at(bytes, 50);
    ASSERT_LT(wam_position, 65536);
    Image older = changed();
    // Bytes 54 to 57 then read as 65536, a position inside the file.
    older.real(setup + 28, 0).word(50, 0x7F7F).position_word(52, wam_position).word(56, 1);
    ASSERT_EQ(long_at(older.bytes, 54), 65536);
    open(older.bytes);
    expect_opened();
    EXPECT_EQ(wams[2].text, "1 cup = 8 oz");
    EXPECT_EQ(project_created, 45427);  // the present date
    EXPECT_EQ(scanner_type, 0);
    EXPECT_EQ(lots[3].lot_quantity[0], 12.5);
    EXPECT_EQ(lots[3].lot_quantity[1], 0);
    EXPECT_EQ(lots[3].active, -1);
    EXPECT_EQ(lot_table_top, 3);
}

TEST_F(ProjectFileReader, AFileWithCreationDateDoesNotLookAt52) {
    const auto wam_position = long_at(bytes, 50);
    open(changed().real(setup + 28, 1).bytes);
    expect_opened();
    EXPECT_EQ(wams[2].text, "1 cup = 8 oz");
    EXPECT_EQ(scanner_type, 2);
    expect_refused(changed().position_word(52, wam_position).bytes, bad_record_box);
}

TEST_F(ProjectFileReader, ABlockWithoutPositionIsAbsent) {
    note_boxes();  // one that tells of it, since files of this version lack no block
    for (const int position : {0, -1, std::numeric_limits<int>::min()}) {
        open(changed().position_word(50, position).bytes);
        expect_opened();
        EXPECT_EQ(wams[2].text, "");
        open(changed().position_word(setup + 410, position).bytes);
        expect_opened();
        EXPECT_EQ(item_details[3].brand, 0);
        open(changed().position_word(setup + 416, position).bytes);
        expect_opened();
        EXPECT_EQ(pooled_strings[6], "");
        open(changed().position_word(setup + 422, position).bytes);
        expect_opened();
        EXPECT_EQ(day_quantities[8].meal_servings[1], 0);
        open(changed().position_word(setup + 428, position).bytes);
        expect_opened();
        EXPECT_EQ(meal_serving_size[9], 0);
    }
}

TEST_F(ProjectFileReader, WithoutALotBlockEachLiveItemGetsOneLot) {
    note_boxes();
    for (const int position : {0, -1}) {
        open(changed().position_word(54, position).bytes);
        expect_opened();
        EXPECT_EQ(lot_table_top, 3);
        EXPECT_EQ(lots[3].lot_quantity[0], 12.5);
        EXPECT_EQ(lots[3].lot_quantity[1], 0);
        EXPECT_EQ(lots[2].active, 0);
    }
}

TEST_F(ProjectFileReader, APositionBeyondTheFileIsABadRecord) {
    std::vector<std::size_t> slots(std::begin(position_slots), std::end(position_slots));
    for (const std::size_t slot :
         {std::size_t{50}, std::size_t{54}, setup + 410, setup + 416, setup + 422, setup + 428}) {
        slots.push_back(slot);
    }
    for (const std::size_t slot : slots) {
        for (const std::int64_t position : {length + 1, std::int64_t{2147483647}}) {
            SCOPED_TRACE(std::to_string(slot) + ": " + std::to_string(position));
            expect_refused(changed().position_word(slot, position).bytes, bad_record_box);
        }
    }
}

TEST_F(ProjectFileReader, AHeaderPositionBelow1IsABadRecord) {
    for (const std::size_t slot : position_slots) {
        for (const int position : {0, -1, std::numeric_limits<int>::min()}) {
            SCOPED_TRACE(std::to_string(slot) + ": " + std::to_string(position));
            expect_refused(changed().position_word(slot, position).bytes, bad_record_box);
        }
    }
}

TEST_F(ProjectFileReader, ASectionWithoutRecordsMayStandAtAnyPositionInTheFile) {
    for (const std::int64_t position : {std::int64_t{1}, length}) {
        Image image = changed();
        for (int section = 0; section < 6; ++section) {
            image.word(count_slots[section], 0).position_word(position_slots[section], position);
        }
        open(image.bytes);
        expect_opened();
        EXPECT_EQ(items[3].in_use, 0);
        EXPECT_EQ(days[8].in_use, 0);
    }
}

TEST_F(ProjectFileReader, ACountOutOfRangeIsABadRecord) {
    for (int section = 0; section < 6; ++section) {
        for (const int count : {-32768, -1, capacities[section] + 1, 32767}) {
            SCOPED_TRACE(std::to_string(section) + ": " + std::to_string(count));
            expect_refused(changed().word(count_slots[section], count).bytes, bad_record_box);
        }
    }
}

TEST_F(ProjectFileReader, ASlotOutOfRangeIsACorruptedFile) {
    for (int section = 0; section < 6; ++section) {
        const auto first = static_cast<std::size_t>(long_at(bytes, position_slots[section]));
        for (const int slot : {-32768, -1, capacities[section] + 1, 32767}) {
            SCOPED_TRACE(std::to_string(section) + ": " + std::to_string(slot));
            expect_refused(changed().word(first, slot).bytes, corrupted_box);
        }
        open(changed().word(first, capacities[section]).bytes);
        expect_opened();
    }
    EXPECT_EQ(days[1095].in_use, 1);
    EXPECT_EQ(days[8].in_use, 0);
}

TEST_F(ProjectFileReader, AFullCountIsNotOutOfRange) {
    note_boxes();  // it ends early, too
    // The records overlap the unit before; what counts is that as many are read.
    Image image = changed();
    for (int unit = 0; unit < 1000; ++unit) {
        image.word(5421 + 20 * unit, unit + 1).fixed(5423 + 20 * unit, "u", 12);
        image.word(5435 + 20 * unit, 1);
    }
    image.word(19, 1000).position_word(21, 5421);
    image.position_word(50, 0).position_word(54, 0).position_word(setup + 410, 0);
    open(image.bytes);
    expect_opened();
    EXPECT_EQ(units[1000].name, "u");
}

TEST_F(ProjectFileReader, Slot0LoadsIntoEntry0AndIsNotSaved) {
    open(changed().word(100, 0).bytes);
    expect_opened();
    EXPECT_EQ(items[0].name, "Flour");
    EXPECT_EQ(items[3].in_use, 0);
    EXPECT_EQ(word_at(save(), 1), 0);
}

TEST_F(ProjectFileReader, OfTwoRecordsForOneSlotTheLaterWins) {
    reset_program_state();
    fill_small_project();
    items[4] = items[3];
    items[4].name = "Sugar";
    const std::string two = save();
    ASSERT_EQ(word_at(two, 276), 4);
    open(Image(two).word(276, 3).bytes);
    expect_opened();
    EXPECT_EQ(items[3].name, "Sugar");
    EXPECT_EQ(items[4].in_use, 0);
    EXPECT_EQ(word_at(save(), 1), 1);
}

TEST_F(ProjectFileReader, UnitsComeFromTheFileAlone) {
    const auto first = static_cast<std::size_t>(long_at(bytes, 21));
    open(changed().word(19, 1).fixed(first + 2, "barrel", 12).bytes);
    expect_opened();
    EXPECT_EQ(units[1].name, "barrel");
    for (int unit = 2; unit <= 13; ++unit) {
        EXPECT_EQ(units[unit].in_use, 0) << unit;
        EXPECT_TRUE(units[unit].name.blank()) << unit;
    }
}

TEST_F(ProjectFileReader, TheLotArrayHasOneDimensionFrom0) {
    for (const int dimensions : {0, 2, -1, 256}) {
        expect_refused(changed().word(lots_position + 4, dimensions).bytes, bad_record_box);
    }
    for (const int lower_bound : {1, -1, 65536}) {
        expect_refused(changed().position_word(lots_position + 10, lower_bound).bytes,
                       bad_record_box);
    }
}

TEST_F(ProjectFileReader, LotCountsHaveABorderAtEachEnd) {
    ASSERT_EQ(long_at(bytes, lots_position + 6), 5);  // items 0 to 4
    for (const int count : {-2147483647, -1, 0, 3, 10003, 2147483647}) {
        SCOPED_TRACE(count);
        expect_refused(changed().position_word(lots_position + 6, count).bytes, bad_record_box);
    }
    open(changed().position_word(lots_position + 6, 4).bytes);
    expect_opened();
    EXPECT_EQ(lots[3].lot_quantity[1], 12.5);
    EXPECT_TRUE(lots[4].lot_name[0].blank());
}

TEST_F(ProjectFileReader, TheTopOfTheLotsIsWithinTheTable) {
    for (const int top : {-32768, -1, 10001, 32767}) {
        SCOPED_TRACE(top);
        expect_refused(changed().word(lots_position, top).bytes, bad_record_box);
    }
    open(changed().word(lots_position, 4).bytes);  // the 5 records are just enough
    expect_opened();
    EXPECT_EQ(lot_table_top, 4);
    expect_refused(changed().word(lots_position, 5).bytes, bad_record_box);
}

// Lot records of which `count` are claimed and as many are there.
int fault_of_lot_block(int top, int count) {
    Image head;
    head.word(1, top).word(3, 0).word(5, 1).position_word(7, count).position_word(11, 0);
    VirtualFile file(head.bytes, 14 + i64{count} * 516);
    try {
        project_file::read_lot_block(file, 1);
    } catch (const Fault& fault) {
        return fault.number;
    }
    return 0;
}

TEST_F(ProjectFileReader, TheHighestLotCountIsOneBeyondTheHighestItem) {
    lots.clear();
    EXPECT_EQ(fault_of_lot_block(10000, 10002), 0);
    EXPECT_EQ(lot_table_top, 10000);
    lots.clear();
    EXPECT_EQ(fault_of_lot_block(3, 10002), 0);
    EXPECT_EQ(lot_table_top, 3);
    EXPECT_EQ(fault_of_lot_block(10000, 10001), 0);
    EXPECT_EQ(fault_of_lot_block(10000, 10000), 63);
    EXPECT_EQ(fault_of_lot_block(10000, 10003), 63);
}

TEST_F(ProjectFileReader, AFileShortInsideTheRecipeServingsReadsZerosThere) {
    const std::size_t servings = bytes.size() - 8008 + 1;
    ASSERT_EQ(long_at(bytes, setup + 428), static_cast<std::int64_t>(servings));
    note_boxes();  // one that tells of it
    // 6 bytes of recipe 9 are left: of 4.0 the last two are not 0.
    open(bytes.substr(0, servings - 1 + 9 * 8 + 6));
    expect_opened();
    EXPECT_EQ(meal_serving_size[9], 0);
    open(bytes.substr(0, servings - 1 + 9 * 8 + 8));
    expect_opened();
    EXPECT_EQ(meal_serving_size[9], 4);
    EXPECT_EQ(meal_serving_size[10], 0);
    open(bytes.substr(0, servings));
    expect_opened();
    EXPECT_EQ(meal_serving_size[9], 0);
    EXPECT_EQ(notes.texts.size(), 3U);
    note_boxes();
    open(bytes.substr(0, servings - 1));
    EXPECT_EQ(notes.texts, std::vector<std::string>{bad_record_box});
}

TEST_F(ProjectFileReader, BytesBehindTheEndAreNotRead) {
    open(bytes + std::string(1000, 'x'));
    expect_opened();
    EXPECT_EQ(meal_serving_size[9], 4);
}

TEST_F(ProjectFileReader, AMissingFileIsSilent) {
    platform.disk.remove(home);
    const FolderState before = state_of(platform.temp.path());
    open();
    expect_gave_up();
    EXPECT_EQ(state_of(platform.temp.path()), before);
    EXPECT_TRUE(platform.boxes.shown().empty());
}

TEST_F(ProjectFileReader, AnEmptyFileIsABadRecord) {
    expect_refused("", bad_record_box);
}

// Histories and texts that wait for their place fail no opening.
bool is_beside_the_project(const std::string& operation) {
    return operation.starts_with("stamp ") || operation.starts_with("list ") ||
           operation.ends_with(".histories");
}

TEST_F(ProjectFileReader, OtherFaultsTellTheirNumber) {
    platform.files.start_over();
    open();
    const std::vector<std::string> log = platform.files.log();
    const int operations = platform.files.operations();
    ASSERT_GT(operations, 20);
    // What killed programs have left is looked for first, and nobody told when that fails.
    ASSERT_TRUE(platform.files.log()[0].starts_with("remove_left_over "));
    for (const int fault : {57, 70}) {
        for (int n = 2; n <= operations; n += case_stride) {
            SCOPED_TRACE(n);
            if (is_beside_the_project(log[static_cast<std::size_t>(n - 1)])) continue;
            platform.files.start_over();
            platform.files.fail_at(n, fault);
            expect_refused(bytes, ("Tavernook error: rt6:" + std::to_string(fault) +
                                   ". Contact Brenwyk Software.")
                                      .c_str());
        }
    }
}

TEST_F(ProjectFileReader, AFolderInPlaceOfTheFileIsRefused) {
    platform.disk.remove(home);
    platform.disk.make_folder(home);
    platform.boxes.expect_message("Tavernook error: rt6:75. Contact Brenwyk Software.");
    open();
    expect_gave_up();
}

TEST_F(ProjectFileReader, TheProgressWindowTellsOfEachStep) {
    open();
    const std::vector<std::string> expected = {"load Opening Project|Opening Project...Please Wait",
                                               "show",
                                               "bar 0",
                                               "bar 10",
                                               "bar 20",
                                               "bar 30",
                                               "bar 40",
                                               "bar 50",
                                               "bar 60",
                                               "bar 70",
                                               "bar 80",
                                               "bar 100",
                                               "unload"};
    EXPECT_EQ(platform.progress.events(), expected);
}

TEST_F(ProjectFileReader, AProjectOfAnotherProgramIsToldAndNotOpened) {
    platform.lock.taken_elsewhere.insert(home);
    expect_refused(bytes,
                   "The project home.tvk is already open in another Tavernook window.  Close it "
                   "there first, then open it here.");
    EXPECT_TRUE(platform.lock.held.empty());
}

}  // namespace

}  // namespace tavernook
