#include "screens/cookbook/recipe_file_commands.h"

#include <QFileInfo>
#include <QPointer>
#include <optional>

#include "basics/text.h"
#include "core/changes.h"
#include "core/project_data.h"
#include "platform/platform.h"
#include "screens/cookbook/recipe_list_pane.h"
#include "screens/cookbook/recipe_sheet.h"
#include "screens/parts/guard.h"
#include "screens/parts/screen.h"
#include "transfer/recipe_exchange.h"

namespace tavernook {

namespace {

// Nothing when the user cancels, and when the dialog failed, which a box has told.
std::optional<std::string> chosen_recipe_file() {
    std::optional<std::string> chosen;
    guarded(
        [&] {
            chosen = file_dialogs().open_file({"Import Recipe",
                                               "Recipe Portable Format Files (*.rpf)|*.rpf",
                                               folder_of(project_path) + "/*.rpf"});
        },
        [](const Fault& fault) {
            return "Error in importing RPF file.  Error = " + std::to_string(fault.number) +
                   " Desc = " + fault.description;
        });
    return chosen;
}

void refuse_link() {
    boxes().message(
        "Sorry Tavernook v1.7 doesn't support direct drag and drop from Internet to Recipe "
        "Manager.  Please save the file to your Windows desktop and then drag into the Recipe "
        "Manager.");
}

void tell_of_several(const QStringList& dropped, const QStringList& left_out) {
    const QString imported = tr("%1 of %2 recipes were imported.")
                                 .arg(dropped.size() - left_out.size())
                                 .arg(dropped.size());
    QStringList names;
    for (const QString& path : left_out) names.append(QFileInfo(path).fileName());
    if (names.isEmpty()) return say(imported);
    say(imported + tr(" Not, or not whole: %1.").arg(names.join(QStringLiteral(", "))));
}

}  // namespace

RecipeFileCommands::RecipeFileCommands(Screen& screen, RecipeListPane& recipes, RecipeSheet& sheet)
    : QObject(&screen), screen_(screen), recipes_(recipes), sheet_(sheet) {
    connect(&recipes, &RecipeListPane::files_dropped, this, &RecipeFileCommands::import_dropped,
            Qt::QueuedConnection);
    connect(
        &recipes, &RecipeListPane::link_dropped, this, [this] { screen_.run(refuse_link); },
        Qt::QueuedConnection);
}

void RecipeFileCommands::import_chosen() {
    const RowRef catagory(Subject::catagories, recipes_.catagory_for_new());
    if (const auto path = chosen_recipe_file()) import_file(*path, catagory.now());
}

void RecipeFileCommands::export_shown() {
    if (sheet_.save()) Export_RPF(sheet_.recipe());
}

bool RecipeFileCommands::import_file(const std::string& path, i16 catagory) {
    if (!sheet_.save()) return false;
    const i16 recipe = Import_RPF(path, catagory);
    if (recipe != 0 && recipe == sheet_.recipe()) {
        sheet_.show_recipe(recipe);
        recipes_.reveal(RecipeListPane::key_of_recipe(recipe));
        recipes_.mark(RecipeListPane::key_of_recipe(recipe));
    }
    return recipe != 0;
}

void RecipeFileCommands::import_dropped(const QStringList& paths, i16 row) {
    if (boxes().is_open()) return say(tr("Answer the question first, then drop the file again."));
    const RowRef catagory(Subject::catagories, row);
    const QPointer<Screen> still_here(&screen_);
    QStringList left_out;
    for (const QString& path : paths) {
        bool is_in = false;
        screen_.run([&] { is_in = import_file(path.toStdString(), catagory.now()); });
        if (still_here.isNull()) return;
        if (!is_in) left_out.append(path);
    }
    if (paths.size() > 1) tell_of_several(paths, left_out);
}

}  // namespace tavernook
