// A newcomer's tour: what each lesson tells to do is done, by the keys and buttons that it names,
// and what it says will be seen is there. It is Wednesday, 15 May 2024.
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QSpinBox>
#include <QTextEdit>
#include <QToolBar>
#include <algorithm>

#include "core/rows.h"
#include "inventory/items.h"
#include "recipes/meals.h"
#include "screens/aids/tutorial_fixture.h"
#include "screens/parts/catagory_tree_model.h"
#include "screens/planner/calendar_grid.h"

namespace tavernook {
namespace {

class NewcomersTour : public TutorialTest {
  protected:
    using Texts = std::vector<std::string>;

    static constexpr int may_31 = 33;  // cells of the calendar, behind the plans of the sample
    static constexpr int june_1 = 34;

    void SetUp() override {
        platform.clock.time = 45427.5;
        TutorialTest::SetUp();
    }

    // Reads on until the page that tells this.
    void read_to(const std::string& words) {
        for (int pages = 0; pages < 10 && page_shown().find(words) == std::string::npos; ++pages) {
            turn();
        }
        ASSERT_NE(page_shown().find(words), std::string::npos) << words;
    }

    // The words must stand on the page that is open.
    void told(const std::string& words) {
        EXPECT_NE(page_shown().find(words), std::string::npos) << words << "\n" << page_shown();
    }

    void press_toolbar(const char* name) {
        for (QToolBar* bar : window.findChildren<QToolBar*>()) {
            QWidget* button = bar->widgetForAction(&action(name));
            if (button == nullptr) continue;
            QTest::mouseClick(button, Qt::LeftButton);
            return settle();
        }
        FAIL() << name;
    }

    void type_into(const char* name, const char* text) {
        QWidget& box = part(name);
        box.setFocus(Qt::TabFocusReason);
        if (auto* line = qobject_cast<QLineEdit*>(&box)) line->selectAll();
        if (auto* list = qobject_cast<QComboBox*>(&box)) return list->setEditText(text);
        type(text);
    }

    void choose_in_tree(const char* tree_name, const QString& key) {
        auto& tree = part<QTreeView>(tree_name);
        const auto& model = static_cast<const CatagoryTreeModel&>(*tree.model());
        ASSERT_TRUE(model.index_of(key).isValid()) << key.toStdString();
        tree.setCurrentIndex(model.index_of(key));
        tree.setFocus();
        settle();
    }

    static bool is_from_a_market(const ItemRecord& item) {
        const std::string store(row_or_none(stores, item.store).name.right_trimmed());
        return store.find("Market") != std::string::npos ||
               store.find("market") != std::string::npos;
    }
    static bool has_nearly_run_out(const ItemRecord& item) { return item.quantity < 1; }
    template <typename Wanted>
    static int count_items(Wanted&& wanted) {
        int count = 0;
        for (i16 row = 1; row <= item_capacity; ++row) {
            if (is_live_row(items, row) && wanted(items[row])) ++count;
        }
        return count;
    }
    static i16 live_meal(const char* name) { return find_meal_by_name(name); }
    static i16 live_item(const char* name) { return find_item_by_name(name); }

    CalendarGrid& grid() { return part<CalendarGrid>("calendar_grid"); }
    void click_cell(int cell) {
        QTest::mouseClick(&grid(), Qt::LeftButton, {}, grid().cell_rect(cell).center());
        settle();
    }
    Texts plan() { return column(part<QTreeView>("lv2")); }

