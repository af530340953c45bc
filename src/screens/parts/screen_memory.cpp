#include "screens/parts/screen_memory.h"

#include <QDialog>
#include <QHeaderView>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QTreeView>
#include <algorithm>

#include "platform/platform.h"
#include "screens/parts/guard.h"

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
QWidget* window_of(const QWidget& screen) {
    if (auto* child = qobject_cast<QMdiSubWindow*>(screen.parentWidget())) return child;
    return qobject_cast<QDialog*>(const_cast<QWidget*>(&screen));
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

// The size that `give_its_size` gave is none that the user has chosen.
constexpr const char* given_size = "given_size";

void remember_size(QWidget& screen) {
    const QWidget* window = window_of(screen);
    if (window == nullptr || window->isMinimized()) return;
    if (window->property(given_size).toSize() == window->size()) return;
    const bool arranged = !window->isMaximized();
    store(screen, QStringLiteral("Arranged"), arranged ? "1" : "0");
    if (!arranged) return;
    store(screen, QStringLiteral("Size"),
          QByteArray::number(window->width()) + 'x' + QByteArray::number(window->height()));
}

int width_of_columns(const QAbstractItemView& view) {
    const auto* tree = qobject_cast<const QTreeView*>(&view);
    if (tree == nullptr) return view.sizeHintForColumn(0);
    int width = 0;
    for (int column = 0; column < tree->header()->count(); ++column) {
        const bool stretches =
            tree->header()->stretchLastSection() && column == tree->header()->count() - 1;
        width += std::max({tree->header()->sectionSizeHint(column), view.sizeHintForColumn(column),
                           stretches ? 0 : tree->columnWidth(column)});
    }
    return width;
}

// What a flat list lacks to have all its rows and columns in sight.
QSize lacking(const QAbstractItemView& view) {
    const auto* tree = qobject_cast<const QTreeView*>(&view);
    const int rows = view.model() == nullptr ? 0 : view.model()->rowCount();
    if (rows == 0) return {0, 0};
    const int bar = view.verticalScrollBar()->sizeHint().width();
    const int header = tree == nullptr ? 0 : tree->header()->height();
    const int frame = 2 * view.frameWidth();
    const QSize wanted(width_of_columns(view) + bar + frame,
                       (rows + 1) * view.sizeHintForRow(0) + header + frame);
    return (wanted - view.size()).expandedTo(QSize(0, 0));
}

QSize size_for_what_is_shown(const QWidget& screen) {
    QSize more(0, 0);
    for (const auto* view : screen.findChildren<QAbstractItemView*>()) {
        const bool is_list = has_own_name(*view) && !qobject_cast<const QHeaderView*>(view);
        if (is_list && view->isVisible()) more = more.expandedTo(lacking(*view));
    }
    return window_of(screen)->size() + more;
}

}  // namespace

// A screen that cannot be remembered comes up as designed; nobody is stopped for it.
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

void give_its_size(QWidget& screen) {
    QWidget* window = window_of(screen);
    const QSize room = room_for(*window);
    const bool given = !was_arranged(screen);
    if (given) {
        window->resize(window->sizeHint().boundedTo(room));
        window->resize(size_for_what_is_shown(screen));
    }
    window->resize(window->size().expandedTo(window->minimumSizeHint()).boundedTo(room));
    window->move((room.width() - window->width()) / 2, (room.height() - window->height()) / 2);
    window->setProperty(given_size, given ? window->size() : QSize());
}

bool was_arranged(const QWidget& screen) {
    bool arranged = false;
    quietly([&] { arranged = stored(screen, QStringLiteral("Arranged")) == "1"; });
    return arranged;
}

}  // namespace tavernook
