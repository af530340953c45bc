// The recipes under their categories, all beneath "General": the left side of the recipe manager.
// Keys name the rows: the root "r0", a category's row + "r", a recipe's slot + "c". Recipes and
// categories are named in place, and a recipe dropped on a category moves there. Recipe files
// dropped from a file manager are told, with the category under them, and so is what comes from the
// web; other files go on to the main window.
#pragma once

#include <memory>
#include <vector>

#include "core/changes.h"
#include "screens/parts/catagory_tree_pane.h"

namespace tavernook {

namespace Ui {
class RecipeListPane;
}

class RecipeListPane : public CatagoryTreePane {
    Q_OBJECT

  public:
    explicit RecipeListPane(QWidget* parent = nullptr);
    ~RecipeListPane() override;

    // Empty for recipe 0.
    static QString key_of_recipe(i16 recipe);
    static QString key_of_catagory(i16 row);

    // Where something new goes: into what is marked, a recipe standing for the category it is in.
    i16 catagory_for_new() const;

    // Reads anew what has changed since the last time, as soon as no name is being typed.
    void follow_changes();

    // What the menu of the tree offers; nothing between two of them is a line.
    void set_menu(const std::vector<QAction*>& actions) { menu_ = actions; }

    std::vector<QWidget*> parts_in_order() const;

  Q_SIGNALS:
    void leaf_double_clicked();

    // While the drop still lasts, for which the other program waits. Category 0 is the root.
    void files_dropped(const QStringList& paths, i16 catagory);
    void link_dropped();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    TreeContents contents();
    void take_drop(const QMimeData& data, i16 catagory);
    void show_menu(const QPoint& on_screen);

    std::unique_ptr<Ui::RecipeListPane> ui_;
    std::vector<QAction*> menu_;
    Seen seen_{Subject::recipes, Subject::catagories};
};

}  // namespace tavernook
