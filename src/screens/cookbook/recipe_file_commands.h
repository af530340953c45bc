// Recipe files in the recipe manager: from its toolbar, and dropped on its list. The text on the
// sheet is saved before anything else; what comes in whole is on show then, and marked in the list.
// Dropped files come one after the other, each as a step, behind the end of the drop.
#pragma once

#include <QObject>
#include <QStringList>
#include <string>

#include "basics/values.h"

namespace tavernook {

class RecipeListPane;
class RecipeSheet;
class Screen;

class RecipeFileCommands : public QObject {
    Q_OBJECT

  public:
    // All three belong to the screen, and so does this.
    RecipeFileCommands(Screen& screen, RecipeListPane& recipes, RecipeSheet& sheet);

    // Into the category that is marked.
    void import_chosen();
    void export_shown();

  private:
    void import_dropped(const QStringList& paths, i16 row);
    bool import_file(const std::string& path, i16 catagory);

    Screen& screen_;
    RecipeListPane& recipes_;
    RecipeSheet& sheet_;
};

}  // namespace tavernook
