#include "screens/parts/catagory_tree_model.h"

#include <QMimeData>
#include <algorithm>

#include "core/project_data.h"
#include "core/rows.h"
#include "screens/parts/guard.h"
#include "screens/parts/icons.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/stock_sign.h"

namespace tavernook {

namespace {

using Kind = TreeNode::Kind;

constexpr int root = CatagoryTreeNodes::root;

// What a column says of a leaf; nothing where it cannot.
template <typename Answer>
QVariant asked(const std::function<Answer(i16)>& of, i16 leaf) {
    QVariant answer;
    if (of) quietly([&] { answer = QVariant(of(leaf)); });
    return answer;
}

QVariant sign_answer(const std::function<StockSign(i16)>& of, i16 leaf, int role) {
    StockSign sign = StockSign::none;
    if (of) quietly([&] { sign = of(leaf); });
    return sign_data(sign, role);
}

}  // namespace

CatagoryTreeModel::CatagoryTreeModel(TreeContents contents, QObject* parent)
    : QAbstractItemModel(parent), contents_(std::move(contents)), nodes_(contents_.is_shown) {}

// --- what stands where -----------------------------------------------------------------------

void CatagoryTreeModel::populate(View view) {
    std::vector<TreeLeaf> read = contents_.read_leaves();
    sort_in_order(read);
    beginResetModel();
    leaves_ = std::move(read);
    view_ = view;
    build();
    endResetModel();
}

void CatagoryTreeModel::set_filter(const QString& filter) {
    const QStringList words = folded(filter).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words == words_) return;
    beginResetModel();
    words_ = words;
    build();
    endResetModel();
}

void CatagoryTreeModel::sort(int column, Qt::SortOrder order) {
    if (column < 0 || column >= columnCount()) return;
    beginResetModel();
    sort_column_ = column;
    sort_order_ = order;
    sort_in_order(leaves_);
    build();
    endResetModel();
}

void CatagoryTreeModel::build() {
    nodes_.build(catagories_in_order(), leaves_, words_);
}

std::vector<i16> CatagoryTreeModel::catagories_in_order() const {
    if (view_ == View::list) return {};
    std::vector<i16> sorted = sorted_catagories(contents_.is_shown);
    if (sort_column_ == name_column && is_backwards()) std::reverse(sorted.begin(), sorted.end());
    return sorted;
}

void CatagoryTreeModel::sort_in_order(std::vector<TreeLeaf>& leaves) const {
    const auto& rank = contents_.columns[static_cast<std::size_t>(sort_column_)].rank;
    sort_leaves(leaves, rank, is_backwards());
}

// --- rows and keys ---------------------------------------------------------------------------

const TreeNode& CatagoryTreeModel::node(const QModelIndex& index) const {
    return nodes_.at(index.isValid() ? static_cast<int>(index.internalId()) : root);
}

QModelIndex CatagoryTreeModel::index_at(int place) const {
    if (place == root && !has_root_row()) return {};
    return createIndex(nodes_.at(place).row, name_column, static_cast<quintptr>(place));
}

QString CatagoryTreeModel::key_of(char kind, i16 number) const {
    const QLatin1Char letter(kind);
    const bool is_letter_first = number == 0 || !contents_.is_number_first;
    return is_letter_first ? letter + QString::number(number) : QString::number(number) + letter;
}

QModelIndex CatagoryTreeModel::index_of(const QString& key) const {
    if (key == key_of('r', 0)) return index_at(root);
    if (key.isEmpty()) return {};
    const bool is_number_first = contents_.is_number_first;
    const QChar letter = is_number_first ? key.back() : key.front();
    const int number = (is_number_first ? key.chopped(1) : key.mid(1)).toInt();
    if (number <= 0 || (letter != QLatin1Char('r') && letter != QLatin1Char('c'))) return {};
    const Kind wanted = letter == QLatin1Char('c') ? Kind::leaf : Kind::catagory;
    const std::optional<int> place = nodes_.place_of(wanted, number);
    return place ? index_at(*place) : QModelIndex();
}

QModelIndexList CatagoryTreeModel::catagory_rows() const {
    QModelIndexList rows;
    for (const int place : nodes_.catagory_places()) rows.append(index_at(place));
    return rows;
}

i16 CatagoryTreeModel::leaf_at(const QModelIndex& index) const {
    return node(index).kind == Kind::leaf ? node(index).number : i16{0};
}

i16 CatagoryTreeModel::catagory_at(const QModelIndex& index) const {
    return node(index).kind == Kind::catagory ? node(index).number : i16{0};
}

bool CatagoryTreeModel::is_root(const QModelIndex& index) const {
    return index.isValid() && node(index).kind == Kind::root;
}

QModelIndex CatagoryTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) return {};
    const bool is_root_row = !parent.isValid() && has_root_row();
    const int place = is_root_row ? root : node(parent).children[static_cast<std::size_t>(row)];
    return createIndex(row, column, static_cast<quintptr>(place));
}

QModelIndex CatagoryTreeModel::parent(const QModelIndex& index) const {
    if (!index.isValid() || is_root(index)) return {};
    return index_at(node(index).parent);
}

