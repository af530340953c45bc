// The recommended meals: recipe, item and how much of it is past its date. It holds numbers, and
// sorting compares ranks that are worked out once, so that tens of thousands of rows turn at once.
#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <vector>

#include "planning/recommendations.h"

namespace tavernook {

class RecommendationsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { meal_column, item_column, quantity_column, column_count };
    static constexpr int key_role = Qt::UserRole;  // "i" item ":" recipe

    explicit RecommendationsModel(QObject* parent);

    void set_rows(std::vector<Recommendation> rows);

    int row_of(const QString& key) const;  // -1 when it is not in the list

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // -1 is the order in which the rows came. Equal rows stand in that order.
    void sort(int column, Qt::SortOrder order) override;

  private:
    const Recommendation& at(int row) const {
        return rows_[static_cast<std::size_t>(order_[static_cast<std::size_t>(row)])];
    }
    void put_in_order();
    std::vector<f64> ranks() const;

    QIcon icon_;
    std::vector<Recommendation> rows_;
    std::vector<int> order_;  // places in rows_
    int column_ = -1;
    Qt::SortOrder direction_ = Qt::AscendingOrder;
};

}  // namespace tavernook
