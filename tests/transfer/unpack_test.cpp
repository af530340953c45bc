// The command "Unpack Project".
#include <unistd.h>

#include "fakes/child_process.h"
#include "support/generated_projects.h"
#include "support/table_snapshot.h"
#include "transfer/package_fixture.h"

namespace tavernook {
namespace {

constexpr const char* unpack_failed = "There has been an error in the Unpacking process.";
constexpr const char* nothing_changed = "trip.vpk was not unpacked; nothing has changed.";

std::string not_unpacked(const std::string& why) {
    return "trip.vpk was not unpacked: " + why + "; nothing has changed.";
}

class UnpackProject : public PackageTest {
  protected:
    UnpackProject() { project_ = read_whole_file(home); }

    void put_package(const std::vector<PlainDocument>& documents) {
        write_whole_file(package, plainly_packed(project_, documents));
    }
    void user_unpacks_and_stays() {
        user_is_asked_to_open(Answer::no);
        user_unpacks(package);
    }
    // The package is refused, and nothing at all has come out of it.
    void expect_refused(const std::string& bytes) {
        write_whole_file(package, bytes);
        write_whole_file(unpacked, "an earlier one");
        platform.boxes.expect_message(unpack_failed);
        user_unpacks(package);
        EXPECT_EQ(message(), not_unpacked("it is no package, or a damaged one"));
        EXPECT_EQ(bytes_of(unpacked), "an earlier one");
        EXPECT_EQ(files_there(), (Steps{"home.tvk", "trip.tvk", "trip.vpk"}));
        EXPECT_EQ(files_in_program(), Steps{});
        EXPECT_EQ(texts_there(), Steps{});
        expect_open(home, "home.tvk");
        EXPECT_EQ(platform.progress.events().back(), "unload");
    }
    void expect_refused_with(std::size_t position, int width, long long value) {
        PlainBytes bytes;
        bytes.put(1, plainly_packed(project_, {{"soup.rtf", "Boil."}}));
        expect_refused(bytes.put_number(position, width, value).bytes());
    }
    void expect_name_refused(const std::string& name) {
        SCOPED_TRACE(name);
        expect_refused(plainly_packed(project_, {{"soup.rtf", "Boil."}, {name, "Bake."}}));
    }

