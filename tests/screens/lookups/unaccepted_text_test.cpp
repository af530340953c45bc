// What was typed on the screens of stores, of units and of measures, and not accepted, is asked
// about before it would be dropped; nothing is asked where nothing was changed.
#include <QDialog>
#include <QLineEdit>
#include <QListView>
#include <QTabWidget>

#include "core/weights_and_measures.h"
#include "gui_support/modal_driver.h"
#include "screens/child_screen_fixture.h"
#include "screens/parts/guard.h"
#include "support/table_snapshot.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

// --- stores and units --------------------------------------------------------------------------

class UnacceptedName : public ChildScreenTest, public testing::WithParamInterface<const char*> {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        for (i16 slot = 1; slot <= unit_capacity; ++slot) units[slot] = {};
        put(1, "Dairy");
        put(2, "Bakery");
        put(3, "Market");
        look_for_changes();
        open_form();
    }

    static void put(i16 slot, const char* name) {
        stores[slot].name = name;
        stores[slot].in_use = 1;
        units[slot].name = name;
        units[slot].in_use = 1;
    }
    bool is_store() const { return GetParam() == std::string("StoresForm"); }
    void open_form() { open(GetParam()); }
    QTreeView& list() { return part<QTreeView>("name_list"); }
    QLineEdit& box() { return part<QLineEdit>("name_box"); }
    Texts names() { return column(list()); }
    std::vector<int> selected() {
        std::vector<int> rows;
        for (const QModelIndex& row : list().selectionModel()->selectedRows()) {
            rows.push_back(row.row());
        }
        return rows;
    }

    void change_bakery() {
        click_row(list(), 1);
        press("F2");
        type("Miller");
    }
    void type_new(const char* name) {
        click("new_button");
        type(name);
    }
    void expect_question_on_bakery(Answer answer) {
        platform.boxes.expect_message("Save the changes to \"Bakery\"?", answer)
            .title("Units Builder")
            .buttons(Buttons::yes_no_cancel);
    }
    void expect_question_on_new(Answer answer) {
        platform.boxes.expect_message(
            is_store() ? "Save the new store \"Kiosk\"?" : "Save the new unit \"Kiosk\"?", answer);
    }
};

INSTANTIATE_TEST_SUITE_P(Both, UnacceptedName, testing::Values("StoresForm", "UnitsForm"),
                         [](const auto& info) { return std::string(info.param); });

TEST_P(UnacceptedName, IsAskedAboutWhenAnotherRowIsPicked) {
    change_bakery();
    expect_question_on_bakery(Answer::cancel);
    click_row(list(), 2);
    settle();
    EXPECT_EQ(box().text(), "Miller");
    EXPECT_EQ(focused(), "name_box");
    EXPECT_EQ(selected(), std::vector<int>{1});
    EXPECT_EQ(names(), (Texts{"Dairy", "Bakery", "Market"}));
    expect_question_on_bakery(Answer::no);
    list().setFocus();
    press("Down");  // by a key
    settle();
    EXPECT_EQ(box().text(), "Market");
    EXPECT_EQ(selected(), std::vector<int>{2});
    EXPECT_EQ(names(), (Texts{"Dairy", "Bakery", "Market"}));
    EXPECT_EQ(project_modified, i16_false);
    change_bakery();
    expect_question_on_bakery(Answer::yes);
    click_row(list(), 0);
    settle();
    EXPECT_EQ(names(), (Texts{"Dairy", "Miller", "Market"}));
    EXPECT_EQ(box().text(), "Dairy");
    EXPECT_EQ(selected(), std::vector<int>{0});
    EXPECT_EQ(project_modified, i16_true);
    box().selectAll();
    box().setFocus();
    type("Cheese");
    press("Return");
    EXPECT_EQ(names(), (Texts{"Cheese", "Miller", "Market"}));
}

