// The recipe manager: the tree of recipes, and of the recipe shown its ingredients, its figures and
// its text. Other screens open it to pick a recipe, in a return mode.
#pragma once

#include <QSet>
#include <QStringListModel>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/screen_ports.h"
#include "recipes/roll_up.h"
#include "screens/parts/unsaved_edits.h"

class QAction;
class QMenu;
class QSortFilterProxyModel;
class QTreeView;

namespace tavernook {

class IngredientsModel;
class RecipePane;
class RecipeTreeModel;

namespace Ui {
class Mealbuilder;
}

class Mealbuilder : public QWidget, public ports::Mealbuilder, public UnsavedEdits {
    Q_OBJECT

  public:
    explicit Mealbuilder(QWidget* parent = nullptr);
    ~Mealbuilder() override;

    i16 get_mealid() override { return shown_; }
    void setid(i16 recipe) override;
    void clear_document() override;
    void add_node(std::string_view parent_key, std::string_view key,
                  std::string_view name) override;
    void select_node(std::string_view key) override;
    void set_meal(i16 recipe) override;
    void set_return(i16 mode) override { return_mode_ = mode; }
    bool save_document() override;
    void add_ingredient(i16 item, f64 quantity, i16 recipe) override;
    void set_ingredient_qty(i16 item, f64 quantity, i16 recipe) override;
    void populate_tree() override;
    void populate_tree_list(i16 recipe) override;

    // The numbers in keys of the tree and of the list; 0 for "root" and keys of another kind.
    static i16 get_cat_index(std::string_view key);
    static i16 get_child_index(std::string_view key);
    static i16 get_item_index(std::string_view key);

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
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // What the pane holds: nothing, the recipe's text, the empty one of a recipe that is new, or
    // still what it held before because the recipe's text could not be read.
    enum class Document { none, loaded, fresh, unread };

    // One command at a time, trapped.
    void run(const std::function<void()>& command);
    void when_clicked(const char* name, const std::function<void()>& command);

    void set_up_toolbar();
    void set_up_tree();
    void set_up_list();
    void set_up_serving();
    void set_up_document();
    void set_up_sizes();
    void set_up_tab_order();
    void set_up_commands();
    void set_up_keys();
    void update_commands();
    void follow_focus(const QWidget* before, const QWidget* now);
    void tell(const std::string& text);

    // Commands on recipes.
    void show_recipe(i16 recipe);
    void show_nothing();
    void new_recipe();
    void new_category();
    void delete_marked();
    void delete_recipe(i16 recipe);
    void delete_category(i16 catagory);
    void refresh();
    void add_to_plan();

    // The tree.
    void rebuild_tree();
    void expand_tree();
    void select_key(const QString& key);
    QString selected_key() const;
    i16 selected_catagory() const;
    void show_selected();
    void note_expanded(const QModelIndex& index, bool expanded);
    void narrow(const QString& filter);
    void find();
    void rename_marked();
    bool is_naming() const;
    void show_tree_menu(const QPoint& place);
    bool filter_key(int key);
    void update_tree_hint();

    // Ingredients and figures.
    bool has_recipe() const { return shown_ != 0; }
    QModelIndex selected_ingredient() const;
    i16 selected_item() const;
    std::string selected_item_key() const;
    void fill_list(i16 recipe);
    void mark_ingredient(const QVariant& key, int row);
    void clear_list();
    void show_figures();
    bool take_serving();
    void store_serving();
    void choose_ingredient();
    void change_quantity();
    void open_item();
    void remove_selected();
    void show_list_menu(const QPoint& place);

    // The text.
    bool has_unsaved_text() const;
    bool holds_text() const;
    bool can_write_anew() const;
    void take_document(i16 slot);
    bool keep_deleted_text(i16 slot);
    void write_anew();
    void set_document(Document state);
    void show_notice();
    void show_name();

    std::unique_ptr<Ui::Mealbuilder> ui_;
    RecipeTreeModel* model_;
    IngredientsModel* ingredients_;
    QSortFilterProxyModel* sorted_ingredients_;
    QStringListModel* unit_names_;
    RecipePane* pane_ = nullptr;
    QAction* rename_ = nullptr;

    i16 shown_ = 0;
    i16 return_mode_ = 0;
    RollUp figures_;
    QString shown_unit_;
    Document document_ = Document::none;
    QString pane_owner_;  // whose text the pane holds
    QSet<QString> closed_;
    bool save_failed_ = false;
    bool arranging_tree_ = false;
    bool busy_ = false;
};

}  // namespace tavernook
