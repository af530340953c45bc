#include "screens/parts/screen_memory.h"

#include <QDialog>
#include <QHeaderView>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QSplitter>

#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr const char* section = "Screens";

std::string key_of(const QWidget& screen, const QString& part) {
    return (screen.objectName() + QLatin1Char('.') + part).toStdString();
}

QByteArray stored(const QWidget& screen, const QString& part) {
    return QByteArray::fromStdString(settings_store().get(section, key_of(screen, part)));
}

void store(const QWidget& screen, const QString& part, const QByteArray& value) {
    settings_store().set(section, key_of(screen, part), value.toStdString());
}

// Qt's own composed widgets name their parts "qt_...".
bool has_own_name(const QObject& part) {
    return !part.objectName().isEmpty() && !part.objectName().startsWith(QLatin1String("qt_"));
}

QList<QSplitter*> splitters_of(const QWidget& screen) {
    QList<QSplitter*> found;
    for (QSplitter* splitter : screen.findChildren<QSplitter*>()) {
        if (has_own_name(*splitter)) found.append(splitter);
    }
    return found;
}

// A header bears its view's name.
QList<QHeaderView*> headers_of(const QWidget& screen) {
    QList<QHeaderView*> found;
    for (QHeaderView* header : screen.findChildren<QHeaderView*>()) {
        const bool wanted = header->orientation() == Qt::Horizontal;
        if (wanted && has_own_name(*header->parentWidget())) found.append(header);
    }
    return found;
}

QString splitter_key(const QSplitter& splitter) {
    return QStringLiteral("Splitter.") + splitter.objectName();
}

// With their number, as the widths of other columns mean nothing.
QString columns_key(const QHeaderView& header) {
    return QStringLiteral("Columns%1.%2")
        .arg(header.count())
        .arg(header.parentWidget()->objectName());
}

// The child window around the screen, or the screen itself where it is a dialog. None as long as
// it stands in neither.
QWidget* window_of(QWidget& screen) {
    if (auto* child = qobject_cast<QMdiSubWindow*>(screen.parentWidget())) return child;
    return qobject_cast<QDialog*>(&screen);
}

// An area that is not shown yet has no size to go by.
QSize room_for(const QWidget& window) {
    const auto* child = qobject_cast<const QMdiSubWindow*>(&window);
    const bool inside =
        child != nullptr && child->mdiArea() != nullptr && child->mdiArea()->isVisible();
    return inside ? child->mdiArea()->viewport()->size()
                  : window.screen()->availableGeometry().size();
}

void restore_size(QWidget& screen) {
    QWidget* window = window_of(screen);
    const QList<QByteArray> parts = stored(screen, QStringLiteral("Size")).split('x');
    if (window == nullptr || parts.size() != 2) return;
    const QSize size(parts[0].toInt(), parts[1].toInt());
    if (!size.isEmpty()) window->resize(size.boundedTo(room_for(*window)));
}

// Of several maximised child windows only the one in front is so; the others become it in front.
bool counts_as_maximised(const QWidget& window) {
    const auto* child = qobject_cast<const QMdiSubWindow*>(&window);
    if (window.isMaximized() || child == nullptr) return window.isMaximized();
    const QMdiSubWindow* front = child->mdiArea()->currentSubWindow();
    return front != nullptr && front->isMaximized();
}

void remember_size(QWidget& screen) {
    const QWidget* window = window_of(screen);
    if (window == nullptr || window->isMinimized()) return;
    const bool arranged = !counts_as_maximised(*window);
    store(screen, QStringLiteral("Arranged"), arranged ? "1" : "0");
    if (!arranged) return;
    store(screen, QStringLiteral("Size"),
          QByteArray::number(window->width()) + 'x' + QByteArray::number(window->height()));
}

// A screen that cannot be remembered comes up as designed; nobody is stopped for it.
template <typename Work>
void quietly(Work&& work) {
    trap(std::forward<Work>(work), [](const Fault&) {});
}

}  // namespace

void restore_screen(QWidget& screen) {
    quietly([&screen] {
        restore_size(screen);
        for (QSplitter* splitter : splitters_of(screen)) {
            splitter->restoreState(QByteArray::fromBase64(stored(screen, splitter_key(*splitter))));
        }
        for (QHeaderView* header : headers_of(screen)) {
            header->restoreState(QByteArray::fromBase64(stored(screen, columns_key(*header))));
        }
    });
}

void remember_screen(QWidget& screen) {
    quietly([&screen] {
        remember_size(screen);
        for (const QSplitter* splitter : splitters_of(screen)) {
            store(screen, splitter_key(*splitter), splitter->saveState().toBase64());
        }
        for (const QHeaderView* header : headers_of(screen)) {
            store(screen, columns_key(*header), header->saveState().toBase64());
        }
    });
}

bool was_arranged(const QWidget& screen) {
    bool arranged = false;
    quietly([&] { arranged = stored(screen, QStringLiteral("Arranged")) == "1"; });
    return arranged;
}

}  // namespace tavernook
