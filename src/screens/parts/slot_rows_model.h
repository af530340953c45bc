// A list over one of the program's tables: the rows in use, by slot. It holds slot numbers only;
// what a cell shows is read from the table whenever it is painted.
#pragma once

#include <QAbstractTableModel>
#include <QVariant>
#include <functional>
#include <vector>

#include "basics/values.h"

namespace tavernook {

class SlotRowsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    // The row's key: a letter and the slot number, as in "t12".
    static constexpr int key_role = Qt::UserRole;

    struct Column {
        QString title;
        std::function<QVariant(i16 slot)> value;
        Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    };

    SlotRowsModel(QChar key_letter, std::vector<Column> columns, QObject* parent);

    // Ascending. Rows that stay keep their place, selection and all, and are read anew.
    void set_slots(const std::vector<i16>& wanted);

    i16 slot_at(int row) const;  // 0 outside the list
    int row_of(i16 slot) const;  // -1 when it is not in the list

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    void drop_rows_without(const std::vector<i16>& wanted);
    void add_rows_of(const std::vector<i16>& wanted);

    QChar key_letter_;
    std::vector<Column> columns_;
    std::vector<i16> slots_;
};

}  // namespace tavernook
