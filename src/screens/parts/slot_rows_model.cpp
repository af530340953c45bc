#include "screens/parts/slot_rows_model.h"

#include <algorithm>
#include <utility>

namespace tavernook {

namespace {

bool contains(const std::vector<i16>& ascending, i16 slot) {
    return std::binary_search(ascending.begin(), ascending.end(), slot);
}

}  // namespace

SlotRowsModel::SlotRowsModel(QChar key_letter, std::vector<Column> columns, QObject* parent)
    : QAbstractTableModel(parent), key_letter_(key_letter), columns_(std::move(columns)) {}

void SlotRowsModel::set_slots(const std::vector<i16>& wanted) {
    if (slots_.empty() || wanted.empty()) {
        if (slots_ == wanted) return;
        beginResetModel();
        slots_ = wanted;
        endResetModel();
        return;
    }
    drop_rows_without(wanted);
    add_rows_of(wanted);
    if (slots_.empty()) return;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void SlotRowsModel::drop_rows_without(const std::vector<i16>& wanted) {
    for (int row = rowCount() - 1; row >= 0; --row) {
        if (contains(wanted, slot_at(row))) continue;
        beginRemoveRows({}, row, row);
        slots_.erase(slots_.begin() + row);
        endRemoveRows();
    }
}

void SlotRowsModel::add_rows_of(const std::vector<i16>& wanted) {
    for (int row = 0; row < static_cast<int>(wanted.size()); ++row) {
        const i16 slot = wanted[static_cast<std::size_t>(row)];
        if (slot_at(row) == slot) continue;
        beginInsertRows({}, row, row);
        slots_.insert(slots_.begin() + row, slot);
        endInsertRows();
    }
}

i16 SlotRowsModel::slot_at(int row) const {
    return row >= 0 && row < rowCount() ? slots_[static_cast<std::size_t>(row)] : i16{0};
}

int SlotRowsModel::row_of(i16 slot) const {
    const auto found = std::lower_bound(slots_.begin(), slots_.end(), slot);
    return found != slots_.end() && *found == slot ? static_cast<int>(found - slots_.begin()) : -1;
}

int SlotRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(slots_.size());
}

int SlotRowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant SlotRowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const i16 slot = slot_at(index.row());
    const Column& column = columns_[static_cast<std::size_t>(index.column())];
    switch (role) {
        case Qt::DisplayRole:
            return column.value(slot);
        case Qt::TextAlignmentRole:
            return int(column.alignment);
        case key_role:
            return QString(key_letter_) + QString::number(slot);
        default:
            return {};
    }
}

QVariant SlotRowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool known = orientation == Qt::Horizontal && section >= 0 && section < columnCount();
    if (!known) return {};
    const Column& column = columns_[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return column.title;
    if (role == Qt::TextAlignmentRole) return int(column.alignment);
    return {};
}

}  // namespace tavernook