TEST_P(UnacceptedName, IsAskedAboutWhenItIsNewAndARowIsPicked) {
    type_new("Kiosk");
    expect_question_on_new(Answer::cancel);
    click_row(list(), 0);
    settle();
    EXPECT_EQ(box().text(), "Kiosk");
    EXPECT_EQ(selected(), std::vector<int>{});
    press_letter("Alt+A");  // still the new one
    EXPECT_EQ(names(), (Texts{"Dairy", "Bakery", "Market", "Kiosk"}));
}

TEST_P(UnacceptedName, IsAskedAboutByNew) {
    change_bakery();
    expect_question_on_bakery(Answer::cancel);
    press_letter("Alt+N");
    EXPECT_EQ(box().text(), "Miller");
    expect_question_on_bakery(Answer::yes);
    click("new_button");
    EXPECT_EQ(names(), (Texts{"Dairy", "Miller", "Market"}));
    EXPECT_EQ(box().text(), "");
    EXPECT_EQ(focused(), "name_box");
    type("Kiosk");
    expect_question_on_new(Answer::no);
    click("new_button");
    EXPECT_EQ(box().text(), "");
    type("Stall");
    press("Return");
    EXPECT_EQ(names(), (Texts{"Dairy", "Miller", "Market", "Stall"}));
}

TEST_P(UnacceptedName, IsAskedAboutWhenTheScreenCloses) {
    change_bakery();
    for (const char* way : {"Alt+C", "Ctrl+W"}) {
        expect_question_on_bakery(Answer::cancel);
        press_letter(way);
        settle();
        ASSERT_TRUE(is_open(GetParam())) << way;
        EXPECT_EQ(box().text(), "Miller");
    }
    expect_question_on_bakery(Answer::yes);
    click("close_button");
    settle();
    EXPECT_FALSE(is_open(GetParam()));
    open_form();
    EXPECT_EQ(names(), (Texts{"Dairy", "Miller", "Market"}));
    type_new("Kiosk");
    expect_question_on_new(Answer::no);
    press("Ctrl+W");
    settle();
    EXPECT_FALSE(is_open(GetParam()));
}

TEST_P(UnacceptedName, IsAskedAboutWhenTheProjectGoes) {
    change_bakery();
    expect_question_on_bakery(Answer::cancel);
    EXPECT_FALSE(window.registry().settle_edits());
    EXPECT_EQ(box().text(), "Miller");
    expect_question_on_bakery(Answer::no);
    EXPECT_TRUE(window.registry().settle_edits());
    EXPECT_EQ(box().text(), "Bakery");
    EXPECT_TRUE(window.registry().settle_edits());
}

TEST_P(UnacceptedName, IsNotAskedAboutWhereNothingWasChanged) {
    change_bakery();
    box().setText("Bakery");
    click_row(list(), 0);
    click("new_button");
    click_row(list(), 2);
    EXPECT_EQ(box().text(), "Market");
    click("new_button");
    type("  ");  // no name
    EXPECT_TRUE(window.registry().settle_edits());
    press("Ctrl+W");
    settle();
    EXPECT_FALSE(is_open(GetParam()));
    EXPECT_EQ(project_modified, i16_false);
}

TEST_P(UnacceptedName, StaysWhileTheSelectionGrowsAroundItsRow) {
    change_bakery();
    click_row(list(), 1);
    EXPECT_EQ(box().text(), "Miller");
    settle();
    EXPECT_EQ(box().text(), "Miller");
}

TEST_P(UnacceptedName, OfARowThatHasGoneIsNothingToAskAbout) {
    change_bakery();
    stores[2] = {};
    units[2] = {};
    end_of_step();
    EXPECT_TRUE(window.registry().settle_edits());
    press("Ctrl+W");
    settle();
    EXPECT_FALSE(is_open(GetParam()));
}