    std::string project_;
};

TEST_F(UnpackProject, AsksForTheFileAndWhetherToOpenIt) {
    put_package({});
    platform.dialogs.expect_open("Package Project", package)
        .filter("Tavernook Package Files (*.vpk)|*.vpk")
        .initial_file(in_program("*.vpk"));
    user_is_asked_to_open(Answer::yes);
    projpack_unpack();
    expect_open(unpacked, "trip.tvk");
    EXPECT_EQ(store(), "Bakery");
    EXPECT_TRUE(bytes_of(unpacked) == project_);
    EXPECT_EQ(files_there(), (Steps{"home.tvk", "trip.tvk", "trip.vpk"}));
}

TEST_F(UnpackProject, NotOpenedItLiesThere) {
    put_package({{"soup.rtf", "Boil."}});
    user_unpacks_and_stays();
    expect_open(home, "home.tvk");
    EXPECT_EQ(message(), "Unpacked as trip.tvk, with 1 recipe text.");
    EXPECT_EQ(text_of("soup.rtf"), "Boil.");
}

TEST_F(UnpackProject, GoesInThisOrder) {
    put_package({{"a.rtf", "A"}, {"b.rtf", "B"}});
    user_unpacks_and_stays();
    EXPECT_EQ(steps(),
              (Steps{"dialog Package Project",
                     "progress load Unpack Project|Unpacking Project...Please Wait",
                     "progress offer cancel", "progress show", "progress bar 0",
                     "window status 3 Unpacking Project...", "progress bar 10", "progress bar 20",
                     "progress bar 60", "progress bar 100", "progress hide", "progress unload",
                     "window status 1 Unpacked as trip.tvk, with 2 recipe texts.",
                     "box Project Package Completed.  Would you like to Open this project now?"}));
}

TEST_F(UnpackProject, NeedsNoOpenProject) {
    put_package({});
    mnuFile_Close();
    user_is_asked_to_open(Answer::yes);
    user_unpacks(package);
    expect_open(unpacked, "trip.tvk");
}

// Bytes of the first text stand in place of the project's last 99.
TEST_F(UnpackProject, WithTextsTheLast99BytesAreThoseOfTheFirstText) {
    const std::string text(200, 't');
    put_package({{"soup.rtf", text}});
    user_is_asked_to_open(Answer::yes);
    user_unpacks(package);
    expect_open(unpacked, "trip.tvk");
    const std::string bytes = read_whole_file(unpacked);
    ASSERT_EQ(bytes.size(), project_.size());
    EXPECT_TRUE(bytes.substr(0, bytes.size() - 99) == project_.substr(0, project_.size() - 99));
    EXPECT_EQ(bytes.substr(bytes.size() - 99, 4), std::string("\xC8\0\0\0", 4));
    EXPECT_EQ(bytes.substr(bytes.size() - 99 + 24, 8), "soup.rtf");
    EXPECT_EQ(meal_serving_size[987], 0);
    for (const i16 slot : {988, 989, 1000}) EXPECT_NE(meal_serving_size[slot], 0) << slot;
}

TEST_F(UnpackProject, APackageOfOurOwnComesBackWhole) {
    mnuFile_Close();
    make_project(home, "Bakery", fill_typical_project);
    begin();
    user_packs_whole();
    const TableSnapshot packed;
    user_is_asked_to_open(Answer::yes);
    user_unpacks(package);
    const TableSnapshot back;
    EXPECT_EQ(back.difference(packed), "");
    EXPECT_TRUE(bytes_of(unpacked) == bytes_of(home));
}

TEST_F(UnpackProject, TextsOfManyLengthsComeBackInAnotherHome) {
    std::vector<PlainDocument> texts;
    i16 slot = 1;
    for (const std::size_t length : {0, 1, 44, 45, 46, 98, 99, 100, 65'536, 1'048'577}) {
        const std::string name = "t" + std::to_string(length) + ".rtf";
        texts.push_back({name, std::string(length, static_cast<char>('a' + slot))});
        put_recipe(slot++, "*vk14" + name, name, texts.back().bytes);
    }
    user_packs_whole();
    mnuFile_Close();
    platform.system.program = platform.path("another home");
    platform.disk.make_folder(platform.system.program);
    recipes_folder = in_program("recipes/");
    user_is_asked_to_open(Answer::yes);
    user_unpacks(package);
    expect_open(unpacked, "trip.tvk");
    for (const PlainDocument& text : texts) {
        EXPECT_TRUE(read_whole_file(path_of_document(text.name)) == text.bytes) << text.name;
        EXPECT_TRUE(path_of_document(text.name).starts_with(platform.path("another home")));
    }
    EXPECT_EQ(stored_document(2).bytes, texts[1].bytes);
}

TEST_F(UnpackProject, AnExistingTextThatIsToStayIsWalkedOver) {
    put_text("soup.rtf", "My own.");
    put_package({{"soup.rtf", "Boil."}, {"b.rtf", "Bake."}});
    user_is_asked_about("soup.rtf", Answer::no);
    user_unpacks_and_stays();
    EXPECT_EQ(text_of("soup.rtf"), "My own.");
    EXPECT_EQ(text_of("b.rtf"), "Bake.");
    EXPECT_EQ(message(),
              "Unpacked as trip.tvk, with 1 recipe text; 1 recipe text stays as before.");
}

TEST_F(UnpackProject, AnExistingTextIsOverwrittenWhereWanted) {
    put_text("soup.rtf", "My own, and longer than what comes.");
    put_package({{"soup.rtf", "Boil."}});
    user_is_asked_about("soup.rtf", Answer::yes);
    user_unpacks_and_stays();
    EXPECT_EQ(text_of("soup.rtf"), "Boil.");
    EXPECT_EQ(texts_there(), Steps{"soup.rtf"});
}

TEST_F(UnpackProject, OfTheTextsOnlyTheOneOnShowIsReadAgain) {
    put_recipe(7, "*vk14soup.rtf", "soup.rtf", "My own.");
    put_recipe(8, "*vk14tea.rtf", "tea.rtf", "My tea.");
    FakeMealbuilder screen(platform.calls);
    const auto times_read = [&] {
        const auto& calls = platform.calls.entries;
        return std::count(calls.begin(), calls.end(), "Mealbuilder reread_document");
    };
    put_package({{"soup.rtf", "Boil."}});
    for (const i16 shown : {0, 8, 7}) {
        screen.recipe = shown;
        user_is_asked_about("soup.rtf", Answer::yes);
        user_unpacks_and_stays();
        EXPECT_EQ(times_read(), shown == 7 ? 1 : 0) << shown;
    }
    user_is_asked_about("soup.rtf", Answer::no);
    user_unpacks_and_stays();
    EXPECT_EQ(times_read(), 1);
}

TEST_F(UnpackProject, AWriteProtectedTextStays) {
    put_text("soup.rtf", "My own.");
    std::filesystem::permissions(in_recipes("soup.rtf"), std::filesystem::perms::owner_read);
    put_package({{"b.rtf", "Bake."}, {"soup.rtf", "Boil."}});
    user_is_asked_about("soup.rtf", Answer::yes);
    platform.boxes.expect_message(unpack_failed);
    user_unpacks(package);
    EXPECT_EQ(text_of("soup.rtf"), "My own.");
    EXPECT_EQ(texts_there(), Steps{"soup.rtf"});
    EXPECT_EQ(message(), not_unpacked("Permission denied"));
}

// A text of the open project that was changed since the save would take its content before back.
TEST_F(UnpackProject, ATextOfTheOpenProjectThatIsOverwrittenStaysSoWhenThatGoesUnsaved) {
    put_recipe(7, "*vk14home000007.rtf", "home000007.rtf", "As saved.");
    store_document(7, "Changed since.");
    ASSERT_EQ(recipe_text_changed, i16_true);
    put_package({{"home000007.rtf", "Out of the package."}});
    user_is_asked_about("home000007.rtf", Answer::yes);
    user_is_asked_to_open(Answer::yes);
    user_is_asked_to_save(Answer::no);
    user_unpacks(package);
    expect_open(unpacked, "trip.tvk");
    EXPECT_EQ(text_of("home000007.rtf"), "Out of the package.");
    EXPECT_EQ(texts_there(), Steps{"home000007.rtf"});
}

TEST_F(UnpackProject, ATextThatStaysGoesBackWithItsProject) {
    put_recipe(7, "*vk14home000007.rtf", "home000007.rtf", "As saved.");
    store_document(7, "Changed since.");
    put_package({{"home000007.rtf", "Out of the package."}});
    user_is_asked_about("home000007.rtf", Answer::no);
    user_is_asked_to_open(Answer::yes);
    user_is_asked_to_save(Answer::no);
    user_unpacks(package);
    EXPECT_EQ(text_of("home000007.rtf"), "As saved.");
}

TEST_F(UnpackProject, UnsavedChangesOfTheOpenProjectMayKeepItOpen) {
    put_package({});
    user_renames_store("Kiosk");
    user_is_asked_to_open(Answer::yes);
    user_is_asked_to_save(Answer::cancel);
    user_unpacks(package);
    expect_open(home, "home.tvk");
    EXPECT_EQ(store(), "Kiosk");
    EXPECT_TRUE(bytes_of(unpacked) == project_);
}

TEST_F(UnpackProject, AnEarlierProjectIsMovedAside) {
    write_whole_file(unpacked, "an earlier one");
    write_whole_file(platform.path("trip.previous.tvk"), "its previous version");
    write_whole_file(platform.path("trip 2.tvk"), "another");
    put_package({});
    user_unpacks_and_stays();
    EXPECT_TRUE(bytes_of(unpacked) == project_);
    EXPECT_EQ(bytes_of(platform.path("trip 3.tvk")), "an earlier one");
    EXPECT_EQ(bytes_of(platform.path("trip 3.previous.tvk")), "its previous version");
    EXPECT_EQ(bytes_of(platform.path("trip 2.tvk")), "another");
    EXPECT_EQ(message(),
              "Unpacked as trip.tvk, with 0 recipe texts.  The trip.tvk that was there before "
              "is now trip 3.tvk.");
}

TEST_F(UnpackProject, TheOpenProjectIsNotReplaced) {
    const std::string mine = platform.path("home.vpk");
    write_whole_file(mine, plainly_packed(project_, {}));
    user_unpacks(mine);
    EXPECT_EQ(message(),
              "home.tvk is open; nothing was unpacked.  Close it first, or move the package to "
              "another folder.");
    EXPECT_EQ(files_there(), (Steps{"home.tvk", "home.vpk"}));
}

TEST_F(UnpackProject, AProjectThatAnotherWindowHasOpenIsNotReplaced) {
    put_package({});
    write_whole_file(unpacked, "an earlier one");
    platform.lock.taken_elsewhere.insert(unpacked);
    platform.boxes.expect_message(
        "The project trip.tvk is already open in another Tavernook window.  Close it there first, "
        "then open it here.");
    user_unpacks(package);
    EXPECT_EQ(bytes_of(unpacked), "an earlier one");
    expect_open(home, "home.tvk");
}

TEST_F(UnpackProject, TheNamesLastThreeLettersChange) {
    struct {
        const char* source;
        const char* project;
    } const names[] = {{"HOLIDAY.VPK", "HOLIDAY.tvk"}, {"a.zip", "a.tvk"},   {"plain", "plain.tvk"},
                       {"2026.11", "2026.11.tvk"},     {".vpk", ".vpk.tvk"}, {"vpk", "vpk.tvk"}};
    for (const auto& name : names) {
        write_whole_file(platform.path(name.source), plainly_packed(project_, {}));
        user_is_asked_to_open(Answer::no);
        user_unpacks(platform.path(name.source));
        EXPECT_TRUE(bytes_of(platform.path(name.project)) == project_) << name.source;
    }
}

TEST_F(UnpackProject, AProjectIsNoPackageAndStays) {
    write_whole_file(cabin, project_);
    user_unpacks(cabin);
    EXPECT_TRUE(bytes_of(cabin) == project_);
    EXPECT_EQ(message(), "cabin.tvk is no package; nothing was unpacked.");
}

TEST_F(UnpackProject, CancelEndsItWithoutAWord) {
    platform.dialogs.expect_open("Package Project", cancelled);
    projpack_unpack();
    EXPECT_EQ(steps(), (Steps{"dialog Package Project"}));
}

TEST_F(UnpackProject, CancelledInTheMiddleItChangesNothing) {
    put_text("soup.rtf", "My own.");
    write_whole_file(unpacked, "an earlier one");
    put_package({{"a.rtf", "A"}, {"soup.rtf", "Boil."}, {"z.rtf", "Z"}});
    user_is_asked_about("soup.rtf", Answer::yes).during([this] {
        platform.progress.cancelled = true;
    });
    user_unpacks(package);
    EXPECT_EQ(texts_there(), Steps{"soup.rtf"});
    EXPECT_EQ(text_of("soup.rtf"), "My own.");
    EXPECT_EQ(bytes_of(unpacked), "an earlier one");
    EXPECT_EQ(files_there(), (Steps{"home.tvk", "trip.tvk", "trip.vpk"}));
    EXPECT_EQ(message(), nothing_changed);
}

TEST_F(UnpackProject, OfTwoTextsOfOneNameTheLaterOneComes) {
    put_package({{"soup.rtf", "First."}, {"soup.rtf", "Second."}});
    user_unpacks_and_stays();
    EXPECT_EQ(text_of("soup.rtf"), "Second.");
    EXPECT_EQ(texts_there(), Steps{"soup.rtf"});
}

TEST_F(UnpackProject, ANameOfTheCodePageIsThatOfTheFile) {
    put_package(
        {{"k\xFC"
          "che.rtf",
          "Boil."}});
    user_unpacks_and_stays();
    EXPECT_EQ(text_of("k\xC3\xBC"
                      "che.rtf"),
              "Boil.");
}

// The tag and the second length are not looked at.
TEST_F(UnpackProject, WhatIsSkippedMayHoldAnything) {
    const std::size_t p = project_.size() + 1;
    PlainBytes bytes;
    bytes.put(1, plainly_packed(project_, {{"soup.rtf", "Boil."}}));
    bytes.put(5, "xxxxx").put(12, std::string(88, 'x')).put(p + 4, "xxxxxx");
    bytes.put(p + 12, std::string(12, 'x')).put(p + 24 + 8, "xxxxxx");
    write_whole_file(package, bytes.bytes());
    user_unpacks_and_stays();
    EXPECT_EQ(text_of("soup.rtf"), "Boil.");
}

TEST_F(UnpackProject, NamesThatLeadElsewhereAreRefused) {
    for (const char* name :
         {"../evil.rtf", "..\\evil.rtf", "/etc/evil", "a/b.rtf", "..", ".", " ", "tab\t.rtf",
          "line\n.rtf", "\x7F.rtf", "home000007.before", "home000007.READY", "soup.rtf.new"}) {
        expect_name_refused(name);
    }
    expect_name_refused(std::string("nul\0.rtf", 8));
    expect_name_refused(std::string(256, 'n'));
    // 255 bytes here, and more in a file's name.
    expect_name_refused(std::string(200, '\xFC'));
}

TEST_F(UnpackProject, ALongNameThatAFileCanHaveIsTaken) {
    const std::string name = std::string(251, 'n') + ".rtf";
    put_package({{name, "Boil."}});
    user_unpacks_and_stays();
    EXPECT_EQ(texts_there(), Steps{name});
}

TEST_F(UnpackProject, LengthsAndCountsThatCannotBeAreRefused) {
    const auto l = static_cast<long long>(project_.size());
    const std::size_t p = project_.size() + 1;
    for (const long long length : {-1LL, 0LL, -2147483648LL, 2147483647LL, l + 1000}) {
        SCOPED_TRACE(length);
        expect_refused_with(1, 4, length);
    }
    for (const long long count : {-1, 2, 1001, 32767}) {
        SCOPED_TRACE(count);
        expect_refused_with(10, 2, count);
    }
    for (const long long length : {-1LL, 100LL, 2147483647LL}) {
        SCOPED_TRACE(length);
        expect_refused_with(p, 4, length);
    }
    for (const long long length : {-1, 0, 32767}) {
        SCOPED_TRACE(length);
        expect_refused_with(p + 10, 2, length);
    }
}

// Cut in each of its fields, and one byte before its end.
TEST_F(UnpackProject, ATruncatedPackageIsRefused) {
    const std::string text(300, 't');
    const std::string whole = plainly_packed(project_, {{"soup.rtf", text}});
    const std::size_t p = project_.size();
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{3}, std::size_t{10}, std::size_t{98}, std::size_t{99},
          std::size_t{5000}, p + 3, p + 11, p + 23, p + 28, p + 98, p + 200, whole.size() - 1}) {
        SCOPED_TRACE(length);
        expect_refused(whole.substr(0, length));
    }
}

TEST_F(UnpackProject, ADamagedPackageIsRefusedBeforeAnythingIsAsked) {
    put_text("soup.rtf", "My own.");
    const std::string whole =
        plainly_packed(project_, {{"soup.rtf", "Boil."}, {"b.rtf", std::string(300, 'b')}});
    write_whole_file(package, whole.substr(0, whole.size() - 1));
    platform.boxes.expect_message(unpack_failed);
    user_unpacks(package);
    EXPECT_EQ(text_of("soup.rtf"), "My own.");
    EXPECT_EQ(texts_there(), Steps{"soup.rtf"});
}

TEST_F(UnpackProject, APackageThatHasGoneIsTold) {
    platform.boxes.expect_message(unpack_failed);
    user_unpacks(package);
    EXPECT_EQ(message(), not_unpacked("File not found"));
}

// It is unpacked, and cannot be opened: as with any such file.
TEST_F(UnpackProject, APackageOfSomethingElseIsNoProject) {
    write_whole_file(package, plainly_packed(std::string(400, 'x'), {}));
    user_is_asked_to_open(Answer::yes);
    platform.boxes.expect_message(
        "FileManagement.Project_Open - File Load Error.  Bad Record Number");
    user_unpacks(package);
    expect_idle();
}

// Wherever it fails or the program is killed: each file is the old one or the new one, whole.
class UnpackInterrupted : public UnpackProject {
  protected:
    void prepare() {
        platform.files.start_over();
        for (const std::string& name : files_there()) {
            if (name != "home.tvk") platform.disk.remove(platform.path(name));
        }
        for (const std::string& name : texts_there()) platform.disk.remove(in_recipes(name));
        put_text("soup.rtf", "My own.");
        write_whole_file(unpacked, "an earlier one");
        put_package({{"soup.rtf", "Boil."}, {"b.rtf", "Bake."}});
        came_ = project_.substr(0, project_.size() - 99) +
                plainly_packed(project_, {{"soup.rtf", "Boil."}, {"b.rtf", "Bake."}})
                    .substr(project_.size(), 99);
        platform.main.status = {};
    }
    std::string outcome() {
        const std::string project = bytes_of(unpacked);
        const std::string aside = bytes_of(platform.path("trip 2.tvk"));
        const std::string soup = text_of("soup.rtf");
        const std::string b = text_of("b.rtf");
        if (project != "an earlier one" && aside != "an earlier one") return "the earlier is lost";
        if (project != "an earlier one" && project != "none" && project != came_) return "broken";
        if (soup != "My own." && soup != "Boil.") return "broken soup";
        if (b != "none" && b != "Bake.") return "broken b";
        return project == came_ && soup == "Boil." && b == "Bake." ? "new" : "old";
    }

