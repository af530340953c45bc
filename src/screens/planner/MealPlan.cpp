#include "screens/planner/MealPlan.h"

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QToolButton>
#include <vector>

#include "core/trap.h"
#include "planning/day_clipboard.h"
#include "planning/day_plans.h"
#include "platform/platform.h"
#include "screens/parts/icons.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/toolbar_parts.h"
#include "screens/planner/calendar_grid.h"
#include "screens/planner/day_list_model.h"
#include "screens/planner/recommendations_model.h"
#include "ui_MealPlan.h"

namespace tavernook {

MealPlan::MealPlan(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::MealPlan>()),
      day_list_(new DayListModel(this)),
      sorted_day_(sorted_rows_of(*day_list_, this)),
      recommended_(new RecommendationsModel(this)) {
    ui_->setupUi(this);
    setWindowIcon(icon(QStringLiteral("meal_plan")));
    set_up_toolbars();
    set_up_month_bar();
    set_up_calendar();
    set_up_day_list();
    set_up_recommendations();
    set_up_commands();
    set_up_sizes();
    set_up_tab_order();
    set_up_keys();
    setFocusProxy(ui_->Text1);
    reset_planner_state();
    set_meal_plan(this);
    trap_in_screen([this] {
        set_date(qdate_of(civil_from_date(platform_clock().now())));
        current_day = slot_of_selected_date();
        CalendarUpdate(0);
        show_plan();
        reset_day_totals();
    });
    update_commands();
}

// Another screen of its kind may have taken its place meanwhile, and the focus may still move while
// the parts go.
MealPlan::~MealPlan() {
    disconnect(qApp, nullptr, this, nullptr);
    if (meal_plan() == this) set_meal_plan(nullptr);
}

// --- how it is put together --------------------------------------------------------------------

void MealPlan::set_up_toolbars() {
    fill_toolbar(*this, *ui_->Toolbar1, {{1, "print_week"}, {2, "today"}, {3, "print_month"}});
    fill_toolbar(*this, *ui_->Toolbar2,
                 {{1, "recipes"}, {2, "inventory"}, {3, "delete"}, {4, "edit"}});
    const int line = fontMetrics().height();
    ui_->Toolbar1->setIconSize(QSize(line, line));
    ui_->Toolbar1->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    ui_->Toolbar2->setIconSize(QSize(line * 3 / 2, line * 3 / 2));
    ui_->Toolbar2->installEventFilter(this);
    auto* first = qobject_cast<QToolButton*>(ui_->Toolbar2->widgetForAction(ui_->Toolbar2_1));
    first->setAutoRaise(false);
    QFont large = first->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.2);
    first->setFont(large);
    QFont heading = ui_->Label6->font();
    heading.setBold(true);
    heading.setPointSizeF(heading.pointSizeF() * 1.25);
    ui_->Label6->setFont(heading);
    QFont total = ui_->calories_total->font();
    total.setBold(true);
    for (QLabel* label : {ui_->calories_total, ui_->fat_total, ui_->cost_total}) {
        label->setFont(total);
    }
    const std::pair<QToolButton*, const char*> steps[] = {{ui_->previous_month, "previous"},
                                                          {ui_->next_month, "next"}};
    for (const auto& [button, name] : steps) {
        button->setIcon(icon(QLatin1String(name)));
        button->setIconSize(QSize(line, line));
    }
}

void MealPlan::set_up_sizes() {
    ui_->main_splitter->setSizes({720, 400});
    ui_->main_splitter->setStretchFactor(0, 1);
    ui_->main_splitter->setStretchFactor(1, 0);
    ui_->month_splitter->setSizes({520, 180});
    ui_->month_splitter->setStretchFactor(0, 1);
    ui_->month_splitter->setStretchFactor(1, 0);
    for (QTreeView* list : {ui_->lv2, ui_->recommendations}) {
        list->setMinimumHeight(list->fontMetrics().height() * 4);
        const int title = list->fontMetrics().horizontalAdvance(QStringLiteral("Quantity"));
        list->header()->setMinimumSectionSize(title + letters_wide(*this, 2));
    }
    ui_->lv2->setMinimumWidth(letters_wide(*this, 36));
    ui_->recommendations->setMinimumWidth(letters_wide(*this, 30));
}

