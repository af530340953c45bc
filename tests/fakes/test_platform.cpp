#include "fakes/test_platform.h"

#include "core/project/project_claim.h"
#include "platform/platform.h"

namespace tavernook {

TestPlatform::TestPlatform() {
    system.program = temp.path("program");
    system.settings = temp.path("settings");
    disk.make_folder(system.program);
    disk.make_folder(system.settings);

    boxes.expect_none();
    dialogs.expect_none();
    calls.pass_on_to(transcript, "window ");
    progress.log.pass_on_to(transcript, "progress ");
    boxes.log.pass_on_to(transcript, "box ");
    dialogs.log.pass_on_to(transcript, "dialog ");
    files.calls.pass_on_to(transcript, "file ");
    scanner.log.pass_on_to(transcript, "scanner ");
    ftp.log.pass_on_to(transcript, "ftp ");
    cabinets.log.pass_on_to(transcript, "cabinets ");
    import_form.log.pass_on_to(transcript, "form ");
    speech.log.pass_on_to(transcript, "speech ");

    reset_program_state();
    set_platform({.clock = &clock,
                  .boxes = &boxes,
                  .file_dialogs = &dialogs,
                  .files = &files,
                  .settings_store = &settings,
                  .file_associations = &associations,
                  .project_lock = &lock,
                  .system_info = &system,
                  .help_viewer = &help,
                  .save_progress = &progress,
                  .main = &main,
                  .screens = &screens,
                  .replace_item = &replace_item,
                  .import_form = &import_form,
                  .batch_scanner = &scanner,
                  .cabinets = &cabinets,
                  .ftp_session = &ftp,
                  .ftp_export = &ftp_export,
                  .speech = &speech});
}

TestPlatform::~TestPlatform() {
    boxes.check_used_up();
    dialogs.check_used_up();
    release_claims();
    clear_platform();
}

}  // namespace tavernook
