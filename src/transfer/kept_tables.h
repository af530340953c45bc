// The tables as they were before an import, for the user who cancels it and for files that turn out
// to be damaged. Days and settings are no part of it, as no import writes them. Takes as much
// memory again as the tables in use.
#pragma once

#include <string>
#include <vector>

#include "core/records.h"

namespace tavernook {

class KeptTables {
  public:
    // As they are now.
    KeptTables();

    // As they were, with the mark of unsaved changes. Slots that have been taken meanwhile are free
    // again.
    void put_back() const;

  private:
    std::vector<ItemRecord> items_;
    std::vector<ItemDetailRecord> item_details_;
    std::vector<LotRecord> lots_;
    std::vector<CatagoryRecord> catagories_;
    std::vector<UnitRecord> units_;
    std::vector<StoreRecord> stores_;
    std::vector<MealRecord> meals_;
    std::vector<f64> serving_sizes_;
    std::vector<std::string> documents_;
    std::vector<WamRecord> wams_;
    std::vector<std::string> pooled_strings_;
    i16 modified_;
};

}  // namespace tavernook
