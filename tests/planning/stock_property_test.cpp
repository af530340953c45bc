// Whatever is planned, released, deleted and copied, and whichever stock comes and goes meanwhile:
// each item's quantity stays the sum of its lots.
#include <functional>
#include <map>
#include <random>

#include "core/trap.h"
#include "planning/planning_fixture.h"
#include "planning/recommendations.h"

namespace tavernook {
namespace {

constexpr i16 item_count = 8;
constexpr i16 recipe_count = 6;
constexpr int date_count = 40;

class Chance {
  public:
    explicit Chance(unsigned seed) : engine_(seed) {}
    int below(int limit) { return static_cast<int>(engine_() % static_cast<unsigned>(limit)); }
    i16 slot(i16 last) { return static_cast<i16>(1 + below(last)); }

  private:
    std::mt19937 engine_;
};

// Answers at random and keeps count.
class RandomBoxes : public Boxes {
  public:
    explicit RandomBoxes(Chance& chance) : chance_(chance) {}
    Answer message(std::string_view text, Buttons buttons, std::string_view,
                   DefaultButton) override {
        ++counts[std::string(text.substr(0, 12))];
        if (buttons == Buttons::ok) return Answer::ok;
        return chance_.below(3) == 0 ? Answer::no : Answer::yes;
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        return std::to_string(chance_.below(4));
    }

    std::map<std::string, int> counts;

  private:
    Chance& chance_;
};

class StockProperty : public PlanningTest {
  protected:
    StockProperty() {
        Platform all{};
        all.clock = &platform.clock;
        all.boxes = &boxes_;
        all.files = &platform.files;
        all.system_info = &platform.system;
        all.main = &platform.main;
        set_platform(all);
        fill_pantry();
    }

    void run(int steps) {
        for (int step = 0; step < steps; ++step) {
            platform.clock.time += 1.0 / 1024;
            const Step& chosen =
                steps_[static_cast<std::size_t>(chance_.below(static_cast<int>(steps_.size())))];
            trap(chosen.work, [this](const Fault& fault) { ++faults_[fault.number]; });
            for (i16 item = 1; item <= lot_table_top; ++item) {
                ASSERT_EQ(items[item].quantity, lot_total(item))
                    << "item " << item << " after step " << step << ", " << chosen.name;
            }
            platform.files.start_over();
            platform.transcript.clear();
            platform.calls.clear();
        }
    }

    int boxes_that_began(const std::string& text) { return boxes_.counts[text.substr(0, 12)]; }

    std::map<int, int> faults_;

  private:
    struct Step {
        const char* name;
        std::function<void()> work;
    };

    // The last item has no lots yet; one has no serving size, one no servings in a unit.
    void fill_pantry() {
        for (i16 item = 1; item <= item_count; ++item) {
            items[item].in_use = 1;
            items[item].storage_time = item;
            items[item].quantity = item;
            items[item].serving_size = 0.25 * item;
            items[item].servings_per_qty_unit = 3;
            if (item < item_count) first_lot_from_item(item);
        }
        items[2].serving_size = 0;
        items[3].servings_per_qty_unit = 0;
        for (i16 recipe = 1; recipe <= recipe_count; ++recipe) {
            add_meal(recipe, "Recipe");
            meal_serving_size[recipe] = recipe - 2;
            for (std::size_t place = 1; place <= 4; ++place) {
                put(recipe, 10 * place, chance_.slot(item_count), 0.1 * static_cast<f64>(place));
            }
        }
        meals[recipe_count].ingredient_item[1] = 10001;
        for (const auto& [place, day] : {std::pair<i16, i16>{60, 0}, {61, 31}}) {
            add_day(place, 13, day, 2024);
            plan_item(place, 1, 1, 1);
        }
    }

    Date any_date() { return june(1) + chance_.below(date_count); }
    i16 any_day() { return chance_.slot(60); }
    f64 any_amount() { return chance_.below(50) * 0.1; }

    void select_any_date() {
        const CivilDate date = civil_from_date(any_date());
        select(static_cast<i16>(date.month), static_cast<i16>(date.day),
               static_cast<i16>(date.year));
        open_day();
    }

    std::string any_key() {
        return chance_.below(2) == 0 ? meal_key(chance_.slot(recipe_count), 1)
                                     : item_key(chance_.slot(item_count), 1);
    }

    void move_stock() {
        const i16 item = chance_.slot(item_count);
        ensure_lot_record(item);
        if (chance_.below(2) == 0) {
            add_to_lots(item, any_amount());
        } else {
            remove_from_lots(item, chance_.below(6) == 0 ? lot_total(item) : any_amount());
        }
    }

    void mark_audited() { days[any_day()].audited = -1; }

    PlannerScreen screen_{platform.calls};
    Chance chance_{20240602};
    RandomBoxes boxes_{chance_};
    const std::vector<Step> steps_{
        {"open", [this] { select_any_date(); }},
        {"plan an item", [this] { Add_Item(chance_.slot(item_count), any_amount()); }},
        {"plan a recipe",
         [this] { tavernook::add_meal(chance_.slot(recipe_count), any_amount()); }},
        {"plan a recommendation", [this] { add_recommended_meal(any_key()); }},
        {"recommend", [] { meal_recommendations(); }},
        {"remove an entry", [this] { remove_day_entry(any_key()); }},
        {"mark audited", [this] { mark_audited(); }},
        {"edit an audited day", [] { edit_audited_day(); }},
        {"release", [this] { release_audited_day(any_day()); }},
        {"delete a day", [this] { delete_day_of(any_date()); }},
        {"delete dates",
         [this] {
             const Date first = any_date();
             Delete_Day(first, first + chance_.below(3));
         }},
        {"copy", [] { copy_selected_day(); }},
        {"cut", [] { cut_selected_day(); }},
        {"paste", [this] { paste_day(any_date()); }},
        {"copy onto dates",
         [this] {
             const Date first = any_date();
             copy_source_day = any_day();
             copy_day(first, first + chance_.below(4), 0);
         }},
        {"take a recipe off the plans",
         [this] {
             remove_meal_from_plans(chance_.slot(recipe_count),
                                    chance_.below(2) == 0 ? Answer::yes : Answer::no);
         }},
        {"move stock", [this] { move_stock(); }},
        {"move stock again", [this] { move_stock(); }},
        {"move stock once more", [this] { move_stock(); }},
    };
};

TEST_F(StockProperty, QuantitiesStayTheSumsOfTheLots) {
    run(100'000);
    // A run that never comes into the corners proves nothing.
    EXPECT_GT(boxes_that_began(item_stock_question), 1000);
    EXPECT_GT(boxes_that_began("The day of 6/5/2024"), 500);
    EXPECT_GT(boxes_that_began("The quantity that you provided"), 100);
    EXPECT_GT(boxes_that_began("Tavernook error: rt6:11"), 100);
    EXPECT_GT(boxes_that_began("there has been an error"), 100);
    EXPECT_EQ(faults_[11], 0);
    EXPECT_EQ(faults_[9], 0);
}

}  // namespace
}  // namespace tavernook
