// The sample must hold together and read like a home.
#include <cmath>
#include <set>

#include "aids/sample_fixture.h"
#include "core/project/file_management.h"
#include "core/string_storage.h"
#include "inventory/lots.h"
#include "recipes/roll_up.h"
#include "sample_files.h"

namespace tavernook {
namespace {

class SampleContent : public SampleTest {
  protected:
    void SetUp() override { open_sample(); }

    template <typename Work>
    void for_each_item(Work&& work) {
        for (int slot = 1; slot <= item_capacity; ++slot) {
            if (items[slot].in_use != 1) continue;
            SCOPED_TRACE(std::string(items[slot].name.trimmed()));
            work(to_i16(slot));
        }
    }
    template <typename Work>
    void for_each_recipe(Work&& work) {
        for (int slot = 1; slot <= meal_capacity; ++slot) {
            if (meals[slot].in_use != 1) continue;
            SCOPED_TRACE(std::string(meals[slot].name.trimmed()));
            work(slot);
        }
    }
    int count_live(const auto& table) {
        int count = 0;
        for (const auto& record : table) count += record.in_use == 1 ? 1 : 0;
        return count;
    }
    bool is_live_unit(i16 unit) { return unit > 0 && units[unit].in_use == 1; }

    // What an audit takes out for the days before `limit`: the amount of each item, by the
    // program's rule for planned days.
    std::map<i16, f64> planned_use(Date limit) {
        std::map<i16, f64> use;
        for (int slot = 1; slot <= day_capacity; ++slot) {
            const DayRecord& day = days[slot];
            if (day.in_use != 1 || day.audited != 0) continue;
            if (date_from_civil(day.year, day.month, day.day) >= limit) continue;
            for (std::size_t place = 1; place <= day_places; ++place) {
                add_use(use, day.planned_item[place], day_quantities[slot].item_quantity[place]);
                add_use_of_recipe(use, day.planned_meal[place],
                                  day_quantities[slot].meal_servings[place]);
            }
        }
        return use;
    }
    void add_use(std::map<i16, f64>& use, i16 planned, f64 amount) {
        if (planned == 0) return;
        use[planned] +=
            amount / (items[planned].serving_size * items[planned].servings_per_qty_unit);
    }
    void add_use_of_recipe(std::map<i16, f64>& use, i16 planned, f64 servings) {
        if (planned == 0) return;
        for (std::size_t place = 1; place <= ingredient_places; ++place) {
            const i16 used = meals[planned].ingredient_item[place];
            if (used == 0) continue;
            use[used] += meals[planned].ingredient_qty[place] * meal_serving_size[planned] /
                         items[used].servings_per_qty_unit * servings;
        }
    }