TEST_P(UnacceptedName, OfARowThatWentBehindTheQuestionIsNotStored) {
    change_bakery();
    platform.boxes.expect_message("Save the changes to \"Bakery\"?", Answer::yes).during([] {
        stores[2] = {};
        units[2] = {};
        look_for_changes();
        put(2, "Butcher");
        look_for_changes();
    });
    click_row(list(), 2);
    settle();
    EXPECT_EQ(names(), (Texts{"Dairy", "Butcher", "Market"}));
    EXPECT_EQ(panel(1), is_store() ? "This store is not there any more."
                                   : "This unit is not there any more.");
}

TEST_P(UnacceptedName, AndTheTableStayWhenAReplacementIsCancelled) {
    items[1].in_use = 1;
    items[1].name = "Milk";
    items[1].store = 2;
    items[1].qty_units = 2;
    end_of_step();
    change_bakery();
    const TableSnapshot before;
    platform.boxes.expect_message(
        is_store()
            ? "This Store is used by ITEM:Milk,.  Press YES to select a replacement STORE or "
              "press NO to cancel the delete"
            : "This Unit is used by ITEM:Milk,.  Press YES to select a replacement UNIT or "
              "press NO to cancel the delete",
        Answer::yes);
    when_modal<QDialog>([](QDialog& dialog) {
        QTest::mouseClick(dialog.findChild<QPushButton*>("close_button"), Qt::LeftButton);
    });
    click("delete_button");
    EXPECT_EQ(TableSnapshot().difference(before), "");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(box().text(), "Miller");
    EXPECT_EQ(selected(), std::vector<int>{1});
}

// --- measures ----------------------------------------------------------------------------------

class UnacceptedMeasure : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        put(1, "1 mug = 350 mL");
        put(2, "1 stick = 113 grams");
        look_for_changes();
        open_own();
    }

    void open_own() {
        open("wam");
        part<QTabWidget>("tabs").setCurrentIndex(1);
    }
    static void put(i16 slot, const char* text) {
        wams[slot].in_use = i16_true;
        wams[slot].text = text;
    }
    QListView& list() { return part<QListView>("own_list"); }
    QString left() { return part<QLineEdit>("left_field").text(); }
    QString right() { return part<QLineEdit>("right_field").text(); }
    int marked() { return list().selectionModel()->selectedRows().value(0).row(); }

    void change_mug() {
        click_row(list(), 0);
        press("F2");
        type("1 jug");
    }
    void type_new() {
        click("new_button");
        type("1 pack");
    }
    void expect_question_on_mug(Answer answer) {
        platform.boxes.expect_message("Save the changes to \"1 mug = 350 mL\"?", answer)
            .title("Reference")
            .buttons(Buttons::yes_no_cancel);
    }
    void expect_question_on_new(Answer answer) {
        platform.boxes.expect_message("Save the new measure \"1 pack = \"?", answer);
    }
};

TEST_F(UnacceptedMeasure, IsAskedAboutWhenAnotherLineIsPicked) {
    change_mug();
    expect_question_on_mug(Answer::cancel);
    click_row(list(), 1);
    settle();
    EXPECT_EQ(left(), "1 jug");
    EXPECT_EQ(focused(), "left_field");
    EXPECT_EQ(marked(), 0);
    expect_question_on_mug(Answer::no);
    list().setFocus();
    press("Down");
    settle();
    EXPECT_EQ(left(), "1 stick ");
    EXPECT_EQ(marked(), 1);
    EXPECT_EQ(wams[1].text, "1 mug = 350 mL");
    EXPECT_EQ(project_modified, i16_false);
    change_mug();
    expect_question_on_mug(Answer::yes);
    click_row(list(), 1);
    settle();
    EXPECT_EQ(wams[1].text, "1 jug = 350 mL");
    EXPECT_EQ(left(), "1 stick ");
    EXPECT_EQ(marked(), 1);
}

