#include "fakes/faulty_files.h"

#include <unistd.h>
#include <utility>

#include "basics/fault.h"
#include "basics/text.h"

namespace tavernook {

namespace {

std::string name_of(std::string_view path) {
    while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
    return std::string(file_name_part(path));
}

std::string place(i64 offset, std::size_t count) {
    return std::string(" ").append(std::to_string(offset)) + " " + std::to_string(count);
}

}  // namespace

class FaultyFile final : public File {
  public:
    FaultyFile(FaultyFiles& files, std::unique_ptr<File> real, std::string name)
        : files_(files), real_(std::move(real)), name_(std::move(name)) {}

    std::size_t read(i64 offset, char* buffer, std::size_t count) override;
    void write(i64 offset, std::string_view bytes) override;
    i64 length() override;
    void flush() override;

  private:
    FaultyFiles& files_;
    std::unique_ptr<File> real_;
    std::string name_;
};

template <typename Tear>
void FaultyFiles::count(const std::string& operation, Tear tear) {
    ++operations_;
    const bool planned =
        plan_.at != 0 &&
        (plan_.repeat == Repeat::persistently ? operations_ >= plan_.at : operations_ == plan_.at);
    if (!planned) {
        calls.add(operation);
        return;
    }
    if (operations_ == plan_.at && plan_.torn == Torn::yes) tear();
    if (plan_.kill) ::_exit(kill_status);
    calls.add(operation + " fault " + std::to_string(plan_.fault));
    throw Fault(plan_.fault);
}

void FaultyFiles::count(const std::string& operation) {
    count(operation, [] {});
}

std::size_t FaultyFile::read(i64 offset, char* buffer, std::size_t count) {
    files_.count("read " + name_ + place(offset, count));
    return real_->read(offset, buffer, count);
}

void FaultyFile::write(i64 offset, std::string_view bytes) {
    files_.count("write " + name_ + place(offset, bytes.size()),
                 [&] { real_->write(offset, bytes.substr(0, bytes.size() / 2)); });
    real_->write(offset, bytes);
}

i64 FaultyFile::length() {
    files_.count("length " + name_);
    return real_->length();
}

void FaultyFile::flush() {
    files_.count("flush " + name_);
    real_->flush();
}

void FaultyFiles::fail_at(int n, int fault_number, Repeat repeat, Torn torn) {
    plan_ = Plan{n, fault_number, repeat, false, torn};
}

void FaultyFiles::kill_at(int n, Torn torn) {
    plan_ = Plan{n, 0, Repeat::once, true, torn};
}

void FaultyFiles::start_over() {
    work_normally();
    operations_ = 0;
    calls.clear();
}

bool FaultyFiles::is_taken(const std::string& path) {
    count("is_taken " + name_of(path));
    return real_.is_taken(path);
}

bool FaultyFiles::exists(const std::string& path) {
    count("exists " + name_of(path));
    return real_.exists(path);
}

std::unique_ptr<File> FaultyFiles::open(const std::string& path, OpenMode mode) {
    const std::string name = name_of(path);
    count("open " + name + (mode == OpenMode::read ? " read" : " read_write"));
    return std::make_unique<FaultyFile>(*this, real_.open(path, mode), name);
}

void FaultyFiles::remove(const std::string& path) {
    count("remove " + name_of(path));
    real_.remove(path);
}

void FaultyFiles::rename(const std::string& from, const std::string& to) {
    count("rename " + name_of(from) + " -> " + name_of(to));
    real_.rename(from, to);
}

void FaultyFiles::copy(const std::string& from, const std::string& to) {
    count("copy " + name_of(from) + " -> " + name_of(to));
    real_.copy(from, to);
}

void FaultyFiles::copy_unflushed(const std::string& from, const std::string& to) {
    count("copy_unflushed " + name_of(from) + " -> " + name_of(to));
    real_.copy_unflushed(from, to);
}

// What can tell of no failure is then left undone.
void FaultyFiles::copy_attributes(const std::string& from, const std::string& to) noexcept {
    try {
        count("copy_attributes " + name_of(from) + " -> " + name_of(to));
        real_.copy_attributes(from, to);
    } catch (const Fault&) {
    }
}

bool FaultyFiles::is_write_protected(const std::string& path) {
    count("is_write_protected " + name_of(path));
    return real_.is_write_protected(path);
}

FileStamp FaultyFiles::stamp(const std::string& path) {
    count("stamp " + name_of(path));
    return real_.stamp(path);
}

void FaultyFiles::remove_left_over(const std::string& folder) noexcept {
    try {
        count("remove_left_over " + name_of(folder));
        real_.remove_left_over(folder);
    } catch (const Fault&) {
    }
}

Date FaultyFiles::modified(const std::string& path) {
    count("modified " + name_of(path));
    return real_.modified(path);
}

void FaultyFiles::flush_folder(const std::string& folder) {
    count("flush_folder " + name_of(folder));
    real_.flush_folder(folder);
}

void FaultyFiles::flush_all(const std::string& folder) {
    count("flush_all " + name_of(folder));
    real_.flush_all(folder);
}

std::vector<std::string> FaultyFiles::list(const std::string& folder, std::string_view suffix) {
    count("list " + name_of(folder) + " " + std::string(suffix));
    return real_.list(folder, suffix);
}

void FaultyFiles::make_folder(const std::string& folder) {
    count("make_folder " + name_of(folder));
    real_.make_folder(folder);
}

}  // namespace tavernook
