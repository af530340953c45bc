// An open project "pantry.tvk" with a folder for the usage history, and short ways to fill and to
// look at it.
#pragma once

#include <array>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "basics/fault_expectation.h"
#include "core/program_folders.h"
#include "core/project_data.h"
#include "fakes/temp_folder.h"
#include "fakes/test_platform.h"
#include "inventory/lots.h"

namespace tavernook {

// The box of a routine of the logic.
inline std::string module_error(int number) {
    return "Tavernook error: rt6:" + std::to_string(number) + ". Contact Brenwyk Software.";
}

class PantryTest : public testing::Test {
  protected:
    PantryTest() {
        platform.disk.make_folder(platform.system.program + "/reports");
        set_project_path("/home/me/pantry.tvk");
    }

    // A live item with empty lots that keeps for 30 days and is counted in unit 1, "each".
    static i16 add_item(i16 item, std::string_view name = "Flour") {
        items[item].name = name;
        items[item].in_use = 1;
        items[item].storage_time = 30;
        items[item].qty_units = 1;
        init_lot_record(item);
        return item;
    }

    // Fills places from 0 on, one day apart, and keeps the item's quantity true.
    template <typename... Quantities>
    static void fill_lots(i16 item, Quantities... quantities) {
        std::size_t place = 0;
        for (const f64 quantity : {static_cast<f64>(quantities)...})
            set_lot(item, place++, quantity);
        items[item].quantity = lot_total(item);
    }

    static void set_lot(i16 item, std::size_t place, f64 quantity) {
        lots[item].lot_quantity[place] = quantity;
        lots[item].creation_date[place] = 45000 + static_cast<f64>(place);
        lots[item].expiration_date[place] = 45030 + static_cast<f64>(place);
    }

    static void expect_lot(i16 item, std::size_t place, f64 quantity, Date created, Date expires) {
        EXPECT_EQ(lots[item].lot_quantity[place], quantity) << "place " << place;
        EXPECT_EQ(lots[item].creation_date[place], created) << "place " << place;
        EXPECT_EQ(lots[item].expiration_date[place], expires) << "place " << place;
    }

    // "pantry000007.dat" and its like in the folder of the usage history.
    std::string report_path(std::string_view name) const {
        return platform.system.program + "/reports/" + std::string(name);
    }

    std::string report_bytes(std::string_view name) {
        return platform.disk.exists(report_path(name)) ? read_whole_file(report_path(name)) : "";
    }

    // The routine shows its box for that Fault and answers `answer`.
    template <typename Call, typename Answered>
    void expect_trapped(int number, Call&& call, const Answered& answer) {
        platform.boxes.expect_message(module_error(number));
        EXPECT_EQ(call(), answer);
        platform.boxes.check_used_up();
    }
    template <typename Call>
    void expect_trapped(int number, Call&& call) {
        platform.boxes.expect_message(module_error(number));
        call();
        platform.boxes.check_used_up();
    }

    // How often a usage entry was written since the fakes started or were started over.
    int moves_written() const {
        int count = 0;
        for (const std::string& entry : platform.files.log()) count += entry.starts_with("write ");
        return count;
    }

    TestPlatform platform;
    const Date now = platform.clock.time;
};

// Eight little-endian bytes of the f64 with that bit pattern.
inline std::string bytes_of(unsigned long long bits) {
    std::string bytes;
    for (int byte = 0; byte < 8; ++byte) bytes += static_cast<char>(bits >> (8 * byte) & 0xFFU);
    return bytes;
}

}  // namespace tavernook
