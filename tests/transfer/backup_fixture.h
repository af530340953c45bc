// home.tvk on the disk and open, its store called "Bakery", and where its back-ups lie.
#pragma once

#include <optional>

#include "core/project/session_testing.h"
#include "platform/platform.h"
#include "transfer/backup.h"
#include "transfer/memory_file.h"

namespace tavernook {

// In place of the script while it lives: any box is answered and noted.
class RecordingBoxes : public Boxes {
  public:
    explicit RecordingBoxes(TestPlatform& platform, Answer answer = Answer::yes)
        : platform_(platform), answer_(answer) {
        hand_over(*this);
    }
    ~RecordingBoxes() override { hand_over(platform_.boxes); }
    RecordingBoxes(const RecordingBoxes&) = delete;
    RecordingBoxes& operator=(const RecordingBoxes&) = delete;

    Answer message(std::string_view text, Buttons buttons, std::string_view,
                   DefaultButton) override {
        texts.emplace_back(text);
        return buttons == Buttons::ok ? Answer::ok : answer_;
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        return {};
    }

    Steps texts;

  private:
    void hand_over(Boxes& boxes) {
        set_platform({.clock = &platform_.clock,
                      .boxes = &boxes,
                      .file_dialogs = &platform_.dialogs,
                      .files = &platform_.files,
                      .settings_store = &platform_.settings,
                      .file_associations = &platform_.associations,
                      .project_lock = &platform_.lock,
                      .system_info = &platform_.system,
                      .help_viewer = &platform_.help,
                      .save_progress = &platform_.progress,
                      .main = &platform_.main,
                      .screens = &platform_.screens});
    }

    TestPlatform& platform_;
    Answer answer_;
};

class BackupTest : public SessionTest {
  protected:
    BackupTest() {
        hide_welcome();
        make_project(home, "Bakery");
        begin();
    }
    void begin() {
        start();
        user_opens(home);
        platform.progress.log.clear();
        forget_steps();
    }

    void user_backs_up(const std::string& path) {
        platform.dialogs.expect_save("Back-up Project", path);
        mnuFile_Backup();
    }
    void user_restores(const std::string& path) {
        platform.dialogs.expect_open("Restore Project", path);
        mnuFile_Restore();
    }
    // What lies on the disk as the project that is open, whatever it is.
    void project_file_holds(const std::string& bytes) { write_whole_file(home, bytes); }

    std::string bytes_of(const std::string& path) {
        return exists(path) ? read_whole_file(path) : "none";
    }
    std::string message() { return platform.main.status[message_panel]; }

    // Beside the project.
    Steps files_there() { return platform.disk.list(platform.temp.path(), ""); }
    Steps files_in_program() { return platform.disk.list(platform.system.program, ""); }

    const std::string backup = platform.path("home.vzk");
    const std::string copy = platform.path("home.vzk.tvk");
    const std::string restored = in_program("restored.tvk");
};

}  // namespace tavernook
