#include "core/project/previous_version.h"

#include <set>
#include <string_view>

#include "basics/code_page.h"
#include "basics/fault.h"
#include "basics/text.h"
#include "core/program_folders.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr std::string_view extension = ".tvk";
constexpr std::string_view previous_extension = ".previous.tvk";

// Project files that this program has read or written to their end.
std::set<std::string> whole_files;

bool ends_with_extension(std::string_view path, std::string_view ending) {
    return path.size() > ending.size() &&
           lower_case(path.substr(path.size() - ending.size())) == ending;
}

std::string without_ending(std::string_view path, std::string_view ending) {
    return std::string(path.substr(0, path.size() - ending.size()));
}

std::string stem_of(std::string_view path) {
    return ends_with_extension(path, extension) ? without_ending(path, extension)
                                                : std::string(path);
}

// A name that no file bears yet: what an earlier question put aside stays as well.
std::string free_interrupted_path(std::string_view path) {
    const std::string start = stem_of(path) + ".interrupted";
    std::string free = start + ".tvk";
    for (int number = 2; files().exists(free); ++number) {
        free = start + " " + std::to_string(number) + ".tvk";
    }
    return free;
}

std::string question(const std::string& path, const std::string& previous) {
    const std::string name = text_from_utf8(file_name_part(path));
    return "The last save of " + name + " was interrupted. The version from before it, of " +
           date_text(files().modified(previous)) +
           ", is still there.  Press YES to go back to that version (the file as it is now stays "
           "beside it) or press NO to open the file as it is.";
}

}  // namespace

std::string previous_version_path(const std::string& project_path) noexcept {
    return stem_of(project_path) + std::string(previous_extension);
}

void set_previous_version_aside(const std::string& project_path) {
    if (files().exists(project_path)) {
        const std::string previous = previous_version_path(project_path);
        if (!whole_files.contains(project_path) && files().exists(previous)) {
            files().remove(project_path);
        } else {
            files().rename(project_path, previous);
        }
    }
    // Not earlier: a file that could not be moved is as whole as before.
    whole_files.erase(project_path);
}

void project_file_is_whole(const std::string& project_path) noexcept {
    whole_files.insert(project_path);
}

bool previous_version_exists(const std::string& project_path) {
    return files().exists(previous_version_path(project_path));
}

bool may_start_project_at(const std::string& path) {
    const std::string name = text_from_utf8(file_name_part(path));
    if (ends_with_extension(path, previous_extension)) {
        boxes().message("The name " + name +
                        " is kept for what an interrupted save leaves behind.  Please choose "
                        "another name.");
        return false;
    }
    if (files().exists(path) || !previous_version_exists(path)) return true;
    const std::string previous = text_from_utf8(file_name_part(previous_version_path(path)));
    boxes().message("The last save of " + name + " was interrupted and only " + previous +
                    " is there.  Open that file to get the project back, or choose another name.");
    return false;
}

void drop_previous_version(const std::string& project_path) noexcept {
    try {
        files().remove(previous_version_path(project_path));
    } catch (...) {
        // Kept: the save itself is complete.
    }
}

std::string project_of_previous_version(const std::string& path) noexcept {
    if (!ends_with_extension(path, previous_extension)) return path;
    return without_ending(path, previous_extension) + std::string(extension);
}

void offer_previous_version(const std::string& project_path) {
    whole_files.erase(project_path);  // what it was when it was last seen says nothing now
    const std::string previous = previous_version_path(project_path);
    if (!files().exists(previous)) return;
    const Answer answer =
        boxes().message(question(project_path, previous), Buttons::yes_no, "Previous Version");
    if (answer != Answer::yes) return;
    if (files().exists(project_path)) {
        files().rename(project_path, free_interrupted_path(project_path));
    }
    files().rename(previous, project_path);
}

}  // namespace tavernook
