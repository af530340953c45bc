#include <QFileInfo>
#include <QPrintDialog>
#include <QStandardPaths>
#include <filesystem>

#include "gui_support/modal_driver.h"
#include "gui_support/processes.h"
#include "platform_web/paper_printer.h"
#include "platform_web/renderers.h"
#include "platform_web/web_fixture.h"

namespace tavernook {
namespace {

std::string rows(int count) {
    std::string text = "<p>front of all</p><table>";
    for (int row = 1; row <= count; ++row) {
        text += "<tr><td>row " + std::to_string(row) + "</td></tr>";
    }
    return text + "</table><p>end of all</p>";
}

class Printing : public WebTest {
  protected:
    std::shared_ptr<QPrinter> pdf_printer(QPageSize::PageSizeId paper = QPageSize::A4) {
        auto printer = std::make_shared<QPrinter>();
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(QString::fromStdString(pdf()));
        printer->setPageSize(QPageSize(paper));
        return printer;
    }
    std::string pdf() const { return folder.path("out.pdf"); }
    bool is_there() const { return std::filesystem::exists(pdf()); }

    // What a tool of others says of the file; nothing where it is missing.
    std::string told_by(const char* tool, const QStringList& arguments = {}) const {
        if (QStandardPaths::findExecutable(tool).isEmpty()) return {};
        return output_of(tool, QStringList{QString::fromStdString(pdf())} + arguments);
    }
    static bool has_tools() { return !QStandardPaths::findExecutable("pdftotext").isEmpty(); }

