#include "screens/cookbook/Mealbuilder.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <utility>

#include "basics/number_text.h"
#include "basics/text.h"
#include "core/catagories.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "inventory/item_form.h"
#include "platform/platform.h"
#include "recipes/documents.h"
#include "recipes/meals.h"
#include "recipes/recipe_names.h"
#include "screens/cookbook/document_pane.h"
#include "screens/cookbook/figures_pane.h"
#include "screens/cookbook/ingredients_pane.h"
#include "screens/cookbook/recipe_list_pane.h"
#include "screens/parts/icons.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/shown_text.h"
#include "screens/parts/tab_order.h"
#include "screens/parts/toolbar_parts.h"
#include "ui_Mealbuilder.h"

namespace tavernook {

namespace {

constexpr i16 general_catagory = 1;
constexpr std::string_view no_recipe = "No recipe is shown in the recipe manager.";
constexpr std::string_view recipe_gone = "The recipe is not there any more.";

QString planner() {
    return QStringLiteral("MealPlan");
}

QString text_of_key(std::string_view key) {
    return QString::fromLatin1(key.data(), static_cast<qsizetype>(key.size()));
}

i16 number_before(std::string_view key, char letter) {
    if (key.size() < 2 || key.back() != letter) return 0;
    return round_to_i16(leading_number(key.substr(0, key.size() - 1)));
}

std::string name_of(i16 recipe) {
    return std::string(row_or_none(meals, recipe).name.trimmed());
}

f64 quantity_in(i16 recipe, i16 item) {
    const MealRecord& meal = row_or_none(meals, recipe);
    for (std::size_t place = 1; place <= ingredient_places; ++place) {
        if (meal.ingredient_item[place] == item) return meal.ingredient_qty[place];
    }
    return 0;
}

std::string quantity_prompt(i16 item) {
    const ItemRecord& record = row_or_none(items, item);
    const std::string unit(row_or_none(units, record.serving_size_units).name.trimmed());
    return "Servings of " + std::string(record.name.trimmed()) +
           " (1 Serving = " + number_text(record.serving_size) + " " + unit + ")";
}

}  // namespace

Mealbuilder::Mealbuilder(QWidget* parent)
    : Screen(parent),
      ui_(laid_out<Ui::Mealbuilder>(*this)),
      recipes_(*ui_->tree_panel),
      ingredients_(*ui_->ingredients_panel),
      figures_pane_(*ui_->figures_group),
      document_(*ui_->document_panel) {
    setWindowIcon(icon(QStringLiteral("recipes")));
    set_up_toolbar();
    set_up_sizes();
    setFocusProxy(&recipes_);
    set_up_tab_order();
    set_up_commands();
    listen_to_panes();
    enter_presses_buttons(*this);
    set_mealbuilder(this);
    populate_tree();
    show_nothing();
}

// Another screen of its kind may have taken its place meanwhile.
Mealbuilder::~Mealbuilder() {
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
    for (const auto& parts : {recipes_.parts_in_order(), ingredients_.parts_in_order(),
                              figures_pane_.parts_in_order(), document_.parts_in_order()}) {
        order.insert(order.end(), parts.begin(), parts.end());
    }
    order.push_back(ui_->close_button);
    set_tab_order(order);
}

void Mealbuilder::set_up_commands() {
    on_command(ui_->Toolbar1_1, [this] { new_recipe(); });
    on_command(ui_->Toolbar1_2, [this] { new_category(); });
    on_command(ui_->Toolbar1_3, [this] { delete_marked(); });
    on_command(ui_->Toolbar1_4, [this] { refresh(); });
    on_command(ui_->Toolbar1_5, [this] { add_to_plan(); });
    connect(ui_->close_button, &QAbstractButton::clicked, this, [this] { close_screen(*this); });
    on_keys(*this, QKeySequence::Refresh, [this] { ui_->Toolbar1_4->trigger(); });
    on_keys(*this, QKeySequence::Find, [this] { recipes_.find(); });
}

void Mealbuilder::listen_to_panes() {
    const auto listen = [this](auto& pane, auto signal, void (Mealbuilder::*command)()) {
        connect(&pane, signal, this,
                [this, command] { run([this, command] { (this->*command)(); }); });
    };
    // A box waits until the key or the mouse button has done its work.
    connect(&recipes_, &RecipeListPane::chosen, this, &Mealbuilder::update_commands);
    connect(&recipes_, &RecipeListPane::chosen, this, &Mealbuilder::show_marked,
            Qt::QueuedConnection);
    connect(&recipes_, &RecipeListPane::narrowed, this, &Mealbuilder::update_commands);
    connect(&recipes_, &RecipeListPane::leaf_entered, this,
            [this] { document_.setFocus(Qt::TabFocusReason); });
    connect(&recipes_, &RecipeListPane::insert_wanted, ui_->Toolbar1_1, &QAction::trigger);
    connect(&recipes_, &RecipeListPane::delete_wanted, ui_->Toolbar1_3, &QAction::trigger);
    connect(&recipes_, &RecipeListPane::menu_wanted, this, &Mealbuilder::show_tree_menu);
    listen(recipes_, &RecipeListPane::rename_elsewhere, &Mealbuilder::refuse_root_name);
    listen(ingredients_, &IngredientsPane::add_wanted, &Mealbuilder::choose_ingredient);
    listen(ingredients_, &IngredientsPane::quantity_wanted, &Mealbuilder::change_quantity);
    listen(ingredients_, &IngredientsPane::open_wanted, &Mealbuilder::open_item);
    listen(ingredients_, &IngredientsPane::remove_wanted, &Mealbuilder::remove_marked);
    connect(&ingredients_, &IngredientsPane::item_dropped, this,
            [this](i16 item) { run([&] { add_ingredient(item, 1.0, shown_.now()); }); });
    listen(figures_pane_, &FiguresPane::serving_entered, &Mealbuilder::store_serving);
    connect(&document_, &DocumentPane::edited, this, [] { project_modified = i16_true; });
    listen(document_, &DocumentPane::information_wanted, &Mealbuilder::AddMealInfo);
    listen(document_, &DocumentPane::barcode_wanted, &Mealbuilder::insert_barcode);
    listen(document_, &DocumentPane::new_text_wanted, &Mealbuilder::begin_new_text);
}

void Mealbuilder::update_commands() {
    const bool has_recipe = shown_.now() != 0;
    ui_->Toolbar1_3->setEnabled(recipes_.is_anything_marked());
    ui_->Toolbar1_4->setEnabled(has_recipe);
    ui_->Toolbar1_5->setEnabled(has_recipe);
    ingredients_.set_has_recipe(has_recipe);
    figures_pane_.setEnabled(has_recipe);
    show_name();
    document_.update_notice();
}

// A text that could not be kept when its recipe was deleted stays until another one comes.
void Mealbuilder::follow_changes() {
    if (shown_ != RowRef() && shown_.now() == 0) show_nothing();
    recipes_.follow_changes();
    if (!seen_.is_stale()) return;
    follow_figures();
    seen_.renew();
}

// --- what is shown ---------------------------------------------------------------------------

void Mealbuilder::set_shown(i16 recipe) {
    shown_ = RowRef(Subject::recipes, recipe);
    recipes_.set_on_show(RecipeListPane::key_of_recipe(shown_.now()));
    document_.set_recipe(shown_);
}

// What was typed belongs to the recipe before.
void Mealbuilder::setid(i16 recipe) {
    if (recipe != shown_.now()) {
        guarded([this] { take_serving(); });
        clear_list();
    }
    set_shown(recipe);
    document_.hold_nothing();
    update_commands();
}

void Mealbuilder::set_meal(i16 recipe) {
    guarded([&] { show_recipe(recipe); });
    update_commands();
}

void Mealbuilder::show_recipe(i16 recipe) {
    if (!save_document() || !is_live_meal(recipe)) {
        return recipes_.mark(RecipeListPane::key_of_recipe(shown_.now()));
    }
    const bool is_there_already = recipe == shown_.now() && document_.holds_text();
    set_shown(recipe);
    if (!is_there_already) document_.hold_unread();
    recipes_.mark(RecipeListPane::key_of_recipe(recipe));
    populate_tree_list(recipe);
    if (!is_there_already) Load_RTF(recipe);
}

// A category is only marked; the recipe stays on show.
void Mealbuilder::show_marked() {
    const i16 recipe = recipes_.marked_leaf();
    if (recipe == 0 || (recipe == shown_.now() && document_.holds_text())) return;
    run([&] { show_recipe(recipe); });
}

void Mealbuilder::show_nothing() {
    set_shown(0);
    clear_list();
    clear_document();
    update_commands();
}

// Heading, and where the text and the barcode are found.
void Mealbuilder::show_name() {
    const i16 recipe = shown_.now();
    ui_->recipe_heading->setText(recipe != 0 ? shown_text(name_of(recipe))
                                             : tr("No recipe chosen"));
    QString places;
    if (recipe != 0) {
        places = QStringLiteral("\\recipes\\") + shown_text(document_name(recipe)) +
                 QStringLiteral("\nBarcode Name: TVK%1").arg(recipe);
    }
    ui_->Label2->setText(places);
}

void Mealbuilder::populate_tree() {
    guarded([this] { recipes_.populate(); });
    update_commands();
}

// The table has the record already; the tree only has to show it.
void Mealbuilder::add_node(std::string_view, std::string_view key, std::string_view) {
    guarded([&] {
        recipes_.populate();
        recipes_.reveal(text_of_key(key));
    });
}

void Mealbuilder::select_node(std::string_view key) {
    recipes_.mark(text_of_key(key));
    update_commands();
}

void Mealbuilder::refuse_root_name() {
    boxes().message("Can't Change name of GENERAL Category");
}

void Mealbuilder::show_tree_menu(const QPoint& on_screen) {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("tree_menu"));
    menu.addAction(ui_->Toolbar1_1);
    menu.addAction(ui_->Toolbar1_2);
    menu.addSeparator();
    menu.addAction(recipes_.rename_action());
    menu.addAction(ui_->Toolbar1_3);
    menu.addSeparator();
    menu.addAction(ui_->Toolbar1_5);
    menu.exec(on_screen);
}

