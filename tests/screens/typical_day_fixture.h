// A small household in a project of its own on the disk, with every real screen. It is Wednesday,
// 15 May 2024, 12:00; stock is taken at 18:30. Sums are in binary fractions, so that they are
// exact.
#pragma once

#include <QLineEdit>
#include <QMimeData>
#include <QTextEdit>
#include <array>
#include <memory>

#include "core/project_data.h"
#include "inventory/lots.h"
#include "screens/child_screen_fixture.h"
#include "screens/cookbook/Mealbuilder.h"
#include "screens/cookbook/recipe_tree_model.h"
#include "screens/pantry/item_tree_model.h"
#include "screens/planner/calendar_grid.h"

namespace tavernook {

class TypicalDay : public ChildScreenTest {
  protected:
    using Texts = std::vector<std::string>;

    static constexpr i16 flour = 3;
    static constexpr i16 milk = 4;
    static constexpr i16 eggs = 6;
    static constexpr i16 cream = 9;
    static constexpr i16 salt = 12;
    static constexpr i16 butter = 14;
    static constexpr i16 pancakes = 7;
    static constexpr i16 pudding = 9;

    static constexpr Date may_1 = 45413;
    static constexpr Date may_15 = 45427;
    static constexpr Date noon = 0.5;
    static constexpr int cell_of_may_15 = 17;
    static constexpr int cell_of_may_16 = 18;

    void SetUp() override {
        register_screens(window);
        window.resize(1280, 900);
        start();
        platform.disk.make_folder(platform.system.program + "/reports");
        platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
        press("Ctrl+N");
        put_settings();
        put_foods();
        put_recipes();
        project_modified = i16_true;
    }

    // --- the household -----------------------------------------------------------------------

    static void put_settings() {
        audit_hour = 18;
        audit_minute = 30;
        expiration_warning_days = 5;
        sales_tax = 7.5;
        stores[1].name = "Market";
        stores[1].in_use = 1;
    }

    struct Food {
        const char* name;
        const char* barcode;
        i16 unit;          // in stock
        i16 serving_unit;  // on a plate
        f64 serving_size;
        f64 servings;  // in one unit of the stock
        f64 cost;
        f64 stock;    // to fill up to
        f64 restock;  // at which it is bought
        i16 keeps;    // days
        Date bought;
        i16 calories;
        i16 fat;
    };

    static void put_food(i16 slot, const Food& food) {
        ItemRecord& item = items[slot];
        item.in_use = 1;
        item.name = food.name;
        item.barcode = food.barcode;
        item.category = 1;
        item.store = 1;
        item.qty_units = food.unit;
        item.serving_size_units = food.serving_unit;
        item.serving_size = food.serving_size;
        item.servings_per_qty_unit = food.servings;
        item.cost = food.cost;
        item.stock_quantity = food.stock;
        item.restock_quantity = food.restock;
        item.storage_time = food.keeps;
        item.last_restock_date = food.bought;
        item.calories = food.calories;
        item.fat = food.fat;
        init_lot_record(slot);
    }

    static void put_lot(i16 slot, std::size_t place, f64 quantity, Date made) {
        lots[slot].lot_quantity[place] = quantity;
        lots[slot].creation_date[place] = made;
        lots[slot].expiration_date[place] = made + items[slot].storage_time;
        items[slot].quantity += quantity;
    }

    // Butter's lots are past their date from the start, but no recipe takes any.
    // Units: 1 each, 2 Cup(s), 6 liter(s), 10 kg(s), 11 gram(s).
    static void put_foods() {
        put_food(flour, {"Flour", "9003", 10, 11, 125, 8, 1.2, 4, 1.5, 200, may_1, 440, 1});
        put_lot(flour, 0, 0.5, may_1);
        put_lot(flour, 1, 2, may_1 + 4);
        put_food(milk, {"Milk", "9004", 6, 2, 1, 4, 1.6, 6, 2, 14, may_1 + 9, 150, 8});
        put_lot(milk, 0, 0.75, may_1 + 3);
        put_lot(milk, 1, 1, may_1 + 6);
        put_lot(milk, 2, 1, may_1 + 9);
        put_food(eggs, {"Eggs", "9006", 1, 1, 1, 1, 0.3, 12, 6, 21, may_1 + 7, 70, 5});
        put_lot(eggs, 0, 12, may_1 + 7);
        put_food(cream, {"Cream", "9009", 6, 2, 1, 4, 2, 2, 0.5, 10, may_1 + 5, 200, 20});
        put_lot(cream, 0, 1, may_1 + 0.75);  // keeps until 11 May, 18:00
        put_lot(cream, 1, 1, may_1 + 5);
        put_food(salt, {"Salt", "9012", 10, 11, 1, 1000, 0.4, 0, 0, 400, may_1, 0, 0});
        put_lot(salt, 0, 3, may_1);
        put_food(butter, {"Butter", "9014", 10, 11, 10, 100, 8, 1, 0.5, 0, may_1, 75, 8});
        put_lot(butter, 0, 0.25, may_1);
        // In one gram of flour, in one cup of milk.
        item_details[flour].calories = 3.5;
        item_details[flour].fat = 0.25;
        item_details[milk].calories = 150.5;
        item_details[milk].fat = 8.25;
    }

    static void put_ingredient(i16 recipe, std::size_t place, i16 item, f64 servings) {
        meals[recipe].ingredient_item[place] = item;
        meals[recipe].ingredient_qty[place] = servings;
    }

