#include "screens/parts/table_copy.h"

#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QStringList>
#include <algorithm>
#include <vector>

namespace tavernook {

namespace {

// Where a row stands in a tree: the row numbers from the top level down.
using RowPath = std::vector<int>;

RowPath path_of(QModelIndex index) {
    RowPath path;
    for (; index.isValid(); index = index.parent()) path.insert(path.begin(), index.row());
    return path;
}

std::vector<QModelIndex> selected_rows(const QAbstractItemView& view) {
    std::vector<std::pair<RowPath, QModelIndex>> rows;
    const QItemSelection selection =
        view.selectionModel() != nullptr ? view.selectionModel()->selection() : QItemSelection();
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            const QModelIndex index = view.model()->index(row, 0, range.parent());
            rows.emplace_back(path_of(index), index);
        }
    }
    std::sort(rows.begin(), rows.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<QModelIndex> found;
    for (const auto& [path, index] : rows) {
        if (found.empty() || found.back() != index) found.push_back(index);
    }
    return found;
}

// In the order in which the user sees them.
std::vector<int> visible_columns(const QAbstractItemView& view) {
    const QHeaderView* shown = nullptr;
    for (const auto* header : view.findChildren<QHeaderView*>(Qt::FindDirectChildrenOnly)) {
        if (header->orientation() == Qt::Horizontal) shown = header;
    }
    if (shown == nullptr) return {0};
    std::vector<int> columns;
    for (int place = 0; place < shown->count(); ++place) {
        const int column = shown->logicalIndex(place);
        if (!shown->isSectionHidden(column)) columns.push_back(column);
    }
    return columns;
}

QString cell_text(const QModelIndex& index) {
    QString text = index.data(Qt::DisplayRole).toString();
    for (const char* separator : {"\r\n", "\n", "\r", "\t"}) {
        text.replace(QLatin1String(separator), QLatin1String(" "));
    }
    return text;
}

}  // namespace

QString selected_rows_text(const QAbstractItemView& view) {
    const std::vector<int> columns = visible_columns(view);
    QStringList lines;
    for (const QModelIndex& row : selected_rows(view)) {
        QStringList cells;
        for (const int column : columns) cells.append(cell_text(row.siblingAtColumn(column)));
        lines.append(cells.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n'));
}

void copy_rows_by_keys(QAbstractItemView& view) {
    auto* copy = new QAction(QObject::tr("Copy"), &view);
    copy->setObjectName(QStringLiteral("copy_rows"));
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(copy, &QAction::triggered, &view, [&view] {
        const QString text = selected_rows_text(view);
        if (!text.isEmpty()) QGuiApplication::clipboard()->setText(text);
    });
    view.addAction(copy);
}

}  // namespace tavernook
