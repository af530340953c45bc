// The planner: the calendar of a month, the plan of the selected day with its totals, and the meals
// that would use up what is past its date.
//
// The screen owns the date, whether it may be planned, and the menu of a date; its three panes show
// and tell, and `day_commands` change the plan. Opening a date (`populate_day`) may show a box,
// once for each opening; following a change never does, and takes no slot.
#pragma once

#include <memory>
#include <string>

#include "basics/date.h"
#include "platform/screen_ports.h"
#include "screens/parts/screen.h"

class QDate;

namespace tavernook {

class CalendarPane;
class DayPane;
class RecommendationsPane;

namespace Ui {
class MealPlan;
}

class MealPlan : public Screen, public ports::MealPlan {
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

    // Nothing is planned on an audited day, nor what is not there any more; the status bar says so.
    void Add_Item(i16 item, f64 servings) override;
    bool add_meal(i16 recipe, f64 quantity) override;

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
    void follow_changes() override;
    void update_commands() override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void set_up_calendar();
    void set_up_day();
    void set_up_recommendations();
    void set_up_menu();
    void set_up_order();
    void first_view();

    void open_date(const QDate& date);
    void choose_date(const QDate& date);
    void choose_month(const QDate& first);
    void go_to_today();
    void open_selected_day();
    void show_plan();

    void show_menu(const QPoint& place);
    void apply_popup();

    void plan_recommended_row(const std::string& key, bool zero_too);
    void remove_selected();
    void refresh_all();
    void focus_entry();

    std::unique_ptr<Ui::MealPlan> ui_;
    CalendarPane& calendar_;
    DayPane& day_;
    RecommendationsPane& recommendations_;

    CivilDate opened_{};  // the date that populate_day has opened last
    int popup_choice_ = popup_none;
    bool first_call_ = true;
};

}  // namespace tavernook
