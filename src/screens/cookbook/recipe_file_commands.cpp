#include "screens/cookbook/recipe_file_commands.h"

#include <QFileInfo>

#include "basics/text.h"
#include "core/project_data.h"
#include "platform/platform.h"
#include "screens/parts/guard.h"
#include "screens/parts/screen.h"

namespace tavernook {

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

}  // namespace tavernook
