// The planner: the calendar of a month, the plan of the selected day with its totals, and the meals
// that would use up what is past its date.
#pragma once

#include <QDate>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "basics/date.h"
#include "platform/screen_ports.h"

class QAction;
class QMenu;
class QSortFilterProxyModel;
class QTreeView;

namespace tavernook {

class DayListModel;
class RecommendationsModel;
struct DayTotals;

namespace Ui {
class MealPlan;
}

class MealPlan : public QWidget, public ports::MealPlan {
    Q_OBJECT

  public:
    // The choices of the popup menu of a date, by their places in it.
    enum PopupChoice : int {
        popup_cut,
        popup_paste,
        popup_delete,
        popup_copy,
        popup_add_item,
        popup_add_meal,
        popup_none = 255
    };

    // Shows today; what the planner remembered of another day is gone.
    explicit MealPlan(QWidget* parent = nullptr);
    ~MealPlan() override;

    // Nothing is planned on an audited day; the status bar says so.
    void Add_Item(i16 item, f64 servings) override;
    void add_meal(i16 recipe, f64 quantity) override;

    void populate_day() override;
    void populate_days_Meals_Items() override;

    // Any other mode shows the month of the selected date.
    void CalendarUpdate(i16 mode) override;
    void set_firstcall() override { first_call_ = true; }
    void populate_meal_recommendations() override;
    void set_day_editable(bool editable) override;
    void reset_day_totals() override;
    std::string selected_day_key() override;

    void populate_day_info();

    // What was chosen for the selected cell; it is carried out when the menu has closed.
    void set_popup(int choice) { popup_choice_ = choice; }
    int popup_choice() const { return popup_choice_; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // One command at a time, trapped; the status bar is empty before it.
    void run(const std::function<void()>& command);
    void when_triggered(QAction* action, std::function<void()> command);

    void set_up_toolbars();
    void set_up_month_bar();
    void set_up_calendar();
    void set_up_day_list();
    void set_up_recommendations();
    void set_up_commands();
    void set_up_sizes();
    void set_up_tab_order();
    void set_up_keys();
    void first_view();
    void fit_day_commands();
    void open_menu_by_keys(QWidget& part);
    void follow_focus(const QWidget* before, const QWidget* now);
    void update_commands();
    void say(const QString& text);  // in the status bar

    // The calendar.
    QDate selected_date() const;
    void set_date(const QDate& date);  // nothing is opened
    void select_date(const QDate& date);
    void select_cell(int cell);
    void show_month(const QDate& month);
    void step_month(int months);
    void go_to_today();
    void draw_calendar();
    void show_cell_menu(int cell, const QPoint& place);
    void apply_popup();
    void copy_day_shown(bool cut);
    void paste_here();
    void delete_here();
    bool calendar_key(const QKeyEvent& key);
    bool calendar_shortcut(const QKeyEvent& key);
    bool pastes_text() const;

    // The day.
    bool day_is_held() const;  // current_day is a day of the selected date
    bool day_is_audited() const;
    bool may_plan();  // says why not
    void show_plan();
    void show_state();
    void renew_totals();
    void show_totals(const DayTotals& totals);
    void open_recipes();
    void open_inventory();
    void remove_selected();
    void edit_audited();
    void ask_quantity();
    void open_entry(const QString& key);
    void show_item(i16 item);
    void show_recipe(i16 recipe);
    void refresh_all();

    // Recommendations.
    std::string selected_recommendation() const;
    void plan_recommended(void (*add)(std::string_view key));
    void keep_caption_whole();
    void focus_entry();

    // Barcodes and dropping.
    bool key_pressed(QObject& watched, const QKeyEvent& key);
    bool entry_key(const QKeyEvent& key);
    bool scanner_key(QWidget& at, const QKeyEvent& key);
    bool year_key(const QKeyEvent& key);
    void start_entry(const QString& text);
    void take_entry();
    void plan_code(const std::string& code);
    void plan_entry(bool is_recipe, i16 number, f64 quantity);
    void say_planned(bool is_recipe, i16 number);
    bool may_drop(const QDate& date, const QString& text);  // says why not
    void drop(const QString& text);
    bool drag_over_list(QEvent& event);

    std::unique_ptr<Ui::MealPlan> ui_;
    DayListModel* day_list_;
    QSortFilterProxyModel* sorted_day_;
    RecommendationsModel* recommended_;

    QDate month_;         // its first day
    CivilDate opened_{};  // the date that populate_day has opened last
    QString year_digits_;
    int popup_choice_ = popup_none;
    bool first_call_ = true;
    bool busy_ = false;
};

}  // namespace tavernook
