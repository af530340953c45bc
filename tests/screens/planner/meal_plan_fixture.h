// The planner in a real main window with a project open, driven by mouse and keyboard. It is
// Wednesday, 15 May 2024, 12:00; the first cell of the calendar is Sunday, 28 April.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QSpinBox>

#include "core/project_data.h"
#include "fakes/fake_screens.h"
#include "inventory/lots.h"
#include "planning/day_clipboard.h"
#include "planning/day_plans.h"
#include "screens/child_screen_fixture.h"
#include "screens/parts/guard.h"
#include "screens/planner/MealPlan.h"
#include "screens/planner/calendar_grid.h"

namespace tavernook {

// Stands in for the recipe manager's window; the fixture's fake port hears what it is told.
class RecipesWindow : public QWidget {};

class MealPlanTest : public ChildScreenTest {
  protected:
    using Texts = std::vector<std::string>;

    static constexpr i16 milk = 3;   // a litre gives 4 servings of 250 grams
    static constexpr i16 flour = 8;  // a kilogram gives 10 servings of 100 grams
    static constexpr i16 soup = 7;   // for 4, with 2 servings of milk and 1 of flour
    static constexpr i16 pie = 9;    // for 1, without ingredients

    static constexpr int may_15 = 17;  // cells
    static constexpr int may_16 = 18;
    static constexpr int may_20 = 22;
    static constexpr int april_28 = 0;
    static constexpr int june_8 = 41;

    void SetUp() override {
        ChildScreenTest::SetUp();
        window.registry().add("Mealbuilder", [] { return new RecipesWindow; });
        put_item(milk, "Milk", 250, 4, 6);
        items[milk].cost = 2;
        item_details[milk].calories = 1.5;
        item_details[milk].fat = 0.25;
        items[milk].calories = 150;
        items[milk].fat = 8;
        items[milk].barcode = "4006381333931";
        put_item(flour, "Flour", 100, 10, 2);
        put_recipe(soup, "Soup", 4);
        meals[soup].ingredient_item[1] = milk;
        meals[soup].ingredient_qty[1] = 2;
        put_recipe(pie, "Pie", 1);
        window.resize(1200, 800);
    }

    static void put_item(i16 slot, const char* name, f64 serving_size, f64 servings, f64 quantity) {
        ItemRecord& item = items[slot];
        item.name = name;
        item.category = 1;
        item.in_use = 1;
        item.serving_size = serving_size;
        item.servings_per_qty_unit = servings;
        item.serving_size_units = 11;  // gram(s)
        item.quantity = quantity;
        item.barcode = no_barcode;
        init_lot_record(slot);
        lots[slot].lot_quantity[0] = quantity;
        lots[slot].expiration_date[0] = 46000;  // far off
    }

    static void put_recipe(i16 slot, const char* name, f64 yield) {
        meals[slot].name = name;
        meals[slot].in_use = 1;
        meals[slot].serving_size_units = 2;  // Cup(s)
        meal_serving_size[slot] = yield;
    }

    // A day of 2024 with nothing on it yet.
    static void put_day(i16 slot, i16 month, i16 day, i16 audited = 0) {
        days[slot].in_use = 1;
        days[slot].year = 2024;
        days[slot].month = month;
        days[slot].day = day;
        days[slot].audited = audited;
    }
    static void put_recipe_on(i16 slot, std::size_t place, i16 recipe, f64 servings) {
        days[slot].planned_meal[place] = recipe;
        day_quantities[slot].meal_servings[place] = servings;
    }
    static void put_item_on(i16 slot, std::size_t place, i16 item, f64 quantity) {
        days[slot].planned_item[place] = item;
        day_quantities[slot].item_quantity[place] = quantity;
    }

    void open_planner() {
        open("MealPlan");
        settle();
    }

    // The tables were changed by somebody else, whose step comes to its end.
    static void changed_elsewhere() { end_of_step(); }

    MealPlan& planner() { return static_cast<MealPlan&>(*screen); }
    CalendarGrid& grid() { return part<CalendarGrid>("calendar_grid"); }
    QLineEdit& entry() { return part<QLineEdit>("Text1"); }
    QTreeView& day_list() { return part<QTreeView>("lv2"); }
    QTreeView& recommended() { return part<QTreeView>("recommendations"); }
    std::string label(const char* name) { return part<QLabel>(name).text().toStdString(); }

    void click_cell(int cell) {
        QTest::mouseClick(&grid(), Qt::LeftButton, {}, grid().cell_rect(cell).center());
    }
    void trigger(const char* name) { part<QAction>(name).trigger(); }

    // As a scanner types: the keys go to whatever has the focus.
    void scan(const char* code, const char* end = "Return") {
        for (const char* letter = code; *letter != 0; ++letter) {
            QTest::keyClick(QApplication::focusWidget(), *letter);
        }
        press(end);
    }

    static std::string told_date() {
        return std::to_string(selected_month) + "/" + std::to_string(selected_day) + "/" +
               std::to_string(selected_year);
    }

    // Names and quantities of the day list, "Soup 2 Cup(s)".
    Texts plan_shown() {
        Texts rows;
        const auto& model = *day_list().model();
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList cells;
            for (int n = 0; n < 3; ++n) cells << model.index(row, n).data().toString();
            rows.push_back(cells.join(' ').toStdString());
        }
        return rows;
    }

    void select_row(int row) { click_row(day_list(), row); }

    // Opens a popup menu by its key and walks to the entry.
    void choose_in_popup(QWidget& receiver, const char* menu, const char* entry_name) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                                receiver.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&receiver, &event);
        auto& popup = part<QMenu>(menu);
        ASSERT_EQ(QApplication::activePopupWidget(), &popup);
        for (qsizetype step = 0; step <= popup.actions().size(); ++step) {
            if (popup.activeAction() == &part<QAction>(entry_name)) break;
            press("Down");
        }
        ASSERT_EQ(popup.activeAction(), &part<QAction>(entry_name));
        press("Return");
    }

    // Drags the text over the place and lets it go there where it is taken; false otherwise.
    static bool drop(QWidget& target, const QPoint& place, const char* text) {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&target, &enter);
        QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&target, &move);
        if (!enter.isAccepted() || !move.isAccepted()) {
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(&target, &leave);
            return false;
        }
        QDropEvent let_go(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&target, &let_go);
        return let_go.isAccepted();
    }
    bool drop_on_cell(int cell, const char* text) {
        return drop(grid(), grid().cell_rect(cell).center(), text);
    }
    bool drop_on_list(const char* text) {
        return drop(*day_list().viewport(), QPoint(10, 10), text);
    }

    CallLog calls;
    FakeMealbuilder recipes{calls};
};

}  // namespace tavernook
