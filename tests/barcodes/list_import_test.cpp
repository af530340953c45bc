// Files of lines "barcode,quantity,lot" come onto the scan list.
#include "barcodes/scan_list_fixture.h"
#include "basics/fault.h"

namespace tavernook {
namespace {

class ListImport : public ScanListTest {
  protected:
    ExpectedFileDialog& expect_dialog(std::optional<std::string> path) {
        return platform.dialogs.expect_open("Import Barcode List", std::move(path))
            .filter("All Files (*.*)|*.*")
            .initial_file(platform.system.program + "/*.*");
    }

    ScanImport import(const std::string& bytes) {
        clear_scan_list();
        const std::string path = platform.path("codes.txt");
        if (platform.disk.exists(path)) platform.disk.remove(path);
        platform.disk.open(path, OpenMode::read_write)->write(0, bytes);
        expect_dialog(path);
        return Import_File();
    }

    // The rows that come of it, and the line that ends it.
    void expect_import(const std::string& bytes, const Texts& rows, int stopped_at) {
        const ScanImport result = import(bytes);
        EXPECT_TRUE(result.has_begun);
        Texts found;
        for (const ScanRow& row : scan_rows) {
            found.push_back(row.barcode + "/" + row.quantity + "/" + row.lot);
        }
        EXPECT_EQ(found, rows) << bytes.substr(0, 100);
        EXPECT_EQ(result.rows, static_cast<int>(rows.size()));
        EXPECT_EQ(result.stopped_at_line, stopped_at) << bytes.substr(0, 100);
    }
};

TEST_F(ListImport, EachLineIsARow) {
    expect_import("0123,2,Auto\n999,1.5,Lot B\n", {"0123/2/Auto", "999/1.5/Lot B"}, 0);
    EXPECT_EQ(scan_rows[0].name, "Milk");
    EXPECT_TRUE(scan_rows[0].is_known);
    EXPECT_EQ(scan_rows[1].name, "unknown item");
}

TEST_F(ListImport, RowsComeBehindThoseThatStand) {
    expect_dialog(platform.path("codes.txt"));
    platform.disk.open(platform.path("codes.txt"), OpenMode::read_write)->write(0, "1,2,");
    scan("0123");
    EXPECT_EQ(Import_File().rows, 1);
    EXPECT_EQ(codes(), (Texts{"0123", "1"}));
    EXPECT_LT(scan_rows[0].id, scan_rows[1].id);
}

TEST_F(ListImport, ALineWithoutTheLotEndsItAndTheRowsBeforeStay) {
    expect_import("1,2,Auto\n123,4\n5,6,Auto\n", {"1/2/Auto"}, 2);
}

TEST_F(ListImport, TheFirstCommaStandsBehindALetter) {
    expect_import("1,1,\n,2,Auto\n", {"1/1/Auto"}, 2);
    expect_import("nothing\n", {}, 1);
}

TEST_F(ListImport, AQuantityThatIsNoNumberEndsIt) {
    for (const char* quantity :
         {"", " ", "two", "1e5", "2 lb", "1.2.3", "0x1", "nan", "inf", "--1"}) {
        expect_import("1,1,\n2," + std::string(quantity) + ",Auto\n3,1,\n", {"1/1/Auto"}, 2);
    }
    expect_import("1," + std::string(400, '9') + ",Auto\n", {}, 1);
}

TEST_F(ListImport, AQuantityHasBlanksAroundItAndAPoint) {
    expect_import("1, 2.50 ,\n2,.5,\n3,-1,\n4,0,\n",
                  {"1/2.5/Auto", "2/0.5/Auto", "3/-1/Auto", "4/1/Auto"}, 0);
}

TEST_F(ListImport, TheLotIsAllBehindTheSecondCommaWithoutTheBlanksAroundIt) {
    expect_import("1,1,Shelf, left\n2,1, Auto \n3,1,   \n",
                  {"1/1/Shelf, left", "2/1/Auto", "3/1/Auto"}, 0);
}

TEST_F(ListImport, LinesEndInThreeWays) {
    for (const char* end : {"\n", "\r\n", "\r"}) {
        const std::string line = std::string("1,1,A") + end;
        expect_import(line + line + "1,1,B", {"1/1/A", "1/1/A", "1/1/B"}, 0);
    }
    expect_import("1,1,A\r2,1,B\n3,1,C\r\n4,1,D", {"1/1/A", "2/1/B", "3/1/C", "4/1/D"}, 0);
}

TEST_F(ListImport, BlankLinesAtTheEndAreTheEnd) {
    expect_import("1,1,A\n\n", {"1/1/A"}, 0);
    expect_import("1,1,A\r\n\r\n  \r\n", {"1/1/A"}, 0);
    expect_import("", {}, 0);
    expect_import("\n", {}, 0);
}

TEST_F(ListImport, ABlankLineInTheMiddleEndsIt) {
    expect_import("1,1,A\n\n2,1,B\n", {"1/1/A"}, 2);
    expect_import("1,1,A\n   \n\n\n2,1,B\n", {"1/1/A"}, 2);
}

TEST_F(ListImport, BinaryJunkEndsItAtOnce) {
    std::string junk;
    for (int byte = 0; byte < 256; ++byte) junk += static_cast<char>(byte);
    expect_import("1,1,A\n" + junk + junk, {"1/1/A"}, 2);
    expect_import(std::string(100000, '\0'), {}, 1);
}

TEST_F(ListImport, ALineOfAMegabyteEndsItWithoutBeingRead) {
    const std::string endless(1000000, 'B');
    for (const std::string& bytes : {"1,1,A\n2,1," + endless + "\n3,1,C\n", "1,1,A\n" + endless}) {
        platform.files.start_over();
        expect_import(bytes, {"1/1/A"}, 2);
        EXPECT_EQ(platform.files.log(), (Texts{"open codes.txt read", "read codes.txt 0 65536"}));
    }
}

TEST_F(ListImport, AThousandBytesAreTheLongestLine) {
    const std::string lot(1000 - 4, 'B');
    expect_import("1,1," + lot + "\n2,1,\n", {"1/1/" + lot, "2/1/Auto"}, 0);
    expect_import("1,1," + lot + "B\n2,1,\n", {}, 1);
    expect_import(
        "\xEF\xBB\xBF"
        "1,1," +
            lot + "B\n2,1,\n",
        {}, 1);
    std::string accents =
        "\xEF\xBB\xBF"
        "1,1,";
    for (int letter = 0; letter < 499; ++letter) accents += "\xC3\xA9";
    expect_import(accents + "\n2,1,\n", {}, 1);
}

TEST_F(ListImport, LinesGoOnFromBlockToBlock) {
    std::string bytes;
    Texts rows;
    while (bytes.size() < 200000) {
        const std::string code = std::to_string(rows.size()) + std::string(rows.size() % 41, 'x');
        bytes += code + ",1,A\r\n";
        rows.push_back(code + "/1/A");
    }
    expect_import(bytes, rows, 0);
}

TEST_F(ListImport, TextsAreWindows1252UnlessTheFileBeginsWithTheMarkOfUtf8) {
    expect_import("K\xE4se,1,K\xFChl\n", {"K\xE4se/1/K\xFChl"}, 0);
    expect_import("\xEF\xBB\xBFK\xC3\xA4se,1,K\xC3\xBChl\n", {"K\xE4se/1/K\xFChl"}, 0);
    expect_import(
        "\xEF\xBB\xBF"
        "0123,1,\n",
        {"0123/1/Auto"}, 0);
    EXPECT_EQ(scan_rows[0].name, "Milk");
    expect_import(
        "1,1,\n\xEF\xBB\xBF"
        "2,1,\n",
        {"1/1/Auto",
         "\xEF\xBB\xBF"
         "2/1/Auto"},
        0);
}

TEST_F(ListImport, AFullListEndsIt) {
    scan("1");
    scan_rows.resize(most_scan_rows - 1, scan_rows[0]);
    const std::string path = platform.path("codes.txt");
    platform.disk.open(path, OpenMode::read_write)->write(0, "1,1,\n2,1,\n3,1,\n");
    expect_dialog(path);
    const ScanImport result = Import_File();
    EXPECT_EQ(result.rows, 1);
    EXPECT_EQ(result.stopped_at_line, 2);
    EXPECT_EQ(scan_rows.size(), most_scan_rows);
}

TEST_F(ListImport, ACancelledDialogBeginsNothing) {
    expect_dialog(std::nullopt);
    const ScanImport result = Import_File();
    EXPECT_FALSE(result.has_begun);
    EXPECT_EQ(result.rows, 0);
}

TEST_F(ListImport, AFileThatIsNotThereBeginsNothingAndIsSilent) {
    expect_dialog(platform.path("none.txt"));
    EXPECT_FALSE(Import_File().has_begun);
}

TEST_F(ListImport, AProjectThatIsClosedWhileTheDialogStandsGetsNoRows) {
    const std::string path = platform.path("codes.txt");
    platform.disk.open(path, OpenMode::read_write)->write(0, "1,1,\n");
    expect_dialog(path).during([] { project_open = i16_false; });
    EXPECT_FALSE(Import_File().has_begun);
    EXPECT_TRUE(scan_rows.empty());
}

TEST_F(ListImport, ADiskThatFailsEndsItInSilence) {
    std::string bytes;
    for (int line = 0; line < 20000; ++line) bytes += "1,1,A\n";
    const std::string path = platform.path("codes.txt");
    platform.disk.open(path, OpenMode::read_write)->write(0, bytes);
    platform.files.fail_at(3, fault_number::device_io_error);  // the second block
    expect_dialog(path);
    const ScanImport result = Import_File();
    EXPECT_TRUE(result.has_begun);
    EXPECT_EQ(result.rows, 65536 / 6);
    EXPECT_EQ(result.stopped_at_line, result.rows + 1);
    EXPECT_EQ(scan_rows.size(), static_cast<std::size_t>(result.rows));
}

}  // namespace
}  // namespace tavernook
