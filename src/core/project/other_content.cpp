#include "core/project/other_content.h"

#include "basics/code_page.h"
#include "basics/text.h"
#include "core/project/known_files.h"
#include "core/project/names_beside.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr std::string_view other_kind = ".other";

std::string shown_name(const std::string& path) {
    return text_from_utf8(file_name_part(path));
}

bool user_saves_his_own(const std::string& path) {
    const std::string question =
        "The file " + shown_name(path) +
        " has changed since it was opened or saved here: another program or another computer has "
        "written it.  Press YES to save your project all the same (the other content stays beside "
        "it as " +
        shown_name(free_path_beside(path, other_kind)) +
        ") or press NO to save nothing and leave the file as it is.";
    return boxes().message(question, Buttons::yes_no, "Project File Changed", DefaultButton::no) ==
           Answer::yes;
}

}  // namespace

std::optional<std::string> put_other_content_aside(const std::string& path) {
    if (!is_changed_elsewhere(path)) return std::string();
    if (!user_saves_his_own(path)) return {};
    // While the box stood open the file may have gone, and the name may have been taken.
    if (!is_changed_elsewhere(path)) return std::string();
    const std::string aside = free_path_beside(path, other_kind);
    files().rename(path, aside);
    forget_project_file(path);
    return aside;
}

}  // namespace tavernook