// As one reads: month, calendar, day, recommendations.
void MealPlan::set_up_tab_order() {
    std::vector<QWidget*> order{ui_->previous_month, ui_->Combo1, ui_->FlatScrollBar2,
                                ui_->next_month};
    const auto add_buttons = [&order](QToolBar& bar) {
        for (QAction* action : bar.actions()) order.push_back(bar.widgetForAction(action));
    };
    add_buttons(*ui_->Toolbar1);
    order.push_back(ui_->calendar_grid);
    add_buttons(*ui_->Toolbar2);
    for (QWidget* part : std::initializer_list<QWidget*>{ui_->Text1, ui_->lv2, ui_->Command2,
                                                         ui_->recommendations}) {
        order.push_back(part);
    }
    for (std::size_t n = 1; n < order.size(); ++n) setTabOrder(order[n - 1], order[n]);
}

void MealPlan::run(const std::function<void()>& command) {
    if (busy_) return;
    busy_ = true;
    main_window().set_status(message_panel, "");
    trap_in_screen(command);
    busy_ = false;
    update_commands();
}

void MealPlan::when_triggered(QAction* action, std::function<void()> command) {
    connect(action, &QAction::triggered, this, [this, command] { run(command); });
}

void MealPlan::set_up_commands() {
    when_triggered(ui_->Toolbar1_2, [this] { go_to_today(); });
    when_triggered(ui_->Toolbar2_1, [this] { open_recipes(); });
    when_triggered(ui_->Toolbar2_2, [this] { open_inventory(); });
    when_triggered(ui_->Toolbar2_3, [this] { remove_selected(); });
    when_triggered(ui_->Toolbar2_4, [this] { edit_audited(); });
    when_triggered(ui_->mealplan_mod_qty, [this] { ask_quantity(); });
    const std::pair<QAction*, PopupChoice> choices[] = {
        {ui_->POPMenu_Cut, popup_cut},           {ui_->POPMenu_Paste, popup_paste},
        {ui_->POPMenu_Delete, popup_delete},     {ui_->POPMenu_Copy, popup_copy},
        {ui_->popmenu_add_item, popup_add_item}, {ui_->popmenu_add_meal, popup_add_meal}};
    for (const auto& [action, choice] : choices) {
        connect(action, &QAction::triggered, this, [this, choice = choice] {
            set_popup(choice);
            run([this] { apply_popup(); });
        });
    }
    connect(ui_->Command2, &QPushButton::clicked, this, [this] { run([this] { refresh_all(); }); });
    enter_presses_buttons(*this);
}

void MealPlan::set_up_keys() {
    on_keys(*this, QKeySequence::Refresh, [this] { ui_->Command2->click(); });
    for (QWidget* part : findChildren<QWidget*>()) {
        if (part->focusPolicy() != Qt::NoFocus) part->installEventFilter(this);
    }
    ui_->lv2->viewport()->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, &MealPlan::follow_focus);
}

// With large text there is room for the pictures only; their names are in the tooltips.
void MealPlan::fit_day_commands() {
    QToolBar& bar = *ui_->Toolbar2;
    bar.setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    if (bar.sizeHint().width() > bar.width()) bar.setToolButtonStyle(Qt::ToolButtonIconOnly);
}

// Not every system makes a request for the context menu of these keys.
void MealPlan::open_menu_by_keys(QWidget& part) {
    on_keys(part, QKeySequence(Qt::SHIFT | Qt::Key_F10), [&part] {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), part.mapToGlobal(QPoint()));
        QApplication::sendEvent(&part, &event);
    });
}

void MealPlan::closeEvent(QCloseEvent* event) {
    event->setAccepted(!busy_);
}

// A box may have to be shown, which must wait until the window stands.
void MealPlan::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
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

// Names, stock and plans may have changed while the user was elsewhere. No box here: it would move
// the focus again.
void MealPlan::follow_focus(const QWidget* before, const QWidget* now) {
    const auto is_inside = [this](const QWidget* widget) {
        return widget != nullptr && isAncestorOf(widget);
    };
    if (busy_ || !is_inside(now) || is_inside(before)) return;
    trap(
        [this] {
            draw_calendar();
            show_plan();
            renew_totals();
        },
        [](const Fault&) {});
    update_commands();
}

void MealPlan::update_commands() {
    const bool open = !day_is_audited();
    for (QAction* action :
         {ui_->Toolbar2_1, ui_->Toolbar2_2, ui_->Toolbar2_3, ui_->popmenu_add_item,
          ui_->popmenu_add_meal, ui_->mealplan_mod_qty, ui_->Recommend_Add_Meal}) {
        action->setEnabled(open);
    }
    ui_->Toolbar2_4->setEnabled(!open && day_is_held());
    ui_->POPMenu_Paste->setEnabled(day_clipboard.filled);
}

void MealPlan::say(const QString& text) {
    main_window().set_status(message_panel, typed_text(text));
}

}  // namespace tavernook
