// The recommended meals of the planner.
#include <QApplication>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <algorithm>

#include "core/project_data.h"
#include "core/trap.h"
#include "planning/planner_state.h"
#include "planning/recommendations.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/shown_text.h"
#include "screens/planner/MealPlan.h"
#include "screens/planner/recommendations_model.h"
#include "ui_MealPlan.h"

namespace tavernook {

void MealPlan::set_up_recommendations() {
    QTreeView& list = *ui_->recommendations;
    dress_list(list);
    follow_font_size(list);
    list.setModel(recommended_);
    hint_when_empty(list, tr("Recipes that use up what is past its date come here."));
    QHeaderView& header = *list.header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(RecommendationsModel::meal_column, QHeaderView::Stretch);
    header.resizeSection(RecommendationsModel::item_column, letters_wide(*this, 32));
    header.resizeSection(RecommendationsModel::quantity_column, letters_wide(*this, 12));
    connect(&list, &QTreeView::activated, this,
            [this] { run([this] { plan_recommended(add_recommended_meal_unless_zero); }); });
    ui_->Label4->installEventFilter(this);
    const auto show_popup = [this] {
        if (selected_recommendation().empty()) return;
        update_commands();
        const QRect row = ui_->recommendations->visualRect(ui_->recommendations->currentIndex());
        ui_->Recommendations_POPUP->popup(
            ui_->recommendations->viewport()->mapToGlobal(row.bottomLeft()));
    };
    connect(&list, &QTreeView::customContextMenuRequested, this, show_popup);
    open_menu_by_keys(list);
    when_triggered(ui_->Recommend_Add_Meal, [this] { plan_recommended(add_recommended_meal); });
    when_triggered(ui_->Recommend_View_Item,
                   [this] { show_item(recommended_item(selected_recommendation())); });
    when_triggered(ui_->Recommend_View_Meal,
                   [this] { show_recipe(recommended_recipe(selected_recommendation())); });
}

// What was selected and in view stays so.
void MealPlan::populate_meal_recommendations() {
    trap_in_screen([this] {
        QTreeView& list = *ui_->recommendations;
        const QString selected = shown_text(selected_recommendation());
        const int scrolled = list.verticalScrollBar()->value();
        MealRecommendations found = meal_recommendations();
        ui_->Label4->setText(shown_text(found.caption));
        keep_caption_whole();
        recommended_->set_rows(std::move(found.rows));
        list.setAccessibleDescription(ui_->Label4->text());
        const int row = selected.isEmpty() ? -1 : recommended_->row_of(selected);
        if (row >= 0) list.setCurrentIndex(recommended_->index(row, 0));
        list.verticalScrollBar()->setValue(scrolled);
        focus_entry();
    });
}

std::string MealPlan::selected_recommendation() const {
    const QModelIndexList rows = ui_->recommendations->selectionModel()->selectedRows();
    return rows.isEmpty()
               ? ""
               : rows.first().data(RecommendationsModel::key_role).toString().toStdString();
}

void MealPlan::plan_recommended(void (*add)(std::string_view key)) {
    const std::string key = selected_recommendation();
    if (key.empty() || !may_plan()) return;
    const DayRecord day = days[current_day];
    const DayQuantityRecord quantities = day_quantities[current_day];
    add(key);
    const bool same = days[current_day] == day && day_quantities[current_day] == quantities;
    if (!same) say_planned(true, recommended_recipe(key));
    focus_entry();
}

// The caption breaks into more lines where it is narrow, and a splitter would cut them off.
void MealPlan::keep_caption_whole() {
    QLabel& caption = *ui_->Label4;
    const int wanted = std::max(0, caption.heightForWidth(caption.width()));
    if (caption.minimumHeight() != wanted) caption.setMinimumHeight(wanted);
}

// Another screen that the user works in keeps the focus.
void MealPlan::focus_entry() {
    const QWidget* now = QApplication::focusWidget();
    if (now == nullptr || isAncestorOf(now)) ui_->Text1->setFocus(Qt::OtherFocusReason);
}

}  // namespace tavernook
