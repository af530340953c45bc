// The day of the planner: its list, its totals and what is done with its rows.
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <optional>

#include "basics/number_text.h"
#include "core/money_text.h"
#include "core/program_state.h"
#include "core/project/daily_audit.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/item_form.h"
#include "planning/day_plans.h"
#include "planning/day_totals.h"
#include "platform/platform.h"
#include "screens/parts/icons.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"
#include "screens/planner/MealPlan.h"
#include "screens/planner/calendar_grid.h"
#include "screens/planner/day_list_model.h"
#include "ui_MealPlan.h"

namespace tavernook {

void MealPlan::set_up_day_list() {
    QTreeView& list = *ui_->lv2;
    sorted_day_->setSortRole(DayListModel::sort_role);
    dress_list(list);
    follow_font_size(list);
    list.setModel(sorted_day_);
    list.setAcceptDrops(true);
    list.viewport()->setAcceptDrops(true);
    list.verticalScrollBar()->setObjectName(QStringLiteral("FlatScrollBar1"));
    QHeaderView& header = *list.header();
    header.setSectionResizeMode(DayListModel::name_column, QHeaderView::Stretch);
    header.resizeSection(DayListModel::quantity_column, letters_wide(*this, 10));
    header.resizeSection(DayListModel::unit_column, letters_wide(*this, 13));
    connect(&list, &QTreeView::activated, this, [this](const QModelIndex& index) {
        run([&] { open_entry(index.data(DayListModel::key_role).toString()); });
    });
    const auto show_popup = [this] {
        if (selected_day_key().empty()) return;
        const QRect row = ui_->lv2->visualRect(ui_->lv2->currentIndex());
        ui_->mealplanpop->popup(ui_->lv2->viewport()->mapToGlobal(row.bottomLeft()));
    };
    connect(&list, &QTreeView::customContextMenuRequested, this, show_popup);
    on_keys(list, Qt::Key_F2, [this] { ui_->mealplan_mod_qty->trigger(); });
    on_keys(list, QKeySequence::Delete, [this] { ui_->Toolbar2_3->trigger(); });
    open_menu_by_keys(list);
}

// --- what is known of the day ------------------------------------------------------------------

bool MealPlan::day_is_held() const {
    if (current_day < 1 || current_day > day_capacity) return false;
    const DayRecord& day = days[current_day];
    return day.in_use == 1 && day.day == selected_day && day.month == selected_month &&
           day.year == selected_year;
}

// Also where a full table has handed out the last slot, which is another date's audited day.
bool MealPlan::day_is_audited() const {
    if (current_day < 1 || current_day > day_capacity) return false;
    return days[current_day].in_use == 1 && days[current_day].audited != 0;
}

bool MealPlan::may_plan() {
    if (!day_is_audited()) return true;
    if (day_is_held()) {
        say(tr("%1 is audited. Press \"Edit Audited Day\" first.")
                .arg(spoken_date(selected_date())));
    } else {
        say(tr("There is no room for another day. Delete some of the older days first."));
    }
    return false;
}

// --- what is shown -----------------------------------------------------------------------------

// The box for a full table comes once for each opening of a date.
void MealPlan::populate_day() {
    trap_in_screen([this] {
        const CivilDate date{selected_year, selected_month, selected_day};
        const bool again = date == opened_;
        opened_ = date;
        if (again) {
            current_day = slot_of_selected_date();
        } else {
            day_list_->show_day(0);
            set_day_editable(false);
            open_day();
        }
    });
    populate_days_Meals_Items();
    update_commands();
}

void MealPlan::populate_days_Meals_Items() {
    trap_in_screen([this] { show_plan(); });
    populate_day_info();
    update_commands();
}

// Changes no table.
void MealPlan::show_plan() {
    const QString selected = shown_text(selected_day_key());
    const int scrolled = ui_->lv2->verticalScrollBar()->value();
    day_list_->show_day(day_is_held() ? current_day : i16{0});
    const int row = day_list_->row_of(selected);
    if (row >= 0) ui_->lv2->setCurrentIndex(sorted_day_->mapFromSource(day_list_->index(row, 0)));
    ui_->lv2->verticalScrollBar()->setValue(scrolled);
    set_day_editable(day_is_held() && !day_is_audited());
    show_state();
}

void MealPlan::show_state() {
    const bool audited = day_is_audited() && day_is_held();
    const bool planned = day_list_->rowCount() > 0;
    const QString state = audited   ? tr("Audited: taken out of the stock")
                          : planned ? tr("Planned")
                                    : tr("Nothing planned yet");
    ui_->day_state->setText(state);
    const int side = fontMetrics().height();
    const QIcon mark = icon(audited ? QStringLiteral("audited") : QStringLiteral("planned"));
    ui_->day_state_icon->setPixmap(
        audited || planned ? mark.pixmap(QSize(side, side), devicePixelRatioF()) : QPixmap());
    ui_->day_state_icon->setVisible(audited || planned);
    const int cell = ui_->calendar_grid->selected_cell();
    ui_->Text1->setAccessibleDescription(ui_->calendar_grid->cell_name(cell));
    hint_when_empty(*ui_->lv2, audited ? tr("Nothing is planned on this day.")
                                       : tr("Drop a recipe or an item here, scan a code, or press "
                                            "\"Add Recipe\"."));
}

// The list keeps working as a list, so that a row can be opened on an audited day too.
void MealPlan::set_day_editable(bool editable) {
    ui_->lv2->viewport()->setBackgroundRole(editable ? QPalette::Base : QPalette::Window);
}

void MealPlan::populate_day_info() {
    if (day_is_held()) {
        show_totals(day_totals_shown(current_day));
    } else {
        reset_day_totals();
    }
    if (pending_calendar_refresh != 0) CalendarUpdate(ports::month_in_view);
}

// No box and no change of a table: totals that cannot be worked out stay as they are.
void MealPlan::renew_totals() {
    if (!day_is_held()) return reset_day_totals();
    show_totals(day_totals(days[current_day], day_quantities[current_day]));
}

void MealPlan::reset_day_totals() {
    DayTotals none;
    none.calories_text = "0";
    none.fat_text = "0";
    none.cost_text = money_text(0, "##,##0.00");
    show_totals(none);
}

void MealPlan::show_totals(const DayTotals& totals) {
    ui_->calories_total->setText(shown_text(totals.calories_text));
    ui_->fat_total->setText(shown_text(totals.fat_text));
    ui_->cost_total->setText(shown_text(totals.cost_text));
}

std::string MealPlan::selected_day_key() {
    const QModelIndexList rows = ui_->lv2->selectionModel()->selectedRows();
    return rows.isEmpty() ? "" : rows.first().data(DayListModel::key_role).toString().toStdString();
}

// --- what is done ------------------------------------------------------------------------------

void MealPlan::Add_Item(i16 item, f64 servings) {
    trap_in_screen([&] { plan_entry(false, item, servings); });
    update_commands();
}

void MealPlan::add_meal(i16 recipe, f64 quantity) {
    trap_in_screen([&] { plan_entry(true, recipe, quantity); });
    update_commands();
}

void MealPlan::open_recipes() {
    if (!may_plan()) return;
    if (show_screen(QStringLiteral("Mealbuilder")) == nullptr || mealbuilder() == nullptr) {
        return say(tr("The recipe manager is not available in this version."));
    }
    mealbuilder()->set_return(ports::Mealbuilder::returns_to_planner);
}

void MealPlan::open_inventory() {
    if (!may_plan() || show_screen(QStringLiteral("FoodInventory")) == nullptr) return;
    if (food_inventory() != nullptr)
        food_inventory()->set_return(ports::FoodInventory::adds_to_day);
}

void MealPlan::remove_selected() {
    if (!may_plan()) return;
    const std::string key = selected_day_key();
    if (key.empty()) return say(tr("Choose a row of the day first."));
    const int row = ui_->lv2->currentIndex().row();
    const QString name = ui_->lv2->currentIndex().siblingAtColumn(0).data().toString();
    remove_day_entry(key);
    CalendarUpdate(ports::month_in_view);
    const int last = sorted_day_->rowCount() - 1;
    if (last >= 0) ui_->lv2->setCurrentIndex(sorted_day_->index(std::min(row, last), 0));
    say(tr("%1 is taken off %2.").arg(name, spoken_date(selected_date())));
}

void MealPlan::edit_audited() {
    if (day_is_audited() && day_is_held()) edit_audited_day();
}

void MealPlan::ask_quantity() {
    const std::string key = selected_day_key();
    if (key.empty() || !may_plan()) return;
    const QModelIndex row = ui_->lv2->currentIndex().siblingAtColumn(DayListModel::quantity_column);
    const QPointer<MealPlan> still_here(this);
    const std::optional<std::string> typed =
        boxes().input("Type new Quantity", "Modify Quantity", typed_text(row.data().toString()));
    if (!typed || still_here.isNull() || selected_day_key() != key) return;
    const std::optional<f64> quantity = typed_number(*typed);
    if (quantity) return modify_mealplan_qty(*quantity);
    say(tr("\"%1\" is not a number; the quantity stays.").arg(shown_text(*typed)));
}

void MealPlan::open_entry(const QString& key) {
    const std::string text = key.toStdString();
    if (get_item_index(text) != 0) return show_item(get_item_index(text));
    if (get_meal_index(text) != 0) show_recipe(get_meal_index(text));
}

void MealPlan::show_item(i16 item) {
    if (show_screen(QStringLiteral("FoodInventory")) == nullptr) return;
    if (food_inventory() != nullptr) food_inventory()->view_item(item, i16_true);
}

void MealPlan::show_recipe(i16 recipe) {
    if (show_screen(QStringLiteral("Mealbuilder")) == nullptr || mealbuilder() == nullptr) {
        return say(tr("The recipe manager is not available in this version."));
    }
    mealbuilder()->set_meal(recipe);
}

void MealPlan::refresh_all() {
    audit_and_list();
    ui_->refresh_marker->show();
    ui_->refresh_marker->repaint();
    populate_meal_recommendations();
    ui_->refresh_marker->hide();
    populate_day();
}

}  // namespace tavernook
