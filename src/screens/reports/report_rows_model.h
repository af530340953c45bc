// The report list as a model: it reads the list's cells as they lie and copies nothing. There are
// as many columns as a report can have, so that a place in their order means the same for every
// report; those that the present report has not are the view's to hide.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "reports/report_list.h"

namespace tavernook {

class ReportRowsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    static constexpr int most_columns = report_rows + 2;  // a location has three

    using QAbstractTableModel::QAbstractTableModel;

    // The list anew, with its progress window, during which it has no rows.
    void fill(const ReportFilter& filter);

    // What a click on a title does. What is selected stays selected; but for items that have gone.
    void sort_by(int column);

    // For the next fill.
    void set_sort(const ReportSort& sort) { list_.sort = sort; }

    const ReportList& list() const { return list_; }

    // What a column shows; its first one for what there is not.
    ReportColumn column(int number) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    Qt::Alignment alignment(int number) const;
    std::vector<i16> items_of(const QModelIndexList& indexes) const;

    ReportList list_;
    std::vector<ReportColumn> columns_;
    bool is_filling_ = false;
};

}  // namespace tavernook
