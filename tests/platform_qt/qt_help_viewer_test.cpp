#include "platform_qt/qt_help_viewer.h"

#include <QDesktopServices>
#include <QObject>
#include <QUrl>
#include <filesystem>
#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform_qt/qt_text.h"

namespace tavernook {
namespace {

// Takes the place of the desktop's viewer.
class Viewer : public QObject {
    Q_OBJECT
  public:
    Viewer() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "show"); }
    ~Viewer() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    Q_INVOKABLE void show(const QUrl& url) { shown = qstring_to_path(url.toLocalFile()); }

    std::string shown;
};

TEST(HelpViewer, WithoutPagesThereIsNoHelp) {
    const TempFolder folder;
    Viewer viewer;
    QtHelpViewer help(folder.path("help"));
    EXPECT_FALSE(help.show_contents());
    EXPECT_FALSE(help.show_search());
    EXPECT_EQ(viewer.shown, "");
}

TEST(HelpViewer, AFolderOfThatNameIsNoPage) {
    const TempFolder folder;
    Viewer viewer;
    std::filesystem::create_directory(folder.path("index.html"));
    EXPECT_FALSE(QtHelpViewer(folder.path()).show_contents());
    EXPECT_EQ(viewer.shown, "");
}

TEST(HelpViewer, ShowsThePagesThatAreThere) {
    const TempFolder folder;
    Viewer viewer;
    QtHelpViewer help(folder.path());
    write_whole_file(folder.path("index.html"), "<p>Help</p>");
    EXPECT_TRUE(help.show_contents());
    EXPECT_EQ(viewer.shown, folder.path("index.html"));
    EXPECT_FALSE(help.show_search());
    write_whole_file(folder.path("search.html"), "<p>Search</p>");
    EXPECT_TRUE(help.show_search());
    EXPECT_EQ(viewer.shown, folder.path("search.html"));
}

}  // namespace
}  // namespace tavernook

#include "qt_help_viewer_test.moc"
