// The recipe manager: the recipes by category, and the sheet of the one on show. Other screens open
// it to pick a recipe, in a return mode.
//
// Leaving a recipe. A recipe is left when another one is chosen or made, when its category is
// deleted, when the screen closes and when the project is saved or closed; always by
// `save_document`, before anything else happens:
//
//   1. What was written on the sheet is saved: the text into its file, then the serving size and
//      unit into the table.
//   2. Where the file cannot be written, one box has told it, and the recipe is not left: it stays
//      on show and marked, its text in the pane, and what was asked for does not happen. Only at
//      the second time in a row does closing ask whether to go on without the text.
//   3. Then the next recipe comes on the sheet; see there for what it holds on the way.
//
// A recipe that is deleted is on show first, by the same way, so that its text can be kept as a
// backup.
//
// The planner opens it to have a recipe for the date that it shows. A line says so, and until the
// screen closes, or shows a recipe for somebody else (`set_meal`), Enter and a double click plan
// the recipe and go back there; closing and Esc go back without one.
//
// What can go wrong: a box stands open while the recipe goes, by the end of a project or by
// another screen. A command therefore takes the recipe anew behind its box, and says so when there
// is none any more.
#pragma once

#include <memory>
#include <string_view>

#include "core/changes.h"
#include "platform/screen_ports.h"
#include "screens/parts/screen.h"
#include "screens/parts/unsaved_edits.h"

namespace tavernook {

class RecipeListPane;
class RecipeSheet;

namespace Ui {
class Mealbuilder;
}

class Mealbuilder : public Screen, public ports::Mealbuilder, public UnsavedEdits {
    Q_OBJECT

  public:
    explicit Mealbuilder(QWidget* parent = nullptr);
    ~Mealbuilder() override;

    i16 get_mealid() override;
    void setid(i16 recipe) override;
    void clear_document() override;
    void add_node(std::string_view parent_key, std::string_view key,
                  std::string_view name) override;
    void select_node(std::string_view key) override;
    void set_meal(i16 recipe) override;
    void set_return(i16 mode) override;
    bool save_document() override;
    void reread_document() override;
    void add_ingredient(i16 item, f64 quantity, i16 recipe) override;
    void set_ingredient_qty(i16 item, f64 quantity, i16 recipe) override;
    void populate_tree() override;
    void populate_tree_list(i16 recipe) override;

    // Into the text of the recipe: its ingredients and figures, as they are on the screen.
    void AddMealInfo();
    void add_text(std::string_view text);

    // False after a failure, which one box has told. A text that cannot be loaded leaves the pane
    // as it was, and a pane that does not hold the recipe's text is never saved.
    bool Load_RTF(i16 slot);
    bool Save_RTF(i16 slot);
    bool Save_RTF_bak(i16 slot);

    // Saves the text without asking. Where that fails a second time the user may leave it unsaved.
    bool settle_edits() override;

  protected:
    void follow_changes() override;
    void update_commands() override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void set_up_toolbar();
    void set_up_tab_order();
    void set_up_commands();
    void listen_to_panes();

    void show_recipe(i16 recipe);
    void show_marked();
    void mark_shown();

    void new_recipe();
    void new_category();
    void delete_marked();
    void delete_recipe(i16 recipe);
    void refresh();
    void plan(const RowRef& recipe);
    void plan_marked();

    std::unique_ptr<Ui::Mealbuilder> ui_;
    RecipeListPane& recipes_;
    RecipeSheet& sheet_;
    bool has_save_failed_ = false;
};

}  // namespace tavernook
