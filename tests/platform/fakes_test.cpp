#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "fakes/test_platform.h"
#include "platform/platform.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

TEST(FakeClockTest, StandsStillExceptForWaiting) {
    FakeClock clock;
    clock.time = 45000;
    EXPECT_EQ(clock.now(), 45000);
    EXPECT_EQ(clock.now(), 45000);
    clock.wait_seconds(21600);
    clock.wait_seconds(0.5);
    EXPECT_NEAR(clock.now(), 45000.25 + 0.5 / 86400, 1e-9);
    EXPECT_EQ(clock.waited, 21600.5);
}

TEST(FakeSaveProgressTest, RecordsEvents) {
    FakeSaveProgress progress;
    progress.load("Saving", "Saving....");
    progress.show();
    progress.set_label("Items");
    progress.workbar(25);
    progress.hide();
    progress.unload();
    EXPECT_EQ(progress.events(),
              (Texts{"load Saving|Saving....", "show", "label Items", "bar 25", "hide", "unload"}));
}

TEST(FakeMainTest, KeepsTheLastValuesAndEveryCall) {
    CallLog calls;
    FakeMain window(calls);
    FakeScreens children(calls);
    window.set_title("Home");
    window.set_status(activity_panel, "Ready");
    window.set_toolbar_state(2);
    window.enable_project_menus(true);
    window.set_toolbar_captions(true);
    window.set_recent_files({"/a.tvk", "/b.tvk"});
    window.set_geometry({4, 3, 2, 1});
    window.start_timer_pair();
    window.enable_timer(true);
    window.show_welcome_dialog();
    children.unload_all();
    children.hide_all();
    children.show_meal_plan();
    children.load_food_inventory();
    bool ran = false;
    window.on_unload = [&] { ran = true; };
    window.unload();
    window.end_program();

    EXPECT_EQ(window.title, "Home");
    EXPECT_EQ(window.status[3], "Ready");
    EXPECT_EQ(window.toolbar_state, 2);
    EXPECT_TRUE(window.project_menus);
    EXPECT_TRUE(window.captions);
    EXPECT_EQ(window.recent_files, (Texts{"/a.tvk", "/b.tvk"}));
    EXPECT_EQ(window.geometry(), (WindowGeometry{4, 3, 2, 1}));
    EXPECT_EQ(window.timer_pair_starts, 1);
    EXPECT_TRUE(window.timer_enabled);
    EXPECT_EQ(window.welcome_dialogs, 1);
    EXPECT_EQ(window.unloads, 1);
    EXPECT_EQ(window.program_ends, 1);
    EXPECT_TRUE(ran);
    EXPECT_EQ(calls.entries,
              (Texts{"title Home", "status 3 Ready", "toolbar 2", "menus on", "captions on",
                     "recent /a.tvk|/b.tvk", "geometry 4 3 2 1", "timer pair", "timer on",
                     "welcome", "unload all", "hide all", "show meal plan", "load food inventory",
                     "unload", "end program"}));
}

TEST(FakeMainTest, APanelOrModeThatDoesNotExistFailsTheTest) {
    CallLog calls;
    FakeMain window(calls);
    EXPECT_NONFATAL_FAILURE(window.set_status(5, "x"), "no panel 5");
    EXPECT_NONFATAL_FAILURE(window.set_toolbar_state(3), "No toolbar state 3");
}

TEST(SmallFakesTest, RememberWhatTheyWereTold) {
    FakeSettingsStore store;
    EXPECT_EQ(store.get("s", "k"), "");
    store.set("s", "k", "v");
    EXPECT_EQ(store.get("s", "k"), "v");
    EXPECT_EQ(store.get("k", "s"), "");

    FakeFileAssociations associations;
    associations.write();
    EXPECT_EQ(associations.writes, 1);

    FakeProjectLock lock;
    lock.taken_elsewhere = {"/theirs"};
    EXPECT_FALSE(lock.acquire("/theirs"));
    EXPECT_TRUE(lock.acquire("/ours"));
    EXPECT_EQ(lock.held, std::set<std::string>{"/ours"});
    lock.release("/ours");
    EXPECT_TRUE(lock.held.empty());

    FakeHelpViewer help;
    EXPECT_TRUE(help.show_contents());
    EXPECT_TRUE(help.show_search());
    help.available = false;
    EXPECT_FALSE(help.show_contents());
    EXPECT_FALSE(help.show_search());
    EXPECT_EQ(help.contents_shown, 1);
    EXPECT_EQ(help.searches_shown, 1);
}

