#include "screens/pantry/item_tree_model.h"

#include <QMimeData>
#include <algorithm>

#include "basics/number_text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "inventory/item_form.h"
#include "inventory/lots.h"
#include "screens/parts/catagory_places.h"
#include "screens/parts/icons.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

constexpr int root = 0;
constexpr i16 general = 1;
constexpr i16 gone = -1;  // a category that the filter leaves out

template <typename Record>
QString name_of(const Record& record) {
    return shown_text(record.name.trimmed());
}

QString unit_name(i16 unit) {
    return unit > 0 ? name_of(units[unit]) : QString();
}

QString stock_text(i16 item) {
    const QString amount = shown_text(format_number(stock_of(item), "#####0.00"));
    return (amount + QLatin1Char(' ') + unit_name(items[item].qty_units)).trimmed();
}

QVariant attention_icon(const Attention& attention) {
    if (attention.expired) return icon(QStringLiteral("warning"));
    if (attention.expires_soon) return icon(QStringLiteral("clock"));
    if (attention.low) return icon(QStringLiteral("low"));
    return {};
}

}  // namespace

ItemTreeModel::ItemTreeModel(QObject* parent) : QAbstractItemModel(parent) {
    build();
}

void ItemTreeModel::populate(View view) {
    beginResetModel();
    view_ = view;
    read_items();
    sort_items();
    build();
    endResetModel();
}

void ItemTreeModel::set_filter(const QString& filter) {
    const QStringList words = folded(filter).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words == words_) return;
    beginResetModel();
    words_ = words;
    build();
    endResetModel();
}

void ItemTreeModel::sort(int column, Qt::SortOrder order) {
    beginResetModel();
    sort_column_ = column;
    sort_order_ = order;
    sort_items();
    build();
    endResetModel();
}

void ItemTreeModel::read_items() {
    items_.clear();
    for (i16 number = 1; number <= item_capacity; ++number) {
        ItemRecord& record = items[number];
        if (record.in_use != 1) continue;
        if (record.category == 0) {
            record.category = general;
            project_modified = i16_true;
        }
        ensure_lot_record(number);
        Item item{number, folded(name_of(record)), {}, lot_total(number), {}};
        item.search_text = item.sort_text + QLatin1Char('\n') +
                           folded(shown_text(pooled_strings[item_details[number].brand]));
        if (record.barcode != no_barcode) {
            item.search_text += QLatin1Char('\n') + folded(shown_text(record.barcode.trimmed()));
        }
        item.attention = shown_text(attention_text(attention_of(number)));
        items_.push_back(std::move(item));
    }
}

void ItemTreeModel::sort_items() {
    const auto by_name = [](const Item& a, const Item& b) {
        const int order = a.sort_text.compare(b.sort_text);
        return order != 0 ? order < 0 : a.number < b.number;
    };
    std::sort(items_.begin(), items_.end(), by_name);
    if (sort_column_ == stock_column) {
        std::stable_sort(items_.begin(), items_.end(),
                         [](const Item& a, const Item& b) { return a.stock < b.stock; });
    } else if (sort_column_ == attention_column) {
        // What wants attention first.
        std::stable_sort(items_.begin(), items_.end(), [](const Item& a, const Item& b) {
            if (a.attention.isEmpty() != b.attention.isEmpty()) return b.attention.isEmpty();
            return a.attention < b.attention;
        });
    }
    if (sort_order_ == Qt::DescendingOrder) std::reverse(items_.begin(), items_.end());
}

bool ItemTreeModel::matches(const Item& item) const {
    return std::all_of(words_.begin(), words_.end(),
                       [&item](const QString& word) { return item.search_text.contains(word); });
}

int ItemTreeModel::add_node(bool is_item, i16 number, int parent) {
    const int place = static_cast<int>(nodes_.size());
    std::vector<int>& siblings = nodes_[static_cast<std::size_t>(parent)].children;
    const int row = static_cast<int>(siblings.size());
    siblings.push_back(place);
    nodes_.push_back({is_item, number, parent, row, {}});
    return place;
}

void ItemTreeModel::build() {
    nodes_.clear();
    nodes_.push_back({false, 0, root, 0, {}});
    shown_items_ = 0;
    std::vector<int> node_of(catagory_capacity + 1, root);
    if (view_ == View::tree) {
        const bool backwards = sort_column_ == name_column && sort_order_ == Qt::DescendingOrder;
        std::vector<i16> sorted = sorted_catagories(is_item_catagory);
        if (backwards) std::reverse(sorted.begin(), sorted.end());
        add_catagories(0, root, sorted, node_of);
    }
    add_items(node_of);
    if (is_filtered()) drop_empty_catagories();
}

void ItemTreeModel::add_catagories(i16 above, int parent, const std::vector<i16>& sorted,
                                   std::vector<int>& node_of) {
    for (const i16 row : sorted) {
        if (catagory_above(row, is_item_catagory) != above) continue;
        const int added = add_node(false, row, parent);
        node_of[static_cast<std::size_t>(row)] = added;
        add_catagories(row, added, sorted, node_of);
    }
}

