// Codes on their way from the keys to a screen.
#include "screens/parts/scan_entry.h"

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "gui_support/waiting.h"
#include "screens/main_window_fixture.h"
#include "screens/parts/screen.h"

namespace tavernook {
namespace {

// "444" XOR 67 is "www", in groups of six bits 29 55 29 55: the letters D3D3.
constexpr const char* cue_cat_line = ".C3nX.cGf2.D3D3.";

// A screen with a part of each kind around its box.
class Host : public Screen {
  public:
    Host() {
        auto* layout = new QVBoxLayout(this);
        const auto add = [&](QWidget& part, const char* name) {
            part.setObjectName(QLatin1String(name));
            part.setFocusPolicy(Qt::StrongFocus);
            layout->addWidget(&part);
        };
        add(list, "list");
        add(months, "months");
        add(year, "year");
        add(button, "button");
        add(words, "words");
        add(entry, "entry");
        add(hold, "hold");
        hold.hide();
        list.addItems({"Apples", "Milk", "Tea"});
        months.addItems({"January", "May", "October"});
        year.setRange(1900, 9998);
        year.setKeyboardTracking(false);
        year.setValue(2024);
        entry.set_collector(hold);
        entry.watch(*this, {.keeps_letters = {&list, &months}, .keeps_digits = {&year}});
        connect(&entry, &ScanEntry::scanned, this,
                [this](const std::string& code) { run([&] { codes.push_back(code); }); });
        connect(&entry, &ScanEntry::ended, this, [this] { ++ended; });
    }

    QListWidget list;
    QComboBox months;
    QSpinBox year;
    QPushButton button;
    QLineEdit words;
    QLineEdit hold;
    ScanEntry entry;
    std::vector<std::string> codes;
    int ended = 0;
};

class ScanEntryTest : public MainWindowTest {
  protected:
    using Codes = std::vector<std::string>;

    void SetUp() override {
        start();
        put_item(1, "AB-12");
        put_item(2, "222");
        put_item(3, "KLM");
        host = std::make_unique<Host>();
        host->show();
        ASSERT_TRUE(becomes_active(*host));
        entry().setFocus();
    }
    void TearDown() override { scanner_type = 0; }

    static void put_item(i16 slot, const char* barcode) {
        items[slot].in_use = 1;
        items[slot].barcode = barcode;
    }

    ScanEntry& entry() { return host->entry; }
    const Codes& codes() { return host->codes; }

    // The keys go to whatever has the focus at that moment.
    static void type(const char* text) {
        for (const char* letter = text; *letter != 0; ++letter) {
            QTest::keyClick(QApplication::focusWidget(), *letter);
        }
    }
    void scan(const char* code, const char* end = "Return") {
        type(code);
        press(end);
    }
    void go_to(QWidget& part) {
        part.setFocus();
        ASSERT_TRUE(part.hasFocus()) << part.objectName().toStdString();
    }
    static std::string focused() { return QApplication::focusWidget()->objectName().toStdString(); }
    void expect_question(const char* proposed, std::optional<std::string> answer) {
        platform.boxes.expect_input("Enter Barcode", "Barcode Entry", proposed, std::move(answer));
    }

