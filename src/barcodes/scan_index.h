// What item_of_scan answers, for many codes: the items are gone through once, and not once a code.
// Good as long as no item changes, so that none may outlive a box or a booking.
#pragma once

#include <string_view>
#include <unordered_map>

#include "basics/values.h"

namespace tavernook {

class ScanIndex {
  public:
    // Trims the items' barcodes, as find_barcode does.
    ScanIndex();

    i16 item_of(std::string_view code) const;

  private:
    // The first slots that bear a code; 0 for none.
    struct Bearers {
        i16 any = 0;
        i16 live = 0;
    };
    Bearers bearers_of(std::string_view barcode) const;

    std::unordered_map<std::string_view, Bearers> bearers_;  // keys lie in the items
};

}  // namespace tavernook
