#include "screens/cookbook/ingredients_pane.h"

#include <QHeaderView>
#include <QMenu>
#include <algorithm>
#include <map>

#include "basics/number_text.h"
#include "screens/parts/drag_text.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/rows_in_view.h"
#include "screens/parts/shown_text.h"
#include "ui_ingredients_pane.h"

namespace tavernook {

IngredientsPane::IngredientsPane(QWidget* parent)
    : QWidget(parent), ui_(laid_out<Ui::IngredientsPane>(*this)) {
    const auto name = [this](RowId row) { return shown_text(line(row).name); };
    const auto amount = [this](RowId row) { return shown_text(line(row).amount); };
    const auto number = [this](RowId row) { return leading_number(line(row).amount); };
    model_ = new RowsModel({{.title = tr("Ingredient"), .text = name, .tip = name},
                            {.title = tr("Amount"),
                             .text = amount,
                             .number = number,
                             .alignment = on_the_right,
                             .tip = amount}},
                           this);
    model_->set_key([](RowId row) { return QStringLiteral("%1t").arg(part_of(row, 0)); });
    model_->set_drop_rule(
        [this](const QString& text) { return has_recipe_ && dragged(text).item() != 0; });
    set_up_list();
    set_up_keys();
    tell_of_buttons();
    set_has_recipe(false);
}

IngredientsPane::~IngredientsPane() = default;

void IngredientsPane::set_up_list() {
    QTreeView& list = *ui_->ingredient_list;
    dress_list(list);
    follow_font_size(list);
    list.setModel(model_);
    list.setDropIndicatorShown(false);
    list.setMinimumWidth(letters_wide(list, 30));
    list.header()->setSectionResizeMode(name_column, QHeaderView::Stretch);
    list.header()->resizeSection(amount_column, letters_wide(list, 15));
    connect(&list, &QTreeView::activated, ui_->open_item_button, &QAbstractButton::click);
    connect(&list, &QTreeView::customContextMenuRequested, this, &IngredientsPane::show_menu);
    connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &IngredientsPane::update_buttons);
    connect(
        model_, &RowsModel::dropped, this,
        [this](const QString& text) {
            if (const i16 item = dragged(text).item()) Q_EMIT item_dropped(item);
        },
        Qt::QueuedConnection);
}

void IngredientsPane::set_up_keys() {
    QTreeView& list = *ui_->ingredient_list;
    on_keys(list, Qt::Key_F2, [this] { ui_->change_quantity_button->click(); });
    on_keys(list, Qt::Key_Insert, [this] { ui_->add_ingredient_button->click(); });
    on_keys(list, QKeySequence::Delete, [this] {
        if (marked_item() != 0) ui_->remove_ingredient_button->click();
    });
}

void IngredientsPane::tell_of_buttons() {
    connect(ui_->add_ingredient_button, &QAbstractButton::clicked, this,
            &IngredientsPane::add_wanted);
    connect(ui_->change_quantity_button, &QAbstractButton::clicked, this,
            &IngredientsPane::quantity_wanted);
    connect(ui_->open_item_button, &QAbstractButton::clicked, this, &IngredientsPane::open_wanted);
    connect(ui_->remove_ingredient_button, &QAbstractButton::clicked, this,
            &IngredientsPane::remove_wanted);
}

void IngredientsPane::show_lines(std::vector<IngredientLine> lines) {
    std::vector<RowId> rows;
    std::map<i16, i16> times;
    lines_.clear();
    for (IngredientLine& line : lines) {
        const RowId row = row_id(line.item, times[line.item]++);
        rows.push_back(row);
        lines_.emplace_back(row, std::move(line));
    }
    refill_in_place(*ui_->ingredient_list, *model_, std::move(rows));
    update_buttons();
}

void IngredientsPane::set_has_recipe(bool has_recipe) {
    has_recipe_ = has_recipe;
    hint_when_empty(*ui_->ingredient_list,
                    has_recipe
                        ? tr("Press \"Add Ingredient\", or drag items here from the inventory.")
                        : tr("Choose a recipe, or press \"New Recipe\"."));
    update_buttons();
}

void IngredientsPane::update_buttons() {
    const bool is_marked = has_recipe_ && marked_item() != 0;
    ui_->add_ingredient_button->setEnabled(has_recipe_);
    ui_->remove_ingredient_button->setEnabled(has_recipe_);
    ui_->change_quantity_button->setEnabled(is_marked);
    ui_->open_item_button->setEnabled(is_marked);
}

RowId IngredientsPane::marked_row() const {
    const std::vector<RowId> rows = selected_rows(*ui_->ingredient_list, *model_);
    return rows.empty() ? no_row : rows.front();
}

i16 IngredientsPane::marked_item() const {
    return part_of(marked_row(), 0);
}

std::string IngredientsPane::marked_key() const {
    const i16 item = marked_item();
    return item != 0 ? std::to_string(item) + "t" : std::string();
}

const IngredientLine& IngredientsPane::line(RowId row) const {
    static const IngredientLine none;
    const auto found = std::find_if(lines_.begin(), lines_.end(),
                                    [row](const auto& shown) { return shown.first == row; });
    return found != lines_.end() ? found->second : none;
}

void IngredientsPane::show_menu(const QPoint& place) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("list_menu"));
    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{
             ui_->add_ingredient_button, ui_->change_quantity_button, ui_->open_item_button,
             ui_->remove_ingredient_button}) {
        QAction* action = menu.addAction(button->text());
        action->setEnabled(button->isEnabled());
        connect(action, &QAction::triggered, button, &QAbstractButton::click);
    }
    menu.exec(ui_->ingredient_list->viewport()->mapToGlobal(place));
}

std::vector<QWidget*> IngredientsPane::parts_in_order() const {
    return {ui_->ingredient_list, ui_->add_ingredient_button, ui_->change_quantity_button,
            ui_->open_item_button, ui_->remove_ingredient_button};
}

}  // namespace tavernook
