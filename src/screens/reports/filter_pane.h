// The filter of the reports: its rows with their search and logic strings and marks, and the
// commands that change them. It shows what it is told; what the user wants it tells.
#pragma once

#include <QWidget>
#include <memory>

#include "reports/report_filter.h"

class QTreeView;

namespace tavernook {

class FilterRowsModel;

namespace Ui {
class FilterPane;
}

class FilterPane : public QWidget {
    Q_OBJECT

  public:
    explicit FilterPane(QWidget* parent = nullptr);
    ~FilterPane() override;

    // The rows, their marks and the caption of the button. The selected row stays and is in sight.
    void show(const ReportFilter& filter);

    QTreeView& rows() { return rows_; }

  Q_SIGNALS:
    void search_string_wanted(int row);
    void logic_string_wanted(int row);
    void check_wanted(int row, bool checked);
    void view_wanted();
    void reset_wanted();

  private:
    void set_up_rows();
    void set_up_commands();
    void toggle_check();
    void show_menu(const QPoint& place);
    int selected_row() const;

    std::unique_ptr<Ui::FilterPane> ui_;
    FilterRowsModel* model_;
    QTreeView& rows_;
};

}  // namespace tavernook