    f64 calories_per_serving(const char* name) {
        const i16 slot = recipe(name);
        return roll_up(meals[slot], meal_serving_size[slot]).calories / meal_serving_size[slot];
    }
};

TEST_F(SampleContent, AHouseholdOfTheRightSize) {
    EXPECT_GE(count_live(items), 115);
    EXPECT_LE(count_live(items), 140);
    EXPECT_EQ(count_live(meals), 28);
    EXPECT_EQ(count_live(stores), 4);
    EXPECT_EQ(count_live(days), 21);
    EXPECT_GE(count_live(catagories), 30);
}

TEST_F(SampleContent, TheUnitsOfANewProjectKeepTheirRows) {
    EXPECT_EQ(units[1].name, "each");
    EXPECT_EQ(units[2].name, "Cup(s)");
    EXPECT_EQ(units[13].name, "na");
    EXPECT_EQ(units[14].name, "lb(s)");
}

TEST_F(SampleContent, EveryReferenceOfAnItemLeadsSomewhere) {
    for_each_item([&](i16 slot) {
        const ItemRecord& record = items[slot];
        EXPECT_FALSE(record.name.blank());
        EXPECT_EQ(catagories[record.category].in_use, 1);
        EXPECT_NE(catagories[record.category].type, recipe_category_type);
        EXPECT_EQ(stores[record.store].in_use, 1);
        EXPECT_TRUE(is_live_unit(record.qty_units));
        EXPECT_TRUE(is_live_unit(record.serving_size_units));
        EXPECT_FALSE(pooled_text(record.locations).empty());
        EXPECT_GE(record.store_order, 1);
        EXPECT_LE(record.store_order, 20);
        EXPECT_GT(record.cost, 0);
        EXPECT_GT(record.serving_size, 0);
        EXPECT_GT(record.servings_per_qty_unit, 0);
        EXPECT_LE(record.restock_quantity, record.stock_quantity);
    });
}

TEST_F(SampleContent, TheQuantityIsTheSumOfTheLots) {
    int with_two_lots = 0;
    for_each_item([&](i16 slot) {
        ASSERT_LE(slot, lot_table_top);
        EXPECT_EQ(items[slot].quantity, lot_total(slot));
        EXPECT_EQ(lots[slot].active, i16_true);
        EXPECT_EQ(lots[slot].current_lot, 0);
        with_two_lots += lots[slot].lot_quantity[1] > 0 ? 1 : 0;
        for (std::size_t place = 0; place < lot_places; ++place) {
            EXPECT_EQ(lots[slot].lot_quantity[place] > 0, lots[slot].creation_date[place] > 0);
        }
    });
    EXPECT_GE(with_two_lots, 4);
}

TEST_F(SampleContent, BarcodesHaveRightCheckDigitsAndNoneTwice) {
    std::set<std::string> seen;
    int loose = 0;
    for_each_item([&](i16 slot) {
        const std::string barcode(items[slot].barcode.trimmed());
        if (barcode == no_barcode) {
            ++loose;
            return;
        }
        EXPECT_TRUE(make_sample::is_in_store_barcode(barcode)) << barcode;
        EXPECT_TRUE(seen.insert(barcode).second) << barcode;
    });
    EXPECT_GT(loose, 10);
    EXPECT_GT(seen.size(), 80U);
}

TEST_F(SampleContent, SomeThingsArePastTheirDateSomeNearSomeLow) {
    const Date now = platform.clock.time;
    int past = 0;
    int near = 0;
    int low = 0;
    for_each_item([&](i16 slot) {
        for (std::size_t place = 0; place < lot_places; ++place) {
            if (lots[slot].lot_quantity[place] == 0) continue;
            const Date good_until = lots[slot].expiration_date[place];
            if (items[slot].storage_time == 0) continue;
            past += good_until < now - 1 ? 1 : 0;
            near += good_until >= now - 1 && good_until < now + 4 ? 1 : 0;
        }
        low += items[slot].quantity <= items[slot].restock_quantity ? 1 : 0;
    });
    EXPECT_GE(past, 2);
    EXPECT_LE(past, 8);
    EXPECT_GE(near, 4);
    EXPECT_GE(low, 4);
}

// Buttermilk keeps for 14 days and was bought 17 days ago, so the whole level counts as missing;
// paper towels are low: 2 of 6 are left.
TEST_F(SampleContent, TheShoppingListIsWhatAScanWouldFind) {
    EXPECT_EQ(items[item("Buttermilk")].on_shopping_list, i16_true);
    EXPECT_EQ(items[item("Buttermilk")].shopping_quantity, 1);
    EXPECT_EQ(items[item("Paper Towels")].on_shopping_list, i16_true);
    EXPECT_EQ(items[item("Paper Towels")].shopping_quantity, 4);
    EXPECT_EQ(items[item("Whole Milk")].on_shopping_list, i16_false);
    int listed = 0;
    for_each_item([&](i16 slot) { listed += items[slot].on_shopping_list != 0 ? 1 : 0; });
    EXPECT_GE(listed, 8);
    EXPECT_LE(listed, 25);
}

TEST_F(SampleContent, SomeStockIsRecommendedForCooking) {
    EXPECT_GT(expiring_quantity(item("Buttermilk")), 0);
    EXPECT_GT(expiring_quantity(item("Baby Spinach")), 0);
    EXPECT_EQ(expiring_quantity(item("White Rice")), 0);
}

TEST_F(SampleContent, EveryRecipeIsMadeOfLiveItems) {
    for_each_recipe([&](int slot) {
        int ingredients = 0;
        for (std::size_t place = 1; place <= ingredient_places; ++place) {
            const i16 used = meals[slot].ingredient_item[place];
            if (used == 0) continue;
            ++ingredients;
            EXPECT_EQ(items[used].in_use, 1);
            EXPECT_GT(meals[slot].ingredient_qty[place], 0);
        }
        EXPECT_GE(ingredients, 4);
        EXPECT_EQ(catagories[meals[slot].category].in_use, 1);
        EXPECT_EQ(catagories[meals[slot].category].type, recipe_category_type);
        EXPECT_TRUE(is_live_unit(meals[slot].serving_size_units));
        EXPECT_GE(meal_serving_size[slot], 1);
    });
}

TEST_F(SampleContent, EveryRecipeHasItsDocument) {
    for_each_recipe([&](int slot) {
        const std::string& entry = meal_documents[slot];
        ASSERT_EQ(entry.substr(0, 5), "*vk14");
        const std::string document = read_whole_file(in_program("recipes/" + entry.substr(5)));
        EXPECT_NE(document.find(std::string(meals[slot].name.trimmed())), std::string::npos);
    });
    EXPECT_EQ(meal_documents[7], "*vk14sample17000007.rtf");
}

TEST_F(SampleContent, CategoriesHangOnLiveOnesOfTheirKind) {
    EXPECT_EQ(catagories[1].name, "General");
    int below_others = 0;
    for (const CatagoryRecord& category : catagories) {
        if (category.in_use != 1 || category.parent < 1) continue;
        ++below_others;
        EXPECT_EQ(catagories[category.parent].in_use, 1);
        EXPECT_EQ(catagories[category.parent].type, category.type);
    }
    EXPECT_GE(below_others, 10);
}

// Butter: 14.2 g at 717 kcal and 81.11 g of fat in 100 g; an egg: 50 g at 143 kcal.
TEST_F(SampleContent, FiguresAreOfOneServing) {
    const ItemDetailRecord& butter = item_details[item("Unsalted Butter")];
    EXPECT_DOUBLE_EQ(butter.calories, 101.81);
    EXPECT_DOUBLE_EQ(butter.fat, 11.52);
    EXPECT_EQ(units[butter.fat_units].name, "gram(s)");
    EXPECT_EQ(units[butter.calories_units].name, "kcal");
    EXPECT_EQ(items[item("Unsalted Butter")].calories, 102);
    EXPECT_DOUBLE_EQ(item_details[item("Eggs")].calories, 71.5);
    EXPECT_EQ(items[item("Eggs")].calories, 72);
    EXPECT_EQ(item_details[item("Dish Soap")].calories, 0);
}

// By hand from the figures of 100 g, each item's serving rounded to whole calories.
TEST_F(SampleContent, CaloriesOfFourRecipes) {
    // Half a cup of yogurt 118, half a cup of berries 42, half of 207 almonds, half of 64 honey.
    EXPECT_DOUBLE_EQ(calories_per_serving("Yogurt Bowl with Berries"), 118 + 42 + 103.5 + 32);
    // Lettuce 8, cucumber 8, tomato 22, feta 99, 2 x 10 olives, oil 119, a quarter of 17 lemon, a
    // quarter of 3 oregano.
    EXPECT_DOUBLE_EQ(calories_per_serving("Greek Salad"), 8 + 8 + 22 + 99 + 20 + 119 + 4.25 + 0.75);
    // Milk 149, 1 1/2 x 12 cocoa, half of 194 sugar, a quarter of 12 vanilla.
    EXPECT_DOUBLE_EQ(calories_per_serving("Hot Cocoa"), 149 + 18 + 97 + 3);
    // 10 x 102 butter, 5 x 194 sugar, 12 x 12 cocoa, 2 x 72 eggs, 12 vanilla, 2 x 114 flour,
    // 2 x 203 chocolate; 16 pieces.
    EXPECT_DOUBLE_EQ(calories_per_serving("Cocoa Brownies"),
                     (1020 + 970 + 144 + 144 + 12 + 228 + 406) / 16.0);
}

TEST_F(SampleContent, AmountsReadLikeARecipe) {
    const i16 slot = recipe("Banana Bread");
    const RollUp figures = roll_up(meals[slot], meal_serving_size[slot]);
    std::map<std::string, std::string> amounts;
    for (const auto& line : figures.ingredients) amounts[line.name] = line.amount;
    EXPECT_EQ(amounts["All-Purpose Flour"], "1.5 Cup(s)");
    EXPECT_EQ(amounts["Bananas"], "3 each");
    EXPECT_EQ(amounts["Unsalted Butter"], "6 tbsp(s)");
    EXPECT_EQ(figures.serving_size, "12");
    EXPECT_EQ(figures.unit, "slice(s)");
}

TEST_F(SampleContent, NoRecipeIsOutOfProportion) {
    for_each_recipe([&](int slot) {
        const f64 calories = roll_up(meals[slot], meal_serving_size[slot]).calories;
        const bool is_loaf = units[meals[slot].serving_size_units].name == "loaf";
        EXPECT_GT(calories / meal_serving_size[slot], 100);
        EXPECT_LT(calories / meal_serving_size[slot], is_loaf ? 2500 : 800);
    });
}

TEST_F(SampleContent, PlansReachFromAWeekAgoToTwoWeeksAhead) {
    const Date now = date_alone(platform.clock.time);
    std::set<int> planned;
    for (const DayRecord& day : days) {
        if (day.in_use != 1) continue;
        const int distance = static_cast<int>(date_from_civil(day.year, day.month, day.day) - now);
        EXPECT_TRUE(planned.insert(distance).second);
        EXPECT_EQ(day.audited != 0, distance < -1) << distance;
    }
    EXPECT_EQ(*planned.begin(), -7);
    EXPECT_EQ(*planned.rbegin(), 14);
    EXPECT_TRUE(planned.contains(-1));
    EXPECT_TRUE(planned.contains(0));
}

TEST_F(SampleContent, PlannedRecipesAndItemsAreLive) {
    for (int slot = 1; slot <= day_capacity; ++slot) {
        for (std::size_t place = 1; place <= day_places; ++place) {
            const i16 meal = days[slot].planned_meal[place];
            const i16 planned = days[slot].planned_item[place];
            if (meal != 0) {
                EXPECT_EQ(meals[meal].in_use, 1);
            }
            if (planned != 0) {
                EXPECT_EQ(items[planned].in_use, 1);
            }
            EXPECT_EQ(meal != 0, day_quantities[slot].meal_servings[place] > 0);
            EXPECT_EQ(planned != 0, day_quantities[slot].item_quantity[place] > 0);
        }
    }
}

// The first audit takes yesterday and today out of the stock, and nothing is short.
TEST_F(SampleContent, TheFirstAuditFindsEverythingInStock) {
    const std::map<i16, f64> use = planned_use(date_alone(platform.clock.time) + 1);
    EXPECT_GE(use.size(), 15U);
    for (const auto& [used, amount] : use) {
        EXPECT_LE(amount, items[used].quantity) << items[used].name.trimmed();
    }
    // Four plates of spaghetti with four ounces of beef each are a pound.
    EXPECT_DOUBLE_EQ(use.at(item("Ground Beef")), 1);
    EXPECT_DOUBLE_EQ(use.at(item("Apples")), 6);
}

TEST_F(SampleContent, TheStockLastsForTheWeekAhead) {
    for (const auto& [used, amount] : planned_use(date_alone(platform.clock.time) + 7)) {
        EXPECT_LE(amount, items[used].quantity + 1e-9) << items[used].name.trimmed();
    }
}

TEST_F(SampleContent, ASaveKeepsTheFileAsItIs) {
    const std::string before = read_whole_file(in_program("sample17.tvk"));
    ASSERT_TRUE(Project_Save(1));
    EXPECT_TRUE(read_whole_file(in_program("sample17.tvk")) == before);
}

}  // namespace
}  // namespace tavernook
