#include "screens/aids/help_desk.h"

#include <utility>

#include "screens/aids/help_window.h"

namespace tavernook {

HelpDesk::HelpDesk(QStringList folders) : book_(std::move(folders)) {}

HelpDesk::~HelpDesk() = default;

HelpWindow& HelpDesk::window() {
    if (window_ == nullptr) window_ = std::make_unique<HelpWindow>(book_);
    return *window_;
}

bool HelpDesk::show_contents() {
    if (!book_.open()) return false;
    window().show_contents();
    return true;
}

bool HelpDesk::show_search() {
    if (!book_.open()) return false;
    window().show_search();
    return true;
}

bool HelpDesk::show_page(const std::string& screen) {
    if (!book_.open()) return false;
    const QUrl page = book_.page_of(QString::fromStdString(screen));
    if (!page.isEmpty()) window().show_page(page);
    return true;
}

}  // namespace tavernook
