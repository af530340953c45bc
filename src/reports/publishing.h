// The household's pages on the web: the month, the shopping list and the main page, made anew and
// sent to one directory of the account in the project's settings. By command, or after the audit
// without a user. The window `ftpexport` shows what is done, line by line; it calls `send_reports`
// once, at its first tick.
//
// One export at a time. It hears its window, and the user in it, at each line; what the project's
// settings say is read once, and when the project goes before all pages are made, the export ends
// as a cancelled one does.
#pragma once

#include <functional>

#include "basics/values.h"
#include "platform/ftp_export.h"

namespace tavernook {

// What makes the pages, each in the program's folder. A Fault that one lets out ends the export;
// a page that is missing afterwards ends it when its turn comes to be sent.
struct PageBuilders {
    std::function<void()> build_main_report;            // reports/main.htm
    std::function<void(i16 size)> Build_HTMLlist;       // dat/list.htm
    std::function<void(i16 size)> Build_HTMLCal_Month;  // dat/calm.htm
};

// 1 = nobody is there: the window goes at the end, and a failure is told in the status bar, as a
// box would hold up the next audit. 0 = the window waits for the user, unless it was a failure,
// which has a box.
extern i16 export_style;
void setstyle(i16 style) noexcept;

// The command: shows the window; a box where the account is incomplete.
void Project_SendtoWeb() noexcept;

// The whole export. At its end the connection is closed and the window is either gone, behind a
// failure or with style 1, or has its "Close" enabled; the status bar tells how many files were
// sent. Does nothing while one runs.
void send_reports(ports::FtpExport& window, const PageBuilders& pages) noexcept;

// What "Cancel" and unloading the window do: the export that runs ends at once. What has been sent
// stays on the server.
void cancel_export() noexcept;

bool export_runs() noexcept;

}  // namespace tavernook