void ItemTreeModel::add_items(const std::vector<int>& node_of) {
    nodes_.reserve(nodes_.size() + items_.size());
    for (const Item& item : items_) {
        if (is_filtered() && !matches(item)) continue;
        const bool flat = view_ == View::list;
        add_node(
            true, item.number,
            flat ? root
                 : node_of[static_cast<std::size_t>(home_catagory(items[item.number].category))]);
        ++shown_items_;
    }
}

// From the last node to the first, so that a category goes after all beneath it have gone.
void ItemTreeModel::drop_empty_catagories() {
    for (std::size_t place = nodes_.size(); place-- > 1;) {
        const Node& dropped = nodes_[place];
        if (dropped.is_item || !dropped.children.empty()) continue;
        std::vector<int>& siblings = nodes_[static_cast<std::size_t>(dropped.parent)].children;
        siblings.erase(siblings.begin() + dropped.row);
        nodes_[place].number = gone;
        for (std::size_t row = 0; row < siblings.size(); ++row) {
            nodes_[static_cast<std::size_t>(siblings[row])].row = static_cast<int>(row);
        }
    }
}

const ItemTreeModel::Node& ItemTreeModel::node(const QModelIndex& index) const {
    return nodes_[index.isValid() ? static_cast<std::size_t>(index.internalId()) : root];
}

QModelIndex ItemTreeModel::index_of(const QString& key) const {
    const bool wants_item = key.startsWith(QLatin1Char('c'));
    const int number = key.mid(1).toInt();
    for (std::size_t place = 1; place < nodes_.size(); ++place) {
        const Node& found = nodes_[place];
        if (!wants_item && found.is_item) break;  // categories come before all items
        if (found.number == number && found.is_item == wants_item) {
            return createIndex(found.row, 0, static_cast<quintptr>(place));
        }
    }
    return {};
}

i16 ItemTreeModel::item_at(const QModelIndex& index) const {
    return node(index).is_item ? node(index).number : i16{0};
}

i16 ItemTreeModel::catagory_at(const QModelIndex& index) const {
    return node(index).is_item ? i16{0} : node(index).number;
}

QModelIndex ItemTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) return {};
    const int place = node(parent).children[static_cast<std::size_t>(row)];
    return createIndex(row, column, static_cast<quintptr>(place));
}

QModelIndex ItemTreeModel::parent(const QModelIndex& index) const {
    const int above = node(index).parent;
    if (above == root) return {};
    return createIndex(nodes_[static_cast<std::size_t>(above)].row, 0,
                       static_cast<quintptr>(above));
}

int ItemTreeModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : static_cast<int>(node(parent).children.size());
}

int ItemTreeModel::columnCount(const QModelIndex&) const {
    return column_count;
}

QVariant ItemTreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Node& shown = node(index);
    if (role == key_role) {
        return QLatin1Char(shown.is_item ? 'c' : 'r') + QString::number(shown.number);
    }
    if (shown.is_item) return item_data(shown.number, index.column(), role);
    const bool name = index.column() == name_column;
    if (name && (role == Qt::DisplayRole || role == Qt::EditRole)) {
        return name_of(catagories[shown.number]);
    }
    if (name && role == Qt::DecorationRole) return icon(QStringLiteral("category"));
    return {};
}

QVariant ItemTreeModel::item_data(i16 item, int column, int role) const {
    const bool text = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    switch (column) {
        case name_column:
            return text ? QVariant(name_of(items[item])) : QVariant();
        case stock_column:
            if (role == Qt::TextAlignmentRole) return int{Qt::AlignRight | Qt::AlignVCenter};
            return text ? QVariant(stock_text(item)) : QVariant();
        default:
            if (role == Qt::DecorationRole) return attention_icon(attention_of(item));
            return text ? QVariant(shown_text(attention_text(attention_of(item)))) : QVariant();
    }
}

QVariant ItemTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole && section == stock_column) {
        return int{Qt::AlignRight | Qt::AlignVCenter};
    }
    if (role != Qt::DisplayRole) return {};
    switch (section) {
        case name_column:
            return tr("Item");
        case stock_column:
            return tr("In Stock");
        default:
            return tr("Attention");
    }
}

Qt::ItemFlags ItemTreeModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    Qt::ItemFlags result = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (node(index).is_item) {
        result |= Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    } else if (index.column() == name_column) {
        result |= Qt::ItemIsEditable;
    }
    return result;
}

bool ItemTreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const i16 row = catagory_at(index);
    if (role != Qt::EditRole || row == 0) return false;
    const QString name = value.toString();
    if (name == name_of(catagories[row]) || !rename_catagory(row, typed_text(name))) return false;
    Q_EMIT dataChanged(index, index);
    Q_EMIT catagory_renamed();
    return true;
}

QStringList ItemTreeModel::mimeTypes() const {
    return {QStringLiteral("text/plain")};
}

QMimeData* ItemTreeModel::mimeData(const QModelIndexList& indexes) const {
    const i16 item = indexes.isEmpty() ? i16{0} : item_at(indexes.first());
    if (item == 0) return nullptr;
    auto* data = new QMimeData;
    data->setText(QLatin1Char('i') + QString::number(item));
    return data;
}

}  // namespace tavernook
