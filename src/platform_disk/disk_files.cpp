#include "platform_disk/disk_files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>
#include <utility>

#include "basics/fault.h"
#include "basics/text.h"
#include "platform_disk/attributes.h"
#include "platform_disk/descriptor.h"
#include "platform_disk/disk_fault.h"
#include "platform_disk/temporary_file.h"

namespace tavernook {

namespace {

static_assert(sizeof(off_t) == sizeof(i64), "offsets are 64-bit numbers");

constexpr std::size_t copy_buffer_size = 256 * 1024;

// A byte 0 would end the path early and so name another file.
const char* system_path(const std::string& path) {
    if (path.find('\0') != std::string::npos) throw Fault(fault_number::path_file_access_error);
    return path.c_str();
}

Descriptor open_descriptor(const std::string& path, int flags) {
    const char* name = system_path(path);
    Descriptor file(uninterrupted([&] { return ::open(name, flags | O_CLOEXEC, 0666); }));
    if (file.number() < 0) throw_disk_fault(errno, path);
    return file;
}

// O_NONBLOCK: a pipe without a writer would otherwise hold the program for ever.
Descriptor open_plain_file(const std::string& path, int flags) {
    Descriptor file = open_descriptor(path, flags | O_NONBLOCK | O_NOCTTY);
    const mode_t mode = facts_of(file, path).st_mode;
    if (S_ISDIR(mode) || S_ISFIFO(mode)) throw Fault(fault_number::path_file_access_error);
    return file;
}

std::size_t read_bytes(const Descriptor& file, const std::string& path, i64 offset, char* buffer,
                       std::size_t count) {
    std::size_t done = 0;
    while (done < count) {
        const ssize_t part = uninterrupted([&] {
            return ::pread(file.number(), buffer + done, count - done,
                           offset + static_cast<i64>(done));
        });
        if (part < 0) throw_disk_fault(errno, path);
        if (part == 0) break;
        done += static_cast<std::size_t>(part);
    }
    return done;
}

void write_bytes(const Descriptor& file, const std::string& path, i64 offset,
                 std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t part = uninterrupted(
            [&] { return ::pwrite(file.number(), bytes.data(), bytes.size(), offset); });
        if (part < 0) throw_disk_fault(errno, path);
        if (part == 0) throw Fault(fault_number::device_io_error);
        bytes.remove_prefix(static_cast<std::size_t>(part));
        offset += part;
    }
}

// Long writes start on their way to the disk at once, so that the flush behind them has less to
// wait for. Only a hint: what matters is what the flush says.
void start_writing_out(const Descriptor& file, i64 offset, std::size_t count) {
    constexpr std::size_t worth_it = 128 * 1024;
    if (count < worth_it) return;
    ::sync_file_range(file.number(), offset, static_cast<off_t>(count), SYNC_FILE_RANGE_WRITE);
}

void flush_bytes(const Descriptor& file, const std::string& path) {
    if (uninterrupted([&] { return ::fsync(file.number()); }) != 0) throw_disk_fault(errno, path);
}

class DiskFile final : public File {
  public:
    DiskFile(Descriptor file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

    std::size_t read(i64 offset, char* buffer, std::size_t count) override {
        return read_bytes(file_, path_, offset, buffer, count);
    }
    void write(i64 offset, std::string_view bytes) override {
        write_bytes(file_, path_, offset, bytes);
        start_writing_out(file_, offset, bytes.size());
    }
    i64 length() override { return facts_of(file_, path_).st_size; }
    void flush() override { flush_bytes(file_, path_); }

  private:
    Descriptor file_;
    std::string path_;
};

void copy_bytes(const Descriptor& from, const std::string& from_path, const TemporaryFile& to) {
    // Most copies are of small files, by the thousand.
    const auto size = static_cast<std::size_t>(facts_of(from, from_path).st_size);
    std::string buffer(std::clamp<std::size_t>(size + 1, 4096, copy_buffer_size), '\0');
    i64 offset = 0;
    for (;;) {
        const std::size_t count = read_bytes(from, from_path, offset, buffer.data(), buffer.size());
        if (count == 0) return;
        write_bytes(to.file(), to.path(), offset, std::string_view(buffer).substr(0, count));
        offset += static_cast<i64>(count);
    }
}

// What a copy over another file keeps, and what a new one takes.
void give_attributes(const std::string& from, const std::string& to, const TemporaryFile& copied) {
    struct stat facts {};
    const bool replaces = ::stat(to.c_str(), &facts) == 0;
    const std::string& model = replaces ? to : from;
    take_rights(model, copied.path());
    take_extended_attributes(model, copied.path());
    if (!replaces) let_owner_write(copied.path());
}

enum class Flush { no, yes };

void copy_file(const std::string& from, const std::string& to, Flush flush) {
    system_path(to);
    const Descriptor source = open_plain_file(from, O_RDONLY);
    TemporaryFile copied(folder_of(to));
    copy_bytes(source, from, copied);
    give_attributes(from, to, copied);
    if (flush == Flush::yes) flush_bytes(copied.file(), copied.path());
    copied.rename_to(to);
}

// Network file systems and those in user space may number their files anew at each look.
bool keeps_numbers(const std::string& path) {
    constexpr std::uint64_t ext = 0xef53;
    constexpr std::uint64_t btrfs = 0x9123683e;
    constexpr std::uint64_t xfs = 0x58465342;
    constexpr std::uint64_t f2fs = 0xf2f52010;
    constexpr std::uint64_t zfs = 0x2fc12fc1;
    constexpr std::uint64_t tmpfs = 0x01021994;
    constexpr std::uint64_t overlay = 0x794c7630;
    constexpr std::array known = {ext, btrfs, xfs, f2fs, zfs, tmpfs, overlay};
    struct statfs facts {};
    if (::statfs(path.c_str(), &facts) != 0) return false;
    const auto kind = static_cast<std::uint64_t>(facts.f_type);
    return std::find(known.begin(), known.end(), kind) != known.end();
}

// To be flushed.
Descriptor open_folder(const std::string& folder) {
    const std::string path = folder.empty() ? "." : folder;
    Descriptor opened(uninterrupted(
        [&] { return ::open(system_path(path), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (opened.number() >= 0) return opened;
    if (errno == ENOENT) throw Fault(fault_number::path_not_found);
    throw_disk_fault(errno, path);
}

class OpenFolder {
  public:
    explicit OpenFolder(const char* path) : folder_(::opendir(path)) {}
    OpenFolder(const OpenFolder&) = delete;
    OpenFolder& operator=(const OpenFolder&) = delete;
    ~OpenFolder() {
        if (folder_ != nullptr) ::closedir(folder_);
    }
    DIR* get() const { return folder_; }

  private:
    DIR* folder_;
};

// The folder itself says what most names are, without a look at each file.
bool is_plain_file(const OpenFolder& folder, const dirent& entry) {
    if (entry.d_type == DT_REG) return true;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
    struct stat facts {};
    return ::fstatat(::dirfd(folder.get()), entry.d_name, &facts, 0) == 0 && S_ISREG(facts.st_mode);
}

// Makes one folder whose parent exists; 0 when it is there, else the error.
int make_one_folder(const std::string& path) {
    struct stat facts {};
    const auto is_there = [&] {
        return ::stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
    };
    if (is_there() || ::mkdir(path.c_str(), 0777) == 0) return 0;
    const int error = errno;
    // Another program may have made it in between.
    return error == EEXIST && is_there() ? 0 : error;
}

}  // namespace

bool DiskFiles::exists(const std::string& path) {
    struct stat facts {};
    if (::stat(system_path(path), &facts) == 0) return true;
    if (errno == ENOENT || errno == ENOTDIR) return false;
    throw_disk_fault(errno, path);
}

bool DiskFiles::is_taken(const std::string& path) {
    struct stat facts {};
    if (::lstat(system_path(path), &facts) == 0) return true;
    if (errno == ENOENT || errno == ENOTDIR) return false;
    throw_disk_fault(errno, path);
}

std::string DiskFiles::behind_link(const std::string& path) {
    struct stat facts {};
    if (::lstat(path.c_str(), &facts) != 0 || !S_ISLNK(facts.st_mode)) return path;
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr),
                                                           &std::free);
    return real == nullptr ? path : std::string(real.get());
}

std::unique_ptr<File> DiskFiles::open(const std::string& path, OpenMode mode) {
    const int flags = mode == OpenMode::read ? O_RDONLY : O_RDWR | O_CREAT;
    return std::make_unique<DiskFile>(open_plain_file(path, flags), path);
}

void DiskFiles::remove(const std::string& path) {
    if (::unlink(system_path(path)) != 0) throw_disk_fault(errno, path);
}

void DiskFiles::rename(const std::string& from, const std::string& to) {
    if (::rename(system_path(from), system_path(to)) == 0) return;
    const int error = errno;
    // Which of the two is missing: the new name never is, only its folder can be.
    if (error == ENOENT && !exists(folder_of(to))) throw Fault(fault_number::path_not_found);
    throw_disk_fault(error, from);
}

void DiskFiles::copy(const std::string& from, const std::string& to) {
    copy_file(from, to, Flush::yes);
}

void DiskFiles::copy_unflushed(const std::string& from, const std::string& to) {
    copy_file(from, to, Flush::no);
}

void DiskFiles::copy_attributes(const std::string& from, const std::string& to) noexcept {
    if (from.empty()) return;
    constexpr mode_t for_the_owner = 0600;
    const Descriptor made(
        ::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, for_the_owner));
    take_rights(from, to);
    if (made.number() >= 0) return let_owner_write(to);
    take_extended_attributes(from, to);
}

bool DiskFiles::is_write_protected(const std::string& path) {
    struct stat facts {};
    return ::stat(system_path(path), &facts) == 0 && (facts.st_mode & 0222) == 0;
}

FileStamp DiskFiles::stamp(const std::string& path) {
    struct stat facts {};
    if (::stat(system_path(path), &facts) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) return {};
        throw_disk_fault(errno, path);
    }
    constexpr i64 second = 1'000'000'000;
    return {keeps_numbers(path) ? static_cast<i64>(facts.st_ino) : 0, facts.st_size,
            facts.st_mtim.tv_sec * second + facts.st_mtim.tv_nsec};
}

void DiskFiles::remove_left_over(const std::string& folder) noexcept {
    remove_left_over_files(folder);
}

Date DiskFiles::modified(const std::string& path) {
    struct stat facts {};
    if (::stat(system_path(path), &facts) != 0) throw_disk_fault(errno, path);
    struct tm local {};
    if (::localtime_r(&facts.st_mtime, &local) == nullptr) {
        throw Fault(fault_number::path_file_access_error);
    }
    return date_from_moment({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday},
                            {local.tm_hour, local.tm_min, local.tm_sec});
}

void DiskFiles::flush_folder(const std::string& folder) {
    const Descriptor opened = open_folder(folder);
    if (uninterrupted([&] { return ::fsync(opened.number()); }) == 0) return;
    // Some network file systems cannot flush a folder and say EINVAL; there is nothing to wait for.
    if (errno != EINVAL) throw_disk_fault(errno, folder);
}

void DiskFiles::flush_all(const std::string& folder) {
    const Descriptor opened = open_folder(folder);
    if (::syncfs(opened.number()) != 0) throw_disk_fault(errno, folder);
}

std::vector<std::string> DiskFiles::list(const std::string& folder, std::string_view suffix) {
    const OpenFolder opened(system_path(folder));
    if (opened.get() == nullptr) {
        if (errno == ENOENT) return {};
        throw_disk_fault(errno, folder);
    }
    std::vector<std::string> names;
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(opened.get());
        if (entry == nullptr) break;
        const std::string_view name = entry->d_name;
        if (name.ends_with(suffix) && is_plain_file(opened, *entry)) names.emplace_back(name);
    }
    if (errno != 0) throw_disk_fault(errno, folder);
    std::sort(names.begin(), names.end());
    return names;
}

void DiskFiles::make_folder(const std::string& folder) {
    system_path(folder);
    for (std::size_t slash = folder.find('/', 1); slash != std::string::npos;
         slash = folder.find('/', slash + 1)) {
        const std::string above = folder.substr(0, slash);
        const int error = make_one_folder(above);
        // A file in the way of a folder above is reported by the folder below it, as Fault 76.
        if (error != 0 && error != EEXIST) throw_disk_fault(error, above);
    }
    const int error = make_one_folder(folder);
    if (error != 0) throw_disk_fault(error, folder);
}

}  // namespace tavernook
