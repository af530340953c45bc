#include "screens/parts/rows_model.h"

#include <QCollator>
#include <QHash>
#include <QMimeData>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <unordered_map>
#include <utility>

#include "screens/parts/guard.h"

namespace tavernook {

namespace {

// Texts as the numbers of their first appearance, those that differ in capitals only as one.
struct Numbered {
    std::vector<std::size_t> number_of;  // of each text
    std::vector<QCollatorSortKey> keys;  // of each number
};

Numbered numbered(const QStringList& texts) {
    Numbered found;
    QHash<QString, std::size_t> known;
    const QCollator collator;
    for (const QString& text : texts) {
        const QString folded = text.toCaseFolded();
        const auto place = known.constFind(folded);
        const bool is_new = place == known.cend();
        found.number_of.push_back(is_new ? found.keys.size() : *place);
        if (!is_new) continue;
        known.insert(folded, found.keys.size());
        found.keys.push_back(collator.sortKey(folded));
    }
    return found;
}

// The place of each key among all of them; equal ones share theirs.
std::vector<f64> places_of(const std::vector<QCollatorSortKey>& keys) {
    std::vector<std::size_t> order(keys.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return keys[a].compare(keys[b]) < 0; });
    std::vector<f64> places(keys.size());
    f64 place = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && keys[order[i - 1]].compare(keys[order[i]]) != 0) ++place;
        places[order[i]] = place;
    }
    return places;
}

std::vector<f64> text_ranks(const QStringList& texts) {
    const Numbered known = numbered(texts);
    const std::vector<f64> places = places_of(known.keys);
    std::vector<f64> ranks;
    ranks.reserve(known.number_of.size());
    for (const std::size_t number : known.number_of) ranks.push_back(places[number]);
    return ranks;
}

// What the column's function says of the row; the blank value where there is none or it fails.
template <typename Value>
Value asked(const std::function<Value(RowId)>& function, RowId row) {
    Value value{};
    if (function) quietly([&] { value = function(row); });
    return value;
}

std::vector<f64> ranks_of(const RowsColumn& column, const std::vector<RowId>& rows) {
    if (column.number) {
        std::vector<f64> numbers;
        numbers.reserve(rows.size());
        for (const RowId row : rows) {
            const f64 number = asked(column.number, row);
            // What is no number at all can be compared with none.
            numbers.push_back(std::isnan(number) ? -std::numeric_limits<f64>::infinity() : number);
        }
        return numbers;
    }
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(rows.size()));
    for (const RowId row : rows) texts.append(asked(column.text, row));
    return text_ranks(texts);
}

// One row of each value that the part has, and which of these stands for each row.
struct SharedParts {
    std::vector<RowId> examples;
    std::vector<std::size_t> example_of;
};

SharedParts shared_parts(const std::vector<RowId>& rows, int part) {
    constexpr std::size_t values = 0x10000;
    constexpr std::size_t none = values;
    std::vector<std::size_t> example_with(values, none);
    SharedParts shared;
    shared.example_of.reserve(rows.size());
    for (const RowId row : rows) {
        std::size_t& example = example_with[static_cast<std::uint16_t>(part_of(row, part))];
        if (example == none) {
            example = shared.examples.size();
            shared.examples.push_back(row);
        }
        shared.example_of.push_back(example);
    }
    return shared;
}

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
    const auto rank = ranks(columns_[static_cast<std::size_t>(step.column)], rows);
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

std::vector<f64> RowsModel::ranks(const RowsColumn& column, const std::vector<RowId>& rows) const {
    if (column.part < 0) return ranks_of(column, rows);
    const SharedParts shared = shared_parts(rows, column.part);
    const std::vector<f64> of_examples = ranks_of(column, shared.examples);
    std::vector<f64> ranks;
    ranks.reserve(rows.size());
    for (const std::size_t example : shared.example_of) ranks.push_back(of_examples[example]);
    return ranks;
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
            return column.icon ? QVariant(asked(column.icon, row)) : QVariant();
        case Qt::ToolTipRole:
            return column.tip ? QVariant(asked(column.tip, row)) : QVariant();
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
