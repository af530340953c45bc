#include "screens/cookbook/Mealbuilder.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <utility>

#include "basics/text.h"
#include "core/catagories.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "platform/platform.h"
#include "recipes/catagory_removal.h"
#include "recipes/meals.h"
#include "recipes/recipe_names.h"
#include "screens/cookbook/ingredient_commands.h"
#include "screens/cookbook/plan_commands.h"
#include "screens/cookbook/planner_notice.h"
#include "screens/cookbook/recipe_file_commands.h"
#include "screens/cookbook/recipe_list_pane.h"
#include "screens/cookbook/recipe_sheet.h"
#include "screens/parts/icons.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/screen_switch.h"
#include "screens/parts/tab_order.h"
#include "screens/parts/toolbar_parts.h"
#include "ui_Mealbuilder.h"

namespace tavernook {

namespace {

constexpr i16 general_catagory = 1;

QString text_of_key(std::string_view key) {
    return QString::fromLatin1(key.data(), static_cast<qsizetype>(key.size()));
}

std::string name_of(i16 recipe) {
    return std::string(row_or_none(meals, recipe).name.trimmed());
}

}  // namespace

Mealbuilder::Mealbuilder(QWidget* parent)
    : Screen(parent),
      ui_(laid_out<Ui::Mealbuilder>(*this)),
      recipes_(*ui_->tree_panel),
      sheet_(*ui_->recipe_panel) {
    setWindowIcon(icon(QStringLiteral("recipes")));
    set_up_toolbar();
    ui_->main_splitter->setSizes({300, 900});
    ui_->main_splitter->setStretchFactor(0, 0);
    ui_->main_splitter->setStretchFactor(1, 1);
    set_up_tab_order();
    set_up_commands();
    listen_to_panes();
    enter_presses_buttons(*this);
    setFocusProxy(&recipes_);
    set_mealbuilder(this);
    populate_tree();
}

// Another screen of its kind may have taken its place meanwhile.
Mealbuilder::~Mealbuilder() {
    if (mealbuilder() == this) set_mealbuilder(nullptr);
}

void Mealbuilder::set_up_toolbar() {
    fill_toolbar(*this, *ui_->Toolbar1,
                 {{1, "new_item"},
                  {2, "new_category"},
                  {3, "delete"},
                  {4, "refresh"},
                  {5, "meal_plan"},
                  {6, "import"},
                  {7, "export"}});
    show_captions(*ui_->Toolbar1);
}

// As one reads: commands, list, sheet.
void Mealbuilder::set_up_tab_order() {
    std::vector<QWidget*> order;
    for (QAction* action : ui_->Toolbar1->actions()) {
        order.push_back(ui_->Toolbar1->widgetForAction(action));
    }
    for (const auto& parts : {recipes_.parts_in_order(), sheet_.parts_in_order()}) {
        order.insert(order.end(), parts.begin(), parts.end());
    }
    set_tab_order(order);
}

void Mealbuilder::set_up_commands() {
    on_command(ui_->Toolbar1_1, [this] { new_recipe(); });
    on_command(ui_->Toolbar1_2, [this] { new_category(); });
    on_command(ui_->Toolbar1_3, [this] { delete_marked(); });
    on_command(ui_->Toolbar1_4, [this] { refresh(); });
    connect(ui_->Toolbar1_5, &QAction::triggered, this, [this] { plan(sheet_.shown()); });
    auto* files = new RecipeFileCommands(*this, recipes_, sheet_);
    on_command(ui_->Toolbar1_6, [files] { files->import_chosen(); });
    on_command(ui_->Toolbar1_7, [files] { files->export_shown(); });
    on_keys(*this, QKeySequence::Refresh, [this] { ui_->Toolbar1_4->trigger(); });
    on_keys(*this, QKeySequence::Find, [this] { recipes_.find(); });
}

// A recipe is shown when the key or the mouse button has done its work, as a box may come.
void Mealbuilder::listen_to_panes() {
    connect(&recipes_, &RecipeListPane::chosen, this, &Mealbuilder::update_commands);
    connect(&recipes_, &RecipeListPane::chosen, this, &Mealbuilder::show_marked,
            Qt::QueuedConnection);
    connect(&recipes_, &RecipeListPane::narrowed, this, &Mealbuilder::update_commands);
    connect(&recipes_, &RecipeListPane::leaf_entered, this, [this] {
        if (!ui_->planner_notice->date()) return sheet_.focus_text(Qt::TabFocusReason);
        plan_marked();
    });
    connect(&recipes_, &RecipeListPane::leaf_double_clicked, this, [this] {
        if (ui_->planner_notice->date()) plan_marked();
    });
    connect(&recipes_, &RecipeListPane::insert_wanted, ui_->Toolbar1_1, &QAction::trigger);
    connect(&recipes_, &RecipeListPane::delete_wanted, ui_->Toolbar1_3, &QAction::trigger);
    connect(&recipes_, &RecipeListPane::rename_elsewhere, this,
            [this] { run([] { boxes().message("Can't Change name of GENERAL Category"); }); });
    recipes_.set_menu({ui_->Toolbar1_1, ui_->Toolbar1_2, nullptr, recipes_.rename_action(),
                       ui_->Toolbar1_3, nullptr, ui_->Toolbar1_5});
    connect(&sheet_, &RecipeSheet::command_wanted, this,
            [this](const Work& command) { run(command); });
    connect(&sheet_, &RecipeSheet::close_wanted, this, [this] { close_screen(*this); });
}

void Mealbuilder::update_commands() {
    const i16 recipe = sheet_.recipe();
    ui_->Toolbar1_3->setEnabled(recipes_.is_anything_marked());
    for (QAction* one : {ui_->Toolbar1_4, ui_->Toolbar1_5, ui_->Toolbar1_7})
        one->setEnabled(recipe != 0);
    recipes_.set_on_show(RecipeListPane::key_of_recipe(recipe));
    sheet_.fit_to_recipe();
}

void Mealbuilder::follow_changes() {
    recipes_.follow_changes();
    sheet_.follow_changes();
}

// --- what is on show -------------------------------------------------------------------------

i16 Mealbuilder::get_mealid() {
    return sheet_.recipe();
}

void Mealbuilder::setid(i16 recipe) {
    sheet_.set_recipe(recipe);
    update_commands();
}

void Mealbuilder::set_return(i16 mode) {
    ui_->planner_notice->end();
    if (mode == returns_to_planner) ui_->planner_notice->begin();
}

void Mealbuilder::set_meal(i16 recipe) {
    ui_->planner_notice->end();
    guarded([&] { show_recipe(recipe); });
    update_commands();
}

void Mealbuilder::show_recipe(i16 recipe) {
    if (save_document() && is_live_meal(recipe)) sheet_.show_recipe(recipe);
    mark_shown();
}

// A category is only marked; the recipe stays on show.
void Mealbuilder::show_marked() {
    const i16 recipe = recipes_.marked_leaf();
    if (recipe == 0 || (recipe == sheet_.recipe() && sheet_.holds_text())) return;
    run([&] { show_recipe(recipe); });
}

void Mealbuilder::mark_shown() {
    recipes_.mark(RecipeListPane::key_of_recipe(sheet_.recipe()));
}

void Mealbuilder::populate_tree() {
    guarded([this] { recipes_.populate(); });
    update_commands();
}

void Mealbuilder::populate_tree_list(i16 recipe) {
    sheet_.fill_list(recipe);
    update_commands();
}

// The table has the record already; the list only has to show it.
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

void Mealbuilder::add_ingredient(i16 item, f64 quantity, i16 recipe) {
    enter_ingredient(item, quantity, recipe);
    if (recipe != 0 && recipe == sheet_.recipe()) populate_tree_list(recipe);
}

void Mealbuilder::set_ingredient_qty(i16 item, f64 quantity, i16 recipe) {
    enter_ingredient_quantity(item, quantity, recipe);
    if (recipe != 0 && recipe == sheet_.recipe()) populate_tree_list(recipe);
}

// --- commands --------------------------------------------------------------------------------

void Mealbuilder::new_recipe() {
    const auto name = boxes().input("Enter a new recipe name", "New Recipe", "");
    if (!name || trim(*name).empty()) return;
    const i16 catagory = recipes_.catagory_for_new();
    if (!save_document()) return;
    sheet_.clear_list();
    new_meal(trim(*name), catagory);
    project_modified = i16_true;
    sheet_.begin_text();
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
    sheet_.lock_text();
    if (const i16 recipe = recipes_.marked_leaf()) return delete_recipe(recipe);
    const i16 catagory = recipes_.is_root_marked() ? general_catagory : recipes_.marked_catagory();
    if (save_document() && delete_catagory(catagory) != 0) project_modified = i16_true;
}

// What goes is on show first, so that its text can be kept.
void Mealbuilder::delete_recipe(i16 recipe) {
    if (recipe != sheet_.recipe()) show_recipe(recipe);
    if (recipe != sheet_.recipe()) return;
    const QString next = recipes_.key_beside_marked();
    const std::string name = name_of(recipe);
    if (delete_meal(recipe, false) != meal_deleted) return;
    project_modified = i16_true;
    say("The recipe \"" + name + "\" is deleted.");
    sheet_.leave_deleted(recipe);
    recipes_.mark(next);
}

void Mealbuilder::refresh() {
    project_modified = i16_true;
    populate_tree();
    const i16 marked = recipes_.marked_leaf();
    const i16 shown = sheet_.recipe();
    sheet_.fill_list(marked != 0 ? marked : shown);
    if (shown != 0 && !sheet_.holds_text()) sheet_.load_text(shown);
}

// The screen closes when the step is done.
void Mealbuilder::plan(const RowRef& recipe) {
    const QPointer<Mealbuilder> still_here(this);
    const std::optional<QDate> date = ui_->planner_notice->date();
    bool is_planned = false;
    run([&is_planned, recipe, date] { is_planned = put_on_plan(recipe, date); });
    if (is_planned && date && !still_here.isNull()) close_screen(*this);
}

void Mealbuilder::plan_marked() {
    plan(RowRef(Subject::recipes, recipes_.marked_leaf()));
}

// --- the text --------------------------------------------------------------------------------

void Mealbuilder::clear_document() {
    sheet_.clear_text();
}

bool Mealbuilder::Load_RTF(i16 slot) {
    return sheet_.load_text(slot);
}

bool Mealbuilder::Save_RTF(i16 slot) {
    return sheet_.save_text(slot);
}

bool Mealbuilder::Save_RTF_bak(i16 slot) {
    return sheet_.save_backup(slot);
}

void Mealbuilder::add_text(std::string_view text) {
    sheet_.add_text(text);
}

void Mealbuilder::AddMealInfo() {
    sheet_.add_information();
}

// --- leaving ---------------------------------------------------------------------------------

bool Mealbuilder::save_document() {
    return sheet_.save();
}

void Mealbuilder::reread_document() {
    sheet_.reread_text();
}

bool Mealbuilder::settle_edits() {
    if (save_document()) {
        has_save_failed_ = false;
        return true;
    }
    if (!std::exchange(has_save_failed_, true)) return false;
    return boxes().message("The text of \"" + name_of(sheet_.recipe()) +
                               "\" cannot be saved.  Do you want to go on without saving it?",
                           Buttons::yes_no, "Recipe Manager", DefaultButton::no) == Answer::yes;
}

// What was opened last goes first.
void Mealbuilder::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return Screen::keyPressEvent(event);
    if (recipes_.show_all()) return;
    if (!ui_->planner_notice->date()) return Screen::keyPressEvent(event);
    close_screen(*this);
}

// Closing saves, and so ends a step.
void Mealbuilder::closeEvent(QCloseEvent* event) {
    bool may_close = false;
    guarded([&] { may_close = !is_running() && settle_edits(); });
    end_of_step();
    event->setAccepted(may_close);
    if (!may_close || !ui_->planner_notice->date()) return;
    ui_->planner_notice->end();
    QMetaObject::invokeMethod(
        qApp, [] { show_screen(QStringLiteral("MealPlan")); }, Qt::QueuedConnection);
}

}  // namespace tavernook
