#include "screens/frame/screen_registry.h"

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <functional>
#include <utility>

#include "screens/parts/screen_memory.h"
#include "screens/parts/unsaved_edits.h"

namespace tavernook {

namespace {

void remember(const QMdiSubWindow& child) {
    if (child.widget() != nullptr) remember_screen(*child.widget());
}

// The child window around a screen; tells when the user has closed it, and remembers what he has
// arranged. Not whenever it hides: it does so for a moment, too, when another one comes in front.
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

    void hideEvent(QHideEvent* event) override {
        QMdiSubWindow::hideEvent(event);
        if (!event->spontaneous()) hidden_();
    }

  private:
    std::function<void()> closed_;
    std::function<void()> hidden_;
};

QMdiSubWindow* child_window(QWidget* screen) {
    return qobject_cast<QMdiSubWindow*>(screen->parentWidget());
}

}  // namespace

void ScreenRegistry::add(const QString& name, Factory factory) {
    factories_[name] = std::move(factory);
}

QWidget* ScreenRegistry::loaded(const QString& name) const {
    const auto found = loaded_.find(name);
    return found == loaded_.end() ? nullptr : found->second.data();
}

bool ScreenRegistry::load(const QString& name) {
    if (loaded(name) != nullptr) return true;
    const auto factory = factories_.find(name);
    if (factory == factories_.end()) return false;
    QWidget* screen = factory->second();
    screen->setObjectName(name);
    auto* child = new ChildWindow([this, name] { loaded_.erase(name); },
                                  [this] {
                                      if (hidden_) hidden_();
                                  });
    child->setWidget(screen);
    child->setWindowTitle(screen->windowTitle());
    child->setWindowIcon(screen->windowIcon());
    area_.addSubWindow(child);
    restore_screen(*screen);
    loaded_[name] = screen;
    return true;
}

bool ScreenRegistry::show(const QString& name) {
    if (!load(name)) return false;
    QMdiSubWindow* child = child_window(loaded(name));
    const QMdiSubWindow* present = area_.activeSubWindow();
    const bool maximised =
        present == nullptr ? !was_arranged(*loaded(name)) : present->isMaximized();
    if (!child->isVisible() && maximised) {
        child->showMaximized();
    } else {
        child->show();
    }
    area_.setActiveSubWindow(child);
    loaded(name)->setFocus();
    return true;
}

bool ScreenRegistry::settle_edits() {
    const auto loaded_now = loaded_;  // a screen may load another one meanwhile
    for (const auto& [name, screen] : loaded_now) {
        auto* edits = dynamic_cast<UnsavedEdits*>(screen.data());
        if (edits != nullptr && !edits->settle_edits()) return false;
    }
    return true;
}

void ScreenRegistry::unload_all() {
    loaded_.clear();
    for (QMdiSubWindow* child : area_.subWindowList()) remember(*child);
    for (QMdiSubWindow* child : area_.subWindowList()) {
        area_.removeSubWindow(child);
        child->hide();
        // Later, as the command that unloads the screens may come from one of them.
        child->deleteLater();
    }
}

void ScreenRegistry::hide_all() {
    for (QMdiSubWindow* child : area_.subWindowList()) remember(*child);
    for (QMdiSubWindow* child : area_.subWindowList()) child->hide();
}

}  // namespace tavernook
