#include "screens/planner/MealPlan.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QPointer>
#include <utility>
#include <vector>

#include "core/project/daily_audit.h"
#include "planning/day_clipboard.h"
#include "planning/day_plans.h"
#include "planning/day_totals.h"
#include "platform/platform.h"
#include "screens/parts/icons.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/scan_entry.h"
#include "screens/parts/tab_order.h"
#include "screens/planner/calendar_pane.h"
#include "screens/planner/day_commands.h"
#include "screens/planner/day_pane.h"
#include "screens/planner/other_screens.h"
#include "screens/planner/planner_parts.h"
#include "screens/planner/recommendations_pane.h"
#include "screens/planner/selected_day.h"
#include "ui_MealPlan.h"

namespace tavernook {

MealPlan::MealPlan(QWidget* parent)
    : Screen(parent),
      ui_(laid_out<Ui::MealPlan>(*this)),
      calendar_(*ui_->month_panel),
      day_(*ui_->day_panel),
      recommendations_(*ui_->recommendations_panel) {
    setWindowIcon(icon(QStringLiteral("meal_plan")));
    set_up_calendar();
    set_up_day();
    set_up_recommendations();
    set_up_menu();
    set_up_order();
    enter_presses_buttons(*this);
    reset_planner_state();
    set_meal_plan(this);
    guarded([this] {
        select_date(todays_date());
        day_.show_date(selected_date());
        current_day = slot_of_selected_date();
        CalendarUpdate(0);
        show_plan();
        reset_day_totals();
    });
    update_commands();
}

// Another screen of its kind may have taken its place meanwhile.
MealPlan::~MealPlan() {
    if (meal_plan() == this) set_meal_plan(nullptr);
}

// --- how it is put together --------------------------------------------------------------------

void MealPlan::set_up_calendar() {
    using Pane = CalendarPane;
    on_wish(*this, calendar_, &Pane::date_chosen, &MealPlan::choose_date);
    on_wish(*this, calendar_, &Pane::month_chosen, &MealPlan::choose_month);
    on_wish(*this, calendar_, &Pane::today_wanted, &MealPlan::go_to_today);
    on_wish(*this, calendar_, &Pane::page_wanted, show_page);
    on_wish(*this, calendar_, &Pane::recipes_wanted, choose_recipe);
    on_wish(*this, calendar_, &Pane::copy_wanted, copy_day_shown);
    on_wish(*this, calendar_, &Pane::cut_wanted, cut_day_shown);
    on_wish(*this, calendar_, &Pane::paste_wanted, paste_here);
    on_wish(*this, calendar_, &Pane::delete_wanted, delete_by_key);
    on_wish(*this, calendar_, &Pane::dropped, [this](const QDate& date, const QString& text) {
        choose_date(date);
        plan_dragged(text);
    });
    connect(&calendar_, &Pane::menu_wanted, this, &MealPlan::show_menu);
    calendar_.set_drop_rule([this](const QDate& date, const QString& text) {
        return !is_running() && may_drop(date, text);
    });
    calendar_.take_keys_of(day_.entry());
}

void MealPlan::set_up_day() {
    using Pane = DayPane;
    on_wish(*this, day_, &Pane::recipes_wanted, choose_recipe);
    on_wish(*this, day_, &Pane::items_wanted, choose_item);
    on_wish(*this, day_, &Pane::removal_wanted, &MealPlan::remove_selected);
    on_wish(*this, day_, &Pane::edit_wanted, edit_day_shown);
    on_wish(*this, day_, &Pane::opened, show_entry);
    on_wish(*this, day_, &Pane::dropped, plan_dragged);
    on_wish(*this, day_, &Pane::quantity_wanted,
            [this] { ask_quantity(selected_day_key(), day_.selected_quantity()); });
    on_wish(*this, day_.entry(), &ScanEntry::scanned, plan_code);
    day_.set_drop_rule(
        [this](const QString& text) { return !is_running() && may_drop(selected_date(), text); });
    // The box of months keeps no letters: a code's would turn to another month before it is known.
    day_.entry().watch(*this, {.keeps_letters = {&day_.list(), &recommendations_.list()},
                               .keeps_digits = {&calendar_.year_box()}});
    setFocusProxy(&day_.entry());
}

void MealPlan::set_up_recommendations() {
    using Pane = RecommendationsPane;
    on_wish(*this, recommendations_, &Pane::plan_wanted, &MealPlan::plan_recommended_row);
    on_wish(*this, recommendations_, &Pane::item_wanted, show_recommended_item);
    on_wish(*this, recommendations_, &Pane::recipe_wanted, show_recommended_recipe);
    on_wish(*this, recommendations_, &Pane::refresh_wanted, &MealPlan::refresh_all);
    on_keys(*this, QKeySequence::Refresh, [this] { run([this] { refresh_all(); }); });
}

void MealPlan::set_up_menu() {
    const QList<QAction*> actions = ui_->popmenu->actions();
    for (int choice = popup_cut; choice <= popup_add_meal; ++choice) {
        connect(actions[choice], &QAction::triggered, this, [this, choice] {
            set_popup(choice);
            run([this] { apply_popup(); });
        });
    }
}

// The calendar gets the room; one goes through the parts as one reads: month, calendar, day,
// recommendations.
void MealPlan::set_up_order() {
    ui_->main_splitter->setSizes({720, 400});
    ui_->month_splitter->setSizes({520, 180});
    for (QSplitter* splitter : {ui_->main_splitter, ui_->month_splitter}) {
        splitter->setStretchFactor(0, 1);
        splitter->setStretchFactor(1, 0);
    }
    std::vector<QWidget*> order = calendar_.tab_order();
    for (const auto& more : {day_.tab_order(), recommendations_.tab_order()}) {
        order.insert(order.end(), more.begin(), more.end());
    }
    set_tab_order(order);
}

// --- events ------------------------------------------------------------------------------------

void MealPlan::closeEvent(QCloseEvent* event) {
    event->setAccepted(!is_running());
}

// A box may have to be shown, which must wait until the window stands.
void MealPlan::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    if (first_call_) QMetaObject::invokeMethod(this, &MealPlan::first_view, Qt::QueuedConnection);
}