    std::unique_ptr<Host> host;
};

TEST_F(ScanEntryTest, EnterAndTabEndACode) {
    scan(" 4006381333931 ");
    scan("tvk7", "Enter");
    scan("222", "Tab");
    EXPECT_EQ(codes(), (Codes{"4006381333931", "tvk7", "222"}));
    EXPECT_EQ(entry().text(), "");
    EXPECT_EQ(focused(), "entry");
    press("Return");
    scan("  ");
    EXPECT_EQ(codes().size(), 3u);
    press("Tab");  // leaves the empty box
    EXPECT_NE(focused(), "entry");
}

TEST_F(ScanEntryTest, EscapeGivesUpWhatHasCome) {
    type(".40");
    press("Escape");
    EXPECT_EQ(entry().text(), "");
    scan("222");
    EXPECT_EQ(codes(), Codes{"222"});
}

TEST_F(ScanEntryTest, ACodeMayBeginAnywhere) {
    const std::vector<QWidget*> places{&host->list, &host->months, &host->year, &host->button};
    Codes expected;
    for (QWidget* place : places) {
        for (const char* code : {"4006381333931", "TVK7", "tvk12"}) {
            go_to(*place);
            scan(code);
            expected.push_back(code);
            EXPECT_EQ(codes(), expected) << place->objectName().toStdString();
            EXPECT_EQ(focused(), "entry");
        }
        EXPECT_EQ(host->year.value(), 2024);
        EXPECT_EQ(host->year.text(), "2024");
    }
}

TEST_F(ScanEntryTest, LettersFindRowsAndOnlyABeginningIsRemembered) {
    go_to(host->list);
    type("m");
    EXPECT_EQ(host->list.currentRow(), 1);
    EXPECT_EQ(focused(), "list");
    scan("111");  // "m" is no part of it
    go_to(host->list);
    type("tv");
    press("Down");
    scan("222");
    go_to(host->list);
    type("t");
    go_to(host->button);
    scan("333");
    go_to(host->list);
    scan("xttvk4");
    EXPECT_EQ(codes(), (Codes{"111", "222", "333", "tvk4"}));
}

TEST_F(ScanEntryTest, LettersOfAnItemsCodeCountInAList) {
    for (QWidget* place : std::vector<QWidget*>{&host->list, &host->months}) {
        go_to(*place);
        scan("AB-12");
        go_to(*place);
        type("mil");  // a row is looked for, and then a code comes
        scan("AB-12", "Tab");
    }
    EXPECT_EQ(codes(), Codes(4, "AB-12"));
}

TEST_F(ScanEntryTest, LettersAloneAreACodeWhereAnItemHasThem) {
    for (const char* end : {"Return", "Tab"}) {
        go_to(host->list);
        scan("KLM", end);
    }
    go_to(host->list);
    scan("tea");
    EXPECT_EQ(codes(), (Codes{"KLM", "KLM"}));
    EXPECT_EQ(focused(), "list");
}

TEST_F(ScanEntryTest, LettersOfAListThatNameNothingAreNoPartOfACode) {
    go_to(host->list);
    type("AB");  // and nothing behind it
    scan("222");
    EXPECT_EQ(codes(), Codes{"222"});
    go_to(host->list);
    type("AB-");
    go_to(host->button);
    scan("12");
    EXPECT_EQ(codes().back(), "12");
}

TEST_F(ScanEntryTest, AStrayFullStopIsLeftOut) {
    go_to(host->list);
    type(".");
    scan("222");
    EXPECT_EQ(codes(), Codes{"222"});
    scanner_type = 2;
    go_to(host->list);
    type(".");
    scan(cue_cat_line);
    EXPECT_EQ(codes().back(), "444");
}

TEST_F(ScanEntryTest, EscapeGivesUpAFullStopToo) {
    go_to(host->list);
    type(".");
    EXPECT_TRUE(entry().has_begun());
    press("Escape");
    EXPECT_FALSE(entry().has_begun());
    EXPECT_EQ(host->hold.text(), "");
}

TEST_F(ScanEntryTest, WhatWasBegunGoesWhenTheFocusGoes) {
    type(".x");
    go_to(host->button);
    EXPECT_EQ(entry().text(), "");
    EXPECT_EQ(host->hold.text(), "");
    go_to(entry());
    scan("222");
    EXPECT_EQ(codes(), Codes{"222"});
}

TEST_F(ScanEntryTest, WhatWasBegunGoesWithAnotherCommand) {
    host->button.setFocusPolicy(Qt::TabFocus);
    type("x");
    QTest::mouseClick(&host->button, Qt::LeftButton);
    EXPECT_EQ(focused(), "entry");
    scan("222");
    type("x");
    entry().abandon();
    scan("222");
    EXPECT_EQ(codes(), (Codes{"222", "222"}));
}

TEST_F(ScanEntryTest, WhatAPersonTypedStaysWhereNoScannerTypes) {
    scanner_type = 3;
    type("22");
    go_to(host->button);
    entry().abandon();
    EXPECT_EQ(entry().text(), "22");
}

TEST_F(ScanEntryTest, FourDigitsInTheYearAreAYear) {
    go_to(host->year);
    host->year.selectAll();
    type("2031");
    press("Return");
    EXPECT_EQ(host->year.value(), 2031);
    EXPECT_EQ(focused(), "year");
    host->year.selectAll();
    type("19");
    press("Backspace");
    type("999");
    EXPECT_EQ(focused(), "year");
    EXPECT_EQ(codes(), Codes{});
}

TEST_F(ScanEntryTest, ALetterInTheYearTellsACode) {
    go_to(host->year);
    host->year.selectAll();
    scan("12a4");
    EXPECT_EQ(codes(), Codes{"12a4"});
    EXPECT_EQ(host->year.text(), "2024");
    EXPECT_EQ(host->year.value(), 2024);
}

TEST_F(ScanEntryTest, ABoxOfTextKeepsItsKeys) {
    go_to(host->words);
    type("t.4006");
    EXPECT_EQ(host->words.text(), "t.4006");
    EXPECT_EQ(entry().text(), "");
}

TEST_F(ScanEntryTest, CommandsOfTheKeyboardBeginNoCode) {
    go_to(host->button);
    for (const char* keys : {"Ctrl+1", "Alt+1", "F5", "Space", "Left"}) press(keys);
    go_to(host->list);
    press("Ctrl+4");
    EXPECT_EQ(entry().text(), "");
    EXPECT_NE(focused(), "entry");
}

TEST_F(ScanEntryTest, AnAbandonedCodeGivesWayToTheNext) {
    type("99");
    go_to(host->button);
    scan("222");
    EXPECT_EQ(codes(), Codes{"222"});
}

TEST_F(ScanEntryTest, TheCueCatIsHeardFromEverywhere) {
    scanner_type = 2;
    const std::vector<QWidget*> places{&entry(), &host->list, &host->months, &host->year,
                                       &host->button};
    for (std::size_t n = 0; n < places.size(); ++n) {
        go_to(*places[n]);
        scan(cue_cat_line);
        EXPECT_EQ(codes(), Codes(n + 1, "444")) << places[n]->objectName().toStdString();
    }
}

TEST_F(ScanEntryTest, AFullStopWaitsInTheHoldBoxAndSpoilsNoLaterCode) {
    go_to(host->list);
    type(".");
    EXPECT_EQ(focused(), "entry");
    EXPECT_EQ(host->hold.text(), ".");
    EXPECT_EQ(entry().text(), "");
    press("Tab");
    EXPECT_EQ(host->hold.text(), "");
    go_to(entry());
    scan("222");
    EXPECT_EQ(codes(), Codes{"222"});
}

TEST_F(ScanEntryTest, OnlyAScannerThatTypesTakesDigitsFromAList) {
    for (const i16 scanner : {1, 2, 3}) {
        scanner_type = scanner;
        go_to(host->list);
        type("4t");
        EXPECT_EQ(focused(), "list") << scanner;
        EXPECT_EQ(entry().text(), "") << scanner;
    }
}

TEST_F(ScanEntryTest, ALineWithoutACodeIsToldAndTheNextOneWorks) {
    scanner_type = 2;
    scan("nonsense.");
    EXPECT_EQ(panel(1), "No barcode could be read. Please scan again.");
    EXPECT_EQ(codes(), Codes{});
    EXPECT_EQ(entry().text(), "");
    scan(cue_cat_line);
    EXPECT_EQ(codes(), Codes{"444"});
    EXPECT_EQ(panel(1), "");
}

TEST_F(ScanEntryTest, ALineFromElsewhereIsReadLikeAScan) {
    entry().take_line(" 222 ");
    entry().take_line("");
    EXPECT_EQ(codes(), Codes{"222"});
    scanner_type = 2;
    entry().take_line(cue_cat_line);
    EXPECT_EQ(codes(), (Codes{"222", "444"}));
}

TEST_F(ScanEntryTest, WithoutAScannerEnterAsksForTheCode) {
    scanner_type = 3;
    expect_question("", " 333 ");
    press("Return");
    EXPECT_EQ(codes(), Codes{"333"});
    expect_question("22", std::nullopt);
    scan("22");
    EXPECT_EQ(entry().text(), "22");  // a cancelled box throws nothing away
    expect_question("22", " ");
    press("Return");
    EXPECT_EQ(entry().text(), "");
    EXPECT_EQ(codes(), Codes{"333"});
    type("5");
    press("Tab");
    EXPECT_NE(focused(), "entry");
}

TEST_F(ScanEntryTest, WithABatchScannerEnterDoesNothing) {
    scanner_type = 1;
    scan("4444");
    EXPECT_EQ(codes(), Codes{});
    EXPECT_EQ(entry().text(), "4444");
}

TEST_F(ScanEntryTest, TheHintFollowsTheSetting) {
    EXPECT_EQ(entry().placeholderText(), "Scan a barcode");
    scanner_type = 3;
    go_to(host->button);
    go_to(entry());
    EXPECT_EQ(entry().placeholderText(), "Press Enter to type a code");
    scanner_type = 1;
    entry().hide();
    entry().show();
    EXPECT_EQ(entry().placeholderText(), "This scanner is read on the scan list");
}

// --- one code at a time ------------------------------------------------------------------------

class OneCode : public ScanEntryTest {
  protected:
    void SetUp() override {
        ScanEntryTest::SetUp();
        entry().hide();
        go_to(host->button);
    }
    void take_one() { entry().take_one(host->button); }
    void expect_gone(int times) {
        settle();
        EXPECT_FALSE(entry().isVisible());
        EXPECT_FALSE(entry().is_taking_one());
        EXPECT_EQ(host->ended, times);
        EXPECT_EQ(host->hold.text(), "");
        EXPECT_EQ(entry().text(), "");
    }
};

TEST_F(OneCode, TheBoxComesForACodeAndGoesWithIt) {
    for (const char* end : {"Return", "Tab"}) {
        take_one();
        EXPECT_TRUE(entry().is_taking_one());
        EXPECT_EQ(focused(), "entry");
        scan("222", end);
        EXPECT_EQ(focused(), "button");
    }
    expect_gone(2);
    EXPECT_EQ(codes(), (Codes{"222", "222"}));
}

TEST_F(OneCode, LettersAreAPartOfIt) {
    take_one();
    scan("AB-12");
    take_one();
    scan("KLM");
    expect_gone(2);
    EXPECT_EQ(codes(), (Codes{"AB-12", "KLM"}));
}

TEST_F(OneCode, EnterInTheEmptyBoxIsAnAnswerToo) {
    take_one();
    press("Return");
    expect_gone(1);
    EXPECT_EQ(codes(), Codes{""});
}

TEST_F(OneCode, EscapeAndGoingElsewhereTellNoCode) {
    take_one();
    type("22");
    press("Escape");
    expect_gone(1);
    EXPECT_EQ(focused(), "button");
    take_one();
    press("Escape");
    expect_gone(2);
    take_one();
    type("22");
    go_to(host->list);
    expect_gone(3);
    EXPECT_EQ(focused(), "list");
    EXPECT_EQ(codes(), Codes{});
}

TEST_F(OneCode, ALineWithoutACodeTellsNone) {
    scanner_type = 2;
    take_one();
    scan("nonsense.");
    expect_gone(1);
    EXPECT_EQ(focused(), "button");
    EXPECT_EQ(codes(), Codes{});
    EXPECT_EQ(panel(1), "No barcode could be read. Please scan again.");
}

TEST_F(OneCode, WithoutAScannerItIsAskedForAtOnce) {
    scanner_type = 3;
    for (const auto& answer : {std::optional<std::string>(), std::optional<std::string>(" 333 "),
                               std::optional<std::string>("")}) {
        expect_question("", answer);
        take_one();
        EXPECT_FALSE(entry().isVisible());
    }
    EXPECT_EQ(codes(), (Codes{"333", ""}));
}

TEST_F(OneCode, ABatchScannerTypesNothing) {
    scanner_type = 1;
    take_one();
    EXPECT_FALSE(entry().isVisible());
    EXPECT_EQ(codes(), Codes{});
}

}  // namespace
}  // namespace tavernook