    static void put_recipes() {
        meals[pancakes].name = "Pancakes";
        meals[pancakes].in_use = 1;
        meals[pancakes].serving_size_units = 1;
        meal_serving_size[pancakes] = 2;
        put_ingredient(pancakes, 1, flour, 4);
        put_ingredient(pancakes, 2, milk, 2);
        put_ingredient(pancakes, 3, eggs, 3);
        put_ingredient(pancakes, 4, salt, 0);
        meals[pudding].name = "Pudding";
        meals[pudding].in_use = 1;
        meals[pudding].serving_size_units = 2;
        meal_serving_size[pudding] = 4;
        put_ingredient(pudding, 1, cream, 2);
        put_ingredient(pudding, 2, eggs, 2);
        put_ingredient(pudding, 3, milk, 4);
    }

    // --- what the user does ------------------------------------------------------------------

    void open_planner() { open("MealPlan"); }
    void open_shopping_list() { open("ShoppingList"); }
    void open_recipes() { open("Mealbuilder"); }
    void open_inventory() { open("FoodInventory"); }

    CalendarGrid& grid() { return part<CalendarGrid>("calendar_grid"); }
    QTreeView& day_list() { return part<QTreeView>("lv2"); }
    QTreeView& shopping() { return part<QTreeView>("shopping_list"); }
    std::string label(const char* name) { return part<QLabel>(name).text().toStdString(); }
    void trigger(const char* name) { part<QAction>(name).trigger(); }

    void click_cell(int cell) {
        QTest::mouseClick(&grid(), Qt::LeftButton, {}, grid().cell_rect(cell).center());
    }

    // A scanner types where the focus is and ends with Enter.
    void scan(const char* code) {
        type(code);
        press("Return");
    }

    // The item's row as its tree offers it to a drag.
    std::unique_ptr<QMimeData> row_of_item(i16 item) {
        open_inventory();
        const QAbstractItemModel& model = *part<QTreeView>("item_tree").model();
        const QModelIndex index =
            static_cast<const ItemTreeModel&>(model).index_of(QStringLiteral("c%1").arg(item));
        if (!index.isValid()) throw std::runtime_error("no such item in the tree");
        return std::unique_ptr<QMimeData>(model.mimeData({index}));
    }

    // Drags over the cell of the calendar and lets go there.
    bool drop_on_cell(int cell, const QMimeData& data) {
        const QPoint place = grid().cell_rect(cell).center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&grid(), &enter);
        QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&grid(), &move);
        if (!enter.isAccepted() || !move.isAccepted()) return false;
        QDropEvent let_go(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&grid(), &let_go);
        return let_go.isAccepted();
    }

    void choose_recipe(i16 recipe) {
        auto& tree = part<QTreeView>("recipe_tree");
        const auto& model = static_cast<const RecipeTreeModel&>(*tree.model());
        tree.setCurrentIndex(model.index_of(QStringLiteral("%1c").arg(recipe)));
        settle();
    }
    QTextEdit& recipe_text() { return *part<QWidget>("recipe_pane").findChild<QTextEdit*>(); }

    // The clock comes to a moment of that day, and both timers tick. Where it is the second one's
    // turn, as on a machine that was slow so far, that one ticks before.
    void let_time_come(Date day, int hour, int minute) {
        platform.clock.time = day + (hour * 60 + minute) / 1440.0 + 10.0 / 86400.0;
        const bool ticked = tick("timer_1") || (tick("timer_2") && tick("timer_1"));
        EXPECT_TRUE(ticked);
        EXPECT_TRUE(tick("timer_2"));
        settle();
    }

    // --- what is there -----------------------------------------------------------------------

    // The cells of every row that stand in these columns, with blanks between.
    static Texts rows(const QAbstractItemView& list, const std::vector<int>& columns) {
        Texts found;
        for (int row = 0; row < list.model()->rowCount(); ++row) {
            QStringList cells;
            for (const int column : columns) {
                cells << list.model()->index(row, column).data().toString();
            }
            found.push_back(cells.join(' ').toStdString());
        }
        return found;
    }
    Texts plan_shown() { return rows(day_list(), {0, 1, 2}); }
    Texts totals_shown() {
        return {label("calories_total"), label("fat_total"), label("cost_total")};
    }
    Texts shopping_shown() { return rows(shopping(), {0, 4, 7}); }
    Texts recommended() { return rows(part<QTreeView>("recommendations"), {0, 1, 2}); }

    // Every lot of the item, the places behind the last one told being empty.
    static void expect_lots(i16 item, const std::vector<f64>& wanted, i16 current) {
        std::array<f64, 16> all{};
        f64 total = 0;
        for (std::size_t place = 0; place < wanted.size(); ++place) {
            all[place] = wanted[place];
            total += wanted[place];
        }
        EXPECT_EQ(lots[item].lot_quantity, all) << "item " << item;
        EXPECT_EQ(lots[item].current_lot, current) << "item " << item;
        EXPECT_EQ(items[item].quantity, total) << "item " << item;
    }
    static void expect_lot_dates(i16 item, std::size_t place, Date made, Date keeps_until) {
        EXPECT_EQ(lots[item].creation_date[place], made) << "item " << item;
        EXPECT_EQ(lots[item].expiration_date[place], keeps_until) << "item " << item;
    }
    static void expect_off_list(i16 item, f64 wanted_before) {
        EXPECT_EQ(items[item].on_shopping_list, 0) << "item " << item;
        EXPECT_EQ(items[item].shopping_quantity, wanted_before) << "item " << item;
    }
};

}  // namespace tavernook
