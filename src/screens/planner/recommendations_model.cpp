#include "screens/planner/recommendations_model.h"

#include <QCollator>
#include <algorithm>
#include <map>
#include <numeric>

#include "basics/number_text.h"
#include "screens/parts/icons.h"
#include "screens/parts/plan_names.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

// Where each number stands among the names of all, by the user's language; capitals do not count.
std::map<i16, f64> places_by_name(const std::map<i16, QString>& names) {
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<std::pair<QCollatorSortKey, i16>> sorted;
    for (const auto& [number, name] : names) {
        sorted.emplace_back(collator.sortKey(name), number);
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto& a, const auto& b) { return a.first.compare(b.first) < 0; });
    std::map<i16, f64> places;
    f64 place = 0;
    for (std::size_t n = 0; n < sorted.size(); ++n) {
        if (n > 0 && sorted[n].first.compare(sorted[n - 1].first) != 0) ++place;
        places[sorted[n].second] = place;
    }
    return places;
}

}  // namespace

RecommendationsModel::RecommendationsModel(QObject* parent)
    : QAbstractTableModel(parent), icon_(icon(QStringLiteral("recipes"))) {}

void RecommendationsModel::set_rows(std::vector<Recommendation> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    put_in_order();
    endResetModel();
}

std::vector<f64> RecommendationsModel::ranks() const {
    std::vector<f64> found(rows_.size());
    if (column_ == quantity_column) {
        std::transform(rows_.begin(), rows_.end(), found.begin(),
                       [](const Recommendation& row) { return row.quantity; });
        return found;
    }
    const bool meal = column_ == meal_column;
    std::map<i16, QString> names;
    for (const Recommendation& row : rows_) {
        QString& name = names[meal ? row.recipe : row.item];
        if (name.isEmpty()) name = meal ? recipe_name(row.recipe) : item_name(row.item);
    }
    const std::map<i16, f64> places = places_by_name(names);
    std::transform(rows_.begin(), rows_.end(), found.begin(), [&](const Recommendation& row) {
        return places.at(meal ? row.recipe : row.item);
    });
    return found;
}

void RecommendationsModel::put_in_order() {
    order_.resize(rows_.size());
    std::iota(order_.begin(), order_.end(), 0);
    if (column_ < 0 || column_ >= column_count) return;
    const std::vector<f64> rank = ranks();
    const bool down = direction_ == Qt::DescendingOrder;
    std::stable_sort(order_.begin(), order_.end(), [&](int a, int b) {
        const f64 one = rank[static_cast<std::size_t>(a)];
        const f64 two = rank[static_cast<std::size_t>(b)];
        return down ? two < one : one < two;
    });
}

// What is selected stays so.
void RecommendationsModel::sort(int column, Qt::SortOrder order) {
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    const std::vector<int> old_order = order_;
    column_ = column;
    direction_ = order;
    put_in_order();
    if (!before.isEmpty()) {
        std::vector<int> place_of(order_.size());
        for (std::size_t row = 0; row < order_.size(); ++row) {
            place_of[static_cast<std::size_t>(order_[row])] = static_cast<int>(row);
        }
        QModelIndexList after;
        for (const QModelIndex& old : before) {
            const int place = old_order[static_cast<std::size_t>(old.row())];
            after.append(index(place_of[static_cast<std::size_t>(place)], old.column()));
        }
        changePersistentIndexList(before, after);
    }
    Q_EMIT layoutChanged();
}

int RecommendationsModel::row_of(const QString& key) const {
    const std::string wanted = key.toStdString();
    const i16 item = recommended_item(wanted);
    const i16 recipe = recommended_recipe(wanted);
    for (int row = 0; row < rowCount(); ++row) {
        if (at(row).item == item && at(row).recipe == recipe) return row;
    }
    return -1;
}

int RecommendationsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(order_.size());
}

int RecommendationsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int{column_count};
}

QVariant RecommendationsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Recommendation& row = at(index.row());
    const bool number = index.column() == quantity_column;
    switch (role) {
        case Qt::DisplayRole:
            if (number) return shown_text(number_text(row.quantity));
            return index.column() == meal_column ? recipe_name(row.recipe) : item_name(row.item);
        case Qt::DecorationRole:
            return index.column() == meal_column ? QVariant(icon_) : QVariant();
        case Qt::TextAlignmentRole:
            return int(number ? Qt::AlignRight | Qt::AlignVCenter
                              : Qt::AlignLeft | Qt::AlignVCenter);
        case key_role:
            return shown_text(recommendation_key(row));
        default:
            return {};
    }
}

QVariant RecommendationsModel::headerData(int section, Qt::Orientation orientation,
                                          int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= column_count) return {};
    const bool number = section == quantity_column;
    if (role == Qt::TextAlignmentRole) {
        return int(number ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) return {};
    if (number) return QStringLiteral("Quantity");
    return section == item_column ? QStringLiteral("Item") : tr("Meal");
}

}  // namespace tavernook
