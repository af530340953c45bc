#include "transfer/export_target.h"

#include "basics/file_names.h"
#include "basics/text.h"
#include "core/project/names_beside.h"
#include "core/project_data.h"
#include "platform/platform.h"
#include "transfer/exchange_words.h"

namespace tavernook {

namespace {

constexpr std::string_view lock_extension = ".lock";

}  // namespace

bool is_same_file(const std::string& a, const std::string& b) {
    const FileStamp stamp = files().stamp(a);
    return a == b || (stamp.node != 0 && stamp == files().stamp(b));
}

bool belongs_to_a_project(const std::string& path) {
    return has_ending(path, project_extension) || has_ending(path, lock_extension) ||
           is_same_file(path, project_path);
}

std::string with_extension(const std::string& path, std::string_view extension) noexcept {
    return has_ending(path, extension) ? path : path_with_ending(path, extension);
}

std::string objection_to_target(const std::string& chosen, const std::string& target,
                                const std::string& nothing_done) {
    const std::string name = shown_file_name(target);
    if (belongs_to_a_project(chosen) || belongs_to_a_project(target)) {
        return shown_file_name(chosen) + " is a project's own file; " + nothing_done +
               ".  Choose another name.";
    }
    if (!files().exists(folder_of(target))) {
        return "The folder " + shown_file_name(folder_of(target)) + " is not there; " +
               nothing_done + ".  Choose another place.";
    }
    if (target != chosen && files().is_taken(target)) {
        return name + " is there already; " + nothing_done + ".  Choose another name.";
    }
    if (files().is_write_protected(target)) {
        return name + " is write-protected; " + nothing_done + ".";
    }
    return {};
}

std::string export_target(const std::string& chosen, std::string_view extension,
                          const std::string& nothing_done) {
    const std::string named = files().behind_link(chosen);
    std::string target = with_extension(named, extension);
    const std::string refusal = objection_to_target(named, target, nothing_done);
    if (refusal.empty()) return target;
    say(refusal);
    return {};
}

}  // namespace tavernook
