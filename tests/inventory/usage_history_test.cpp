#include "inventory/usage_history.h"

#include "inventory/pantry_fixture.h"
#include "inventory/usage_files.h"

namespace tavernook {
namespace {

// 15 May 2024, 12:00 as day 45427.5, and amounts, in bytes worked out by hand: sign, eleven bits of
// exponent (1023 = 2^0), fifty-two of fraction.
const std::string noon = bytes_of(0x40E62E7000000000);            // 1.0110001011100111b x 2^15
const std::string two_and_a_half = bytes_of(0x4004000000000000);  // 1.01b x 2^1
const std::string three = bytes_of(0x4008000000000000);           // 1.1b x 2^1
const std::string one_eighth = bytes_of(0x3FC0000000000000);      // 1.0b x 2^-3

const std::string filler(1, '\0');
const std::string removed("\x01\x00", 2);
const std::string added("\x02\x00", 2);

std::string place(char number) {
    return {number, '\0'};
}

constexpr const char* head =
    "<font = \"Arial\" size = \"1\" ><table border=\"0\" width=\"100%\" cellspacing=\"0\" "
    "cellpadding=\"0\"><tr><td><b>Date</b></td><td><b>Change</b></td>";

class UsageHistory : public PantryTest {
  protected:
    UsageHistory() {
        add_item(7);
        items[7].cost = 1.5;
    }

    void save_history(const std::string& bytes) {
        write_whole_file(report_path("pantry000007.dat"), bytes);
    }
    std::string working() { return report_bytes("pantry000007.tmp"); }
    std::string saved() { return report_bytes("pantry000007.dat"); }

