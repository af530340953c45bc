// Every entry of the popup menus that screens open: what it is called and what is so behind it.
// Each menu comes up in the ways that a user has, by the right button and by the keyboard, and the
// entry is chosen by its letter. The table is held against the screens both ways.
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QTableView>

#include "barcodes/scan_list.h"
#include "screens/frame/household_fixture.h"
#include "screens/pantry/LotView.h"
#include "screens/planner/calendar_grid.h"

namespace tavernook {
namespace {

class EveryPopup;

struct PopupRow {
    const char* popup;
    const char* name;
    const char* caption;
    void (EveryPopup::*does)();
};

enum class Way { right_button, keys };

class EveryPopup : public HouseholdTest,
                   public testing::WithParamInterface<std::tuple<PopupRow, Way>> {
  public:
    // --- a date of the planner: 16 May has soup

    void cuts_the_day() {
        choose_on_date(may_16);
        paste_on(may_20);
        EXPECT_TRUE(has_soup(20)) << panel(1);
        EXPECT_FALSE(has_soup(16));
    }
    void copies_the_day() {
        choose_on_date(may_16);
        paste_on(may_20);
        EXPECT_TRUE(has_soup(20) && has_soup(16));
    }
    void pastes_the_day() {
        open("MealPlan");
        click_cell(may_16);
        grid().setFocus();
        press("Ctrl+C");
        choose_on_date(may_20);
        EXPECT_TRUE(has_soup(20) && has_soup(16));
    }
    void deletes_the_day() {
        choose_on_date(may_16);
        EXPECT_FALSE(has_soup(16));
        EXPECT_EQ(panel(1), "The plan of Thursday, May 16 is deleted.");
    }
    void adds_an_item_to_the_day() {
        choose_on_date(may_20);
        EXPECT_TRUE(is_in_front("FoodInventory"));
        food_inventory()->view_item(flour, i16_true);
        window.registry().loaded("FoodInventory")->findChild<QAbstractButton*>("add_item")->click();
        const i16 day = live_day(20);
        ASSERT_NE(day, 0);
        EXPECT_EQ(days[day].planned_item[1], flour);
    }
    void adds_a_recipe_to_the_day() {
        choose_on_date(may_20);
        EXPECT_TRUE(is_in_front("Mealbuilder"));
        EXPECT_TRUE(window.registry().loaded("Mealbuilder")->findChild<QWidget*>("planner_notice"));
    }

    // --- the grocery list: four of flour

    void opens_the_inventory_for_the_list() {
        choose_on_list("ShoppingList", "shopping_list");
        EXPECT_TRUE(is_in_front("FoodInventory"));
        food_inventory()->view_item(milk, i16_true);
        items[milk].shopping_quantity = 3;
        window.registry().loaded("FoodInventory")->findChild<QAbstractButton*>("add_item")->click();
        EXPECT_EQ(items[milk].on_shopping_list, i16_true);
    }
    void takes_off_the_list() {
        choose_on_list("ShoppingList", "shopping_list");
        EXPECT_EQ(items[flour].on_shopping_list, i16_false);
        EXPECT_EQ(items[flour].shopping_quantity, 0);
        EXPECT_EQ(column(part<QTreeView>("shopping_list")), Texts{});
    }
    void adjusts_the_quantity_to_buy() {
        platform.boxes.expect_input("Current Quantity = 2\nEnter new quantity:", "Change Quantity",
                                    "4", "9");
        choose_on_list("ShoppingList", "shopping_list");
        EXPECT_EQ(items[flour].shopping_quantity, 9);
    }
    void adjusts_the_store_order() {
        platform.boxes.expect_input(
            "Current store order = 7\nEnter new store order:", "Change Store Order", "7", "11");
        choose_on_list("ShoppingList", "shopping_list");
        EXPECT_EQ(items[flour].store_order, 11);
    }
    // The menu of the titles; by the keyboard it comes from the button that is named after it.
    void switches_its_column() {
        open("ShoppingList");
        auto& list = part<QTreeView>("shopping_list");
        const QList<QAction*> entries = part<QMenu>("viewmenu").actions();
        const int column = static_cast<int>(entries.indexOf(&part<QAction>(row().name))) + 1;
        for (const bool hidden : {true, false}) {
            if (way() == Way::keys) {
                press_letter("Alt+N");
            } else {
                right_click(*list.header()->viewport(), QPoint(5, 5));
            }
            choose();
            EXPECT_EQ(list.isColumnHidden(column), hidden);
            EXPECT_EQ(part<QAction>(row().name).isChecked(), !hidden);
        }
    }

    // --- a row of the day, a recommendation

    void modifies_the_planned_quantity() {
        open("MealPlan");
        click_cell(may_16);
        platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "2", "5");
        choose_on_list("MealPlan", "lv2");
        EXPECT_EQ(day_quantities[1].meal_servings[1], 5);
    }
    void plans_the_recommendation() {
        platform.boxes.expect_input("Enter quantity to add", "Add Meal", "", "3");
        choose_on_list("MealPlan", "recommendations");
        EXPECT_TRUE(has_soup(15));
    }
    void shows_the_recommended_item() {
        choose_on_list("MealPlan", "recommendations");
        EXPECT_TRUE(is_in_front("FoodInventory"));
        EXPECT_EQ(food_inventory()->getindex(), milk);
    }
    void shows_the_recommended_recipe() {
        choose_on_list("MealPlan", "recommendations");
        EXPECT_TRUE(is_in_front("Mealbuilder"));
        EXPECT_EQ(mealbuilder()->get_mealid(), soup);
    }

