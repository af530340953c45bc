#include "screens/planner/day_pane.h"

#include <QHeaderView>
#include <QMenu>
#include <QResizeEvent>
#include <QScrollBar>
#include <QToolButton>
#include <algorithm>

#include "basics/number_text.h"
#include "core/money_text.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "planning/day_keys.h"
#include "planning/day_totals.h"
#include "screens/parts/guard.h"
#include "screens/parts/icons.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/plan_names.h"
#include "screens/parts/rows_in_view.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/toolbar_parts.h"
#include "screens/planner/planner_parts.h"
#include "screens/planner/selected_day.h"
#include "ui_day_pane.h"

namespace tavernook {

namespace {

enum Column { name_column, quantity_column, unit_column };

// A row is its kind, the number of the recipe or item, and the place on the day.
constexpr i16 recipe_kind = 1;
constexpr i16 item_kind = 2;

bool is_recipe(RowId row) {
    return part_of(row, 0) == recipe_kind;
}

i16 number_of(RowId row) {
    return part_of(row, 1);
}

i16 place_on_day(RowId row) {
    return part_of(row, 2);
}

QString key_of(RowId row) {
    return shown_text(is_recipe(row) ? meal_key(number_of(row), place_on_day(row))
                                     : item_key(number_of(row), place_on_day(row)));
}

QString name_of(RowId row) {
    return is_recipe(row) ? recipe_name(number_of(row)) : item_name(number_of(row));
}

QString unit_of(RowId row) {
    return is_recipe(row) ? recipe_unit(number_of(row)) : serving_unit(number_of(row));
}

std::vector<RowId> rows_of(i16 slot) {
    std::vector<RowId> rows;
    const auto add = [&rows](i16 kind, const auto& places) {
        for (i16 place = 1; place <= day_places; ++place) {
            const i16 number = places[static_cast<std::size_t>(place)];
            if (number != 0) rows.push_back(row_id(kind, number, place));
        }
    };
    add(recipe_kind, row_or_none(days, slot).planned_meal);
    add(item_kind, row_or_none(days, slot).planned_item);
    return rows;
}

QFont larger(QFont font, double times) {
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * times);
    return font;
}

}  // namespace

DayPane::DayPane(QWidget* parent)
    : QWidget(parent),
      ui_(laid_out<Ui::DayPane>(*this)),
      day_list_(*ui_->lv2),
      rows_(new RowsModel(columns(), this)) {
    rows_->set_key(key_of);
    set_up_commands();
    set_up_list();
    set_up_labels();
    entry().set_collector(*ui_->Text2);
}

DayPane::~DayPane() = default;

// --- how it is put together --------------------------------------------------------------------

void DayPane::set_up_commands() {
    QToolBar& bar = *ui_->Toolbar2;
    fill_toolbar(*this, bar, {{1, "recipes"}, {2, "inventory"}, {3, "delete"}, {4, "edit"}});
    const int side = fontMetrics().height() * 3 / 2;
    bar.setIconSize(QSize(side, side));
    bar.installEventFilter(this);
    auto* first = qobject_cast<QToolButton*>(bar.widgetForAction(ui_->Toolbar2_1));
    first->setAutoRaise(false);
    first->setFont(larger(first->font(), 1.2));
    const std::pair<QAction*, void (DayPane::*)()> commands[] = {
        {ui_->Toolbar2_1, &DayPane::recipes_wanted},
        {ui_->Toolbar2_2, &DayPane::items_wanted},
        {ui_->Toolbar2_3, &DayPane::removal_wanted},
        {ui_->Toolbar2_4, &DayPane::edit_wanted},
        {ui_->mealplan_mod_qty, &DayPane::quantity_wanted}};
    for (const auto& [action, signal] : commands) {
        connect(action, &QAction::triggered, this, signal);
    }
    on_keys(day_list_, Qt::Key_F2, [this] { ui_->mealplan_mod_qty->trigger(); });
    on_keys(day_list_, QKeySequence::Delete, [this] { ui_->Toolbar2_3->trigger(); });
}

