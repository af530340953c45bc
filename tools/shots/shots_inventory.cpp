#include "shots/shots_inventory.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

#include "core/catagories.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "platform/platform.h"
#include "screens/frame/Main.h"
#include "screens/frame/register_screens.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

namespace {

struct Food {
    const char* name;
    const char* catagory;
    const char* unit;
    f64 quantity;
    f64 days_ago;
    f64 storage;
    f64 stock;
    f64 restock;
    const char* barcode;
    f64 cost;
    const char* store;
    i16 store_order;
    f64 serving_size;
    f64 servings;
    const char* description;
    std::array<f64, nutrient_count> nutrients;
    const char* notes;
    const char* locations;
};

// Names, groups, nutrition and serving weights come from the USDA National Nutrient Database for
// Standard Reference, release 28 (public domain); quantities, prices, stores, shelf lives and
// barcodes are synthetic.
// clang-format off
const Food foods[] = {
    {"Butter,With Salt", "Dairy and Egg Products", "each",
     3, 12, 30, 5, 3, "2000000010014", 7.83,
     "Corner Shop", 20, 5, 11, "Butter, salted",
     {4.056, 35.85, 10.75, 32.15, 1.2, 0.003, 0, 0.003, 0.0425},
     "Reference 01001; one serving is 1 pat (1' sq, 1/3' high)", "Freezer,Drawer 2"},
    {"Cheese,Cheddar", "Dairy and Egg Products", "each",
     1, 20, 90, 9, 0, "2000000010090", 15.78,
     "Butcher", 2, 132, 1, "Cheese, cheddar",
     {43.97, 533.3, 130.7, 862, 100.3, 4.079, 0, 0.6336, 30.19},
     "Reference 01009; one serving is 1 cup, diced", "Cellar"},
    {"Egg,Whl,Raw,Frsh", "Dairy and Egg Products", "each",
     9, 6, 7, 1, 1, "2000000011233", 19.91,
     "Wholesale", 17, 50, 7, "Egg, whole, raw, fresh",
     {4.755, 71.5, 186, 71, 69, 0.36, 0, 0.185, 6.28},
     "Reference 01123; one serving is 1 large", "Cellar"},
    {"Eggnog", "Dairy and Egg Products", "bottle(s)",
     0, 40, 180, 1, 1, "2000000010571", 22.96,
     "Corner Shop", 19, 254, 2, "Eggnog",
     {10.64, 223.5, 149.9, 137.2, 419.1, 20.45, 0, 20.45, 11.56},
     "Reference 01057; one serving is 1 cup", "Pantry,Shelf 1,Left"},
    {"Milk,Whl,3.25% Milkfat,W/ Added", "Dairy and Egg Products", "liter(s)",
     1.5, 9, 0, 3, 0, "2000000010779", 12.29,
     "Market Hall", 7, 244, 1, "Milk, whole, 3.25% milkfat, with added vitamin D",
     {7.93, 148.8, 24.4, 104.9, 322.1, 11.71, 0, 12.32, 7.686},
     "Reference 01077; one serving is 1 cup", "Cellar"},
    {"Yogurt,Vanilla,Non-Fat", "Dairy and Egg Products", "each",
     4, 3, 3, 9, 0, "2000000012957", 16.05,
     "Greengrocer", 4, 245, 5, "Yogurt, vanilla, non-fat",
     {0, 191.1, 7.35, 115.2, 345.4, 41.75, 0, 14.41, 7.203},
     "Reference 01295; one serving is 1 cup (8 fl oz)", "Freezer,Drawer 2"},
    {"Oil,Olive,Salad Or Cooking", "Fats and Oils", "bottle(s)",
     2, 60, 180, 3, 3, "2000000040530", 14.71,
     "Greengrocer", 11, 13.5, 8, "Oil, olive, salad or cooking",
     {13.5, 119.3, 0, 0.27, 0.135, 0, 0, 0, 0},
     "Reference 04053; one serving is 1 tablespoon", "Pantry,Shelf 1,Left"},
    {"Lentils,Raw", "Legumes and Legume Products", "kg(s)",
     1.25, 90, 0, 2, 2, "2000000160696", 18.33,
     "Butcher", 0, 192, 6, "Lentils, raw",
     {2.035, 675.8, 0, 11.52, 1300, 121.6, 20.54, 3.898, 47.29},
     "Reference 16069; one serving is 1 cup", "Fridge,Door"},
    {"Chickpea Flour (Besan)", "Legumes and Legume Products", "kg(s)",
     0.5, 30, 90, 0, 0, "2000000161570", 6.38,
     "Baker", 13, 92, 4, "Chickpea flour (besan)",
     {6.155, 356, 0, 58.88, 778.3, 53.19, 9.936, 9.982, 20.6},
     "Reference 16157; one serving is 1 cup", "Fridge,Door"},
    {"Pepper,Red Or Cayenne", "Spices and Herbs", "each",
     1, 200, 30, 8, 0, "2000000020310", 11.29,
     "Wholesale", 18, 1.8, 2, "Spices, pepper, red or cayenne",
     {0.3109, 5.724, 0, 0.54, 36.25, 1.019, 0.4896, 0.1861, 0.2162},
     "Reference 02031; one serving is 1 tsp", ""},
    {"Salmon,Chum,Raw", "Finfish and Shellfish Products", "kg(s)",
     0.8, 1, 90, 6, 3, "2000000150796", 18.69,
     "Market Hall", 13, 85, 7, "Fish, salmon, chum, raw",
     {3.204, 102, 62.9, 42.5, 364.6, 0, 0, 0, 17.12},
     "Reference 15079; one serving is 3 oz", "Cellar"},
    {"Apples,Raw,With Skin", "Fruits and Fruit Juices", "kg(s)",
     2.333333333, 4, 14, 4, 2, "2000000090030", 4.97,
     "Wholesale", 14, 125, 8, "Apples, raw, with skin",
     {0.2125, 65, 0, 1.25, 133.8, 17.26, 3, 12.99, 0.325},
     "Reference 09003; one serving is 1 cup, quartered or chopped", "Freezer,Drawer 2"},
    {"Oranges,Raw,California,Valencias", "Fruits and Fruit Juices", "kg(s)",
     1, 25, 30, 10, 0, "2000000092010", 2.27,
     "Wholesale", 17, 180, 9, "Oranges, raw, California, valencias",
     {0.54, 88.2, 0, 0, 322.2, 21.4, 4.5, 0, 1.872},
     "Reference 09201; one serving is 1 cup sections, without membranes", "Pantry,Shelf 1,Left"},
    {"Raisins,Golden Seedless", "Fruits and Fruit Juices", "each",
     2, 50, 365, 7, 0, "2000000092973", 20.66,
     "Wholesale", 20, 165, 12, "Raisins, golden seedless",
     {0.759, 498.3, 0, 19.8, 1231, 131.2, 6.6, 97.66, 5.594},
     "Reference 09297; one serving is 1 cup, packed", ""},
    {"Walnuts,English", "Nut and Seed Products", "each",
     1, 50, 7, 2, 2, "2000000121550", 19.71,
     "Market Hall", 14, 117, 1, "Nuts, walnuts, english",
     {76.3, 765.2, 0, 2.34, 516, 16.04, 7.839, 3.054, 17.82},
     "Reference 12155; one serving is 1 cup, chopped", "Freezer,Drawer 2"},
    {"Almonds", "Nut and Seed Products", "each",
     3, 50, 90, 2, 2, "2000000120614", 0.47,
     "Corner Shop", 3, 143, 6, "Nuts, almonds",
     {71.4, 828, 0, 1.43, 1048, 30.82, 17.88, 6.22, 30.24},
     "Reference 12061; one serving is 1 cup, whole", "Pantry,Shelf 1,Left"},
    {"Tomatoes,Red,Ripe,Raw,Year Rnd A", "Vegetables and Vegetable Product", "kg(s)",
     0.75, 5, 14, 9, 0, "2000000115290", 2.24,
     "Market Hall", 17, 149, 12, "Tomatoes, red, ripe, raw, year round average",
     {0.298, 26.82, 0, 7.45, 353.1, 5.796, 1.788, 3.919, 1.311},
     "Reference 11529; one serving is 1 cup cherry tomatoes", "Freezer,Drawer 2"},
    {"Beans,Snap,Grn,Ckd,Bld,Drnd,Wo/S", "Vegetables and Vegetable Product", "each",
     6, 80, 14, 8, 3, "2000000110530", 10.82,
     "Wholesale", 6, 125, 11, "Beans, snap, green, cooked, boiled, drained, without salt",
     {0.35, 43.75, 0, 1.25, 182.5, 9.85, 4, 4.537, 2.362},
     "Reference 11053; one serving is 1 cup", "Fridge,Door"},
    {"Crackers,Matzo,Whole-Wheat", "Baked Products", "each",
     2, 33, 0, 5, 0, "2000000182193", 5.11,
     "Market Hall", 18, 14.2, 6, "Crackers, matzo, whole-wheat",
     {0.213, 49.84, 0, 0.284, 44.87, 11.2, 1.676, 0, 1.86},
     "Reference 18219; one serving is 0.5 oz", ""},
    {"Sugars,Granulated", "Sweets", "kg(s)",
     3, 100, 180, 1, 0, "2000000193359", 13.88,
     "Greengrocer", 18, 2.8, 3, "Sugars, granulated",
     {0, 10.84, 0, 0.028, 0.056, 2.799, 0, 2.794, 0},
     "Reference 19335; one serving is 1 serving packet", "Freezer,Drawer 2"},
    {"Cocoa,Dry Pdr,Unswtnd", "Sweets", "each",
     1, 75, 90, 11, 3, "2000000191652", 13.09,
     "Market Hall", 20, 86, 9, "Cocoa, dry powder, unsweetened",
     {11.78, 196.1, 0, 18.06, 1311, 49.79, 31.82, 1.505, 16.86},
     "Reference 19165; one serving is 1 cup", ""},
    {"Jams&Preserves,Apricot", "Sweets", "each",
     2, 45, 0, 3, 1, "2000000197197", 7.44,
     "Greengrocer", 18, 20, 1, "Jams and preserves, apricot",
     {0.04, 48.4, 0, 8, 15.4, 12.88, 0.06, 8.68, 0.14},
     "Reference 19719; one serving is 1 tbsp", "Pantry,Shelf 1,Left"},
    {"Wheat,Soft White", "Cereal Grains and Pasta", "kg(s)",
     12, 14, 14, 8, 3, "2000000200750", 20.87,
     "Market Hall", 4, 168, 6, "Wheat, soft white",
     {3.343, 571.2, 0, 3.36, 730.8, 126.6, 21.34, 0.6888, 17.96},
     "Reference 20075; one serving is 1 cup", "Freezer,Drawer 2"},
    {"Bread,Cracked-Wheat", "Baked Products", "each",
     1, 2, 365, 10, 1, "2000000180250", 16.67,
     "Baker", 8, 28.35, 10, "Bread, cracked-wheat",
     {1.106, 73.71, 0, 152.5, 50.18, 14.03, 1.559, 0, 2.466},
     "Reference 18025; one serving is 1 oz", "Freezer,Drawer 2"},
    {"Puddings,Choc,Rte", "Sweets", "each",
     4, 8, 30, 10, 1, "2000000191836", 16.56,
     "Corner Shop", 1, 28.35, 2, "Puddings, chocolate, ready-to-eat",
     {1.304, 40.26, 0.2835, 43.09, 52.16, 6.523, 0, 4.868, 0.5925},
     "Reference 19183; one serving is 1 oz", "Fridge,Door"},
};
// clang-format on

constexpr std::array<const char*, nutrient_count> nutrient_units{
    "gram(s)", "kcal", "mg", "mg", "mg", "gram(s)", "gram(s)", "gram(s)", "gram(s)"};

i16 catagory_named(const char* name) {
    for (i16 row = 1; row <= catagory_capacity; ++row) {
        if (catagories[row].in_use == 1 && catagories[row].name == name) return row;
    }
    return new_catagory(name, -1, 0);
}

ItemValues values_of(const Food& food) {
    ItemValues values;
    values.name = food.name;
    values.quantity = std::to_string(food.quantity);
    values.stock_quantity = food.stock;
    values.storage_time = food.storage;
    values.restock_quantity = food.restock;
    values.cost = food.cost;
    values.qty_units = food.unit;
    values.serving_size = food.serving_size;
    values.serving_size_units = "gram(s)";
    values.servings_per_qty_unit = food.servings;
    values.store = food.store;
    values.store_order = food.store_order;
    values.category = catagory_named(food.catagory);
    values.last_restock_date = platform_clock().now() - food.days_ago;
    values.barcode = food.barcode;
    values.description = food.description;
    values.notes = food.notes;
    values.locations = food.locations;
    for (std::size_t i = 0; i < values.nutrients.size(); ++i) {
        values.nutrients[i] = {food.nutrients[i], nutrient_units[i]};
    }
    values.fat = food.nutrients[0];
    values.calories = food.nutrients[1];
    return values;
}

void fill_pantry() {
    for (const Food& food : foods) {
        const i16 item = create_item_from_form(values_of(food));
        lots[item].creation_date[0] -= food.days_ago;
        lots[item].expiration_date[0] -= food.days_ago;
    }
}

template <typename Widget>
Widget& part(QWidget& screen, const char* name) {
    return *screen.findChild<Widget*>(QLatin1String(name));
}

void take_copy(const TakePicture& take, QWidget& screen) {
    screen.findChild<QAction*>(QStringLiteral("item_toolbar_1_5"))->trigger();
    auto* dialog = screen.findChild<QDialog*>(QStringLiteral("copydialog"));
    take(QStringLiteral("copydialog"), *dialog);
    dialog->reject();
}

}  // namespace

