// A whole platform of fakes over real files in a temporary folder, handed over as long as it
// lives. The program's state is that of a fresh program. Boxes and file dialogs start with an empty
// script: one that was not announced, or that never came, fails the test.
//
//   class ProjectTest : public testing::Test {
//     protected:
//       TestPlatform platform;
//   };
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "fakes/call_log.h"
#include "fakes/fake_batch_scanner.h"
#include "fakes/fake_boxes.h"
#include "fakes/fake_cabinets.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_file_associations.h"
#include "fakes/fake_file_dialogs.h"
#include "fakes/fake_ftp.h"
#include "fakes/fake_help_viewer.h"
#include "fakes/fake_main_window.h"
#include "fakes/fake_progress.h"
#include "fakes/fake_project_lock.h"
#include "fakes/fake_screens.h"
#include "fakes/fake_settings_store.h"
#include "fakes/fake_speech.h"
#include "fakes/fake_system_info.h"
#include "fakes/faulty_files.h"
#include "fakes/program_state_reset.h"
#include "fakes/temp_folder.h"
#include "platform_disk/disk_files.h"

namespace tavernook {

struct TestPlatform {
    TestPlatform();
    ~TestPlatform();
    TestPlatform(const TestPlatform&) = delete;
    TestPlatform& operator=(const TestPlatform&) = delete;

    // A path in the temporary folder.
    std::string path(std::string_view name) const { return temp.path(name); }

    TempFolder temp;

    // What the fakes saw, in order: "window title Home", "progress bar 25",
    // "box Save the changes?", "dialog Open Project", "file rename a.tvk -> b.tvk".
    std::vector<std::string> transcript;

    DiskFiles disk;           // neither counted nor failing
    FaultyFiles files{disk};  // what the program uses

    CallLog calls;  // calls to the main window and the screens
    FakeMain main{calls};
    FakeScreens screens{calls};
    FakeReplaceItem replace_item{calls};
    FakeFtpExport ftp_export{calls};

    FakeClock clock;
    FakeBoxes boxes;
    FakeFileDialogs dialogs;
    FakeSaveProgress progress;
    FakeSettingsStore settings;
    FakeFileAssociations associations;
    FakeProjectLock lock;
    FakeSystemInfo system;  // folders "program" and "settings" in the temporary folder, both there
    FakeHelpViewer help;
    FakeBatchScanner scanner;
    FakeFtpSession ftp;
    FakeCabinets cabinets;
    FakeImportForm import_form;
    FakeSpeech speech;
};

}  // namespace tavernook
