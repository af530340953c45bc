#include "screens/frame/child_area.h"

#include <QEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMetaObject>
#include <algorithm>

#include "core/project_data.h"
#include "screens/frame/StartPage.h"
#include "screens/frame/screen_registry.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

ChildArea::ChildArea(QMdiArea& area, ScreenRegistry& registry, QObject* parent)
    : QObject(parent), area_(area), start_page_(new StartPage(area.viewport())) {
    area_.viewport()->installEventFilter(this);
    area_.setMinimumSize(start_page_->minimumSizeHint());
    connect(&area_, &QMdiArea::subWindowActivated, this, &ChildArea::changed);
    registry.when_hidden([this] { tell_later(); });
}

void ChildArea::let_go() {
    gone_ = true;
    disconnect(&area_, nullptr, this, nullptr);
    area_.viewport()->removeEventFilter(this);
}

void ChildArea::tell_later() {
    if (!gone_) QMetaObject::invokeMethod(this, &ChildArea::changed, Qt::QueuedConnection);
}

bool ChildArea::has_child_window() const {
    const auto children = area_.subWindowList();
    return std::any_of(children.begin(), children.end(),
                       [](const QMdiSubWindow* child) { return !child->isHidden(); });
}

void ChildArea::set_recent_files(const std::vector<std::string>& paths) {
    start_page_->set_recent_files(paths);
    area_.setMinimumSize(start_page_->minimumSizeHint());
}

void ChildArea::refresh(bool project_is_open) {
    const bool wanted = !has_child_window();
    if (wanted) {
        start_page_->setGeometry(area_.viewport()->rect());
        if (project_is_open) {
            start_page_->show_project(
                shown_path(project_name),
                tr("This household is open. Its commands are in the menus and on the toolbars."));
        } else {
            start_page_->show_idle();
        }
    }
    if (start_page_->isHidden() == wanted) start_page_->setVisible(wanted);
}

void ChildArea::focus_child() {
    if (QMdiSubWindow* child = area_.activeSubWindow()) return child->setFocus();
    focus_start_page();
}

void ChildArea::focus_start_page() {
    start_page_->focus_first();
}

void ChildArea::tile() {
    area_.tileSubWindows();
}

void ChildArea::cascade() {
    area_.cascadeSubWindows();
}

bool ChildArea::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        start_page_->setGeometry(area_.viewport()->rect());
    } else if (event->type() == QEvent::ChildRemoved || event->type() == QEvent::ChildAdded) {
        tell_later();
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace tavernook
