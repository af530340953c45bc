#include "screens/cookbook/recipe_tree_model.h"

#include <QMimeData>
#include <algorithm>
#include <utility>

#include "core/project_data.h"
#include "recipes/recipe_names.h"
#include "screens/parts/catagory_places.h"
#include "screens/parts/icons.h"
#include "screens/parts/shown_text.h"

namespace tavernook {

namespace {

constexpr int root = 0;
constexpr i16 gone = -1;  // a category that the filter leaves out

QString shown_name(i16 slot) {
    return shown_text(meals[slot].name.trimmed());
}

// Folded names with their slots, by name.
std::vector<std::pair<QString, i16>> sorted_recipes() {
    std::vector<std::pair<QString, i16>> found;
    for (i16 slot = 1; slot <= meal_capacity; ++slot) {
        if (is_live_meal(slot)) found.emplace_back(folded(shown_name(slot)), slot);
    }
    std::sort(found.begin(), found.end());
    return found;
}

}  // namespace

i16 dragged_number(const QMimeData& data, QChar letter) {
    const QString text = data.text();
    bool is_number = false;
    const int number = text.mid(1).toInt(&is_number);
    const bool fits = is_number && number > 0 && number <= item_capacity;
    return text.startsWith(letter) && fits ? static_cast<i16>(number) : i16{0};
}

RecipeTreeModel::RecipeTreeModel(QObject* parent) : QAbstractItemModel(parent) {
    build();
}

void RecipeTreeModel::populate() {
    beginResetModel();
    build();
    endResetModel();
}

void RecipeTreeModel::set_filter(const QString& filter) {
    const QStringList words = folded(filter).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words == words_) return;
    beginResetModel();
    words_ = words;
    build();
    endResetModel();
}

bool RecipeTreeModel::matches(const QString& sort_text) const {
    return std::all_of(words_.begin(), words_.end(),
                       [&](const QString& word) { return sort_text.contains(word); });
}

int RecipeTreeModel::add_node(Kind kind, i16 number, int parent) {
    const int place = static_cast<int>(nodes_.size());
    std::vector<int>& siblings = nodes_[static_cast<std::size_t>(parent)].children;
    const int row = static_cast<int>(siblings.size());
    siblings.push_back(place);
    nodes_.push_back({kind, number, parent, row, {}});
    return place;
}

void RecipeTreeModel::build() {
    nodes_.clear();
    nodes_.push_back({Kind::root, 0, root, 0, {}});
    shown_recipes_ = 0;
    std::vector<int> node_of(catagory_capacity + 1, root);
    add_catagories(0, root, sorted_catagories(is_recipe_catagory), node_of);
    add_recipes(node_of);
    if (is_filtered()) drop_empty_catagories();
}

void RecipeTreeModel::add_catagories(i16 above, int parent, const std::vector<i16>& sorted,
                                     std::vector<int>& node_of) {
    for (const i16 row : sorted) {
        if (catagory_above(row, is_recipe_catagory) != above) continue;
        const int added = add_node(Kind::catagory, row, parent);
        node_of[static_cast<std::size_t>(row)] = added;
        add_catagories(row, added, sorted, node_of);
    }
}

void RecipeTreeModel::add_recipes(const std::vector<int>& node_of) {
    for (const auto& [sort_text, slot] : sorted_recipes()) {
        if (!matches(sort_text)) continue;
        const auto home = static_cast<std::size_t>(home_recipe_catagory(slot));
        add_node(Kind::recipe, slot, node_of[home]);
        ++shown_recipes_;
    }
}

// From the last node to the first, so that a category goes after all beneath it have gone.
void RecipeTreeModel::drop_empty_catagories() {
    for (std::size_t place = nodes_.size(); place-- > 1;) {
        Node& dropped = nodes_[place];
        if (dropped.kind != Kind::catagory || !dropped.children.empty()) continue;
        std::vector<int>& siblings = nodes_[static_cast<std::size_t>(dropped.parent)].children;
        siblings.erase(siblings.begin() + dropped.row);
        dropped.number = gone;
        for (std::size_t row = 0; row < siblings.size(); ++row) {
            nodes_[static_cast<std::size_t>(siblings[row])].row = static_cast<int>(row);
        }
    }
}

const RecipeTreeModel::Node* RecipeTreeModel::node(const QModelIndex& index) const {
    return index.isValid() ? &nodes_[static_cast<std::size_t>(index.internalId())] : nullptr;
}

