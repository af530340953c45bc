// What an import has brought: the live records of now against those before it, and the rows that
// were left out. Told from the tables, so that it never says more than happened.
//
//     const ImportTally tally;
//     ... the import ...
//     say("Imported " + tally.words() + left_out.words() + ".");
#pragma once

#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

struct LiveCounts {
    int items = 0;
    int recipes = 0;
    int units = 0;
    int stores = 0;
    int catagories = 0;  // of items and of recipes
    int measures = 0;    // lines of weights and measures
    bool operator==(const LiveCounts&) const = default;
};

// As they are now.
LiveCounts live_counts() noexcept;

class ImportTally {
  public:
    // Counts from here.
    ImportTally() : before_(live_counts()) {}

    // What has come since; what went counts as none.
    LiveCounts gained() const;

    // "12 items, 1 recipe, 2 new units and 1 new store"; "nothing" when nothing came.
    std::string words() const;

  private:
    LiveCounts before_;
};

// Rows of a file that could not be taken. The first one stands for all.
class LeftOut {
  public:
    // `row` is where it stands, as a user finds it: "line 12".
    void add(std::string_view row, std::string_view why);

    int count() const { return count_; }

    // Empty when there are none; else "; 3 rows were left out, the first is line 12: WHY".
    std::string words() const;

  private:
    int count_ = 0;
    std::string first_;
};

}  // namespace tavernook
