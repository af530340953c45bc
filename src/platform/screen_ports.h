// What the logic and other screens may ask of a screen. Each port bears its screen's name; the
// accessor gives null while the screen is not loaded.
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook::ports {

class FoodInventory {
  public:
    virtual ~FoodInventory() = default;

    virtual i16 getindex() = 0;  // the item shown, 0 when none

    // A nonzero `select` marks the item in the tree, which is rebuilt.
    virtual void view_item(i16 item, i16 select) = 0;

    // What "Add Item to ..." does.
    enum ReturnMode : i16 {
        returns_nowhere = 0,
        adds_to_recipe = 1,
        adds_to_day = 2,
        sets_quantity_in_recipe = 3,
        adds_to_shopping_list = 4
    };
    virtual void set_return(i16 mode) = 0;
    virtual void set_view(i16 view) = 0;  // 0 the tree of categories, anything else one list
    virtual void new_item() = 0;
    virtual void add_barcode(std::string_view barcode) = 0;  // a new item that bears the code

    // The code for the item whose "Scan" button opened the scan list. Does nothing, told in the
    // message panel, when that item is not on show any more.
    virtual void take_barcode(std::string_view barcode) = 0;
    virtual void accept_item(bool is_new) = 0;
    virtual void delete_food_item() = 0;  // what is marked in the tree, an item or a category
    virtual void initialize_inv() = 0;    // shows no item
    virtual void populate_tree() = 0;
    virtual void populate_Alpha() = 0;
    virtual void refresh_quantity() = 0;  // the quantity box takes the stored quantity
    virtual void refresh_stores() = 0;
    virtual void refresh_units() = 0;
};

class Mealbuilder {
  public:
    virtual ~Mealbuilder() = default;

    virtual i16 get_mealid() = 0;        // the recipe shown, 0 when none
    virtual void setid(i16 recipe) = 0;  // it counts as shown; nothing is loaded
    virtual void clear_document() = 0;   // empties the pane; no file is touched

    // Keys: the root "r0", a category's row + "r", a recipe's slot + "c".
    virtual void add_node(std::string_view parent_key, std::string_view key,
                          std::string_view name) = 0;  // and makes it visible
    virtual void select_node(std::string_view key) = 0;

    // Selects the recipe's node and shows list and document; what was shown before is saved first.
    virtual void set_meal(i16 recipe) = 0;

    // Opened by the planner, which comes back to the front when this screen closes, or by nobody.
    enum ReturnMode : i16 { returns_nowhere = 0, returns_to_planner = 1 };
    virtual void set_return(i16 mode) = 0;

    // Writes the document shown, when it was changed, to its file. False when that failed.
    virtual bool save_document() = 0;

    // Its file has another content now: that is read, and what stood in the pane is gone.
    virtual void reread_document() = 0;

    virtual void add_ingredient(i16 item, f64 quantity, i16 recipe) = 0;
    virtual void set_ingredient_qty(i16 item, f64 quantity, i16 recipe) = 0;
    virtual void populate_tree() = 0;
    virtual void populate_tree_list(i16 recipe) = 0;
};

inline constexpr i16 month_in_view = 100;  // a mode of CalendarUpdate

class MealPlan {
  public:
    virtual ~MealPlan() = default;

    // Plan on the day shown; see planning/day_plans.
    virtual void Add_Item(i16 item, f64 servings) = 0;
    virtual bool add_meal(i16 recipe, f64 quantity) = 0;  // false: not planned, and it says why

    virtual void populate_day() = 0;               // the day of the selected date
    virtual void populate_days_Meals_Items() = 0;  // the list of current_day, then its totals
    virtual void CalendarUpdate(i16 mode) = 0;     // the grid; 100 (month_in_view) keeps its month
    virtual void set_firstcall() = 0;              // counts as not yet drawn
    virtual void populate_meal_recommendations() = 0;

    // The day list can be changed, on a plain background, or not, on a grey one.
    virtual void set_day_editable(bool editable) = 0;
    virtual void reset_day_totals() = 0;         // 0, 0 and a formatted 0
    virtual std::string selected_day_key() = 0;  // of the day list; empty when none is selected
};

class ShoppingList {
  public:
    virtual ~ShoppingList() = default;

    virtual void populate_list() = 0;
    virtual void populate_list2() = 0;

    // The page of the list with the columns that are shown. False, without a box, when it could
    // not be made: an older page is as it was.
    virtual bool Build_HTMLlist(i16 size) = 0;
};

class Reports {
  public:
    virtual ~Reports() = default;

    virtual void search_engine() = 0;
    virtual void populate_list() = 0;

    // The page of the list as it is shown. False, without a box, when it could not be made: an
    // older page is as it was.
    virtual bool Build_HTML_Report_list(i16 size, bool border, std::string_view name) = 0;
};

// The print preview. It shows the page that `set_htmlpath` named; see reports/preview.
class PP {
  public:
    virtual ~PP() = default;

    virtual void show_page() = 0;  // that page, in place of the one on show and its edits
};

// The scan list.
class CS1504GETUPC {
  public:
    virtual ~CS1504GETUPC() = default;

    virtual void refresh_item(std::string_view barcode, std::string_view name, i16 item) = 0;

    // One code is picked for the item inventory, by "Accept"; or codes are booked, as usual.
    virtual void single_get() = 0;
    virtual void single_not_get() = 0;
};

// The status window of an exchange: line by line what is done. It stays in sight behind the work,
// until the user closes it.
class ImportForm {
  public:
    virtual ~ImportForm() = default;

    // Comes up, empty and in front, with a button "Cancel". The rest of the program hears no user
    // meanwhile.
    virtual void begin(std::string_view caption) = 0;
    virtual void add_line(std::string_view text) = 0;  // and selects it
    virtual void workbar(int percent) = 0;

    // The user has pressed "Cancel". Lets the window hear the user.
    virtual bool is_cancelled() = 0;

    // The work is over, well or not: "Close" takes the place of "Cancel".
    virtual void end() = 0;
};

// Modal, over the screen in front.
class ReplaceItem {
  public:
    virtual ~ReplaceItem() = default;

    virtual void ask_replacement(i16 row, i16 type) = 0;
};

}  // namespace tavernook::ports
