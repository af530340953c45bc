#include "screens/grocery/shopping_rows_model.h"

#include <QCollator>
#include <QHash>
#include <QMimeData>
#include <algorithm>
#include <numeric>
#include <utility>

#include "core/trap.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

bool is_amount(ListColumn column) {
    return column == ListColumn::store_order || column == ListColumn::quantity ||
           column == ListColumn::cost || column == ListColumn::sub_total;
}

// The place of each text among all of them, as people sort; equal ones share theirs.
std::vector<std::size_t> ranks_of(const QStringList& texts) {
    QHash<QString, std::size_t> numbers;
    std::vector<std::size_t> which;
    std::vector<QCollatorSortKey> keys;
    QCollator collator;
    for (const QString& text : texts) {
        const QString folded = text.toCaseFolded();
        const auto known = numbers.constFind(folded);
        which.push_back(known != numbers.cend() ? *known : keys.size());
        if (known != numbers.cend()) continue;
        numbers.insert(folded, keys.size());
        keys.push_back(collator.sortKey(folded));
    }
    std::vector<std::size_t> by_key(keys.size());
    std::iota(by_key.begin(), by_key.end(), std::size_t{0});
    std::sort(by_key.begin(), by_key.end(),
              [&](std::size_t a, std::size_t b) { return keys[a].compare(keys[b]) < 0; });
    std::vector<std::size_t> rank(keys.size());
    std::size_t place = 0;
    for (std::size_t i = 0; i < by_key.size(); ++i) {
        if (i > 0 && keys[by_key[i - 1]].compare(keys[by_key[i]]) != 0) ++place;
        rank[by_key[i]] = place;
    }
    for (std::size_t& number : which) number = rank[number];
    return which;
}

// What a drop may bring: "i" or "m" and the number of something live.
bool is_offer(const QString& text) {
    bool is_number = false;
    const int number = text.mid(1).toInt(&is_number);
    if (!is_number || number < 1) return false;
    if (text[0] == QLatin1Char('i')) {
        return number <= item_capacity && items[to_i16(number)].in_use == 1;
    }
    return text[0] == QLatin1Char('m') && number <= meal_capacity &&
           meals[to_i16(number)].in_use == 1;
}

}  // namespace

ShoppingRowsModel::ShoppingRowsModel(std::vector<ListColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)) {}

bool ShoppingRowsModel::set_items(const std::vector<i16>& wanted) {
    std::vector<i16> rows = arranged(wanted);
    if (rows == rows_) {
        if (rows_.empty()) return false;
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
        return false;
    }
    std::vector<i16> present = rows_;
    std::sort(present.begin(), present.end());
    if (present == wanted) {
        move_rows(std::move(rows));
    } else {
        beginResetModel();
        rows_ = std::move(rows);
        endResetModel();
    }
    return true;
}

i16 ShoppingRowsModel::item_at(int row) const {
    return row >= 0 && row < rowCount() ? rows_[static_cast<std::size_t>(row)] : i16{0};
}

int ShoppingRowsModel::row_of(i16 item) const {
    const auto found = std::find(rows_.begin(), rows_.end(), item);
    return found != rows_.end() ? static_cast<int>(found - rows_.begin()) : -1;
}

void ShoppingRowsModel::sort(int column, Qt::SortOrder order) {
    if (column < 0 || column >= columnCount()) {
        steps_.clear();
        std::vector<i16> rows = rows_;
        std::sort(rows.begin(), rows.end());
        return move_rows(std::move(rows));
    }
    // An earlier sort by the same column no longer shows.
    std::erase_if(steps_, [column](const SortStep& step) { return step.column == column; });
    steps_.push_back({column, order});
    move_rows(sorted_by(steps_.back(), rows_));
}

void ShoppingRowsModel::set_sort_steps(std::vector<SortStep> steps) {
    std::erase_if(steps, [this](const SortStep& step) {
        return step.column < 0 || step.column >= columnCount();
    });
    steps_ = std::move(steps);
    std::vector<i16> rows = rows_;
    std::sort(rows.begin(), rows.end());
    move_rows(arranged(std::move(rows)));
}

std::vector<i16> ShoppingRowsModel::arranged(std::vector<i16> rows) const {
    for (const SortStep& step : steps_) rows = sorted_by(step, rows);
    return rows;
}

std::vector<i16> ShoppingRowsModel::sorted_by(const SortStep& step,
                                              const std::vector<i16>& rows) const {
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(rows.size()));
    for (const i16 item : rows) texts.append(text(static_cast<std::size_t>(step.column), item));
    const std::vector<std::size_t> ranks = ranks_of(texts);
    std::vector<std::size_t> order(rows.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const bool up = step.order == Qt::AscendingOrder;
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return up ? ranks[a] < ranks[b] : ranks[b] < ranks[a];
    });
    std::vector<i16> sorted;
    sorted.reserve(rows.size());
    for (const std::size_t place : order) sorted.push_back(rows[place]);
    return sorted;
}

// The same items in another order; what was selected stays selected.
void ShoppingRowsModel::move_rows(std::vector<i16> rows) {
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<int> new_row(static_cast<std::size_t>(item_capacity) + 1, -1);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        new_row[static_cast<std::size_t>(rows[row])] = static_cast<int>(row);
    }
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& place : before) {
        const auto item = static_cast<std::size_t>(item_at(place.row()));
        after.append(index(new_row[item], place.column()));
    }
    rows_ = std::move(rows);
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

int ShoppingRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ShoppingRowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QString ShoppingRowsModel::text(std::size_t column, i16 item) const {
    QString shown;
    trap([&] { shown = shown_text(cell_text(columns_[column], item)); }, [](const Fault&) {});
    return shown;
}

QVariant ShoppingRowsModel::data(const QModelIndex& index, int role) const {
    const i16 item = item_at(index.row());
    if (!index.isValid() || item == 0) return {};
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
        case Qt::DisplayRole:
            return text(column, item);
        case Qt::TextAlignmentRole:
            return int((is_amount(columns_[column]) ? Qt::AlignRight : Qt::AlignLeft) |
                       Qt::AlignVCenter);
        case key_role:
            return shown_text(list_key(item));
        default:
            return {};
    }
}

QVariant ShoppingRowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool known = orientation == Qt::Horizontal && section >= 0 && section < columnCount();
    if (!known) return {};
    const ListColumn column = columns_[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return shown_text(column_title(column));
    if (role == Qt::TextAlignmentRole) {
        return int((is_amount(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    if (role == Qt::ToolTipRole && column == ListColumn::store_order) return tr("Store order");
    return {};
}

Qt::ItemFlags ShoppingRowsModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::ItemIsDropEnabled;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled |
           Qt::ItemIsDropEnabled | Qt::ItemNeverHasChildren;
}

QStringList ShoppingRowsModel::mimeTypes() const {
    return {QStringLiteral("text/plain")};
}

QMimeData* ShoppingRowsModel::mimeData(const QModelIndexList& indexes) const {
    const i16 item = indexes.isEmpty() ? i16{0} : item_at(indexes.first().row());
    if (item == 0) return nullptr;
    auto* data = new QMimeData;
    data->setText(shown_text(drag_text(item)));
    return data;
}

bool ShoppingRowsModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int, int,
                                        const QModelIndex&) const {
    return data != nullptr && data->hasText() && is_offer(data->text());
}

bool ShoppingRowsModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                                     int column, const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, column, parent)) return false;
    Q_EMIT dropped(data->text());
    return true;
}

}  // namespace tavernook
