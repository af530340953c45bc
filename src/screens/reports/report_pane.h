// The report: the items that the last search found with the fields that the filter shows, in
// columns that can be dragged, resized and sorted by. It is a snapshot; an item that has gone since
// is none. Where a column stands, and the sort, come back with the screen.
#pragma once

#include <QWidget>
#include <memory>

#include "core/changes.h"
#include "reports/report_file_format.h"
#include "reports/report_list.h"

class QHeaderView;
class QTreeView;

namespace tavernook {

class ReportRowsModel;

namespace Ui {
class ReportPane;
}

class ReportPane : public QWidget {
    Q_OBJECT

  public:
    explicit ReportPane(QWidget* parent = nullptr);
    ~ReportPane() override;

    // The list anew. Selection, scroll and sort stay.
    void fill(const ReportFilter& filter);

    // Columns or filter have been changed since.
    void show_outdated();

    // The list is a snapshot: where the records have changed it says so.
    void follow_changes();

    void sort_by(int column);

    const ReportList& list() const;
    QTreeView& view() { return view_; }

    // Any row at all, and its item: of several the current one's; 0 when it has gone since.
    bool has_selection() const;
    i16 selected_item() const;

    // Positions and sort as they are. What is set shows with the next fill.
    ReportLook look() const;
    void set_look(const ReportLook& look);

    // The header's memory has come back; it knows neither the present columns nor the sort.
    void follow_header();

  Q_SIGNALS:
    void view_wanted();
    void usage_wanted();
    void sort_wanted(int column);
    void selection_changed();

  private:
    void set_up_list();
    void set_up_commands();
    void dress_columns();
    int fitting_width(int column) const;
    void keep_width(int column, int width);
    void show_sort();
    void show_count(const QString& remark);
    void show_menu(const QPoint& place);
    void fill_sort_menu();
    int manufacturer_column() const;  // 0 where the report does not show it
    void recall_sort();
    void store_sort() const;

    std::unique_ptr<Ui::ReportPane> ui_;
    ReportRowsModel* model_;
    QTreeView& view_;
    QHeaderView& header_;
    Seen seen_{Subject::items, Subject::lots, Subject::catagories, Subject::units, Subject::stores};
    std::uint32_t filled_at_look_ = 0;  // what the next one finds changed is in it already
    bool is_dressing_ = false;
};

}  // namespace tavernook
