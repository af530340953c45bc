// The tree of the item screen: finding, marking, renaming, copying and deleting.
#include <QClipboard>
#include <QDialog>
#include <QHeaderView>
#include <QListWidget>
#include <QMimeData>

#include "screens/pantry/food_inventory_fixture.h"
#include "screens/parts/house_colours.h"

namespace tavernook {
namespace {

class ItemTree : public FoodInventoryTest {
  protected:
    void put_household() {
        put_catagory(2, "Dairy");
        put_catagory(3, "Soups", recipe_category_type);
        put_item(1, "Rice", 1, 2);
        put_item(2, "Milk", 2, 1);
        put_item(3, "Butter", 2, 0);
    }

    // The texts of the first column as they stand, categories in brackets.
    std::string rows(const QModelIndex& parent = {}) {
        std::string found;
        for (int row = 0; row < model().rowCount(parent); ++row) {
            const QModelIndex index = model().index(row, 0, parent);
            const std::string name = index.data().toString().toStdString();
            found += model().leaf_at(index) != 0 ? name + " " : "[" + name + "] ";
            found += rows(index);
        }
        return found;
    }

    // A recipe that needs the item.
    static void use_item(i16 item) {
        meals[1].in_use = 1;
        meals[1].name = "Porridge";
        meals[1].ingredient_item[1] = item;
    }
};

constexpr const char* used_by_porridge =
    "Press YES to select a replacement ITEM or press NO to cancel the delete. This item is used by "
    "MEAL:Porridge,";

TEST_F(ItemTree, ShowsItemsUnderTheirCategoriesAndNoCategoryOfRecipes) {
    put_household();
    open();
    EXPECT_EQ(rows(), "[Dairy] Butter Milk [General] Rice ");
    click("toggle_view");
    EXPECT_EQ(text("toggle_view"), "List");
    EXPECT_EQ(rows(), "Butter Milk Rice ");
    screen().view_item(2, i16_true);
    EXPECT_EQ(rows(), "Butter Milk Rice ");
    click("toggle_view");
    EXPECT_EQ(text("toggle_view"), "Normal");
    EXPECT_EQ(rows(), "[Dairy] Butter Milk [General] Rice ");
    EXPECT_EQ(marked(), "c2");
}

TEST_F(ItemTree, AnItemWithoutACategoryMovesToTheFirstOne) {
    put_item(1, "Rice", 0, 2);
    open();
    EXPECT_EQ(items[1].category, 1);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(rows(), "[General] Rice ");
}

TEST_F(ItemTree, ArrowKeysShowOneItemAfterTheOther) {
    put_household();
    open();
    tree().setFocus();
    choose_row("r2");
    press("Down");
    EXPECT_EQ(text("item_name"), "Butter");
    press("Down");
    EXPECT_EQ(text("item_name"), "Milk");
    EXPECT_EQ(current_catagory, 2);
    press("Down");
    EXPECT_EQ(screen().getindex(), 0);
    EXPECT_EQ(text("item_name"), "");
}

TEST_F(ItemTree, CategoriesOpenAndCloseAndStaySoAfterAnAccept) {
    put_household();
    open();
    const auto is_open = [this](const char* key) {
        return tree().isExpanded(model().index_of(QLatin1String(key)));
    };
    EXPECT_TRUE(is_open("r1"));
    click("collapse_tree");
    EXPECT_FALSE(is_open("r1"));
    EXPECT_FALSE(is_open("r2"));
    choose_row("c2");
    EXPECT_TRUE(is_open("r2"));
    enter("cost", "1");
    accept();
    EXPECT_TRUE(is_open("r2"));
    EXPECT_FALSE(is_open("r1"));
    click("expand_tree");
    EXPECT_TRUE(is_open("r1"));
}

// A scanner that types does so wherever the focus is; what it typed once stood in the name box.
TEST_F(ItemTree, ACodeThatIsScannedInTheTreeIsLookedFor) {
    put_household();
    items[2].barcode = "4006381333931";
    items[3].barcode = "5000112637922";
    open();
    choose_row("c1");
    tree().setFocus();
    for (const i16 item : {2, 3}) {
        for (const char key : std::string(items[item].barcode.trimmed())) {
            QTest::keyClick(QApplication::focusWidget(), key);
        }
        press("Return");
        EXPECT_EQ(screen().getindex(), item);
        EXPECT_EQ(focused(), "item_tree");
    }
}

TEST_F(ItemTree, SlashAndCtrlFLeadToTheFilterAndEscShowsAllAgain) {
    put_household();
    items[3].barcode = "4006381333931";
    open();
    tree().setFocus();
    press("/");
    EXPECT_EQ(focused(), "filter");
    type("MIL");
    EXPECT_EQ(rows(), "[Dairy] Milk ");
    press("Return");
    EXPECT_EQ(screen().getindex(), 2);
    EXPECT_EQ(focused(), "item_tree");
    press("Ctrl+F");
    EXPECT_EQ(focused(), "filter");
    type("40063");
    EXPECT_EQ(rows(), "[Dairy] Butter ");
    press("Ctrl+F");
    type("nothing at all");
    EXPECT_EQ(rows(), "");
    EXPECT_EQ(text("tree_hint"), "No item matches. Esc shows all items again.");
    press("Escape");
    EXPECT_EQ(text("filter"), "");
    EXPECT_EQ(rows(), "[Dairy] Butter Milk [General] Rice ");
    EXPECT_FALSE(part<QLabel>("tree_hint").isVisible());
    EXPECT_EQ(marked(), "c2");
    part<QWidget>("item_name").setFocus();
    press("End");
    type("/");
    EXPECT_EQ(focused(), "item_name");
    platform.boxes.expect_message("Save the changes to \"Milk/\"?", Answer::no);
    choose_row("c1");
}

TEST_F(ItemTree, NarrowsTenThousandItems) {
    for (i16 row = 2; row <= 40; ++row) put_catagory(row, ("Group " + std::to_string(row)).c_str());
    for (i16 item = 1; item <= item_capacity; ++item) {
        put_item(item, ("Food number " + std::to_string(item)).c_str(),
                 static_cast<i16>(1 + item % 40), 1);
    }
    open();
    auto& filter = part<QLineEdit>("filter");
    const auto shown_for = [&](const char* typed) {
        filter.setText(QLatin1String(typed));
        tree().viewport()->repaint();
        return model().leaf_count();
    };
    EXPECT_EQ(shown_for("f"), 10000);
    EXPECT_EQ(shown_for("food 9"), 3439);  // in any place of the number
    EXPECT_EQ(shown_for("food 99"), 280);
    EXPECT_EQ(shown_for(""), 10000);
    EXPECT_EQ(shown_for("food 9999"), 1);
    EXPECT_EQ(rows(), "[Group 40] Food number 9999 ");
}

TEST_F(ItemTree, WhatWantsAttentionIsMarkedByIconColourAndWord) {
    put_household();
    expiration_warning_days = 3;
    items[1].storage_time = 30;
    items[1].last_restock_date = 45390;
    lots[1].expiration_date[0] = 45420;
    items[2].storage_time = 7;
    items[2].last_restock_date = 45423;
    lots[2].expiration_date[0] = 45430;
    items[3].stock_quantity = 2;
    open();
    const auto attention = [this](const char* key) {
        const QModelIndex index =
            model().index_of(QLatin1String(key)).siblingAtColumn(item_attention_column);
        EXPECT_FALSE(index.data(Qt::DecorationRole).value<QIcon>().isNull()) << key;
        return index.data().toString().toStdString();
    };
    EXPECT_EQ(attention("c1"), "Expired");
    EXPECT_EQ(attention("c2"), "Expires soon");
    EXPECT_EQ(attention("c3"), "Low");
    const auto colour = [this](const char* key, int column) {
        return model()
            .index_of(QLatin1String(key))
            .siblingAtColumn(column)
            .data(Qt::ForegroundRole);
    };
    const auto of_the_house = [this](HouseColour which) {
        return house_colour(which, tree().palette());
    };
    EXPECT_EQ(colour("c1", item_attention_column).value<QColor>(),
              of_the_house(HouseColour::past_date));
    EXPECT_EQ(colour("c2", item_attention_column).value<QColor>(), of_the_house(HouseColour::low));
    EXPECT_EQ(colour("c3", item_attention_column).value<QColor>(), of_the_house(HouseColour::low));
    EXPECT_FALSE(colour("c1", item_name_column).isValid());
    EXPECT_FALSE(colour("c1", item_stock_column).isValid());
    const QModelIndex stock = model().index_of("c1").siblingAtColumn(item_stock_column);
    EXPECT_EQ(stock.data().toString(), "2.00");
    EXPECT_TRUE(stock.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
}

TEST_F(ItemTree, AHeaderClickSorts) {
    put_household();
    open();
    screen().populate_Alpha();
    QHeaderView& header = *tree().header();
    const auto click_on = [&](int column) {
        const QPoint place(header.sectionViewportPosition(column) + 8, header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
        settle();
    };
    choose_row("c2");
    click_on(item_stock_column);
    EXPECT_EQ(rows(), "Butter Milk Rice ");
    EXPECT_EQ(header.sortIndicatorSection(), item_stock_column);
    click_on(item_stock_column);
    EXPECT_EQ(rows(), "Rice Milk Butter ");
    EXPECT_EQ(marked(), "c2");
}

TEST_F(ItemTree, ACategoryIsRenamedInPlaceTheFirstOneToo) {
    put_household();
    open();
    tree().setFocus();
    choose_row("r1");
    press("F2");
    auto* editor = tree().viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, "Staples");
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
    EXPECT_EQ(std::string(catagories[1].name.trimmed()), "Staples");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(rows(), "[Dairy] Butter Milk [Staples] Rice ");
    EXPECT_EQ(marked(), "r1");
    EXPECT_TRUE(tree().isExpanded(model().index_of("r1")));
}

TEST_F(ItemTree, F2OnAnItemLeadsToItsName) {
    put_household();
    open();
    tree().setFocus();
    choose_row("c1");
    press("F2");
    EXPECT_EQ(focused(), "item_name");
    EXPECT_EQ(part<QLineEdit>("item_name").selectedText(), "Rice");
}

TEST_F(ItemTree, ANewCategoryIsAskedFor) {
    open();
    platform.boxes.expect_input("Enter name of new catagory.", "New Catagory", "", "Spices");
    command("item_toolbar_1_2");
    EXPECT_EQ(std::string(catagories[2].name.trimmed()), "Spices");
    EXPECT_EQ(catagories[2].type, -1);
    EXPECT_EQ(catagories[2].parent, 0);
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(marked(), "r2");
    platform.boxes.expect_input("Enter name of new catagory.", "New Catagory", "", "");
    command("item_toolbar_1_2");
    EXPECT_EQ(catagories[3].in_use, 0);
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "Pepper");
    screen().new_item();
    accept();
    EXPECT_EQ(items[1].category, 2);
    EXPECT_EQ(rows(), "[General] [Spices] Pepper ");
}

TEST_F(ItemTree, AnUnusedItemIsDeletedWithoutAQuestion) {
    put_household();
    open();
    tree().setFocus();
    choose_row("c1");
    press("Delete");
    settle();
    EXPECT_EQ(items[1].in_use, 0);
    EXPECT_EQ(lots[1].active, 0);
    EXPECT_EQ(panel(1), "Rice is deleted.");
    EXPECT_EQ(screen().getindex(), 0);
    EXPECT_EQ(rows(), "[Dairy] Butter Milk [General] ");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(ItemTree, ThePlaceOfADeletedItemIsKept) {
    put_household();
    open();
    tree().setFocus();
    choose_row("c3");
    press("Delete");
    settle();
    EXPECT_EQ(tree().currentIndex().data().toString(), "Milk");
    EXPECT_EQ(screen().getindex(), 2);
    EXPECT_EQ(panel(1), "Butter is deleted.");
    press("Up");
    EXPECT_EQ(tree().currentIndex().data().toString(), "Dairy");
    press("Down");
    EXPECT_EQ(tree().currentIndex().data().toString(), "Milk");
    press("Delete");
    settle();
    EXPECT_EQ(tree().currentIndex().data().toString(), "Dairy");
}

TEST_F(ItemTree, AnItemInUseStaysOnNo) {
    put_household();
    use_item(1);
    open();
    choose_row("c1");
    platform.boxes.expect_message(used_by_porridge, Answer::no).buttons(Buttons::yes_no);
    command("item_toolbar_1_4");
    EXPECT_EQ(items[1].in_use, 1);
    EXPECT_EQ(screen().getindex(), 1);
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(ItemTree, AnItemInUseGoesToTheReplacementOnYes) {
    put_household();
    use_item(1);
    open();
    choose_row("c1");
    platform.calls.clear();
    platform.boxes.expect_message(used_by_porridge, Answer::yes);
    platform.replace_item.chosen = [](i16 row, i16) {
        items[row].in_use = 0;
        clear_item_record(row);
    };
    command("item_toolbar_1_4");
    EXPECT_EQ(platform.calls.entries, (std::vector<std::string>{"ReplaceItem 1 type 1"}));
    EXPECT_EQ(screen().getindex(), 0);
    EXPECT_EQ(rows(), "[Dairy] Butter Milk [General] ");
}

TEST_F(ItemTree, AReplacementThatWasClosedLeavesTheItemOnShow) {
    put_household();
    use_item(1);
    open();
    choose_row("c1");
    platform.boxes.expect_message(used_by_porridge, Answer::yes);
    command("item_toolbar_1_4");
    EXPECT_EQ(items[1].in_use, 1);
    EXPECT_EQ(screen().getindex(), 1);
    EXPECT_EQ(text("item_name"), "Rice");
}

TEST_F(ItemTree, CategoriesAreDeletedWhenNothingIsInThem) {
    put_household();
    put_catagory(4, "Empty");
    open();
    choose_row("r1");
    platform.boxes.expect_message("Can't Delete General Catagory.");
    command("item_toolbar_1_4");
    choose_row("r2");
    platform.boxes.expect_message("This category has items in it.  Cannot Delete.");
    command("item_toolbar_1_4");
    choose_row("r4");
    command("item_toolbar_1_4");
    EXPECT_EQ(catagories[4].in_use, 0);
    EXPECT_EQ(rows(), "[Dairy] Butter Milk [General] Rice ");
}

TEST_F(ItemTree, CopyAsksForTheCategoryAndShowsTheCopy) {
    put_household();
    open();
    choose_row("c2");
    command("item_toolbar_1_5");
    auto* dialog = screen().findChild<QDialog*>("copydialog");
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(part<QAction>("item_toolbar_1_4").isEnabled());
    EXPECT_EQ(dialog->findChild<QLabel*>("copy_name")->text(), "Milk");
    auto* list = dialog->findChild<QListWidget*>("copy_catagories");
    ASSERT_EQ(list->count(), 2);  // no category of recipes
    EXPECT_EQ(list->currentItem()->text(), "Dairy");
    list->setCurrentRow(1);
    EXPECT_EQ(list->currentItem()->text(), "General");
    QTest::keyClick(dialog->findChild<QWidget*>("button_ok"), Qt::Key_Return);
    settle();
    EXPECT_EQ(items[4].in_use, 1);
    EXPECT_EQ(items[4].category, 1);
    EXPECT_EQ(std::string(items[4].name.trimmed()), "Copy of Milk");
    EXPECT_EQ(screen().getindex(), 4);
    EXPECT_EQ(marked(), "c4");
    EXPECT_EQ(text("quantity"), "0.00");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_TRUE(part<QAction>("item_toolbar_1_4").isEnabled());
}

TEST_F(ItemTree, ACancelledCopyChangesNothing) {
    put_household();
    open();
    choose_row("c2");
    command("item_toolbar_1_5");
    auto* dialog = screen().findChild<QDialog*>("copydialog");
    ASSERT_NE(dialog, nullptr);
    QTest::keyClick(dialog, Qt::Key_Escape);
    settle();
    EXPECT_EQ(items[4].in_use, 0);
    EXPECT_EQ(screen().getindex(), 2);
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_TRUE(part<QAction>("item_toolbar_1_4").isEnabled());
}

TEST_F(ItemTree, CtrlCCopiesTheRow) {
    put_household();
    items[2].qty_units = 6;
    open();
    tree().setFocus();
    choose_row("c2");
    press("Ctrl+C");
    EXPECT_EQ(QApplication::clipboard()->text(), "Milk\t1.00 liter(s)\t");
}

TEST_F(ItemTree, TheMenuOfTheTreeOffersItsCommands) {
    put_household();
    open();
    choose_row("c1");
    std::vector<std::string> offered;
    QTimer::singleShot(0, &screen(), [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (const QAction* entry : menu->actions()) {
            if (!entry->isSeparator()) offered.push_back(entry->iconText().toStdString());
        }
        menu->close();
    });
    Q_EMIT tree().customContextMenuRequested(QPoint(4, 4));
    EXPECT_EQ(offered, (std::vector<std::string>{"New Item", "New Category", "Rename", "Copy",
                                                 "Barcode Picture", "Delete", "Expand Tree",
                                                 "Collapse Tree", "Count Texts"}));
}

TEST_F(ItemTree, ItemsAreDraggedByTheirNumber) {
    put_household();
    open();
    const std::unique_ptr<QMimeData> item(model().mimeData({model().index_of("c2")}));
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->text(), "i2");
    const std::unique_ptr<QMimeData> catagory(model().mimeData({model().index_of("r2")}));
    EXPECT_EQ(catagory, nullptr);
}

TEST_F(ItemTree, AScreenThatIsHiddenShowsWhatHasChangedMeanwhile) {
    put_household();
    open();
    click("close_screen");
    EXPECT_FALSE(screen().isVisible());
    EXPECT_TRUE(window.findChild<QWidget*>("StartPage")->isVisible());
    put_item(4, "Cream", 2, 1);
    end_of_step();
    open();
    EXPECT_EQ(rows(), "[Dairy] Butter Cream Milk [General] Rice ");
}

}  // namespace
}  // namespace tavernook
