#include "platform_qt/program_files.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "fakes/temp_folder.h"

namespace tavernook {
namespace {

namespace fs = std::filesystem;

class ProgramFilesTest : public testing::Test {
  protected:
    ProgramFilesTest() {
        fs::create_directories(folder.path("shipped/recipes/soups"));
        write_whole_file(folder.path("shipped/Sample.tvk"), "sample");
        write_whole_file(folder.path("shipped/recipes/Bread.rpf"), "bread");
        write_whole_file(folder.path("shipped/recipes/soups/Leek.rpf"), "leek");
    }
    bool install() { return install_program_files(folder.path("shipped"), folder.path("a/user")); }
    std::string users(const std::string& name) { return folder.path("a/user/" + name); }

    TempFolder folder;
};

TEST_F(ProgramFilesTest, EverythingMissingIsPlaced) {
    EXPECT_TRUE(install());
    for (const char* name : {"recipes", "dat", "reports", "barcode"}) {
        EXPECT_TRUE(fs::is_directory(users(name))) << name;
    }
    EXPECT_EQ(read_whole_file(users("Sample.tvk")), "sample");
    EXPECT_EQ(read_whole_file(users("recipes/Bread.rpf")), "bread");
    EXPECT_EQ(read_whole_file(users("recipes/soups/Leek.rpf")), "leek");
}

TEST_F(ProgramFilesTest, WhatTheUserHasStays) {
    fs::create_directories(users("recipes"));
    write_whole_file(users("recipes/Bread.rpf"), "my own bread");
    EXPECT_TRUE(install());
    EXPECT_EQ(read_whole_file(users("recipes/Bread.rpf")), "my own bread");
    EXPECT_EQ(read_whole_file(users("recipes/soups/Leek.rpf")), "leek");
}

TEST_F(ProgramFilesTest, AnEmptyFileAndALinkToNowhereAreTheUsersToo) {
    fs::create_directories(users("recipes"));
    write_whole_file(users("recipes/Bread.rpf"), "");
    fs::create_symlink("/no such file", users("Sample.tvk"));
    EXPECT_TRUE(install());
    EXPECT_EQ(read_whole_file(users("recipes/Bread.rpf")), "");
    EXPECT_TRUE(fs::is_symlink(users("Sample.tvk")));
    EXPECT_FALSE(fs::exists(users("Sample.tvk")));
}

TEST_F(ProgramFilesTest, NothingElseIsLeftBehind) {
    EXPECT_TRUE(install());
    EXPECT_TRUE(install());
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder.path("a"))) {
        if (entry.is_regular_file()) ++files;
    }
    EXPECT_EQ(files, 3);
}

TEST_F(ProgramFilesTest, CopiesMayBeChanged) {
    ASSERT_EQ(::chmod(folder.path("shipped/Sample.tvk").c_str(), 0444), 0);
    EXPECT_TRUE(install());
    EXPECT_NE(fs::status(users("Sample.tvk")).permissions() & fs::perms::owner_write,
              fs::perms::none);
}

TEST_F(ProgramFilesTest, OneThatCannotBePlacedDoesNotStopTheOthers) {
    fs::create_directories(users(""));
    write_whole_file(users("recipes"), "a file in the folder's place");
    EXPECT_FALSE(install());
    EXPECT_EQ(read_whole_file(users("Sample.tvk")), "sample");
    EXPECT_EQ(read_whole_file(users("recipes")), "a file in the folder's place");
    EXPECT_TRUE(fs::is_directory(users("dat")));
}

TEST_F(ProgramFilesTest, WithoutShippedFilesTheFoldersAreMadeAllTheSame) {
    EXPECT_FALSE(install_program_files(folder.path("nothing here"), folder.path("user")));
    EXPECT_TRUE(fs::is_directory(folder.path("user/barcode")));
    EXPECT_FALSE(install_program_files("", folder.path("other")));
    EXPECT_TRUE(fs::is_directory(folder.path("other/recipes")));
}

}  // namespace
}  // namespace tavernook