    // --- the first lot of milk

    void deletes_the_lot() {
        choose_on_lot();
        EXPECT_EQ(lots[milk].lot_quantity[0], 0);
        EXPECT_EQ(items[milk].quantity, 0);
    }
    void modifies_the_lots_quantity() {
        platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "6", "4");
        choose_on_lot();
        EXPECT_EQ(lots[milk].lot_quantity[0], 4);
        EXPECT_EQ(items[milk].quantity, 4);
    }
    void modifies_the_lots_creation_date() {
        lots[milk].creation_date[0] = 45420;
        choose_on_lot();
        pick_day_before();
        EXPECT_EQ(lots[milk].creation_date[0], 45426);
    }
    void modifies_the_lots_expiration_date() {
        choose_on_lot();
        pick_day_before();
        EXPECT_EQ(lots[milk].expiration_date[0], 45426);
    }
    void makes_the_lot_the_current_one() {
        lots[milk].current_lot = 4;
        choose_on_lot();
        EXPECT_EQ(lots[milk].current_lot, 0);
    }

    // --- a scanned code

    void modifies_the_scanned_quantity() {
        scan_flour();
        platform.boxes.expect_input("Type new Quantity", "Modify Quantity", "1", "8");
        choose_on_list("CS1504GETUPC", "scan_list");
        EXPECT_EQ(scan_rows.at(0).quantity, "8");
    }
    void changes_the_scanned_lot() {
        scan_flour();
        platform.boxes.expect_input("Enter Lot Name", "Modify Lot", "Auto", "Lot C");
        choose_on_list("CS1504GETUPC", "scan_list");
        EXPECT_EQ(scan_rows.at(0).lot, "Lot C");
    }

    // --- a report of two items

    void sorts_by_name() {
        open("Reports");
        const Texts before = column(part<QTreeView>("report_list"));
        choose_on_report();
        Texts sorted = before;
        std::sort(sorted.begin(), sorted.end(), std::greater<>());
        EXPECT_EQ(column(part<QTreeView>("report_list")), sorted);  // a first click sorts downwards
        choose_on_report();
        std::reverse(sorted.begin(), sorted.end());
        EXPECT_EQ(column(part<QTreeView>("report_list")), sorted);
    }
    void sorts_by_manufacturer() {
        put_manufacturer(milk, 1, "Zeta Dairy");
        put_manufacturer(flour, 2, "Alpha Mill");
        open("Reports");
        choose_on_report();
        EXPECT_EQ(column(part<QTreeView>("report_list")), (Texts{"Milk", "Flour"}));
        choose_on_report();
        EXPECT_EQ(column(part<QTreeView>("report_list")), (Texts{"Flour", "Milk"}));
    }
    void shows_the_item_of_the_report() {
        choose_on_list("Reports", "report_list");
        EXPECT_TRUE(is_in_front("FoodInventory"));
        EXPECT_EQ(food_inventory()->getindex(), milk);
    }
    void shows_the_usage_of_the_item() {
        choose_on_list("Reports", "report_list");
        EXPECT_TRUE(is_in_front("PP"));
    }
    void asks_for_a_search_string() {
        platform.boxes.expect_input("Enter the Search String", "Search String", "*", "*milk*");
        choose_on_list("Reports", "row_list");
        EXPECT_EQ(column(part<QTreeView>("row_list"), 1).at(0), "*milk*");
    }
    void asks_for_a_logic_string() {
        platform.boxes.expect_input("Enter the Logic String (AND, OR, XOR)", "Logic String", "AND",
                                    "OR");
        choose_on_list("Reports", "row_list");
        EXPECT_EQ(column(part<QTreeView>("row_list"), 2).at(0), "OR");
    }
    void checks_the_field() {
        const auto is_checked = [this] {
            const QModelIndex field = part<QTreeView>("row_list").model()->index(2, 0);
            return field.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        };
        open("Reports");
        const bool before = is_checked();
        at_row_ = 2;  // the first one is always shown
        choose_on_list("Reports", "row_list");
        EXPECT_NE(is_checked(), before);
    }