// --- commands --------------------------------------------------------------------------------

void Mealbuilder::new_recipe() {
    const auto name = boxes().input("Enter a new recipe name", "New Recipe", "");
    if (!name || trim(*name).empty()) return;
    const i16 catagory = recipes_.catagory_for_new();
    if (!save_document()) return;
    clear_list();
    new_meal(trim(*name), catagory);
    project_modified = i16_true;
    document_.hold_fresh();
    populate_tree_list(shown_.now());
    document_.setFocus(Qt::OtherFocusReason);
}

void Mealbuilder::new_category() {
    const auto name =
        boxes().input("Enter name of new Recipe catagory.", "New Recipe Catagory", "");
    if (!name || trim(*name).empty()) return;
    const i16 row = new_catagory(trim(*name), recipe_category_type, recipes_.catagory_for_new());
    project_modified = i16_true;
    recipes_.show_all();  // a filter would hide a category that is empty
    recipes_.mark(RecipeListPane::key_of_catagory(row));
}

void Mealbuilder::delete_marked() {
    if (!recipes_.is_anything_marked()) return;
    document_.lock();
    if (const i16 recipe = recipes_.marked_leaf()) return delete_recipe(recipe);
    delete_category(recipes_.is_root_marked() ? general_catagory : recipes_.marked_catagory());
}

