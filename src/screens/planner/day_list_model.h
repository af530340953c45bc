// The day list: the recipes of a day by place, then its items by place. It holds numbers and places
// only; names and quantities are read from the tables whenever they are painted.
#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <vector>

#include "basics/values.h"

namespace tavernook {

class DayListModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { name_column, quantity_column, unit_column, column_count };
    enum Role {
        key_role = Qt::UserRole,  // "m" recipe ":" place or "i" item ":" place
        sort_role                 // what a column is sorted by
    };

    explicit DayListModel(QObject* parent);

    // The plan of that slot; 0 shows nothing. The same entries keep their rows and are read anew.
    void show_day(i16 slot);

    int row_of(const QString& key) const;  // -1 when it is not in the list

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    struct Entry {
        bool is_recipe;
        i16 number;
        i16 place;
        bool operator==(const Entry&) const = default;
    };

    f64 quantity_of(const Entry& entry) const;
    QVariant text_of(const Entry& entry, int column) const;

    QIcon recipe_icon_;
    QIcon item_icon_;
    i16 slot_ = 0;
    std::vector<Entry> entries_;
};

}  // namespace tavernook
