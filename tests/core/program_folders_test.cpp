#include "core/program_folders.h"

#include <gtest/gtest.h>

#include "basics/text.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {

namespace {

TEST(ProgramFolders, NamesLieInTheProgramsFolder) {
    TestPlatform platform;
    platform.system.program = "/home/ann/Tavernook";
    EXPECT_EQ(in_program_folder("recipes/"), "/home/ann/Tavernook/recipes/");
    EXPECT_EQ(in_program_folder("*.tvk"), "/home/ann/Tavernook/*.tvk");
    EXPECT_EQ(in_program_folder(""), "/home/ann/Tavernook/");
}

TEST(ProgramFolders, TheFolderOfAPathIsInFrontOfItsLastSeparator) {
    EXPECT_EQ(folder_of("/a/b/home.tvk"), "/a/b");
    EXPECT_EQ(folder_of("a/home.tvk"), "a");
    EXPECT_EQ(folder_of("home.tvk"), ".");
    EXPECT_EQ(folder_of("/home.tvk"), "/");
    EXPECT_EQ(folder_of("/a/b/"), "/a/b");
    EXPECT_EQ(folder_of(""), ".");
}

class ProjectName : public testing::Test {
  protected:
    ~ProjectName() override { set_project_path(""); }
};

TEST_F(ProjectName, IsTheLastPartOfThePathWithItsExtension) {
    set_project_path("/a/b/our house.tvk");
    EXPECT_EQ(project_path, "/a/b/our house.tvk");
    EXPECT_EQ(project_name, "our house.tvk");
    set_project_path("home.tvk");
    EXPECT_EQ(project_name, "home.tvk");
    // Paths that come from another system.
    set_project_path("C:\\food\\home.tvk");
    EXPECT_EQ(project_name, "home.tvk");
}

TEST_F(ProjectName, ItsStemLacksTheLastFourCharacters) {
    set_project_path("/a/our house.tvk");
    EXPECT_EQ(project_stem(), "our house");
    set_project_path("/a/g.tvk");
    EXPECT_EQ(project_stem(), "g");
    set_project_path("/a/.tvk");
    EXPECT_EQ(project_stem(), "");
    set_project_path("/a/abc");
    EXPECT_EQ(project_stem(), "");
    set_project_path("/a/a.b.tvk");
    EXPECT_EQ(project_stem(), "a.b");
}

TEST_F(ProjectName, TheStemIsThatOfThePathWhateverTheNameShows) {
    set_project_path("/a/sample17.tvk");
    project_name = "Sample17.tvk";
    EXPECT_EQ(project_stem(), "sample17");
    project_name.clear();
    EXPECT_EQ(project_stem(), "sample17");
}

TEST_F(ProjectName, MayBeSetFromThePathItself) {
    set_project_path("/a/home.tvk");
    set_project_path(project_path);
    EXPECT_EQ(project_path, "/a/home.tvk");
    EXPECT_EQ(project_name, "home.tvk");
}

}  // namespace

}  // namespace tavernook
