// An open project "home.tvk" and its item screen, for the commands that exchange inventories.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "basics/code_page.h"
#include "core/changes.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/string_storage.h"
#include "fakes/test_platform.h"
#include "inventory/lots.h"

namespace tavernook {

using Lines = std::vector<std::string>;

class ExchangeTest : public testing::Test {
  protected:
    ExchangeTest() {
        platform.clock.time = present;
        set_project_path(platform.path("home.tvk"));
        project_open = i16_true;
        look_for_changes();
    }

    // 22 November 2026, 18:00.
    static constexpr Date present = 46348.75;

    const Lines& log() const { return platform.import_form.log.entries; }
    std::string last_line() const {
        const Lines& lines = log();
        return lines.size() < 2 ? "" : lines[lines.size() - 2].substr(5);
    }
    bool is_logged(const std::string& line) const {
        return std::find(log().begin(), log().end(), "line " + line) != log().end();
    }
    std::string message() { return platform.main.status[message_panel]; }

    static int live_items() {
        int live = 0;
        for (const ItemRecord& item : items) live += item.in_use == 1 ? 1 : 0;
        return live;
    }
    static std::string name(i16 item) { return std::string(items[item].name.trimmed()); }
    static std::string unit(i16 row) { return std::string(units[row].name.trimmed()); }
    static std::string store(i16 row) { return std::string(stores[row].name.trimmed()); }
    static std::string catagory(i16 item) {
        return std::string(catagories[items[item].category].name.trimmed());
    }
    static std::string text(i16 row) { return std::string(pooled_text(row)); }

    static void make_item(i16 slot, const std::string& name, i16 catagory = 1) {
        items[slot].in_use = 1;
        items[slot].name = name;
        items[slot].category = catagory;
    }
    static void make_catagory(i16 row, const std::string& name, i16 type = -1) {
        catagories[row].in_use = 1;
        catagories[row].name = name;
        catagories[row].type = type;
    }

    TestPlatform platform;
    FakeFoodInventory screen{platform.calls};
};

}  // namespace tavernook
