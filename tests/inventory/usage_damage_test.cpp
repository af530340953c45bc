// Histories that are short, damaged or out of reach: read without harm, and never in the way of a
// stock move.
#include <cstring>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

#include "fakes/child_process.h"
#include "inventory/pantry_fixture.h"
#include "inventory/usage_files.h"
#include "inventory/usage_history.h"

namespace tavernook {
namespace {

constexpr const char* date_beyond = "Get_Item_Usage ERROR: Overflow";
constexpr const char* place_beyond = "Get_Item_Usage ERROR: Subscript out of range";

class UsageDamage : public PantryTest {
  protected:
    UsageDamage() {
        add_item(7);
        fill_lots(7, 5, 6);
        items[7].cost = 2;
    }

    void save_history(const std::string& bytes) {
        write_whole_file(report_path("pantry000007.dat"), bytes);
    }

    static std::string three_entries() {
        return encode_usage({1, 45427.5, 2, 0}) + encode_usage({2, 45427.75, 1, 1}) +
               encode_usage({4, 45428, 2, 15});
    }

    static std::size_t rows_of(const std::string& page) {
        std::size_t rows = 0;
        for (std::size_t at = page.find("<tr><td>"); at != std::string::npos;
             at = page.find("<tr><td>", at + 1)) {
            ++rows;
        }
        return rows == 0 ? 0 : rows - 1;  // the headings
    }

