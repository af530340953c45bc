// Ingredients and figures of the recipe manager.
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QSortFilterProxyModel>
#include <utility>

#include "basics/number_text.h"
#include "basics/text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/item_form.h"
#include "platform/platform.h"
#include "recipes/meals.h"
#include "recipes/recipe_names.h"
#include "screens/cookbook/Mealbuilder.h"
#include "screens/cookbook/ingredients_model.h"
#include "screens/parts/list_font.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/name_boxes.h"
#include "screens/parts/quantity_box.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"
#include "ui_Mealbuilder.h"

namespace tavernook {

namespace {

constexpr int unit_letters = 12;
constexpr const char* no_recipe = "No recipe is shown in the recipe manager.";

f64 quantity_in(i16 recipe, i16 item) {
    const MealRecord& meal = meals[recipe];
    for (std::size_t place = 1; place <= ingredient_places; ++place) {
        if (meal.ingredient_item[place] == item) return meal.ingredient_qty[place];
    }
    return 0;
}

std::string quantity_prompt(i16 item) {
    const ItemRecord& record = items[item];
    const std::string unit = name_in(units, record.serving_size_units).toStdString();
    return "Servings of " + std::string(record.name.trimmed()) +
           " (1 Serving = " + number_text(record.serving_size) + " " + text_from_utf8(unit) + ")";
}

}  // namespace

void Mealbuilder::set_up_list() {
    QTreeView& list = *ui_->ingredient_list;
    sorted_ingredients_->setSortRole(IngredientsModel::sort_role);
    dress_list(list);
    follow_font_size(list);
    list.setModel(sorted_ingredients_);
    list.setDropIndicatorShown(false);
    list.header()->setSectionResizeMode(IngredientsModel::name_column, QHeaderView::Stretch);
    list.header()->resizeSection(IngredientsModel::amount_column, letters_wide(list, 15));
    connect(&list, &QTreeView::activated, ui_->open_item_button, &QAbstractButton::click);
    connect(&list, &QTreeView::customContextMenuRequested, this, &Mealbuilder::show_list_menu);
    connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &Mealbuilder::update_commands);
    connect(
        ingredients_, &IngredientsModel::item_dropped, this,
        [this](i16 item) { run([&] { add_ingredient(item, 1.0, shown_); }); },
        Qt::QueuedConnection);
}

void Mealbuilder::set_up_serving() {
    QComboBox& unit = *ui_->serving_unit;
    unit.setModel(unit_names_);
    unit.lineEdit()->setMaxLength(unit_letters);
    unit.setFocusPolicy(Qt::StrongFocus);
    const auto store = [this] { run([this] { store_serving(); }); };
    connect(ui_->serving_size, &QLineEdit::editingFinished, this, store);
    connect(unit.lineEdit(), &QLineEdit::editingFinished, this, store);
    connect(&unit, &QComboBox::activated, this, store);
}

// --- what stands there -----------------------------------------------------------------------

void Mealbuilder::populate_tree_list(i16 recipe) {
    trap([&] { fill_list(recipe); },
         [](const Fault& fault) {
             show_fault("Recipe Manager TREELIST ERROR:" + fault.description);
         });
    update_commands();
}

// The marked ingredient stays marked, the row counting where its item stands twice.
void Mealbuilder::fill_list(i16 recipe) {
    change_list(*unit_names_, live_names(units), {ui_->serving_unit});
    if (recipe == shown_) take_serving();
    const QModelIndex marked = selected_ingredient();
    const int row = sorted_ingredients_->mapToSource(marked).row();
    const QVariant key = marked.data(IngredientsModel::key_role);
    clear_list();
    if (recipe == 0) return;
    figures_ = roll_up_shown(recipe);
    ingredients_->fill(figures_.ingredients);
    show_figures();
    ui_->serving_size->set_number(meal_serving_size[recipe]);
    shown_unit_ = name_in(units, meals[recipe].serving_size_units);
    tavernook::show_name(*ui_->serving_unit, shown_unit_);
    mark_ingredient(key, row);
}

void Mealbuilder::mark_ingredient(const QVariant& key, int row) {
    if (!key.isValid()) return;
    const QModelIndex first = ingredients_->index(0, 0);
    QModelIndex found = ingredients_->index(row, 0);
    if (found.data(IngredientsModel::key_role) != key) {
        const auto matches =
            ingredients_->match(first, IngredientsModel::key_role, key, 1, Qt::MatchExactly);
        found = matches.isEmpty() ? QModelIndex() : matches.first();
    }
    ui_->ingredient_list->setCurrentIndex(sorted_ingredients_->mapFromSource(found));
}

void Mealbuilder::clear_list() {
    figures_ = {};
    ingredients_->fill({});
    show_figures();
    ui_->serving_size->set_blank();
    shown_unit_.clear();
    tavernook::show_name(*ui_->serving_unit, {});
}