    // Finds by the box behind "Find", as the lessons tell.
    void find(const char* words) {
        press("Ctrl+F");
        EXPECT_EQ(focused(), "filter");
        type(words);
        press("Return");
        settle();
    }
};

TEST_F(NewcomersTour, AProjectOfYourOwn) {
    begin_lesson("lesson_new");
    read_to("\"New Project\"");
    told("Ctrl+N");
    read_to("type a name such as home");
    platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
    press_toolbar("toolbar_1_1");
    read_to("toolbars have come alive");
    EXPECT_NE(shown_title().find("home.tvk"), std::string::npos);
    for (const char* name : {"toolbar_1_7", "toolbar_1_8", "toolbar_1_9", "toolbar_2_1"}) {
        EXPECT_TRUE(action(name).isEnabled()) << name;
    }
    Texts present;
    for (const auto& unit : units) {
        if (unit.in_use == 1) present.push_back(std::string(unit.name.right_trimmed()));
    }
    for (const char* unit : {"Cup(s)", "liter(s)", "gram(s)"}) {
        EXPECT_EQ(std::count(present.begin(), present.end(), unit), 1) << unit;
    }
    read_to("press \"Item Inventory\"");
    press_toolbar("toolbar_1_7");
    EXPECT_TRUE(is_in_front("FoodInventory"));
    read_to("A star behind the name");
    told("Ctrl+S");
    stores[5].name = "Market";
    stores[5].in_use = 1;
    project_modified = i16_true;
    window.set_title(window.title());
    EXPECT_TRUE(shown_title().find("home.tvk*") != std::string::npos) << shown_title();
    press("Ctrl+S");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(shown_title().find('*'), std::string::npos);
    read_to("\"Close Project\"");
    choose("Alt+F", "mnuFile_Close");
    settle();
    EXPECT_EQ(project_open, i16_false);
}

TEST_F(NewcomersTour, OpeningAProject) {
    const std::string home = project_on_disk("home.tvk");
    begin_lesson("lesson_open");
    read_to("\"Open Project\"");
    told("Ctrl+O");
    platform.dialogs.expect_open("Open Project", home);
    press_toolbar("toolbar_1_2");
    read_to("then stands in the title");
    EXPECT_NE(shown_title().find("home.tvk"), std::string::npos);
    tick("timer_1");
    EXPECT_EQ(panel(3), "Ready");
    read_to("projects that you have opened stand at the end");
    EXPECT_TRUE(action("mnuRecentFile_1").isVisible());
    press("Ctrl+W");
    press("Alt+F");
    press("1");
    settle();
    bring_in_front(window);
    EXPECT_EQ(project_name, "home.tvk");
    read_to("\"Open the sample household\"");
    choose("Alt+F", "mnuFile_Close");
    settle();
    QTest::mouseClick(window.findChild<QPushButton*>("start_sample"), Qt::LeftButton);
    settle();
    EXPECT_EQ(project_name, "Sample17.tvk");
    EXPECT_NE(reader(), nullptr);
}

TEST_F(NewcomersTour, ItemsInYourKitchen) {
    begin_lesson("lesson_items");
    on("FoodInventory");
    EXPECT_EQ(part<QTreeView>("item_tree").model()->headerData(1, Qt::Horizontal), "In Stock");
    read_to("type spinach");
    part<QWidget>("item_tree").setFocus();
    find("spinach");
    EXPECT_EQ(part<QLineEdit>("item_name").text(), "Baby Spinach");
    press("Escape");
    EXPECT_EQ(part<QLineEdit>("filter").text(), "");
    read_to("\"Lot Track..\"");
    click("lot_track");
    settle();
    EXPECT_TRUE(is_in_front("LotView"));
    press("Escape");
    settle();
    EXPECT_FALSE(is_open("LotView"));
    on("FoodInventory");
    read_to("Alt+N");
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "Oat Drink");
    press("Alt+N");
    auto& name = part<QLineEdit>("item_name");
    ASSERT_TRUE(comes_true([&] { return name.text() == "Oat Drink"; }));
    read_to("box to box");
    type_into("quantity", "2");
    type_into("qty_units", "carton(s)");
    type_into("storage_time", "7");
    type_into("store", "Corner Shop");
    read_to("Ctrl+Enter");
    press("Ctrl+Return");
    settle();
    const i16 drink = live_item("Oat Drink");
    ASSERT_NE(drink, 0);
    EXPECT_EQ(items[drink].quantity, 2);
    EXPECT_EQ(items[drink].storage_time, 7);
    EXPECT_EQ(row_or_none(units, items[drink].qty_units).name.right_trimmed(), "carton(s)");
    EXPECT_EQ(row_or_none(stores, items[drink].store).name.right_trimmed(), "Corner Shop");
    type_into("stock_quantity", "4");
    press("Ctrl+Return");
    EXPECT_EQ(items[drink].stock_quantity, 4);
    EXPECT_EQ(panel(1), "Oat Drink is accepted.");
    read_to("\"Delete\"");
    on("FoodInventory");
    part<QAction>("item_toolbar_1_4").trigger();
    EXPECT_EQ(live_item("Oat Drink"), 0);
}

TEST_F(NewcomersTour, PlanningMeals) {
    begin_lesson("lesson_planner");
    on("MealPlan");
    click_cell(may_31);
    EXPECT_TRUE(plan().empty());
    read_to("Enter on the date");
    grid().setFocus();
    press("Return");
    settle();
    EXPECT_TRUE(is_in_front("Mealbuilder"));
    on("Mealbuilder");
    choose_in_tree("recipe_tree", QStringLiteral("%1c").arg(live_meal("Tomato Soup")));
    platform.boxes.expect_input("Meal Quantity to Add. 1 Servings = 1 Serving(s)", "Meal Quantity",
                                "1", "4");
    press("Return");
    settle();
    EXPECT_TRUE(is_in_front("MealPlan"));
    on("MealPlan");
    EXPECT_EQ(plan(), Texts{"Tomato Soup"});
    EXPECT_GT(part<QLabel>("calories_total").text().toDouble(), 0);

    read_to("\"Add Item to Day\"");
    part<QAction>("Toolbar2_2").trigger();
    settle();
    EXPECT_TRUE(is_in_front("FoodInventory"));
    food_inventory()->view_item(live_item("Apples"), i16_true);
    on("FoodInventory");
    EXPECT_EQ(plain(part<QPushButton>("add_item").text()), "Add Item to Day");
    type_into("quantity_to_add", "2");
    click("add_item");
    settle();
    on("MealPlan");
    EXPECT_EQ(plan(), (Texts{"Tomato Soup", "Apples"}));

    read_to("press F2");
    click_row(part<QTreeView>("lv2"), 1);
    platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "2", "3");
    press("F2");
    EXPECT_EQ(part<QTreeView>("lv2").model()->index(1, 1).data().toString(), "3");
    press("Delete");
    EXPECT_EQ(plan(), Texts{"Tomato Soup"});

