// The 77 rows of the reports' filter as a list: field, search string, logic string, and a mark for
// the fields that the report shows. Rows that search for anything are bold. It shows what it was
// told last; what the user checks is wanted, not done.
#pragma once

#include <QAbstractTableModel>

#include "reports/report_filter.h"

namespace tavernook {

class FilterRowsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    void show(const ReportFilter& filter);

    // "s12", and the row of a place in the list; 0 for none.
    static QString key_of(int row);
    static int row_at(const QModelIndex& index);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  Q_SIGNALS:
    void check_wanted(int row, bool checked);

  private:
    QString text(int row, int column) const;
    bool searches(int row) const;
    bool is_checked(int row) const;

    ReportFilter shown_;
};

}  // namespace tavernook
