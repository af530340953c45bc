// The day of the planner: its date and state, its commands, the box for codes, the list of what is
// planned, and the totals. Rows are the recipes of the day by place, then its items by place; names
// and quantities are read from the tables whenever they are painted.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/changes.h"
#include "screens/parts/rows_model.h"

class QAction;
class QLabel;
class QTreeView;

namespace tavernook {

class ScanEntry;
struct DayTotals;

namespace Ui {
class DayPane;
}

class DayPane : public QWidget {
    Q_OBJECT

  public:
    explicit DayPane(QWidget* parent = nullptr);
    ~DayPane() override;

    void show_date(const QDate& date);

    // The plan of the day shown, in its place, and the day's state. Changes no table.
    void show_plan();
    void show_state();

    // Nothing, for a moment: another date is opened.
    void clear();

    void show_totals(const DayTotals& totals);
    void show_no_totals();

    // Plan and totals, where something has changed. Totals that cannot be worked out stay.
    void follow_changes();

    // On a plain background, or on a grey one; either way it keeps working as a list.
    void set_editable(bool editable);

    void set_commands(bool may_plan, bool may_edit_audited);

    // The key of the selected row, "m" recipe ":" place or "i" item ":" place; empty without one.
    std::string selected_key() const;
    QString selected_quantity() const;  // as it is shown

    // After a row has gone: the row that came in its place.
    int current_row() const;
    void mark_row_at(int row);

    // What the entry box tells assistive technology of the date that its keys choose.
    void tell_date(const QString& date);

    ScanEntry& entry() const;
    QWidget& list() const;
    std::vector<QWidget*> tab_order() const;

    void set_drop_rule(std::function<bool(const QString&)> rule);

  Q_SIGNALS:
    void recipes_wanted();
    void items_wanted();
    void removal_wanted();
    void edit_wanted();  // of an audited day
    void quantity_wanted();
    void opened(const std::string& key);
    void dropped(const QString& text);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void set_up_commands();
    void set_up_list();
    void set_up_labels();
    std::vector<RowsColumn> columns();
    f64 quantity_of(RowId row) const;
    void show_popup();
    void fit_commands();
    void renew_totals();

    std::unique_ptr<Ui::DayPane> ui_;
    QTreeView& day_list_;
    RowsModel* rows_;
    i16 slot_ = 0;  // whose plan the rows are
    Seen seen_{Subject::items, Subject::recipes, Subject::plans, Subject::units, Subject::settings};
};

}  // namespace tavernook
