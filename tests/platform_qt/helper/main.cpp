// platform_qt_helper WHAT [PATH]: writes its answer to the standard output.
#include <QCoreApplication>
#include <QMimeDatabase>
#include <cstdio>
#include <string>

#include "platform_qt/qt_project_lock.h"
#include "platform_qt/qt_system_info.h"
#include "platform_qt/qt_text.h"

namespace {

void say(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

// Holds the lock, when it gets it, until the standard input ends.
void take_lock(const std::string& project) {
    tavernook::QtProjectLock lock;
    say(lock.acquire(project) ? "held" : "refused");
    while (std::getchar() != EOF) {
    }
}

void tell_type(const std::string& file) {
    const QMimeType type = QMimeDatabase().mimeTypeForFile(tavernook::path_to_qstring(file),
                                                           QMimeDatabase::MatchExtension);
    say((type.name() + '|' + type.comment() + '|' + type.iconName()).toStdString());
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const std::string what = argc > 1 ? argv[1] : "";
    const std::string path = argc > 2 ? argv[2] : "";
    if (what == "take-lock") take_lock(path);
    if (what == "type") tell_type(path);
    if (what == "short-date") say(tavernook::QtSystemInfo().short_date_format());
    return 0;
}
