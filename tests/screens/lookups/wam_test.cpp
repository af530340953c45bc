// The reference card of weights and measures.
#include <QLineEdit>
#include <QListView>
#include <QTabWidget>

#include "core/weights_and_measures.h"
#include "screens/child_screen_fixture.h"
#include "screens/parts/guard.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* limit_message =
    "You have reached the limitation of User Defined 'Weights and Measures' allowed in Tavernook. "
    " It is recommended that you delete some to allow for some more room.";

class WeightsAndMeasures : public ChildScreenTest {
  protected:
    void open_own() {
        open("wam");
        part<QTabWidget>("tabs").setCurrentIndex(1);
    }
    static void put(i16 slot, const char* text) {
        wams[slot].in_use = i16_true;
        wams[slot].text = text;
    }
    QListView& list() { return part<QListView>("own_list"); }
    QLineEdit& left() { return part<QLineEdit>("left_field"); }
    QLineEdit& right() { return part<QLineEdit>("right_field"); }
    bool can_accept() { return part("accept_button").isEnabled(); }

    void expect_empty_fields() {
        EXPECT_EQ(left().text(), "");
        EXPECT_EQ(right().text(), "");
        EXPECT_FALSE(can_accept());
    }
};

TEST_F(WeightsAndMeasures, AreOpenedByTheirCommands) {
    choose("Alt+P", "mnu_wam");
    EXPECT_TRUE(is_open("wam"));
    press("Escape");
    settle();
    EXPECT_FALSE(is_open("wam"));
    action("toolbar_2_5").trigger();
    EXPECT_TRUE(is_open("wam"));
}

TEST_F(WeightsAndMeasures, HaveTheirWords) {
    open("wam");
    EXPECT_EQ(screen->windowTitle(), "Reference");
    EXPECT_EQ(part<QTabWidget>("tabs").count(), 2);
    EXPECT_EQ(plain(part<QPushButton>("new_button").text()), "New");
    EXPECT_EQ(plain(part<QPushButton>("accept_button").text()), "Accept");
    EXPECT_EQ(plain(part<QPushButton>("delete_button").text()), "Delete");
    EXPECT_EQ(plain(part<QPushButton>("close_button").text()), "Close");
    expect_empty_fields();
    expect_accessible_names();
    expect_unique_mnemonics();
    expect_every_button_has_a_mnemonic();
}

TEST_F(WeightsAndMeasures, TheFixedLinesStandInTheirOrder) {
    open("wam");
    EXPECT_EQ(column(part<QListView>("fixed_list")),
              (Texts{"3 Tsp = 1 Tbsp", "4 Tbsp = 0.25 Cups", "5 1/3 Tbsp = 1/3 Cup",
                     "8 Tbsp =  1/2 Cup", "10 2/3 Tbsp = 2/3 Cup", "12 Tbsp = 3/4 Cup",
                     "16 Tbsp = 1 Cup", "1 Tbsp = 1/2 Fluid Oz.", "1 Cup = 8 Fluid Oz.",
                     "2 Cups = 1 Pint", "1 Cup = 1/2 Pint", "4 Cups = 1 Quart", "2 Pints = 1 Quart",
                     "4 Quarts = 1 Gallon", "1Tbsp = 14.79 mL", "1 Cup = 236.6 mL",
                     "1.06 Quarts = 1 Liter", "1 lb. = 453.59 grams", "1 oz = 28.35 grams"}));
}

TEST_F(WeightsAndMeasures, TheTabsAreReachedByTheirLetters) {
    open("wam");
    press_letter("Alt+Y");
    EXPECT_EQ(part<QTabWidget>("tabs").currentIndex(), 1);
    EXPECT_TRUE(part("own_list_hint").isVisible());
    press_letter("Alt+K");
    EXPECT_EQ(part<QTabWidget>("tabs").currentIndex(), 0);
}

TEST_F(WeightsAndMeasures, ShowTheUsedLinesInTheirOrder) {
    put(2, "1 mug = 350 mL");
    put(9, "1 stick = 113 grams");
    open_own();
    EXPECT_EQ(column(list()), (Texts{"1 mug = 350 mL", "1 stick = 113 grams"}));
    EXPECT_FALSE(part("own_list_hint").isVisible());
}

