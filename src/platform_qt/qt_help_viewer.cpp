#include "platform_qt/qt_help_viewer.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "platform_qt/qt_text.h"

namespace tavernook {

namespace {

bool show_page(const std::string& path) {
    const QString page = path_to_qstring(path);
    return QFileInfo(page).isFile() && QDesktopServices::openUrl(QUrl::fromLocalFile(page));
}

}  // namespace

QtHelpViewer::QtHelpViewer(std::string help_folder) : folder_(std::move(help_folder)) {}

bool QtHelpViewer::show_contents() {
    return show_page(folder_ + "/index.html");
}

bool QtHelpViewer::show_search() {
    return show_page(folder_ + "/search.html");
}

}  // namespace tavernook
