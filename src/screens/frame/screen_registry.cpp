#include "screens/frame/screen_registry.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QLayout>
#include <QMdiSubWindow>
#include <functional>
#include <utility>

#include "barcodes/scan_list.h"
#include "platform/platform.h"
#include "screens/frame/late_front.h"
#include "screens/frame/screen_over_dialog.h"
#include "screens/parts/running_work.h"
#include "screens/parts/screen_memory.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/unsaved_edits.h"

namespace tavernook {

namespace {

void remember(const QMdiSubWindow& child) {
    if (child.widget() != nullptr) remember_screen(*child.widget());
}

// The one that the user was on before it.
void bring_last_in_front(QMdiArea& area) {
    QMdiSubWindow* last = nullptr;
    for (QMdiSubWindow* child : area.subWindowList(QMdiArea::ActivationHistoryOrder)) {
        if (child->isVisible()) last = child;
    }
    if (last != nullptr) area.setActiveSubWindow(last);
}

// The child window around a screen; tells when the user has closed it, and remembers what he has
// arranged. Not whenever it hides: it does so for a moment, too, when it is maximised or restored.
class ChildWindow : public QMdiSubWindow {
  public:
    ChildWindow(std::function<void()> closed, std::function<void()> hidden)
        : closed_(std::move(closed)), hidden_(std::move(hidden)) {
        setAttribute(Qt::WA_DeleteOnClose);
    }

  protected:
    void closeEvent(QCloseEvent* event) override {
        remember(*this);
        QMdiSubWindow::closeEvent(event);
        if (event->isAccepted()) closed_();
    }

    // The title is the main window's to make: each child would put its name behind the one that it
    // saw first, mark and all.
    bool eventFilter(QObject* object, QEvent* event) override {
        const bool is_title = object == window() && event->type() == QEvent::WindowTitleChange;
        return !is_title && QMdiSubWindow::eventFilter(object, event);
    }

    void changeEvent(QEvent* event) override {
        const bool was_changing = std::exchange(is_changing_, true);
        QMdiSubWindow::changeEvent(event);
        is_changing_ = was_changing;
    }

    void hideEvent(QHideEvent* event) override {
        QMdiSubWindow::hideEvent(event);
        if (event->spontaneous()) return;
        const bool has_left = isHidden() && !is_changing_ && mdiArea() != nullptr;
        if (has_left) bring_last_in_front(*mdiArea());
        hidden_();
    }