  protected:
    static constexpr int may_16 = 18;  // cells of the month
    static constexpr int may_20 = 22;

    static const PopupRow& row() { return std::get<0>(GetParam()); }
    static Way way() { return std::get<1>(GetParam()); }

    static void right_click(QWidget& part, const QPoint& place) {
        QTest::mouseClick(&part, Qt::RightButton, {}, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, part.mapToGlobal(place));
        QCoreApplication::sendEvent(&part, &event);
    }
    void ask_for_menu_of(QAbstractItemView& list) {
        click_row(list, at_row_);
        list.setFocus();
        if (way() == Way::keys) return press("Shift+F10");
        const QRect place = list.visualRect(list.model()->index(at_row_, 0));
        right_click(*list.viewport(), place.center());
    }
    // By its letter, in the menu that has come up.
    void choose() {
        QMenu& menu = part<QMenu>(row().popup);
        ASSERT_EQ(QApplication::activePopupWidget(), &menu);
        press(letter_of(part<QAction>(row().name).text()).c_str());
        settle();
        if (QApplication::activePopupWidget() == nullptr) bring_in_front();
    }
    void choose_on_list(const char* on_screen, const char* list) {
        open(on_screen);
        ask_for_menu_of(part<QTreeView>(list));
        choose();
    }
    void choose_on_lot() {
        end_of_step();
        show_lot_view(milk);
        choose_on_list("LotView", "lot_list");
    }
    // In the menu of the report its sorts are a menu of their own.
    void choose_on_report() {
        ask_for_menu_of(part<QTreeView>("report_list"));
        ASSERT_EQ(QApplication::activePopupWidget(), &part<QMenu>("report_menu"));
        press(letter_of(part<QMenu>("Reports_Popup").title()).c_str());
        choose();
    }
    CalendarGrid& grid() { return part<CalendarGrid>("calendar_grid"); }
    void click_cell(int cell) {
        QTest::mouseClick(&grid(), Qt::LeftButton, {}, grid().cell_rect(cell).center());
    }
    void choose_on_date(int cell) {
        open("MealPlan");
        if (way() == Way::keys) {
            click_cell(cell);
            grid().setFocus();
            press("Shift+F10");
        } else {
            right_click(grid(), grid().cell_rect(cell).center());
        }
        choose();
    }
    void paste_on(int cell) {
        click_cell(cell);
        grid().setFocus();
        press("Ctrl+V");
    }
    static i16 live_day(i16 day) {
        for (i16 slot = 1; slot <= 20; ++slot) {
            if (days[slot].in_use != 0 && days[slot].month == 5 && days[slot].day == day) {
                return slot;
            }
        }
        return 0;
    }
    static bool has_soup(i16 day) {
        const i16 slot = live_day(day);
        return slot != 0 && days[slot].planned_meal[1] == soup;
    }
    void scan_flour() {
        open("CS1504GETUPC");
        part("Text1").setFocus();
        type("2222");
        press("Return");
    }
    static void put_manufacturer(i16 item, i16 text, const char* name) {
        pooled_strings[text] = name;
        item_details[item].manufacturer = text;
        end_of_step();
    }
    // Of today, where the calendar opens.
    void pick_day_before() {
        QWidget* days =
            QApplication::activePopupWidget()->findChild<QTableView*>("qt_calendar_calendarview");
        QTest::keyClick(days, Qt::Key_Left);
        QTest::keyClick(days, Qt::Key_Return);
    }

  private:
    int at_row_ = 0;  // of the list whose menu is wanted
};

using E = EveryPopup;

