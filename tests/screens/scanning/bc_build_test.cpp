// The sheet of labels: made, shown, printed; what keeps scanners from reading it.
#include <QCheckBox>
#include <QFontDatabase>
#include <QProgressBar>
#include <filesystem>

#include "barcodes/barcode_sheet.h"
#include "core/trap.h"
#include "gui_support/code39_font.h"
#include "screens/child_screen_fixture.h"

namespace tavernook {
namespace {

class BarcodeBuilder : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        project_path = platform.path("home.tvk");
    }

    static void put_item(i16 slot, const char* name, const char* barcode) {
        items[slot].name = name;
        items[slot].barcode = barcode;
        items[slot].in_use = 1;
    }
    static void fill_household() {
        for (const i16 slot : {1, 2, 9}) put_item(slot, "Milk", "40123455");
        for (const i16 slot : {1, 7}) {
            meals[slot].name = "Soup";
            meals[slot].in_use = 1;
        }
    }
    void open_screen() { open("BCBuild"); }
    void build() {
        click("build_button");
        html_views.show();
        settle();
    }
    void tick_box(const char* name) {
        part<QWidget>(name).setFocus();
        press("Space");
    }
    void begin_print() {
        open_screen();
        build();
        click("print_button");
        ASSERT_EQ(calls("print"), 1);
    }

    bool is_on(const char* name) { return part<QWidget>(name).isEnabled(); }
    bool is_seen(const char* name) { return part<QWidget>(name).isVisible(); }
    std::string sentence() { return part<QLabel>("sentence").text().toStdString(); }
    std::string notice() {
        return is_seen("notice") ? part<QLabel>("notice_text").text().toStdString() : "";
    }
    std::string said() { return panel(message_panel); }
    std::string sheet(const std::string& stem = "home") const {
        return platform.system.program + "/barcode/barcode" + stem + ".htm";
    }
    int calls(const std::string& call) const {
        const auto& seen = html_views.calls.entries;
        return static_cast<int>(std::count(seen.begin(), seen.end(), call));
    }
    // A project of its own on the disk, so that it can be closed.
    void bring_project() {
        platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
        press("Ctrl+N");
        project_modified = 0;
    }
};

const char* const font_is_missing =
    "The font \"3 of 9 Barcode\" is missing on this computer: the codes are plain text here, and "
    "labels printed without it cannot be scanned.  Install a font of that name, and start the "
    "program again.";
const char* const closed = "Printing was stopped, as the labels were closed.";

TEST_F(BarcodeBuilder, TheMenuAndTheToolbarOpenIt) {
    action("mnu_barcode").trigger();
    EXPECT_TRUE(is_open("BCBuild"));
    screen = window.registry().loaded("BCBuild");
    EXPECT_EQ(screen->windowTitle(), "Barcode Builder");
    screen->parentWidget()->close();
    EXPECT_TRUE(comes_true([this] { return !is_open("BCBuild"); }));
    action("toolbar_2_4").trigger();
    EXPECT_TRUE(is_open("BCBuild"));
}

TEST_F(BarcodeBuilder, WithoutASheetALineSaysWhatToDo) {
    open_screen();
    EXPECT_EQ(sentence(),
              "Tick what to show, and press \"Build Barcode List\" to make the labels.");
    EXPECT_TRUE(is_on("build_button") && is_on("close_button"));
    EXPECT_FALSE(is_on("print_button"));
    EXPECT_EQ(calls("navigate " + sheet()), 0);
    EXPECT_EQ(notice(), "");
    EXPECT_FALSE(is_seen("printing") || is_seen("show_again_button"));
    EXPECT_EQ(focused(), "build_button");
    EXPECT_TRUE(part<QCheckBox>("Check1").isChecked());
    EXPECT_FALSE(part<QCheckBox>("Check2").isChecked());
    EXPECT_EQ(plain(part<QCheckBox>("Check1").text()), "Show Item Barcodes");
    EXPECT_EQ(plain(part<QCheckBox>("Check2").text()), "Show Meal Barcodes");
}

