#include "screens/parts/rows_model.h"

#include <QMimeData>
#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <utility>

#include "screens/parts/row_ranks.h"
#include "screens/parts/stock_sign.h"

namespace tavernook {

namespace {

// In whatever order.
bool same_numbers(std::vector<RowId> some, std::vector<RowId> others) {
    std::sort(some.begin(), some.end());
    std::sort(others.begin(), others.end());
    return some == others;
}

}  // namespace

RowsModel::RowsModel(std::vector<RowsColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)) {}

// --- rows ----------------------------------------------------------------------------------------

bool RowsModel::set_rows(std::vector<RowId> rows) {
    const bool same_set = same_numbers(rows, given_);
    given_ = std::move(rows);
    std::vector<RowId> wanted = arranged(given_);
    if (wanted == rows_) {
        if (rows_.empty()) return false;
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
        return false;
    }
    if (same_set) {
        move_rows(std::move(wanted));
    } else {
        beginResetModel();
        rows_ = std::move(wanted);
        endResetModel();
    }
    return true;
}

RowId RowsModel::row_at(int place) const {
    return place >= 0 && place < rowCount() ? rows_[static_cast<std::size_t>(place)] : no_row;
}

int RowsModel::place_of(RowId row) const {
    const auto found = std::find(rows_.begin(), rows_.end(), row);
    return found != rows_.end() ? static_cast<int>(found - rows_.begin()) : -1;
}

int RowsModel::place_of_key(const QString& key) const {
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [&](RowId row) { return key_of(row) == key; });
    return found != rows_.end() ? static_cast<int>(found - rows_.begin()) : -1;
}

// --- sorting -------------------------------------------------------------------------------------

void RowsModel::sort(int column, Qt::SortOrder order) {
    if (column < 0 || column >= columnCount()) {
        steps_.clear();
        return move_rows(given_);
    }
    // An earlier sort by the same column no longer shows.
    std::erase_if(steps_, [column](const SortStep& step) { return step.column == column; });
    steps_.push_back({column, order});
    move_rows(sorted_by(steps_.back(), rows_));
}

void RowsModel::set_sort_steps(std::vector<SortStep> steps) {
    std::erase_if(steps, [this](const SortStep& step) {
        return step.column < 0 || step.column >= columnCount();
    });
    steps_ = std::move(steps);
    move_rows(arranged(given_));
}

std::vector<RowId> RowsModel::arranged(std::vector<RowId> rows) const {
    for (const SortStep& step : steps_) rows = sorted_by(step, rows);
    return rows;
}

std::vector<RowId> RowsModel::sorted_by(const SortStep& step,
                                        const std::vector<RowId>& rows) const {
    const auto rank = row_ranks(columns_[static_cast<std::size_t>(step.column)], rows);
    std::vector<std::size_t> order(rows.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const bool up = step.order == Qt::AscendingOrder;
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return up ? rank[a] < rank[b] : rank[b] < rank[a];
    });
    std::vector<RowId> sorted;
    sorted.reserve(rows.size());
    for (const std::size_t place : order) sorted.push_back(rows[place]);
    return sorted;
}

// The same rows in another order; what was selected stays selected.
void RowsModel::move_rows(std::vector<RowId> rows) {
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    if (!before.isEmpty()) {
        std::unordered_map<RowId, int> new_place;
        for (std::size_t place = 0; place < rows.size(); ++place) {
            new_place[rows[place]] = static_cast<int>(place);
        }
        QModelIndexList after;
        after.reserve(before.size());
        for (const QModelIndex& old : before) {
            after.append(index(new_place.at(row_at(old.row())), old.column()));
        }
        changePersistentIndexList(before, after);
    }
    rows_ = std::move(rows);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

// --- what Qt asks --------------------------------------------------------------------------------

int RowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int RowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QString RowsModel::key_of(RowId row) const {
    return key_ ? asked(key_, row) : QString::number(row);
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    const RowId row = row_at(index.row());
    if (row == no_row || index.column() < 0 || index.column() >= columnCount()) return {};
    return cell(columns_[static_cast<std::size_t>(index.column())], row, role);
}

QVariant RowsModel::cell(const RowsColumn& column, RowId row, int role) const {
    switch (role) {
        case Qt::DisplayRole:
            return asked(column.text, row);
        case Qt::TextAlignmentRole:
            return int(column.alignment);
        case Qt::DecorationRole:
            if (column.icon) return asked(column.icon, row);
            return sign_data(asked(column.sign, row), role);
        case Qt::ForegroundRole:
            return sign_data(asked(column.sign, row), role);
        case Qt::ToolTipRole:
            return column.tip ? QVariant(asked(column.tip, row)) : QVariant();
        case sign_words_role:
            if (!column.sign) return {};
            [[fallthrough]];
        case Qt::AccessibleDescriptionRole:
            return column.description ? QVariant(asked(column.description, row)) : QVariant();
        case key_role:
            return key_of(row);
        case row_role:
            return QVariant::fromValue<qlonglong>(row);
        default:
            return {};
    }
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool known = orientation == Qt::Horizontal && section >= 0 && section < columnCount();
    if (!known) return {};
    const RowsColumn& column = columns_[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return column.title;
    if (role == Qt::TextAlignmentRole) return int(column.alignment);
    if (role == Qt::ToolTipRole && !column.title_tip.isEmpty()) return column.title_tip;
    return {};
}

// What is dropped falls anywhere in the list, on a row, between rows or behind them.
Qt::ItemFlags RowsModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags drops = drop_rule_ ? Qt::ItemIsDropEnabled : Qt::NoItemFlags;
    if (!index.isValid()) return drops;
    const Qt::ItemFlags drags = drag_text_ ? Qt::ItemIsDragEnabled : Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren | drags | drops;
}

QStringList RowsModel::mimeTypes() const {
    return {QStringLiteral("text/plain")};
}

QMimeData* RowsModel::mimeData(const QModelIndexList& indexes) const {
    const RowId row = indexes.isEmpty() ? no_row : row_at(indexes.first().row());
    const QString text = row == no_row ? QString() : asked(drag_text_, row);
    if (text.isEmpty()) return nullptr;
    auto* data = new QMimeData;
    data->setText(text);
    return data;
}

bool RowsModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int, int,
                                const QModelIndex&) const {
    bool fits = false;
    if (drop_rule_ && data != nullptr && data->hasText()) {
        quietly([&] { fits = drop_rule_(data->text()); });
    }
    return fits;
}

bool RowsModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                             const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, column, parent)) return false;
    Q_EMIT dropped(data->text());
    return true;
}

}  // namespace tavernook
