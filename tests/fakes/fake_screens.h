// The ports of the screens as records: every call in a log, the screen loaded as long as the fake
// lives.
#pragma once

#include <functional>
#include <string>

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
    void populate_tree() override { calls_.add("FoodInventory populate_tree"); }
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

    void populate_tree() override { calls_.add("Mealbuilder populate_tree"); }

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
