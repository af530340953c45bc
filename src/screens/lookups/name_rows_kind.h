// What tells the screens of stores and of units apart: their words, and the routines over their
// table.
#pragma once

#include <QString>
#include <array>
#include <string_view>
#include <vector>

#include "basics/values.h"
#include "core/changes.h"

namespace tavernook {

struct NameRowsKind {
    Subject table;
    QString label;        // with its mnemonic
    QString one, plural;  // "store", "Stores"
    int longest_name;
    std::array<i16, 1001>& list_map;
    i16& edit_mode;
    i16& list_row;
    std::string_view (*name_of)(i16 slot);               // empty for a free one
    void (*count_uses)(std::array<int, 1001>& by_slot);  // live items
    void (*refresh_list)();
    void (*accept)(std::string_view name);
    void (*delete_selected)(const std::vector<int>& rows);
    void (*refresh_boxes)();  // those of the item screen
};

}  // namespace tavernook
