#include "screens/reports/filter_rows_model.h"

#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include "screens/parts/rows_model.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

constexpr int columns = 3;

// Blue, or what reads as such on a dark ground.
QColor colour_of_item_row() {
    const QPalette palette = QGuiApplication::palette();
    const bool on_dark = palette.color(QPalette::Base).lightness() < 128;
    return on_dark ? palette.color(QPalette::Link) : QColor(0, 0, 255);
}

// Only its weight: the size is the list's.
QFont bold_font() {
    QFont font;
    font.setBold(true);
    font.setResolveMask(QFont::WeightResolved);
    return font;
}

}  // namespace

void FilterRowsModel::show(const ReportFilter& filter) {
    shown_ = filter;
    Q_EMIT dataChanged(index(0, 0), index(report_rows - 1, columns - 1));
}

QString FilterRowsModel::key_of(int row) {
    return QStringLiteral("s%1").arg(row);
}

int FilterRowsModel::row_at(const QModelIndex& index) {
    return index.isValid() ? index.row() + 1 : 0;
}

int FilterRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : report_rows;
}

int FilterRowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QString FilterRowsModel::text(int row, int column) const {
    const auto entry = static_cast<std::size_t>(row);
    switch (column) {
        case 0:
            return shown_text(field_name(row));
        case 1:
            return shown_text(shown_.search_strings[entry]);
        default:
            return shown_text(shown_.logic_strings[entry]);
    }
}

bool FilterRowsModel::searches(int row) const {
    return shown_.search_strings[static_cast<std::size_t>(row)] != "*";
}

bool FilterRowsModel::is_checked(int row) const {
    return shown_.row_checked[static_cast<std::size_t>(row)] != i16_false;
}

QVariant FilterRowsModel::data(const QModelIndex& index, int role) const {
    const int row = row_at(index);
    if (row < 1 || row > report_rows) return {};
    switch (role) {
        case Qt::DisplayRole:
            return text(row, index.column());
        case Qt::CheckStateRole:
            if (index.column() != 0) return {};
            return is_checked(row) ? Qt::Checked : Qt::Unchecked;
        case Qt::AccessibleDescriptionRole:
            if (index.column() != 0) return {};
            return is_checked(row) ? tr("Checked") : tr("Not checked");
        case Qt::ForegroundRole:
            return row == item_row ? QVariant(colour_of_item_row()) : QVariant();
        case Qt::FontRole:
            return searches(row) ? QVariant(bold_font()) : QVariant();
        case RowsModel::key_role:
            return key_of(row);
        default:
            return {};
    }
}

QVariant FilterRowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return int(on_the_left);
    if (role != Qt::DisplayRole) return {};
    return section == 0   ? tr("Field Name")
           : section == 1 ? tr("Search String")
                          : tr("Logic String");
}

Qt::ItemFlags FilterRowsModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    const Qt::ItemFlags checks = index.column() == 0 ? Qt::ItemIsUserCheckable : Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren | checks;
}

bool FilterRowsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || !index.isValid()) return false;
    Q_EMIT check_wanted(row_at(index), value.toInt() == Qt::Checked);
    return true;
}

}  // namespace tavernook
