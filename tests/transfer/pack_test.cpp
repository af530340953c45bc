// The command "Package Project".
#include "core/project/project_save.h"
#include "fakes/child_process.h"
#include "support/generated_projects.h"
#include "transfer/package_fixture.h"

namespace tavernook {
namespace {

class PackProject : public PackageTest {
  protected:
    void expect_nothing_packed() {
        EXPECT_EQ(bytes_of(package), "none");
        EXPECT_EQ(platform.main.status[message_panel].find("Packed"), std::string::npos);
    }
};

TEST_F(PackProject, AsksForTheFileAndTellsWhatIsInIt) {
    platform.dialogs.expect_save("Package Project", package)
        .filter("Tavernook Package Files (*.vpk)|*.vpk")
        .initial_file(in_program("*.vpk"));
    platform.boxes.expect_message("Project Package Completed.");
    projpack_pack();
    EXPECT_EQ(message(), "Packed as trip.vpk, with 0 recipe texts.");
    EXPECT_EQ(files_there(), (Steps{"home.tvk", "trip.vpk"}));
    expect_open(home, "home.tvk");
}

TEST_F(PackProject, WithoutTextsItIs99BytesAndTheProject) {
    user_packs_whole();
    const std::string project = read_whole_file(home);
    const std::string bytes = read_whole_file(package);
    ASSERT_EQ(bytes.size(), 99 + project.size());
    EXPECT_TRUE(bytes.substr(99) == project);
    EXPECT_EQ(bytes.substr(4, 95), std::string(95, '\0'));  // the count of 0 among them
    EXPECT_TRUE(bytes == plainly_packed(project, {}));
}

// L is the project's length, the first text stands at L + 1: over the project's last 99 bytes.
TEST_F(PackProject, TextsStandWhereTheirRulesSay) {
    put_recipe(7, "*vk14soup.rtf", "soup.rtf", "{\\rtf1 Boil.}");  // D = 13, N = 8
    put_recipe(9, "*vk14b.rtf", "b.rtf", "");
    put_recipe(1000, "*vk14cake.rtf", "cake.rtf", std::string(3'000'000, 'c'));
    user_packs_whole();
    const std::string project = read_whole_file(home);
    const std::string bytes = read_whole_file(package);
    const std::size_t l = project.size();
    EXPECT_TRUE(bytes.substr(99, l - 99) == project.substr(0, l - 99));
    EXPECT_EQ(bytes.substr(9, 2), std::string("\3\0", 2));
    const std::string first = std::string("\x0D\0\0\0", 4) + std::string(6, '\0') +
                              std::string("\x08\0", 2) + std::string(8, '\0') +
                              std::string("\x08\0\x08\0", 4) + "soup.rtf" + std::string(6, '\0') +
                              "{\\rtf1 Boil.}";
    EXPECT_EQ(bytes.substr(l, first.size()), first);
    // P + 30 + N + D + 1
    const std::size_t second = l + 30 + 8 + 13 + 1;
    EXPECT_EQ(bytes.substr(second, 4), std::string(4, '\0'));
    EXPECT_EQ(bytes.substr(second + 24, 5), "b.rtf");
    const std::size_t third = second + 30 + 5 + 0 + 1;
    EXPECT_EQ(bytes.substr(third, 4), std::string("\xC0\xC6\x2D\0", 4));
    EXPECT_EQ(bytes.size(), third + 30 + 8 + 3'000'000);
    EXPECT_TRUE(bytes == plainly_packed(project, {{"soup.rtf", "{\\rtf1 Boil.}"},
                                                  {"b.rtf", ""},
                                                  {"cake.rtf", std::string(3'000'000, 'c')}}));
    EXPECT_EQ(message(), "Packed as trip.vpk, with 3 recipe texts.");
}

TEST_F(PackProject, SavesFirst) {
    user_renames_store("Kiosk");
    user_packs_whole();
    EXPECT_EQ(store_on_disk(home), "Kiosk");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_TRUE(read_whole_file(package) == plainly_packed(read_whole_file(home), {}));
}

TEST_F(PackProject, GoesInThisOrder) {
    put_recipe(501, "*vk14soup.rtf", "soup.rtf", "Boil.");
    user_packs_whole();
    Steps told = steps();
    const auto begun = std::find(told.begin(), told.end(),
                                 "progress load Package Project|Packaging Project...Please Wait");
    ASSERT_NE(begun, told.end());
    Steps bars;
    for (const std::string& step : Steps(begun, told.end())) {
        if (step.starts_with("progress bar")) bars.push_back(step);
    }
    ASSERT_GT(bars.size(), 80u);
    EXPECT_EQ((Steps{bars[0], bars[1], bars[2], bars[3], bars.back()}),
              (Steps{"progress bar 0", "progress bar 10", "progress bar 20", "progress bar 21",
                     "progress bar 99"}));
    EXPECT_EQ(Steps(begun + 1, begun + 5),
              (Steps{"progress offer cancel", "progress show", "progress bar 0",
                     "window status 3 Packaging Project..."}));
    EXPECT_EQ(Steps(told.end() - 4, told.end()),
              (Steps{"progress hide", "progress unload",
                     "window status 1 Packed as trip.vpk, with 1 recipe text.",
                     "box Project Package Completed."}));
}

TEST_F(PackProject, WithoutASaveThereIsNoPackage) {
    user_renames_store("Kiosk");
    std::filesystem::permissions(home, std::filesystem::perms::owner_read);
    platform.boxes.expect_message(save_error(70));
    user_packs(package);
    expect_nothing_packed();
    EXPECT_EQ(message(), "The project could not be saved; trip.vpk was not packed.");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(PackProject, PathsBecomePortableBehindTheProjectThatIsPacked) {
    put_recipe(1, "C:\\Tavernook\\recipes\\soup.rtf", "soup.rtf", "Boil.");
    put_recipe(2, "/home/me/recipes/b.rtf", "b.rtf", "Bake.");
    user_packs_whole();
    EXPECT_EQ(meal_documents[1], "*vk14soup.rtf");
    EXPECT_EQ(meal_documents[2], "*vk14b.rtf");
    const std::string project = read_whole_file(home);
    EXPECT_NE(project.find("C:\\Tavernook\\recipes\\soup.rtf"), std::string::npos);
    EXPECT_TRUE(read_whole_file(package) ==
                plainly_packed(project, {{"soup.rtf", "Boil."}, {"b.rtf", "Bake."}}));
    mnuFile_Save();
    EXPECT_NE(read_whole_file(home).find("*vk14soup.rtf"), std::string::npos);
}

TEST_F(PackProject, WhatIsNoPortableNameIsPassedOver) {
    put_recipe(1, "soup.rtf", "soup.rtf", "Boil.");
    meal_documents[2] = "{\\rtf1 the text itself \\par}";
    meal_documents[3] = "";
    meal_documents[4] = "*vk14..";
    meal_documents[5] = "*vk14  ";
    user_packs_whole();
    EXPECT_TRUE(read_whole_file(package) == plainly_packed(read_whole_file(home), {}));
    EXPECT_EQ(meal_documents[2], "{\\rtf1 the text itself \\par}");
    EXPECT_EQ(message(), "Packed as trip.vpk, with 0 recipe texts.");
}

TEST_F(PackProject, TextsThatAreMissingAreToldAndLeftOut) {
    put_recipe(1, "*vk14soup.rtf", "soup.rtf", "Boil.");
    meal_documents[2] = "*vk14gone.rtf";
    meal_documents[3] = "*vk14lost.rtf";
    user_packs_whole();
    EXPECT_TRUE(read_whole_file(package) ==
                plainly_packed(read_whole_file(home), {{"soup.rtf", "Boil."}}));
    EXPECT_EQ(
        message(),
        "Packed as trip.vpk, with 1 recipe text; 2 recipe texts could not be found, the first "
        "is gone.rtf.");
}

TEST_F(PackProject, TwoRecipesOfOneTextAreTwoRecords) {
    put_recipe(1, "*vk14soup.rtf", "soup.rtf", "Boil.");
    meal_documents[2] = "*vk14soup.rtf";
    user_packs_whole();
    EXPECT_TRUE(
        read_whole_file(package) ==
        plainly_packed(read_whole_file(home), {{"soup.rtf", "Boil."}, {"soup.rtf", "Boil."}}));
}

TEST_F(PackProject, NamesAreSingleBytes) {
    put_recipe(1,
               "*vk14k\xFC"
               "che.rtf",
               "k\xC3\xBC"
               "che.rtf",
               "Boil.");
    user_packs_whole();
    EXPECT_TRUE(read_whole_file(package) == plainly_packed(read_whole_file(home), {{"k\xFC"
                                                                                    "che.rtf",
                                                                                    "Boil."}}));
}

TEST_F(PackProject, ReplacesAnOlderOneWhole) {
    write_whole_file(package, std::string(5'000'000, 'x'));
    user_packs_whole();
    EXPECT_TRUE(read_whole_file(package) == plainly_packed(read_whole_file(home), {}));
}

TEST_F(PackProject, CancelEndsItWithoutAWord) {
    platform.dialogs.expect_save("Package Project", cancelled);
    projpack_pack();
    EXPECT_EQ(steps(), (Steps{"dialog Package Project"}));
}

TEST_F(PackProject, CancelledInTheMiddleItLeavesTheOlderOne) {
    write_whole_file(package, "an older one");
    platform.progress.cancelled = true;
    user_packs(package);
    EXPECT_EQ(bytes_of(package), "an older one");
    EXPECT_EQ(files_there(), (Steps{"home.tvk", "trip.vpk"}));
    EXPECT_EQ(message(), "trip.vpk was not packed: cancelled.");
    EXPECT_EQ(platform.progress.events().back(), "unload");
}

TEST_F(PackProject, WithoutAProjectNothingIsAsked) {
    mnuFile_Close();
    forget_steps();
    projpack_pack();
    EXPECT_EQ(steps(), Steps{});
}

TEST_F(PackProject, NoProjectsOwnFileIsReplaced) {
    const std::string bytes = read_whole_file(home);
    const std::string twin = platform.path("twin.vpk");
    std::filesystem::create_hard_link(home, twin);
    for (const std::string name : {"home.tvk", "cabin.TVK", ".home.tvk.lock", "twin.vpk"}) {
        user_packs(platform.path(name));
        EXPECT_EQ(message(), name +
                                 " is a project's own file; nothing was packed.  Choose another "
                                 "name.");
        EXPECT_TRUE(read_whole_file(home) == bytes);
    }
}

TEST_F(PackProject, ANameWithAFullStopGetsTheEnding) {
    platform.boxes.expect_message("Project Package Completed.");
    user_packs(platform.path("home 22.11"));
    EXPECT_EQ(files_there(), (Steps{"home 22.11.vpk", "home.tvk"}));
}

TEST_F(PackProject, IsNoMoreOpenToOthersThanTheProject) {
    using std::filesystem::perms;
    std::filesystem::permissions(home, perms::owner_read | perms::owner_write);
    user_packs_whole();
    EXPECT_EQ(std::filesystem::status(package).permissions(),
              perms::owner_read | perms::owner_write);
}

// Wherever it fails, or the program is killed: the older package, or the new one, whole.
class PackInterrupted : public PackProject {
  protected:
    void prepare() {
        platform.files.start_over();
        write_whole_file(package, older);
        put_recipe(7, "*vk14soup.rtf", "soup.rtf", "Boil.");
        platform.main.status = {};
    }
    // Behind the save, which has tests of its own: the operations of the package alone.
    int first_of_package() {
        const auto& log = platform.files.log();
        const auto begun = std::find(log.begin(), log.end(), "exists trip.vpk.new");
        return static_cast<int>(begun - log.begin()) + 1;
    }
    std::string outcome() {
        const std::string bytes = bytes_of(package);
        if (bytes == older) return "older";
        const std::vector<PlainDocument> texts = {{"soup.rtf", "Boil."}};
        return bytes == plainly_packed(read_whole_file(home), texts) ? "new" : "broken";
    }

    const std::string older = "an older package";
};

TEST_F(PackInterrupted, AFaultLeavesTheOlderOrTheNewPackage) {
    prepare();
    RecordingBoxes boxes(platform);
    user_packs(package);
    const int first = first_of_package();
    const int last = platform.files.operations();
    ASSERT_GT(last - first, 10);
    for (int n = first; n <= last; ++n) {
        prepare();
        platform.files.fail_at(n, fault_number::disk_full, Repeat::persistently, Torn::yes);
        boxes.texts.clear();
        user_packs(package);
        platform.files.work_normally();
        ASSERT_NE(outcome(), "broken") << "operation " << n;
        if (message().starts_with("Packed as")) {
            ASSERT_EQ(outcome(), "new") << "operation " << n;
        } else {
            ASSERT_EQ(message(), "trip.vpk was not packed: Disk full.") << "operation " << n;
            ASSERT_EQ(boxes.texts, (Steps{"There has been an error in the packaging process."}))
                << "operation " << n;
        }
        ASSERT_EQ(platform.progress.events().back(), "unload");
    }
}

TEST_F(PackInterrupted, AKillLeavesTheOlderOrTheNewPackage) {
    prepare();
    RecordingBoxes boxes(platform);
    user_packs(package);
    const int first = first_of_package();
    const int last = platform.files.operations();
    for (int n = first; n <= last; ++n) {
        prepare();
        exit_status_in_child([&] {
            platform.files.kill_at(n, Torn::yes);
            user_packs(package);
        });
        ASSERT_NE(outcome(), "broken") << "operation " << n;
    }
    prepare();
    user_packs(package);
    EXPECT_EQ(outcome(), "new");
    Steps left = files_there();
    std::erase_if(left, [](const std::string& name) { return !name.starts_with("trip"); });
    EXPECT_EQ(left, Steps{"trip.vpk"});
}

}  // namespace
}  // namespace tavernook
