#include "shots/shots_recipes.h"

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTimer>
#include <QTreeView>
#include <string>

#include "core/catagories.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "inventory/lots.h"
#include "planning/planner_state.h"
#include "platform/platform.h"
#include "recipes/documents.h"
#include "recipes/meals.h"
#include "rich_text/rtf_writer.h"
#include "screens/frame/Main.h"
#include "screens/frame/register_screens.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

namespace {

struct Food {
    const char* name;
    const char* unit;
    f64 serving_size;
    i16 calories;
    i16 fat;
    f64 cost;
    f64 servings;
};

// Nutrition and serving weights come from the USDA National Nutrient Database for Standard
// Reference, release 28 (public domain); prices are synthetic.
constexpr Food foods[] = {{"Milk,Whl,3.25% Milkfat", "gram(s)", 244, 149, 8, 1.29, 4},
                          {"Egg,Whl,Raw,Frsh", "gram(s)", 50, 72, 5, 2.49, 10},
                          {"Wheat Flour,White", "gram(s)", 125, 455, 1, 0.89, 8},
                          {"Butter,With Salt", "gram(s)", 14, 102, 12, 2.19, 16},
                          {"Sugars,Granulated", "gram(s)", 4, 16, 0, 1.05, 250},
                          {"Apples,Raw,With Skin", "gram(s)", 125, 65, 0, 2.8, 8}};

struct Dish {
    const char* name;
    const char* catagory;
};
constexpr Dish dishes[] = {{"Pancakes with Apples", "Breakfast"},
                           {"Porridge", "Breakfast"},
                           {"Lentil Soup", "Soups"},
                           {"Tomato Soup", "Soups"},
                           {"Apple Pie", "Cakes and Pies"},
                           {"Matzo Balls", ""},
                           {"Rice Pudding", "Desserts"}};

QImage picture_of_a_pancake() {
    QImage picture(240, 130, QImage::Format_RGB32);
    picture.fill(QColor(250, 244, 230));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(120, 70, 20), 3));
    painter.setBrush(QColor(226, 172, 92));
    painter.drawEllipse(QPoint(120, 72), 96, 40);
    painter.setBrush(QColor(250, 230, 130));
    painter.drawRect(104, 56, 34, 22);
    return picture;
}

std::string pancake_text() {
    QTextDocument document;
    document.setDefaultFont(QFont(QStringLiteral("Arial"), 10));
    document.setHtml(QStringLiteral(
        "<h1>Pancakes with Apples</h1>"
        "<p>Thin ones, as they were made in <i>Grandmother's</i> kitchen. <b>Twelve pieces.</b></p>"
        "<h2>What to Do</h2>"
        "<ul><li>Beat eggs, milk and flour; leave for half an hour.</li>"
        "<li>Cut the apples into slices as thin as a coin.</li>"
        "<li>Fry in butter, a ladle at a time, until both sides are golden.</li></ul>"
        "<p>Sprinkle with sugar and serve <u>at once</u>.</p>"));
    QTextCursor cursor(&document);
    cursor.movePosition(QTextCursor::End);
    cursor.insertBlock();
    cursor.insertImage(picture_of_a_pancake(), QStringLiteral("pancake.png"));
    return rtf::written(document);
}

void put_foods() {
    i16 slot = 0;
    for (const Food& food : foods) {
        ItemRecord& item = items[++slot];
        item.name = food.name;
        item.in_use = 1;
        item.category = 1;
        item.serving_size = food.serving_size;
        item.serving_size_units = 11;
        item.calories = food.calories;
        item.fat = food.fat;
        item.cost = food.cost;
        item.servings_per_qty_unit = food.servings;
        item.barcode = no_barcode;
    }
}

i16 catagory_of(const std::string& name) {
    if (name.empty()) return 0;
    for (i16 row = 1; row <= catagory_capacity; ++row) {
        const CatagoryRecord& present = catagories[row];
        if (present.type == recipe_category_type && present.name == name) return row;
    }
    return new_catagory(name, recipe_category_type,
                        name == "Cakes and Pies" ? catagory_of("Desserts") : i16{0});
}

void put_dishes() {
    for (const Dish& dish : dishes) new_meal(dish.name, catagory_of(dish.catagory));
    for (i16 item = 1; item <= 6; ++item) add_ingredient(item, item == 2 ? 3 : 2, 1);
    meal_serving_size[1] = 12;
    meals[1].serving_size_units = 1;
    store_document(1, pancake_text());
}

// Its box is answered as soon as it is there.
void take_unread_text(Main& window, const TakePicture& take) {
    meal_documents[2] = "*vk14nowhere.rtf";
    QTimer::singleShot(0, [] {
        if (QWidget* box = QApplication::activeModalWidget()) box->close();
    });
    mealbuilder()->set_meal(2);
    take(QStringLiteral("Mealbuilder_unread"), window);
}

}  // namespace

void take_recipe_screens(Main& window, const TakePicture& take) {
    const QSize size = window.size();
    reset_project_tables();
    lots.clear();
    window.resize(1200, 800);
    QWidget& screen = *show_screen(QStringLiteral("Mealbuilder"));
    take(QStringLiteral("Mealbuilder_empty"), window);
    screen.parentWidget()->close();
    put_foods();
    put_dishes();
    QWidget& filled = *show_screen(QStringLiteral("Mealbuilder"));
    take(QStringLiteral("Mealbuilder_nothing_chosen"), window);
    mealbuilder()->set_meal(1);
    auto* list = filled.findChild<QTreeView*>(QStringLiteral("ingredient_list"));
    list->setCurrentIndex(list->model()->index(1, 0));
    take(QStringLiteral("Mealbuilder_recipe"), window);
    filled.findChild<QLineEdit*>(QStringLiteral("filter"))->setText(QStringLiteral("soup"));
    take(QStringLiteral("Mealbuilder_filter"), window);
    filled.findChild<QLineEdit*>(QStringLiteral("filter"))->clear();
    take_unread_text(window, take);
    mealbuilder()->set_meal(1);
    window.resize(900, 620);
    take(QStringLiteral("Mealbuilder_small"), window);
    selected_day = 24;
    selected_month = 11;
    selected_year = 2026;
    mealbuilder()->set_return(ports::Mealbuilder::returns_to_planner);
    take(QStringLiteral("Mealbuilder_for_planner"), window);
    mealbuilder()->set_return(ports::Mealbuilder::returns_nowhere);
    filled.parentWidget()->close();
    reset_project_tables();
    lots.clear();
    window.resize(size);
}

}  // namespace tavernook
