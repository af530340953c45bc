// Free slots for many new items at once.
#pragma once

namespace tavernook {

// While one lives, items are only added: find_free_item_slot goes on where it ended last instead of
// beginning at slot 1, with the same answers. They do not nest.
class OnlyAddingItems {
  public:
    OnlyAddingItems();
    ~OnlyAddingItems();
    OnlyAddingItems(const OnlyAddingItems&) = delete;
    OnlyAddingItems& operator=(const OnlyAddingItems&) = delete;
};

}  // namespace tavernook
