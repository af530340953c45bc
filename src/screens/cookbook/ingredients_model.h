// The ingredients of the recipe shown, as its figures give them.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "recipes/roll_up.h"

namespace tavernook {

class IngredientsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { name_column, amount_column, column_count };
    enum Role {
        key_role = Qt::UserRole + 1,  // the item's number + "t"
        tag_role,                     // the item's number
        sort_role
    };

    using QAbstractTableModel::QAbstractTableModel;

    void fill(std::vector<IngredientLine> lines);

    // Items dropped by their text "i" + number are taken only then.
    void set_takes_drops(bool takes) { takes_drops_ = takes; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    QStringList mimeTypes() const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

  Q_SIGNALS:
    void item_dropped(short item);

  private:
    std::vector<IngredientLine> lines_;
    bool takes_drops_ = false;
};

}  // namespace tavernook
