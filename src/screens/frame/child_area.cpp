#include "screens/frame/child_area.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMetaObject>
#include <algorithm>

#include "core/project_data.h"
#include "screens/frame/StartPage.h"
#include "screens/frame/screen_registry.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

// The start page lies over the area, not in it: to assistive technology an area has child windows
// and nothing else.
ChildArea::ChildArea(QMdiArea& area, ScreenRegistry& registry, QObject* parent)
    : QObject(parent), area_(area), start_page_(new StartPage(area.window())) {
    area_.installEventFilter(this);
    area_.viewport()->installEventFilter(this);
    area_.setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_.setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_.setMinimumSize(start_page_->minimumSizeHint());
    connect(&area_, &QMdiArea::subWindowActivated, this, &ChildArea::changed);
    registry.when_hidden([this] { tell_later(); });
}

void ChildArea::let_go() {
    gone_ = true;
    disconnect(&area_, nullptr, this, nullptr);
    area_.removeEventFilter(this);
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

QString ChildArea::whole_title() const {
    const QMdiSubWindow* front = area_.currentSubWindow();
    const bool fills = front != nullptr && !front->isHidden() && front->isMaximized();
    return fills ? front->windowTitle() : QString();
}

QString ChildArea::name_in_front() const {
    const QMdiSubWindow* front = area_.currentSubWindow();
    const bool is_there = front != nullptr && !front->isHidden() && front->widget() != nullptr;
    return is_there ? front->widget()->objectName() : QString();
}

void ChildArea::set_recent_files(const std::vector<std::string>& paths) {
    start_page_->set_recent_files(paths);
    area_.setMinimumSize(start_page_->minimumSizeHint());
}

void ChildArea::refresh(bool project_is_open) {
    const bool wanted = !has_child_window();
    const bool offered_already = !start_page_->isHidden() && start_page_->is_idle();
    if (wanted) {
        if (project_is_open) {
            start_page_->show_project(
                shown_path(project_name),
                tr("This household is open. Its commands are in the menus and on the toolbars."));
        } else {
            start_page_->show_idle();
        }
    }
    if (start_page_->isHidden() == wanted) {
        cover_area();
        start_page_->setVisible(wanted);
        start_page_->raise();
    }
    if (!wanted || offered_already) return;
    // Later, as a menu may still be about to close.
    QMetaObject::invokeMethod(this, &ChildArea::focus_start_page, Qt::QueuedConnection);
}

void ChildArea::cover_area() {
    const QWidget& viewport = *area_.viewport();
    start_page_->setGeometry(
        QRect(viewport.mapTo(start_page_->parentWidget(), QPoint()), viewport.size()));
}

QMdiSubWindow* ChildArea::front() const {
    QMdiSubWindow* child = area_.activeSubWindow();
    return child == nullptr || child->isHidden() ? nullptr : child;
}

// The focus comes back, it does not enter: what stands in a box is not selected by it.
void ChildArea::focus_child() {
    QMdiSubWindow* child = front();
    if (child == nullptr) return focus_start_page();
    QWidget* part = child->focusWidget();
    const bool can_take_it = part != nullptr && child->widget()->isAncestorOf(part) &&
                             part->isVisible() && part->isEnabled();
    (can_take_it ? part : child->widget())->setFocus(Qt::ActiveWindowFocusReason);
}

bool ChildArea::type_into_screen(QKeyEvent& key) {
    const QMdiSubWindow* child = front();
    if (child == nullptr) return false;
    focus_child();
    QWidget* part = QApplication::focusWidget();
    if (part == nullptr || !child->isAncestorOf(part)) return false;
    QCoreApplication::sendEvent(part, &key);
    return true;
}

bool ChildArea::changes_screen(QKeyEvent& key) {
    const bool is_tab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    const bool changes = is_tab && (key.modifiers() & Qt::ControlModifier) != Qt::NoModifier;
    QMdiSubWindow* child = front();
    if (child != nullptr && (changes || key.key() == Qt::Key_Control)) {
        QCoreApplication::sendEvent(child, &key);
    }
    return changes;
}

void ChildArea::focus_start_page() {
    if (!start_page_->isHidden()) start_page_->focus_first();
}

// The maximised ones that are restored for it come in front one by one.
// Screens that do not fit side by side are scrolled to: Qt would make the main window wider than
// the desktop for them.
void ChildArea::tile() {
    QMdiSubWindow* front = area_.activeSubWindow();
    QWidget& window = *area_.window();
    const QSize most = window.maximumSize();
    window.setMaximumSize(window.size());
    area_.tileSubWindows();
    window.setMaximumSize(most);
    area_.setActiveSubWindow(front);
}

void ChildArea::cascade() {
    QMdiSubWindow* front = area_.activeSubWindow();
    area_.cascadeSubWindows();
    area_.setActiveSubWindow(front);
}

bool ChildArea::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move) {
        cover_area();
    } else if (event->type() == QEvent::ChildRemoved || event->type() == QEvent::ChildAdded) {
        tell_later();
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace tavernook