void MealPlan::first_view() {
    if (!first_call_) return;
    first_call_ = false;
    opened_ = CivilDate{};
    CalendarUpdate(ports::month_in_view);
    populate_day();
    populate_meal_recommendations();
}

// Names, stock and plans may have been changed from anywhere. The date's slot may have gone, too.
void MealPlan::follow_changes() {
    if (!day_is_held()) current_day = slot_of_selected_date();
    calendar_.follow_changes();
    day_.follow_changes();
    recommendations_.follow_changes();
    day_.tell_date(calendar_.told_date());
    day_.entry().follow_scanner_type();
}

void MealPlan::update_commands() {
    const bool open = !day_is_audited();
    day_.set_commands(open, !open && day_is_held());
    recommendations_.set_may_plan(open);
    ui_->popmenu_add_item->setEnabled(open);
    ui_->popmenu_add_meal->setEnabled(open);
    ui_->POPMenu_Paste->setEnabled(day_clipboard.filled);
}

// --- date and month ----------------------------------------------------------------------------

void MealPlan::CalendarUpdate(i16 mode) {
    guarded([&] {
        if (mode == ports::month_in_view) {
            calendar_.draw();
        } else {
            calendar_.show_month(selected_date());
        }
        day_.show_state();
        day_.tell_date(calendar_.told_date());
        pending_calendar_refresh = i16_false;
    });
    // An audit by the clock has no other word for the day shown.
    set_day_editable(day_is_held() && !day_is_audited());
    update_commands();
}

void MealPlan::open_date(const QDate& date) {
    select_date(date);
    day_.entry().abandon();
    day_.show_date(date);
    calendar_.mark(date);
    populate_day();
}

