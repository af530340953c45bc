// The progress window over work that goes through all items, shown for as long as this lives.
#pragma once

#include <string_view>

namespace tavernook {

class ItemProgress {
  public:
    ItemProgress(std::string_view caption, std::string_view label);
    ~ItemProgress();
    ItemProgress(const ItemProgress&) = delete;
    ItemProgress& operator=(const ItemProgress&) = delete;

    // The bar moves with each full per cent of the items.
    static void at_item(int item);
};

}  // namespace tavernook
