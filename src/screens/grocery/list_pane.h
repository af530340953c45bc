// What has to be bought: the list with its columns and its sort, the totals beneath it, and the box
// for scanned codes above it.
#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "core/changes.h"
#include "screens/parts/rows_model.h"
#include "shopping/list_file.h"
#include "shopping/list_rows.h"

class QTreeView;

namespace tavernook {

namespace Ui {
class ListPane;
}

class ListPane : public QWidget {
    Q_OBJECT

  public:
    explicit ListPane(QWidget* parent = nullptr);
    ~ListPane() override;

    // The list anew, with its totals. Selection, scroll and sort stay.
    void fill();

    // At the end of a step: fills the list when something in it has changed, and then marks what
    // was asked for.
    void follow_changes();

    // Which columns are shown, as the screen's memory has brought it back; the names always are.
    void follow_header();

    // The row that commands are about: the current one among those selected.
    RowRef selected() const { return selected_; }
    std::vector<i16> selected_items() const;

    // What a saved list knows of the columns: all but the names.
    ShownColumns columns_shown() const;
    void show_columns(const ShownColumns& shown);

    // What a page of the list shows: the columns, names first, and the items, in their order.
    std::vector<ListColumn> shown_columns() const;
    std::vector<i16> shown_items() const;

    // When the list is filled next: marks the item, in sight; marks what then stands in the place
    // of the current row.
    void mark_item(i16 item) { to_mark_ = item; }
    void mark_next() { marks_next_ = true; }

    // Codes may begin in any part of the screen; `letters_for` is another list that finds its rows
    // by letters. Call it when all parts are there.
    void watch_for_codes(QWidget& screen, QWidget& letters_for);
    void take_code_line(const QString& line);
    void wait_for_codes(Qt::FocusReason reason);  // the box takes the focus, for a new code
    bool discard_code();                          // false when none has begun

  Q_SIGNALS:
    void add_wanted();
    void remove_wanted();
    void quantity_wanted();
    void store_order_wanted();
    void view_wanted();
    void dropped(const QString& text);  // a live item or recipe
    void scanned(const std::string& code);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void set_up_list();
    void set_up_columns();
    void set_up_footer();
    void set_up_scanning();
    void set_up_commands();

    void fill_rows();
    void show_totals();
    void mark_wanted();
    void follow_selection();
    void show_popup(const QPoint& place);

    void fit_names();
    void switch_column(int column, bool shown);
    void recall_sort();
    void store_sort();

    std::unique_ptr<Ui::ListPane> ui_;
    RowsModel* rows_;
    QTreeView& list_;
    Seen seen_;
    RowRef selected_;
    i16 to_mark_ = 0;
    bool marks_next_ = false;
};

}  // namespace tavernook
