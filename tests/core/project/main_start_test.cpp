// The program comes up: what its main window's load reads, sets and shows, in this order.
#include "core/project/session_testing.h"

namespace tavernook {

namespace {

// "TVK.dat" with these words; the recent projects stay empty.
std::string settings_bytes(int hide_welcome, int height, int width, int left, int top) {
    std::string bytes(3031, '\0');
    const auto put = [&](std::size_t position, int word) {
        bytes[position - 1] = static_cast<char>(word & 0xFF);
        bytes[position] = static_cast<char>((word >> 8) & 0xFF);
    };
    put(2000, hide_welcome);
    put(3000, height);
    put(3010, width);
    put(3020, left);
    put(3030, top);
    return bytes;
}

class MainStart : public SessionTest {
  protected:
    std::string settings_path() { return platform.system.settings + "/TVK.dat"; }

    // Window steps and the looks for the settings file.
    Steps steps_with_settings_file() {
        Steps told = platform.transcript;
        std::erase_if(told, [](const std::string& step) {
            return step.starts_with("file ") && step != "file exists TVK.dat";
        });
        return told;
    }
};

TEST_F(MainStart, AFirstStartGoesInThisOrder) {
    main_load("");
    EXPECT_EQ(steps_with_settings_file(),
              (Steps{"window status 3 Start-up", "file exists TVK.dat", "window toolbar 1",
                     "window menus off", "file exists TVK.dat", "window recent ", "window welcome",
                     "window timer pair"}));
    EXPECT_FALSE(exists(settings_path()));
}

TEST_F(MainStart, ALaterStartRestoresTheWindowAndGreetsNobody) {
    write_whole_file(settings_path(), settings_bytes(-1, 700, 1100, 40, 30));
    main_load("");
    EXPECT_EQ(steps_with_settings_file(),
              (Steps{"window status 3 Start-up", "file exists TVK.dat",
                     "window geometry 700 1100 40 30", "window toolbar 1", "window menus off",
                     "file exists TVK.dat", "window recent ", "window timer pair"}));
    EXPECT_EQ(hide_welcome_dialog, -1);
}

TEST_F(MainStart, GeometryWordsAllZeroLeaveTheWindowAtItsDesignedSize) {
    write_whole_file(settings_path(), settings_bytes(-1, 0, 0, 0, 0));
    platform.main.window = {600, 800, 5, 6};
    main_load("");
    EXPECT_EQ(platform.main.window, (WindowGeometry{600, 800, 5, 6}));
}

TEST_F(MainStart, OneGeometryWordThatIsNotZeroPlacesTheWindow) {
    write_whole_file(settings_path(), settings_bytes(-1, 0, 0, 0, -8));
    main_load("");
    EXPECT_EQ(platform.main.window, (WindowGeometry{0, 0, 0, -8}));
    EXPECT_EQ(window_geometry, (WindowGeometry{0, 0, 0, -8}));
}

TEST_F(MainStart, ShortDatesThatStartWithADaySetTheFlag) {
    struct Case {
        const char* format;
        i16 before;
        i16 after;
    };
    for (const Case& c : {Case{"M/d/yy", 1, 0}, Case{"mm/dd/yyyy", 1, 0}, Case{"dd.MM.yyyy", 0, 1},
                          Case{"D-M-YY", 0, 1}, Case{"yyyy-MM-dd", 0, 0}, Case{"yyyy-MM-dd", 1, 1},
                          Case{"", 1, 1}}) {
        platform.system.date_format = c.format;
        date_day_first = c.before;
        main_load("");
        EXPECT_EQ(date_day_first, c.after) << c.format;
    }
}

TEST_F(MainStart, FoldersAreThoseOfTheProgram) {
    main_load("");
    EXPECT_EQ(recipes_folder, in_program("recipes/"));
    EXPECT_EQ(settings_file, settings_path());
}

TEST_F(MainStart, DefaultsAreThoseOfANewProject) {
    project_open = i16_true;
    expiration_warning_days = 1;
    audit_hour = 2;
    audit_minute = 3;
    sales_tax = 4;
    font_size = 12;
    main_load("");
    EXPECT_EQ(project_open, 0);
    EXPECT_EQ(expiration_warning_days, 10);
    EXPECT_EQ(audit_hour, 23);
    EXPECT_EQ(audit_minute, 59);
    EXPECT_EQ(sales_tax, 0);
    EXPECT_EQ(font_size, 12);
}

TEST_F(MainStart, TheRecentMenuShowsWhatTheStoreHolds) {
    platform.settings.set("Recent Files", "RecentFile1", "/a/one.tvk");
    platform.settings.set("Recent Files", "RecentFile3", "/a/three.tvk");
    main_load("");
    EXPECT_EQ(platform.main.recent_files, (Steps{"/a/one.tvk", "/a/three.tvk"}));
}

TEST_F(MainStart, WhatKilledProgramsLeftGoesFromTheProgramsFolders) {
    for (const char* folder : {"recipes", "reports", "dat", "barcode"}) {
        platform.disk.make_folder(in_program(folder));
        write_whole_file(in_program(folder) + "/.tavernook-unfinished-a1B2c3", "half a copy");
        write_whole_file(in_program(folder) + "/kept", "x");
    }
    write_whole_file(platform.system.settings + "/.tavernook-unfinished-a1B2c3", "half a copy");
    hide_welcome();
    main_load("");
    for (const char* folder : {"recipes", "reports", "dat", "barcode"}) {
        EXPECT_EQ(platform.disk.list(in_program(folder), ""), Steps{"kept"}) << folder;
    }
    EXPECT_EQ(platform.disk.list(platform.system.settings, ""), Steps{"TVK.dat"});
}

TEST_F(MainStart, ASettingsFileThatCannotBeReadIsToldAndTheStartGoesOn) {
    write_whole_file(settings_path(), settings_bytes(-1, 700, 1100, 40, 30));
    platform.files.fail_at(2, fault_number::device_io_error);
    platform.boxes.expect_message(
        "Error in Module MAIN.load_window_state.  Error Number 57 Err Description=Device I/O "
        "error");
    main_load("");
    EXPECT_EQ(platform.main.window, WindowGeometry{});
    EXPECT_EQ(platform.main.timer_pair_starts, 1);
}

TEST_F(MainStart, APathOnTheCommandLineIsOpenedInsteadOfGreeting) {
    make_project(home, "Corner shop");
    main_load(home);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Corner shop");
    EXPECT_EQ(platform.main.welcome_dialogs, 0);
    EXPECT_EQ(project_load_failed, 0);
    const Steps told = window_steps();
    ASSERT_GE(told.size(), 2U);
    EXPECT_EQ(told.front(), "window status 3 Start-up");
    EXPECT_EQ(told.back(), "window timer pair");
}

TEST_F(MainStart, TheCommandLineOpensIntoTablesThatWereNeverReset) {
    make_project(home, "Corner shop");
    // The marks of a reset would be: this row gone, and every free item's barcode "empty".
    items[77].name = "left as it was";
    items[78].barcode = "";
    main_load(home);
    EXPECT_EQ(items[77].name, "left as it was");
    EXPECT_TRUE(items[78].barcode.blank());
}

TEST_F(MainStart, ACommandLinePathKeepsItsBlanksAndItsNameIsTheLastPart) {
    const std::string path = platform.path("our house in spring.tvk");
    make_project(path, "Corner shop");
    main_load(path);
    expect_open(path, "our house in spring.tvk");
}

TEST_F(MainStart, ACommandLinePathThatDoesNotExistLeavesTheProgramIdleWithoutAMessage) {
    main_load(platform.path("nothing.tvk"));
    EXPECT_EQ(project_load_failed, i16_true);
    expect_idle();
    EXPECT_EQ(platform.main.timer_pair_starts, 1);
    EXPECT_FALSE(platform.main.timer_enabled);
    EXPECT_TRUE(platform.settings.values.empty());
    EXPECT_FALSE(exists(platform.path("nothing.tvk")));
}

TEST_F(MainStart, ADamagedFileOnTheCommandLineIsToldAndTheTimersStart) {
    make_damaged(home);
    platform.boxes.expect_message(
        "FileManagement.Project_Open - File Load Error.  Bad Record Number");
    main_load(home);
    EXPECT_EQ(project_load_failed, i16_true);
    expect_idle();
    EXPECT_EQ(platform.main.timer_pair_starts, 1);
    EXPECT_TRUE(platform.settings.values.empty());
}

TEST_F(MainStart, AProjectThatAnotherProgramHasIsNotOpenedFromTheCommandLine) {
    make_project(home, "Corner shop");
    platform.lock.taken_elsewhere.insert(home);
    platform.boxes.expect_message(
        "The project home.tvk is already open in another Tavernook window.  Close it there first, "
        "then open it here.");
    main_load(home);
    EXPECT_EQ(project_load_failed, i16_true);
    expect_idle();
    EXPECT_EQ(platform.main.timer_pair_starts, 1);
}

}  // namespace

}  // namespace tavernook