void Mealbuilder::show_figures() {
    const std::pair<QLabel*, const std::string*> labels[] = {
        {ui_->calories_caption, &figures_.calories_caption},
        {ui_->fat_caption, &figures_.fat_caption},
        {ui_->cost_caption, &figures_.cost_caption},
        {ui_->calories_per_serving, &figures_.calories_per_serving},
        {ui_->fat_per_serving, &figures_.fat_per_serving},
        {ui_->cost_per_serving, &figures_.cost_per_serving},
        {ui_->total_calories, &figures_.total_calories},
        {ui_->total_fat, &figures_.total_fat},
        {ui_->total_cost, &figures_.total_cost}};
    for (const auto& [label, text] : labels) label->setText(shown_text(*text));
}

// --- serving size and unit -------------------------------------------------------------------

// Into the table, where the user has changed them: an empty size is 0, and a text that is no unit
// leaves the unit as it is.
bool Mealbuilder::take_serving() {
    if (!is_live_meal(shown_)) return false;
    const std::string unit = typed_text(ui_->serving_unit->currentText());
    const bool other_size = ui_->serving_size->touched();
    const i16 row = ui_->serving_unit->currentText() == shown_unit_ ? i16{0} : unit_named(unit);
    if (other_size) meal_serving_size[shown_] = ui_->serving_size->value();
    if (row != 0) meals[shown_].serving_size_units = row;
    if (other_size || row != 0) project_modified = i16_true;
    const bool other_unit = ui_->serving_unit->currentText() != shown_unit_;
    if (other_unit && row == 0 && !trim(unit).empty()) {
        tell("There is no unit \"" + unit + "\"; the recipe keeps its unit.");
    }
    return other_size || other_unit;
}

void Mealbuilder::store_serving() {
    if (take_serving()) populate_tree_list(shown_);
}

// --- ingredients -----------------------------------------------------------------------------

QModelIndex Mealbuilder::selected_ingredient() const {
    const QModelIndexList rows = ui_->ingredient_list->selectionModel()->selectedRows();
    return rows.isEmpty() ? QModelIndex() : rows.first();
}

i16 Mealbuilder::selected_item() const {
    return static_cast<i16>(selected_ingredient().data(IngredientsModel::tag_role).toInt());
}

std::string Mealbuilder::selected_item_key() const {
    return selected_ingredient().data(IngredientsModel::key_role).toString().toStdString();
}

void Mealbuilder::add_ingredient(i16 item, f64 quantity, i16 recipe) {
    if (!is_live_meal(recipe)) return tell(no_recipe);
    trap_in_screen([&] {
        tavernook::add_ingredient(item, quantity, recipe);
        project_modified = i16_true;
    });
    if (recipe == shown_) populate_tree_list(recipe);
}

void Mealbuilder::set_ingredient_qty(i16 item, f64 quantity, i16 recipe) {
    if (!is_live_meal(recipe)) return tell(no_recipe);
    trap_in_screen([&] {
        tavernook::set_ingredient_qty(item, quantity, recipe);
        project_modified = i16_true;
    });
    if (recipe == shown_) populate_tree_list(recipe);
}

void Mealbuilder::choose_ingredient() {
    if (show_screen(QStringLiteral("FoodInventory")) == nullptr) return;
    food_inventory()->set_return(ports::FoodInventory::adds_to_recipe);
}

void Mealbuilder::change_quantity() {
    const i16 item = selected_item();
    if (item == 0) return;
    const std::string present = number_text(quantity_in(shown_, item));
    const auto typed = boxes().input(quantity_prompt(item), "Ingredient Quantity", present);
    if (!typed || *typed == present) return;
    if (typed->empty() || !reads_as_number(*typed)) {
        return tell("\"" + *typed + "\" is not a number; the ingredient keeps its quantity.");
    }
    set_ingredient_qty(item, leading_number(with_decimal_point(*typed)), shown_);
}

void Mealbuilder::open_item() {
    const i16 item = selected_item();
    if (item == 0 || show_screen(QStringLiteral("FoodInventory")) == nullptr) return;
    food_inventory()->view_item(item, i16_true);
    food_inventory()->set_return(ports::FoodInventory::sets_quantity_in_recipe);
}

// `remove_ingredient` takes a letter off both ends of a key, and the list's keys have none in
// front.
void Mealbuilder::remove_selected() {
    const std::string key = selected_item_key();
    remove_ingredient(shown_, key.empty() ? key : "i" + key);
    if (key.empty()) return;
    project_modified = i16_true;
    populate_tree_list(shown_);
}

void Mealbuilder::show_list_menu(const QPoint& place) {
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

}  // namespace tavernook
