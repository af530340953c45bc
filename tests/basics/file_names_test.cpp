// Names that are made of long names.
#include "basics/file_names.h"

#include <gtest/gtest.h>

namespace tavernook {
namespace {

std::size_t name_size(const std::string& path) {
    return path.size() - path.rfind('/') - 1;
}

TEST(FileNames, AStemThatFitsStaysAsItIs) {
    EXPECT_EQ(shortened_stem("home", 10), "home");
    EXPECT_EQ(shortened_stem(std::string(10, 'a'), 10), std::string(10, 'a'));
    EXPECT_EQ(shortened_stem("", 10), "");
}

TEST(FileNames, ALongStemFillsTheRoomAndBearsItsNumber) {
    const std::string stem(300, 'a');
    const std::string shortened = shortened_stem(stem, 100);
    EXPECT_EQ(shortened.size(), 100U);
    EXPECT_TRUE(shortened.starts_with("aaaa"));
    EXPECT_TRUE(shortened.ends_with("~" + name_number(stem)));
}

TEST(FileNames, LongStemsThatStartAlikeDiffer) {
    const std::string start(250, 'a');
    EXPECT_NE(shortened_stem(start + "b", 100), shortened_stem(start + "c", 100));
}

TEST(FileNames, CharactersStayWhole) {
    std::string umlauts;
    for (int n = 0; n < 100; ++n) umlauts += "\xC3\xBC";
    for (std::size_t room = 60; room < 64; ++room) {
        const std::string shortened = shortened_stem(umlauts, room);
        EXPECT_EQ(shortened.find('~') % 2, 0U) << room;
        EXPECT_LE(shortened.size(), room);
        EXPECT_GE(shortened.size() + 1, room);
    }
}

TEST(FileNames, BytesThatAreNoCharactersAreCutAnywhere) {
    EXPECT_EQ(shortened_stem(std::string(300, '\x80'), 100).size(), 100U);
}

TEST(FileNames, AnEndingGoesBehindThePath) {
    EXPECT_EQ(path_with_ending("/a/home", ".previous.tvk"), "/a/home.previous.tvk");
    EXPECT_EQ(path_with_ending("home", ".new"), "home.new");
}

TEST(FileNames, OnlyTheNameIsShortenedAndOnlyWhereItMust) {
    const std::string folder = "/" + std::string(200, 'f') + "/";
    EXPECT_EQ(path_with_ending(folder + std::string(251, 'n'), ".tvk"),
              folder + std::string(251, 'n') + ".tvk");
    const std::string longer = path_with_ending(folder + std::string(252, 'n'), ".tvk");
    EXPECT_TRUE(longer.starts_with(folder + "nnn"));
    EXPECT_TRUE(longer.ends_with(".tvk"));
    EXPECT_EQ(name_size(longer), 255U);
    EXPECT_EQ(name_size(path_with_ending(folder + std::string(251, 'n'), ".tvk", 7)), 248U);
}

}  // namespace
}  // namespace tavernook
