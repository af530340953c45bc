// The ports of the screens as records: every call in a log, the screen loaded as long as the fake
// lives.
#pragma once

#include <functional>
#include <string>

#include "basics/number_text.h"
#include "fakes/call_log.h"
#include "platform/platform.h"

namespace tavernook {

class FakeFoodInventory : public ports::FoodInventory {
  public:
    explicit FakeFoodInventory(CallLog& calls) : calls_(calls) { set_food_inventory(this); }
    ~FakeFoodInventory() override { set_food_inventory(nullptr); }

    i16 index = 0;

    i16 getindex() override { return index; }
    void view_item(i16 item, i16 select) override {
        calls_.add("FoodInventory view_item " + std::to_string(item) + " " +
                   std::to_string(select));
    }
    void set_return(i16 mode) override {
        calls_.add("FoodInventory set_return " + std::to_string(mode));
    }
    void set_view(i16 view) override {
        calls_.add("FoodInventory set_view " + std::to_string(view));
    }
    void new_item() override { calls_.add("FoodInventory new_item"); }
    void add_barcode(std::string_view barcode) override {
        calls_.add("FoodInventory add_barcode " + std::string(barcode));
    }
    void take_barcode(std::string_view barcode) override {
        calls_.add("FoodInventory take_barcode " + std::string(barcode));
    }
    void accept_item(bool is_new) override {
        calls_.add(is_new ? "FoodInventory accept_item new" : "FoodInventory accept_item");
    }
    void delete_food_item() override { calls_.add("FoodInventory delete_food_item"); }
    void initialize_inv() override { calls_.add("FoodInventory initialize_inv"); }
    void populate_tree() override { calls_.add("FoodInventory populate_tree"); }
    void populate_Alpha() override { calls_.add("FoodInventory populate_Alpha"); }
    void refresh_quantity() override { calls_.add("FoodInventory refresh_quantity"); }
    void refresh_stores() override { calls_.add("FoodInventory refresh_stores"); }
    void refresh_units() override { calls_.add("FoodInventory refresh_units"); }

  private:
    CallLog& calls_;
};

class FakeMealbuilder : public ports::Mealbuilder {
  public:
    explicit FakeMealbuilder(CallLog& calls) : calls_(calls) { set_mealbuilder(this); }
    ~FakeMealbuilder() override { set_mealbuilder(nullptr); }

    i16 recipe = 0;

    i16 get_mealid() override { return recipe; }
    void setid(i16 shown) override {
        recipe = shown;
        calls_.add("Mealbuilder setid " + std::to_string(shown));
    }
    void clear_document() override { calls_.add("Mealbuilder clear_document"); }
    void add_node(std::string_view parent_key, std::string_view key,
                  std::string_view name) override {
        calls_.add("Mealbuilder add_node " + std::string(parent_key) + " " + std::string(key) +
                   " " + std::string(name));
    }
    void select_node(std::string_view key) override {
        calls_.add("Mealbuilder select_node " + std::string(key));
    }
    void set_meal(i16 shown) override {
        recipe = shown;
        calls_.add("Mealbuilder set_meal " + std::to_string(shown));
    }
    void set_return(i16 mode) override {
        calls_.add("Mealbuilder set_return " + std::to_string(mode));
    }
    bool save_document() override {
        calls_.add("Mealbuilder save_document");
        return true;
    }
    void reread_document() override { calls_.add("Mealbuilder reread_document"); }
    void add_ingredient(i16 item, f64 quantity, i16 into) override {
        calls_.add("Mealbuilder add_ingredient " + amount_in(item, quantity, into));
    }
    void set_ingredient_qty(i16 item, f64 quantity, i16 into) override {
        calls_.add("Mealbuilder set_ingredient_qty " + amount_in(item, quantity, into));
    }
    void populate_tree() override { calls_.add("Mealbuilder populate_tree"); }
    void populate_tree_list(i16 shown) override {
        calls_.add("Mealbuilder populate_tree_list " + std::to_string(shown));
    }

