#include "sample_tables.h"

#include "aids/sample_project.h"
#include "core/name_rows.h"
#include "core/project_data.h"

namespace tavernook::make_sample {

namespace {

// The first free slot; rows are only ever added.
template <typename Record, int Capacity>
i16 next_slot(const Table<Record, Capacity>& table, const Row& row) {
    for (int slot = 1; slot <= Capacity; ++slot) {
        if (table[slot].in_use == 0) return to_i16(slot);
    }
    row.fail("the table is full");
}

template <typename Record, int Capacity>
void add_name_row(Table<Record, Capacity>& table, const Row& row, bool taken) {
    const std::string& name = row.name("Name", 12);
    if (taken) row.fail("\"" + name + "\" is there already");
    Record& record = table[next_slot(table, row)];
    record.name = name;
    record.in_use = 1;
}

void apply_setting(const Row& row) {
    const std::string& setting = row.text("Setting");
    if (setting == "expiration_warning_days") {
        expiration_warning_days = to_i16(row.whole("Value", 0, 365));
    } else if (setting == "sales_tax") {
        sales_tax = row.number("Value", 0, 100);
    } else if (setting == "created_days_ago") {
        project_created = sample_first_day - row.whole("Value", 0, 3650);
    } else if (setting == "audit_hour") {
        audit_hour = to_i16(row.whole("Value", 0, 23));
    } else if (setting == "audit_minute") {
        audit_minute = to_i16(row.whole("Value", 0, 59));
    } else if (setting == "show_toolbar_text") {
        show_toolbar_text = to_i16(row.whole("Value", -1, 0));
    } else {
        row.fail("unknown setting \"" + setting + "\"");
    }
}

}  // namespace

i16 unit_of(const Row& row, const std::string& column) {
    const std::string& name = row.text(column);
    if (name.empty()) return 0;
    const i16 unit = CheckUnits(name);
    if (unit == 0) row.fail("unknown unit \"" + name + "\"");
    return unit;
}

i16 category_of(const Row& row, const std::string& column, bool of_recipes) {
    const std::string& name = row.text(column);
    for (int slot = 1; slot <= catagory_capacity; ++slot) {
        const CatagoryRecord& category = catagories[slot];
        const bool recipes = category.type == recipe_category_type;
        if (category.in_use == 1 && recipes == of_recipes && category.name == name) {
            return to_i16(slot);
        }
    }
    row.fail("unknown category \"" + name + "\"");
}

void add_units(const std::vector<Row>& rows) {
    for (const Row& row : rows) add_name_row(units, row, CheckUnits(row.text("Name")) != 0);
}

void add_stores(const std::vector<Row>& rows) {
    for (const Row& row : rows) add_name_row(stores, row, CheckStores(row.text("Name")) != 0);
}

void add_categories(const std::vector<Row>& rows) {
    // A reset leaves these as they are.
    for (CatagoryRecord& category : catagories) category.type = category.parent = 0;
    for (const Row& row : rows) {
        const std::string& kind = row.text("Kind");
        if (kind != "item" && kind != "recipe") row.fail("unknown kind \"" + kind + "\"");
        const bool of_recipes = kind == "recipe";
        CatagoryRecord& category = catagories[next_slot(catagories, row)];
        const bool has_parent = !row.text("Parent").empty();
        const i16 parent = has_parent ? category_of(row, "Parent", of_recipes) : i16{0};
        category.name = row.name("Name", 32);
        category.in_use = 1;
        category.type = of_recipes ? recipe_category_type : i16{0};
        category.parent = parent;
    }
}

void add_measures(const std::vector<Row>& rows) {
    int slot = 0;
    for (const Row& row : rows) {
        if (++slot > wam_capacity) row.fail("the table is full");
        wams[slot].in_use = i16_true;
        wams[slot].text = row.name("Left", 80) + " = " + row.name("Right", 80);
    }
}

void add_settings(const std::vector<Row>& rows) {
    file_version = 1;
    for (const Row& row : rows) apply_setting(row);
}

Documents fill_tables(const std::filesystem::path& folder) {
    reset_project_tables();
    const auto table = [&](const char* name) { return read_table(folder / name); };
    add_settings(table("settings.csv"));
    add_units(table("units.csv"));
    add_stores(table("stores.csv"));
    add_categories(table("categories.csv"));
    add_items(table("items.csv"), table("foods.csv"));
    add_lots(table("lots.csv"));
    const Documents documents = add_recipes(table("recipes.csv"), folder / "recipes");
    add_ingredients(table("ingredients.csv"));
    add_plan(table("plan.csv"));
    add_measures(table("measures.csv"));
    mark_shopping_list();
    return documents;
}

}  // namespace tavernook::make_sample
