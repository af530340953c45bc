#include "platform_disk/disk_files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "basics/fault.h"
#include "basics/text.h"
#include "platform_disk/disk_fault.h"

namespace tavernook {

namespace {

static_assert(sizeof(off_t) == sizeof(i64), "offsets are 64-bit numbers");

constexpr std::size_t copy_buffer_size = 256 * 1024;

// Repeats a system call for as long as a signal interrupts it.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

// A byte 0 would end the path early and so name another file.
const char* system_path(const std::string& path) {
    if (path.find('\0') != std::string::npos) throw Fault(fault_number::path_file_access_error);
    return path.c_str();
}

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    int number() const { return number_; }

  private:
    int number_;
};

struct stat facts_of(const Descriptor& file, const std::string& path) {
    struct stat facts {};
    if (::fstat(file.number(), &facts) != 0) throw_disk_fault(errno, path);
    return facts;
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

// A new file of a name of its own, gone again with this object unless it is renamed.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& folder)
        : path_(folder + "/.tavernook-XXXXXX"), file_(::mkostemp(path_.data(), O_CLOEXEC)) {
        if (file_.number() < 0) throw_disk_fault(errno, path_);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!renamed_) ::unlink(path_.c_str());
    }

    void rename_to(const std::string& path) {
        if (::rename(path_.c_str(), path.c_str()) != 0) throw_disk_fault(errno, path);
        renamed_ = true;
    }
    const Descriptor& file() const { return file_; }
    const std::string& path() const { return path_; }

  private:
    std::string path_;
    Descriptor file_;
    bool renamed_ = false;
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

void copy_file(const std::string& from, const std::string& to, bool flushed) {
    system_path(to);
    const Descriptor source = open_plain_file(from, O_RDONLY);
    TemporaryFile copied(folder_of(to));
    copy_bytes(source, from, copied);
    // File systems without permissions refuse this, which harms nothing.
    const mode_t permissions = (facts_of(source, from).st_mode & 0777) | S_IWUSR;
    (void)::fchmod(copied.file().number(), permissions);
    if (flushed) flush_bytes(copied.file(), copied.path());
    copied.rename_to(to);
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
    copy_file(from, to, true);
}

void DiskFiles::copy_unflushed(const std::string& from, const std::string& to) {
    copy_file(from, to, false);
}

FileStamp DiskFiles::stamp(const std::string& path) {
    struct stat facts {};
    if (::stat(system_path(path), &facts) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) return {};
        throw_disk_fault(errno, path);
    }
    const i64 changed = facts.st_mtim.tv_sec * i64{1000000000} + facts.st_mtim.tv_nsec;
    return {static_cast<i64>(facts.st_ino), facts.st_size, changed};
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
    const std::string path = folder.empty() ? "." : folder;
    const Descriptor opened(uninterrupted(
        [&] { return ::open(system_path(path), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (opened.number() < 0) {
        if (errno == ENOENT) throw Fault(fault_number::path_not_found);
        throw_disk_fault(errno, path);
    }
    if (uninterrupted([&] { return ::fsync(opened.number()); }) == 0) return;
    // Some network file systems cannot flush a folder and say EINVAL; there is nothing to wait for.
    if (errno != EINVAL) throw_disk_fault(errno, path);
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
