#include "screens/planner/day_list_model.h"

#include "basics/number_text.h"
#include "core/project_data.h"
#include "planning/day_keys.h"
#include "screens/parts/icons.h"
#include "screens/parts/plan_names.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

DayListModel::DayListModel(QObject* parent)
    : QAbstractTableModel(parent),
      recipe_icon_(icon(QStringLiteral("recipes"))),
      item_icon_(icon(QStringLiteral("inventory"))) {}

void DayListModel::show_day(i16 slot) {
    std::vector<Entry> wanted;
    const auto add = [&wanted](bool is_recipe, const auto& places) {
        for (i16 place = 1; place <= day_places; ++place) {
            const i16 number = places[static_cast<std::size_t>(place)];
            if (number != 0) wanted.push_back({is_recipe, number, place});
        }
    };
    if (slot != 0) {
        add(true, days[slot].planned_meal);
        add(false, days[slot].planned_item);
    }
    const bool same = slot == slot_ && wanted == entries_;
    if (!same) beginResetModel();
    slot_ = slot;
    entries_ = std::move(wanted);
    if (!same) {
        endResetModel();
    } else if (!entries_.empty()) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, column_count - 1));
    }
}

int DayListModel::row_of(const QString& key) const {
    for (int row = 0; row < rowCount(); ++row) {
        if (index(row, 0).data(key_role).toString() == key) return row;
    }
    return -1;
}

int DayListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

int DayListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int{column_count};
}

f64 DayListModel::quantity_of(const Entry& entry) const {
    const DayQuantityRecord& quantities = day_quantities[slot_];
    const auto place = static_cast<std::size_t>(entry.place);
    return entry.is_recipe ? quantities.meal_servings[place] : quantities.item_quantity[place];
}

QVariant DayListModel::text_of(const Entry& entry, int column) const {
    switch (column) {
        case name_column:
            return entry.is_recipe ? recipe_name(entry.number) : item_name(entry.number);
        case quantity_column:
            return shown_text(number_text(quantity_of(entry)));
        default:
            return entry.is_recipe ? recipe_unit(entry.number) : serving_unit(entry.number);
    }
}

QVariant DayListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Entry& entry = entries_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case Qt::DisplayRole:
            return text_of(entry, index.column());
        case Qt::DecorationRole:
            if (index.column() != name_column) return {};
            return entry.is_recipe ? recipe_icon_ : item_icon_;
        case Qt::AccessibleDescriptionRole:
            if (index.column() != name_column) return {};
            return entry.is_recipe ? tr("Recipe") : tr("Item");
        case Qt::TextAlignmentRole:
            return int(index.column() == quantity_column ? Qt::AlignRight | Qt::AlignVCenter
                                                         : Qt::AlignLeft | Qt::AlignVCenter);
        case key_role:
            return shown_text(entry.is_recipe ? meal_key(entry.number, entry.place)
                                              : item_key(entry.number, entry.place));
        case sort_role:
            if (index.column() == quantity_column) return quantity_of(entry);
            return text_of(entry, index.column());
        default:
            return {};
    }
}

QVariant DayListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= column_count) return {};
    const bool number = section == quantity_column;
    if (role == Qt::TextAlignmentRole) {
        return int(number ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) return {};
    if (number) return QStringLiteral("Quantity");
    return section == name_column ? tr("Name") : tr("Unit");
}

}  // namespace tavernook
