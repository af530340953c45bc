// Recipes, their documents, and the plans.
#include <fstream>

#include "aids/sample_project.h"
#include "core/project_data.h"
#include "recipes/meals.h"
#include "sample_tables.h"

namespace tavernook::make_sample {

namespace {

constexpr f64 highest = 10000;

std::string document_name(int slot) {
    const std::string number = std::to_string(slot);
    return "sample17" + std::string(6 - number.size(), '0') + number + ".rtf";
}

std::filesystem::path document_of(const Row& row, const std::filesystem::path& folder) {
    const std::filesystem::path path = folder / row.name("Document", 80);
    std::ifstream stream(path, std::ios::binary);
    std::string start(6, '\0');
    if (!stream.read(start.data(), 6) || start != "{\\rtf1") {
        row.fail("\"" + path.string() + "\" is no rich text");
    }
    return path;
}

int free_recipe_slot(const Row& row) {
    for (int slot = 1; slot <= meal_capacity; ++slot) {
        if (meals[slot].in_use == 0) return slot;
    }
    row.fail("the table is full");
}

// Amounts are told in the item's serving unit and kept as servings.
f64 servings_of(const Row& row, i16 item) {
    if (unit_of(row, "Unit") != items[item].serving_size_units) {
        row.fail("servings of \"" + row.text("Item") + "\" are not in " + row.text("Unit"));
    }
    return row.number("Amount", 0.001, highest) / items[item].serving_size;
}

// The slot that holds the day of this distance, a new one where there is none.
int day_slot(const Row& row, int distance) {
    const CivilDate date = civil_from_date(sample_first_day + distance);
    for (int slot = 1; slot <= day_capacity; ++slot) {
        DayRecord& day = days[slot];
        if (day.in_use == 0) {
            day.year = to_i16(date.year);
            day.month = to_i16(date.month);
            day.day = to_i16(date.day);
            day.in_use = 1;
            day.audited = truth(row.text("Audited") == "yes");
            return slot;
        }
        if (CivilDate{day.year, day.month, day.day} == date) return slot;
    }
    row.fail("the table is full");
}

template <typename Places>
std::size_t free_place(const Places& places, const Row& row) {
    for (std::size_t place = 1; place < places.size(); ++place) {
        if (places[place] == 0) return place;
    }
    row.fail("the day is full");
}

void add_planned(const Row& row) {
    const int slot = day_slot(row, row.whole("Day", -365, 365));
    if (days[slot].audited != truth(row.text("Audited") == "yes")) {
        row.fail("the day is both audited and not");
    }
    const f64 amount = row.number("Amount", 0.001, highest);
    if (row.text("Kind") == "recipe") {
        const std::size_t place = free_place(days[slot].planned_meal, row);
        days[slot].planned_meal[place] = recipe_of(row, "Name");
        day_quantities[slot].meal_servings[place] = amount;
    } else if (row.text("Kind") == "item") {
        const std::size_t place = free_place(days[slot].planned_item, row);
        days[slot].planned_item[place] = item_of(row, "Name");
        day_quantities[slot].item_quantity[place] = amount;
    } else {
        row.fail("unknown kind \"" + row.text("Kind") + "\"");
    }
}

}  // namespace

i16 recipe_of(const Row& row, const std::string& column) {
    const i16 recipe = find_meal_by_name(row.text(column));
    if (recipe == 0) row.fail("unknown recipe \"" + row.text(column) + "\"");
    return recipe;
}

Documents add_recipes(const std::vector<Row>& rows, const std::filesystem::path& documents) {
    Documents found;
    for (const Row& row : rows) {
        const std::string& name = row.name("Name", 32);
        if (find_meal_by_name(name) != 0) row.fail("\"" + name + "\" is there already");
        const int slot = free_recipe_slot(row);
        MealRecord& recipe = meals[slot];
        recipe.in_use = 1;
        recipe.name = name;
        recipe.category = category_of(row, "Category", true);
        recipe.serving_size_units = unit_of(row, "Unit");
        meal_serving_size[slot] = row.number("Yield", 0.001, highest);
        meal_documents[slot] = "*vk14" + document_name(slot);
        found[document_name(slot)] = document_of(row, documents);
    }
    return found;
}

void add_ingredients(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        const i16 recipe = recipe_of(row, "Recipe");
        const i16 item = item_of(row, "Item");
        if (find_ingredient(item, recipe) != 0) row.fail("the item is in the recipe already");
        const std::size_t place = free_place(meals[recipe].ingredient_item, row);
        meals[recipe].ingredient_item[place] = item;
        meals[recipe].ingredient_qty[place] = servings_of(row, item);
    }
}

void add_plan(const std::vector<Row>& rows) {
    for (const Row& row : rows) add_planned(row);
}

}  // namespace tavernook::make_sample