TEST_F(BarcodeBuilder, TheLastSheetComesUpOnLoad) {
    fill_household();
    ASSERT_TRUE(Build_Doc({.items = true}).is_written);
    open_screen();
    EXPECT_EQ(calls("navigate " + sheet()), 1);
    html_views.show();
    EXPECT_TRUE(is_on("print_button"));
    EXPECT_EQ(notice(), font_is_missing);
    EXPECT_EQ(said(), "");
}

TEST_F(BarcodeBuilder, AnEmptyFileDoesNot) {
    ASSERT_TRUE(Build_Doc({}).is_written);
    write_whole_file(sheet(), "");
    open_screen();
    EXPECT_EQ(calls("navigate " + sheet()), 0);
    EXPECT_EQ(notice(), "");
}

TEST_F(BarcodeBuilder, WhatIsTickedIsBuiltShownAndTold) {
    fill_household();
    open_screen();
    press("Return");
    EXPECT_EQ(said(), "3 labels: 3 items.");
    EXPECT_EQ(calls("navigate " + sheet()), 1);
    EXPECT_FALSE(is_on("print_button"));
    html_views.show();
    EXPECT_TRUE(is_on("print_button"));
    EXPECT_EQ(focused(), "build_button");
    tick_box("Check2");
    build();
    EXPECT_EQ(said(), "5 labels: 3 items and 2 recipes.");
    tick_box("Check1");
    meals[7].in_use = 0;
    build();
    EXPECT_EQ(said(), "1 label: 1 recipe.");
    EXPECT_EQ(calls("navigate " + sheet()), 3);
    EXPECT_NE(read_whole_file(sheet()).find("*tvk1*"), std::string::npos);
    EXPECT_EQ(project_modified, 0);
}

TEST_F(BarcodeBuilder, WithNothingTickedTheSheetOnShowStays) {
    fill_household();
    open_screen();
    build();
    const std::string before = read_whole_file(sheet());
    EXPECT_NE(before.find("<tr>"), std::string::npos);
    tick_box("Check1");
    click("build_button");
    EXPECT_EQ(said(), "Tick what to show first.");
    EXPECT_EQ(read_whole_file(sheet()), before);
}

TEST_F(BarcodeBuilder, ASheetThatCannotBeWrittenIsToldAndTheOneOnShowStays) {
    open_screen();
    build();
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::disk_full);
    platform.boxes.expect_message(module_message(Fault(fault_number::disk_full)));
    click("build_button");
    EXPECT_EQ(said(), "The list could not be made.");
    EXPECT_EQ(calls("navigate " + sheet()), 1);
    EXPECT_TRUE(is_on("print_button"));
}

TEST_F(BarcodeBuilder, TheScreenMayGoBehindABox) {
    open_screen();
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::disk_full);
    platform.boxes.expect_message(module_message(Fault(fault_number::disk_full))).during([this] {
        delete screen->parentWidget();
    });
    part<QPushButton>("build_button").click();
    EXPECT_FALSE(is_open("BCBuild"));
}

// --- what keeps scanners from reading it

TEST_F(BarcodeBuilder, AMissingFontIsToldAsLongAsASheetIsOnShow) {
    fill_household();
    open_screen();
    build();
    EXPECT_EQ(notice(), font_is_missing);
    if (!make_code39_font(platform.path("code39.ttf"))) {
        GTEST_SKIP() << "python3-fonttools is missing.";
    }
    const int font =
        QFontDatabase::addApplicationFont(QString::fromStdString(platform.path("code39.ttf")));
    build();
    EXPECT_EQ(notice(), "");
    QFontDatabase::removeApplicationFont(font);
    click("print_button");
    EXPECT_EQ(notice(), font_is_missing);
    html_views.end_print(true);
}

