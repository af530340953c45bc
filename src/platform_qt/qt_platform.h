// The whole outside, answered with Qt. The windows among the platform's entries are not made here.
#pragma once

#include "platform/platform.h"
#include "platform_disk/disk_files.h"
#include "platform_qt/freedesktop_associations.h"
#include "platform_qt/qt_boxes.h"
#include "platform_qt/qt_clock.h"
#include "platform_qt/qt_file_dialogs.h"
#include "platform_qt/qt_project_lock.h"
#include "platform_qt/qt_serial_line.h"
#include "platform_qt/qt_settings_store.h"
#include "platform_qt/qt_system_info.h"
#include "platform_qt/web_library.h"
#include "platform_services/cabinet_files.h"
#include "platform_services/cs1504_scanner.h"
#include "platform_services/curl_ftp_session.h"
#include "platform_services/espeak_speech.h"

namespace tavernook {

// Needs a QApplication, and outlives the use of what `platform` hands out.
struct QtPlatform {
    QtPlatform();

    Platform platform(ports::SaveProgress* save_progress, ports::Main* main,
                      ports::Screens* screens);

    QtClock clock;
    QtBoxes boxes;
    QtFileDialogs file_dialogs;
    DiskFiles files;
    QtSettingsStore settings_store;
    QtProjectLock project_lock;
    QtSystemInfo system_info;
    QtSerialLine serial_line;
    Cs1504Scanner batch_scanner;
    CabinetFiles cabinets;
    CurlFtpSession ftp_session;
    WebLibrary web_library;
    EspeakSpeech speech;

    // With $TAVERNOOK_HOME set the desktop is left alone.
    FreedesktopAssociations file_associations;
};

}  // namespace tavernook
