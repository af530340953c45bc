#include "core/project/previous_version.h"

#include <string_view>

#include "basics/fault.h"
#include "basics/file_names.h"
#include "basics/text.h"
#include "core/project/known_files.h"
#include "core/project/names_beside.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

constexpr std::string_view previous_kind = ".previous";
constexpr std::string_view previous_extension = ".previous.tvk";
constexpr std::string_view interrupted_kind = ".interrupted";

std::string question(const std::string& path, const std::string& previous) {
    const std::string name = shown_file_name(path);
    return "The last save of " + name + " was interrupted. The version from before it, of " +
           date_text(files().modified(previous)) +
           ", is still there.  Press YES to go back to that version (the file as it is now stays "
           "beside it) or press NO to open the file as it is.";
}

// The project whose name was too long for that of its previous version; empty where none is there.
std::string project_of_shortened(const std::string& path) {
    const std::string folder = folder_of(path) + "/";
    for (const std::string& name : files().list(folder, project_extension)) {
        if (previous_version_path(folder + name) == path) return folder + name;
    }
    return {};
}

// A shortened name fills the room it has, or all but the rest of a character.
bool may_be_shortened(std::string_view path) {
    constexpr std::size_t rest_of_a_character = 3;
    return path.size() - (path.rfind('/') + 1) >= longest_file_name - rest_of_a_character;
}

}  // namespace

std::string previous_version_path(const std::string& project_path) noexcept {
    return path_beside(project_path, previous_kind);
}

void set_previous_version_aside(const std::string& project_path) {
    if (files().exists(project_path)) {
        const bool is_damaged = ends_early(project_path);
        const std::string previous = previous_version_path(project_path);
        if (is_damaged) {
            files().copy(project_path, free_path_beside(project_path, interrupted_kind));
        }
        const bool is_whole = !is_damaged && is_known_project_file(project_path);
        if (!is_whole && files().exists(previous)) {
            files().remove(project_path);
        } else {
            files().rename(project_path, previous);
        }
    }
    // Not earlier: a file that could not be moved is as whole as before.
    forget_project_file(project_path);
}

bool previous_version_exists(const std::string& project_path) {
    return files().exists(previous_version_path(project_path));
}

bool may_start_project_at(const std::string& path) {
    const std::string name = shown_file_name(path);
    if (has_ending(path, previous_extension)) {
        boxes().message("The name " + name +
                        " is kept for what an interrupted save leaves behind.  Please choose "
                        "another name.");
        return false;
    }
    if (!files().exists(path) && previous_version_exists(path)) {
        const std::string previous = shown_file_name(previous_version_path(path));
        boxes().message("The last save of " + name + " was interrupted and only " + previous +
                        " is there.  Open that file to get the project back, or choose another "
                        "name.");
        return false;
    }
    forget_project_file(path);
    return true;
}

void drop_previous_version(const std::string& project_path) noexcept {
    try {
        files().remove(previous_version_path(project_path));
    } catch (...) {
        // Kept: the save itself is complete.
    }
}

std::string project_of_previous_version(const std::string& path) noexcept {
    if (!has_ending(path, previous_extension)) return path;
    try {
        if (may_be_shortened(path)) {
            const std::string project = project_of_shortened(path);
            if (!project.empty()) return project;
        }
    } catch (...) {
        // A folder that cannot be looked through: the name alone must tell.
    }
    return without_ending(path, previous_extension).append(project_extension);
}

void offer_previous_version(const std::string& project_path) {
    const std::string previous = previous_version_path(project_path);
    const Answer answer =
        boxes().message(question(project_path, previous), Buttons::yes_no, "Previous Version");
    if (answer != Answer::yes) return;
    if (files().exists(project_path)) {
        files().rename(project_path, free_path_beside(project_path, interrupted_kind));
    }
    files().rename(previous, project_path);
}

}  // namespace tavernook
