// Random audits, bookings, additions by hand and restorations: behind each step every item's
// quantity is the sum of its lots. Where an item is to be bought up to less than there is, the
// amount to buy is negative and so is its lot; only then the scan shows a negative sum as 0.
#include <algorithm>

#include "core/project/audit_fixture.h"
#include "shopping/shopping_list.h"

namespace tavernook {
namespace {

constexpr i16 shelf = 10;
constexpr i16 recipes = 4;
constexpr i16 planned_days = 6;

class Dice {
  public:
    explicit Dice(unsigned long long seed) : state_(seed) {}
    int below(int limit) {
        state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<int>((state_ >> 33U) % static_cast<unsigned>(limit));
    }
    i16 item() { return static_cast<i16>(1 + below(shelf)); }
    i16 recipe() { return static_cast<i16>(1 + below(recipes)); }
    i16 day() { return static_cast<i16>(1 + below(planned_days)); }
    bool one_in(int count) { return below(count) == 0; }

  private:
    unsigned long long state_;
};

// Counts what is told and forgets it.
class CountingBoxes : public Boxes {
  public:
    Answer message(std::string_view text, Buttons, std::string_view, DefaultButton) override {
        ++(text.starts_with("The quantity that you provided") ? refusals : errors);
        return Answer::ok;
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        return std::nullopt;
    }
    int refusals = 0;
    int errors = 0;
};

class QuietProgress : public ports::SaveProgress {
  public:
    void load(std::string_view, std::string_view) override {}
    void show() override {}
    void set_label(std::string_view) override {}
    void workbar(int) override {}
    void hide() override {}
    void unload() override {}
};

class StockProperty : public AuditTest {
  protected:
    StockProperty() {
        reset_project_tables();
        set_platform({.clock = &platform.clock,
                      .boxes = &boxes_,
                      .files = &platform.disk,
                      .system_info = &platform.system,
                      .save_progress = &progress_,
                      .main = &platform.main,
                      .screens = &platform.screens,
                      .replace_item = &platform.replace_item});
        expiration_warning_days = 3;
    }

    void stock_the_shelf(Dice& dice) {
        for (i16 item = 1; item <= shelf; ++item) {
            add_food(item, "Food", (1 + dice.below(5)) * 0.3, 1 + dice.below(7), 20);
            items[item].storage_time = static_cast<i16>(dice.below(20));
            items[item].stock_quantity = dice.below(4) == 0 ? 0 : 5.5 + dice.below(30) * 0.1;
            items[item].restock_quantity = dice.below(50) * 0.1;
        }
        // One that divides by 0, one that takes no part in plans, one from before lots.
        items[2].serving_size = 0;
        items[3].servings_per_qty_unit = 0;
        lots.clear();
        lots.grow(shelf - 1);
        for (i16 item = 1; item < shelf; ++item) first_lot_from_item(item);
    }

    void write_recipes(Dice& dice) {
        for (i16 recipe = 1; recipe <= recipes; ++recipe) {
            add_meal(recipe);
            meal_serving_size[recipe] = 0.5 + dice.below(6);
            for (std::size_t place = 1; place <= 5; ++place) {
                put(recipe, place, dice.item(), dice.below(12) * 0.1);
            }
        }
    }

    static void plan_anew(Dice& dice) {
        const i16 day = dice.day();
        days[day] = DayRecord{};
        add_day(day, static_cast<i16>(1 + dice.below(12)), static_cast<i16>(1 + dice.below(28)),
                2024);
        days[day].audited = truth(dice.one_in(4));
        for (std::size_t place = 1; place <= 2; ++place) {
            plan(day, place, dice.recipe(), dice.below(30) * 0.1);
            // The item that divides by 0 is planned seldom: it ends the audit.
            const i16 item = dice.item();
            if (item != 2 || dice.one_in(8)) plan_item(day, place, item, dice.below(40) * 0.1);
        }
    }

    void step(Dice& dice) {
        switch (dice.below(10)) {
            case 0:
                return audit_inventory();
            case 1:
                return build_shopping_list();
            case 2:
                book_list_into_stock();
                return;
            case 3:
                add_to_list(dice.item());
                return;
            case 4:
                add_recipe_to_list(dice.recipe());
                return;
            case 5:
                return restore(dice);
            case 6:
                return accept(dice.item());
            default:
                return plan_anew(dice);
        }
    }

    // On the list for what is missing, which is negative for an item that expires with more of it
    // on the shelf than is kept.
    void accept(i16 item) const {
        const bool more_than_enough = items[item].quantity > items[item].stock_quantity;
        if (negative_lots_ || !more_than_enough) update_shopping_flag(item);
    }

    // Of a recipe whose items divide by 0 nothing comes back, and it is told.
    void restore(Dice& dice) {
        const int told = boxes_.errors;
        const bool done = restore_day_meal_stock_quietly(dice.recipe(), dice.day(), 1);
        EXPECT_EQ(boxes_.errors, told + (done ? 0 : 1));
    }

    void expect_sums() const {
        for (i16 item = 1; item <= shelf; ++item) {
            if (item > lot_table_top) continue;
            f64 sum = 0;
            for (const f64 quantity : lots[item].lot_quantity) {
                EXPECT_TRUE(quantity >= 0 || negative_lots_) << "item " << item;
                sum += quantity;
            }
            const bool shown_as_0 = sum < 0 && items[item].quantity == 0;
            EXPECT_TRUE(items[item].quantity == sum || (shown_as_0 && negative_lots_))
                << "item " << item << ": " << items[item].quantity << ", lots " << sum;
        }
    }

    int full_shelves() const {
        int full = 0;
        for (i16 item = 1; item <= shelf; ++item) {
            const auto& held = lots[item].lot_quantity;
            full += item <= lot_table_top && std::count(held.begin(), held.end(), 0.0) == 0;
        }
        return full;
    }

    void run(int steps, unsigned long long seed) {
        Dice dice(seed);
        int full = 0;
        for (int number = 0; number < steps; ++number) {
            if (number % 2000 == 0) {
                stock_the_shelf(dice);
                write_recipes(dice);
            }
            platform.clock.time += 1.0 / 64;
            step(dice);
            expect_sums();
            ASSERT_FALSE(HasFailure()) << "step " << number;
            full += full_shelves() > 0;
            platform.calls.clear();
            platform.transcript.clear();
        }
        // A run that never comes into the corners proves nothing.
        EXPECT_GT(boxes_.refusals, steps / 100);
        EXPECT_GT(boxes_.errors, steps / 1000);
        EXPECT_GT(full, steps / 1000);
    }

    bool negative_lots_ = false;
    CountingBoxes boxes_;
    QuietProgress progress_;
};

TEST_F(StockProperty, EveryQuantityIsTheSumOfItsLots) {
    run(24'000, 20240515);
}

TEST_F(StockProperty, NegativeAmountsToBuyAreCountedToo) {
    negative_lots_ = true;
    run(24'000, 19991231);
}

}  // namespace
}  // namespace tavernook
