// The month of the planner: the bar with month and year, and the six weeks below it. What the user
// does comes out as signals, by mouse, by keys and by dropping; the date that is selected is the
// planner's.
#pragma once

#include <QDate>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "core/changes.h"

class QKeyEvent;
class QLineEdit;

namespace tavernook {

namespace Ui {
class CalendarPane;
}

class CalendarPane : public QWidget {
    Q_OBJECT

  public:
    // Whether a text may be dropped on a date.
    using DropRule = std::function<bool(const QDate& date, const QString& text)>;

    explicit CalendarPane(QWidget* parent = nullptr);
    ~CalendarPane() override;

    // The month of that date, drawn anew.
    void show_month(const QDate& date);

    // The month in view, drawn anew: what is planned, today and the selected date.
    void draw();
    void follow_changes();

    // Marks the date where it is in view.
    void mark(const QDate& date);

    // The marked date for assistive technology: "Tuesday, November 24, planned".
    QString told_date() const;

    // A box on the planner in which the calendar's keys work while it is empty; those that turn
    // weeks and months always do.
    void take_keys_of(QLineEdit& box);

    void set_drop_rule(DropRule rule);

    std::vector<QWidget*> tab_order() const;
    QWidget& year_box() const;

  Q_SIGNALS:
    void date_chosen(const QDate& date);
    void month_chosen(const QDate& first);
    void today_wanted();
    void page_wanted(bool of_the_month);  // else of the week
    void menu_wanted(const QPoint& place);  // of the marked date; place on the screen
    void recipes_wanted();
    void copy_wanted();
    void cut_wanted();
    void paste_wanted();
    void delete_wanted();
    void dropped(const QDate& date, const QString& text);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void set_up_month_bar();
    void set_up_grid();
    void choose_month(const QDate& first);
    QDate date_at(int cell) const;
    bool key_pressed(const QObject& watched, const QKeyEvent& key);
    bool shortcut(const QObject& watched, const QKeyEvent& key);
    bool pastes_text(const QObject& watched) const;
    bool step(const QKeyEvent& key);

    std::unique_ptr<Ui::CalendarPane> ui_;
    QLineEdit* box_ = nullptr;
    QDate month_;  // its first day
    QDate drawn_on_;
    Seen seen_{Subject::plans, Subject::recipes, Subject::items, Subject::settings};
};

}  // namespace tavernook