void DayPane::set_up_list() {
    dress_list(day_list_);
    follow_font_size(day_list_);
    day_list_.setModel(rows_);
    day_list_.setDragDropMode(QAbstractItemView::DropOnly);
    day_list_.setDropIndicatorShown(false);
    day_list_.verticalScrollBar()->setObjectName(QStringLiteral("FlatScrollBar1"));
    day_list_.setMinimumHeight(day_list_.fontMetrics().height() * 4);
    day_list_.setMinimumWidth(letters_wide(*this, 36));
    day_list_.header()->setSectionResizeMode(name_column, QHeaderView::Stretch);
    give_columns_room(day_list_, {{quantity_column, 10}, {unit_column, 13}});
    connect(&day_list_, &QTreeView::activated, this, [this](const QModelIndex& index) {
        Q_EMIT opened(index.data(RowsModel::key_role).toString().toStdString());
    });
    connect(&day_list_, &QTreeView::customContextMenuRequested, this, &DayPane::show_popup);
    connect(rows_, &RowsModel::dropped, this, &DayPane::dropped);
    mark_first_row_when_entered(day_list_);
}

std::vector<RowsColumn> DayPane::columns() {
    const QIcon recipe = icon(QStringLiteral("recipes"));
    const QIcon item = icon(QStringLiteral("inventory"));
    return {{.title = tr("Name"),
             .text = name_of,
             .icon = [recipe, item](RowId row) { return is_recipe(row) ? recipe : item; },
             .description = [](RowId row) { return is_recipe(row) ? tr("Recipe") : tr("Item"); }},
            {.title = QStringLiteral("Quantity"),
             .text = [this](RowId row) { return shown_text(number_text(quantity_of(row))); },
             .number = [this](RowId row) { return quantity_of(row); },
             .alignment = on_the_right},
            {.title = tr("Unit"), .text = unit_of}};
}

void DayPane::set_up_labels() {
    ui_->Label6->setFont(larger(ui_->Label6->font(), 1.25));
    for (QLabel* label : {ui_->calories_total, ui_->fat_total, ui_->cost_total}) {
        label->setFont(larger(label->font(), 1));
    }
}

std::vector<QWidget*> DayPane::tab_order() const {
    std::vector<QWidget*> order;
    for (QAction* action : ui_->Toolbar2->actions()) {
        order.push_back(ui_->Toolbar2->widgetForAction(action));
    }
    order.push_back(ui_->Text1);
    order.push_back(&day_list_);
    return order;
}

ScanEntry& DayPane::entry() const {
    return *ui_->Text1;
}

QWidget& DayPane::list() const {
    return day_list_;
}

void DayPane::set_drop_rule(std::function<bool(const QString&)> rule) {
    rows_->set_drop_rule(std::move(rule));
}

bool DayPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->Toolbar2) {
        if (event->type() == QEvent::FontChange) fit_commands();
        if (event->type() == QEvent::Resize) {
            const auto& resize = *static_cast<QResizeEvent*>(event);
            if (resize.size().width() != resize.oldSize().width()) fit_commands();
        }
    }
    return QWidget::eventFilter(watched, event);
}

// With large text there is room for the pictures only; their names are in the tooltips.
void DayPane::fit_commands() {
    QToolBar& bar = *ui_->Toolbar2;
    bar.setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    if (bar.sizeHint().width() > bar.width()) bar.setToolButtonStyle(Qt::ToolButtonIconOnly);
}

// --- what is shown -----------------------------------------------------------------------------

void DayPane::show_date(const QDate& date) {
    const Date day = date_of(date);
    ui_->Label6->setText(
        shown_text(format_date(day, "dddd") + " - " + format_date(day, "MM/DD/YYYY")));
}

