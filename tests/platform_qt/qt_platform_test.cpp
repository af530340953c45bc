#include "platform_qt/qt_platform.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "gui_support/processes.h"

namespace tavernook {
namespace {

namespace fs = std::filesystem;

TEST(QtPlatformTest, EveryEntryIsHandedOver) {
    QtPlatform outside;
    const Platform platform = outside.platform(nullptr, nullptr, nullptr);
    EXPECT_EQ(platform.clock, &outside.clock);
    EXPECT_EQ(platform.boxes, &outside.boxes);
    EXPECT_EQ(platform.file_dialogs, &outside.file_dialogs);
    EXPECT_EQ(platform.files, &outside.files);
    EXPECT_EQ(platform.settings_store, &outside.settings_store);
    EXPECT_EQ(platform.file_associations, &outside.file_associations);
    EXPECT_EQ(platform.project_lock, &outside.project_lock);
    EXPECT_EQ(platform.system_info, &outside.system_info);
    EXPECT_EQ(platform.batch_scanner, &outside.batch_scanner);
    EXPECT_EQ(platform.ftp_session, &outside.ftp_session);
    EXPECT_EQ(platform.html_views, &outside.web_library);
    EXPECT_EQ(platform.print_prompt, &outside.web_library);
}

TEST(QtPlatformTest, AMovedHomeLeavesTheDesktopAlone) {
    const TempFolder folder;
    const ScopedVariable data("XDG_DATA_HOME", folder.path("data"));
    {
        const ScopedVariable moved("TAVERNOOK_HOME", folder.path("moved"));
        QtPlatform().file_associations.write();
        EXPECT_TRUE(fs::is_empty(folder.path()));
    }
    const ScopedVariable no_tools("PATH", folder.path());
    QtPlatform().file_associations.write();
    EXPECT_TRUE(fs::exists(folder.path("data/applications/tavernook.desktop")));
}

}  // namespace
}  // namespace tavernook
