#include "platform_qt/qt_platform.h"

#include <QCoreApplication>

#include "platform_qt/user_folders.h"

namespace tavernook {

QtPlatform::QtPlatform()
    : batch_scanner(serial_line),
      ftp_session({.pump = [] { QCoreApplication::processEvents(); },
                   .known_hosts = system_info.settings_folder() + "/known_hosts"}),
      web_library(web_library_folders()),
      file_associations(portable_home().isEmpty() ? data_home() : QString(),
                        QCoreApplication::applicationFilePath()) {}

Platform QtPlatform::platform(ports::SaveProgress* save_progress, ports::Main* main,
                              ports::Screens* screens) {
    return {.clock = &clock,
            .boxes = &boxes,
            .file_dialogs = &file_dialogs,
            .files = &files,
            .settings_store = &settings_store,
            .file_associations = &file_associations,
            .project_lock = &project_lock,
            .system_info = &system_info,
            .save_progress = save_progress,
            .main = main,
            .screens = screens,
            .batch_scanner = &batch_scanner,
            .cabinets = &cabinets,
            .ftp_session = &ftp_session,
            .html_views = &web_library,
            .print_prompt = &web_library,
            .speech = &speech};
}

}  // namespace tavernook
