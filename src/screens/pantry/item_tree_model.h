// The items under their categories, or as one list, over the tables themselves: a name or a stock
// is read when it is shown. What stands where is fixed by `populate`.
#pragma once

#include <QAbstractItemModel>
#include <QString>
#include <vector>

#include "basics/values.h"

namespace tavernook {

class ItemTreeModel : public QAbstractItemModel {
    Q_OBJECT

  public:
    enum Column { name_column, stock_column, attention_column, column_count };
    enum Role {
        key_role = Qt::UserRole + 1  // "r" + category or "c" + item
    };
    enum class View { tree, list };

    explicit ItemTreeModel(QObject* parent = nullptr);

    // Reads anew which items and categories there are. An item of category 0 moves to category 1,
    // and an item that has no lots yet gets its first one.
    void populate(View view);

    // Only items whose name, brand or barcode has every word of it; capitals and accents do not
    // count. Blank shows all.
    void set_filter(const QString& filter);
    bool is_filtered() const { return !words_.isEmpty(); }

    // How many items are shown.
    int item_count() const { return shown_items_; }

    QModelIndex index_of(const QString& key) const;

    // 0 when the row is of the other kind.
    i16 item_at(const QModelIndex& index) const;
    i16 catagory_at(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // Renames a category.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    // Categories always stand by name, backwards when the names do.
    void sort(int column, Qt::SortOrder order) override;

    // The text "i" + item.
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;

  Q_SIGNALS:
    void catagory_renamed();

  private:
    struct Item {
        i16 number;
        QString sort_text;
        QString search_text;
        f64 stock;
        QString attention;
    };
    struct Node {
        bool is_item;
        i16 number;  // of the item or category; 0 for the root
        int parent;
        int row;
        std::vector<int> children;
    };

    void read_items();
    void sort_items();
    void build();
    void add_catagories(i16 above, int parent, const std::vector<i16>& sorted,
                        std::vector<int>& node_of);
    void add_items(const std::vector<int>& node_of);
    void drop_empty_catagories();
    int add_node(bool is_item, i16 number, int parent);
    bool matches(const Item& item) const;
    const Node& node(const QModelIndex& index) const;
    QVariant item_data(i16 item, int column, int role) const;

    std::vector<Item> items_;
    std::vector<Node> nodes_;
    QStringList words_;
    View view_ = View::tree;
    int sort_column_ = name_column;
    Qt::SortOrder sort_order_ = Qt::AscendingOrder;
    int shown_items_ = 0;
};

}  // namespace tavernook
