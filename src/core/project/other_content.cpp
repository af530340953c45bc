#include "core/project/other_content.h"

#include "core/project/known_files.h"
#include "core/project/names_beside.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr std::string_view other_kind = ".other";

bool user_saves_his_own(const std::string& path) {
    const std::string question =
        "The file " + shown_file_name(path) +
        " has changed since it was opened or saved here: another program or another computer has "
        "written it.  Press YES to save your project all the same (the other content stays beside "
        "it as " +
        shown_file_name(free_path_beside(path, other_kind)) +
        ") or press NO to save nothing and leave the file as it is.";
    return boxes().message(question, Buttons::yes_no, "Project File Changed", DefaultButton::no) ==
           Answer::yes;
}

}  // namespace

bool keep_other_content(const std::string& path) {
    if (!is_changed_elsewhere(path)) return true;
    if (!user_saves_his_own(path)) return false;
    // While the box stood open the file may have gone, and the name may have been taken.
    if (!is_changed_elsewhere(path)) return true;
    files().copy(path, free_path_beside(path, other_kind));
    forget_project_file(path);
    return true;
}

}  // namespace tavernook
