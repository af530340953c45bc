// The names that come with imported items, as rows of this project: a row that bears the name, or a
// new one. Lives as long as an import, for which it remembers where each name stands; nobody else
// writes units, stores and the text pool meanwhile.
//
// Capitals do not count in units, stores and texts; in categories they do. A blank name is row 0
// (of categories row 1) and matches nothing. In a table without a free row the first name that
// finds no room is told by that table's own box, and it and all further ones are row 0 (of
// categories row 1): no row in use is ever overwritten.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "basics/values.h"

namespace tavernook {

struct ItemBlock;

class ImportReferences {
  public:
    // Of the tables as they are now. The last row of units and stores and the last of the pool are
    // never found, only taken.
    ImportReferences();

    i16 unit(std::string_view name);
    i16 store(std::string_view name);
    i16 text(std::string_view text);  // cut at 65,535 bytes

    // Among live categories of items; the last one of that name where several bear it.
    i16 catagory(std::string_view name);

    // The names that found no room.
    int lost() const { return lost_; }

    // The block's records with this project's rows: units, store, texts, figures that a project
    // file would put right; locations is none, as its row comes from another project. The category
    // stays as the block has it. Writes no table but those of the names.
    void settle(ItemBlock& block);

  private:
    i16 take_text(std::string_view text);

    using Rows = std::unordered_map<std::string, i16>;

    Rows units_, stores_, texts_;
    i16 next_text_ = 1;  // no row before it is free, the last one apart
    bool units_are_full_ = false;
    bool stores_are_full_ = false;
    bool texts_are_full_ = false;
    int lost_ = 0;
};

}  // namespace tavernook