// What goes is on show first, so that its text can be kept.
void Mealbuilder::delete_recipe(i16 recipe) {
    if (recipe != shown_.now()) show_recipe(recipe);
    if (recipe != shown_.now()) return;
    const QString next = recipes_.key_around_marked();
    const std::string name = name_of(recipe);
    if (delete_meal(recipe, false) != meal_deleted) return;
    project_modified = i16_true;
    say("The recipe \"" + name + "\" is deleted.");
    if (document_.keep_deleted(recipe)) {
        show_nothing();
    } else {
        set_shown(0);
        clear_list();
        document_.hold_unread();
    }
    recipes_.mark(next);
}

void Mealbuilder::delete_category(i16 catagory) {
    if (save_document() && delete_catagory(catagory) != 0) project_modified = i16_true;
}

void Mealbuilder::refresh() {
    project_modified = i16_true;
    populate_tree();
    const i16 marked = recipes_.marked_leaf();
    populate_tree_list(marked != 0 ? marked : shown_.now());
    if (shown_.now() != 0 && !document_.holds_text()) Load_RTF(shown_.now());
}

void Mealbuilder::add_to_plan() {
    const RowRef recipe = shown_;
    const auto typed = boxes().input("Meal Quantity to Add. 1 Servings = 1 " + figures_.unit,
                                     "Meal Quantity", "1");
    if (!typed) return;
    const f64 quantity = leading_number(with_decimal_point(*typed));
    if (quantity == 0) return;
    if (recipe.now() == 0) return say(recipe_gone);
    load_screen(planner());
    // The planner tells what is planned now.
    if (ports::MealPlan* plan = meal_plan()) plan->add_meal(recipe.now(), quantity);
}

