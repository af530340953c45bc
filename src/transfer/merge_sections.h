// The sections of another project file on their way into the tables (transfer/merge.h), and where
// each of its slots came to lie.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "core/project_data.h"
#include "platform/files.h"
#include "transfer/import_tally.h"

namespace tavernook {

// From the slots of the file to those of the tables; 0 for what did not come.
template <int N>
class SlotMap {
  public:
    // 0 for a number outside as well.
    i16 operator[](i16 slot) const {
        return slot >= 1 && slot <= N ? slots_[static_cast<std::size_t>(slot)] : i16{0};
    }

    // Fault 9 for a slot outside 1..N.
    void set(i16 slot, i16 here) {
        require(slot);
        slots_[static_cast<std::size_t>(slot)] = here;
    }
    static void require(i16 slot) {
        if (slot < 1 || slot > N) throw Fault(fault_number::subscript_out_of_range);
    }

  private:
    std::array<i16, static_cast<std::size_t>(N) + 1> slots_{};
};

// Called for each record; what it throws ends the merge.
using EachRecord = std::function<void()>;

// The header of `file` is in the header globals, all counts and positions checked. Each of its
// routines throws Fault 63 for a file that is cut, 9 for a slot outside its table, and those of the
// file layer; the tables are then filled as far as it came.
class MergedSections {
  public:
    MergedSections(File& file, const EachRecord& each_record, LeftOut& left_out)
        : file_(file), each_record_(each_record), left_out_(left_out) {}

    // In this order.
    void read_catagories();
    void read_units();
    void read_stores();
    void read_items();
    void read_meals();

    // The slots that items took, each once.
    const std::vector<i16>& new_items() const { return new_items_; }

  private:
    void take_item(i16 slot, const ItemRecord& incoming);
    void carry_references(ItemRecord& item) const;

    File& file_;
    const EachRecord& each_record_;
    LeftOut& left_out_;
    SlotMap<catagory_capacity> category_map_;
    SlotMap<unit_capacity> unit_map_;
    SlotMap<store_capacity> store_map_;
    SlotMap<item_capacity> item_map_;
    SlotMap<meal_capacity> meal_map_;
    std::vector<i16> new_items_;
};

// Weights and measures, from where files have had them first, whatever is there: what cannot be
// such a block is passed over. Throws what the file layer throws.
void merge_wams(File& file, LeftOut& left_out);

}  // namespace tavernook
