#include "screens/cookbook/Mealbuilder.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QToolButton>
#include <optional>

#include "basics/number_text.h"
#include "basics/text.h"
#include "core/catagories.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "inventory/item_form.h"
#include "platform/platform.h"
#include "recipes/catagory_removal.h"
#include "recipes/meals.h"
#include "recipes/recipe_names.h"
#include "screens/cookbook/ingredients_model.h"
#include "screens/cookbook/recipe_tree_model.h"
#include "screens/parts/icons.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/name_boxes.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/toolbar_parts.h"
#include "screens/text/recipe_pane.h"
#include "ui_Mealbuilder.h"

namespace tavernook {

namespace {

constexpr i16 general_catagory = 1;

QString planner() {
    return QStringLiteral("MealPlan");
}

i16 number_before(std::string_view key, char letter) {
    if (key.size() < 2 || key.back() != letter) return 0;
    return round_to_i16(leading_number(key.substr(0, key.size() - 1)));
}

}  // namespace

Mealbuilder::Mealbuilder(QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::Mealbuilder>()),
      model_(new RecipeTreeModel(this)),
      ingredients_(new IngredientsModel(this)),
      sorted_ingredients_(sorted_rows_of(*ingredients_, this)),
      unit_names_(new QStringListModel(this)) {
    ui_->setupUi(this);
    setWindowIcon(icon(QStringLiteral("recipes")));
    set_up_toolbar();
    set_up_tree();
    set_up_list();
    set_up_serving();
    set_up_document();
    set_up_sizes();
    set_up_tab_order();
    set_up_commands();
    set_up_keys();
    enter_presses_buttons(*this);
    set_mealbuilder(this);
    populate_tree();
    show_nothing();
}

// Another screen of its kind may have taken its place meanwhile; the focus may still move while the
// parts go.
Mealbuilder::~Mealbuilder() {
    disconnect(qApp, nullptr, this, nullptr);
    if (mealbuilder() == this) set_mealbuilder(nullptr);
}

void Mealbuilder::set_up_toolbar() {
    fill_toolbar(
        *this, *ui_->Toolbar1,
        {{1, "new_item"}, {2, "new_category"}, {3, "delete"}, {4, "refresh"}, {5, "meal_plan"}});
    const int line = fontMetrics().height();
    ui_->Toolbar1->setIconSize(QSize(line * 3 / 2, line * 3 / 2));
    ui_->Toolbar1->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
}

// Shares of the room until the user arranges them otherwise: most of it is for the text, in a small
// window too.
void Mealbuilder::set_up_sizes() {
    ui_->main_splitter->setSizes({300, 900});
    ui_->main_splitter->setStretchFactor(0, 0);
    ui_->main_splitter->setStretchFactor(1, 1);
    ui_->recipe_splitter->setSizes({260, 500});
    ui_->ingredients_splitter->setSizes({600, 300});
    ui_->ingredients_splitter->setStretchFactor(0, 1);
    ui_->ingredients_splitter->setStretchFactor(1, 0);
    ui_->ingredient_list->setMinimumWidth(letters_wide(*ui_->ingredient_list, 30));
    ui_->filter->setMinimumWidth(letters_wide(*ui_->filter, 14));
    ui_->recipe_tree->setMinimumWidth(letters_wide(*ui_->recipe_tree, 24));
    QFont large = ui_->recipe_heading->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.3);
    ui_->recipe_heading->setFont(large);
}

