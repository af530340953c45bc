#include "core/name_rows.h"

#include <string>

#include "basics/text.h"
#include "core/trap.h"
#include "core/where_used.h"
#include "platform/platform.h"

namespace tavernook {

std::array<i16, store_capacity + 1> store_list_map{};
std::array<i16, unit_capacity + 1> unit_list_map{};
i16 store_edit_mode = 0;
i16 unit_edit_mode = 0;
i16 store_list_row = 0;
i16 unit_list_row = 0;

namespace {

// What tells the two kinds of rows apart.
template <typename Record, int Capacity>
struct Kind {
    static constexpr int last = Capacity;

    Table<Record, Capacity>& table;
    std::array<i16, Capacity + 1>& list_map;
    i16& edit_mode;
    i16& list_row;
    const char* plural;  // in the warning of the full table, where its second mention is small
    const char* title;
    const char* capitals;
    std::string (*users)(i16) noexcept;
    ReplacementType replacement;
};

const Kind<StoreRecord, store_capacity> store_kind{
    stores,  store_list_map, store_edit_mode,  store_list_row,        "stores",
    "Store", "STORE",        item_store_users, ReplacementType::store};
const Kind<UnitRecord, unit_capacity> unit_kind{
    units,  unit_list_map, unit_edit_mode,  unit_list_row,        "Units",
    "Unit", "UNIT",        item_unit_users, ReplacementType::unit};

template <typename Rows>
i16 find_free_row(const Rows& kind) {
    i16 slot = 1;
    while (slot < kind.last && kind.table[slot].in_use != 0) ++slot;
    if (slot == kind.last) {
        const std::string plural = kind.plural;
        boxes().message("You have reached the limitation of " + plural +
                        " allowed in Tavernook.  It is recommended that you delete some " +
                        lower_case(plural) + " to allow for some more room.");
    }
    return slot;
}

template <typename Rows>
void refresh_list(const Rows& kind) {
    kind.list_map.fill(0);
    std::size_t row = 1;
    for (i16 slot = 1; slot <= kind.last; ++slot) {
        auto& record = kind.table[slot];
        if (record.in_use != 1) continue;
        if (record.name.blank()) {
            record.in_use = 0;
        } else {
            kind.list_map[row++] = slot;
        }
    }
    kind.edit_mode = 0;
}

// The slot behind a row of the list, counted from 0; 0 where the list has no such row.
template <typename Rows>
i16 slot_of_row(const Rows& kind, int row) {
    return row >= 0 && row < kind.last ? kind.list_map[static_cast<std::size_t>(row) + 1] : i16{0};
}

template <typename Rows>
void accept_row(const Rows& kind, std::string_view name) {
    const i16 edited = kind.edit_mode != 0 ? slot_of_row(kind, kind.list_row) : i16{0};
    const i16 slot = edited != 0 ? edited : find_free_row(kind);
    kind.table[slot].name = name;
    kind.table[slot].in_use = 1;
    refresh_list(kind);
}

template <typename Rows>
Answer ask_for_replacement(const Rows& kind, const std::string& uses) {
    return boxes().message("This " + std::string(kind.title) + " is used by " + uses +
                               ".  Press YES to select a replacement " + kind.capitals +
                               " or press NO to cancel the delete",
                           Buttons::yes_no);
}

template <typename Rows>
void delete_rows(const Rows& kind, const std::vector<int>& rows) {
    // The map is rebuilt while rows are replaced: the slots are taken first.
    std::vector<i16> slots;
    for (const int row : rows) slots.push_back(slot_of_row(kind, row));
    for (const i16 slot : slots) {
        if (slot == 0) continue;
        const std::string uses = kind.users(slot);
        if (uses.empty()) {
            kind.table[slot] = {};
        } else if (ask_for_replacement(kind, uses) == Answer::yes) {
            replace_item_screen().ask_replacement(slot, static_cast<i16>(kind.replacement));
        } else {
            return;
        }
    }
    kind.edit_mode = 0;
    refresh_list(kind);
}

template <typename Rows>
i16 first_slot_named(const Rows& kind, std::string_view name) {
    for (i16 slot = 1; slot <= kind.last; ++slot) {
        if (kind.table[slot].name.right_trimmed() == trim_right(name)) return slot;
    }
    return 0;
}

template <typename Rows>
i16 find_name(const Rows& kind, std::string_view name, const char* routine) {
    i16 found = 0;
    trap([&] { found = first_slot_named(kind, name); },
         [routine](const Fault& fault) {
             show_fault(std::string(routine) + " Function Error = " + std::to_string(fault.number));
         });
    return found;
}

}  // namespace

i16 find_free_store() noexcept {
    return find_free_row(store_kind);
}
i16 find_free_unit() noexcept {
    return find_free_row(unit_kind);
}
void accept_store(std::string_view name) noexcept {
    accept_row(store_kind, name);
}
void accept_unit(std::string_view name) noexcept {
    accept_row(unit_kind, name);
}
void refresh_store_list() noexcept {
    refresh_list(store_kind);
}
void refresh_unit_list() noexcept {
    refresh_list(unit_kind);
}

void delete_selected_stores(const std::vector<int>& rows) noexcept {
    delete_rows(store_kind, rows);
}
void delete_selected_units(const std::vector<int>& rows) noexcept {
    delete_rows(unit_kind, rows);
}

void refresh_store_combo() noexcept {
    if (ports::FoodInventory* screen = food_inventory()) screen->refresh_stores();
}
void refresh_unit_combos() noexcept {
    if (ports::FoodInventory* screen = food_inventory()) screen->refresh_units();
}

i16 CheckStores(std::string_view name) noexcept {
    return find_name(store_kind, name, "CheckStores");
}
i16 CheckUnits(std::string_view name) noexcept {
    return find_name(unit_kind, name, "CheckUnits");
}

}  // namespace tavernook
