// The open project home.tvk with the live items 3 and 4, and the folder of its usage histories.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <string>

#include "basics/fault_expectation.h"
#include "core/program_folders.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "inventory/usage_history.h"

namespace tavernook {

using Content = std::map<std::string, std::string>;

class UsageFiles : public testing::Test {
  protected:
    UsageFiles() {
        platform.disk.make_folder(reports);
        set_project_path(platform.path("home.tvk"));
        items[3].in_use = 1;
        items[4].in_use = 1;
    }
    void put(const std::string& name, const std::string& bytes) {
        write_whole_file(reports + "/" + name, bytes);
    }
    Content content() {
        Content found;
        for (const auto& file : std::filesystem::directory_iterator(reports)) {
            found[file.path().filename().string()] = read_whole_file(file.path().string());
        }
        return found;
    }
    static void move(i16 item, f64 amount) { record_item_usage(item, amount, usage_added, 0); }

    // What `move` leaves.
    std::string entry(f64 amount) const {
        return encode_usage({amount, platform.clock.time, usage_added, 0});
    }

    TestPlatform platform;
    const std::string reports = platform.system.program + "/reports";
    const std::string old_moves =
        encode_usage({1, 45000, usage_added, 0}) + encode_usage({2, 45001, usage_removed, 1});
};

}  // namespace tavernook
