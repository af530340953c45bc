#include "screens/cookbook/ingredients_model.h"

#include <QMimeData>
#include <utility>

#include "basics/number_text.h"
#include "core/project_data.h"
#include "screens/cookbook/recipe_tree_model.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

int alignment_of(bool is_name) {
    return int(is_name ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignRight | Qt::AlignVCenter);
}

}  // namespace

void IngredientsModel::fill(std::vector<IngredientLine> lines) {
    beginResetModel();
    lines_ = std::move(lines);
    endResetModel();
}

int IngredientsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int IngredientsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : column_count;
}

QVariant IngredientsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const IngredientLine& line = lines_[static_cast<std::size_t>(index.row())];
    const bool is_name = index.column() == name_column;
    switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return shown_text(is_name ? line.name : line.amount);
        case Qt::TextAlignmentRole:
            return alignment_of(is_name);
        case key_role:
            return QString::number(line.item) + QLatin1Char('t');
        case tag_role:
            return int{line.item};
        case sort_role:
            return is_name ? QVariant(shown_text(line.name))
                           : QVariant(leading_number(line.amount));
        default:
            return {};
    }
}

QVariant IngredientsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    const bool is_name = section == name_column;
    if (role == Qt::DisplayRole) return is_name ? tr("Ingredient") : tr("Amount");
    if (role == Qt::TextAlignmentRole) {
        return alignment_of(is_name);
    }
    return {};
}

// Anywhere in the list, on a row, between rows or behind them.
Qt::ItemFlags IngredientsModel::flags(const QModelIndex& index) const {
    return QAbstractTableModel::flags(index) | Qt::ItemIsDropEnabled;
}

QStringList IngredientsModel::mimeTypes() const {
    return {QStringLiteral("text/plain")};
}

bool IngredientsModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int, int,
                                       const QModelIndex&) const {
    if (!takes_drops_ || data == nullptr) return false;
    const i16 item = dragged_number(*data, QLatin1Char('i'));
    return item != 0 && items[item].in_use == 1;
}

bool IngredientsModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                                    int column, const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, column, parent)) return false;
    Q_EMIT item_dropped(dragged_number(*data, QLatin1Char('i')));
    return true;
}

}  // namespace tavernook
