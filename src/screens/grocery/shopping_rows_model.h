// A list of items for the shopping list's screen. It holds item numbers in the order shown; what a
// cell shows is read from the tables whenever it is painted, and is empty where a damaged record
// points outside its table.
#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <vector>

#include "shopping/list_rows.h"

namespace tavernook {

class ShoppingRowsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    static constexpr int key_role = Qt::UserRole;  // the item's number + "t"

    struct SortStep {
        int column = 0;
        Qt::SortOrder order = Qt::AscendingOrder;
    };

    ShoppingRowsModel(std::vector<ListColumn> columns, QObject* parent);

    // By number. The sorts that were chosen are done again, in their order. False when the rows are
    // the same in the same order; otherwise selection and the like are gone or moved.
    bool set_items(const std::vector<i16>& wanted);

    i16 item_at(int row) const;  // 0 outside the list
    int row_of(i16 item) const;  // -1 when it is not in the list

    // As text, on top of the order that the rows have: rows that are equal keep it. Column -1 is
    // the order by number.
    void sort(int column, Qt::SortOrder order) override;

    // The sorts since the order by number, the latest last.
    const std::vector<SortStep>& sort_steps() const { return steps_; }
    void set_sort_steps(std::vector<SortStep> steps);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // A row offers "i" + its number; live items and recipes are taken.
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

  Q_SIGNALS:
    void dropped(const QString& text);

  private:
    std::vector<i16> arranged(std::vector<i16> rows) const;
    std::vector<i16> sorted_by(const SortStep& step, const std::vector<i16>& rows) const;
    QString text(std::size_t column, i16 item) const;
    void move_rows(std::vector<i16> rows);

    std::vector<ListColumn> columns_;
    std::vector<i16> rows_;
    std::vector<SortStep> steps_;
};

}  // namespace tavernook