TEST_F(WeightsAndMeasures, ANewLineByTheMouse) {
    put(1, "1 mug = 350 mL");
    open_own();
    click("new_button");
    EXPECT_TRUE(can_accept());
    QTest::keyClicks(&left(), "1 stick");
    QTest::keyClicks(&right(), "113 grams");
    click("accept_button");
    EXPECT_EQ(wams[2].text, "1 stick = 113 grams");
    EXPECT_EQ(wams[2].in_use, i16_true);
    EXPECT_EQ(column(list()), (Texts{"1 mug = 350 mL", "1 stick = 113 grams"}));
    EXPECT_EQ(project_modified, i16_true);
    expect_empty_fields();
}

TEST_F(WeightsAndMeasures, NewLinesByTheKeyboardAlone) {
    open_own();
    press_letter("Alt+N");
    type("1 stick");
    press("Return");
    type("113 grams");
    press("Return");
    EXPECT_EQ(focused(), "new_button");
    press("Return");
    type("1 mug");
    press("Tab");
    type("350 mL");
    press_letter("Alt+A");
    EXPECT_EQ(column(list()), (Texts{"1 stick = 113 grams", "1 mug = 350 mL"}));
}

TEST_F(WeightsAndMeasures, APickedLineComesIntoTheFields) {
    put(4, "1 mug = 350 mL = much");
    open_own();
    click_row(list(), 0);
    EXPECT_EQ(left().text(), "1 mug ");  // with the blank in front of "="
    EXPECT_EQ(right().text(), "350 mL = much");
    EXPECT_TRUE(can_accept());
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(WeightsAndMeasures, ALineAcceptedUnchangedGrowsByABlankEachTime) {
    put(4, "1 mug = 350 mL");
    open_own();
    click_row(list(), 0);
    click("accept_button");
    EXPECT_EQ(wams[4].text, "1 mug  = 350 mL");
    expect_empty_fields();
    click_row(list(), 0);  // the row is marked already
    EXPECT_EQ(left().text(), "1 mug  ");
    click("accept_button");
    EXPECT_EQ(wams[4].text, "1 mug   = 350 mL");
    EXPECT_EQ(live_wams().size(), 1u);
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(WeightsAndMeasures, APickedLineIsChangedByTheKeyboardAlone) {
    put(4, "1 mug = 350 mL");
    put(5, "1 stick = 113 grams");
    open_own();
    list().setFocus();
    press("End");
    press("F2");
    EXPECT_EQ(focused(), "left_field");
    type("1 pack");
    press("Return");
    press("Return");
    EXPECT_EQ(wams[5].text, "1 pack = 113 grams");
    EXPECT_EQ(focused(), "own_list");
    press("Up");
    press("Return");
    EXPECT_EQ(focused(), "left_field");
    EXPECT_EQ(left().text(), "1 mug ");
}

TEST_F(WeightsAndMeasures, ALineWithoutASignIsSplitInFrontOfItsFirstLetter) {
    put(1, "no sign here");
    open_own();
    click_row(list(), 0);
    EXPECT_EQ(left().text(), "");
    EXPECT_EQ(right().text(), "o sign here");
}

TEST_F(WeightsAndMeasures, ALineIsDeletedByTheButtonAndByTheKey) {
    put(1, "1 mug = 350 mL");
    put(2, "1 stick = 113 grams");
    put(3, "1 pack = 1 lb");
    open_own();
    click_row(list(), 1);
    click("delete_button");
    EXPECT_EQ(wams[2].in_use, 0);
    EXPECT_EQ(wams[2].text, "");
    EXPECT_EQ(column(list()), (Texts{"1 mug = 350 mL", "1 pack = 1 lb"}));
    EXPECT_EQ(project_modified, i16_true);
    expect_empty_fields();
    EXPECT_TRUE(list().selectionModel()->selectedRows().isEmpty());
    click_row(list(), 0);
    press("Delete");
    EXPECT_EQ(column(list()), (Texts{"1 pack = 1 lb"}));
}

TEST_F(WeightsAndMeasures, DeleteWithNothingPickedIsHarmless) {
    put(1, "1 mug = 350 mL");
    open_own();
    click("delete_button");
    EXPECT_EQ(column(list()), (Texts{"1 mug = 350 mL"}));
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(WeightsAndMeasures, WhatIsMarkedIsWhatDeleteDeletes) {
    put(1, "1 mug = 350 mL");
    put(2, "1 stick = 113 grams");
    open_own();
    click_row(list(), 0);
    click("new_button");
    type("1 pack");
    click("accept_button");
    ASSERT_EQ(list().selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(list().selectionModel()->selectedRows().first().row(), 0);
    click("delete_button");
    EXPECT_EQ(column(list()), (Texts{"1 stick = 113 grams", "1 pack = "}));
}

TEST_F(WeightsAndMeasures, The200thLineWarnsAndIsStored) {
    for (i16 slot = 1; slot <= 199; ++slot) put(slot, "a = b");
    open_own();
    click("new_button");
    type("c");
    press("Return");
    type("d");
    platform.boxes.expect_message(limit_message);
    press("Return");
    EXPECT_EQ(wams[200].text, "c = d");
    EXPECT_EQ(wams[200].in_use, i16_true);
    EXPECT_EQ(list().model()->rowCount(), 200);
    expect_empty_fields();
}

TEST_F(WeightsAndMeasures, The201stLineIsRefusedAndKeepsItsText) {
    for (i16 slot = 1; slot <= 200; ++slot) put(slot, "a = b");
    open_own();
    click("new_button");
    type("c");
    press("Return");
    type("d");
    platform.boxes.expect_message(limit_message);
    press("Return");
    EXPECT_EQ(left().text(), "c");
    EXPECT_EQ(right().text(), "d");
    EXPECT_TRUE(can_accept());
    EXPECT_EQ(project_modified, i16_false);
    for (i16 slot = 1; slot <= 200; ++slot) ASSERT_EQ(wams[slot].text, "a = b");
    wams[7] = {};
    click("accept_button");
    EXPECT_EQ(wams[7].text, "c = d");
}

TEST_F(WeightsAndMeasures, CloseByButtonLetterAndEscape) {
    for (const char* way : {"button", "Alt+C", "Escape"}) {
        open("wam");
        if (way == std::string("button")) {
            click("close_button");
        } else {
            press_letter(way);
        }
        settle();
        EXPECT_FALSE(is_open("wam")) << way;
    }
}

TEST_F(WeightsAndMeasures, ALineThatHasGoneMeanwhileIsNotWritten) {
    put(1, "1 mug = 350 mL");
    put(2, "1 stick = 113 grams");
    open_own();
    end_of_step();
    click_row(list(), 0);
    press("F2");
    type("xyz");
    wams[1] = {};
    end_of_step();
    EXPECT_EQ(column(list()), (Texts{"1 stick = 113 grams"}));
    EXPECT_EQ(left().text(), "xyz");
    click("accept_button");
    EXPECT_EQ(wams[1].in_use, 0);
    EXPECT_EQ(panel(1), "This line is not there any more.");
    click("delete_button");
    EXPECT_EQ(column(list()), (Texts{"1 stick = 113 grams"}));
}

TEST_F(WeightsAndMeasures, ALinePickedAndNotTouchedFollows) {
    put(1, "1 mug = 350 mL");
    open_own();
    end_of_step();
    click_row(list(), 0);
    wams[1].text = "1 jug = 1 liter";
    end_of_step();
    EXPECT_EQ(left().text(), "1 jug ");
    wams[1] = {};
    end_of_step();
    expect_empty_fields();
}

TEST_F(WeightsAndMeasures, EscapeTakesBackWhatWasTypedBeforeItCloses) {
    put(1, "1 mug = 350 mL");
    open_own();
    click_row(list(), 0);
    press("F2");
    type("xyz");
    press("Escape");
    EXPECT_TRUE(is_open("wam"));
    EXPECT_EQ(left().text(), "1 mug ");
    press("Escape");
    settle();
    EXPECT_FALSE(is_open("wam"));
    EXPECT_EQ(wams[1].text, "1 mug = 350 mL");
}

TEST_F(WeightsAndMeasures, LettersBeyondAsciiComeBackAsTheyWere) {
    open_own();
    click("new_button");
    left().setText(QString::fromUtf8("1 Eßlöffel"));
    right().setText(QString::fromUtf8("½ Tasse"));
    click("accept_button");
    EXPECT_EQ(wams[1].text,
              "1 E\xdfl\xf6"
              "ffel = \xbd Tasse");
    EXPECT_EQ(column(list()), (Texts{"1 Eßlöffel = ½ Tasse"}));
}

}  // namespace
}  // namespace tavernook
