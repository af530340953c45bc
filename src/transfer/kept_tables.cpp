#include "transfer/kept_tables.h"

#include <algorithm>

#include "core/program_state.h"
#include "core/project_data.h"

namespace tavernook {

namespace {

// A table that nobody has touched stays so: there is nothing in it.
template <typename Record, int N>
std::vector<Record> copy_of(const Table<Record, N>& table) {
    if (!table.is_touched()) return {};
    return {table.begin(), table.end()};
}

template <typename Record, int N>
void put(const std::vector<Record>& kept, Table<Record, N>& table) {
    if (!kept.empty()) {
        std::copy(kept.begin(), kept.end(), table.begin());
    } else if (table.is_touched()) {
        std::fill(table.begin(), table.end(), Record{});
    }
}

std::vector<LotRecord> copy_of_lots() {
    std::vector<LotRecord> copy;
    for (int item = 0; item < lots.entries(); ++item) copy.push_back(lots[item]);
    return copy;
}

void put_lots(const std::vector<LotRecord>& kept) {
    lots.clear();
    lots.grow(static_cast<i64>(kept.size()) - 2);  // one entry lies behind the highest item
    for (std::size_t item = 0; item < kept.size(); ++item)
        lots[static_cast<i64>(item)] = kept[item];
}

}  // namespace

KeptTables::KeptTables()
    : items_(copy_of(items)),
      item_details_(copy_of(item_details)),
      lots_(copy_of_lots()),
      catagories_(copy_of(catagories)),
      units_(copy_of(units)),
      stores_(copy_of(stores)),
      meals_(copy_of(meals)),
      serving_sizes_(copy_of(meal_serving_size)),
      documents_(copy_of(meal_documents)),
      wams_(copy_of(wams)),
      pooled_strings_(copy_of(pooled_strings)),
      modified_(project_modified) {}

void KeptTables::put_back() const {
    put(items_, items);
    put(item_details_, item_details);
    put_lots(lots_);
    put(catagories_, catagories);
    put(units_, units);
    put(stores_, stores);
    put(meals_, meals);
    put(serving_sizes_, meal_serving_size);
    put(documents_, meal_documents);
    put(wams_, wams);
    put(pooled_strings_, pooled_strings);
    project_modified = modified_;
}

}  // namespace tavernook
