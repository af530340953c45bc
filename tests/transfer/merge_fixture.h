// home.tvk open, and cabin.tvk on the disk, which is taken in.
#pragma once

#include "transfer/backup_fixture.h"
#include "transfer/merge.h"

namespace tavernook {

class MergeTest : public BackupTest {
  protected:
    // Its first store is called "Market"; `change` fills it.
    void put_cabin(const std::function<void()>& change = {}) {
        if (project_open != 0) {
            project_modified = i16_false;
            mnuFile_Close();
        }
        make_project(cabin, "Market", [&] {
            for (UnitRecord& unit : units) unit = {};
            if (change) change();
        });
        begin();
    }
    void user_merges(const std::string& path) {
        platform.dialogs.expect_open("Merge Projects", path);
        mnuFile_ProjectMerge();
    }
    void user_merges_cabin() { user_merges(cabin); }

    static ItemRecord& put_item(i16 slot, const std::string& name) {
        items[slot] = {};
        items[slot].name = name;
        items[slot].category = 1;
        items[slot].in_use = 1;
        return items[slot];
    }
    static MealRecord& put_meal(i16 slot, const std::string& name) {
        meals[slot] = {};
        meals[slot].name = name;
        meals[slot].in_use = 1;
        return meals[slot];
    }
    static int live(const auto& table) {
        return static_cast<int>(std::count_if(table.begin(), table.end(),
                                              [](const auto& one) { return one.in_use != 0; }));
    }
    static i16 item_named(std::string_view name) {
        for (i16 item = 1; item <= item_capacity; ++item) {
            if (items[item].in_use == 1 && items[item].name == name) return item;
        }
        return 0;
    }
};

}  // namespace tavernook
