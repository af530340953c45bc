#include "platform_disk/temporary_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/file.h>
#include <vector>

namespace tavernook {

namespace {

constexpr std::string_view name_start = ".tavernook-unfinished-";
constexpr std::string_view placeholder = "XXXXXX";  // each becomes another letter or digit

bool is_letter_or_digit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool is_temporary_name(std::string_view name) {
    if (!name.starts_with(name_start)) return false;
    name.remove_prefix(name_start.size());
    return name.size() == placeholder.size() &&
           std::all_of(name.begin(), name.end(), is_letter_or_digit);
}

// Between the making and the lock another program may clear the file away, or be about to. A file
// system without locks has none to give; nothing is cleared away there either.
bool is_lost(const Descriptor& file, const std::string& path) {
    if (::flock(file.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return true;
    struct stat facts {};
    return ::lstat(path.c_str(), &facts) != 0 && errno == ENOENT;
}

Descriptor make_temporary(const std::string& folder, std::string& path) {
    constexpr int rounds = 10;
    for (int round = 1;; ++round) {
        path = std::string(folder).append("/").append(name_start).append(placeholder);
        Descriptor file(::mkostemp(path.data(), O_CLOEXEC));
        if (file.number() < 0 || !is_lost(file, path) || round == rounds) return file;
    }
}

std::vector<std::string> temporary_names(const std::string& folder) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> opened(::opendir(folder.c_str()), &::closedir);
    if (opened == nullptr) return names;
    while (const dirent* entry = ::readdir(opened.get())) {
        if (is_temporary_name(entry->d_name)) names.emplace_back(entry->d_name);
    }
    return names;
}

void remove_unless_locked(const std::string& path) {
    struct stat named {};
    if (::lstat(path.c_str(), &named) != 0 || !S_ISREG(named.st_mode)) return;
    const Descriptor file(::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.number() < 0 || ::flock(file.number(), LOCK_EX | LOCK_NB) != 0) return;
    struct stat locked {};
    if (::fstat(file.number(), &locked) != 0 || locked.st_ino != named.st_ino) return;
    ::unlink(path.c_str());
}

}  // namespace

TemporaryFile::TemporaryFile(const std::string& folder) : file_(make_temporary(folder, path_)) {
    if (file_.number() < 0) throw_disk_fault(errno, path_);
}

TemporaryFile::~TemporaryFile() {
    if (!renamed_) ::unlink(path_.c_str());
}

void TemporaryFile::rename_to(const std::string& path) {
    if (std::rename(path_.c_str(), path.c_str()) != 0) throw_disk_fault(errno, path);
    renamed_ = true;
}

void remove_left_over_files(const std::string& folder) noexcept {
    try {
        for (const std::string& name : temporary_names(folder)) {
            remove_unless_locked(folder + "/" + name);
        }
    } catch (...) {
        // The next start looks again.
    }
}

}  // namespace tavernook
