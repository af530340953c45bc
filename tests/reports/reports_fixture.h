// A household with one item in which each of the 77 fields holds something of its own, a filter as
// the screen begins with it, and short ways to search.
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "inventory/lots.h"
#include "reports/report_fields.h"
#include "reports/report_filter.h"

namespace tavernook {

inline constexpr Date may_15 = 45427;  // 15 May 2024

class ReportsTest : public testing::Test {
  protected:
    static constexpr i16 soup = 7;

    ReportsTest() { begin_report_filter(filter); }

    static void add_item(i16 item, std::string_view name) {
        items[item].name = name;
        items[item].in_use = 1;
    }

    // Item `soup` with all its fields.
    static void add_soup() {
        add_item(soup, "Tomato Soup");
        ItemRecord& item = items[soup];
        ItemDetailRecord& details = item_details[soup];
        item.category = 3;
        catagories[3].name = "Canned Food";
        item.store = 4;
        stores[4].name = "Corner Shop";
        item.store_order = 12;
        item.quantity = 6.5;
        item.cost = 1.25;
        item.qty_units = 5;
        units[5].name = "tin(s)";
        details.manufacturer = 21;
        pooled_strings[21] = "Brenner & Sons";
        details.brand = 22;
        pooled_strings[22] = "Red Pot";
        details.description = 23;
        pooled_strings[23] = "Thick and smooth";
        details.notes = 24;
        pooled_strings[24] = "Shake well";
        item.locations = 25;
        pooled_strings[25] = "Cellar,Shelf 2,Left";
        item.storage_time = 400;
        item.last_restock_date = may_15 + 0.5;
        item.stock_quantity = 8;
        item.restock_quantity = 2.75;
        item.barcode = "5012345678";
        item.serving_size = 0.5;
        item.serving_size_units = 6;
        units[6].name = "bowl(s)";
        item.servings_per_qty_unit = 2.5;
        details.fat = 21.5;
        details.calories = 220;
        details.cholestorol = 23;
        details.sodium = 24.25;
        details.potassium = 25;
        details.carbohydrates = 26;
        details.fiber = 27;
        details.sugars = 28;
        details.protien = 29.125;
        add_lots();
    }

    // Lot A holds 100.5, lot B 101.5 and so on; dates in December and in June.
    static void add_lots() {
        init_lot_record(soup);
        for (std::size_t place = 0; place < lot_places; ++place) {
            const auto day = static_cast<int>(place) + 1;
            lots[soup].lot_quantity[place] = 100.5 + static_cast<f64>(place);
            lots[soup].expiration_date[place] = date_from_civil(2025, 12, day);
            lots[soup].creation_date[place] = date_from_civil(2024, 6, day) + 0.25;
        }
    }

    // What the fields of `soup` read as, from row 1 on; blanks around texts trimmed.
    static std::vector<std::string> soup_texts() {
        std::vector<std::string> texts = {"Tomato Soup", "Canned Food",
                                          "Corner Shop", "12",
                                          "6.5",         "1.25",
                                          "tin(s)",      "Brenner & Sons",
                                          "Red Pot",     "Thick and smooth",
                                          "Shake well",  "Cellar,Shelf 2,Left",
                                          "400",         "5/15/2024",
                                          "8",           "2.75",
                                          "5012345678",  "0.5",
                                          "bowl(s)",     "2.5",
                                          "21.5",        "220",
                                          "23",          "24.25",
                                          "25",          "26",
                                          "27",          "28",
                                          "29.125"};
        for (int day = 1; day <= lot_places; ++day) {
            texts.push_back(std::to_string(99 + day) + ".5");
            texts.push_back("12/" + std::to_string(day) + "/2025");
            texts.push_back("6/" + std::to_string(day) + "/2024");
        }
        return texts;
    }

    std::string& search_string(int row) {
        return filter.search_strings[static_cast<std::size_t>(row)];
    }
    std::string& logic_string(int row) {
        return filter.logic_strings[static_cast<std::size_t>(row)];
    }
    i16& checked(int row) { return filter.row_checked[static_cast<std::size_t>(row)]; }

    std::vector<i16> found() {
        search_engine(filter);
        std::vector<i16> numbers;
        for (i16 item = 1; item <= item_capacity; ++item) {
            const bool flagged = filter.result_flags[static_cast<std::size_t>(item)] != 0;
            if (flagged && items[item].in_use == 1) numbers.push_back(item);
        }
        return numbers;
    }

    // A filter of this one search string finds `soup`.
    bool finds_soup(int row, const std::string& pattern) {
        const std::string kept = search_string(row);
        search_string(row) = pattern;
        const bool finds = !found().empty();
        search_string(row) = kept;
        return finds;
    }

    TestPlatform platform;
    std::unique_ptr<ReportFilter> owned = std::make_unique<ReportFilter>();
    ReportFilter& filter = *owned;
};

}  // namespace tavernook
