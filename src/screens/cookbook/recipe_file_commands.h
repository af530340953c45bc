// What the recipe manager asks and tells of recipe files.
#pragma once

#include <QStringList>
#include <optional>
#include <string>

namespace tavernook {

// Asks for the recipe file to import. Nothing when the user cancels, and when the dialog failed,
// which a box has told.
std::optional<std::string> chosen_recipe_file();

// A box for what was dragged here from the web.
void refuse_link();

// Which of several dropped files came in and which did not, in the message panel.
void tell_of_several(const QStringList& dropped, const QStringList& left_out);

}  // namespace tavernook
