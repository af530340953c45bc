#include "shots/shots_shopping.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QTreeView>

#include "core/program_state.h"
#include "core/project_data.h"
#include "inventory/lots.h"
#include "platform/platform.h"
#include "screens/frame/Main.h"
#include "screens/frame/register_screens.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

namespace {

struct Food {
    const char* name;
    i16 catagory;
    i16 store;
    i16 store_order;
    i16 unit;
    f64 cost;
    f64 wanted;
};

constexpr const char* catagory_names[] = {"Vegetables", "Dairy", "Baked Products", "Household"};
constexpr const char* store_names[] = {"Corner Shop", "Market Hall", "Wholesale"};

// Synthetic. A unit is a row of a new project: 1 each, 6 liter(s), 10 kg(s), 12 bottle(s).
constexpr Food foods[] = {
    {"Potatoes,Floury", 2, 2, 4, 10, 1.2, 5},
    {"Onions,Yellow", 2, 2, 5, 10, 0.95, 1.5},
    {"Carrots", 2, 2, 6, 10, 1.1, 0},
    {"Milk,Whole", 3, 1, 2, 6, 1.15, 6},
    {"Butter,With Salt", 3, 1, 3, 1, 2.85, 2},
    {"Cheese,Cheddar", 3, 1, 3, 1, 4.4, 0},
    {"Bread,Cracked-Wheat", 4, 1, 1, 1, 3.2, 2},
    {"Flour,Wheat", 4, 3, 12, 10, 0.85, 10},
    {"Rolls,Sesame", 4, 1, 1, 1, 0.4, 12},
    {"Olive Oil,Extra Virgin", 1, 3, 8, 12, 8.95, 1},
    {"Vinegar,Cider", 1, 3, 8, 12, 2.3, 0},
    {"Dish Soap & Brushes", 5, 3, 20, 1, 3.75, 1},
    {"Paper Towels", 5, 3, 20, 1, 4.5, 3},
    {"Tomatoes,Crushed,Canned", 2, 3, 9, 1, 0.89, 8},
};

template <typename Rows, std::size_t count>
void name_rows(Rows& rows, const char* const (&names)[count], i16 first) {
    for (const char* name : names) {
        rows[first].name = name;
        rows[first].in_use = 1;
        ++first;
    }
}

void fill_list() {
    name_rows(catagories, catagory_names, 2);
    name_rows(stores, store_names, 1);
    i16 slot = 0;
    for (const Food& food : foods) {
        ItemRecord& item = items[++slot];
        item.name = food.name;
        item.in_use = 1;
        item.category = food.catagory;
        item.store = food.store;
        item.store_order = food.store_order;
        item.qty_units = food.unit;
        item.cost = food.cost;
        item.on_shopping_list = truth(food.wanted != 0);
        item.shopping_quantity = food.wanted;
        init_lot_record(slot);
    }
}

void refresh() {
    shopping_list()->populate_list();
    shopping_list()->populate_list2();
}

template <typename Widget>
Widget& part(QWidget& screen, const char* name) {
    return *screen.findChild<Widget*>(QLatin1String(name));
}

}  // namespace

void take_shopping_screens(Main& window, const TakePicture& take) {
    const QSize size = window.size();
    reset_project_tables();
    lots.clear();
    sales_tax = 7.5;
    window.resize(1200, 800);
    QWidget& screen = *show_screen(QStringLiteral("ShoppingList"));
    take(QStringLiteral("ShoppingList_empty"), window);
    fill_list();
    refresh();
    auto& list = part<QTreeView>(screen, "shopping_list");
    list.sortByColumn(3, Qt::AscendingOrder);
    list.sortByColumn(2, Qt::AscendingOrder);
    list.setCurrentIndex(list.model()->index(2, 0));
    take(QStringLiteral("ShoppingList"), window);
    list.setFocus();
    part<QLineEdit>(screen, "find_box").setText(QStringLiteral("bu"));
    take(QStringLiteral("ShoppingList_find"), window);
    part<QLineEdit>(screen, "find_box").setText(QStringLiteral("saffron"));
    for (const char* column : {"view_cat", "view_cpu", "view_units"}) {
        part<QAction>(screen, column).setChecked(false);
    }
    take(QStringLiteral("ShoppingList_few_columns"), window);
    part<QLineEdit>(screen, "find_box").clear();
    for (QAction* column : part<QMenu>(screen, "viewmenu").actions()) column->setChecked(true);
    window.resize(900, 600);
    take(QStringLiteral("ShoppingList_small"), window);
    screen.parentWidget()->close();
    reset_project_tables();
    lots.clear();
    sales_tax = 0;
    window.resize(size);
}

}  // namespace tavernook
