#include "core/project/known_files.h"

#include <map>

#include "platform/platform.h"

namespace tavernook {

namespace {

struct KnownFile {
    FileStamp stamp;
    FileEnd end = FileEnd::proper;
};

std::map<std::string, KnownFile> known_files;

}  // namespace

void project_file_is_known(const std::string& path, const FileStamp& stamp, FileEnd end) noexcept {
    known_files.insert_or_assign(path, KnownFile{stamp, end});
}

void forget_project_file(const std::string& path) noexcept {
    known_files.erase(path);
}

void forget_project_files() noexcept {
    known_files.clear();
}

bool is_known_project_file(const std::string& path) {
    const auto found = known_files.find(path);
    return found != known_files.end() && found->second.end != FileEnd::unfinished &&
           is_same_content(files().stamp(path), found->second.stamp);
}

bool is_changed_elsewhere(const std::string& path) {
    const auto found = known_files.find(path);
    if (found == known_files.end()) return false;
    const FileStamp now = files().stamp(path);
    return now != FileStamp{} && !is_same_content(now, found->second.stamp);
}

bool has_been_here(const std::string& path) noexcept {
    return known_files.contains(path);
}

bool ends_early(const std::string& path) noexcept {
    const auto found = known_files.find(path);
    return found != known_files.end() && found->second.end == FileEnd::early;
}

}  // namespace tavernook