void take_inventory_screens(Main& window, const TakePicture& take) {
    const QSize size = window.size();
    reset_project_tables();
    lots.clear();
    window.resize(1200, 800);
    QWidget& screen = *show_screen(QStringLiteral("FoodInventory"));
    take(QStringLiteral("FoodInventory_empty"), window);
    fill_pantry();
    food_inventory()->initialize_inv();
    take(QStringLiteral("FoodInventory_nothing_chosen"), window);
    food_inventory()->view_item(1, i16_true);
    take(QStringLiteral("FoodInventory_item"), window);
    part<QLineEdit>(screen, "stock_quantity").setText(QStringLiteral("a few"));
    part<QLineEdit>(screen, "filter").setText(QStringLiteral("ra"));
    take(QStringLiteral("FoodInventory_filter"), window);
    part<QLineEdit>(screen, "filter").clear();
    food_inventory()->initialize_inv();
    food_inventory()->populate_Alpha();
    food_inventory()->set_return(2);
    food_inventory()->view_item(12, i16_true);
    part<QLineEdit>(screen, "quantity_to_add").setText(QStringLiteral("8"));
    take(QStringLiteral("FoodInventory_list_return"), window);
    food_inventory()->set_return(0);
    food_inventory()->populate_tree();
    part<QPushButton>(screen, "exp_date").click();
    auto& calendar = part<QWidget>(screen, "month_box");
    take(QStringLiteral("FoodInventory_month_view"), calendar);
    calendar.hide();
    take_copy(take, screen);
    window.resize(900, 600);
    take(QStringLiteral("FoodInventory_small"), window);
    screen.parentWidget()->close();
    reset_project_tables();
    lots.clear();
    window.resize(size);
}

}  // namespace tavernook