// --- ingredients and figures -----------------------------------------------------------------

void Mealbuilder::populate_tree_list(i16 recipe) {
    guarded([&] { fill_list(recipe); },
            [this](const Fault& fault) {
                clear_list();
                return "Recipe Manager TREELIST ERROR:" + fault.description;
            });
    update_commands();
}

void Mealbuilder::fill_list(i16 recipe) {
    figures_pane_.offer_units();
    if (recipe == shown_.now()) take_serving();
    if (recipe == 0) return clear_list();
    figures_ = roll_up_shown(recipe);
    ingredients_.show_lines(figures_.ingredients);
    figures_pane_.show_recipe(figures_, meal_serving_size[recipe],
                              meals[recipe].serving_size_units);
}

// What is being typed stays, and a recipe that cannot be told was told when it came.
void Mealbuilder::follow_figures() {
    const i16 recipe = shown_.now();
    figures_pane_.offer_units();
    if (recipe == 0) return;
    if (!figures_pane_.is_edited()) {
        if (!quietly([&] { fill_list(recipe); })) clear_list();
        return;
    }
    quietly([&] {
        figures_ = roll_up(meals[recipe], meal_serving_size[recipe]);
        ingredients_.show_lines(figures_.ingredients);
        figures_pane_.show_figures(figures_);
    });
}

void Mealbuilder::clear_list() {
    figures_ = {};
    ingredients_.show_lines({});
    figures_pane_.show_nothing();
}

// Into the table, where the user has changed them: an empty size is 0, and a text that is no unit
// leaves the unit as it is.
bool Mealbuilder::take_serving() {
    const i16 recipe = shown_.now();
    if (recipe == 0) return false;
    const auto size = figures_pane_.typed_size();
    const auto unit = figures_pane_.typed_unit();
    const std::string unit_text = unit ? typed_text(*unit) : std::string();
    const i16 unit_row = unit_named(unit_text);
    if (size) meal_serving_size[recipe] = *size;
    if (unit_row != 0) meals[recipe].serving_size_units = unit_row;
    if (size || unit_row != 0) project_modified = i16_true;
    if (unit_row == 0 && !trim(unit_text).empty()) {
        say("There is no unit \"" + unit_text + "\"; the recipe keeps its unit.");
    }
    return size || unit;
}

void Mealbuilder::store_serving() {
    if (take_serving()) populate_tree_list(shown_.now());
}

void Mealbuilder::add_ingredient(i16 item, f64 quantity, i16 recipe) {
    if (!is_live_meal(recipe)) return say(no_recipe);
    guarded([&] {
        tavernook::add_ingredient(item, quantity, recipe);
        project_modified = i16_true;
    });
    if (recipe == shown_.now()) populate_tree_list(recipe);
}

void Mealbuilder::set_ingredient_qty(i16 item, f64 quantity, i16 recipe) {
    if (!is_live_meal(recipe)) return say(no_recipe);
    guarded([&] {
        tavernook::set_ingredient_qty(item, quantity, recipe);
        project_modified = i16_true;
    });
    if (recipe == shown_.now()) populate_tree_list(recipe);
}