    read_to("Ctrl+C and Ctrl+V");
    grid().setFocus();
    press("Ctrl+C");
    click_cell(june_1);
    EXPECT_TRUE(plan().empty());
    grid().setFocus();
    press("Ctrl+V");
    settle();
    EXPECT_EQ(plan(), Texts{"Tomato Soup"});

    read_to("\"Audit Now\"");
    press_toolbar("toolbar_2_6");
    part<QAction>("Toolbar1_2").trigger();
    settle();
    EXPECT_EQ(part<QLabel>("day_state").text(), "Audited: taken out of the stock");
    EXPECT_TRUE(part<QAction>("Toolbar2_4").isEnabled());
}

TEST_F(NewcomersTour, Recipes) {
    begin_lesson("lesson_recipes");
    on("Mealbuilder");
    part<QWidget>("recipe_tree").setFocus();
    find("tomato soup");
    EXPECT_EQ(part<QLabel>("recipe_heading").text(), "Tomato Soup");
    press("Escape");
    read_to("\"New Recipe\"");
    part<QWidget>("recipe_tree").setFocus();
    platform.boxes.expect_input("Enter a new recipe name", "New Recipe", "", "Carrot Soup");
    press("Alt+N");
    ASSERT_TRUE(comes_true([] { return live_meal("Carrot Soup") != 0; }));
    const i16 soup = live_meal("Carrot Soup");
    ASSERT_NE(soup, 0);
    EXPECT_EQ(meals[soup].category, meals[live_meal("Tomato Soup")].category);

    read_to("\"Add Item to Meal\"");
    click("add_ingredient_button");
    settle();
    food_inventory()->view_item(live_item("Carrots"), i16_true);
    on("FoodInventory");
    EXPECT_EQ(plain(part<QPushButton>("add_item").text()), "Add Item to Meal");
    type_into("quantity_to_add", "3");
    click("add_item");
    settle();
    on("Mealbuilder");
    EXPECT_EQ(column(part<QTreeView>("ingredient_list")), Texts{"Carrots"});
    EXPECT_EQ(meals[soup].ingredient_qty[1], 3);

    read_to("\"Serving Size\"");
    type_into("serving_size", "4");
    press("Return");
    settle();
    EXPECT_EQ(meal_serving_size[soup], 4);
    read_to("write how it is made");
    auto& text = *part<QWidget>("recipe_pane").findChild<QTextEdit*>();
    text.setFocus();
    type("Cook slowly.");
    EXPECT_EQ(text.toPlainText(), "Cook slowly.");
    read_to("\"Delete\"");
    choose_in_tree("recipe_tree", QStringLiteral("%1c").arg(soup));
    press("Delete");
    settle();
    EXPECT_EQ(live_meal("Carrot Soup"), 0);
}