QModelIndex RecipeTreeModel::index_at(int place) const {
    const Node& found = nodes_[static_cast<std::size_t>(place)];
    return createIndex(found.row, 0, static_cast<quintptr>(place));
}

QModelIndex RecipeTreeModel::index_of(const QString& key) const {
    if (key == QLatin1String("r0")) return index_at(root);
    const Kind wanted = key.endsWith(QLatin1Char('c')) ? Kind::recipe : Kind::catagory;
    const int number = key.chopped(key.isEmpty() ? 0 : 1).toInt();
    for (std::size_t place = 1; place < nodes_.size() && number > 0; ++place) {
        if (nodes_[place].number == number && nodes_[place].kind == wanted) {
            return index_at(static_cast<int>(place));
        }
    }
    return {};
}

i16 RecipeTreeModel::recipe_at(const QModelIndex& index) const {
    const Node* shown = node(index);
    return shown != nullptr && shown->kind == Kind::recipe ? shown->number : i16{0};
}

i16 RecipeTreeModel::catagory_at(const QModelIndex& index) const {
    const Node* shown = node(index);
    return shown != nullptr && shown->kind == Kind::catagory ? shown->number : i16{0};
}

bool RecipeTreeModel::is_root(const QModelIndex& index) const {
    return index.isValid() && node(index)->kind == Kind::root;
}

QModelIndex RecipeTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) return {};
    return parent.isValid() ? index_at(node(parent)->children[static_cast<std::size_t>(row)])
                            : index_at(root);
}

QModelIndex RecipeTreeModel::parent(const QModelIndex& index) const {
    if (!index.isValid() || is_root(index)) return {};
    return index_at(node(index)->parent);
}

int RecipeTreeModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? static_cast<int>(node(parent)->children.size()) : 1;
}

QString RecipeTreeModel::name_of(const Node& shown) const {
    switch (shown.kind) {
        case Kind::root:
            return QStringLiteral("General");
        case Kind::catagory:
            return shown_text(catagories[shown.number].name.trimmed());
        default:
            return shown_name(shown.number);
    }
}

QVariant RecipeTreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Node& shown = *node(index);
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
        case Qt::ToolTipRole:
            return name_of(shown);
        case Qt::DecorationRole:
            return icon(shown.kind == Kind::recipe ? QStringLiteral("recipes")
                                                   : QStringLiteral("category"));
        case key_role:
            if (shown.kind == Kind::root) return QStringLiteral("r0");
            return QString::number(shown.number) +
                   QLatin1Char(shown.kind == Kind::recipe ? 'c' : 'r');
        default:
            return {};
    }
}

Qt::ItemFlags RecipeTreeModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    Qt::ItemFlags result = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    switch (node(index)->kind) {
        case Kind::root:
            return result | Qt::ItemIsDropEnabled;
        case Kind::catagory:
            return result | Qt::ItemIsDropEnabled | Qt::ItemIsEditable;
        default:
            return result | Qt::ItemIsDragEnabled | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
    }
}

bool RecipeTreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid()) return false;
    const Node& shown = *node(index);
    if (value.toString() == name_of(shown)) return false;
    const std::string name = typed_text(value.toString());
    const bool done = shown.kind == Kind::recipe ? rename_meal(shown.number, name)
                                                 : rename_recipe_catagory(shown.number, name);
    if (!done) return false;
    Q_EMIT dataChanged(index, index);
    Q_EMIT renamed();
    return true;
}

QStringList RecipeTreeModel::mimeTypes() const {
    return {QStringLiteral("text/plain")};
}

QMimeData* RecipeTreeModel::mimeData(const QModelIndexList& indexes) const {
    const i16 slot = indexes.isEmpty() ? i16{0} : recipe_at(indexes.first());
    if (slot == 0) return nullptr;
    auto* data = new QMimeData;
    data->setText(QLatin1Char('m') + QString::number(slot));
    return data;
}

// Between two rows is nowhere.
bool RecipeTreeModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int row, int,
                                      const QModelIndex& parent) const {
    const bool on_catagory = row < 0 && (is_root(parent) || catagory_at(parent) != 0);
    return on_catagory && data != nullptr && is_live_meal(dragged_number(*data, QLatin1Char('m')));
}

bool RecipeTreeModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                                   int column, const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, column, parent)) return false;
    if (!move_meal(dragged_number(*data, QLatin1Char('m')), catagory_at(parent))) return false;
    Q_EMIT recipe_moved();
    return true;
}

}  // namespace tavernook
