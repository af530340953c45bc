#include "shots/stage.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QEventLoop>
#include <QGroupBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QSocketNotifier>
#include <QTabBar>
#include <QTextDocumentFragment>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <vector>

namespace tavernook {

namespace {

QString without_marks(QString text) {
    return text.replace(QLatin1String("&&"), QLatin1String("\1"))
        .remove(QLatin1Char('&'))
        .replace(QLatin1Char('\1'), QLatin1Char('&'));
}

QString label_text(const QLabel& label) {
    const bool is_rich = label.textFormat() == Qt::RichText ||
                         (label.textFormat() == Qt::AutoText && Qt::mightBeRichText(label.text()));
    if (is_rich) return QTextDocumentFragment::fromHtml(label.text()).toPlainText();
    return label.buddy() == nullptr ? label.text() : without_marks(label.text());
}

// The words that stand on one part itself.
QStringList words_on(const QWidget& part) {
    if (auto* label = qobject_cast<const QLabel*>(&part)) return {label_text(*label)};
    if (auto* button = qobject_cast<const QAbstractButton*>(&part)) {
        return {without_marks(button->text())};
    }
    if (auto* box = qobject_cast<const QComboBox*>(&part)) return {box->currentText()};
    if (auto* line = qobject_cast<const QLineEdit*>(&part)) return {line->text()};
    if (auto* group = qobject_cast<const QGroupBox*>(&part)) return {without_marks(group->title())};
    QStringList words;
    if (auto* tabs = qobject_cast<const QTabBar*>(&part)) {
        for (int tab = 0; tab < tabs->count(); ++tab) words << without_marks(tabs->tabText(tab));
    }
    return words;
}

// On a screen of the area that is not the one in front.
bool is_behind(const QWidget& part) {
    for (const QWidget* at = &part; at != nullptr; at = at->parentWidget()) {
        const auto* screen = qobject_cast<const QMdiSubWindow*>(at);
        if (screen != nullptr) return screen->mdiArea()->activeSubWindow() != screen;
    }
    return false;
}

QJsonArray seen_on(const QWidget& shown) {
    QStringList seen;
    for (const auto* part : shown.findChildren<QWidget*>()) {
        const bool stands = part->isVisible() && part->window() == shown.window();
        if (stands && !is_behind(*part)) seen << words_on(*part);
    }
    seen.removeAll(QString());
    seen.removeDuplicates();
    return QJsonArray::fromStringList(seen);
}

// What stands alone, in the area or beside it.
QJsonArray screens_in(const QWidget& shown) {
    QJsonArray names{shown.objectName()};
    const auto add = [&names](const QWidget& frame, const QWidget* screen) {
        if (frame.isVisible() && screen != nullptr) names.append(screen->objectName());
    };
    for (auto* child : shown.findChildren<QMdiSubWindow*>()) add(*child, child->widget());
    for (auto* dock : shown.findChildren<QDockWidget*>()) add(*dock, dock->widget());
    return names;
}

// A popup belongs to the window that it has come up over.
QString title_in_front(const QWidget& shown) {
    const QWidget* window = &shown;
    if (window->parentWidget() != nullptr) window = window->parentWidget()->window();
    const auto* area = window->findChild<QMdiArea*>();
    const QMdiSubWindow* front = area == nullptr ? nullptr : area->activeSubWindow();
    return front == nullptr ? QString() : front->windowTitle();
}

// The clock of the main window does not tick as long as this lives: what is looked at stays as it
// is.
class StandStill {
  public:
    StandStill() {
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            for (const char* name : {"timer_1", "timer_2"}) {
                auto* timer = window->findChild<QTimer*>(QLatin1String(name));
                if (timer != nullptr && timer->isActive()) stopped_ = timer;
            }
        }
        if (stopped_ != nullptr) stopped_->stop();
    }
    ~StandStill() {
        if (stopped_ != nullptr) stopped_->start();
    }
    StandStill(const StandStill&) = delete;
    StandStill& operator=(const StandStill&) = delete;

  private:
    QPointer<QTimer> stopped_;
};

void wait_for_line() {
    QEventLoop loop;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &loop, [&loop] {
        char letter = 0;
        if (::read(STDIN_FILENO, &letter, 1) <= 0) std::_Exit(1);
        if (letter == '\n') loop.quit();
    });
    loop.exec();
}

}  // namespace

void show_scene(const QString& name, QWidget& shown) {
    if (!shown.isVisible()) return;
    const StandStill still;
    const QJsonObject told{{"scene", name},
                           {"screens", screens_in(shown)},
                           {"seen", seen_on(shown)},
                           {"front", title_in_front(shown)},
                           {"popup", shown.windowType() == Qt::Popup}};
    std::puts(QJsonDocument(told).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
    wait_for_line();
}

}  // namespace tavernook