TEST_F(NewcomersTour, YourSettings) {
    begin_lesson("lesson_setup");
    on("ProjectSetup");
    told("F6");
    in_reader<QPushButton>("next_button").setFocus();
    press("F6");
    EXPECT_TRUE(screen->isAncestorOf(QApplication::focusWidget())) << focused();
    read_to("\"Daily Inventory Update Time:\"");
    part<QComboBox>("hour_list").setCurrentIndex(7);
    part<QComboBox>("half_list").setCurrentIndex(1);
    read_to("\"Expiration Warning:\"");
    type_into("expiration_warning", "4");
    read_to("\"Sales Tax:\"");
    type_into("sales_tax", "7,5");
    read_to("\"Font Size:\"");
    part<QComboBox>("font_list").setCurrentIndex(3);
    read_to("\"Scanner with Keyboard Wedge\"");
    EXPECT_GE(part<QComboBox>("scanner_list").findText("No Scanner"), 0);
    read_to("\"OK\"");
    click("ok_button");
    settle();
    EXPECT_FALSE(is_open("ProjectSetup"));
    EXPECT_EQ(audit_hour, 20);
    EXPECT_EQ(expiration_warning_days, 4);
    EXPECT_EQ(sales_tax, 7.5F);
    EXPECT_EQ(font_size, 14);
    EXPECT_EQ(in_reader<QPlainTextEdit>("text_box").font().pointSize(), 14);
    click_in_reader("menu_button");
    EXPECT_NE(welcome(), nullptr);
}

TEST_F(NewcomersTour, Reports) {
    begin_lesson("lesson_reports");
    on("Reports");
    auto& found = part<QTreeView>("report_list");
    auto& rows = part<QTreeView>("row_list");
    const auto mark_field = [&](const char* name) {
        const Texts fields = column(rows);
        const auto at = std::find(fields.begin(), fields.end(), name);
        ASSERT_NE(at, fields.end()) << name;
        rows.setCurrentIndex(rows.model()->index(static_cast<int>(at - fields.begin()), 0));
        rows.setFocus();
    };
    press("F6");
    press("F5");
    settle();
    EXPECT_EQ(found.model()->rowCount(), 134);
    read_to("\"View None\"");
    const auto has_column = [&](const char* title) {
        const QAbstractItemModel& model = *found.model();
        for (int column = 0; column < model.columnCount(); ++column) {
            const QString shown = model.headerData(column, Qt::Horizontal).toString();
            if (shown == QLatin1String(title)) return !found.isColumnHidden(column);
        }
        return false;
    };
    click("view_none");
    part<QAction>("report_toolbar_1").trigger();
    settle();
    EXPECT_TRUE(has_column("Item"));
    EXPECT_FALSE(has_column("Store"));
    click("reset");
    part<QAction>("report_toolbar_1").trigger();
    settle();
    EXPECT_TRUE(has_column("Store"));
    read_to("\"Search Str\"");
    mark_field("Store");
    platform.boxes.expect_input("Enter the Search String", "Search String", "*", "*market*");
    press("F2");
    part<QAction>("report_toolbar_1").trigger();
    settle();
    EXPECT_EQ(found.model()->rowCount(), count_items(is_from_a_market));
    read_to("type <1");
    mark_field("Quantity");
    platform.boxes.expect_input("Enter the Search String", "Search String", "*", "<1");
    click("search_str");
    part<QAction>("report_toolbar_1").trigger();
    settle();
    EXPECT_EQ(found.model()->rowCount(), count_items([](const ItemRecord& item) {
                  return is_from_a_market(item) && has_nearly_run_out(item);
              }));
    read_to("\"Logic\"");
    mark_field("Quantity");
    rows.setCurrentIndex(rows.indexAbove(rows.currentIndex()));
    platform.boxes.expect_input("Enter the Logic String (AND, OR, XOR)", "Logic String", "AND",
                                "OR");
    click("logic");
    part<QAction>("report_toolbar_1").trigger();
    settle();
    EXPECT_EQ(found.model()->rowCount(), count_items([](const ItemRecord& item) {
                  return is_from_a_market(item) || has_nearly_run_out(item);
              }));
    read_to("title of a column");
    const auto click_title = [&] {
        QTest::mouseClick(found.header()->viewport(), Qt::LeftButton, {},
                          QPoint(found.header()->sectionViewportPosition(0) + 10, 8));
        settle();
        return column(found);
    };
    const Texts one_way = click_title();
    Texts turned = click_title();
    EXPECT_NE(one_way, turned);
    std::reverse(turned.begin(), turned.end());
    EXPECT_EQ(one_way, turned);
    EXPECT_TRUE(std::is_sorted(one_way.begin(), one_way.end()) ||
                std::is_sorted(one_way.rbegin(), one_way.rend()));
    read_to("\"Saved Reports\"");
    platform.boxes.expect_input("Configuration Name", "Configuration Save", "", "Nearly out");
    part<QAction>("report_toolbar_3").trigger();
    settle();
    EXPECT_EQ(part<QComboBox>("saved_reports").currentText().trimmed(), "Nearly out");
    read_to("That was the last lesson");
    click_in_reader("close_button");
    EXPECT_EQ(reader(), nullptr);
}

}  // namespace
}  // namespace tavernook