    std::optional<bool> printed;
    std::vector<int> percents;
    void begin(const std::shared_ptr<QPrinter>& printer) {
        printed.reset();
        view->print(
            printer, [this](int percent) { percents.push_back(percent); },
            [this](bool is_printed) {
                EXPECT_FALSE(printed.has_value());
                printed = is_printed;
            });
    }
    bool ended() {
        return comes_true([&] { return printed.has_value(); });
    }
};

TEST_F(Printing, APdfHasItsTextsAsTextsOnThePaperOfThePrinter) {
    ASSERT_TRUE(show(page_around("<p>Fresh milk</p>")));
    ASSERT_TRUE(prints(pdf_printer(QPageSize::A4)));
    EXPECT_EQ(read_whole_file(pdf()).substr(0, 5), "%PDF-");
    if (!has_tools()) GTEST_SKIP() << "poppler-utils is missing.";
    EXPECT_NE(told_by("pdftotext", {"-"}).find("Fresh milk"), std::string::npos);
    EXPECT_NE(told_by("pdfinfo").find("594.96 x 841.92"), std::string::npos);

    ASSERT_TRUE(prints(pdf_printer(QPageSize::Letter)));
    EXPECT_NE(told_by("pdfinfo").find("612 x 792"), std::string::npos) << told_by("pdfinfo");

    const auto across = pdf_printer(QPageSize::Letter);
    across->setPageOrientation(QPageLayout::Landscape);
    ASSERT_TRUE(prints(across));
    EXPECT_NE(told_by("pdfinfo").find("792 x 612"), std::string::npos) << told_by("pdfinfo");
}

TEST_F(Printing, WhatWasTypedIsPrinted) {
    if (!has_tools()) GTEST_SKIP() << "poppler-utils is missing.";
    view->widget().show();
    ASSERT_TRUE(show(page_around("Milk")));
    edit();
    click_and_type("Zucchini");
    ASSERT_TRUE(comes_true([&] { return read().value().find("Zucchini") != std::string::npos; }));
    ASSERT_TRUE(prints(pdf_printer()));
    EXPECT_NE(told_by("pdftotext", {"-"}).find("Zucchini"), std::string::npos);
}

std::string two_rows(int columns) {
    std::string table = "<table>";
    for (const char* row : {"first", "second"}) {
        table += std::string("<tr><td>name_of_the_") + row + "</td>";
        for (int column = 2; column <= columns; ++column) {
            table += std::string("<td>") + row + "_cell_" + std::to_string(column) + "</td>";
        }
        table += "</tr>";
    }
    return table + "</table>";
}

// A column that is cut off at the edge of the paper is a column lost.
TEST_F(Printing, ATableWiderThanThePaperGoesOnSheetsBesideEachOther) {
    if (!has_tools()) GTEST_SKIP() << "poppler-utils is missing.";
    for (const int columns : {8, 12, 16, 20, 24, 79}) {
        SCOPED_TRACE(columns);
        const std::string body = "<p>front of all</p>" + two_rows(columns) + "<p>end of all</p>";
        ASSERT_TRUE(show(page_around(body)));
        const std::string before = read().value();
        ASSERT_TRUE(prints(pdf_printer(QPageSize::A4)));
        const std::string on_paper =
            told_by("pdftotext", {"-", "-layout", "-x", "0", "-y", "0", "-W", "595", "-H", "842"});
        for (const char* row : {"first", "second"}) {
            for (int column = 2; column <= columns; ++column) {
                const std::string cell = std::string(row) + "_cell_" + std::to_string(column);
                EXPECT_EQ(occurrences(on_paper, cell + " ") + occurrences(on_paper, cell + "\n"), 1)
                    << cell;
            }
            EXPECT_GE(occurrences(on_paper, std::string("name_of_the_") + row), 1);
        }
        EXPECT_EQ(occurrences(on_paper, "front of all"), 1);
        EXPECT_EQ(occurrences(on_paper, "end of all"), 1);
        EXPECT_EQ(read().value(), before);
    }
}

TEST_F(Printing, OnlyTheSheetsThatAreWanted) {
    if (!has_tools()) GTEST_SKIP() << "poppler-utils is missing.";
    ASSERT_TRUE(show(page_around(rows(200))));
    const auto printer = pdf_printer();
    printer->setPageRanges(QPageRanges::fromString("2"));
    ASSERT_TRUE(prints(printer));
    EXPECT_NE(told_by("pdfinfo").find("Pages:           1"), std::string::npos);
    EXPECT_EQ(told_by("pdftotext", {"-"}).find("row 1\n"), std::string::npos);
}

TEST_F(Printing, AFileThatCannotBeWrittenLeavesTheOneBefore) {
    ASSERT_TRUE(show(page_around("Milk")));
    const auto printer = pdf_printer();
    printer->setOutputFileName(QString::fromStdString(folder.path("none/out.pdf")));
    EXPECT_FALSE(prints(printer));
    EXPECT_FALSE(std::filesystem::exists(folder.path("none")));
}

TEST_F(Printing, ACancelledFileIsNotWritten) {
    ASSERT_TRUE(show(page_around(rows(50))));
    write_whole_file(pdf(), "before");
    begin(pdf_printer());
    view->cancel_printing();
    ASSERT_TRUE(ended());
    EXPECT_FALSE(*printed);
    ASSERT_TRUE(read().has_value());
    EXPECT_EQ(read_whole_file(pdf()), "before");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
    EXPECT_TRUE(prints(pdf_printer())) << "the next print is none the worse for it";
    EXPECT_EQ(read_whole_file(pdf()).substr(0, 5), "%PDF-");
}

TEST_F(Printing, TwoAtOnceAreBothPrinted) {
    ASSERT_TRUE(show(page_around("Milk")));
    std::vector<bool> told;
    const auto other = pdf_printer();
    other->setOutputFileName(QString::fromStdString(folder.path("other.pdf")));
    for (const auto& printer : {pdf_printer(), other}) {
        view->print(
            printer, [](int) {}, [&](bool is_printed) { told.push_back(is_printed); });
    }
    ASSERT_TRUE(comes_true([&] { return told.size() == 2; }));
    EXPECT_EQ(told, (std::vector<bool>{true, true}));
    EXPECT_TRUE(is_there());
    EXPECT_TRUE(std::filesystem::exists(folder.path("other.pdf")));
}

TEST_F(Printing, WithoutAPageNothingIsPrinted) {
    EXPECT_FALSE(prints(pdf_printer()));
    EXPECT_FALSE(is_there());
}

// Between two sheets. While it makes them, its death may end the engine and the program with it.
TEST_F(Printing, ARendererThatDiesEndsThePrint) {
    ASSERT_TRUE(show(page_around(rows(3000))));
    const auto printer = std::make_shared<PaperPrinter>();
    begin(printer);
    ASSERT_TRUE(comes_true([this] { return !percents.empty(); }));
    ASSERT_TRUE(end_renderers());
    ASSERT_TRUE(ended());
    EXPECT_FALSE(*printed);
}

TEST_F(Printing, TheNextPageEndsThePrint) {
    ASSERT_TRUE(show(page_around(rows(500))));
    begin(pdf_printer());
    ASSERT_TRUE(navigate(folder.path("page.htm")));
    EXPECT_EQ(printed, std::optional(false));
    EXPECT_TRUE(prints(pdf_printer()));
}

TEST_F(Printing, TheViewMayGoWhileItPrints) {
    ASSERT_TRUE(show(page_around(rows(3000))));
    view->print(
        pdf_printer(), [](int) {}, [](bool) { ADD_FAILURE() << "told"; });
    view.reset();
    EXPECT_FALSE(is_there());
}

TEST_F(Printing, APrinterGetsSheetsOfThreeHundredDotsAnInch) {
    ASSERT_TRUE(show(page_around("<p style='font-size: 3cm'>Milk</p>")));
    const auto printer = std::make_shared<PaperPrinter>();
    ASSERT_TRUE(prints(printer));
    ASSERT_EQ(printer->paint.sheets.size(), 1u);
    EXPECT_NEAR(printer->paint.sheets[0].width(), 2480, 2);
    EXPECT_NEAR(printer->paint.sheets[0].height(), 3508, 2);
    EXPECT_EQ(printer->paint.sheets[0].pixelColor(5, 5), QColor(Qt::white));
    const QImage small = printer->paint.sheets[0].scaled(248, 350);
    int dark = 0;
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 248; ++x) dark += qGray(small.pixel(x, y)) < 128 ? 1 : 0;
    }
    EXPECT_GT(dark, 100);
    EXPECT_EQ(printer->paint.ended, 1);
}

