// An item with empty lots, number 3.
#pragma once

#include "inventory/pantry_fixture.h"
#include "inventory/usage_history.h"

namespace tavernook {

class LotsTest : public PantryTest {
  protected:
    const i16 flour = add_item(3);
    LotRecord& record = lots[flour];

    // The last entry of the working copy.
    UsageEntry last_move() {
        const std::vector<UsageEntry> entries = decode_usage(report_bytes("pantry000003.tmp"));
        return entries.empty() ? UsageEntry{} : entries.back();
    }

    void fill_all(f64 quantity) {
        for (std::size_t place = 0; place < lot_places; ++place) set_lot(flour, place, quantity);
        items[flour].quantity = lot_total(flour);
    }
};

}  // namespace tavernook
