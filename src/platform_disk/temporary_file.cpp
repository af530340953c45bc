#include "platform_disk/temporary_file.h"

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

constexpr std::string_view name_start = ".tavernook-";
constexpr std::string_view placeholder = "XXXXXX";  // each letter becomes another one

bool is_temporary_name(std::string_view name) {
    return name.size() == name_start.size() + placeholder.size() && name.starts_with(name_start);
}

// A file system without locks has none to give; nothing is cleared away there either.
Descriptor make_locked(std::string& path) {
    Descriptor file(::mkostemp(path.data(), O_CLOEXEC));
    if (file.number() >= 0) (void)uninterrupted([&] { return ::flock(file.number(), LOCK_EX); });
    return file;
}

// Between the making and the lock another program may have cleared the file away.
bool has_gone(const Descriptor& file) {
    struct stat facts {};
    return file.number() >= 0 && ::fstat(file.number(), &facts) == 0 && facts.st_nlink == 0;
}

Descriptor make_temporary(const std::string& folder, std::string& path) {
    for (;;) {
        path = std::string(folder).append("/").append(name_start).append(placeholder);
        Descriptor file = make_locked(path);
        if (!has_gone(file)) return file;
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
