#include "transfer/arriving_project.h"

#include "basics/file_names.h"
#include "basics/text.h"
#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project/names_beside.h"
#include "core/project/previous_version.h"
#include "core/project/project_claim.h"
#include "core/project_data.h"
#include "core/replace_file.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

// A numbered name that is free, for a project and for what an interrupted save may leave of it.
std::string free_numbered(const std::string& project) {
    for (int number = 2;; ++number) {
        std::string free = path_beside(project, std::string(" ").append(std::to_string(number)));
        if (!files().is_taken(free) && !previous_version_exists(free)) return free;
    }
}

}  // namespace

ArrivingFile::ArrivingFile(const std::string& target)
    : target_(target), path_(path_with_ending(target, ".new")) {
    remove_if_there(path_);
}

ArrivingFile::~ArrivingFile() {
    tried([&] { remove_if_there(path_); });
}

void ArrivingFile::write(const std::function<void(File&)>& write, const std::string& bound) const {
    replace_file(path_, write, bound);
}

void ArrivingFile::put_in_place() const {
    if (files().exists(target_)) files().copy_attributes(target_, path_);
    files().rename(path_, target_);
}

ClaimWhileArriving::ClaimWhileArriving(const std::string& path) noexcept
    : is_granted_(claim_project(path)) {}

ClaimWhileArriving::~ClaimWhileArriving() {
    keep_only_claim(project_open != 0 ? project_path : "");
}

std::string set_project_aside(const std::string& project) {
    const bool has_previous = previous_version_exists(project);
    const bool is_there = files().is_taken(project);
    if (!is_there && !has_previous) return {};
    const std::string free = free_numbered(project);
    if (is_there) files().rename(project, free);
    const std::string previous = previous_version_path(free);
    if (has_previous) files().rename(previous_version_path(project), previous);
    return is_there ? free : previous;
}

std::string words_of_aside(const std::string& project, const std::string& aside) noexcept {
    if (aside.empty()) return {};
    return "  The " + shown_file_name(project) + " that was there before is now " +
           shown_file_name(aside) + ".";
}

}  // namespace tavernook
