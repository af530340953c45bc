// What the boxes of the item screen do with clicks and with commas, what the quantity to add comes
// to, and the count of the texts.
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>

#include "core/changes.h"
#include "core/project_data.h"
#include "core/string_storage.h"
#include "planning/planner_state.h"
#include "screens/pantry/food_inventory_fixture.h"
#include "screens/parts/guard.h"

namespace tavernook {
namespace {

constexpr const char* no_comma = "A location has no comma: commas separate the three of them.";

class BoxesOfTheForm : public FoodInventoryTest {
  protected:
    void SetUp() override {
        FoodInventoryTest::SetUp();
        put_item(1, "Rice", 1, 2);
        put_item(2, "Salt", 1, 1);
        items[1].locations = add_string("Cellar,Shelf,Left, behind");
        look_for_changes();
        open();
        choose_row("c1");
    }

    QLineEdit& location(int number) {
        return part<QLineEdit>(("location_" + std::to_string(number)).c_str());
    }
    static void paste(QLineEdit& box, const char* what) {
        QApplication::clipboard()->setText(QLatin1String(what));
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    }
};

// --- a click selects -------------------------------------------------------------------------

// The line of a box, or the box of many lines, with a way to ask what is selected.
struct TextOf {
    explicit TextOf(QWidget& box)
        : line(qobject_cast<QLineEdit*>(&box)), lines(qobject_cast<QPlainTextEdit*>(&box)) {
        if (auto* names = qobject_cast<QComboBox*>(&box)) line = names->lineEdit();
    }
    QWidget& clicked() const { return line != nullptr ? *line : *lines->viewport(); }
    QString selected() const {
        return line != nullptr ? line->selectedText() : lines->textCursor().selectedText();
    }
    QLineEdit* line;
    QPlainTextEdit* lines;
};

TEST_F(BoxesOfTheForm, TheFirstClickIntoABoxSelectsItsTextAndTheNextOneDoesNot) {
    screen().set_return(1);
    const char* const names[] = {"item_name",
                                 "quantity",
                                 "qty_units",
                                 "stock_quantity",
                                 "restock_quantity",
                                 "cost",
                                 "storage_time",
                                 "store",
                                 "store_order",
                                 "location_1",
                                 "location_2",
                                 "location_3",
                                 "servings_per_qty_unit",
                                 "serving_size",
                                 "serving_size_units",
                                 "fat",
                                 "fat_units",
                                 "protien",
                                 "protien_units",
                                 "manufacturer",
                                 "brand",
                                 "description",
                                 "notes",
                                 "quantity_to_add"};
    for (const char* name : names) enter(name, "123");
    for (const char* name : names) {
        const TextOf box(part<QWidget>(name));
        tree().setFocus();
        QTest::mouseClick(&box.clicked(), Qt::LeftButton, {}, QPoint(6, 6));
        settle();
        EXPECT_EQ(box.selected(), "123") << name;
        QTest::mouseClick(&box.clicked(), Qt::LeftButton, {}, QPoint(6, 6));
        settle();
        EXPECT_EQ(box.selected(), "") << name;
        tree().setFocus();
        part<QWidget>(name).setFocus(Qt::TabFocusReason);
        EXPECT_EQ(box.selected(), "123") << name;
    }
    platform.boxes.expect_message("Save the changes to \"123\"?", Answer::no);
    choose_row("c2");
}

TEST_F(BoxesOfTheForm, WhatTheFirstClickDrawsStaysSelected) {
    auto& box = part<QLineEdit>("item_name");
    tree().setFocus();
    QTest::mousePress(&box, Qt::LeftButton, {}, QPoint(6, 6));
    box.setSelection(1, 2);
    QTest::mouseRelease(&box, Qt::LeftButton, {}, QPoint(40, 6));
    settle();
    EXPECT_EQ(box.selectedText(), "ic");
}

TEST_F(BoxesOfTheForm, TheRightButtonSelectsNothing) {
    auto& box = part<QLineEdit>("item_name");
    tree().setFocus();
    QTest::mouseClick(&box, Qt::RightButton, {}, QPoint(6, 6));
    settle();
    EXPECT_EQ(box.selectedText(), "");
}

// --- no commas in a location -----------------------------------------------------------------

TEST_F(BoxesOfTheForm, ACommaTypedIntoALocationIsRefused) {
    for (const int number : {1, 2, 3}) {
        QLineEdit& box = location(number);
        box.setFocus();
        box.selectAll();
        type("Top");
        EXPECT_NE(panel(1), no_comma);
        type(",");
        EXPECT_EQ(box.text(), "Top");
        EXPECT_EQ(panel(1), no_comma);
        type(" left");
        EXPECT_EQ(box.text(), "Top left");
        box.undo();  // the comma has left nothing to undo
        EXPECT_EQ(box.text(), number == 3 ? "Left, behind" : number == 2 ? "Shelf" : "Cellar");
        box.redo();
        EXPECT_EQ(box.text(), "Top left");
        accept();
    }
    EXPECT_EQ(pooled_text(items[1].locations), "Top left,Top left,Top left");
}

TEST_F(BoxesOfTheForm, APasteIntoALocationComesWithoutItsCommas) {
    QLineEdit& box = location(1);
    box.setFocus();
    box.setSelection(0, 6);
    paste(box, "Attic, east, top");
    EXPECT_EQ(box.text(), "Attic east top");
    EXPECT_EQ(box.cursorPosition(), 14);
    EXPECT_EQ(panel(1), no_comma);
    box.setCursorPosition(5);
    paste(box, ",");
    EXPECT_EQ(box.text(), "Attic east top");
    EXPECT_EQ(box.cursorPosition(), 5);
    accept();
    EXPECT_EQ(pooled_text(items[1].locations), "Attic east top,Shelf,Left, behind");
}

TEST_F(BoxesOfTheForm, ALocationStoredWithCommasStaysUntilItIsEdited) {
    EXPECT_EQ(text("location_3"), "Left, behind");
    enter("cost", "4");
    accept();
    EXPECT_EQ(pooled_text(items[1].locations), "Cellar,Shelf,Left, behind");
    QLineEdit& box = location(3);
    box.setFocus();
    box.end(false);
    type("!,");
    EXPECT_EQ(box.text(), "Left, behind!");
    box.setSelection(0, 5);
    type("R");
    EXPECT_EQ(box.text(), "R behind!");
    accept();
    EXPECT_EQ(pooled_text(items[1].locations), "Cellar,Shelf,R behind!");
}

// --- what is added ---------------------------------------------------------------------------

class AddingAnItem : public BoxesOfTheForm {
  protected:
    void SetUp() override {
        BoxesOfTheForm::SetUp();
        units[20].name = "oz";
        units[20].in_use = 1;
        items[1].serving_size = 2;
        items[1].serving_size_units = 20;
        end_of_step();
    }
    static void put_recipe(i16 slot, const char* name) {
        meals[slot].name = name;
        meals[slot].in_use = 1;
        meal_serving_size[slot] = 1;
    }
    void show_recipe(i16 slot) {
        ASSERT_TRUE(window.registry().show("Mealbuilder"));
        settle();
        mealbuilder()->set_meal(slot);
        settle();
        open();
    }
    void add(i16 mode, const char* quantity) {
        open();
        screen().set_return(mode);
        enter("quantity_to_add", quantity);
        click("add_item");
    }
};

TEST_F(AddingAnItem, TheQuantityTellsWhatItComesTo) {
    screen().set_return(1);
    const auto& box = part<QLineEdit>("quantity_to_add");
    EXPECT_TRUE(part<QLabel>("amount_line").isVisible());
    EXPECT_EQ(text("amount_line"), "0 x 2 oz = 0 oz");
    part<QWidget>("quantity_to_add").setFocus();
    type("8");
    EXPECT_EQ(text("amount_line"), "8 x 2 oz = 16 oz");
    EXPECT_EQ(box.accessibleDescription(), "8 x 2 oz = 16 oz");
    type(",5");
    EXPECT_EQ(text("amount_line"), "8.5 x 2 oz = 17 oz");
    enter("quantity_to_add", "lots");
    EXPECT_EQ(box.accessibleDescription(),
              "This cannot be read as one number. It would count as 0.");
    enter("quantity_to_add", "3");
    items[1].serving_size = 0.1;
    end_of_step();
    EXPECT_EQ(text("amount_line"), "3 x 0.1 oz = 0.3 oz");
    items[1].serving_size_units = 0;
    end_of_step();
    EXPECT_EQ(text("amount_line"), "3 x 0.1 = 0.3");
    choose_row("r1");
    EXPECT_EQ(text("amount_line"), "");
}

TEST_F(AddingAnItem, TheShoppingListWorksOutAmountsByItself) {
    screen().set_return(4);
    EXPECT_EQ(text("amount_line"), "The shopping list works out how much to buy.");
    click("add_item");
    EXPECT_EQ(panel(1),
              "Rice is marked for the shopping list; it shows there once it has a quantity.");
    EXPECT_EQ(project_modified, i16_true);
    project_modified = i16_false;
    items[1].shopping_quantity = 2.5;
    screen().set_return(4);
    click("add_item");
    EXPECT_EQ(panel(1), "Rice: 2.5 on the list.");
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(AddingAnItem, ARecipeConfirmsWhatItGot) {
    put_recipe(5, "Pancakes");
    show_recipe(5);
    add(1, "8");
    EXPECT_EQ(meals[5].ingredient_item[1], 1);
    EXPECT_EQ(meals[5].ingredient_qty[1], 8);
    EXPECT_EQ(panel(1), "Rice is added to Pancakes: 8 x 2 oz = 16 oz.");
    add(3, "3");
    EXPECT_EQ(meals[5].ingredient_qty[1], 3);
    EXPECT_EQ(panel(1), "Rice in Pancakes is now 3 x 2 oz = 6 oz.");
    choose_row("c2");
    add(3, "3");
    EXPECT_EQ(panel(1), "Salt is not in Pancakes; nothing was changed.");
}

TEST_F(AddingAnItem, WhatARecipeDoesNotTakeIsNotConfirmed) {
    put_recipe(5, "Pancakes");
    for (std::size_t place = 1; place <= ingredient_places; ++place) {
        meals[5].ingredient_item[place] = 2;
    }
    show_recipe(5);
    platform.boxes.expect_message("Tavernook error: rt6:9. Contact Brenwyk Software.");
    add(1, "8");
    EXPECT_EQ(panel(1), "Nothing was added to Pancakes.");
    meals[5] = {};
    end_of_step();
    add(1, "8");
    EXPECT_EQ(panel(1), "No recipe is shown in the recipe manager.");
}

TEST_F(AddingAnItem, AScreenThatWasClosedGetsNothing) {
    add(1, "8");
    EXPECT_EQ(panel(1), "The recipe manager is closed; nothing was added.");
    add(3, "8");
    EXPECT_EQ(panel(1), "The recipe manager is closed; nothing was changed.");
    add(2, "8");
    EXPECT_EQ(panel(1), "The planner is closed; nothing was added.");
}

TEST_F(AddingAnItem, ADayConfirmsWhatItGot) {
    ASSERT_TRUE(window.registry().show("MealPlan"));
    settle();
    add(2, "8");
    ASSERT_EQ(days[current_day].planned_item[1], 1);
    EXPECT_EQ(day_quantities[current_day].item_quantity[1], 16);
    EXPECT_EQ(panel(1), "Rice is added to Wednesday, May 15: 8 x 2 oz = 16 oz.");
    add(2, "1");
    EXPECT_EQ(day_quantities[current_day].item_quantity[1], 18);
    EXPECT_EQ(panel(1), "Rice is added to Wednesday, May 15: 1 x 2 oz = 2 oz.");
}

TEST_F(AddingAnItem, WhatADayRefusesIsNotConfirmed) {
    days[3].in_use = 1;
    days[3].month = 5;
    days[3].day = 15;
    days[3].year = 2024;
    days[3].audited = i16_true;
    ASSERT_TRUE(window.registry().show("MealPlan"));
    settle();
    project_modified = i16_false;
    add(2, "8");
    EXPECT_EQ(days[3].planned_item[1], 0);
    EXPECT_EQ(panel(1), "Wednesday, May 15 is audited. Press \"Edit Audited Day\" first.");
    EXPECT_EQ(project_modified, i16_false);
}

// --- how many texts --------------------------------------------------------------------------

TEST_F(BoxesOfTheForm, TheTextsAreCountedFromTheMenuOfTheList) {
    add_string("Acme");
    tree().setFocus();
    bool came = false;
    QTimer::singleShot(0, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        came = true;
        platform.boxes.expect_message("There are currently 2 Strings names");
        auto& count = part<QAction>("count_texts");
        EXPECT_TRUE(menu->toolTipsVisible());
        for (int step = 0; step < 20 && menu->activeAction() != &count; ++step) press("Down");
        EXPECT_EQ(menu->activeAction(), &count);
        press("Return");
    });
    press("Shift+F10");
    EXPECT_TRUE(came);
    EXPECT_EQ(project_modified, i16_false);
}

}  // namespace
}  // namespace tavernook
