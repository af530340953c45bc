// The rows of the scan list, the box for scanned codes above them, and how many there are.
//
// A code that comes in is marked beside those that are marked already, so that everything scanned
// in a row is booked together. The marks are the rows' own and outlive this pane.
#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "core/changes.h"
#include "screens/parts/rows_model.h"

class QTreeView;

namespace tavernook {

namespace Ui {
class ScanRowsPane;
}

class ScanRowsPane : public QWidget {
    Q_OBJECT

  public:
    explicit ScanRowsPane(QWidget* parent = nullptr);
    ~ScanRowsPane() override;

    // At the end of a step: the rows as they are now, with what their items are called now.
    void follow_changes();

    // The row that a command about one is for, marked or not; the one to be handed over, which is
    // that row where it is marked and else the first marked one; all marked ones. 0 without one.
    i32 current() const;
    i32 marked_one() const;
    std::vector<i32> selected() const;
    bool is_empty() const;

    // Codes may begin in any part of the screen. Call it when all parts are there.
    void watch_for_codes(QWidget& screen);
    void wait_for_codes(Qt::FocusReason reason);  // the box takes the focus, or the list
    void focus_list();
    bool discard_code();  // false when none has begun

  Q_SIGNALS:
    void scanned(const std::string& code);
    void open_wanted();      // what the current row is about
    void quantity_wanted();  // of the current row
    void lot_wanted();       // of the current row
    void remove_wanted();    // the marked rows

  private:
    void set_up_list();
    void set_up_commands();
    void mark_new_rows();
    void follow_selection();
    void follow_current();
    void press_enter();
    void show_popup(const QPoint& place);

    std::unique_ptr<Ui::ScanRowsPane> ui_;
    RowsModel* rows_;
    QTreeView& list_;
    Seen seen_;
    i32 newest_ = 0;  // the last row whose mark is shown
    bool is_filling_ = false;
};

}  // namespace tavernook