    // Takes 1 from the 5 of the first lot, whatever becomes of the history.
    void expect_stock_moves() {
        const f64 held = lots[7].lot_quantity[0];
        EXPECT_EQ(remove_from_lots(7, 1), -1);
        EXPECT_EQ(lots[7].lot_quantity[0], held - 1);
        EXPECT_EQ(items[7].quantity, lot_total(7));
        EXPECT_TRUE(platform.boxes.shown().empty());
    }
};

TEST_F(UsageDamage, EveryLengthUpToSixtyFourIsReadAsItsWholeEntries) {
    const std::string bytes = three_entries() + "x";
    for (std::size_t length = 0; length <= 64; ++length) {
        save_history(bytes.substr(0, length));
        const std::string page = Get_Item_Usage(7);
        EXPECT_EQ(rows_of(page), length / 21) << length;
        EXPECT_EQ(page.empty(), length < 21) << length;
        EXPECT_EQ(decode_usage(bytes.substr(0, length)).size(), length / 21);
    }
}

TEST_F(UsageDamage, AMoveGoesBehindAHistoryOfAnyLength) {
    const std::string bytes = three_entries() + "x";
    for (std::size_t length = 0; length <= 64; ++length) {
        const std::string kept = bytes.substr(0, length);
        save_history(kept);
        record_item_usage(7, 8, usage_added, 2);
        EXPECT_EQ(report_bytes("pantry000007.tmp"), kept + encode_usage({8, 45427.5, 2, 2}))
            << length;
        EXPECT_EQ(report_bytes("pantry000007.dat"), kept);
        EXPECT_TRUE(discard_usage_files());
    }
}

// Which box an entry must bring, judged from its bytes alone.
const char* box_for(const std::string& entry) {
    f64 date = 0;
    std::int16_t place = 0;
    std::memcpy(&date, entry.data() + 9, 8);
    std::memcpy(&place, entry.data() + 19, 2);
    const bool in_calendar = date > -693593 && date < 2958466;  // years 1 to 9999; not for NaN
    if (!in_calendar) return date_beyond;
    return place < 0 || place > 15 ? place_beyond : nullptr;
}

TEST_F(UsageDamage, EveryByteOfAnEntryMayHoldAnything) {
    for (std::size_t byte = 21; byte < 42; ++byte) {
        for (const int value : {0x00, 0x01, 0x0F, 0x10, 0x7F, 0x80, 0xF0, 0xFF}) {
            std::string bytes = three_entries();
            bytes[byte] = static_cast<char>(value);
            save_history(bytes);
            const char* box = box_for(bytes.substr(21, 21));
            if (box != nullptr) platform.boxes.expect_message(box);
            const std::string page = Get_Item_Usage(7);
            EXPECT_EQ(rows_of(page), box == nullptr ? 3u : 1u) << byte << " " << value;
            EXPECT_EQ(page.ends_with("</table>"), box == nullptr) << byte << " " << value;
            platform.boxes.check_used_up();
        }
    }
}

TEST_F(UsageDamage, ALotPlaceThatIsNoneEndsThePage) {
    for (const i16 place : {i16{16}, i16{-1}, i16{32767}, i16{-32768}}) {
        save_history(encode_usage({1, 45427.5, 2, 0}) + encode_usage({2, 45427.5, 1, place}));
        platform.boxes.expect_message(place_beyond);
        EXPECT_TRUE(Get_Item_Usage(7).ends_with(
            "<tr><td>5/15/2024 12:00:00 PM</td><td>1.00 each        Added to Lot A   </td>"));
        platform.boxes.check_used_up();
    }
}

TEST_F(UsageDamage, AmountsThatAreNoneAreShownAsTheyAre) {
    const f64 endless = std::numeric_limits<f64>::infinity();
    save_history(encode_usage({endless, 45427.5, 2, 0}) +
                 encode_usage({std::numeric_limits<f64>::quiet_NaN(), 45427.5, 1, 0}));
    const std::string page = Get_Item_Usage(7);
    EXPECT_NE(page.find("<td>inf each"), std::string::npos);
    EXPECT_NE(page.find("<td>nan each"), std::string::npos);
    EXPECT_TRUE(page.ends_with("$inf           </table>"));
}

TEST_F(UsageDamage, AnItemBeyondTheLotTableHasNoLotNames) {
    write_whole_file(report_path("pantry000900.dat"), encode_usage({1, 45427.5, 2, 0}));
    items[900].qty_units = 1;
    const std::string page = Get_Item_Usage(900);
    EXPECT_NE(page.find("1.00 each        Added to </td>"), std::string::npos);
    EXPECT_EQ(lot_table_top, 7);
}

TEST_F(UsageDamage, AUnitThatIsNoneIsBlank) {
    save_history(encode_usage({1, 45427.5, 2, 0}));
    for (const i16 none : {i16{1001}, i16{-1}}) {
        items[7].qty_units = none;
        EXPECT_NE(Get_Item_Usage(7).find("1.00             Added to "), std::string::npos);
    }
}

TEST_F(UsageDamage, AFolderInPlaceOfTheHistoryBringsTheBox) {
    platform.disk.make_folder(report_path("pantry000007.dat"));
    platform.boxes.expect_message("Get_Item_Usage ERROR: Path/File access error");
    EXPECT_EQ(Get_Item_Usage(7), "");
}

TEST_F(UsageDamage, AFolderInPlaceOfAHistoryDoesNotStopAMove) {
    platform.disk.make_folder(report_path("pantry000007.dat"));
    expect_stock_moves();
}

TEST_F(UsageDamage, AFolderInPlaceOfAWorkingCopyDoesNotStopAMove) {
    platform.disk.make_folder(report_path("pantry000007.tmp"));
    save_history(three_entries());
    expect_stock_moves();
    EXPECT_EQ(report_bytes("pantry000007.dat"), three_entries());
}

TEST_F(UsageDamage, AMissingFolderDoesNotStopAMove) {
    platform.system.program = platform.path("nowhere");
    expect_stock_moves();
}

TEST_F(UsageDamage, AFileInPlaceOfTheFolderDoesNotStopAMove) {
    platform.system.program = platform.path("elsewhere");
    platform.disk.make_folder(platform.system.program);
    write_whole_file(platform.system.program + "/reports", "");
    expect_stock_moves();
}

TEST_F(UsageDamage, AFolderThatCannotBeWrittenDoesNotStopAMove) {
    const std::string reports = platform.system.program + "/reports";
    ASSERT_EQ(::chmod(platform.temp.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(reports.c_str(), 0555), 0);
    const int status = exit_status_in_child([&] {
        if (::geteuid() == 0) {  // root may write everywhere
            ASSERT_EQ(::setuid(65534), 0);
        }
        expect_stock_moves();
        EXPECT_EQ(add_to_lots(7, 2), -1);
        EXPECT_EQ(lots[7].lot_quantity[2], 2);
        set_lot_quantity(7, 9, 1);
        EXPECT_EQ(lots[7].lot_quantity[1], 9);
    });
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(platform.disk.list(reports, "").empty());
    ASSERT_EQ(::chmod(reports.c_str(), 0755), 0);
}

TEST_F(UsageDamage, NoFailingFileOperationStopsAMoveOrHarmsTheHistory) {
    save_history(three_entries());
    remove_from_lots(7, 0.25);
    const int operations = platform.files.operations();
    ASSERT_GE(operations, 4);
    for (const Torn torn : {Torn::no, Torn::yes}) {
        for (int n = 1; n <= operations; ++n) {
            platform.files.start_over();
            EXPECT_TRUE(discard_usage_files());
            fill_lots(7, 5, 6);
            platform.files.start_over();
            platform.files.fail_at(n, fault_number::disk_full, Repeat::once, torn);
            expect_stock_moves();
            EXPECT_GE(platform.files.operations(), n);
            EXPECT_EQ(report_bytes("pantry000007.dat"), three_entries()) << n;
        }
    }
}

}  // namespace
}  // namespace tavernook