TEST_F(UnacceptedMeasure, IsAskedAboutByNew) {
    change_mug();
    expect_question_on_mug(Answer::cancel);
    click("new_button");
    EXPECT_EQ(left(), "1 jug");
    expect_question_on_mug(Answer::yes);
    press_letter("Alt+N");
    EXPECT_EQ(wams[1].text, "1 jug = 350 mL");
    EXPECT_EQ(left(), "");
    type("1 pack");
    expect_question_on_new(Answer::no);
    click("new_button");
    EXPECT_EQ(left(), "");
    EXPECT_EQ(live_wams().size(), 2u);
}

TEST_F(UnacceptedMeasure, IsAskedAboutWhenItIsNewAndALineIsPicked) {
    type_new();
    expect_question_on_new(Answer::cancel);
    click_row(list(), 1);
    settle();
    EXPECT_EQ(left(), "1 pack");
    expect_question_on_new(Answer::yes);
    click_row(list(), 1);
    settle();
    EXPECT_EQ(wams[3].text, "1 pack = ");
    EXPECT_EQ(left(), "1 stick ");
}

TEST_F(UnacceptedMeasure, IsAskedAboutWhenItIsNewAndAnotherLineIsDeleted) {
    click_row(list(), 1);
    type_new();
    expect_question_on_new(Answer::cancel);
    click("delete_button");
    EXPECT_EQ(left(), "1 pack");
    EXPECT_EQ(live_wams().size(), 2u);
    expect_question_on_new(Answer::no);
    click("delete_button");
    EXPECT_EQ(live_wams(), std::vector<i16>{1});
}

TEST_F(UnacceptedMeasure, IsAskedAboutWhenTheScreenCloses) {
    change_mug();
    for (const char* way : {"Alt+C", "Ctrl+W"}) {
        expect_question_on_mug(Answer::cancel);
        press_letter(way);
        settle();
        ASSERT_TRUE(is_open("wam")) << way;
        EXPECT_EQ(left(), "1 jug");
    }
    expect_question_on_mug(Answer::yes);
    click("close_button");
    settle();
    EXPECT_FALSE(is_open("wam"));
    EXPECT_EQ(wams[1].text, "1 jug = 350 mL");
}

TEST_F(UnacceptedMeasure, ThatCannotBeStoredKeepsTheScreenOpen) {
    for (i16 slot = 1; slot <= 200; ++slot) put(slot, "a = b");
    end_of_step();
    type_new();
    expect_question_on_new(Answer::yes);
    platform.boxes.expect_message(
        "You have reached the limitation of User Defined 'Weights and Measures' allowed in "
        "Tavernook.  It is recommended that you delete some to allow for some more room.");
    press("Ctrl+W");
    settle();
    ASSERT_TRUE(is_open("wam"));
    EXPECT_EQ(left(), "1 pack");
}

TEST_F(UnacceptedMeasure, IsAskedAboutWhenTheProjectGoes) {
    change_mug();
    expect_question_on_mug(Answer::cancel);
    EXPECT_FALSE(window.registry().settle_edits());
    EXPECT_EQ(left(), "1 jug");
    expect_question_on_mug(Answer::no);
    EXPECT_TRUE(window.registry().settle_edits());
    EXPECT_EQ(left(), "1 mug ");
}

TEST_F(UnacceptedMeasure, IsNotAskedAboutWhereNothingWasChanged) {
    click_row(list(), 0);
    click_row(list(), 1);
    change_mug();
    part<QLineEdit>("left_field").setText("1 mug ");
    click_row(list(), 1);
    click("new_button");
    click("new_button");
    EXPECT_TRUE(window.registry().settle_edits());
    press("Ctrl+W");
    settle();
    EXPECT_FALSE(is_open("wam"));
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(UnacceptedMeasure, StaysWhenItsOwnLineIsClickedOn) {
    change_mug();
    click_row(list(), 0);
    settle();
    EXPECT_EQ(left(), "1 jug");
    wams[1] = {};
    end_of_step();
    press("Ctrl+W");  // nothing to store it in
    settle();
    EXPECT_FALSE(is_open("wam"));
}

}  // namespace
}  // namespace tavernook
