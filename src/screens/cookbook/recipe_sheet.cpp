#include "screens/cookbook/recipe_sheet.h"

#include "basics/text.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "core/rows.h"
#include "recipes/documents.h"
#include "recipes/meals.h"
#include "recipes/recipe_names.h"
#include "screens/cookbook/document_pane.h"
#include "screens/cookbook/figures_pane.h"
#include "screens/cookbook/ingredient_commands.h"
#include "screens/cookbook/ingredients_pane.h"
#include "screens/parts/laid_out.h"
#include "screens/parts/screen.h"
#include "screens/parts/shown_text.h"
#include "ui_recipe_sheet.h"

namespace tavernook {

RecipeSheet::RecipeSheet(QWidget* parent)
    : QWidget(parent),
      ui_(laid_out<Ui::RecipeSheet>(*this)),
      ingredients_(*ui_->ingredients_panel),
      figures_pane_(*ui_->figures_group),
      document_(*ui_->document_panel) {
    set_up_sizes();
    listen_to_panes();
    show_nothing();
}

RecipeSheet::~RecipeSheet() = default;

// Shares of the room until the user arranges them otherwise: most of it is for the text, in a small
// window too.
void RecipeSheet::set_up_sizes() {
    ui_->recipe_splitter->setSizes({260, 500});
    ui_->ingredients_splitter->setSizes({600, 300});
    ui_->ingredients_splitter->setStretchFactor(0, 1);
    ui_->ingredients_splitter->setStretchFactor(1, 0);
    QFont large = ui_->recipe_heading->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.3);
    ui_->recipe_heading->setFont(large);
}

void RecipeSheet::listen_to_panes() {
    const auto listen = [this](auto& pane, auto signal, const Work& command) {
        connect(&pane, signal, this, [this, command] { Q_EMIT command_wanted(command); });
    };
    listen(ingredients_, &IngredientsPane::add_wanted, choose_ingredient);
    listen(ingredients_, &IngredientsPane::quantity_wanted,
           [this] { ask_ingredient_quantity(ingredients_.marked_item(), shown_); });
    listen(ingredients_, &IngredientsPane::open_wanted,
           [this] { open_ingredient(ingredients_.marked_item()); });
    listen(ingredients_, &IngredientsPane::remove_wanted, [this] { remove_marked(); });
    connect(&ingredients_, &IngredientsPane::item_dropped, this, [this](i16 item) {
        Q_EMIT command_wanted([=, this] { enter_ingredient(item, 1.0, recipe()); });
    });
    listen(figures_pane_, &FiguresPane::serving_entered, [this] { store_serving(); });
    listen(document_, &DocumentPane::information_wanted, [this] { add_information(); });
    listen(document_, &DocumentPane::barcode_wanted, [this] { document_.insert_barcode(); });
    listen(document_, &DocumentPane::new_text_wanted, [this] { begin_lost_text(); });
    connect(&document_, &DocumentPane::edited, this, [] { project_modified = i16_true; });
    connect(ui_->close_button, &QAbstractButton::clicked, this, &RecipeSheet::close_wanted);
}

// --- what is on show -------------------------------------------------------------------------

void RecipeSheet::set_shown(i16 recipe) {
    shown_ = RowRef(Subject::recipes, recipe);
    document_.set_recipe(shown_);
}

void RecipeSheet::show_recipe(i16 slot) {
    const bool is_there_already = slot == recipe() && holds_text();
    set_shown(slot);
    if (!is_there_already) document_.hold_unread();
    fill_list(slot);
    if (!is_there_already) load_text(slot);
}

// What was typed belongs to the recipe before.
void RecipeSheet::set_recipe(i16 slot) {
    if (slot != recipe()) {
        guarded([this] { take_serving(); });
        clear_list();
    }
    set_shown(slot);
    document_.hold_nothing();
}

void RecipeSheet::show_nothing() {
    set_shown(0);
    clear_list();
    document_.clear();
    fit_to_recipe();
}

void RecipeSheet::leave_deleted(i16 slot) {
    if (document_.keep_deleted(slot)) return show_nothing();
    set_shown(0);
    clear_list();
    document_.hold_unread();
}

void RecipeSheet::follow_changes() {
    if (shown_ != RowRef() && recipe() == 0) show_nothing();
    if (!seen_.is_stale()) return;
    refresh_figures();
    seen_.renew();
}

// The heading, and where the text and the barcode are found.
void RecipeSheet::fit_to_recipe() {
    const i16 slot = recipe();
    ingredients_.set_has_recipe(slot != 0);
    figures_pane_.setEnabled(slot != 0);
    document_.update_notice();
    if (slot == 0) {
        ui_->recipe_heading->setText(tr("No recipe chosen"));
        return ui_->Label2->clear();
    }
    ui_->recipe_heading->setText(shown_text(meals[slot].name.trimmed()));
    ui_->Label2->setText(QStringLiteral("\\recipes\\%1\nBarcode Name: TVK%2")
                             .arg(shown_text(document_name(slot)))
                             .arg(slot));
}

