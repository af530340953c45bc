#include "screens/reports/report_rows_model.h"

#include <array>

#include "core/project_data.h"
#include "screens/parts/rows_model.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

// Notes may have several lines, a row of the list has one.
QString in_one_line(QString text) {
    return text.replace(QLatin1String("\r\n"), QLatin1String(" "))
        .replace(QLatin1Char('\n'), QLatin1Char(' '))
        .replace(QLatin1Char('\r'), QLatin1Char(' '));
}

}  // namespace

void ReportRowsModel::fill(const ReportFilter& filter) {
    beginResetModel();
    is_filling_ = true;
    columns_ = report_columns(filter);
    populate_list(filter, list_);
    is_filling_ = false;
    endResetModel();
}

void ReportRowsModel::sort_by(int column) {
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    const std::vector<i16> kept = items_of(before);
    sort_report(list_, column);
    std::vector<int> row_of(item_capacity + 1, -1);
    for (int row = 0; row < list_.rows(); ++row) {
        row_of[static_cast<std::size_t>(list_.item(row))] = row;
    }
    row_of[0] = -1;
    QModelIndexList after;
    for (qsizetype place = 0; place < before.size(); ++place) {
        const i16 item = kept[static_cast<std::size_t>(place)];
        after.append(index(row_of[static_cast<std::size_t>(item)], before[place].column()));
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

std::vector<i16> ReportRowsModel::items_of(const QModelIndexList& indexes) const {
    std::vector<i16> items;
    for (const QModelIndex& index : indexes) items.push_back(list_.item(index.row()));
    return items;
}

ReportColumn ReportRowsModel::column(int number) const {
    const bool known = number >= 0 && static_cast<std::size_t>(number) < columns_.size();
    return known ? columns_[static_cast<std::size_t>(number)] : ReportColumn{};
}

Qt::Alignment ReportRowsModel::alignment(int number) const {
    return field_kind(column(number).row) == ValueKind::number ? on_the_right : on_the_left;
}

int ReportRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || is_filling_ ? 0 : list_.rows();
}

int ReportRowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : most_columns;
}

QVariant ReportRowsModel::data(const QModelIndex& index, int role) const {
    if (is_filling_ || !index.isValid()) return {};
    switch (role) {
        case Qt::DisplayRole:
            return in_one_line(shown_text(list_.cell(index.row(), index.column())));
        case Qt::TextAlignmentRole:
            return int(alignment(index.column()));
        case RowsModel::key_role:
            return shown_text(report_key(list_.item(index.row())));
        default:
            return {};
    }
}

QVariant ReportRowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return int(alignment(section));
    return role == Qt::DisplayRole ? QVariant(shown_text(list_.title(section))) : QVariant();
}

Qt::ItemFlags ReportRowsModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

}  // namespace tavernook