TEST(TempFolderTest, IsUniqueAndGoneAtTheEnd) {
    std::string path;
    {
        TempFolder one;
        TempFolder two;
        path = one.path();
        EXPECT_NE(one.path(), two.path());
        write_whole_file(one.path("a"), std::string("x\0y", 3));
        EXPECT_EQ(read_whole_file(one.path("a")), std::string("x\0y", 3));
    }
    EXPECT_FALSE(DiskFiles().exists(path));
    EXPECT_THROW(read_whole_file(path + "/a"), std::runtime_error);
    EXPECT_THROW(write_whole_file(path + "/a", "x"), std::runtime_error);
}

TEST(TestPlatformTest, HandsOverItsFakes) {
    TestPlatform platform;
    EXPECT_EQ(&platform_clock(), &platform.clock);
    EXPECT_EQ(&boxes(), &platform.boxes);
    EXPECT_EQ(&file_dialogs(), &platform.dialogs);
    EXPECT_EQ(&files(), &platform.files);
    EXPECT_EQ(&settings_store(), &platform.settings);
    EXPECT_EQ(&file_associations(), &platform.associations);
    EXPECT_EQ(&project_lock(), &platform.lock);
    EXPECT_EQ(&system_info(), &platform.system);
    EXPECT_EQ(&help_viewer(), &platform.help);
    EXPECT_EQ(&save_progress(), &platform.progress);
    EXPECT_EQ(&main_window(), &platform.main);
    EXPECT_EQ(&screens(), &platform.screens);
    EXPECT_EQ(system_info().program_folder(), platform.path("program"));
    EXPECT_EQ(system_info().settings_folder(), platform.path("settings"));
    EXPECT_TRUE(platform.disk.exists(platform.path("program")));
    EXPECT_TRUE(platform.disk.exists(platform.path("settings")));
    EXPECT_EQ(platform.files.operations(), 0);
}

TEST(TestPlatformTest, TheTranscriptTellsTheOrderAcrossFakes) {
    TestPlatform platform;
    platform.boxes.expect_message("Saved.");
    platform.dialogs.expect_open("Open", "/a");
    main_window().set_title("Home");
    save_progress().workbar(25);
    files().exists("/a.tvk");
    file_dialogs().open_file({"Open", "", ""});
    boxes().message("Saved.");
    screens().hide_all();
    EXPECT_EQ(platform.transcript,
              (Texts{"window title Home", "progress bar 25", "file exists a.tvk", "dialog Open",
                     "box Saved.", "window hide all"}));
    EXPECT_EQ(platform.calls.entries, (Texts{"title Home", "hide all"}));
}

TEST(TestPlatformTest, LeftoversFailTheTestAtItsEnd) {
    auto platform = std::make_unique<TestPlatform>();
    platform->boxes.expect_message("Never");
    EXPECT_NONFATAL_FAILURE(platform.reset(), "Never asked");
    platform = std::make_unique<TestPlatform>();
    platform->dialogs.expect_save("Never", cancelled);
    EXPECT_NONFATAL_FAILURE(platform.reset(), "Never asked");
}

TEST(TestPlatformTest, AnUnannouncedBoxFailsTheTestWithoutEndingIt) {
    TestPlatform platform;
    EXPECT_NONFATAL_FAILURE(boxes().message("Boo"), "Boo");
}

}  // namespace
}  // namespace tavernook