void Mealbuilder::choose_ingredient() {
    if (show_screen(QStringLiteral("FoodInventory")) == nullptr) return;
    food_inventory()->set_return(ports::FoodInventory::adds_to_recipe);
}

void Mealbuilder::change_quantity() {
    const RowRef recipe = shown_;
    const RowRef item(Subject::items, ingredients_.marked_item());
    if (item.now() == 0) return;
    const std::string present = number_text(quantity_in(recipe.now(), item.now()));
    const auto typed = boxes().input(quantity_prompt(item.now()), "Ingredient Quantity", present);
    if (!typed || *typed == present) return;
    if (typed->empty() || !reads_as_number(*typed)) {
        return say("\"" + *typed + "\" is not a number; the ingredient keeps its quantity.");
    }
    if (recipe.now() == 0 || item.now() == 0) return say(recipe_gone);
    set_ingredient_qty(item.now(), leading_number(with_decimal_point(*typed)), recipe.now());
}

void Mealbuilder::open_item() {
    const i16 item = ingredients_.marked_item();
    if (item == 0 || show_screen(QStringLiteral("FoodInventory")) == nullptr) return;
    food_inventory()->view_item(item, i16_true);
    food_inventory()->set_return(ports::FoodInventory::sets_quantity_in_recipe);
}

// `remove_ingredient` takes a letter off both ends of a key, and the list's keys have none in
// front.
void Mealbuilder::remove_marked() {
    const std::string key = ingredients_.marked_key();
    remove_ingredient(shown_.now(), key.empty() ? key : "i" + key);
    if (!key.empty()) project_modified = i16_true;
}

// --- the text --------------------------------------------------------------------------------

void Mealbuilder::clear_document() {
    document_.clear();
}

void Mealbuilder::begin_new_text() {
    if (!document_.can_begin_anew()) return;
    document_.clear();
    document_.hold_fresh();
    project_modified = i16_true;
    document_.setFocus(Qt::OtherFocusReason);
}

void Mealbuilder::insert_barcode() {
    document_.insert_barcode();
}

bool Mealbuilder::Load_RTF(i16 slot) {
    return document_.load(slot);
}

bool Mealbuilder::Save_RTF(i16 slot) {
    if (!document_.holds_text()) return false;
    const bool is_saved = document_.save(slot);
    if (slot == shown_.now()) guarded([this] { store_serving(); });
    return is_saved;
}

bool Mealbuilder::Save_RTF_bak(i16 slot) {
    return document_.save_backup(slot);
}

bool Mealbuilder::save_document() {
    if (shown_.now() == 0) return true;
    if (document_.has_unsaved_text()) return Save_RTF(shown_.now());
    guarded([this] { store_serving(); });
    return true;
}

void Mealbuilder::add_text(std::string_view text) {
    document_.add_text(text);
}

void Mealbuilder::AddMealInfo() {
    if (!document_.holds_text()) return;
    store_serving();
    QStringList lines;
    for (const std::string& line : information_lines(figures_)) lines.append(shown_text(line));
    document_.add_lines(lines);
}

// --- keys of rows ----------------------------------------------------------------------------

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
        has_save_failed_ = false;
        return true;
    }
    if (!std::exchange(has_save_failed_, true)) return false;
    return boxes().message("The text of \"" + name_of(shown_.now()) +
                               "\" cannot be saved.  Do you want to go on without saving it?",
                           Buttons::yes_no, "Recipe Manager", DefaultButton::no) == Answer::yes;
}

// What was opened last goes first.
void Mealbuilder::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return Screen::keyPressEvent(event);
    if (recipes_.show_all()) return;
    if (return_mode_ == returns_nowhere) return Screen::keyPressEvent(event);
    ui_->close_button->click();
}

void Mealbuilder::closeEvent(QCloseEvent* event) {
    bool may_close = false;
    guarded([&] { may_close = !is_running() && settle_edits(); });
    event->setAccepted(may_close);
    if (!may_close || return_mode_ != returns_to_planner) return;
    return_mode_ = returns_nowhere;
    QMetaObject::invokeMethod(
        qApp, [] { show_screen(planner()); }, Qt::QueuedConnection);
}

}  // namespace tavernook