// clang-format off
const PopupRow popup_rows[] = {
    {"popmenu", "POPMenu_Cut", "Cut", &E::cuts_the_day},
    {"popmenu", "POPMenu_Paste", "Paste", &E::pastes_the_day},
    {"popmenu", "POPMenu_Delete", "Delete", &E::deletes_the_day},
    {"popmenu", "POPMenu_Copy", "Copy", &E::copies_the_day},
    {"popmenu", "popmenu_add_item", "Add Item", &E::adds_an_item_to_the_day},
    {"popmenu", "popmenu_add_meal", "Add Meal", &E::adds_a_recipe_to_the_day},

    {"popmenu2", "pop2_add", "Add Item", &E::opens_the_inventory_for_the_list},
    {"popmenu2", "pop2_remove", "Remove Item", &E::takes_off_the_list},
    {"popmenu2", "pop2_qty", "Adjust Quantity", &E::adjusts_the_quantity_to_buy},
    {"popmenu2", "pop2_so", "Adjust Store Order", &E::adjusts_the_store_order},

    {"viewmenu", "view_cat", "Catagory", &E::switches_its_column},
    {"viewmenu", "view_store", "Store", &E::switches_its_column},
    {"viewmenu", "view_so", "Store Order", &E::switches_its_column},
    {"viewmenu", "view_qty", "Quantity", &E::switches_its_column},
    {"viewmenu", "view_cpu", "Cost/Unit", &E::switches_its_column},
    {"viewmenu", "view_units", "Units", &E::switches_its_column},
    {"viewmenu", "view_sub", "Sub Total", &E::switches_its_column},

    {"mealplanpop", "mealplan_mod_qty", "Modify Quantity", &E::modifies_the_planned_quantity},

    {"LotviewpOP", "lot_delete", "Delete Lot", &E::deletes_the_lot},
    {"LotviewpOP", "lot_quantity", "Modify Quantity", &E::modifies_the_lots_quantity},
    {"LotviewpOP", "lot_creation", "Modify Creation Date", &E::modifies_the_lots_creation_date},
    {"LotviewpOP", "lot_expiration", "Modify Expiration Date", &E::modifies_the_lots_expiration_date},
    {"LotviewpOP", "lot_current", "Set as Current Lot", &E::makes_the_lot_the_current_one},

    {"ScanList_POP", "modify_quantity", "Modify Quantity", &E::modifies_the_scanned_quantity},
    {"ScanList_POP", "change_lot", "Change Lot", &E::changes_the_scanned_lot},

    {"Recommendations_POPUP", "Recommend_Add_Meal", "Add Meal to Meal Plan", &E::plans_the_recommendation},
    {"Recommendations_POPUP", "Recommend_View_Item", "View Item Information", &E::shows_the_recommended_item},
    {"Recommendations_POPUP", "Recommend_View_Meal", "View Meal Information", &E::shows_the_recommended_recipe},

    {"Reports_Popup", "sort_item_name", "Item Name", &E::sorts_by_name},
    {"Reports_Popup", "sort_manufacturer", "Manufacturer", &E::sorts_by_manufacturer},

    {"report_menu", "report_view", "View Item", &E::shows_the_item_of_the_report},
    {"report_menu", "report_usage", "Item Usage", &E::shows_the_usage_of_the_item},

    {"row_menu", "row_search", "Search Str", &E::asks_for_a_search_string},
    {"row_menu", "row_logic", "Logic", &E::asks_for_a_logic_string},
    {"row_menu", "row_check", "Show in Report", &E::checks_the_field},
};
// clang-format on

std::string name_of_row(const testing::TestParamInfo<std::tuple<PopupRow, Way>>& given) {
    const auto& [row, way] = given.param;
    return std::string(row.name) + (way == Way::keys ? "_by_keys" : "_by_the_right_button");
}

TEST_P(EveryPopup, DoesWhatItsRowSays) {
    bring_household();
    (this->*row().does)();
    project_modified = i16_false;
}

INSTANTIATE_TEST_SUITE_P(OfTheScreens, EveryPopup,
                         testing::Combine(testing::ValuesIn(popup_rows),
                                          testing::Values(Way::right_button, Way::keys)),
                         name_of_row);

// --- the table against the screens
// -----------------------------------------------------------------

class PopupsInPlace : public HouseholdTest {
  protected:
    // Those of the layouts; what a screen puts together as it comes up has no name beforehand.
    std::map<std::string, Texts> found() {
        std::map<std::string, Texts> popups;
        for (const char* name : {"FoodInventory", "LotView", "Mealbuilder", "ShoppingList",
                                 "MealPlan", "Reports", "StoresForm", "UnitsForm", "wam", "PP",
                                 "BCBuild", "BCGEN", "CS1504GETUPC", "Calculator", "VII"}) {
            for (const QMenu* menu : open(name).findChildren<QMenu*>()) {
                if (menu->objectName().isEmpty()) continue;  // a toolbar's, for want of room
                for (const QAction* entry : menu->actions()) {
                    if (entry->isSeparator() || entry->objectName().isEmpty()) continue;
                    popups[menu->objectName().toStdString()].push_back(plain(entry->text()));
                }
                check_letters(*menu);
            }
        }
        return popups;
    }
    static void check_letters(const QMenu& menu) {
        std::set<std::string> letters;
        for (const QAction* entry : menu.actions()) {
            if (entry->isSeparator() || entry->objectName().isEmpty()) continue;
            const std::string letter = letter_of(entry->text());
            EXPECT_FALSE(letter.empty()) << entry->text().toStdString();
            EXPECT_TRUE(letters.insert(letter).second) << entry->text().toStdString();
        }
    }
};

TEST_F(PopupsInPlace, HoldWhatTheTableTellsInItsOrderAndEachHasItsLetter) {
    bring_household();
    std::map<std::string, Texts> told;
    for (const PopupRow& row : popup_rows) told[row.popup].push_back(row.caption);
    EXPECT_EQ(found(), told);
}

}  // namespace
}  // namespace tavernook