TEST_F(Printing, ASheetThatLiesAcrossIsTurnedForThePrinter) {
    ASSERT_TRUE(show("<style>@page { size: landscape }</style><p>Milk</p>"));
    const auto printer = std::make_shared<PaperPrinter>();
    ASSERT_TRUE(prints(printer));
    ASSERT_EQ(printer->paint.sheets.size(), 1u);
    EXPECT_LT(printer->paint.sheets[0].width(), printer->paint.sheets[0].height());
}

TEST_F(Printing, ManyRowsGoToThePrinterInPartsAndStayInThePage) {
    ASSERT_TRUE(show(page_around("<style>td { font-size: 3pt }</style>" + rows(4100))));
    const std::string before = read().value();
    const auto printer = std::make_shared<PaperPrinter>();
    begin(printer);
    ASSERT_TRUE(ended());
    EXPECT_TRUE(*printed);
    EXPECT_GT(printer->paint.sheets.size(), 6u);
    EXPECT_EQ(printer->paint.ended, 1);
    EXPECT_TRUE(std::is_sorted(percents.begin(), percents.end()));
    EXPECT_EQ(percents.back(), 100);
    EXPECT_EQ(read().value(), before);
}

TEST_F(Printing, CancelledBetweenTwoSheetsTheRestIsNotPrinted) {
    ASSERT_TRUE(show(page_around(rows(400))));
    const auto printer = std::make_shared<PaperPrinter>();
    view->print(
        printer, [this](int) { view->cancel_printing(); },
        [this](bool is_printed) { printed = is_printed; });
    ASSERT_TRUE(ended());
    EXPECT_FALSE(*printed);
    EXPECT_TRUE(printer->engine.is_aborted);
    EXPECT_EQ(printer->paint.sheets.size(), 1u);
}

TEST_F(Printing, APrinterThatGivesUpIsTold) {
    ASSERT_TRUE(show(page_around(rows(400))));
    const auto printer = std::make_shared<PaperPrinter>();
    printer->engine.has_paper = false;
    EXPECT_FALSE(prints(printer));
}

TEST(PrintDialog, OffersThePaperOfTheCountry) {
    const QLocale before;
    QWidget window;
    for (const auto& [place, paper] :
         {std::pair{QLocale::UnitedStates, QPageSize::Letter}, {QLocale::Germany, QPageSize::A4}}) {
        QLocale::setDefault(QLocale(QLocale::AnyLanguage, place));
        when_modal<QPrintDialog>([](QPrintDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Print - Week Review");
            dialog.done(QDialog::Accepted);
        });
        const bool is_wide = place == QLocale::Germany;
        const auto printer = web_library().ask(window, "Week Review", is_wide);
        ASSERT_NE(printer, nullptr);
        EXPECT_EQ(printer->pageLayout().pageSize().id(), paper);
        EXPECT_NEAR(printer->pageLayout().margins(QPageLayout::Millimeter).left(), 10, 0.5);
        EXPECT_EQ(printer->docName(), "Week Review");
        EXPECT_EQ(printer->pageLayout().orientation() == QPageLayout::Landscape, is_wide);
    }
    QLocale::setDefault(before);
}

TEST(PrintDialog, GivesNothingWhenTheUserDoesNotWant) {
    QWidget window;
    when_modal<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(web_library().ask(window, "Week Review", false), nullptr);
}

TEST(PrintDialog, MayGoWithItsWindow) {
    auto window = std::make_unique<QWidget>();
    when_modal<QPrintDialog>([&](QPrintDialog&) { window.reset(); });
    EXPECT_EQ(web_library().ask(*window, "Week Review", false), nullptr);
}

}  // namespace
}  // namespace tavernook
