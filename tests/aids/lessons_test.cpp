// The lessons' files: what their bytes mean, and what becomes of those that are none.
#include "aids/lessons.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "fakes/test_platform.h"
#include "platform/main_window.h"

namespace tavernook {
namespace {

using Pages = std::vector<std::string>;

class Lessons : public testing::Test {
  protected:
    ~Lessons() override { set_shipped_lessons({}); }

    std::string file(const char* name) { return platform.system.program + "/" + name; }
    void put(const std::string& bytes) { write_whole_file(file("tut300.dat"), bytes); }
    Pages read(const std::string& bytes) {
        put(bytes);
        set_section(300);
        return tut_pages;
    }
    std::string status() { return platform.main.status[message_panel]; }

    static constexpr const char* unread =
        "The lesson could not be read from the file \"tut300.dat\".";
    TestPlatform platform;
};

TEST_F(Lessons, ATitleAndPagesEachEndedByItsMark) {
    EXPECT_EQ(read("Items/b/One/b/Two/b/"), (Pages{"Items", "One", "Two", ""}));
    EXPECT_EQ(lesson_title(), "Items");
    EXPECT_EQ(tut_page, 1);
    EXPECT_EQ(tut_section, 300);
    EXPECT_EQ(lesson_page(2), "Two");
    EXPECT_EQ(lesson_page_count(), 2);
    EXPECT_EQ(status(), "");
}

TEST_F(Lessons, WhatStandsBehindTheLastMarkIsNoPage) {
    EXPECT_EQ(read("Items/b/One/b/Two"), (Pages{"Items", "One", ""}));
}

TEST_F(Lessons, WithoutAMarkThereIsNoPage) {
    EXPECT_EQ(read("Items"), (Pages{"", ""}));
    EXPECT_EQ(lesson_page_count(), 0);
    EXPECT_EQ(read(""), (Pages{"", ""}));
    show_next_page();
    EXPECT_EQ(tut_page, 1);
    EXPECT_EQ(lesson_page(tut_page), "");
}

TEST_F(Lessons, LinesMayEndAsTheyLikeAndBlanksAroundAPageDoNotCount) {
    EXPECT_EQ(read("Items\r\n/b/\r\nOne\r\ntwo\rthree\nfour\r\n\r\n/b/ \t \n Last /b/\n"),
              (Pages{"Items", "One\ntwo\nthree\nfour", "Last", ""}));
}

TEST_F(Lessons, LettersAreThoseOfTheCodePageAndZerosArePassedOver) {
    EXPECT_EQ(read(std::string("Caf\xe9/b/Cr\xe8me \0br\xfbl\xe9"
                               "e \x80 5/b/",
                               27))
                  .at(1),
              "Cr\xe8me br\xfbl\xe9"
              "e \x80 5");
}

TEST_F(Lessons, Utf8ThatSaysSoIsReadAsSuch) {
    EXPECT_EQ(read("\xef\xbb\xbf"
                   "Caf\xc3\xa9/b/Cr\xc3\xa8me/b/"),
              (Pages{"Caf\xe9", "Cr\xe8me", ""}));
    EXPECT_EQ(read("Caf\xc3\xa9/b/One/b/").front(), "Caf\xc3\xa9");
}

TEST_F(Lessons, AnEmptyPageEndsTheWay) {
    read("Items/b/One/b/ \n /b/Three/b/");
    EXPECT_EQ(lesson_page_count(), 1);
    show_next_page();
    EXPECT_EQ(tut_page, 1);
}

TEST_F(Lessons, PagesGoToTheLastAndBackToTheFirst) {
    read("Items/b/One/b/Two/b/");
    show_previous_page();
    EXPECT_EQ(tut_page, 1);
    show_next_page();
    EXPECT_EQ(tut_page, 2);
    show_next_page();
    EXPECT_EQ(tut_page, 2);
    show_previous_page();
    EXPECT_EQ(tut_page, 1);
    for (const i16 none : {-32768, -1, 0, 3, 32767}) tut_proc(none);
    EXPECT_EQ(tut_page, 1);
    show_next_page();
    set_section(300);
    EXPECT_EQ(tut_page, 1);
}

TEST_F(Lessons, AMissingFileIsToldAndLeavesNothingOfTheLessonBefore) {
    read("Items/b/One/b/");
    std::filesystem::remove(file("tut300.dat"));
    set_section(300);
    EXPECT_EQ(tut_pages, (Pages{"", ""}));
    EXPECT_EQ(status(), unread);
}

TEST_F(Lessons, AFolderInItsPlaceIsTold) {
    std::filesystem::create_directory(file("tut300.dat"));
    set_section(300);
    EXPECT_EQ(lesson_page_count(), 0);
    EXPECT_EQ(status(), unread);
}

TEST_F(Lessons, AFileThatIsTooLongIsTold) {
    const std::string page = "Items/b/One/b/";
    EXPECT_EQ(read(page + std::string(256 * 1024 - page.size(), ' ')).at(1), "One");
    EXPECT_EQ(status(), "");
    EXPECT_EQ(read(page + std::string(256 * 1024 + 1 - page.size(), ' ')), (Pages{"", ""}));
    EXPECT_EQ(status(), unread);
}

TEST_F(Lessons, TooManyPagesAreLeftOut) {
    std::string text = "Items/b/";
    for (int page = 0; page < 40000; ++page) text += "x/b/";
    read(text);
    EXPECT_EQ(lesson_page_count(), 999);
}

TEST_F(Lessons, ADiskThatFailsIsTold) {
    put("Items/b/One/b/");
    platform.files.fail_at(platform.files.operations() + 1, fault_number::device_io_error);
    set_section(300);
    EXPECT_EQ(lesson_page_count(), 0);
    EXPECT_EQ(status(), unread);
}

TEST_F(Lessons, WhatIsMissingIsLaidOutAndWhatIsThereStays) {
    put("Mine/b/My own page/b/");
    set_shipped_lessons([](const std::string& name) { return name + "/b/One/b/"; });
    EXPECT_TRUE(lay_out_lessons());
    for (const i16 section : lesson_sections) {
        EXPECT_TRUE(std::filesystem::exists(file(lesson_file_name(section).c_str())));
    }
    set_section(300);
    EXPECT_EQ(lesson_title(), "Mine");
    set_section(100);
    EXPECT_EQ(lesson_title(), "tut100.dat");
}

TEST_F(Lessons, ANewerProgramRenewsTheOnesThatItPlaced) {
    set_shipped_lessons([](const std::string&) { return "Old/b/One/b/"; });
    EXPECT_TRUE(lay_out_lessons());
    put("Mine/b/My own page/b/");
    set_shipped_lessons([](const std::string&) { return "New/b/One/b/"; });
    EXPECT_TRUE(lay_out_lessons());
    set_section(100);
    EXPECT_EQ(lesson_title(), "New");
    set_section(300);
    EXPECT_EQ(lesson_title(), "Mine");  // changed by the user
    set_shipped_lessons([](const std::string&) { return "Newest/b/One/b/"; });
    set_section(100);
    EXPECT_EQ(lesson_title(), "Newest");
    set_section(300);
    EXPECT_EQ(lesson_title(), "Mine");
}

// One that lay there before the sums were kept is the program's where it is just what it places.
TEST_F(Lessons, OneThatIsJustAsItComesCountsAsPlaced) {
    put("Items/b/One/b/");
    set_shipped_lessons([](const std::string&) { return "Items/b/One/b/"; });
    EXPECT_TRUE(lay_out_lessons());
    set_shipped_lessons([](const std::string&) { return "New/b/One/b/"; });
    EXPECT_TRUE(lay_out_lessons());
    set_section(300);
    EXPECT_EQ(lesson_title(), "New");
}

TEST_F(Lessons, OneThatCannotBeReadIsLeftAlone) {
    std::filesystem::create_directory(file("tut300.dat"));
    set_shipped_lessons([](const std::string&) { return "Items/b/One/b/"; });
    EXPECT_TRUE(lay_out_lessons());
    EXPECT_TRUE(std::filesystem::is_directory(file("tut300.dat")));
}

TEST_F(Lessons, OneThatWasDeletedComesBackWhenItIsWanted) {
    set_shipped_lessons([](const std::string&) { return "Items/b/One/b/"; });
    set_section(300);
    EXPECT_EQ(lesson_page(1), "One");
    EXPECT_TRUE(std::filesystem::exists(file("tut300.dat")));
}

TEST_F(Lessons, WhereNothingCanBePlacedTheProgramHasThemAllTheSame) {
    set_shipped_lessons([](const std::string&) { return std::string("Items/b/One/b/"); });
    platform.system.program += "/is no folder";
    write_whole_file(platform.system.program, "");
    EXPECT_FALSE(lay_out_lessons());
    set_section(300);
    EXPECT_EQ(tut_pages, (Pages{"Items", "One", ""}));
    EXPECT_EQ(status(), "");
}

TEST_F(Lessons, OneThatCannotBePlacedIsToldAndTheOthersArePlaced) {
    set_shipped_lessons([](const std::string& name) -> std::string {
        if (name == "tut300.dat") throw Fault(fault_number::file_not_found);
        return "Items/b/One/b/";
    });
    EXPECT_FALSE(lay_out_lessons());
    EXPECT_FALSE(std::filesystem::exists(file("tut300.dat")));
    EXPECT_TRUE(std::filesystem::exists(file("tut700.dat")));
}

}  // namespace
}  // namespace tavernook
