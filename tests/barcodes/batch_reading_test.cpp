// The batch scanner is read into the scan list, and emptied.
#include "barcodes/scan_list_fixture.h"

namespace tavernook {
namespace {

const char* const not_ready =
    "Port not Ready.  Make sure that you are using the correct Comm Port Address.";
const char* const no_connection = "Cannot connect to CS1504";
const char* const refused = "ERROR 5 ERROR DESCRIPTIONInvalid procedure call";

class BatchReading : public ScanListTest {
  protected:
    BatchReading() { scanner_comm_port = 3; }

    void hold(const Texts& stored) {
        for (const std::string& code : stored) scanner().packets.push_back(packet_of(code));
    }
    FakeBatchScanner& scanner() { return platform.scanner; }
};

TEST_F(BatchReading, EachStoredCodeIsARow) {
    hold({"0123", "999"});
    EXPECT_EQ(read_cs1504(), 2);
    EXPECT_EQ(shown(),
              (Texts{"0123 | Milk | 1 | " + std::string(units[1].name.trimmed()) + " | Auto",
                     "999 | unknown item | 1 |  | Auto"}));
    EXPECT_EQ(scanner().log.entries,
              (Texts{"init 2", "read", "packet 0 63", "packet 1 63", "close"}));
}

TEST_F(BatchReading, ReadingTwiceGivesEachRowTwice) {
    hold({"0123", "999"});
    EXPECT_EQ(read_cs1504(), 2);
    EXPECT_EQ(read_cs1504(), 2);
    EXPECT_EQ(codes(), (Texts{"0123", "999", "0123", "999"}));
}

TEST_F(BatchReading, APortThatIsNotReadyAndAScannerThatIsSilentAreTwoBoxes) {
    scanner().port_result = -1;
    scanner().is_attached = false;
    platform.boxes.expect_message(not_ready).title("Tavernook");
    platform.boxes.expect_message(no_connection).title("Tavernook");
    EXPECT_EQ(read_cs1504(), 0);
    EXPECT_EQ(scanner().log.entries, (Texts{"init 2", "read", "close"}));
}

TEST_F(BatchReading, APortThatIsNotReadyIsReadAllTheSame) {
    scanner().port_result = 7;
    hold({"0123"});
    platform.boxes.expect_message(not_ready);
    EXPECT_EQ(read_cs1504(), 1);
}

TEST_F(BatchReading, AnEmptyScannerCountsAsNotConnected) {
    platform.boxes.expect_message(no_connection);
    EXPECT_EQ(read_cs1504(), 0);
}

TEST_F(BatchReading, ThePortIsGivenBackBeforeABoxWaits) {
    platform.boxes.expect_message(no_connection);
    EXPECT_EQ(read_cs1504(), 0);
    EXPECT_EQ(platform.transcript, (Texts{"scanner init 2", "scanner read", "scanner close",
                                          std::string("box ") + no_connection}));
}

TEST_F(BatchReading, APacketWithALengthBelowFiveEndsItAndTheRowsBeforeStay) {
    for (const char length : {'\0', '\4'}) {
        clear_scan_list();
        scanner().log.clear();
        scanner().packets.clear();
        hold({"0123", "x", "4567"});
        scanner().packets[1][0] = length;
        platform.boxes.expect_message(refused).title("Tavernook");
        EXPECT_EQ(read_cs1504(), 1);
        EXPECT_EQ(codes(), Texts{"0123"});
        EXPECT_EQ(scanner().log.entries.back(), "close");
    }
}

TEST_F(BatchReading, APacketOfJustTheOverheadIsAnEmptyCode) {
    hold({""});
    EXPECT_EQ(read_cs1504(), 1);
    EXPECT_EQ(codes(), Texts{""});
}

TEST_F(BatchReading, ACodeLongerThanItsPacketIsNoHalfRow) {
    hold({"0123"});
    scanner().packets[0].resize(5);
    platform.boxes.expect_message(refused);
    EXPECT_EQ(read_cs1504(), 0);
    EXPECT_TRUE(scan_rows.empty());

    scanner().packets[0] = packet_of("0123").substr(0, 6);  // all of the code and nothing behind it
    EXPECT_EQ(read_cs1504(), 1);
    EXPECT_EQ(codes(), Texts{"0123"});
}

TEST_F(BatchReading, TheLongestPacketIsTakenAndALongerOneIsNot) {
    const std::string longest(61, '8');
    hold({longest});
    EXPECT_EQ(read_cs1504(), 1);
    EXPECT_EQ(codes(), Texts{longest});
    clear_scan_list();
    scanner().packets = {packet_of(longest + "8")};
    platform.boxes.expect_message(refused);
    EXPECT_EQ(read_cs1504(), 0);
    scanner().packets = {"\xFF" + std::string(300, '8')};
    platform.boxes.expect_message(refused);
    EXPECT_EQ(read_cs1504(), 0);
    EXPECT_TRUE(scan_rows.empty());
}

TEST_F(BatchReading, APacketThatDoesNotComeIsNotTheOneBefore) {
    hold({"0123"});
    scanner().packets.emplace_back();
    platform.boxes.expect_message(refused);
    EXPECT_EQ(read_cs1504(), 1);
    EXPECT_EQ(codes(), Texts{"0123"});
}

TEST_F(BatchReading, AFullListEndsIt) {
    scan("1");
    scan_rows.resize(most_scan_rows - 1, scan_rows[0]);
    hold({"2", "3"});
    platform.boxes.expect_message("ERROR 6 ERROR DESCRIPTIONOverflow");
    EXPECT_EQ(read_cs1504(), 1);
    EXPECT_EQ(scan_rows.size(), most_scan_rows);
    EXPECT_EQ(scanner().log.entries.back(), "close");
}

TEST_F(BatchReading, AProjectThatIsClosedMeanwhileGetsNoRowsAndNoBox) {
    for (const bool is_attached : {true, false}) {
        project_open = i16_true;
        scanner().is_attached = is_attached;
        hold({"0123"});
        scanner().meanwhile = [] { project_open = i16_false; };
        EXPECT_EQ(read_cs1504(), 0);
        EXPECT_TRUE(scan_rows.empty());
        EXPECT_EQ(scanner().log.entries.back(), "close");
    }
}

TEST_F(BatchReading, AProjectThatIsSavedUnderAnotherNameMeanwhileGetsItsRows) {
    hold({"0123", "999"});
    scanner().meanwhile = [] { project_path = "/home/me/other.tvk"; };
    EXPECT_EQ(read_cs1504(), 2);
    EXPECT_EQ(codes(), (Texts{"0123", "999"}));
}

TEST_F(BatchReading, AProjectThatIsClosedWhileTheBoxStandsIsNotReadFor) {
    scanner().port_result = 1;
    hold({"0123"});
    platform.boxes.expect_message(not_ready).during([] { project_open = i16_false; });
    EXPECT_EQ(read_cs1504(), 0);
    EXPECT_EQ(scanner().log.entries, (Texts{"init 2", "close"}));
}

TEST_F(BatchReading, ClearingEmptiesTheListAndTheScannerWithoutAWord) {
    hold({"0123"});
    scan("1");
    clear_scanner();
    EXPECT_TRUE(scan_rows.empty());
    EXPECT_TRUE(scanner().packets.empty());
    EXPECT_EQ(scanner().log.entries, (Texts{"init 2", "clear", "close"}));
}

TEST_F(BatchReading, ClearingIsQuietWithoutAScannerToo) {
    scanner().port_result = 1;
    scanner().is_attached = false;
    scan("1");
    clear_scanner();
    EXPECT_TRUE(scan_rows.empty());
    EXPECT_EQ(scanner().log.entries.back(), "close");
}

}  // namespace
}  // namespace tavernook