// As one reads: commands, tree, ingredients, figures, text.
void Mealbuilder::set_up_tab_order() {
    std::vector<QWidget*> order;
    for (QAction* action : ui_->Toolbar1->actions()) {
        order.push_back(ui_->Toolbar1->widgetForAction(action));
    }
    for (QWidget* part : std::initializer_list<QWidget*>{
             ui_->filter, ui_->recipe_tree, ui_->ingredient_list, ui_->add_ingredient_button,
             ui_->change_quantity_button, ui_->open_item_button, ui_->remove_ingredient_button,
             ui_->serving_size, ui_->serving_unit, ui_->write_anew_button}) {
        order.push_back(part);
    }
    for (QWidget* part : pane_->parts_in_order()) order.push_back(part);
    order.push_back(ui_->close_button);
    for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void Mealbuilder::run(const std::function<void()>& command) {
    if (busy_) return;
    busy_ = true;
    trap_in_screen(command);
    busy_ = false;
    update_commands();
}

void Mealbuilder::when_clicked(const char* name, const std::function<void()>& command) {
    on_command(*this, name, [this, command] { run(command); });
}

void Mealbuilder::set_up_commands() {
    when_clicked("Toolbar1_1", [this] { new_recipe(); });
    when_clicked("Toolbar1_2", [this] { new_category(); });
    when_clicked("Toolbar1_3", [this] { delete_marked(); });
    when_clicked("Toolbar1_4", [this] { refresh(); });
    when_clicked("Toolbar1_5", [this] { add_to_plan(); });
    when_clicked("add_ingredient_button", [this] { choose_ingredient(); });
    when_clicked("change_quantity_button", [this] { change_quantity(); });
    when_clicked("open_item_button", [this] { open_item(); });
    when_clicked("remove_ingredient_button", [this] { remove_selected(); });
    when_clicked("write_anew_button", [this] { write_anew(); });
    connect(ui_->close_button, &QAbstractButton::clicked, this, [this] { close_screen(*this); });
    connect(qApp, &QApplication::focusChanged, this, &Mealbuilder::follow_focus);
}

void Mealbuilder::update_commands() {
    const QModelIndex marked = ui_->recipe_tree->currentIndex();
    const bool recipe = has_recipe();
    ui_->Toolbar1_3->setEnabled(marked.isValid());
    rename_->setEnabled(marked.isValid());
    ui_->Toolbar1_4->setEnabled(recipe);
    ui_->Toolbar1_5->setEnabled(recipe);
    ingredients_->set_takes_drops(recipe);
    for (QWidget* part : std::initializer_list<QWidget*>{
             ui_->add_ingredient_button, ui_->remove_ingredient_button, ui_->figures_group}) {
        part->setEnabled(recipe);
    }
    const bool chosen = recipe && selected_item() != 0;
    ui_->change_quantity_button->setEnabled(chosen);
    ui_->open_item_button->setEnabled(chosen);
    hint_when_empty(*ui_->ingredient_list,
                    recipe ? tr("Press \"Add Ingredient\", or drag items here from the inventory.")
                           : tr("Choose a recipe, or press \"New Recipe\"."));
    show_name();
    show_notice();
}

void Mealbuilder::tell(const std::string& text) {
    main_window().set_status(message_panel, text);
}

// Items, units and recipes may have changed while the user was elsewhere. No box here: it would
// move the focus again. A name that is being typed is left alone.
void Mealbuilder::follow_focus(const QWidget* before, const QWidget* now) {
    const auto is_inside = [this](const QWidget* widget) {
        return widget != nullptr && isAncestorOf(widget);
    };
    if (busy_ || !is_inside(now) || is_inside(before)) return;
    if (ui_->recipe_tree->viewport()->isAncestorOf(now)) return;
    trap(
        [this] {
            if (has_recipe() && !is_live_meal(shown_)) show_nothing();
            rebuild_tree();
            fill_list(shown_);
        },
        [](const Fault&) {});
    update_commands();
}

// --- what is shown ---------------------------------------------------------------------------

void Mealbuilder::setid(i16 recipe) {
    if (recipe != shown_) {
        trap_in_screen([this] { take_serving(); });  // what was typed belongs to the old one
        clear_list();
    }
    shown_ = recipe;
    set_document(Document::none);
    update_commands();
}

void Mealbuilder::set_meal(i16 recipe) {
    trap_in_screen([&] { show_recipe(recipe); });
    update_commands();
}

void Mealbuilder::show_recipe(i16 recipe) {
    const QString present = has_recipe() ? QStringLiteral("%1c").arg(shown_) : QString();
    if (!save_document() || !is_live_meal(recipe)) return select_key(present);
    const bool there_already = recipe == shown_ && holds_text();
    if (!there_already) document_ = Document::unread;  // the pane is still another recipe's
    shown_ = recipe;
    select_key(QStringLiteral("%1c").arg(recipe));
    populate_tree_list(recipe);
    if (!there_already) Load_RTF(recipe);
}

void Mealbuilder::show_nothing() {
    shown_ = 0;
    clear_list();
    clear_document();
    update_commands();
}

// --- commands --------------------------------------------------------------------------------

void Mealbuilder::new_recipe() {
    const auto name = boxes().input("Enter a new recipe name", "New Recipe", "");
    if (!name || trim(*name).empty()) return;
    const i16 catagory = selected_catagory();
    if (!save_document()) return;
    clear_list();
    new_meal(trim(*name), catagory);
    project_modified = i16_true;
    set_document(Document::fresh);
    populate_tree_list(shown_);
    pane_->setFocus(Qt::OtherFocusReason);
}

void Mealbuilder::new_category() {
    const auto name =
        boxes().input("Enter name of new Recipe catagory.", "New Recipe Catagory", "");
    if (!name || trim(*name).empty()) return;
    const i16 row = new_catagory(trim(*name), recipe_category_type, selected_catagory());
    project_modified = i16_true;
    ui_->filter->clear();  // it would hide a category that is empty
    select_key(QStringLiteral("%1r").arg(row));
}

void Mealbuilder::delete_marked() {
    const QModelIndex marked = ui_->recipe_tree->currentIndex();
    if (!marked.isValid()) return;
    pane_->set_editable(false);
    if (const i16 recipe = model_->recipe_at(marked)) {
        delete_recipe(recipe);
    } else {
        delete_category(model_->is_root(marked) ? general_catagory : model_->catagory_at(marked));
    }
    populate_tree();
}

// What goes is on show first, so that its text can be kept.
void Mealbuilder::delete_recipe(i16 recipe) {
    if (recipe != shown_) show_recipe(recipe);
    if (recipe != shown_) return;
    const QModelIndex above = ui_->recipe_tree->currentIndex().parent();
    const QString next = above.data(RecipeTreeModel::key_role).toString();
    const std::string name(meals[recipe].name.trimmed());
    if (delete_meal(recipe, false) != meal_deleted) return;
    project_modified = i16_true;
    tell("The recipe \"" + name + "\" is deleted.");
    const bool kept = keep_deleted_text(recipe);
    if (kept) {
        show_nothing();
    } else {
        shown_ = 0;
        clear_list();
        set_document(Document::unread);
    }
    select_key(next);
}

void Mealbuilder::delete_category(i16 catagory) {
    if (!save_document()) return;
    if (delete_catagory(catagory) != 0) project_modified = i16_true;
    if (has_recipe() && !is_live_meal(shown_)) show_nothing();
}

void Mealbuilder::refresh() {
    project_modified = i16_true;
    populate_tree();
    const i16 marked = model_->recipe_at(ui_->recipe_tree->currentIndex());
    populate_tree_list(marked != 0 ? marked : shown_);
    if (has_recipe() && !holds_text()) Load_RTF(shown_);
}

void Mealbuilder::add_to_plan() {
    const std::string unit = figures_.unit;
    const auto typed =
        boxes().input("Meal Quantity to Add. 1 Servings = 1 " + unit, "Meal Quantity", "1");
    if (!typed) return;
    const f64 quantity = leading_number(with_decimal_point(*typed));
    if (quantity == 0) return;
    load_screen(planner());
    // The planner tells what is planned now.
    if (ports::MealPlan* plan = meal_plan()) plan->add_meal(shown_, quantity);
}

// --- keys ------------------------------------------------------------------------------------

i16 Mealbuilder::get_cat_index(std::string_view key) {
    return number_before(key, 'r');
}
i16 Mealbuilder::get_child_index(std::string_view key) {
    return number_before(key, 'c');
}
i16 Mealbuilder::get_item_index(std::string_view key) {
    return number_before(key, 't');
}

// --- leaving ---------------------------------------------------------------------------------

bool Mealbuilder::settle_edits() {
    if (save_document()) {
        save_failed_ = false;
        return true;
    }
    if (!save_failed_) {
        save_failed_ = true;
        return false;
    }
    const std::string name = is_live_meal(shown_) ? std::string(meals[shown_].name.trimmed()) : "";
    return boxes().message("The text of \"" + name +
                               "\" cannot be saved.  Do you want to go on without saving it?",
                           Buttons::yes_no, "Recipe Manager", DefaultButton::no) == Answer::yes;
}

void Mealbuilder::closeEvent(QCloseEvent* event) {
    bool may_close = false;
    trap_in_screen([&] { may_close = !busy_ && settle_edits(); });
    event->setAccepted(may_close);
    if (!may_close || return_mode_ != returns_to_planner) return;
    return_mode_ = returns_nowhere;
    QMetaObject::invokeMethod(
        qApp, [] { show_screen(planner()); }, Qt::QueuedConnection);
}

}  // namespace tavernook
