// A household with an open project: milk and flour among the items, nothing on the scan list.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "barcodes/scan_list.h"
#include "barcodes/scan_sources.h"
#include "core/changes.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "inventory/items.h"
#include "inventory/lots.h"

namespace tavernook {

class ScanListTest : public testing::Test {
  protected:
    ScanListTest() {
        project_open = i16_true;
        put_item(milk, "Milk", "0123");
        put_item(flour, "Flour", "4567");
        look_for_changes();
    }

    static void put_item(i16 slot, const char* name, const char* barcode) {
        items[slot].in_use = 1;
        items[slot].name = name;
        items[slot].barcode = barcode;
        items[slot].qty_units = 1;
        init_lot_record(slot);
    }

    // As a deletion does, with the look for changes that every command ends with.
    static void remove_item(i16 slot) {
        items[slot] = ItemRecord{};
        items[slot].barcode = no_barcode;
        clear_lot_record(slot);
        look_for_changes();
    }

    // The id of the row.
    static i32 scan(const char* barcode, f64 quantity = 0, const char* lot = "") {
        populate_item(barcode, quantity, lot);
        return scan_rows.back().id;
    }

    static std::vector<std::string> codes() {
        std::vector<std::string> found;
        for (const ScanRow& row : scan_rows) found.push_back(row.barcode);
        return found;
    }

    // "0123 | Milk | 2 | each | Auto", in the order of the columns.
    static std::vector<std::string> shown() {
        std::vector<std::string> texts;
        for (const ScanRow& row : scan_rows) {
            texts.push_back(row.barcode + " | " + row.name + " | " + row.quantity + " | " +
                            row.units + " | " + row.lot);
        }
        return texts;
    }

    static constexpr i16 milk = 7;
    static constexpr i16 flour = 9;
    TestPlatform platform;
};

using Texts = std::vector<std::string>;

}  // namespace tavernook
