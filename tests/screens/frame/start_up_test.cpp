#include "screens/frame/start_up.h"

#include <QDir>
#include <QLabel>
#include <vector>

#include "screens/frame/Splash.h"
#include "screens/main_window_fixture.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

// Notes at each step which windows are on the screen.
class Steps {
  public:
    Steps(const Main& main, const Splash& splash) : main_(main), splash_(splash) {}

    void add(const std::string& what) {
        list.push_back(what + (splash_.isVisible() ? " splash" : "") +
                       (main_.isVisible() ? " main" : ""));
    }

    Texts list;

  private:
    const Main& main_;
    const Splash& splash_;
};

class NotedClock : public FakeClock {
  public:
    explicit NotedClock(Steps& steps) : steps_(steps) {}
    void wait_seconds(double seconds) override {
        FakeClock::wait_seconds(seconds);
        steps_.add("wait " + std::to_string(static_cast<int>(seconds)));
    }

  private:
    Steps& steps_;
};

class NotedAssociations : public FileAssociations {
  public:
    explicit NotedAssociations(Steps& steps) : steps_(steps) {}
    void write() override { steps_.add("associations"); }

  private:
    Steps& steps_;
};

class StartUp : public MainWindowTest {
  protected:
    StartUp() {
        set_platform({.clock = &clock,
                      .boxes = &platform.boxes,
                      .file_dialogs = &platform.dialogs,
                      .files = &platform.files,
                      .settings_store = &platform.settings,
                      .file_associations = &associations,
                      .project_lock = &platform.lock,
                      .system_info = &platform.system,
                      .help_viewer = &platform.help,
                      .save_progress = &window.progress(),
                      .main = &window,
                      .screens = &window.registry()});
    }

    Splash splash;
    Steps steps{window, splash};
    NotedClock clock{steps};
    NotedAssociations associations{steps};
};

TEST_F(StartUp, SplashThenMainThenAssociationsThenTheSplashGoes) {
    start_program(window, splash, "");
    EXPECT_EQ(steps.list, (Texts{"wait 1 splash", "associations splash main"}));
    EXPECT_FALSE(splash.isVisible());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(panel(3), "Start-up");
    EXPECT_TRUE(window.findChild<QTimer*>("timer_1")->isActive());
}

TEST_F(StartUp, AProjectOnTheCommandLineOpens) {
    start_program(window, splash, "");
    ASSERT_TRUE(becomes_active(window));
    const std::string path = project_on_disk("home.tvk");
    Main next;
    set_platform({.clock = &clock,
                  .boxes = &platform.boxes,
                  .file_dialogs = &platform.dialogs,
                  .files = &platform.files,
                  .settings_store = &platform.settings,
                  .file_associations = &associations,
                  .project_lock = &platform.lock,
                  .system_info = &platform.system,
                  .help_viewer = &platform.help,
                  .save_progress = &next.progress(),
                  .main = &next,
                  .screens = &next.registry()});
    Splash next_splash;
    start_program(next, next_splash, path);
    EXPECT_EQ(project_open, i16_true);
    EXPECT_EQ(next.title(), "Tavernook - home.tvk");
}

TEST_F(StartUp, AMissingProjectOnTheCommandLineLeavesTheProgramIdle) {
    start_program(window, splash, platform.path("gone.tvk"));
    EXPECT_EQ(project_open, i16_false);
    EXPECT_NE(project_load_failed, i16_false);
    EXPECT_EQ(window.title(), "Tavernook");
    EXPECT_EQ(panel(1), "gone.tvk could not be opened.");
    EXPECT_FALSE(action("mnuFile_Save").isEnabled());
}

TEST_F(StartUp, TheSplashNamesTheProgram) {
    EXPECT_EQ(splash.findChild<QLabel*>("splash_name")->text(), "Tavernook");
    EXPECT_TRUE(splash.findChild<QLabel*>("splash_version")->text().startsWith("Version "));
    EXPECT_FALSE(splash.findChild<QLabel*>("splash_icon")->pixmap().isNull());
}

TEST(ProjectArgument, AllArgumentsAreOnePath) {
    EXPECT_EQ(project_argument({}), "");
    EXPECT_EQ(project_argument({" "}), "");
    EXPECT_EQ(project_argument({"/home/me/home.tvk"}), "/home/me/home.tvk");
    EXPECT_EQ(project_argument({"/home/me/my", "own", "home.tvk"}), "/home/me/my own home.tvk");
}

TEST(ProjectArgument, FileUrlsAreDecoded) {
    EXPECT_EQ(project_argument({"file:///home/me/my%20home.tvk"}), "/home/me/my home.tvk");
    EXPECT_EQ(project_argument({"file:///home/me/caf%C3%A9.tvk"}), "/home/me/café.tvk");
}

TEST(ProjectArgument, RelativePathsBecomeAbsolute) {
    const std::string here = QDir::currentPath().toStdString();
    EXPECT_EQ(project_argument({"home.tvk"}), here + "/home.tvk");
    EXPECT_EQ(project_argument({"./a/../home.tvk"}), here + "/home.tvk");
}

}  // namespace
}  // namespace tavernook
