// A project on the disk, another one in memory, and what "nothing is lost" means for the user when
// the save between them goes wrong.
#pragma once

#include <functional>
#include <memory>

#include "core/project_file/project_file_testing.h"

namespace tavernook {

using SnapshotPointer = std::unique_ptr<TableSnapshot>;

// Changes that move every section and block behind the items.
inline void make_changes() {
    items[3].name = "Rye flour";
    for (int slot = 20; slot < 60; ++slot) {
        items[slot].in_use = 1;
        items[slot].name = "New " + std::to_string(slot);
    }
    lots.grow(60);
    for (int slot = 20; slot < 60; ++slot) lots[slot].lot_quantity[0] = slot;
    wams[2].text = "1 cup = 16 tbsp";
    pooled_strings[6] = "Another mill of a longer name";
    item_details[3].notes = 9;
    day_quantities[8].meal_servings[1] = 5;
    meal_serving_size[9] = 6;
}

class SaveSafety : public ProjectFileTest {
  protected:
    SaveSafety() {
        fill_small_project();
        old_bytes = save();
        open();
        old_tables = std::make_unique<TableSnapshot>();
        make_changes();
        new_bytes = save();
        open();
        new_tables = std::make_unique<TableSnapshot>();
    }

    // The old project on the disk, opened and changed; everything else in the folder is gone.
    void start_over() {
        platform.files.start_over();
        for (const std::string& name : platform.disk.list(platform.temp.path(), "")) {
            platform.disk.remove(platform.path(name));
        }
        open(old_bytes);
        make_changes();
        platform.files.start_over();
    }

    int operations_of(const std::function<void()>& work) {
        start_over();
        note_boxes();
        work();
        const int operations = platform.files.operations();
        start_over();
        return operations;
    }

    FolderState disk_state() const { return state_of(platform.temp.path()); }
    void restore(const FolderState& state) {
        for (const auto& [path, content] : disk_state()) {
            if (content != "folder" && !state.contains(path)) platform.disk.remove(path);
        }
        for (const auto& [path, content] : state) {
            if (content != "folder") write_whole_file(path, content);
        }
    }

    // Opens as a fresh program does and tells which project came: "old", "new", "none", "mixed".
    std::string project_after_opening(Answer answer) {
        platform.files.start_over();
        note_boxes(answer);
        open();
        if (project_load_failed != 0) return "none";
        const TableSnapshot now;
        if (now.difference(*old_tables).empty()) return "old";
        return now.difference(*new_tables).empty() ? "new" : "mixed " + now.difference(*new_tables);
    }
    bool was_asked() const {
        return !notes.texts.empty() && notes.texts[0].starts_with("The last save of home.tvk was");
    }

    // What "Nothing is lost" means for the user, whichever answer is given.
    void expect_nothing_lost() {
        const FolderState state = disk_state();
        const std::string after_yes = project_after_opening(Answer::yes);
        EXPECT_TRUE(after_yes == "old" || after_yes == "new") << after_yes;

        restore(state);
        const std::string after_no = project_after_opening(Answer::no);
        if (after_no == "old" || after_no == "new") return;
        EXPECT_EQ(after_no, "none");
        ASSERT_TRUE(was_asked());
        if (notes.texts.size() > 1) {
            EXPECT_EQ(notes.texts[1], bad_record_box);
        } else {
            EXPECT_FALSE(platform.disk.exists(home));  // nothing to open, which is silent
        }
        EXPECT_EQ(disk_state(), state);
        EXPECT_EQ(project_after_opening(Answer::yes), after_yes);
    }

    // A save that failed with this fault has told so in one box.
    void expect_told(bool saved, int fault) {
        if (saved) {
            EXPECT_TRUE(notes.texts.empty());
            return;
        }
        EXPECT_EQ(notes.texts,
                  std::vector<std::string>{
                      "There has been a file access error.  The error number is ERROR #: " +
                      std::to_string(fault)});
    }

    void save_failing_at(int n, int fault, Repeat repeat, Torn torn) {
        platform.files.start_over();
        platform.files.fail_at(n, fault, repeat, torn);
        note_boxes();
        const bool saved = Project_Save(1);
        expect_told(saved, fault);
        platform.files.start_over();
    }

    std::string old_bytes, new_bytes;
    SnapshotPointer old_tables, new_tables;
};

inline void save_silently() {
    (void)Project_Save(1);
}

}  // namespace tavernook
