// Categories and what hangs in them: the rows of the item list and of the recipe list. The leaves
// are items or recipes; what is particular to them is told once, as data, in `TreeContents`.
//
// `populate` reads which leaves there are, with the texts by which they are found and sorted, and
// has `CatagoryTreeNodes` fix what stands where: categories of the kind shown, each beneath its
// parent, then the leaves in their order. A category that hangs nowhere, or in a circle, stands at
// the top, and so does a leaf whose category is not shown; a damaged file hides nothing. What
// stands in a cell is not kept: it is read when it is painted, so that an amount is always the
// present one.
//
// A filter builds the same rows again from the leaves at hand, without reading a table: 10,000
// leaves take a few milliseconds. Categories in which nothing is found go.
//
// A category, and a leaf where the list allows it, is named in place; a leaf can be dragged as
// the text that names it, and be dropped on a category where the list allows that. Both change
// records: `changed` tells it, for the end of a step to be taken once the view has done its work.
//
// What can go wrong: reading the leaves may fault; everything stays as it was then. A leaf may have
// gone from its table since it was read: the texts of the columns are asked with its number all the
// same and must bear that.
#pragma once

#include <QAbstractItemModel>
#include <QString>
#include <QStringList>
#include <functional>
#include <string_view>
#include <vector>

#include "basics/values.h"
#include "screens/parts/catagory_places.h"
#include "screens/parts/catagory_tree_nodes.h"

namespace tavernook {

enum class StockSign;  // stock_sign.h

struct TreeColumn {
    QString title;
    std::function<QString(i16 leaf)> text;
    std::function<QVariant(i16 leaf)> decoration = {};
    std::function<StockSign(i16 leaf)> sign = {};  // its icon, unless decorated, and its colour
    std::function<LeafRank(i16 leaf)> rank = {};   // none: sorted by name
    bool is_right = false;                         // as amounts stand
};

struct TreeContents {
    CatagoryKind is_shown;
    std::function<std::vector<TreeLeaf>()> read_leaves;
    std::vector<TreeColumn> columns;             // the first is that of the names
    std::function<QString(i16 leaf)> drag_text;  // see drag_text.h
    QString root_name = {};                      // empty: the top has no row of its own
    bool is_number_first = false;                // in keys

    // Each tells whether it has changed something. Without one, it cannot be done in the list.
    std::function<bool(i16 row, std::string_view name)> rename_catagory = {};
    std::function<bool(i16 leaf, std::string_view name)> rename_leaf = {};
    std::function<bool(i16 leaf, i16 catagory)> move_leaf = {};  // category 0: the root

    // The leaf that a dropped text names, 0 for anything else. Goes with `move_leaf`.
    std::function<i16(const QString& text)> dropped_leaf = {};

    // What else is taken wherever it is dropped, and what becomes of it in the category that it
    // fell into, 0 for the root. The two go together.
    std::function<bool(const QMimeData& data)> takes_drop = {};
    std::function<void(const QMimeData& data, i16 catagory)> take_drop = {};
};

class CatagoryTreeModel : public QAbstractItemModel {
    Q_OBJECT

  public:
    // "r" and a category's row, or "c" and a leaf's number, the number in front where the contents
    // want it so. The root is "r0".
    enum Role { key_role = Qt::UserRole + 1 };

    // The leaves in their categories, or all as one list without them.
    enum class View { tree, list };

    static constexpr int name_column = 0;

    explicit CatagoryTreeModel(TreeContents contents, QObject* parent = nullptr);

    // Lets out what reading the leaves throws.
    void populate(View view = View::tree);
    View view() const { return view_; }

    // Only leaves whose search text has every word of it; capitals and accents do not count. Blank
    // shows all.
    void set_filter(const QString& filter);
    bool is_filtered() const { return !words_.isEmpty(); }

    // How many leaves are shown.
    int leaf_count() const { return nodes_.leaf_count(); }

    QModelIndex index_of(const QString& key) const;
    QString key_of_leaf(i16 leaf) const { return key_of('c', leaf); }
    QString key_of_catagory(i16 row) const { return key_of('r', row); }  // 0: the root
    QModelIndexList catagory_rows() const;

    // 0 when the row is none, or of the other kind, or the root.
    i16 leaf_at(const QModelIndex& index) const;
    i16 catagory_at(const QModelIndex& index) const;
    bool is_root(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // A new name.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    // The leaves of each category. Categories always stand by name, backwards when the names do.
    void sort(int column, Qt::SortOrder order) override;

    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

  Q_SIGNALS:
    // Records have changed in the list itself. The rows still stand where they stood.
    void changed();

  private:
    void build();
    std::vector<i16> catagories_in_order() const;
    void sort_in_order(std::vector<TreeLeaf>& leaves) const;
    bool has_root_row() const { return !contents_.root_name.isEmpty(); }
    bool is_backwards() const { return sort_order_ == Qt::DescendingOrder; }
    const TreeNode& node(const QModelIndex& index) const;
    bool takes_drop(const QMimeData* data) const;
    QModelIndex index_at(int place) const;
    QString key_of(char kind, i16 number) const;
    QString name_of(const TreeNode& shown) const;
    QVariant catagory_data(const TreeNode& shown, int role) const;
    QVariant leaf_data(i16 leaf, const TreeColumn& column, int role) const;

    TreeContents contents_;
    std::vector<TreeLeaf> leaves_;
    CatagoryTreeNodes nodes_;
    QStringList words_;
    View view_ = View::tree;
    int sort_column_ = name_column;
    Qt::SortOrder sort_order_ = Qt::AscendingOrder;
};

}  // namespace tavernook
