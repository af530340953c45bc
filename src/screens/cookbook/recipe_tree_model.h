// The recipes under their categories, all beneath the root "General", over the tables themselves: a
// name is read when it is shown. What stands where is fixed by `populate`.
#pragma once

#include <QAbstractItemModel>
#include <QString>
#include <vector>

#include "basics/values.h"

namespace tavernook {

class RecipeTreeModel : public QAbstractItemModel {
    Q_OBJECT

  public:
    enum Role {
        key_role = Qt::UserRole + 1  // the root "r0", a category's row + "r", a slot + "c"
    };

    explicit RecipeTreeModel(QObject* parent = nullptr);

    // Reads anew which recipes and categories there are, both by name. What a damaged file hangs
    // nowhere hangs on the root.
    void populate();

    // Only recipes whose name has every word of it; capitals and accents do not count. Blank shows
    // all.
    void set_filter(const QString& filter);
    bool is_filtered() const { return !words_.isEmpty(); }

    // How many recipes are shown.
    int recipe_count() const { return shown_recipes_; }

    QModelIndex index_of(const QString& key) const;

    // 0 when the row is none, or the root.
    i16 recipe_at(const QModelIndex& index) const;
    i16 catagory_at(const QModelIndex& index) const;
    bool is_root(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // Renames a recipe or a category.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    // The text "m" + slot. A recipe can be dropped on a category and on the root.
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

  Q_SIGNALS:
    void renamed();
    void recipe_moved();

  private:
    enum class Kind { root, catagory, recipe };
    struct Node {
        Kind kind;
        i16 number;  // of the category or recipe
        int parent;
        int row;
        std::vector<int> children;
    };

    void build();
    void add_catagories(i16 above, int parent, const std::vector<i16>& sorted,
                        std::vector<int>& node_of);
    void add_recipes(const std::vector<int>& node_of);
    void drop_empty_catagories();
    int add_node(Kind kind, i16 number, int parent);
    bool matches(const QString& sort_text) const;
    const Node* node(const QModelIndex& index) const;
    QModelIndex index_at(int place) const;
    QString name_of(const Node& shown) const;

    std::vector<Node> nodes_;
    QStringList words_;
    int shown_recipes_ = 0;
};

// The number behind the letter of a dragged text as in "m7"; 0 when the text is no such one.
i16 dragged_number(const QMimeData& data, QChar letter);

}  // namespace tavernook
