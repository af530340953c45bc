#include "core/previous_version.h"

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

std::string whole_file;

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

std::string interrupted_version_path(std::string_view path) {
    return stem_of(path) + ".interrupted.tvk";
}

std::string question(const std::string& path, const std::string& previous) {
    const std::string name = text_from_utf8(file_name_part(path));
    return "The last save of " + name + " was interrupted. The version from before it, of " +
           date_text(files().modified(previous)) +
           ", is still there.  Press YES to go back to that version (the file as it is now stays "
           "beside it) or press NO to open the file as it is.";
}

}  // namespace

std::string previous_version_path(const std::string& project_path) {
    return stem_of(project_path) + std::string(previous_extension);
}

void set_previous_version_aside(const std::string& project_path) {
    if (!files().exists(project_path)) return;
    const std::string previous = previous_version_path(project_path);
    if (whole_file != project_path && files().exists(previous)) {
        files().remove(project_path);
    } else {
        files().rename(project_path, previous);
    }
    whole_file.clear();
}

void project_file_is_whole(const std::string& project_path) { whole_file = project_path; }

void drop_previous_version(const std::string& project_path) {
    try {
        files().remove(previous_version_path(project_path));
    } catch (const Fault&) {
        // Kept: the save itself is complete.
    }
}

std::string project_of_previous_version(const std::string& path) {
    if (!ends_with_extension(path, previous_extension)) return path;
    return without_ending(path, previous_extension) + std::string(extension);
}

void offer_previous_version(const std::string& project_path) {
    const std::string previous = previous_version_path(project_path);
    if (!files().exists(previous)) return;
    const Answer answer =
        boxes().message(question(project_path, previous), Buttons::yes_no, "Previous Version");
    if (answer != Answer::yes) return;
    if (files().exists(project_path)) {
        files().rename(project_path, interrupted_version_path(project_path));
    }
    files().rename(previous, project_path);
}

}  // namespace tavernook
