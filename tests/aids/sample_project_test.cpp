#include <sys/stat.h>

#include "aids/sample_fixture.h"
#include "core/project/file_management.h"
#include "core/project/main_commands.h"
#include "fakes/child_process.h"

namespace tavernook {
namespace {

namespace fs = std::filesystem;

// The clock of the tests stands on 15 May 2024, noon.
constexpr Date today = 45427;

TEST_F(SampleTest, TheProjectAndItsDocumentsArePlaced) {
    EXPECT_TRUE(lay_out_sample_project(today));
    EXPECT_TRUE(is_there("sample17.tvk"));
    EXPECT_TRUE(is_there("recipes/sample17000001.rtf"));
    EXPECT_TRUE(is_there("recipes/sample17000028.rtf"));
    for (const auto& entry : fs::recursive_directory_iterator(platform.system.program)) {
        EXPECT_NE(entry.path().extension(), ".new") << entry.path();
    }
}

TEST_F(SampleTest, WithoutAShippedSampleNothingHappens) {
    set_shipped_sample({});
    EXPECT_TRUE(lay_out_sample_project(today));
    EXPECT_FALSE(is_there("sample17.tvk"));
}

TEST_F(SampleTest, AUsersFilesAreNeverOverwritten) {
    fs::create_directories(in_program("recipes"));
    write_whole_file(in_program("sample17.tvk"), "my own");
    write_whole_file(in_program("recipes/sample17000003.rtf"), "");
    EXPECT_TRUE(lay_out_sample_project(today));
    EXPECT_EQ(read_whole_file(in_program("sample17.tvk")), "my own");
    EXPECT_EQ(read_whole_file(in_program("recipes/sample17000003.rtf")), "");
    EXPECT_TRUE(is_there("recipes/sample17000004.rtf"));
}

TEST_F(SampleTest, ALinkThatLeadsNowhereIsTheUsersToo) {
    fs::create_symlink("/no such drive/sample17.tvk", in_program("sample17.tvk"));
    EXPECT_TRUE(lay_out_sample_project(today));
    EXPECT_TRUE(fs::is_symlink(in_program("sample17.tvk")));
}

TEST_F(SampleTest, AProjectOfWhichOnlyThePreviousVersionIsLeftIsNotReplaced) {
    write_whole_file(in_program("sample17.previous.tvk"), "the last good one");
    EXPECT_TRUE(lay_out_sample_project(today));
    EXPECT_FALSE(is_there("sample17.tvk"));
}

TEST_F(SampleTest, ADeletedSampleComesBackAtTheNextStartWithFreshDates) {
    EXPECT_TRUE(lay_out_sample_project(today));
    fs::remove(in_program("sample17.tvk"));
    EXPECT_TRUE(lay_out_sample_project(today + 40));
    platform.clock.time = today + 40.5;
    open_sample();
    EXPECT_EQ(items[item("Apples")].last_restock_date, today + 37);
}

TEST_F(SampleTest, DatesCountFromTheFirstDay) {
    // The leap day of 2028 and the day before it.
    platform.clock.time = date_from_civil(2028, 2, 29) + 0.9;
    open_sample();
    EXPECT_EQ(items[item("Apples")].last_restock_date, date_from_civil(2028, 2, 26));
    EXPECT_EQ(lots[item("Buttermilk")].creation_date[0], date_from_civil(2028, 2, 12));
    EXPECT_EQ(lots[item("Buttermilk")].expiration_date[0], date_from_civil(2028, 2, 26));
    EXPECT_EQ(project_created, date_from_civil(2027, 4, 15));
    EXPECT_EQ((CivilDate{days[1].year, days[1].month, days[1].day}), (CivilDate{2028, 2, 22}));
    EXPECT_EQ((CivilDate{days[8].year, days[8].month, days[8].day}), (CivilDate{2028, 2, 29}));
    EXPECT_EQ((CivilDate{days[9].year, days[9].month, days[9].day}), (CivilDate{2028, 3, 1}));
}

TEST_F(SampleTest, AnInterruptionAtAnyStepLeavesNoHalfFileAndTheNextStartCompletes) {
    ASSERT_TRUE(lay_out_sample_project(today));
    const std::string project = read_whole_file(in_program("sample17.tvk"));
    const std::string document = read_whole_file(in_program("recipes/sample17000028.rtf"));
    const auto start_over = [&] {
        platform.files.start_over();
        fs::remove(in_program("sample17.tvk"));
        fs::remove(in_program("recipes/sample17000028.rtf"));
    };
    start_over();
    ASSERT_TRUE(lay_out_sample_project(today));
    const int operations = platform.files.operations();
    ASSERT_GT(operations, 12);
    for (int n = 1; n <= operations; ++n) {
        SCOPED_TRACE(n);
        start_over();
        const int status = exit_status_in_child([&] {
            platform.files.kill_at(n, Torn::yes);
            (void)lay_out_sample_project(today);
        });
        ASSERT_EQ(status, FaultyFiles::kill_status);
        if (is_there("sample17.tvk")) {
            EXPECT_EQ(read_whole_file(in_program("sample17.tvk")), project);
            EXPECT_TRUE(is_there("recipes/sample17000028.rtf"));
        }
        EXPECT_TRUE(lay_out_sample_project(today));
        EXPECT_EQ(read_whole_file(in_program("sample17.tvk")), project);
        EXPECT_EQ(read_whole_file(in_program("recipes/sample17000028.rtf")), document);
        EXPECT_FALSE(is_there("sample17.tvk.new"));
    }
}

TEST_F(SampleTest, AFullDiskLeavesNothingBehind) {
    ASSERT_TRUE(lay_out_sample_project(today));
    fs::remove(in_program("sample17.tvk"));
    platform.files.start_over();
    ASSERT_TRUE(lay_out_sample_project(today));
    const auto& log = platform.files.log();
    const auto write = std::find_if(log.begin(), log.end(), [](const std::string& entry) {
        return entry.starts_with("write sample17.tvk.new");
    });
    ASSERT_NE(write, log.end());
    const int n = static_cast<int>(write - log.begin()) + 1;
    fs::remove(in_program("sample17.tvk"));
    platform.files.start_over();
    platform.files.fail_at(n, fault_number::disk_full, Repeat::once, Torn::yes);
    EXPECT_FALSE(lay_out_sample_project(today));
    EXPECT_FALSE(is_there("sample17.tvk"));
    EXPECT_FALSE(is_there("sample17.tvk.new"));
}

TEST_F(SampleTest, OneFileThatCannotBePlacedDoesNotStopTheOthers) {
    fs::create_directories(in_program("recipes"));
    // A folder has the unfinished file's name.
    fs::create_directories(in_program("recipes/sample17000002.rtf.new"));
    EXPECT_FALSE(lay_out_sample_project(today));
    EXPECT_TRUE(is_there("sample17.tvk"));
    EXPECT_TRUE(is_there("recipes/sample17000003.rtf"));
    EXPECT_FALSE(is_there("recipes/sample17000002.rtf"));
}

TEST_F(SampleTest, LayingOutTouchesNoOpenProject) {
    stores[1].name = "Mine";
    stores[1].in_use = 1;
    items[1].name = "Mine too";
    EXPECT_TRUE(lay_out_sample_project(today));
    EXPECT_EQ(stores[1].name, "Mine");
    EXPECT_EQ(items[1].name, "Mine too");
}

TEST_F(SampleTest, OpeningShowsTheNameWithACapital) {
    open_sample();
    EXPECT_EQ(project_name, "Sample17.tvk");
    EXPECT_EQ(project_path, in_program("sample17.tvk"));
    EXPECT_EQ(platform.main.title, "Tavernook - Sample17.tvk");
    EXPECT_EQ(platform.lock.held, std::set<std::string>{in_program("sample17.tvk")});
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_TRUE(platform.main.project_menus);
}

TEST_F(SampleTest, AnOpenProjectStaysOpen) {
    platform.dialogs.expect_save("New Project", platform.path("home.tvk"));
    mnuFile_NewProject();
    SeedProject();
    EXPECT_EQ(project_name, "home.tvk");
    EXPECT_FALSE(is_there("sample17.tvk"));
}

TEST_F(SampleTest, AChangedSampleIsOpenedAsTheUserLeftIt) {
    open_sample();
    stores[1].name = "My store";
    mnuFile_Save();
    project_close();
    open_sample();
    EXPECT_EQ(stores[1].name, "My store");
}

TEST_F(SampleTest, ASampleThatIsNowhereIsTold) {
    set_shipped_sample({});
    platform.boxes.expect_message(
        "Error in Module MAIN.SeedProject.  Error Number 53 Err Description=File not found");
    SeedProject();
    EXPECT_EQ(project_open, i16_false);
}

TEST_F(SampleTest, ADamagedSampleLeavesTheProgramIdle) {
    write_whole_file(in_program("sample17.tvk"), std::string(400, '\0'));
    platform.boxes.expect_message(
        "FileManagement.Project_Open - File Load Error.  Bad Record Number");
    SeedProject();
    EXPECT_EQ(project_open, i16_false);
    EXPECT_EQ(project_path, "");
    EXPECT_TRUE(platform.lock.held.empty());
}

}  // namespace
}  // namespace tavernook
