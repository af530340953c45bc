// A user's session with the program, for the tests of the main window's commands: files made
// beforehand, commands with the answers to their dialogs, and what the user then sees.
#pragma once

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/daily_audit.h"
#include "core/project/file_management.h"
#include "core/project/main_commands.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {

using Steps = std::vector<std::string>;

inline constexpr const char* project_filter = "Tavernook Files (*.tvk)|*.tvk";
inline constexpr const char* save_question =
    "Project has been modified.  Would you like to save before closing?";

inline std::string save_error(int number) {
    return "There has been a file access error.  The error number is ERROR #: " +
           std::to_string(number);
}

class SessionTest : public testing::Test {
  protected:
    TestPlatform platform;
    const std::string home = platform.path("home.tvk");
    const std::string cabin = platform.path("cabin.tvk");

    std::string in_program(const std::string& name) { return platform.system.program + "/" + name; }

    // A project on the disk whose first store bears the name; the program is fresh afterwards.
    void make_project(const std::string& path, const std::string& store,
                      const std::function<void()>& change = {}) {
        reset_program_state();
        file_version = 1;
        project_created = 45000;
        stores[1].name = store;
        stores[1].in_use = 1;
        audit_hour = 23;
        audit_minute = 59;
        if (change) change();
        project_path = path;
        ASSERT_TRUE(Project_Save(1));
        reset_program_state();
        forget_steps();
    }
    // A file that is no project at all.
    void make_damaged(const std::string& path) { write_whole_file(path, std::string(400, '\0')); }

    void start() {
        hide_welcome();
        main_load("");
        forget_steps();
    }
    void hide_welcome() {
        std::string bytes(3031, '\0');
        bytes[1999] = '\xFF';
        bytes[2000] = '\xFF';
        write_whole_file(platform.system.settings + "/TVK.dat", bytes);
    }
    void user_creates(const std::string& path) {
        platform.dialogs.expect_save("New Project", path);
        mnuFile_NewProject();
    }
    void user_opens(const std::string& path) {
        platform.dialogs.expect_open("Open Project", path);
        main_open();
    }
    void user_saves_as(const std::string& path) {
        platform.dialogs.expect_save("Save As", path);
        mnuFile_SaveAs();
    }
    ExpectedBox& user_is_asked_to_save(Answer answer) {
        return platform.boxes.expect_message(save_question, answer)
            .title("Project Modified")
            .buttons(Buttons::yes_no_cancel);
    }
    // The user's change: the first store gets another name.
    void user_renames_store(const std::string& name) {
        stores[1].name = name;
        stores[1].in_use = 1;
        project_modified = i16_true;
    }

    std::string store() { return std::string(stores[1].name.right_trimmed()); }

    // The name of the first store in the project file, read past the program: the store section's
    // position is the i32 at position 27, its first record's name follows the slot number.
    std::string store_on_disk(const std::string& path) {
        const std::string bytes = read_whole_file(path);
        std::size_t position = 0;
        for (std::size_t byte = 4; byte-- > 0;) {
            position = position * 256 + static_cast<unsigned char>(bytes.at(26 + byte));
        }
        const std::string name = bytes.substr(position - 1 + 2, 12);
        return name.substr(0, name.find_last_not_of(' ') + 1);
    }
    // How many audits the progress window has told of.
    int audits() const {
        const auto& events = platform.progress.events();
        return static_cast<int>(
            std::count(events.begin(), events.end(),
                       "load Auditing Inventory|Auditing Inventory...Please Wait"));
    }
    bool exists(const std::string& path) { return std::filesystem::exists(path); }

    // What the program told its windows, boxes and dialogs since the last call of forget_steps.
    Steps steps() {
        Steps told = platform.transcript;
        std::erase_if(told, [](const std::string& step) { return step.starts_with("file "); });
        return told;
    }
    // The same, of the main window and its screens only.
    Steps window_steps() {
        Steps told = platform.transcript;
        std::erase_if(told, [](const std::string& step) { return !step.starts_with("window "); });
        return told;
    }
    void forget_steps() {
        platform.transcript.clear();
        platform.files.start_over();
    }

    // Saves the open project and returns which file operation of it is the first write.
    int first_write_of_a_save() {
        platform.files.start_over();
        mnuFile_Save();
        const auto& log = platform.files.log();
        const auto write = std::find_if(log.begin(), log.end(), [](const std::string& entry) {
            return entry.starts_with("write ");
        });
        EXPECT_NE(write, log.end());
        return static_cast<int>(write - log.begin()) + 1;
    }
    // The disk is full at the n-th file operation from now on, and has room again behind it.
    void disk_is_full_at(int n) {
        platform.files.start_over();
        platform.files.fail_at(n, fault_number::disk_full);
    }

    void expect_open(const std::string& path, const std::string& name) {
        EXPECT_EQ(project_open, i16_true);
        EXPECT_EQ(project_path, path);
        EXPECT_EQ(project_name, name);
        EXPECT_EQ(platform.main.title, "Tavernook - " + name);
        EXPECT_EQ(platform.main.toolbar_state, 2);
        EXPECT_TRUE(platform.main.project_menus);
        EXPECT_EQ(platform.lock.held, std::set<std::string>{path});
    }
    void expect_idle() {
        EXPECT_EQ(project_open, i16_false);
        EXPECT_EQ(project_modified, i16_false);
        EXPECT_EQ(platform.main.title, "Tavernook");
        EXPECT_EQ(platform.main.toolbar_state, 1);
        EXPECT_FALSE(platform.main.project_menus);
        EXPECT_TRUE(platform.lock.held.empty());
        EXPECT_EQ(store(), "");
    }
};

}  // namespace tavernook
