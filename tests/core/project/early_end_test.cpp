// A project file that a crash has cut short, where no previous version lay beside it.
#include "core/project/early_end.h"

#include "core/project_file/project_file_testing.h"

namespace tavernook {

namespace {

constexpr const char* all_missing =
    "The project file home.tvk ends too early: the weights and measures, lots, details of the "
    "items, brands, places and notes of the items, amounts of the planned days and servings of the "
    "recipes are missing; the first save keeps the file as it is now beside the project.";
constexpr const char* last_servings_missing =
    "The project file home.tvk ends too early: the servings of the last recipes are missing; the "
    "first save keeps the file as it is now beside the project.";

class EarlyEnd : public ProjectFileTest {
  protected:
    EarlyEnd() {
        fill_small_project();
        bytes = save();
        setup = static_cast<std::size_t>(long_at(bytes, 39));
    }
    // As far as a save comes before its blocks.
    Image without_blocks() const {
        Image half(bytes.substr(0, static_cast<std::size_t>(long_at(bytes, 50)) - 2));
        half.position_word(50, 0).position_word(54, 0);
        for (const int slot : {410, 416, 422, 428}) half.position_word(setup + slot, 0);
        return half;
    }
    void opens_and_is_told(const std::string& half, const char* box) {
        platform.boxes.expect_message(box);
        open(half);
        platform.boxes.check_used_up();
        expect_opened();
    }
    Image marked(Image image) const { return image.put(49, "\x01"); }

    std::string bytes;
    std::size_t setup;
    const std::string interrupted = platform.path("home.interrupted.tvk");
};

TEST_F(EarlyEnd, OfAFileOfTheCurrentVersionIsTold) {
    opens_and_is_told(without_blocks().bytes, all_missing);
    EXPECT_EQ(items[3].name, "Flour");
    opens_and_is_told(Image(bytes).position_word(54, 0).bytes,
                      "The project file home.tvk ends too early: the lots are missing; the first "
                      "save keeps the file as it is now beside the project.");
    opens_and_is_told(
        Image(bytes).position_word(54, 0).position_word(50, 0).bytes,
        "The project file home.tvk ends too early: the weights and measures and lots "
        "are missing; the first save keeps the file as it is now beside the project.");
}

TEST_F(EarlyEnd, OfAFileCutInsideTheRecipeServingsIsTold) {
    opens_and_is_told(bytes.substr(0, bytes.size() - 8), last_servings_missing);
    EXPECT_EQ(meal_serving_size[9], 4);
}

TEST_F(EarlyEnd, OfAnOlderFileIsNoneUnlessItIsMarked) {
    Image older = without_blocks();
    older.word(1, 0).word(47, 0);  // no items, whose spacing differs
    open(older.bytes);
    expect_opened();
    opens_and_is_told(marked(older).bytes, all_missing);
}

TEST_F(EarlyEnd, OfAFileWithoutACreationDateIsNone) {
    Image older = without_blocks();
    older.real(setup + 28, 0);
    open(older.bytes);
    expect_opened();
}

TEST_F(EarlyEnd, AMarkAloneTellsNothing) {
    open(marked(Image(bytes)).bytes);
    expect_opened();
    ASSERT_TRUE(Project_Save(1));
    EXPECT_FALSE(platform.disk.exists(interrupted));
}

TEST_F(EarlyEnd, TheFirstSavePutsTheHalfFileAsideAndTheNextOnesDoNot) {
    const std::string half = without_blocks().bytes;
    opens_and_is_told(half, all_missing);
    ASSERT_TRUE(Project_Save(1));
    EXPECT_TRUE(read_whole_file(interrupted) == half);
    ASSERT_TRUE(Project_Save(1));
    EXPECT_EQ(platform.disk.list(platform.temp.path(), ".tvk"),
              (std::vector<std::string>{"home.interrupted.tvk", "home.tvk"}));
    open();
    expect_opened();
}

TEST_F(EarlyEnd, ASaveThatFailsOverTheHalfFileLeavesItAsThePreviousVersion) {
    const std::string half = without_blocks().bytes;
    opens_and_is_told(half, all_missing);
    platform.files.start_over();
    platform.files.fail_at(20, fault_number::disk_full, Repeat::persistently, Torn::yes);
    platform.boxes.expect_message(
        "There has been a file access error.  The error number is ERROR #: 61");
    ASSERT_FALSE(Project_Save(1));
    platform.files.start_over();
    EXPECT_TRUE(read_whole_file(platform.path("home.previous.tvk")) == half);
    EXPECT_TRUE(read_whole_file(interrupted) == half);
    ASSERT_TRUE(Project_Save(1));
    EXPECT_EQ(platform.disk.list(platform.temp.path(), ".tvk"),
              (std::vector<std::string>{"home.interrupted.tvk", "home.tvk"}));
}

TEST_F(EarlyEnd, AnotherHalfFileTakesAFreeName) {
    write_whole_file(interrupted, "from yesterday");
    const std::string half = without_blocks().bytes;
    opens_and_is_told(half, all_missing);
    ASSERT_TRUE(Project_Save(1));
    EXPECT_EQ(read_whole_file(interrupted), "from yesterday");
    EXPECT_TRUE(read_whole_file(platform.path("home.interrupted 2.tvk")) == half);
}

TEST_F(EarlyEnd, ACopyUnderAnotherNameLeavesTheHalfFile) {
    const std::string half = without_blocks().bytes;
    opens_and_is_told(half, all_missing);
    set_project_path(platform.path("cabin.tvk"));
    ASSERT_TRUE(Project_Save(1));
    EXPECT_TRUE(read_whole_file(home) == half);
    EXPECT_FALSE(platform.disk.exists(interrupted));
}

TEST_F(EarlyEnd, TheMarkStandsUntilAllElseIsOnTheDisk) {
    platform.files.start_over();
    save();
    std::vector<std::string> ends;
    for (const std::string& entry : platform.files.log()) {
        if (entry == "write home.tvk 48 1" || entry == "flush home.tvk") ends.push_back(entry);
    }
    EXPECT_EQ(ends, (std::vector<std::string>{"write home.tvk 48 1", "flush home.tvk",
                                              "write home.tvk 48 1", "flush home.tvk"}));
    EXPECT_EQ(bytes[48], '\0');
    platform.files.start_over();
    const auto& log = platform.files.log();
    ASSERT_TRUE(Project_Save(1));
    const auto flush = std::find(log.begin(), log.end(), "flush home.tvk");
    const int n = static_cast<int>(flush - log.begin()) + 1;
    platform.files.start_over();
    platform.files.fail_at(n, fault_number::disk_full);
    platform.boxes.expect_message(
        "There has been a file access error.  The error number is ERROR #: 61");
    EXPECT_FALSE(Project_Save(1));
    EXPECT_EQ(read_whole_file(home)[48], '\x01');
}

}  // namespace

}  // namespace tavernook
