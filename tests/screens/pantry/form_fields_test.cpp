// Boxes that show a record which others change.
#include "screens/pantry/form_fields.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <array>
#include <gtest/gtest.h>

#include "basics/fault.h"
#include "gui_support/warning_guard.h"
#include "screens/parts/quantity_box.h"

namespace tavernook {
namespace {

class BoxesOfARecord : public testing::Test {
  protected:
    struct Record {
        QString name;
        f64 amount = 0;
        QString unit;
        QString notes;
        bool is_damaged = false;
    };

    BoxesOfARecord() {
        unit.setEditable(true);
        fields.add_line(name, [this](i16 record) { return records[record].name; });
        fields.add_number(amount, "0.00", [this](i16 record) {
            if (records[record].is_damaged) throw Fault(fault_number::overflow);
            return records[record].amount;
        });
        fields.add_name(unit, [this](i16 record) { return records[record].unit; });
        fields.add_lines(notes, [this](i16 record) { return records[record].notes; });
        fields.show(1);
    }

    std::array<Record, 3> records{
        {{}, {"Rice", 1.0 / 3.0, "bag", "long", false}, {"Salt", 2, "box", "fine", false}}};
    QLineEdit name;
    QuantityBox amount;
    QComboBox unit;
    QPlainTextEdit notes;
    FormFields fields;
};

TEST_F(BoxesOfARecord, ShowItAndThenNothing) {
    EXPECT_EQ(name.text(), "Rice");
    EXPECT_EQ(amount.text(), "0.33");
    EXPECT_EQ(unit.currentText(), "bag");
    EXPECT_EQ(notes.toPlainText(), "long");
    EXPECT_FALSE(fields.is_edited());
    fields.show(0);
    EXPECT_EQ(name.text() + amount.text() + unit.currentText() + notes.toPlainText(), "");
    EXPECT_FALSE(fields.is_edited());
}

TEST_F(BoxesOfARecord, AreTouchedOnlyWhileTheirTextsDiffer) {
    name.setText("Rices");
    EXPECT_TRUE(fields.is_edited());
    name.setText("Rice");
    EXPECT_FALSE(fields.is_edited());
}

TEST_F(BoxesOfARecord, FollowWhereTheyAreNotTouched) {
    name.setText("Mine");
    unit.setEditText("sack");
    records[1] = {"Theirs", 4, "tin", "short", false};
    fields.follow(1);
    EXPECT_EQ(name.text(), "Mine");
    EXPECT_EQ(amount.text(), "4.00");
    EXPECT_EQ(unit.currentText(), "sack");
    EXPECT_EQ(notes.toPlainText(), "short");
    EXPECT_TRUE(fields.is_edited());
}

TEST_F(BoxesOfARecord, KeepAFigureThatIsRoundedOnShow) {
    fields.follow(1);
    EXPECT_EQ(amount.value(), 1.0 / 3.0);
    records[1].amount = 0.3333;  // reads the same
    fields.follow(1);
    EXPECT_EQ(amount.text(), "0.33");
    EXPECT_EQ(amount.value(), 0.3333);
}

TEST_F(BoxesOfARecord, KeepWhatIsSelectedWhereNothingHasChanged) {
    name.selectAll();
    records[1].amount = 5;
    fields.follow(1);
    EXPECT_EQ(name.selectedText(), "Rice");
    EXPECT_EQ(amount.text(), "5.00");
}

TEST_F(BoxesOfARecord, TakeBackNothingOfTheRecordBefore) {
    records[2].name = "Rice";
    records[2].notes = "long";
    name.end(false);
    name.insert("s");
    name.backspace();
    EXPECT_TRUE(name.isUndoAvailable());
    fields.show(2);
    EXPECT_FALSE(name.isUndoAvailable());
    EXPECT_FALSE(notes.document()->isUndoAvailable());
}

TEST_F(BoxesOfARecord, AFaultLeavesItsBoxAndThoseBehindIt) {
    records[1] = {"Theirs", 4, "tin", "short", true};
    EXPECT_THROW(fields.follow(1), Fault);
    EXPECT_EQ(name.text(), "Theirs");
    EXPECT_EQ(amount.text(), "0.33");
    EXPECT_EQ(unit.currentText(), "bag");
    EXPECT_FALSE(fields.is_edited());
    records[1].is_damaged = false;
    fields.follow(1);
    EXPECT_EQ(amount.text(), "4.00");
    EXPECT_EQ(notes.toPlainText(), "short");
}

}  // namespace
}  // namespace tavernook