TEST_F(BarcodeBuilder, CodesThatScannersCannotReadAreCounted) {
    put_item(1, "Milk", "40123455");
    put_item(2, "Cream", "abc");
    open_screen();
    build();
    EXPECT_EQ(notice(), std::string(font_is_missing) +
                            "\nScanners read 1 label wrong or not at all: such a barcode cannot "
                            "hold small letters, stars or signs other than - . $ / + %.");
    put_item(3, "Tea", "a#1");
    put_item(4, "Salt", "empty");
    put_item(5, "Rice", "empty");
    build();
    EXPECT_EQ(notice(), std::string(font_is_missing) +
                            "\nScanners read 2 labels wrong or not at all: such a barcode cannot "
                            "hold small letters, stars or signs other than - . $ / + %."
                            "\n2 items without a barcode: scanners read EMPTY there.");
    for (const i16 item : {2, 3, 4, 5}) items[item].in_use = 0;
    build();
    EXPECT_EQ(notice(), font_is_missing);
}

TEST_F(BarcodeBuilder, NamesAreNoMarkupOnTheScreen) {
    put_item(1, "<script>alert(1)</script>", "<b>");
    open_screen();
    build();
    EXPECT_EQ(said(), "1 label: 1 item.");
    EXPECT_EQ(part<QLabel>("notice_text").textFormat(), Qt::PlainText);
    EXPECT_NE(read_whole_file(sheet()).find("<b><script>alert(1)</script> (*<b>*)</b>"),
              std::string::npos);
}

// --- other names of the project

TEST_F(BarcodeBuilder, AStemWithBlanksAndUmlauts) {
    project_path = platform.path("Tante K\xC3\xA4the 2.tvk");
    open_screen();
    build();
    EXPECT_EQ(calls("navigate " + sheet("Tante K\xC3\xA4the 2")), 1);
}

TEST_F(BarcodeBuilder, UnderAnotherNameTheSheetOnShowStaysAndTheNextIsAnotherFile) {
    bring_project();
    fill_household();
    open_screen();
    build();
    platform.dialogs.expect_save("Save As", platform.path("away.tvk"));
    action("mnuFile_SaveAs").trigger();
    EXPECT_EQ(project_path, platform.path("away.tvk"));
    EXPECT_TRUE(is_on("print_button"));
    EXPECT_EQ(calls("navigate " + sheet("away")), 0);
    build();
    EXPECT_EQ(calls("navigate " + sheet("away")), 1);
    EXPECT_TRUE(std::filesystem::exists(sheet("home")));
}

// --- printing

TEST_F(BarcodeBuilder, PrintsAndTellsWhenItIsDone) {
    open_screen();
    build();
    part<QWidget>("print_button").setFocus();
    press("Return");
    EXPECT_EQ(print_prompt.calls.entries, std::vector<std::string>{"ask Barcode List"});
    EXPECT_FALSE(print_prompt.was_wide);
    EXPECT_EQ(calls("print"), 1);
    EXPECT_FALSE(is_on("build_button") || is_on("print_button") || is_on("Check1") ||
                 is_on("Check2"));
    EXPECT_TRUE(is_seen("printing_bar") && is_on("stop_button") && is_on("close_button"));
    press("Return");
    EXPECT_EQ(calls("cancel printing"), 0);
    html_views.tell_progress(40);
    EXPECT_EQ(part<QProgressBar>("printing_bar").value(), 40);
    html_views.end_print(true);
    EXPECT_EQ(said(), "The page was handed to the printer.");
    EXPECT_FALSE(is_seen("printing_bar"));
    EXPECT_TRUE(is_on("build_button") && is_on("print_button"));
    EXPECT_EQ(focused(), "print_button");
}