// --- ingredients and figures -----------------------------------------------------------------

void RecipeSheet::fill_list(i16 slot) {
    guarded([&] { read_list(slot); },
            [this](const Fault& fault) {
                clear_list();
                return "Recipe Manager TREELIST ERROR:" + fault.description;
            });
    fit_to_recipe();
}

void RecipeSheet::read_list(i16 slot) {
    figures_pane_.offer_units();
    if (slot == recipe()) take_serving();
    if (slot == 0) return clear_list();
    figures_ = roll_up_shown(slot);
    ingredients_.show_lines(figures_.ingredients);
    figures_pane_.show_recipe(figures_, meal_serving_size[slot], meals[slot].serving_size_units);
}

// What cannot be read was told when the recipe came.
void RecipeSheet::refresh_figures() {
    const i16 slot = recipe();
    if (!figures_pane_.is_edited()) {
        if (!quietly([&] { read_list(slot); })) clear_list();
        return;
    }
    figures_pane_.offer_units();
    quietly([&] {
        figures_ = roll_up(row_or_none(meals, slot), meal_serving_size[slot]);
        ingredients_.show_lines(figures_.ingredients);
        figures_pane_.show_figures(figures_);
    });
}

void RecipeSheet::clear_list() {
    figures_ = {};
    ingredients_.show_lines({});
    figures_pane_.show_nothing();
}

// Into the table, where the user has changed them: an empty size is 0, and a text that is no unit
// leaves the unit as it is.
bool RecipeSheet::take_serving() {
    const i16 slot = recipe();
    if (slot == 0) return false;
    const auto size = figures_pane_.typed_size();
    const auto unit = figures_pane_.typed_unit();
    const std::string unit_text = unit ? typed_text(*unit) : std::string();
    const i16 unit_row = unit_named(unit_text);
    if (size) meal_serving_size[slot] = *size;
    if (unit_row != 0) meals[slot].serving_size_units = unit_row;
    if (size || unit_row != 0) project_modified = i16_true;
    if (unit_row == 0 && !trim(unit_text).empty()) {
        say("There is no unit \"" + unit_text + "\"; the recipe keeps its unit.");
    }
    return size || unit;
}

void RecipeSheet::store_serving() {
    if (take_serving()) fill_list(recipe());
}

// `remove_ingredient` takes a letter off both ends of a key, and the list's keys have none in
// front.
void RecipeSheet::remove_marked() {
    const std::string key = ingredients_.marked_key();
    remove_ingredient(recipe(), key.empty() ? key : "i" + key);
    if (!key.empty()) project_modified = i16_true;
}

// --- the text --------------------------------------------------------------------------------

bool RecipeSheet::holds_text() const {
    return document_.holds_text();
}

void RecipeSheet::begin_text() {
    document_.hold_fresh();
    fill_list(recipe());
    focus_text(Qt::OtherFocusReason);
}

void RecipeSheet::begin_lost_text() {
    if (!document_.can_begin_anew()) return;
    document_.clear();
    document_.hold_fresh();
    project_modified = i16_true;
    focus_text(Qt::OtherFocusReason);
}

bool RecipeSheet::save() {
    if (recipe() == 0) return true;
    if (document_.has_unsaved_text()) return save_text(recipe());
    guarded([this] { store_serving(); });
    return true;
}

bool RecipeSheet::load_text(i16 slot) {
    return document_.load(slot);
}

void RecipeSheet::reread_text() {
    if (recipe() != 0) load_text(recipe());
}

bool RecipeSheet::save_text(i16 slot) {
    if (!holds_text()) return false;
    const bool is_saved = document_.save(slot);
    if (slot == recipe()) guarded([this] { store_serving(); });
    return is_saved;
}

bool RecipeSheet::save_backup(i16 slot) {
    return document_.save_backup(slot);
}

void RecipeSheet::clear_text() {
    document_.clear();
}

void RecipeSheet::lock_text() {
    document_.lock();
}

void RecipeSheet::add_text(std::string_view text) {
    document_.add_text(text);
}

void RecipeSheet::add_information() {
    if (!holds_text()) return;
    store_serving();
    QStringList lines;
    for (const std::string& line : information_lines(figures_)) lines.append(shown_text(line));
    document_.add_lines(lines);
}

void RecipeSheet::focus_text(Qt::FocusReason reason) {
    document_.setFocus(reason);
}

std::vector<QWidget*> RecipeSheet::parts_in_order() const {
    std::vector<QWidget*> order = ingredients_.parts_in_order();
    for (const auto& parts : {figures_pane_.parts_in_order(), document_.parts_in_order()}) {
        order.insert(order.end(), parts.begin(), parts.end());
    }
    order.push_back(ui_->close_button);
    return order;
}

}  // namespace tavernook
