// The commands of the pantry that scan whole tables, on a full project, each beside a yardstick:
// one pass over the bytes that it must look at. "ratio" is the work in yardsticks.
#include <functional>
#include <string>

#include "core/program_folders.h"
#include "core/project_data.h"
#include "core/string_storage.h"
#include "core/where_used.h"
#include "fakes/test_platform.h"
#include "inventory/items.h"
#include "inventory/replacement.h"
#include "support/generated_projects.h"
#include "yardstick.h"

namespace tavernook {
namespace {

// Boxes that answer Yes at once and keep no record.
class YesBoxes : public Boxes {
  public:
    Answer message(std::string_view, Buttons, std::string_view, DefaultButton) override {
        return Answer::yes;
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        return std::nullopt;
    }
};

constexpr i16 last_text = pooled_string_capacity - 1;

// Each item holds texts from all over the pool, so that looking at them all leaves the caches; the
// last hundred rows are nobody's.
void scatter_texts() {
    int place = 0;
    for (i16 item = 1; item <= item_capacity; ++item) {
        ItemDetailRecord& detail = item_details[item];
        for (i16* text : {&items[item].locations, &detail.manufacturer, &detail.brand,
                          &detail.description, &detail.notes}) {
            place = (place + 7919) % (last_text - 100);
            *text = static_cast<i16>(1 + place);
        }
    }
}

// A full project on the real disk, without the records that the fakes keep.
struct FullPantry {
    FullPantry() {
        fill_full_project();
        scatter_texts();
        set_project_path("/home/me/bench.tvk");
        platform.disk.make_folder(platform.system.program + "/reports");
        set_platform({.clock = &platform.clock,
                      .boxes = &boxes,
                      .files = &platform.disk,
                      .system_info = &platform.system,
                      .replace_item = &platform.replace_item});
    }

