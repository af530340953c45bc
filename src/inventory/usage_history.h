// The usage history: every stock move leaves a 21-byte entry in a small file of its item, in the
// folder "reports". The moves since the last save are in a ".tmp" working copy beside the ".dat"
// file of the saved history, so that an unsaved run leaves the history as it was.
//
//   entry k, from 1, at byte (k - 1) * 21:   1 filler byte, then
//   0  f64   amount moved, positive, in qty_units
//   8  date  date and time of the move
//   16 i16   kind: 1 removed, 2 added
//   18 i16   lot place 0..15
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basics/date.h"
#include "basics/values.h"

namespace tavernook {

inline constexpr i16 usage_removed = 1;
inline constexpr i16 usage_added = 2;
inline constexpr std::size_t usage_entry_size = 21;

struct UsageEntry {
    f64 amount = 0;
    Date moved = 0;
    i16 kind = 0;
    i16 lot_place = 0;
    bool operator==(const UsageEntry&) const = default;
};

// Whole entries only; a rest at the end that is none is passed over.
std::vector<UsageEntry> decode_usage(std::string_view bytes) noexcept;
std::string encode_usage(const UsageEntry& entry) noexcept;

// Writes the move into the item's working copy, behind the saved entries. The next move before a
// save takes the same place: the history keeps the last move of each save, and files and habits
// depend on it. A history that cannot be written does not stop a stock move; nor does an item that
// is none.
void record_item_usage(i16 item, f64 amount, i16 kind, i16 lot_place) noexcept;

// While one lives, moves are kept and not written; then each item's last one goes into its working
// copy. Nothing else of them would stay, and long work writes a file an item instead of a file a
// move. None may live while the project is saved. They do not nest.
class HeldUsage {
  public:
    HeldUsage();
    ~HeldUsage();
    HeldUsage(const HeldUsage&) = delete;
    HeldUsage& operator=(const HeldUsage&) = delete;
};

// The saved history as a fragment of HTML; "*" when there is none, or only that of an item that had
// the slot before.
std::string Get_Item_Usage(i16 item) noexcept;

}  // namespace tavernook