  private:
    std::function<void()> closed_;
    std::function<void()> hidden_;
    bool is_changing_ = false;
};

QMdiSubWindow* child_window(QWidget* screen) {
    return qobject_cast<QMdiSubWindow*>(screen->parentWidget());
}

}  // namespace

// Each child window keeps its own state: with Qt's habit of handing it on to the next one in front,
// a screen that goes from sight would shrink the others. Behind one that is closed comes the one
// that the user was on before.
ScreenRegistry::ScreenRegistry(QMdiArea& area) : area_(area), front_(*new LateFront(area)) {
    area_.setActivationOrder(QMdiArea::ActivationHistoryOrder);
    area_.setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
}

void ScreenRegistry::add(const QString& name, Factory factory, Opens opens) {
    kinds_[name] = {std::move(factory), opens};
}

void ScreenRegistry::add_window(const QString& name, std::function<void()> come_up) {
    windows_[name] = std::move(come_up);
}

QWidget* ScreenRegistry::loaded(const QString& name) const {
    const auto found = loaded_.find(name);
    return found == loaded_.end() ? nullptr : found->second.data();
}

bool ScreenRegistry::load(const QString& name) {
    if (loaded(name) != nullptr) return true;
    const auto kind = kinds_.find(name);
    if (kind == kinds_.end()) return false;
    QWidget* screen = kind->second.factory();
    screen->setObjectName(name);
    auto* child = new ChildWindow([this, name] { loaded_.erase(name); },
                                  [this] {
                                      if (hidden_) hidden_();
                                  });
    child->setWidget(screen);
    child->setWindowTitle(screen->windowTitle());
    child->setWindowIcon(screen->windowIcon());
    area_.addSubWindow(child);
    if (const auto* dialog = qobject_cast<QDialog*>(screen)) {
        QObject::connect(dialog, &QDialog::finished, child, &QWidget::close);
    }
    restore_screen(*screen);
    loaded_[name] = screen;
    return true;
}

bool ScreenRegistry::show(const QString& name) {
    if (const auto window = windows_.find(name); window != windows_.end()) {
        window->second();
        front_.note_keyboard();
        return true;
    }
    if (!load(name)) return false;
    QMdiSubWindow* child = child_window(loaded(name));
    if (!child->isVisible()) come_up(name);
    front_.bring(*child);
    loaded(name)->setFocus();
    return true;
}

void ScreenRegistry::come_up(const QString& name) {
    QWidget& screen = *loaded(name);
    QMdiSubWindow* child = child_window(&screen);
    if (kinds_.at(name).opens == Opens::at_its_size) {
        child->showNormal();
        area_.window()->layout()->activate();  // the menu bar may have changed its height with it
        return give_its_size(screen);
    }
    const QMdiSubWindow* front = front_one_over_the_area();
    const bool maximised = front == nullptr ? !was_arranged(screen) : front->isMaximized();
    if (maximised) {
        child->showMaximized();
    } else {
        child->showNormal();
    }
}

void ScreenRegistry::give_full_size() {
    QMdiSubWindow* front = area_.activeSubWindow();
    for (QMdiSubWindow* child : area_.subWindowList(QMdiArea::ActivationHistoryOrder)) {
        if (child == front || comes_over_the_area(*child)) child->showMaximized();
    }
    area_.setActiveSubWindow(front);
}

bool ScreenRegistry::comes_over_the_area(const QMdiSubWindow& child) const {
    if (!child.isVisible() || child.widget() == nullptr) return false;
    const auto kind = kinds_.find(child.widget()->objectName());
    return kind != kinds_.end() && kind->second.opens == Opens::over_the_area;
}

const QMdiSubWindow* ScreenRegistry::front_one_over_the_area() const {
    const QMdiSubWindow* front = nullptr;
    for (const QMdiSubWindow* child : area_.subWindowList(QMdiArea::ActivationHistoryOrder)) {
        if (comes_over_the_area(*child)) front = child;
    }
    return front;
}

bool ScreenRegistry::settle_edits() {
    const auto loaded_now = loaded_;  // a screen may load another one meanwhile
    for (const auto& [name, screen] : loaded_now) {
        auto* edits = dynamic_cast<UnsavedEdits*>(screen.data());
        if (edits != nullptr && !edits->settle_edits()) return false;
    }
    return true;
}

bool ScreenRegistry::may_end_work() {
    const auto loaded_now = loaded_;  // the box lets screens come and go
    for (const auto& [name, screen] : loaded_now) {
        const auto* work = dynamic_cast<RunningWork*>(screen.data());
        if (work == nullptr || !work->would_be_lost()) continue;
        const std::string question =
            "A page is still being printed or saved, and leaving now stops that.  Do you want to "
            "leave all the same?";
        if (boxes().message(question, Buttons::yes_no, typed_text(screen->windowTitle()),
                            DefaultButton::no) != Answer::yes) {
            return false;
        }
    }
    return true;
}

void ScreenRegistry::unload_all() {
    for (const auto& [name, screen] : loaded_) {
        if (auto* work = dynamic_cast<RunningWork*>(screen.data())) work->end_work();
    }
    loaded_.clear();
    clear_scan_list();  // its codes were for the project that goes
    for (QMdiSubWindow* child : area_.subWindowList()) remember(*child);
    for (QMdiSubWindow* child : area_.subWindowList()) {
        area_.removeSubWindow(child);
        child->hide();
        // Later, as the command that unloads the screens may come from one of them.
        child->deleteLater();
    }
}

// One that is loaded by this shows the page by itself. Behind a dialog nobody could reach it.
void ScreenRegistry::show_preview() {
    const QString name = QStringLiteral("PP");
    if (QWidget* dialog = QApplication::activeModalWidget()) return show_over(*dialog, name);
    if (ports::PP* loaded_before = preview()) loaded_before->show_page();
    show(name);
}

void ScreenRegistry::show_over(QWidget& dialog, const QString& name) {
    const auto kind = kinds_.find(name);
    if (kind == kinds_.end()) return;
    if (QWidget* behind = loaded(name); behind != nullptr && !child_window(behind)->close()) return;
    QWidget* screen = kind->second.factory();
    screen->setObjectName(name);
    ScreenOverDialog(*screen, dialog).exec();
}

// The one in front last, so that none comes in front meanwhile.
void ScreenRegistry::hide_all() {
    const auto children = area_.subWindowList(QMdiArea::ActivationHistoryOrder);
    for (QMdiSubWindow* child : children) remember(*child);
    for (QMdiSubWindow* child : children) child->hide();
}

}  // namespace tavernook