    std::string came_;
};

TEST_F(UnpackInterrupted, AFaultLosesNothing) {
    prepare();
    RecordingBoxes boxes(platform);
    unpack_project(package);
    ASSERT_EQ(outcome(), "new");
    const auto& log = platform.files.log();
    const auto renamed = std::find(log.begin(), log.end(), "rename trip.tvk.new -> trip.tvk");
    const int last = static_cast<int>(renamed - log.begin()) + 2;
    ASSERT_GT(last, 20);
    project_open = i16_false;
    for (int n = 1; n <= last; ++n) {
        prepare();
        boxes.texts.clear();
        platform.files.fail_at(n, fault_number::disk_full, Repeat::persistently, Torn::yes);
        unpack_project(package);
        platform.files.work_normally();
        const std::string left = outcome();
        ASSERT_TRUE(left == "old" || left == "new") << "operation " << n << " leaves " << left;
        if (message().starts_with("Unpacked as")) {
            ASSERT_EQ(left, "new") << "operation " << n;
        } else {
            ASSERT_EQ(boxes.texts.back(), unpack_failed) << "operation " << n;
            ASSERT_TRUE(message().starts_with("trip.vpk was not unpacked")) << "operation " << n;
        }
        if (message().ends_with("; nothing has changed.")) {
            ASSERT_EQ(bytes_of(unpacked), "an earlier one") << "operation " << n;
            ASSERT_EQ(text_of("soup.rtf"), "My own.") << "operation " << n;
            ASSERT_EQ(text_of("b.rtf"), "none") << "operation " << n;
        }
        project_open = i16_false;
    }
}

TEST_F(UnpackInterrupted, AKillLosesNothing) {
    prepare();
    RecordingBoxes boxes(platform);
    int status = FaultyFiles::kill_status;
    int n = 0;
    while (status == FaultyFiles::kill_status && n < 200) {
        prepare();
        ++n;
        status = exit_status_in_child([&] {
            platform.files.kill_at(n, Torn::yes);
            unpack_project(package);
            ::_exit(0);
        });
        const std::string left = outcome();
        ASSERT_TRUE(left == "old" || left == "new") << "operation " << n << " leaves " << left;
    }
    EXPECT_GT(n, 20);
    prepare();
    unpack_project(package);
    EXPECT_EQ(outcome(), "new");
}

}  // namespace
}  // namespace tavernook
