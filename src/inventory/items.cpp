#include "inventory/items.h"

#include "basics/number_text.h"
#include "basics/text.h"
#include "core/name_rows.h"
#include "core/project_data.h"
#include "core/string_storage.h"
#include "core/trap.h"
#include "core/where_used.h"
#include "inventory/item_slots.h"
#include "inventory/lots.h"
#include "inventory/replacement.h"
#include "inventory/usage_files.h"
#include "platform/platform.h"

namespace tavernook {

using Detail = ItemDetailRecord;

const std::array<NutrientFields, nutrient_count> nutrient_fields{{
    {&Detail::fat, &Detail::fat_units},
    {&Detail::calories, &Detail::calories_units},
    {&Detail::cholestorol, &Detail::cholestorol_units},
    {&Detail::sodium, &Detail::sodium_units},
    {&Detail::potassium, &Detail::potassium_units},
    {&Detail::carbohydrates, &Detail::carbohydrates_units},
    {&Detail::fiber, &Detail::fiber_units},
    {&Detail::sugars, &Detail::sugars_units},
    {&Detail::protien, &Detail::protien_units},
}};

namespace {

constexpr std::string_view untitled = "<<UNTITLED>>";
constexpr i16 last_name_row = 1000;

// The row that bears the name. Kept: a match in the last row but one counts as none, and files hold
// the rows that were made a second time for it.
template <typename Rows>
i16 row_of_name(Rows& table, std::string_view trimmed_name) {
    const std::string wanted = lower_case(trimmed_name);
    for (i16 row = 1; row < last_name_row; ++row) {
        auto& name = table[row].name;
        name = name.trimmed();
        const bool found = lower_case(name.right_trimmed()) == wanted;
        if (found) return row == last_name_row - 1 ? i16{0} : row;
    }
    return 0;
}

template <typename Rows>
i16 row_by_use(Rows& table, i16 (*find_free)() noexcept, std::string_view trimmed_name) {
    const i16 present = row_of_name(table, trimmed_name);
    if (present != 0) return present;
    const i16 row = find_free();
    table[row].in_use = 1;
    table[row].name = trimmed_name;
    return row;
}

enum class BlankName { leaves_field, clears_field };

template <typename Rows>
void store_row(i16& field, Rows& table, i16 (*find_free)() noexcept, std::string_view name,
               BlankName when_blank) {
    const std::string_view wanted = trim(name);
    if (!wanted.empty()) {
        field = row_by_use(table, find_free, wanted);
    } else if (when_blank == BlankName::clears_field) {
        field = 0;
    }
}

void store_unit(i16& field, std::string_view name, BlankName when_blank) {
    store_row(field, units, find_free_unit, name, when_blank);
}

void store_names_and_nutrients(i16 slot, const ItemValues& values, BlankName when_blank) {
    ItemRecord& item = items[slot];
    store_unit(item.qty_units, values.qty_units, when_blank);
    store_unit(item.serving_size_units, values.serving_size_units, when_blank);
    store_row(item.store, stores, find_free_store, values.store, when_blank);
    for (std::size_t nutrient = 0; nutrient < nutrient_count; ++nutrient) {
        const NutrientFields& fields = nutrient_fields[nutrient];
        item_details[slot].*fields.value = values.nutrients[nutrient].value;
        store_unit(item_details[slot].*fields.unit, values.nutrients[nutrient].unit, when_blank);
    }
}

f64 at_least_one_if_not_positive(f64 value) {
    return value <= 0 ? 1 : value;
}

std::string_view title_of(const ItemValues& values) {
    const std::string_view name = trim(values.name);
    return name.empty() ? untitled : name;
}

void store_figures(ItemRecord& item, const ItemValues& values, i16 storage_time) {
    item.stock_quantity = values.stock_quantity;
    item.storage_time = storage_time;
    item.restock_quantity = values.restock_quantity;
    item.cost = values.cost;
    item.serving_size = at_least_one_if_not_positive(values.serving_size);
    item.servings_per_qty_unit = at_least_one_if_not_positive(values.servings_per_qty_unit);
    item.category = values.category;
    item.in_use = 1;
    item.store_order = values.store_order;
    item.barcode = values.barcode;
}

void stamp_first_lot(i16 slot, f64 quantity, i16 storage_time) {
    LotRecord& record = lots[slot];
    const auto place = static_cast<std::size_t>(current_lot_of(slot));
    const Date now = platform_clock().now();
    record.lot_quantity[place] = quantity;
    record.creation_date[place] = now;
    record.expiration_date[place] = now + storage_time;
}

void add_texts(i16 slot, const ItemValues& values) {
    ItemDetailRecord& detail = item_details[slot];
    items[slot].locations = add_string(values.locations);
    detail.manufacturer = add_string(values.manufacturer);
    detail.brand = add_string(values.brand);
    detail.description = add_string(values.description);
    detail.notes = add_string(values.notes);
}

void change_text(i16& row, const std::string& text) {
    row = change_string(pooled_text(row), text);
}

void change_texts(i16 slot, const ItemValues& values) {
    ItemDetailRecord& detail = item_details[slot];
    change_text(items[slot].locations, values.locations);
    change_text(detail.brand, values.brand);
    change_text(detail.manufacturer, values.manufacturer);
    change_text(detail.description, values.description);
    change_text(detail.notes, values.notes);
}

void move_stock_to(i16 slot, f64 quantity) {
    if (quantity == 0) return;
    const f64 held = items[slot].quantity;
    if (quantity <= held) {
        const f64 less = held - quantity;
        // An unchanged quantity has nothing to tell of a lot that cannot be read.
        if (less == 0 && !current_lot_is_readable(slot)) return;
        remove_from_lots(slot, less);
    } else {
        add_to_lots(slot, quantity - held);
        items[slot].last_restock_date = platform_clock().now();
    }
}

void change_item(i16 item, const ItemValues& values) {
    ItemRecord& record = items[item];
    if (record.in_use == 0) return;
    const i16 storage_time = round_to_i16(values.storage_time);
    const i16 fat = round_to_i16(values.fat);
    const i16 calories = round_to_i16(values.calories);
    ensure_lot_record(item);
    move_stock_to(item, leading_number(values.quantity));
    record.name = title_of(values);
    record.quantity = lot_total(item);
    store_figures(record, values, storage_time);
    record.fat = fat;
    record.calories = calories;
    change_texts(item, values);
    store_names_and_nutrients(item, values, BlankName::clears_field);
}

void blank_records(i16 item) {
    const i16 in_use = items[item].in_use;
    items[item] = ItemRecord{};
    items[item].barcode = no_barcode;
    items[item].in_use = in_use;
    item_details[item] = ItemDetailRecord{};
}

// Where the search for a free slot begins, and whether it goes on from where it ends.
i16 first_slot_to_search = 1;
bool only_adding = false;

i16 take_free_item_slot() {
    const i16 slot = find_free_item_slot();
    begin_usage_history(slot);
    return slot;
}

// False when the user keeps the item.
bool delete_or_hand_over(i16 item) {
    const std::string users = item_users(item);
    if (users.empty()) {
        items[item].in_use = 0;
        blank_records(item);
        clear_lot_record(item);
        return true;
    }
    const Answer answer = boxes().message(
        "Press YES to select a replacement ITEM or press NO to cancel the delete. This item is "
        "used by " +
            std::string(trim(users)),
        Buttons::yes_no);
    if (answer != Answer::yes) return false;
    replace_item_screen().ask_replacement(item, static_cast<i16>(ReplacementType::item));
    return true;
}

}  // namespace

OnlyAddingItems::OnlyAddingItems() {
    only_adding = true;
}

OnlyAddingItems::~OnlyAddingItems() {
    only_adding = false;
    first_slot_to_search = 1;
}

i16 find_free_item_slot() noexcept {
    i16 slot = first_slot_to_search;
    while (slot < item_capacity && items[slot].in_use != 0) ++slot;
    if (only_adding) first_slot_to_search = slot;
    if (slot == item_capacity) {
        boxes().message(
            "You have reached the limitation of items allowed in Tavernook.  It is recommended "
            "that you delete some items to allow for some more room.");
    }
    return slot;
}

i16 create_item(const ItemValues& values) {
    const i16 storage_time = round_to_i16(values.storage_time);
    const f64 quantity = leading_number(values.quantity);
    const i16 slot = take_free_item_slot();
    init_lot_record(slot);
    stamp_first_lot(slot, quantity, storage_time);
    ItemRecord& item = items[slot];
    item.name = title_of(values);
    item.quantity = quantity;
    store_figures(item, values, storage_time);
    add_texts(slot, values);
    item.last_restock_date = values.last_restock_date;
    item_details[slot].created_date = platform_clock().now();
    store_names_and_nutrients(slot, values, BlankName::leaves_field);
    return slot;
}

bool update_item(i16 item, const ItemValues& values) noexcept {
    return trap_in_module([&] { change_item(item, values); });
}

i16 copy_item(i16 source, i16 category) noexcept {
    i16 slot = 0;
    trap_in_module([&] {
        const ItemRecord& original = items[source];
        slot = take_free_item_slot();
        init_lot_record(slot);
        items[slot] = original;
        item_details[slot] = item_details[source];
        items[slot].category = category;
        items[slot].name = "Copy of " + std::string(original.name.stored());
    });
    return slot;
}

i16 delete_item(i16 item) noexcept {
    i16 gone = i16_false;
    trap_in_module([&] { gone = truth(delete_or_hand_over(item)); });
    return gone;
}

void clear_item_record(i16 item) noexcept {
    trap_in_module([item] { blank_records(item); });
}

i16 find_item_by_name(std::string_view name) noexcept {
    const std::string wanted = lower_case(trim(name));
    for (i16 slot = 1; slot <= item_capacity; ++slot) {
        if (lower_case(items[slot].name.trimmed()) == wanted) return slot;
    }
    return 0;
}

i16 find_item_exact(std::string_view name) noexcept {
    for (i16 slot = 1; slot < item_capacity; ++slot) {
        if (items[slot].name.right_trimmed() == name) return slot;
    }
    return 0;
}

}  // namespace tavernook