    TestPlatform platform;
    YesBoxes boxes;
};

// --- the yardsticks ------------------------------------------------------------------------------

unsigned long long pass_over_plans() {
    return pass_over(meals) + pass_over(days);
}

unsigned long long pass_over_texts() {
    return pass_over(items) + pass_over(item_details) + pass_over_pool();
}

// --- what is measured ----------------------------------------------------------------------------

std::string unit_name(i16 row) {
    return std::string(units[row].name.trimmed());
}

// What the screen's boxes hold when the item is accepted as it stands.
ItemValues values_of(i16 slot) {
    const ItemRecord& item = items[slot];
    const ItemDetailRecord& detail = item_details[slot];
    ItemValues values;
    values.name = item.name.trimmed();
    values.quantity = std::to_string(item.quantity);  // quarters: exact with six decimals
    values.stock_quantity = item.stock_quantity;
    values.storage_time = item.storage_time;
    values.restock_quantity = item.restock_quantity;
    values.cost = item.cost;
    values.qty_units = unit_name(item.qty_units);
    values.serving_size = item.serving_size;
    values.serving_size_units = unit_name(item.serving_size_units);
    values.servings_per_qty_unit = item.servings_per_qty_unit;
    values.store = stores[item.store].name.trimmed();
    values.category = item.category;
    values.barcode = item.barcode.trimmed();
    values.manufacturer = pooled_strings[detail.manufacturer];
    values.brand = pooled_strings[detail.brand];
    values.description = pooled_strings[detail.description];
    values.notes = pooled_strings[detail.notes];
    values.locations = pooled_strings[item.locations];
    for (std::size_t nutrient = 0; nutrient < nutrient_count; ++nutrient) {
        values.nutrients[nutrient] = {detail.*nutrient_fields[nutrient].value,
                                      unit_name(detail.*nutrient_fields[nutrient].unit)};
    }
    return values;
}

// Texts and names at the far end of their tables, so that every look-up walks all of it.
void move_references_to_the_end(i16 slot) {
    ItemRecord& item = items[slot];
    ItemDetailRecord& detail = item_details[slot];
    i16 row = last_text;
    for (i16* text : {&item.locations, &detail.manufacturer, &detail.brand, &detail.description,
                      &detail.notes}) {
        *text = row--;
    }
    item.qty_units = 998;
    item.serving_size_units = 997;
    item.store = 996;
    for (const NutrientFields& fields : nutrient_fields) detail.*fields.unit = 995;
}

void restock(i16 item) {
    lots[item].lot_quantity.fill(100);
    items[item].quantity = 100 * lot_places;
}

void accept_unchanged(benchmark::State& state) {
    const FullPantry pantry;
    move_references_to_the_end(item_capacity);
    const ItemValues values = values_of(item_capacity);
    measure(state, pass_over_texts, [&] { (void)update_item(item_capacity, values); });
}

// The quantity falls by a quarter, which writes an entry to the disk, and all five texts change.
void accept_with_new_texts_and_quantity(benchmark::State& state) {
    const FullPantry pantry;
    move_references_to_the_end(item_capacity);
    ItemValues values = values_of(item_capacity);
    int turn = 0;
    const auto change = [&] {
        ++turn;
        if (items[item_capacity].quantity < 10) restock(item_capacity);
        values.quantity = std::to_string(items[item_capacity].quantity - 0.25);
        for (std::string* text : {&values.manufacturer, &values.brand, &values.description,
                                  &values.notes, &values.locations}) {
            *text += turn % 2 == 0 ? "x" : "y";
            if (text->size() > 100) text->resize(40);
        }
    };
    measure(
        state, pass_over_texts, [&] { (void)update_item(item_capacity, values); }, change);
}

void delete_item_of_1000_recipes(benchmark::State& state) {
    FullPantry pantry;
    const auto replace = [](i16 row, i16) { replace_row(row, 2, ReplacementType::item); };
    pantry.platform.replace_item.chosen = replace;
    const ItemRecord kept = items[1];
    const auto use_everywhere = [&] {
        items[1] = kept;
        for (i16 meal = 1; meal <= meal_capacity; ++meal) meals[meal].ingredient_item[50] = 1;
        pantry.platform.calls.clear();
        pantry.platform.transcript.clear();
    };
    measure(
        state, pass_over_plans, [] { benchmark::DoNotOptimize(delete_item(1)); }, use_everywhere);
}

void users_of_an_item(benchmark::State& state) {
    const FullPantry pantry;
    measure(state, pass_over_plans, [] { benchmark::DoNotOptimize(item_users(5000)); });
}

void users_of_an_item_of_1000_recipes(benchmark::State& state) {
    const FullPantry pantry;
    for (i16 meal = 1; meal <= meal_capacity; ++meal) meals[meal].ingredient_item[50] = 1;
    measure(state, pass_over_plans, [] { benchmark::DoNotOptimize(item_users(1)); });
}

void find_last_string(benchmark::State& state) {
    const FullPantry pantry;
    const std::string wanted = pooled_strings[pooled_string_capacity];
    measure(state, pass_over_pool, [&] { benchmark::DoNotOptimize(find_string(wanted)); });
}

void find_missing_string(benchmark::State& state) {
    const FullPantry pantry;
    measure(state, pass_over_pool,
            [] { benchmark::DoNotOptimize(find_string("A text that no row of the pool holds")); });
}

// All rows of one length, equal but for their ends: the worst that a comparison can meet.
void find_among_alike_strings(benchmark::State& state) {
    const FullPantry pantry;
    for (int row = 1; row <= pooled_string_capacity; ++row) {
        pooled_strings[row] = std::string(60, 'x') + std::to_string(100000 + row);
    }
    const std::string wanted = pooled_strings[pooled_string_capacity];
    measure(state, pass_over_pool, [&] { benchmark::DoNotOptimize(find_string(wanted)); });
}

void change_own_string(benchmark::State& state) {
    const FullPantry pantry;
    i16& row = item_details[item_capacity].notes;
    row = last_text;
    const std::string texts[2] = {pooled_strings[row], "Another text in the pool"};
    int turn = 0;
    measure(state, pass_over_texts,
            [&] { row = change_string(pooled_strings[row], texts[turn++ % 2]); });
    state.SetLabel("overwritten in place");
}

void change_shared_string(benchmark::State& state) {
    const FullPantry pantry;
    item_details[1].notes = last_text;
    item_details[item_capacity].notes = last_text;
    const std::string to = pooled_strings[last_text - 1];
    measure(state, pass_over_texts,
            [&] { benchmark::DoNotOptimize(change_string(pooled_strings[last_text], to)); });
    state.SetLabel("takes the row of an equal text");
}

#define PANTRY_BENCHMARK(name) BENCHMARK(name)->UseManualTime()->Unit(benchmark::kMicrosecond)
PANTRY_BENCHMARK(accept_unchanged);
PANTRY_BENCHMARK(accept_with_new_texts_and_quantity);
PANTRY_BENCHMARK(delete_item_of_1000_recipes);
PANTRY_BENCHMARK(users_of_an_item);
PANTRY_BENCHMARK(users_of_an_item_of_1000_recipes);
PANTRY_BENCHMARK(find_last_string);
PANTRY_BENCHMARK(find_missing_string);
PANTRY_BENCHMARK(find_among_alike_strings);
PANTRY_BENCHMARK(change_own_string);
PANTRY_BENCHMARK(change_shared_string);

}  // namespace
}  // namespace tavernook

BENCHMARK_MAIN();
