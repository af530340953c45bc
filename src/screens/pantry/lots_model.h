// The 16 lots of one item as rows, in the order of their places.
#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <array>
#include <vector>

#include "core/records.h"

namespace tavernook {

class LotsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    static constexpr int key_role = Qt::UserRole;       // "l" and the place
    static constexpr int sort_role = Qt::UserRole + 1;  // numbers and dates by value
    enum Column { name, created, quantity, expires, note, column_count };

    explicit LotsModel(QObject* parent);

    // Reads the item's lots anew; item 0 has none. A Fault leaves the rows as they were.
    void fill(i16 item);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    struct Row {
        std::array<QString, column_count> texts;
        std::array<QVariant, column_count> values;  // to sort by
        bool is_current = false;
        bool is_expired = false;
    };
    static Row read_row(const LotRecord& record, int place, const QString& unit);

    QVariant mark(const Row& row, int column) const;

    std::vector<Row> rows_;
    QIcon ordinary_mark_;
    QIcon current_mark_;
    QIcon expired_mark_;
};

}  // namespace tavernook