void MealPlan::choose_date(const QDate& date) {
    calendar_.mark(date);
    if (date != selected_date() || civil_date_of(date) != opened_) open_date(date);
}

// The selected date comes along: the same day, or the last one of a shorter month.
void MealPlan::choose_month(const QDate& first) {
    const int day = std::min<int>(selected_day, first.daysInMonth());
    calendar_.show_month(first);
    open_date(QDate(first.year(), first.month(), day));
    CalendarUpdate(ports::month_in_view);
}

void MealPlan::go_to_today() {
    open_date(todays_date());
    CalendarUpdate(0);
}

// --- the day -----------------------------------------------------------------------------------

void MealPlan::populate_day() {
    guarded([this] { open_selected_day(); });
    populate_days_Meals_Items();
}

// The box for a full table comes once for each opening of a date.
void MealPlan::open_selected_day() {
    const CivilDate date{selected_year, selected_month, selected_day};
    if (date == std::exchange(opened_, date)) {
        current_day = slot_of_selected_date();
    } else {
        day_.clear();
        open_day();
    }
}

void MealPlan::populate_days_Meals_Items() {
    guarded([this] { show_plan(); });
    populate_day_info();
    update_commands();
}

// Changes no table.
void MealPlan::show_plan() {
    day_.show_plan();
    day_.tell_date(calendar_.told_date());
}

void MealPlan::populate_day_info() {
    if (day_is_held()) {
        guarded([this] { day_.show_totals(day_totals_shown(current_day)); });
    } else {
        reset_day_totals();
    }
    if (pending_calendar_refresh != 0) CalendarUpdate(ports::month_in_view);
}

void MealPlan::set_day_editable(bool editable) {
    day_.set_editable(editable);
}

void MealPlan::reset_day_totals() {
    guarded([this] { day_.show_no_totals(); });
}

std::string MealPlan::selected_day_key() {
    return day_.selected_key();
}

void MealPlan::Add_Item(i16 item, f64 servings) {
    guarded([&] { plan_item(item, servings); });
    update_commands();
}

bool MealPlan::add_meal(i16 recipe, f64 quantity) {
    bool is_planned = false;
    guarded([&] { is_planned = plan_recipe(recipe, quantity); });
    update_commands();
    return is_planned;
}

void MealPlan::remove_selected() {
    const int row = day_.current_row();
    if (!remove_row(selected_day_key())) return;
    CalendarUpdate(ports::month_in_view);
    day_.mark_row_at(row);
}

// --- the menu of a date ------------------------------------------------------------------------

void MealPlan::show_menu(const QPoint& place) {
    set_popup(popup_none);
    update_commands();
    ui_->popmenu->popup(place);
}

void MealPlan::apply_popup() {
    constexpr void (*commands[])() = {cut_day_shown,  paste_here,  delete_here,
                                      copy_day_shown, choose_item, choose_recipe};
    const int choice = std::exchange(popup_choice_, int{popup_none});
    if (choice >= popup_cut && choice <= popup_add_meal) commands[choice]();
}

// --- recommendations ---------------------------------------------------------------------------

void MealPlan::populate_meal_recommendations() {
    guarded([this] {
        recommendations_.fill();
        focus_entry();
    });
}

void MealPlan::plan_recommended_row(const std::string& key, bool zero_too) {
    const QPointer<MealPlan> still_here(this);
    plan_recommended(key, zero_too);
    if (!still_here.isNull()) focus_entry();
}

void MealPlan::refresh_all() {
    audit_and_list();
    guarded([this] { recommendations_.fill_with_a_word(); });
    focus_entry();
    populate_day();
}

// Another screen that the user works in keeps the focus.
void MealPlan::focus_entry() {
    const QWidget* now = QApplication::focusWidget();
    if (now == nullptr || isAncestorOf(now)) day_.entry().setFocus(Qt::OtherFocusReason);
}

}  // namespace tavernook
