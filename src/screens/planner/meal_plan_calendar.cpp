// The calendar of the planner: which month and which date it shows, its keys and its popup menu.
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "core/program_state.h"
#include "core/trap.h"
#include "planning/day_clipboard.h"
#include "planning/day_plans.h"
#include "platform/platform.h"
#include "screens/parts/shown_text.h"
#include "screens/planner/MealPlan.h"
#include "screens/planner/calendar_grid.h"
#include "ui_MealPlan.h"

namespace tavernook {

namespace {

constexpr int months_in_year = 12;

QDate today() {
    return qdate_of(civil_from_date(platform_clock().now()));
}

Date date_of(const QDate& date) {
    return date_from_civil(date.year(), date.month(), date.day());
}

}  // namespace

void MealPlan::set_up_month_bar() {
    for (int month = 1; month <= months_in_year; ++month) {
        ui_->Combo1->addItem(QLocale().standaloneMonthName(month));
    }
    auto* year = ui_->FlatScrollBar2->findChild<QLineEdit*>();
    year->setObjectName(QStringLiteral("Label11"));
    year->setAccessibleName(ui_->FlatScrollBar2->accessibleName());
    connect(ui_->Combo1, &QComboBox::activated, this,
            [this](int month) { show_month(QDate(month_.year(), month + 1, 1)); });
    connect(ui_->FlatScrollBar2, &QSpinBox::valueChanged, this,
            [this](int year) { show_month(QDate(year, month_.month(), 1)); });
    connect(ui_->previous_month, &QToolButton::clicked, this, [this] { step_month(-1); });
    connect(ui_->next_month, &QToolButton::clicked, this, [this] { step_month(1); });
}

void MealPlan::set_up_calendar() {
    CalendarGrid& grid = *ui_->calendar_grid;
    connect(&grid, &CalendarGrid::chosen, this,
            [this](int cell) { run([this, cell] { select_cell(cell); }); });
    connect(&grid, &CalendarGrid::menu_wanted, this, &MealPlan::show_cell_menu);
    open_menu_by_keys(grid);
    grid.set_drop_rule([this](int cell, const QString& text) {
        return may_drop(ui_->calendar_grid->cell(cell).date, text);
    });
    connect(&grid, &CalendarGrid::dropped, this, [this](int cell, const QString& text) {
        run([&] {
            select_cell(cell);
            drop(text);
        });
    });
}

QDate MealPlan::selected_date() const {
    return {selected_year, selected_month, selected_day};
}

// --- month -------------------------------------------------------------------------------------

void MealPlan::CalendarUpdate(i16 mode) {
    trap_in_screen([&] {
        if (mode != ports::month_in_view || !month_.isValid()) {
            month_ = QDate(selected_year, selected_month, 1);
        }
        draw_calendar();
        pending_calendar_refresh = i16_false;
    });
    // An audit by the clock has no other word for the day shown.
    set_day_editable(day_is_held() && !day_is_audited());
    update_commands();
}

void MealPlan::draw_calendar() {
    CalendarGrid& grid = *ui_->calendar_grid;
    grid.set_cells(calendar_cells(month_, today()));
    grid.select_cell(static_cast<int>(grid.cell(0).date.daysTo(selected_date())));
    const QSignalBlocker no_month(ui_->Combo1);
    const QSignalBlocker no_year(ui_->FlatScrollBar2);
    ui_->Combo1->setCurrentIndex(month_.month() - 1);
    ui_->FlatScrollBar2->setValue(month_.year());
    show_state();
}

// The selected date comes along: the same day, or the last one of a shorter month.
void MealPlan::show_month(const QDate& month) {
    const bool in_range = month.year() >= ui_->FlatScrollBar2->minimum() &&
                          month.year() <= ui_->FlatScrollBar2->maximum();
    if (!in_range || month == month_) return;
    run([&] {
        const int day = std::min<int>(selected_day, month.daysInMonth());
        month_ = month;
        select_date(QDate(month.year(), month.month(), day));
        CalendarUpdate(ports::month_in_view);
    });
}

void MealPlan::step_month(int months) {
    show_month(month_.addMonths(months));
}

void MealPlan::go_to_today() {
    select_date(today());
    CalendarUpdate(0);
}

// --- date --------------------------------------------------------------------------------------

void MealPlan::set_date(const QDate& date) {
    selected_day = to_i16(date.day());
    selected_month = to_i16(date.month());
    selected_year = to_i16(date.year());
    const Date day = date_of(date);
    ui_->Label6->setText(
        shown_text(format_date(day, "dddd") + " - " + format_date(day, "MM/DD/YYYY")));
}

void MealPlan::select_date(const QDate& date) {
    set_date(date);
    populate_day();
}

void MealPlan::select_cell(int cell) {
    if (cell < 0 || cell >= calendar_cell_count) return;
    const QDate date = ui_->calendar_grid->cell(cell).date;
    ui_->calendar_grid->select_cell(cell);
    if (date == selected_date() && civil_date_of(date) == opened_) return;
    select_date(date);
}

// --- keys --------------------------------------------------------------------------------------

// True when the key has done its work.
bool MealPlan::calendar_key(const QKeyEvent& key) {
    if (calendar_shortcut(key)) return true;
    if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
    int step = 0;
    switch (key.key()) {
        case Qt::Key_Left:
            step = -1;
            break;
        case Qt::Key_Right:
            step = 1;
            break;
        case Qt::Key_Up:
            step = -7;
            break;
        case Qt::Key_Down:
            step = 7;
            break;
        case Qt::Key_PageUp:
            step_month(-1);
            return true;
        case Qt::Key_PageDown:
            step_month(1);
            return true;
        case Qt::Key_Delete:
            run([this] { delete_here(); });
            return true;
        default:
            return false;
    }
    const int cell = ui_->calendar_grid->selected_cell() + step;
    if (cell >= 0 && cell < calendar_cell_count) ui_->calendar_grid->choose(cell);
    return true;
}

bool MealPlan::calendar_shortcut(const QKeyEvent& key) {
    if (key.matches(QKeySequence::Copy)) {
        run([this] { copy_day_shown(false); });
    } else if (key.matches(QKeySequence::Cut)) {
        run([this] { copy_day_shown(true); });
    } else if (key.matches(QKeySequence::Paste) && !pastes_text()) {
        run([this] { paste_here(); });
    } else {
        return false;
    }
    return true;
}

// A code from another program, as long as no day waits to be pasted.
bool MealPlan::pastes_text() const {
    return !day_clipboard.filled && ui_->Text1->hasFocus() &&
           !QGuiApplication::clipboard()->text().isEmpty();
}

// --- popup menu --------------------------------------------------------------------------------

void MealPlan::show_cell_menu(int cell, const QPoint& place) {
    ui_->calendar_grid->choose(cell);
    set_popup(popup_none);
    update_commands();
    ui_->popmenu->popup(place);
}

void MealPlan::apply_popup() {
    const int choice = std::exchange(popup_choice_, int{popup_none});
    switch (choice) {
        case popup_cut:
            return copy_day_shown(true);
        case popup_paste:
            return paste_here();
        case popup_delete:
            return delete_here();
        case popup_copy:
            return copy_day_shown(false);
        case popup_add_item:
            return open_inventory();
        case popup_add_meal:
            return open_recipes();
        default:
            return;
    }
}

void MealPlan::copy_day_shown(bool cut) {
    if (cut) {
        cut_selected_day();
    } else {
        copy_selected_day();
    }
    const QString day = spoken_date(selected_date());
    if (!day_is_held()) {
        say(tr("Nothing is planned on %1.").arg(day));
    } else if (cut) {
        say(tr("%1 moves to the date on which you paste it (Ctrl+V).").arg(day));
    } else {
        say(tr("%1 is copied. Choose a date and paste it (Ctrl+V).").arg(day));
    }
}

void MealPlan::paste_here() {
    if (!day_clipboard.filled) return say(tr("Copy or cut a day first."));
    const QString day = spoken_date(selected_date());
    const bool done = paste_day(date_of(selected_date()));
    say(done ? tr("Pasted on %1.").arg(day) : tr("Nothing was pasted on %1.").arg(day));
}

void MealPlan::delete_here() {
    const QString day = spoken_date(selected_date());
    const bool held = day_is_held();
    delete_day_of(date_of(selected_date()));
    say(held ? tr("The plan of %1 is deleted.").arg(day)
             : tr("Nothing is planned on %1.").arg(day));
}

}  // namespace tavernook
