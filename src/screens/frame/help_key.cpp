#include "screens/frame/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>

#include "core/project/main_commands.h"
#include "screens/frame/SaveProgress.h"
#include "screens/frame/child_area.h"
#include "screens/frame/tutorial.h"

namespace tavernook {

namespace {

bool is_help_key(const QKeyEvent& key) {
    return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

// Boxes, file dialogs and menus are windows of the toolkit's own.
bool is_ours(const QWidget& window) {
    return QLatin1String(window.metaObject()->className()).startsWith(QLatin1String("tavernook::"));
}

// The outermost part of the window that has a name: the window's own, or the screen's in a window
// that is no more than its frame.
QString name_around(const QWidget& part) {
    QString name;
    for (const QWidget* one = &part; one != nullptr; one = one->parentWidget()) {
        if (!one->objectName().isEmpty()) name = one->objectName();
        if (one->isWindow()) break;
    }
    return name;
}

}  // namespace

HelpKey::HelpKey(QMainWindow& window, const ChildArea& children, const SaveProgress& progress)
    : QObject(&window), window_(window), children_(children), progress_(progress) {
    QCoreApplication::instance()->installEventFilter(this);
}

// What an action or a field would take first is asked for beforehand.
bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool is_key = type == QEvent::KeyPress || type == QEvent::ShortcutOverride;
    if (!is_key || !watched->isWidgetType()) return false;
    const auto& key = static_cast<QKeyEvent&>(*event);
    const auto& focused = static_cast<QWidget&>(*watched);
    if (!is_help_key(key) || !is_ours(*focused.window())) return false;
    event->accept();
    if (type == QEvent::KeyPress && !key.isAutoRepeat()) show_help(focused);
    return true;
}

// Within the main window the screen in front, or the lesson reader beside it.
QString HelpKey::screen_around(const QWidget& focused) const {
    if (focused.window() != &window_) return name_around(focused);
    const QWidget* reader = reader_in_sight(window_);
    const bool in_reader =
        reader != nullptr && (reader == &focused || reader->isAncestorOf(&focused));
    return in_reader ? reader->objectName() : children_.name_in_front();
}

void HelpKey::show_help(const QWidget& focused) const {
    if (QApplication::activePopupWidget() != nullptr || progress_.work_is_running()) return;
    const QString name = screen_around(focused);
    name.isEmpty() ? load_help() : load_help_on(name.toStdString());
}

}  // namespace tavernook