void DayPane::show_plan() {
    slot_ = slot_shown();
    refill_in_place(day_list_, *rows_, rows_of(slot_));
    set_editable(day_is_held() && !day_is_audited());
    show_state();
}

void DayPane::clear() {
    slot_ = 0;
    rows_->set_rows({});
    set_editable(false);
}

f64 DayPane::quantity_of(RowId row) const {
    const DayQuantityRecord& quantities = row_or_none(day_quantities, slot_);
    const auto place = static_cast<std::size_t>(place_on_day(row));
    return is_recipe(row) ? quantities.meal_servings[place] : quantities.item_quantity[place];
}

void DayPane::show_state() {
    const bool audited = day_is_audited() && day_is_held();
    const bool planned = rows_->rowCount() > 0;
    ui_->day_state->setText(audited   ? tr("Audited: taken out of the stock")
                            : planned ? tr("Planned")
                                      : tr("Nothing planned yet"));
    const int side = fontMetrics().height();
    const QIcon mark = icon(audited ? QStringLiteral("audited") : QStringLiteral("planned"));
    ui_->day_state_icon->setPixmap(
        audited || planned ? mark.pixmap(QSize(side, side), devicePixelRatioF()) : QPixmap());
    ui_->day_state_icon->setVisible(audited || planned);
    hint_when_empty(day_list_, audited ? tr("Nothing is planned on this day.")
                                       : tr("Drop a recipe or an item here, scan a code, or press "
                                            "\"Add Recipe\"."));
}

void DayPane::set_editable(bool editable) {
    day_list_.viewport()->setBackgroundRole(editable ? QPalette::Base : QPalette::Window);
}

void DayPane::set_commands(bool may_plan, bool may_edit_audited) {
    for (QAction* action :
         {ui_->Toolbar2_1, ui_->Toolbar2_2, ui_->Toolbar2_3, ui_->mealplan_mod_qty}) {
        action->setEnabled(may_plan);
    }
    ui_->Toolbar2_4->setEnabled(may_edit_audited);
}

void DayPane::show_totals(const DayTotals& totals) {
    ui_->calories_total->setText(shown_text(totals.calories_text));
    ui_->fat_total->setText(shown_text(totals.fat_text));
    ui_->cost_total->setText(shown_text(totals.cost_text));
}

void DayPane::show_no_totals() {
    DayTotals none;
    none.calories_text = "0";
    none.fat_text = "0";
    none.cost_text = money_text(0, "##,##0.00");
    show_totals(none);
}

void DayPane::follow_changes() {
    if (!seen_.is_stale()) return;
    show_plan();
    renew_totals();
    seen_.renew();
}

void DayPane::renew_totals() {
    const i16 slot = slot_shown();
    if (slot == 0) return show_no_totals();
    quietly([&] { show_totals(day_totals(days[slot], day_quantities[slot])); });
}

void DayPane::tell_date(const QString& date) {
    entry().setAccessibleDescription(date);
}

// --- the selected row --------------------------------------------------------------------------

std::string DayPane::selected_key() const {
    const QModelIndexList rows = day_list_.selectionModel()->selectedRows();
    return rows.isEmpty() ? "" : rows.first().data(RowsModel::key_role).toString().toStdString();
}

QString DayPane::selected_quantity() const {
    return day_list_.currentIndex().siblingAtColumn(quantity_column).data().toString();
}

int DayPane::current_row() const {
    return day_list_.currentIndex().row();
}

void DayPane::mark_row_at(int row) {
    const int last = rows_->rowCount() - 1;
    if (last >= 0) day_list_.setCurrentIndex(rows_->index(std::min(row, last), 0));
}

void DayPane::show_popup() {
    if (selected_key().empty()) return;
    const QRect row = day_list_.visualRect(day_list_.currentIndex());
    ui_->mealplanpop->popup(day_list_.viewport()->mapToGlobal(row.bottomLeft()));
}

}  // namespace tavernook
