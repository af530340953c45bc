#include "screens/screen_registry.h"

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <functional>
#include <utility>

namespace tavernook {

namespace {

// The child window around a screen; tells when the user has closed it.
class ChildWindow : public QMdiSubWindow {
  public:
    explicit ChildWindow(std::function<void()> closed) : closed_(std::move(closed)) {
        setAttribute(Qt::WA_DeleteOnClose);
    }

  protected:
    void closeEvent(QCloseEvent* event) override {
        QMdiSubWindow::closeEvent(event);
        if (event->isAccepted()) closed_();
    }

  private:
    std::function<void()> closed_;
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
    auto* child = new ChildWindow([this, name] { loaded_.erase(name); });
    child->setWidget(screen);
    child->setWindowTitle(screen->windowTitle());
    child->setWindowIcon(screen->windowIcon());
    area_.addSubWindow(child);
    loaded_[name] = screen;
    return true;
}

bool ScreenRegistry::show(const QString& name) {
    if (!load(name)) return false;
    QMdiSubWindow* child = child_window(loaded(name));
    const QMdiSubWindow* present = area_.activeSubWindow();
    const bool maximised = present == nullptr || present->isMaximized();
    if (!child->isVisible() && maximised) {
        child->showMaximized();
    } else {
        child->show();
    }
    area_.setActiveSubWindow(child);
    loaded(name)->setFocus();
    return true;
}

void ScreenRegistry::unload_all() {
    loaded_.clear();
    for (QMdiSubWindow* child : area_.subWindowList()) {
        area_.removeSubWindow(child);
        child->hide();
        // Later, as the command that unloads the screens may come from one of them.
        child->deleteLater();
    }
}

void ScreenRegistry::hide_all() {
    for (QMdiSubWindow* child : area_.subWindowList()) child->hide();
}

}  // namespace tavernook