int CatagoryTreeModel::rowCount(const QModelIndex& parent) const {
    if (parent.column() > 0) return 0;
    if (!parent.isValid() && has_root_row()) return 1;
    return static_cast<int>(node(parent).children.size());
}

int CatagoryTreeModel::columnCount(const QModelIndex&) const {
    return static_cast<int>(contents_.columns.size());
}

// --- what stands in them ---------------------------------------------------------------------

QString CatagoryTreeModel::name_of(const TreeNode& shown) const {
    switch (shown.kind) {
        case Kind::root:
            return contents_.root_name;
        case Kind::catagory:
            return shown_text(row_or_none(catagories, shown.number).name.trimmed());
        default:
            return asked(contents_.columns.front().text, shown.number).toString();
    }
}

QVariant CatagoryTreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const TreeNode& shown = node(index);
    if (role == key_role) return key_of(shown.kind == Kind::leaf ? 'c' : 'r', shown.number);
    const int column = index.column();
    if (shown.kind == Kind::leaf) {
        return leaf_data(shown.number, contents_.columns[static_cast<std::size_t>(column)], role);
    }
    return column == name_column ? catagory_data(shown, role) : QVariant();
}

QVariant CatagoryTreeModel::catagory_data(const TreeNode& shown, int role) const {
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
        case Qt::ToolTipRole:
            return name_of(shown);
        case Qt::DecorationRole:
            return icon(QStringLiteral("category"));
        default:
            return {};
    }
}

QVariant CatagoryTreeModel::leaf_data(i16 leaf, const TreeColumn& column, int role) const {
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
        case Qt::ToolTipRole:
            return asked(column.text, leaf);
        case Qt::DecorationRole:
            if (column.decoration) return asked(column.decoration, leaf);
            return sign_answer(column.sign, leaf, role);
        case Qt::ForegroundRole:
            return sign_answer(column.sign, leaf, role);
        case Qt::TextAlignmentRole:
            return column.is_right ? QVariant(int{Qt::AlignRight | Qt::AlignVCenter}) : QVariant();
        default:
            return {};
    }
}

QVariant CatagoryTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const TreeColumn& column = contents_.columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return column.title;
    if (role != Qt::TextAlignmentRole || !column.is_right) return {};
    return int{Qt::AlignRight | Qt::AlignVCenter};
}

Qt::ItemFlags CatagoryTreeModel::flags(const QModelIndex& index) const {
    const auto below_all = contents_.takes_drop ? Qt::ItemIsDropEnabled : Qt::NoItemFlags;
    if (!index.isValid()) return below_all;
    const Kind kind = node(index).kind;
    const bool is_name = index.column() == name_column;
    Qt::ItemFlags result = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (kind == Kind::leaf) {
        result |= Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
        if (is_name && contents_.rename_leaf) result |= Qt::ItemIsEditable;
        return result;
    }
    if (contents_.move_leaf) result |= Qt::ItemIsDropEnabled;
    if (is_name && kind == Kind::catagory && contents_.rename_catagory) {
        result |= Qt::ItemIsEditable;
    }
    return result;
}

// --- names and drops -------------------------------------------------------------------------

bool CatagoryTreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable)) return false;
    const TreeNode& shown = node(index);
    if (value.toString() == name_of(shown)) return false;
    const auto& rename =
        shown.kind == Kind::leaf ? contents_.rename_leaf : contents_.rename_catagory;
    bool is_renamed = false;
    guarded([&] { is_renamed = rename(shown.number, typed_text(value.toString())); });
    if (!is_renamed) return false;
    Q_EMIT dataChanged(index, index);
    Q_EMIT changed();
    return true;
}

QStringList CatagoryTreeModel::mimeTypes() const {
    QStringList types{QStringLiteral("text/plain")};
    if (contents_.takes_drop) types.append(QStringLiteral("text/uri-list"));
    return types;
}

QMimeData* CatagoryTreeModel::mimeData(const QModelIndexList& indexes) const {
    const i16 leaf = indexes.isEmpty() ? i16{0} : leaf_at(indexes.first());
    if (leaf == 0) return nullptr;
    auto* data = new QMimeData;
    data->setText(contents_.drag_text(leaf));
    return data;
}

bool CatagoryTreeModel::takes_drop(const QMimeData* data) const {
    return data != nullptr && contents_.takes_drop && contents_.takes_drop(*data);
}

// A leaf that is moved falls on a category; between two rows is nowhere.
bool CatagoryTreeModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int row, int,
                                        const QModelIndex& parent) const {
    if (takes_drop(data)) return true;
    const bool is_on_catagory = row < 0 && (is_root(parent) || catagory_at(parent) != 0);
    return contents_.move_leaf && is_on_catagory && data != nullptr &&
           contents_.dropped_leaf(data->text()) != 0;
}

bool CatagoryTreeModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                                     int column, const QModelIndex& parent) {
    if (takes_drop(data)) {
        contents_.take_drop(*data, catagory_at(parent));
        return true;
    }
    if (!canDropMimeData(data, action, row, column, parent)) return false;
    bool is_moved = false;
    const i16 leaf = contents_.dropped_leaf(data->text());
    guarded([&] { is_moved = contents_.move_leaf(leaf, catagory_at(parent)); });
    if (is_moved) Q_EMIT changed();
    return is_moved;
}

}  // namespace tavernook
