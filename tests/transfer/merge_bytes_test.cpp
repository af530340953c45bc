// Merging files that are put together byte by byte, older, damaged and hostile ones.
#include "support/plain_package.h"
#include "support/table_snapshot.h"
#include "transfer/merge_fixture.h"

namespace tavernook {
namespace {

// A project file: its header at 1, its records where the header says.
class PlainProject {
  public:
    explicit PlainProject(int version) {
        file_.put(1, std::string(20'000, '\0'));
        file_.put_number(47, 2, version);
        for (const std::size_t place : {1, 7, 13, 19, 25, 31}) section(place, 0, 100);
        file_.put_number(39, 4, 12'000);  // setup
        file_.put_number(43, 4, 14'000);  // entries of the recipes' texts
    }
    // `place` of the count in the header.
    PlainProject& section(std::size_t place, int count, int position) {
        file_.put_number(place, 2, count).put_number(place + 2, 4, position);
        return *this;
    }
    PlainProject& number(std::size_t position, int width, long long value) {
        file_.put_number(position, width, value);
        return *this;
    }
    PlainProject& text(std::size_t position, const std::string& text, std::size_t width = 0) {
        std::string padded = text;
        if (padded.size() < width) padded.resize(width, ' ');
        file_.put(position, padded);
        return *this;
    }
    // Name and mark of a unit or store.
    PlainProject& row(std::size_t position, int slot, const std::string& name) {
        return number(position, 2, slot).text(position + 2, name, 12).number(position + 14, 2, 1);
    }
    PlainProject& item(std::size_t position, int slot, const std::string& name) {
        number(position, 2, slot).number(position + 2, 2, 4).text(position + 4, name, 32);
        return number(position + 2 + 50, 2, 6).number(position + 2 + 96, 2, 1);
    }
    // 201 lines; `lines` of them from slot 1 on.
    PlainProject& measures(std::size_t position, const Steps& lines) {
        number(52, 4, static_cast<long long>(position));
        number(position, 4, 0);
        std::size_t at = position + 4;
        for (const std::string& line : lines) {
            number(at, 2, -1).number(at + 2, 2, static_cast<long long>(line.size()));
            text(at + 4, line);
            at += 4 + line.size();
        }
        return *this;
    }
    const std::string& bytes() const { return file_.bytes(); }

  private:
    PlainBytes file_;
};

// Two items, a category, a unit, a recipe of both, in the older form: 164 bytes for an item.
PlainProject older_project() {
    PlainProject project(0);
    project.section(1, 2, 100).item(100, 30, "Milk").item(264, 31, "Bread");
    project.section(7, 1, 1000).number(1000, 2, 4).text(1002, "Dairy", 32).number(1034, 2, 1);
    project.section(13, 1, 2000).number(2000, 2, 9).text(2002, "Soup", 32);
    project.number(2002 + 32 + 2, 2, 31).number(2002 + 32 + 4, 2, 30);  // places 1 and 2
    project.number(2002 + 32 + 102 + 408, 2, 1);                        // in_use
    project.section(19, 1, 3000).row(3000, 6, "Crate");
    project.section(25, 1, 3100).row(3100, 1000, "Kiosk");
    project.number(14'000 + 2 * 9, 2, 13).text(14'000 + 2 * 9 + 2, "*vk14soup.rtf");
    return project;
}

class MergeBytes : public MergeTest {
  protected:
    void user_merges_bytes(const std::string& bytes) {
        write_whole_file(cabin, bytes);
        user_merges_cabin();
    }
    void expect_refused(const std::string& bytes, int number = 63) {
        put_item(1, "Ours");
        project_modified = i16_false;
        const TableSnapshot before;
        platform.boxes.expect_message(
            "Error in Module MAIN.mnuFile_ProjectMerge_Click.  Error Number " +
            std::to_string(number) + " Err Description=" + fault_description(number));
        user_merges_bytes(bytes);
        EXPECT_EQ(TableSnapshot().difference(before), "");
        EXPECT_EQ(message(), "cabin.tvk was not merged; nothing has changed.");
        EXPECT_EQ(project_modified, i16_false);
    }
};

TEST_F(MergeBytes, AnOlderFileIsReadByItsStride) {
    user_merges_bytes(older_project().bytes());
    EXPECT_EQ(items[1].name, "Milk");
    EXPECT_EQ(items[2].name, "Bread");
    EXPECT_EQ(catagories[2].name, "Dairy");
    EXPECT_EQ(items[2].category, 2);
    EXPECT_EQ(units[items[1].qty_units].name, "Crate");
    EXPECT_EQ(stores[2].name, "Kiosk");
    EXPECT_EQ(meals[1].name, "Soup");
    EXPECT_EQ(meals[1].ingredient_item[1], 2);
    EXPECT_EQ(meals[1].ingredient_item[2], 1);
    EXPECT_EQ(meal_documents[1], "*vk14soup.rtf");
    EXPECT_EQ(file_version, 1);
}

TEST_F(MergeBytes, APresentFileIsReadByItsStride) {
    PlainProject project(1);
    project.section(1, 2, 100).item(100, 30, "Milk").item(276, 31, "Bread");
    user_merges_bytes(project.bytes());
    EXPECT_EQ(items[1].name, "Milk");
    EXPECT_EQ(items[2].name, "Bread");
}

TEST_F(MergeBytes, MeasuresComeFromTheOlderPlaceWhateverTheVersion) {
    wams[1] = {i16_true, "A = B"};
    for (const int version : {0, 1}) {
        const std::string own = "C" + std::to_string(version) + " = D";
        user_merges_bytes(
            PlainProject(version).measures(17'000, {"A = B  ", own, "A = b"}).bytes());
    }
    EXPECT_EQ(wams[1].text, "A = B");
    EXPECT_EQ(wams[2].text, "C0 = D");
    EXPECT_EQ(wams[3].text, "A = b");
    EXPECT_EQ(wams[4].text, "C1 = D");
    EXPECT_EQ(wams[4].in_use, i16_true);
    EXPECT_EQ(wams[5].in_use, 0);
    EXPECT_EQ(message(), "Merged from cabin.tvk: 1 line of weights and measures.");
}

TEST_F(MergeBytes, WhatCanBeNoMeasuresIsPassedOver) {
    const Steps lines = {"A = B"};
    for (const long long position : {-1LL, 0LL, 99LL, 19'999LL, 20'001LL, 2147483647LL}) {
        PlainProject project = older_project();
        user_merges_bytes(project.measures(17'000, lines).number(52, 4, position).bytes());
        EXPECT_EQ(live(wams), 0) << position;
    }
    PlainProject odd_mark = older_project();
    user_merges_bytes(odd_mark.measures(17'000, lines).number(17'004, 2, 7).bytes());
    PlainProject odd_text = older_project();
    user_merges_bytes(odd_text.measures(17'000, {"A\1= B"}).bytes());
    PlainProject no_end = older_project();
    user_merges_bytes(no_end.measures(17'000, lines).number(17'006, 2, 65'000).bytes());
    EXPECT_EQ(live(wams), 0);
    EXPECT_EQ(live(items), 2 * 9);
    EXPECT_EQ(message().find("measures"), std::string::npos);
}

TEST_F(MergeBytes, AFullListTakesNoFurtherMeasures) {
    for (i16 slot = 1; slot < wam_capacity; ++slot) {
        wams[slot] = {i16_true, std::to_string(slot)};
    }
    const std::string limit =
        "You have reached the limitation of User Defined 'Weights and Measures' allowed in "
        "Tavernook.  It is recommended that you delete some to allow for some more room.";
    platform.boxes.expect_message(limit);
    platform.boxes.expect_message(limit);
    user_merges_bytes(PlainProject(0).measures(17'000, {"A", "B", "C"}).bytes());
    EXPECT_EQ(wams[200].text, "A");
    EXPECT_EQ(message(),
              "Merged from cabin.tvk: 1 line of weights and measures; 2 rows were left out, the "
              "first is B: there is no room for more weights and measures.");
}

TEST_F(MergeBytes, RecordsThatAreNotInUseDoNotCome) {
    PlainProject project = older_project();
    user_merges_bytes(project.number(100 + 2 + 96, 2, 0).number(3000 + 14, 2, 2).bytes());
    EXPECT_EQ(live(items), 1);
    EXPECT_EQ(items[1].name, "Bread");
    EXPECT_EQ(items[1].qty_units, 0);
    EXPECT_EQ(meals[1].ingredient_item[2], 0);
}

TEST_F(MergeBytes, CountsAndPositionsThatCannotBeAreRefused) {
    for (const std::size_t place : {1, 7, 13, 19, 25, 31}) {
        for (const int count : {-1, 32767}) {
            PlainProject project = older_project();
            expect_refused(project.number(place, 2, count).bytes());
        }
        for (const long long position : {-1LL, 0LL, 20'001LL, 2147483647LL}) {
            PlainProject project = older_project();
            expect_refused(project.number(place + 2, 4, position).bytes());
        }
    }
    for (const std::size_t place : {39, 43}) {
        PlainProject project = older_project();
        expect_refused(project.number(place, 4, 30'000).bytes());
    }
}

TEST_F(MergeBytes, SlotsOutsideTheirTablesAreRefused) {
    for (const std::size_t place : {100, 264, 1000, 2000, 3000, 3100}) {
        for (const int slot : {0, -1, 32767}) {
            PlainProject project = older_project();
            expect_refused(project.number(place, 2, slot).bytes(), 9);
        }
    }
}

TEST_F(MergeBytes, TruncatedAnywhereItIsRefused) {
    const std::string whole = older_project().bytes();
    for (const std::size_t length : {0, 1, 47, 83, 99, 101, 264, 400, 1001, 2300, 3010, 13'999}) {
        expect_refused(whole.substr(0, length));
    }
    // In the last record, with the blocks before it in the header.
    PlainProject end = older_project();
    end.section(25, 1, 19'990).row(19'990, 1, "Kiosk");
    expect_refused(end.bytes().substr(0, 20'000));
}

// Nothing but a box or a merge, whatever byte is another one.
TEST_F(MergeBytes, ADamagedFileDoesNoHarm) {
    const std::string whole = older_project().measures(17'000, {"A = B"}).bytes();
    RecordingBoxes boxes(platform);
    for (std::size_t place = 0; place < whole.size(); place += place < 300 ? 1 : 97) {
        std::string damaged = whole;
        damaged[place] = static_cast<char>(~damaged[place]);
        user_merges_bytes(damaged);
        ASSERT_TRUE(message().starts_with("Merged from cabin.tvk: ") ||
                    message() == "cabin.tvk was not merged; nothing has changed.")
            << message();
        ASSERT_EQ(file_version, 1);
    }
}

}  // namespace
}  // namespace tavernook