    const std::string first = filler + two_and_a_half + noon + added + place(3);
    const std::string second = filler + one_eighth + noon + removed + place(15);
};

using UsageText = UsageHistory;

TEST_F(UsageHistory, TheFirstMoveMakesAWorkingCopyOfOneEntry) {
    record_item_usage(7, 2.5, usage_added, 3);
    EXPECT_EQ(working().size(), 21u);
    EXPECT_EQ(working(), first);
    EXPECT_FALSE(platform.disk.exists(report_path("pantry000007.dat")));
}

TEST_F(UsageHistory, TheNextMoveBeforeASaveTakesItsPlace) {
    record_item_usage(7, 2.5, usage_added, 3);
    record_item_usage(7, 0.125, usage_removed, 15);
    EXPECT_EQ(working(), second);
}

TEST_F(UsageHistory, AfterASaveTheNextMoveGoesBehindTheSavedEntries) {
    record_item_usage(7, 2.5, usage_added, 3);
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(saved(), first);
    record_item_usage(7, 0.125, usage_removed, 15);
    EXPECT_EQ(working().size(), 42u);
    EXPECT_EQ(working().substr(0, 21), first);
    EXPECT_EQ(working()[21], '\0');
    EXPECT_EQ(working().substr(22), second.substr(1));
    EXPECT_EQ(saved(), first);

    record_item_usage(7, 3, usage_added, 0);
    EXPECT_EQ(working(), first + filler + three + noon + added + place(0));
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(saved(), first + filler + three + noon + added + place(0));
}

TEST_F(UsageHistory, TheWorkingCopyStartsWithTheSavedEntries) {
    save_history(first);
    record_item_usage(7, 0.125, usage_removed, 15);
    EXPECT_EQ(working(), first + second);
    EXPECT_EQ(saved(), first);
}

TEST_F(UsageHistory, AWorkingCopyThatIsThereIsNotCopiedAgain) {
    save_history(first);
    record_item_usage(7, 0.125, usage_removed, 15);
    platform.files.start_over();
    record_item_usage(7, 2.5, usage_added, 3);
    EXPECT_EQ(working(), first + first);
    for (const std::string& operation : platform.files.log()) {
        EXPECT_FALSE(operation.starts_with("copy")) << operation;
    }
    EXPECT_EQ(saved(), first);
}

TEST_F(UsageHistory, AnEntryGoesBehindARestThatIsNone) {
    save_history(first + "stump");
    record_item_usage(7, 0.125, usage_removed, 15);
    EXPECT_EQ(working(), first + "stump" + second);
}

TEST_F(UsageHistory, MovesThatWereNotSavedAreGone) {
    record_item_usage(7, 2.5, usage_added, 3);
    EXPECT_TRUE(discard_usage_files());
    EXPECT_FALSE(platform.disk.exists(report_path("pantry000007.tmp")));
    EXPECT_EQ(Get_Item_Usage(7), "*");
    EXPECT_TRUE(commit_usage_files());
    EXPECT_EQ(Get_Item_Usage(7), "*");
}

TEST_F(UsageHistory, ItemsAndProjectsHaveFilesOfTheirOwn) {
    record_item_usage(7, 2.5, usage_added, 3);
    record_item_usage(10000, 2.5, usage_added, 3);
    set_project_path("/home/me/cellar.tvk");
    record_item_usage(7, 0.125, usage_removed, 15);
    EXPECT_EQ(
        platform.disk.list(platform.system.program + "/reports", ""),
        (std::vector<std::string>{"cellar000007.tmp", "pantry000007.tmp", "pantry010000.tmp"}));
    EXPECT_EQ(working(), first);
    EXPECT_EQ(report_bytes("cellar000007.tmp"), second);
}

TEST_F(UsageHistory, TheMomentOfTheMoveIsTheClocks) {
    platform.clock.time = 45428.25;  // 1.0110001011101000 01b x 2^15
    record_item_usage(7, 3, usage_added, 1);
    EXPECT_EQ(working(), filler + three + bytes_of(0x40E62E8800000000) + added + place(1));
}

TEST_F(UsageHistory, EntriesAreReadAsTheyWereWritten) {
    const std::vector<UsageEntry> entries = decode_usage(first + second);
    EXPECT_EQ(entries, (std::vector<UsageEntry>{{2.5, 45427.5, 2, 3}, {0.125, 45427.5, 1, 15}}));
    EXPECT_EQ(encode_usage(entries[0]) + encode_usage(entries[1]), first + second);
}

TEST_F(UsageHistory, TheFillerMayBeAnyByte) {
    std::string bytes = first;
    bytes[0] = '\xFF';
    EXPECT_EQ(decode_usage(bytes), decode_usage(first));
}

TEST_F(UsageText, OfAnItemWithoutAHistoryIsAStar) {
    EXPECT_EQ(Get_Item_Usage(7), "*");
}

TEST_F(UsageText, TellsSavedMovesOnly) {
    record_item_usage(7, 2.5, usage_added, 3);
    EXPECT_EQ(Get_Item_Usage(7), "*");
    EXPECT_TRUE(commit_usage_files());
    EXPECT_NE(Get_Item_Usage(7), "*");
}

TEST_F(UsageText, ListsTheEntriesAndWhatTheAddedOnesCost) {
    save_history(first + second + filler + three + bytes_of(0x40E62E6000000000) + added + place(0));
    lots[7].lot_name[3] = "cellar";
    const std::string expected =
        std::string(head) +
        "<tr><td>5/15/2024 12:00:00 PM</td><td>2.50 each        Added to cellar  </td>"
        "<tr><td>5/15/2024 12:00:00 PM</td><td>0.13 each        Removed from Lot P   </td>"
        "<tr><td>5/15/2024</td><td>3.00 each        Added to Lot A   </td>"
        "$8.25          </table>";  // (2.5 + 3) x 1.5
    EXPECT_EQ(Get_Item_Usage(7), expected);
}

TEST_F(UsageText, OfRemovalsAloneCostsNothing) {
    save_history(second);
    EXPECT_EQ(Get_Item_Usage(7), std::string(head) +
                                     "<tr><td>5/15/2024 12:00:00 PM</td><td>0.13 each        "
                                     "Removed from Lot P   </td>$.00           </table>");
}

TEST_F(UsageText, AnUnknownKindIsShownAsAddedAndCostsNothing) {
    save_history(filler + two_and_a_half + noon + std::string("\x07\x00", 2) + place(3));
    EXPECT_EQ(Get_Item_Usage(7), std::string(head) +
                                     "<tr><td>5/15/2024 12:00:00 PM</td><td>2.50 each        "
                                     "Added to Lot D   </td>$.00           </table>");
}

TEST_F(UsageText, ShowsTheTotalWithoutItsSignUnderTheProjectsCurrency) {
    save_history(first);
    items[7].cost = -2;
    currency_symbol = 163;
    EXPECT_TRUE(
        Get_Item_Usage(7).ends_with("\xA3"
                                    "5.00          </table>"));
}

TEST_F(UsageText, CutsATotalOfMoreThanFifteenCharacters) {
    save_history(first);
    items[7].cost = 4e13;  // 100000000000000.00
    EXPECT_TRUE(Get_Item_Usage(7).ends_with("Lot D   </td>$10000000000000</table>"));
}

TEST_F(UsageText, OfLessThanOneEntryIsEmpty) {
    for (const std::size_t length : {0, 1, 19, 20}) {
        save_history(first.substr(0, length));
        EXPECT_EQ(Get_Item_Usage(7), "") << length;
    }
}

TEST_F(UsageText, CountsWholeEntriesOnly) {
    save_history(first);
    const std::string one = Get_Item_Usage(7);
    for (const std::size_t rest : {1, 19, 20}) {
        save_history(first + second.substr(0, rest));
        EXPECT_EQ(Get_Item_Usage(7), one) << rest;
    }
}

TEST_F(UsageText, HasEveryEntryOfALongHistory) {
    for (const int count : {2999, 3000, 3001, 6000, 6001}) {
        std::string bytes;
        for (int entry = 0; entry < count; ++entry) bytes += first;
        save_history(bytes);
        items[7].cost = 0.5;
        const std::string page = Get_Item_Usage(7);
        const std::string row =
            "<tr><td>5/15/2024 12:00:00 PM</td><td>2.50 each        Added to Lot D   </td>";
        EXPECT_EQ(page.find('$'), std::string(head).size() + row.size() * count) << count;
        const std::string whole = std::to_string(count * 5 / 4);  // 1.25 each
        EXPECT_EQ(page.substr(page.find('$') + 1, whole.size() + 1), whole + ".");
    }
}

TEST_F(UsageText, TellsOfOtherErrorsWithTheirDescription) {
    save_history(first);
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::permission_denied);
    platform.boxes.expect_message("Get_Item_Usage ERROR: Permission denied");
    EXPECT_EQ(Get_Item_Usage(7), "");
}

TEST_F(UsageText, AReadErrorLeavesWhatStands) {
    save_history(first);
    platform.files.start_over();
    platform.files.fail_at(3, fault_number::device_io_error);  // open, length, read
    platform.boxes.expect_message("Get_Item_Usage ERROR: Device I/O error");
    EXPECT_EQ(Get_Item_Usage(7), head);
}

TEST_F(UsageText, ReadsAndLeavesTheFile) {
    save_history(first + second);
    platform.files.start_over();
    Get_Item_Usage(7);
    for (const std::string& entry : platform.files.log()) {
        EXPECT_FALSE(entry.starts_with("write ") || entry.ends_with(" read_write")) << entry;
    }
    EXPECT_EQ(saved(), first + second);
}

}  // namespace
}  // namespace tavernook
