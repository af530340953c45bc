#include "transfer/export_target.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

class ExportTarget : public testing::Test {
  protected:
    std::string target_of(const std::string& name) {
        platform.main.status[message_panel].clear();
        const std::string target =
            export_target(platform.path(name), ".rpf", "nothing was exported");
        return target.empty() ? target : std::filesystem::path(target).filename().string();
    }
    void lay_down(const std::string& name) {
        platform.disk.open(platform.path(name), OpenMode::read_write)->write(0, "kept");
    }
    const std::string& told() { return platform.main.status[message_panel]; }

    TestPlatform platform;
};

TEST_F(ExportTarget, IsANameOfItsKind) {
    EXPECT_EQ(target_of("soup.rpf"), "soup.rpf");
    EXPECT_EQ(target_of("SOUP.RPF"), "SOUP.RPF");
    EXPECT_EQ(target_of("soup"), "soup.rpf");
    EXPECT_EQ(target_of("soup 22.11"), "soup 22.11.rpf");
    EXPECT_EQ(told(), "");
}

TEST_F(ExportTarget, AFileThatTheUserHasNotAgreedToReplaceStays) {
    lay_down("soup.rpf");
    EXPECT_EQ(target_of("soup.rpf"), "soup.rpf");
    EXPECT_EQ(target_of("soup"), "");
    EXPECT_EQ(told(), "soup.rpf is there already; nothing was exported.  Choose another name.");
}

TEST_F(ExportTarget, AWriteProtectedFileStays) {
    lay_down("soup.rpf");
    std::filesystem::permissions(platform.path("soup.rpf"), std::filesystem::perms::owner_read);
    EXPECT_EQ(target_of("soup.rpf"), "");
    EXPECT_EQ(told(), "soup.rpf is write-protected; nothing was exported.");
}

TEST_F(ExportTarget, AProjectsOwnFilesStay) {
    for (const char* name : {"home.tvk", "home.tvk.lock"}) {
        EXPECT_EQ(target_of(name), "") << name;
        EXPECT_EQ(told(),
                  std::string(name) +
                      " is a project's own file; nothing was exported.  Choose another name.");
    }
    lay_down("household.rpf");
    project_path = platform.path("household.rpf");
    EXPECT_EQ(target_of("household.rpf"), "");
}

TEST_F(ExportTarget, AFolderThatIsMissingIsNotMade) {
    EXPECT_EQ(target_of("Fur Oma/soup"), "");
    EXPECT_EQ(told(),
              "The folder Fur Oma is not there; nothing was exported.  Choose another place.");
    EXPECT_FALSE(platform.disk.exists(platform.path("Fur Oma")));
}

TEST_F(ExportTarget, BehindALinkIsTheFileItLeadsTo) {
    lay_down("real.rpf");
    std::filesystem::create_symlink(platform.path("real.rpf"), platform.path("link.rpf"));
    EXPECT_EQ(target_of("link.rpf"), "real.rpf");
}

}  // namespace
}  // namespace tavernook