  private:
    static std::string amount_in(i16 item, f64 quantity, i16 into) {
        return std::to_string(item) + " " + number_text(quantity) + " in " + std::to_string(into);
    }

    CallLog& calls_;
};

class FakeMealPlan : public ports::MealPlan {
  public:
    explicit FakeMealPlan(CallLog& calls) : calls_(calls) { set_meal_plan(this); }
    ~FakeMealPlan() override { set_meal_plan(nullptr); }

    void Add_Item(i16 item, f64 servings) override {
        calls_.add("MealPlan Add_Item " + std::to_string(item) + " " + number_text(servings));
    }
    bool add_meal(i16 recipe, f64 quantity) override {
        calls_.add("MealPlan add_meal " + std::to_string(recipe) + " " + number_text(quantity));
        return true;
    }
    void populate_day() override { calls_.add("MealPlan populate_day"); }
    void populate_days_Meals_Items() override { calls_.add("MealPlan populate_days_Meals_Items"); }
    void CalendarUpdate(i16 mode) override {
        calls_.add("MealPlan CalendarUpdate " + std::to_string(mode));
    }
    void set_firstcall() override { calls_.add("MealPlan set_firstcall"); }
    void populate_meal_recommendations() override {
        calls_.add("MealPlan populate_meal_recommendations");
    }
    void set_day_editable(bool editable) override {
        calls_.add(editable ? "MealPlan set_day_editable" : "MealPlan set_day_editable not");
    }
    void reset_day_totals() override { calls_.add("MealPlan reset_day_totals"); }
    std::string selected_day_key() override { return selected_key; }

    std::string selected_key;

  private:
    CallLog& calls_;
};

class FakeShoppingList : public ports::ShoppingList {
  public:
    explicit FakeShoppingList(CallLog& calls) : calls_(calls) { set_shopping_list(this); }
    ~FakeShoppingList() override { set_shopping_list(nullptr); }

    void populate_list() override { calls_.add("ShoppingList populate_list"); }
    void populate_list2() override { calls_.add("ShoppingList populate_list2"); }
    bool Build_HTMLlist(i16 size) override {
        calls_.add("ShoppingList Build_HTMLlist " + std::to_string(size));
        return builds;
    }

    bool builds = true;

  private:
    CallLog& calls_;
};

class FakeReports : public ports::Reports {
  public:
    explicit FakeReports(CallLog& calls) : calls_(calls) { set_reports(this); }
    ~FakeReports() override { set_reports(nullptr); }

    void search_engine() override { calls_.add("Reports search_engine"); }
    void populate_list() override { calls_.add("Reports populate_list"); }
    bool Build_HTML_Report_list(i16 size, bool border, std::string_view name) override {
        calls_.add("Reports Build_HTML_Report_list " + std::to_string(size) +
                   (border ? " with gridlines " : " ") + std::string(name));
        return builds;
    }

    bool builds = true;

  private:
    CallLog& calls_;
};

class FakeScanList : public ports::CS1504GETUPC {
  public:
    explicit FakeScanList(CallLog& calls) : calls_(calls) { set_scan_list(this); }
    ~FakeScanList() override { set_scan_list(nullptr); }

    void refresh_item(std::string_view barcode, std::string_view name, i16 item) override {
        calls_.add("CS1504GETUPC refresh_item " + std::string(barcode) + " " + std::string(name) +
                   " " + std::to_string(item));
    }
    void single_get() override { calls_.add("CS1504GETUPC single_get"); }
    void single_not_get() override { calls_.add("CS1504GETUPC single_not_get"); }

  private:
    CallLog& calls_;
};

class FakeReplaceItem : public ports::ReplaceItem {
  public:
    explicit FakeReplaceItem(CallLog& calls) : calls_(calls) {}

    // What the user does on the screen; nothing = closes it.
    std::function<void(i16 row, i16 type)> chosen;

    void ask_replacement(i16 row, i16 type) override {
        calls_.add("ReplaceItem " + std::to_string(row) + " type " + std::to_string(type));
        if (chosen) chosen(row, type);
    }

  private:
    CallLog& calls_;
};

}  // namespace tavernook