TEST_F(BarcodeBuilder, ByItsKeyOnlyWhenASheetIsOnShow) {
    open_screen();
    press("Ctrl+P");
    EXPECT_TRUE(print_prompt.calls.entries.empty());
    build();
    print_prompt.agrees = false;
    press("Ctrl+P");
    EXPECT_EQ(print_prompt.calls.entries.size(), 1U);
    EXPECT_EQ(calls("print"), 0);
    EXPECT_TRUE(is_on("print_button"));
    EXPECT_EQ(said(), "");
}

TEST_F(BarcodeBuilder, VeryManyLabelsAreAskedAbout) {
    for (i16 item = 1; item <= 5001; ++item) put_item(item, "Milk", "1");
    open_screen();
    build();
    platform.boxes.expect_message(
        "This page has 5001 rows and takes many sheets of paper.  Do you want to print it?",
        Answer::no);
    click("print_button");
    EXPECT_EQ(calls("print"), 0);
}

TEST_F(BarcodeBuilder, EscapeStopsAPrintAndThenClosesTheScreen) {
    begin_print();
    press("Escape");
    EXPECT_EQ(said(), "Printing is being stopped.");
    EXPECT_EQ(calls("cancel printing"), 1);
    html_views.end_print(false);
    EXPECT_EQ(said(), "Printing was stopped.  A part of the page may come out of the printer.");
    press("Escape");
    EXPECT_FALSE(is_open("BCBuild"));
}

TEST_F(BarcodeBuilder, ClosingEndsAPrintAndSaysSo) {
    begin_print();
    const auto late = html_views.answers.printed;
    click("close_button");
    EXPECT_FALSE(is_open("BCBuild"));
    EXPECT_EQ(calls("cancel printing"), 1);
    settle();
    late(false);
    EXPECT_EQ(said(), closed);
}

TEST_F(BarcodeBuilder, ClosingTheProjectEndsAPrintAndSaysSo) {
    bring_project();
    begin_print();
    platform.boxes.expect_message(
        "A page is still being printed or saved, and leaving now stops that.  Do you want to leave "
        "all the same?",
        Answer::yes);
    action("mnuFile_Close").trigger();
    EXPECT_EQ(project_open, 0);
    EXPECT_EQ(calls("cancel printing"), 1);
    EXPECT_FALSE(is_open("BCBuild"));
    EXPECT_TRUE(comes_true([this] { return said() == closed; })) << said();
}

TEST_F(BarcodeBuilder, ASheetThatIsLostWhileItIsPrintedIsTold) {
    begin_print();
    html_views.lose();
    EXPECT_EQ(said(), "The page was lost before it was done.");
    EXPECT_FALSE(is_on("print_button"));
    EXPECT_TRUE(is_on("build_button"));
    EXPECT_EQ(focused(), "show_again_button");
    press("Return");
    html_views.show();
    EXPECT_TRUE(is_on("print_button"));
}

// --- without an engine, by keys, by ear

TEST_F(BarcodeBuilder, WithoutAnEngineTheSheetIsStillMade) {
    fill_household();
    html_views.refuses = Fault(fault_number::file_not_found, "The library is missing");
    open_screen();
    EXPECT_EQ(said(), "Pages can be neither shown nor printed on this computer.");
    click("build_button");
    EXPECT_EQ(said(), "3 labels: 3 items.");
    EXPECT_TRUE(std::filesystem::exists(sheet()));
    EXPECT_FALSE(is_on("print_button"));
    press("Escape");
    EXPECT_FALSE(is_open("BCBuild"));
}

TEST_F(BarcodeBuilder, CanBeUsedByKeysAndByEar) {
    open_screen();
    build();
    expect_accessible_names();
    expect_unique_mnemonics();
    expect_every_button_has_a_mnemonic();
    html_views.answers.widget->setFocus();
    for (const char* next : {"Check2", "Check1", "build_button", "print_button", "close_button"}) {
        press("Tab");
        EXPECT_EQ(focused(), next);
    }
}

}  // namespace
}  // namespace tavernook
