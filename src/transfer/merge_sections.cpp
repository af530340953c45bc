#include "transfer/merge_sections.h"

#include <algorithm>
#include <memory>
#include <string>

#include "basics/text.h"
#include "core/catagories.h"
#include "core/name_rows.h"
#include "core/project_file/project_file_reader.h"
#include "core/project_file/project_file_sections.h"
#include "core/rows.h"
#include "core/trap.h"
#include "core/weights_and_measures.h"
#include "inventory/items.h"
#include "inventory/lots.h"
#include "recipes/meals.h"

namespace tavernook {

namespace {

using project_file::for_each_record;
using Section = ProjectHeader::Section;

template <typename Record>
Record record_of(std::string_view bytes) {
    Record record;
    project_file::read_record(bytes, record);
    return record;
}

// What tells the two kinds of rows apart.
template <typename Record, int N>
struct Kind {
    Table<Record, N>& table;
    const char* plural;
    i16 (*find)(std::string_view name) noexcept;
    i16 (*find_free)() noexcept;
};

// The row that a name has here: the one that bears it, or a free one; 0 for a blank name and where
// none is free, which one box tells.
template <typename Record, int N>
i16 row_for(const Kind<Record, N>& kind, const Record& incoming, bool& is_full) {
    if (incoming.name.blank()) return 0;
    const i16 known = kind.find(incoming.name.right_trimmed());
    if (is_live_row(kind.table, known)) return known;
    const i16 free = is_full ? i16{0} : kind.find_free();
    is_full = is_full || kind.table[free].in_use != 0;
    if (free == 0 || is_full) return 0;
    kind.table[free] = incoming;
    return free;
}

std::string no_room_for(const char* plural) {
    return std::string("there is no room for more ") + plural;
}

template <typename Record, int N>
void read_rows(File& file, const Section& section, const Kind<Record, N>& kind, SlotMap<N>& map,
               const EachRecord& each_record, LeftOut& left_out) {
    bool is_full = false;
    const auto take = [&](i16 slot, std::string_view bytes) {
        each_record();
        map.require(slot);
        const auto incoming = record_of<Record>(bytes);
        if (incoming.in_use != 1) return;
        const i16 row = row_for(kind, incoming, is_full);
        map.set(slot, row);
        if (row == 0 && !incoming.name.blank()) {
            left_out.add(incoming.name.right_trimmed(), no_room_for(kind.plural));
        }
    };
    for_each_record(file, section, project_file::name_row_size, project_file::name_row_stride,
                    take);
}

}  // namespace

void MergedSections::read_catagories() {
    std::vector<i16> rows;
    for_each_record(file_, project_header.catagories, project_file::catagory_size,
                    project_file::catagory_stride, [&](i16 slot, std::string_view bytes) {
                        each_record_();
                        category_map_.require(slot);
                        const auto incoming = record_of<CatagoryRecord>(bytes);
                        if (incoming.in_use != 1) return;
                        const i16 row = find_free_catagory();
                        if (catagories[row].in_use != 0) {
                            return left_out_.add(incoming.name.right_trimmed(),
                                                 no_room_for("categories"));
                        }
                        category_map_.set(slot, row);
                        catagories[row] = incoming;
                        rows.push_back(row);
                    });
    // A category may stand in the file before the one above it.
    for (const i16 row : rows) catagories[row].parent = category_map_[catagories[row].parent];
}

void MergedSections::read_units() {
    const Kind<UnitRecord, unit_capacity> kind{units, "units", CheckUnits, find_free_unit};
    read_rows(file_, project_header.units, kind, unit_map_, each_record_, left_out_);
}

void MergedSections::read_stores() {
    const Kind<StoreRecord, store_capacity> kind{stores, "stores", CheckStores, find_free_store};
    read_rows(file_, project_header.stores, kind, store_map_, each_record_, left_out_);
}

void MergedSections::read_items() {
    for_each_record(file_, project_header.items, project_file::item_size,
                    project_file::stride_of_items(), [&](i16 slot, std::string_view bytes) {
                        each_record_();
                        item_map_.require(slot);
                        const auto incoming = record_of<ItemRecord>(bytes);
                        if (incoming.in_use == 1) take_item(slot, incoming);
                    });
}

void MergedSections::take_item(i16 slot, const ItemRecord& incoming) {
    const i16 item = find_free_item_slot();
    item_map_.set(slot, item);
    items[item] = incoming;
    carry_references(items[item]);
    project_file::put_item_right(items[item]);
    item_details[item] = {};
    first_lot_from_item(item);
    if (new_items_.empty() || new_items_.back() != item) new_items_.push_back(item);
}

void MergedSections::carry_references(ItemRecord& item) const {
    item.category = std::max(category_map_[item.category], i16{1});
    item.qty_units = unit_map_[item.qty_units];
    item.serving_size_units = unit_map_[item.serving_size_units];
    item.store = store_map_[item.store];
}

void MergedSections::read_meals() {
    const auto documents = std::make_unique<Table<std::string, meal_capacity>>();
    project_file::read_texts(file_, project_header.documents_position, *documents);
    bool is_full = false;
    const auto take = [&](i16 slot, std::string_view bytes) {
        each_record_();
        meal_map_.require(slot);
        auto incoming = record_of<MealRecord>(bytes);
        if (incoming.in_use != 1) return;
        const i16 free = is_full ? i16{0} : find_free_meal();
        is_full = is_full || meals[free].in_use != 0;
        if (is_full) {
            return left_out_.add(incoming.name.right_trimmed(), no_room_for("recipes"));
        }
        for (std::size_t place = 0; place <= ingredient_places; ++place) {
            i16& item = incoming.ingredient_item[place];
            item = place > 0 ? item_map_[item] : i16{0};
            if (item == 0) incoming.ingredient_qty[place] = 0;
        }
        meal_map_.set(slot, free);
        meals[free] = incoming;
        meal_documents[free] = (*documents)[slot];
        meal_serving_size[free] = 1;
    };
    for_each_record(file_, project_header.meals, project_file::meal_size, project_file::meal_stride,
                    take);
}

// --- weights and measures ------------------------------------------------------------------------

namespace {

using IncomingWams = Table<WamRecord, wam_capacity>;

// Elsewhere a file has other things at that place.
bool can_be_line(const WamRecord& line) {
    const bool is_flag = line.in_use >= -1 && line.in_use <= 1;
    return is_flag && std::none_of(line.text.begin(), line.text.end(), [](char letter) {
               return static_cast<unsigned char>(letter) < 0x20;
           });
}

// False when there is no such block.
bool read_wams(File& file, IncomingWams& incoming) {
    const i32 position = project_file::read_position(file, project_file::older_wams_slot);
    if (position < project_file::items_position || position > file.length()) return false;
    try {
        SequentialReader reader(file, position);
        for (WamRecord& line : incoming) {
            line.in_use = reader.take_i16();
            reader.take_variable(line.text);
            if (!can_be_line(line)) return false;
        }
    } catch (const Fault& fault) {
        if (fault.number != fault_number::bad_record_number) throw;
        return false;
    }
    return true;
}

}  // namespace

void merge_wams(File& file, LeftOut& left_out) {
    const auto incoming = std::make_unique<IncomingWams>();
    if (!read_wams(file, *incoming)) return;
    bool is_full = false;
    for (i16 slot = 1; slot <= wam_capacity; ++slot) {
        const WamRecord& line = (*incoming)[slot];
        if (line.in_use == 0 || CheckWams(line.text) != 0) continue;
        const i16 free = is_full ? i16{0} : GetFreeWam();
        is_full = free == 0;
        if (is_full) {
            left_out.add(line.text, no_room_for("weights and measures"));
            continue;
        }
        wams[free].text = line.text;
        wams[free].in_use = i16_true;
    }
}

}  // namespace tavernook
