// Labels on paper, read by a barcode reader of others: the sheet and the label of one item are
// printed by the engine and scanned.
#include <QDir>
#include <QFontDatabase>
#include <QPrinter>
#include <QStandardPaths>
#include <set>
#include <sstream>

#include "barcodes/barcode_sheet.h"
#include "core/program_folders.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "gui_support/processes.h"
#include "platform_web/web_fixture.h"
#include "reports/pages/item_label.h"
#include "reports/pages/shipped_pages.h"

namespace tavernook {
namespace {

using Codes = std::multiset<std::string>;

// What twelve items of a household bear: numbers of articles, numbers of one's own, all signs.
const char* const item_codes[] = {
    "012345678905", "40123455", "4006381333931", "00012345678905", "7",           "A",
    "SHELF-4",      "1.50/KG",  "$5+TAX%",       "MILK  2 LITRE",  "XYZ-987.654", "*5012345*"};

class Labels : public WebTest {
  protected:
    void SetUp() override {
        if (!QFontDatabase::hasFamily(QLatin1String(label_font))) {
            GTEST_SKIP() << "python3-fonttools is missing.";
        }
        for (const char* tool : {"pdftoppm", "zbarimg"}) {
            if (QStandardPaths::findExecutable(tool).isEmpty()) {
                GTEST_SKIP() << tool << " is missing.";
            }
        }
        project_path = platform.path("home.tvk");
        fill_household();
    }

    static void fill_household() {
        i16 item = 0;
        for (const char* code : item_codes) {
            ++item;
            items[item].name = "Item number " + std::to_string(item);
            items[item].barcode = code;
            items[item].in_use = 1;
        }
        for (const i16 recipe : {3, 1000}) {
            meals[recipe].name = "Soup";
            meals[recipe].in_use = 1;
        }
    }

    // A PDF of the page.
    QString printed(const std::string& page) {
        EXPECT_TRUE(navigate(page));
        const QString pdf = QString::fromStdString(folder.path("labels.pdf"));
        auto printer = std::make_shared<QPrinter>();
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(pdf);
        printer->setPageSize(QPageSize(QPageSize::A4));
        EXPECT_TRUE(prints(printer));
        return pdf;
    }

    // The codes on the paper, all sheets together.
    Codes printed_codes(const std::string& page) {
        const QString pdf = printed(page);
        output_of("pdftoppm",
                  {"-gray", "-r", "200", pdf, QString::fromStdString(folder.path("sheet"))});
        QStringList arguments = {"--raw", "--quiet", "--nodbus", "-Sdisable", "-Scode39.enable"};
        const QDir sheets(QString::fromStdString(folder.path("")));
        for (const QString& sheet : sheets.entryList({"sheet*.pgm"})) {
            arguments << sheets.filePath(sheet);
        }
        std::istringstream lines(output_of("zbarimg", arguments));
        Codes codes;
        for (std::string line; std::getline(lines, line);) codes.insert(line);
        return codes;
    }

    TestPlatform platform;
};

TEST_F(Labels, EveryLabelOfASheetIsReadWithItsCode) {
    ASSERT_TRUE(Build_Doc({.items = true, .recipes = true}).is_written);
    Codes expected = {"TVK3", "TVK1000"};
    for (const char* code : item_codes) expected.insert(code);
    expected.erase("*5012345*");
    expected.insert("5012345");
    EXPECT_EQ(printed_codes(sheet_path()), expected);
}

TEST_F(Labels, ItemsWithoutACodeKeepNobodyFromBeingRead) {
    items[2].barcode = no_barcode;
    items[3].barcode = "";
    items[4].barcode =
        "Gr\xFC\xDF"
        "e";
    for (i16 item = 5; item <= 12; ++item) items[item].in_use = 0;
    ASSERT_TRUE(Build_Doc({.items = true, .recipes = true}).is_written);
    const Codes codes = printed_codes(sheet_path());
    for (const char* code : {"012345678905", "TVK3", "TVK1000"}) {
        EXPECT_EQ(codes.count(code), 1U) << code;
    }
    EXPECT_EQ(codes.count("EMPTY"), 1U) << "the reader tells each code once";
}

TEST_F(Labels, ACodeAndItsNameStandOnTheSameSheetOfPaper) {
    if (QStandardPaths::findExecutable("pdftotext").isEmpty()) GTEST_SKIP();
    for (i16 item = 1; item <= 60; ++item) {
        items[item].name = "Item";
        items[item].barcode = "B" + std::to_string(item);
        items[item].in_use = 1;
    }
    ASSERT_TRUE(Build_Doc({.items = true}).is_written);
    std::istringstream papers(output_of("pdftotext", {"-layout", printed(sheet_path()), "-"}));
    int count = 0;
    for (std::string paper; std::getline(papers, paper, '\f'); ++count) {
        for (int item = 1; item <= 60; ++item) {
            const std::string code = "*B" + std::to_string(item) + "*";
            EXPECT_NE(occurrences(paper, code), 1) << code << " on sheet " << count;
        }
    }
    EXPECT_GT(count, 2);
}

TEST_F(Labels, TheLabelOfOneItemIsRead) {
    ASSERT_TRUE(lay_out_pages([](const std::string& name) {
        return read_whole_file(TAVERNOOK_SOURCE_FOLDER "/assets/pages/" + name);
    }));
    ASSERT_TRUE(Build_Item_Label(1));
    EXPECT_EQ(printed_codes(in_program_folder("barcode/labeldat.htm")), Codes{"012345678905"});
}

}  // namespace
}  // namespace tavernook
