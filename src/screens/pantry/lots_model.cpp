#include "screens/pantry/lots_model.h"

#include <QStringList>
#include <cmath>
#include <utility>

#include "basics/number_text.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "platform/platform.h"
#include "screens/parts/icons.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

QString shown_date(Date date) {
    return date == 0 ? QStringLiteral("-") : shown_text(format_date(date, "MM/DD/YY"));
}

QString unit_of(i16 item) {
    return shown_text(row_or_none(units, items[item].qty_units).name.right_trimmed());
}

// On the day itself a lot is still good.
bool is_expired(const LotRecord& record, std::size_t place) {
    const Date date = record.expiration_date[place];
    return date != 0 && record.lot_quantity[place] != 0 &&
           std::floor(date) < std::floor(platform_clock().now());
}

QString title(int column) {
    switch (column) {
        case LotsModel::name:
            return QObject::tr("Lot");
        case LotsModel::created:
            return QObject::tr("Created");
        case LotsModel::quantity:
            return QObject::tr("Quantity");
        case LotsModel::expires:
            return QObject::tr("Expires");
        default:
            return QObject::tr("Note");
    }
}

int alignment(int column) {
    if (column == LotsModel::quantity) return int(Qt::AlignRight | Qt::AlignVCenter);
    const bool date = column == LotsModel::created || column == LotsModel::expires;
    return int((date ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter);
}

}  // namespace

LotsModel::LotsModel(QObject* parent)
    : QAbstractTableModel(parent),
      ordinary_mark_(icon(QStringLiteral("lot"))),
      current_mark_(icon(QStringLiteral("lot_current"))),
      expired_mark_(icon(QStringLiteral("expiry"))) {}

LotsModel::Row LotsModel::read_row(const LotRecord& record, int place, const QString& unit) {
    const auto at = static_cast<std::size_t>(place);
    Row row;
    row.is_current = record.current_lot == place;
    QStringList notes;
    if (row.is_current) notes.append(QObject::tr("Current lot"));
    row.is_expired = is_expired(record, at);
    if (row.is_expired) notes.append(QObject::tr("Expired"));
    const QString amount = shown_text(number_text(record.lot_quantity[at]));
    row.texts = {shown_text(record.lot_name[at].right_trimmed()),
                 shown_date(record.creation_date[at]),
                 unit.isEmpty() ? amount : amount + QLatin1Char(' ') + unit,
                 shown_date(record.expiration_date[at]), notes.join(QLatin1String(", "))};
    row.values = {row.texts[name], record.creation_date[at], record.lot_quantity[at],
                  record.expiration_date[at], row.texts[note]};
    return row;
}

void LotsModel::fill(i16 item) {
    if (item == 0) {
        beginResetModel();
        rows_.clear();
        return endResetModel();
    }
    const LotRecord& record = lots[item];
    const QString unit = unit_of(item);
    std::vector<Row> rows;
    for (int place = 0; place < lot_places; ++place) rows.push_back(read_row(record, place, unit));
    const bool first = rows_.empty();
    if (first) beginResetModel();
    rows_ = std::move(rows);
    if (first) return endResetModel();
    Q_EMIT dataChanged(index(0, 0), index(lot_places - 1, column_count - 1));
}

int LotsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int LotsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : column_count;
}

QVariant LotsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
        case Qt::DisplayRole:
            return row.texts[column];
        case Qt::TextAlignmentRole:
            return alignment(index.column());
        case Qt::DecorationRole:
            return mark(row, index.column());
        case key_role:
            return QLatin1Char('l') + QString::number(index.row());
        case sort_role:
            return row.values[column];
        default:
            return {};
    }
}

QVariant LotsModel::mark(const Row& row, int column) const {
    if (column == name) return row.is_current ? current_mark_ : ordinary_mark_;
    if (column == note && row.is_expired) return expired_mark_;
    return {};
}

QVariant LotsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return title(section);
    if (role == Qt::TextAlignmentRole) return alignment(section);
    return {};
}

}  // namespace tavernook
