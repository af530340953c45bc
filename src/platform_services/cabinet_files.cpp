#include "platform_services/cabinet_files.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <mspack.h>
#include <string>
#include <thread>
#include <utility>

#include "basics/fault.h"
#include "basics/text.h"
#include "platform_services/cabinet_packing.h"

namespace tavernook {

namespace {

static_assert(sizeof(off_t) == sizeof(i64), "offsets are 64-bit numbers");

// An unpacking, as the library asks for files: whatever name it gives, there are the cabinet to
// read and the target to write.
class Unpacking : public mspack_system {
  public:
    Unpacking(std::unique_ptr<File> cabinet, std::string_view entry, std::unique_ptr<File> target,
              i64 longest);

    // The whole of it. The cabinet is closed at its end, whatever becomes of it.
    void run() noexcept;

    // Only behind its end, once: the target, or what stopped it.
    std::unique_ptr<File> result();

    // From any thread.
    void stop() noexcept { is_stopped_ = true; }
    int percent() const noexcept { return percent_; }
    bool has_ended() const noexcept { return has_ended_; }

  private:
    struct Handle {
        Unpacking& unpacking;
        bool is_target;
        i64 position = 0;
    };
    static Handle& handle_of(mspack_file* file) { return *reinterpret_cast<Handle*>(file); }

    static mspack_file* open_file(mspack_system* self, const char* name, int mode);
    static void close_file(mspack_file* file) { delete &handle_of(file); }
    static int read_file(mspack_file* file, void* buffer, int count);
    static int write_file(mspack_file* file, void* buffer, int count);
    static int seek_file(mspack_file* file, off_t offset, int mode);
    static off_t tell_file(mspack_file* file) { return handle_of(file).position; }
    static void ignore_message(mspack_file*, const char*, ...) {}
    static void* zeroed(mspack_system*, std::size_t size) { return std::calloc(1, size); }
    static void copied(void* from, void* to, std::size_t size) { std::memcpy(to, from, size); }

    int take(i64 position, std::string_view bytes);
    mscabd_file* entry_of(mscabd_cabinet& cabinet) const;
    void unpack(mscab_decompressor& library);
    void require(int code) const;

    std::unique_ptr<File> cabinet_;
    std::unique_ptr<File> target_;
    std::string entry_;
    i64 longest_;
    i64 size_ = 0;  // that the entry claims to have
    std::exception_ptr failure_;
    std::atomic<bool> is_stopped_ = false;
    std::atomic<bool> has_ended_ = false;
    std::atomic<int> percent_ = 0;
};

Unpacking::Unpacking(std::unique_ptr<File> cabinet, std::string_view entry,
                     std::unique_ptr<File> target, i64 longest)
    : mspack_system{open_file,      close_file, read_file, write_file, seek_file, tell_file,
                    ignore_message, zeroed,     std::free, copied,     nullptr},
      cabinet_(std::move(cabinet)),
      target_(std::move(target)),
      entry_(lower_case(entry)),
      longest_(longest) {}

mspack_file* Unpacking::open_file(mspack_system* self, const char*, int mode) {
    auto& unpacking = *static_cast<Unpacking*>(self);
    return reinterpret_cast<mspack_file*>(new (std::nothrow)
                                              Handle{unpacking, mode != MSPACK_SYS_OPEN_READ});
}

int Unpacking::read_file(mspack_file* file, void* buffer, int count) {
    Handle& handle = handle_of(file);
    Unpacking& unpacking = handle.unpacking;
    if (unpacking.is_stopped_ || handle.is_target || count < 0) return -1;
    try {
        const std::size_t there = unpacking.cabinet_->read(
            handle.position, static_cast<char*>(buffer), static_cast<std::size_t>(count));
        handle.position += static_cast<i64>(there);
        return static_cast<int>(there);
    } catch (...) {
        unpacking.failure_ = std::current_exception();
        return -1;
    }
}

int Unpacking::write_file(mspack_file* file, void* buffer, int count) {
    Handle& handle = handle_of(file);
    Unpacking& unpacking = handle.unpacking;
    if (unpacking.is_stopped_ || !handle.is_target || count < 0) return -1;
    const int taken = unpacking.take(
        handle.position, {static_cast<const char*>(buffer), static_cast<std::size_t>(count)});
    if (taken > 0) handle.position += taken;
    return taken;
}

int Unpacking::take(i64 position, std::string_view bytes) {
    try {
        const i64 end = position + static_cast<i64>(bytes.size());
        if (end > longest_) throw Fault(fault_number::out_of_memory);
        target_->write(position, bytes);
        percent_ = static_cast<int>(std::min<i64>(99, end * 100 / std::max<i64>(size_, 1)));
        return static_cast<int>(bytes.size());
    } catch (...) {
        failure_ = std::current_exception();
        return -1;
    }
}

int Unpacking::seek_file(mspack_file* file, off_t offset, int mode) {
    Handle& handle = handle_of(file);
    i64 start = 0;
    if (mode == MSPACK_SYS_SEEK_CUR) start = handle.position;
    try {
        if (mode == MSPACK_SYS_SEEK_END) start = handle.unpacking.cabinet_->length();
    } catch (...) {
        handle.unpacking.failure_ = std::current_exception();
        return -1;
    }
    if (start + offset < 0) return -1;
    handle.position = start + offset;
    return 0;
}

// What the files threw goes before what the library makes of it.
void Unpacking::require(int code) const {
    if (failure_) std::rethrow_exception(failure_);
    if (is_stopped_) throw Fault(fault_number::cancel_was_selected);
    if (code == MSPACK_ERR_NOMEMORY) throw Fault(fault_number::out_of_memory);
    if (code != MSPACK_ERR_OK) throw Fault(fault_number::bad_record_number);
}

mscabd_file* Unpacking::entry_of(mscabd_cabinet& cabinet) const {
    for (mscabd_file* file = cabinet.files; file != nullptr; file = file->next) {
        if (lower_case(file->filename) == entry_) return file;
    }
    throw Fault(fault_number::file_not_found);
}

void Unpacking::unpack(mscab_decompressor& library) {
    const auto close = [&](mscabd_cabinet* opened) { library.close(&library, opened); };
    const std::unique_ptr<mscabd_cabinet, decltype(close)> opened(library.open(&library, ""),
                                                                  close);
    require(opened ? MSPACK_ERR_OK : library.last_error(&library));
    mscabd_file* entry = entry_of(*opened);
    size_ = entry->length;
    const i64 unpacked_to_its_end = static_cast<i64>(entry->offset) + size_;
    if (unpacked_to_its_end > longest_) throw Fault(fault_number::out_of_memory);
    require(library.extract(&library, entry, ""));
}

void Unpacking::run() noexcept {
    try {
        const std::unique_ptr<mscab_decompressor, decltype(&mspack_destroy_cab_decompressor)>
            library(mspack_create_cab_decompressor(this), mspack_destroy_cab_decompressor);
        if (!library) throw Fault(fault_number::out_of_memory);
        unpack(*library);
        percent_ = 100;
    } catch (...) {
        failure_ = std::current_exception();
    }
    cabinet_.reset();
    has_ended_ = true;
}

std::unique_ptr<File> Unpacking::result() {
    if (failure_) std::rethrow_exception(failure_);
    return std::move(target_);
}

class UnpackingThread : public Extraction {
  public:
    UnpackingThread(std::unique_ptr<File> cabinet, std::string_view entry,
                    std::unique_ptr<File> target, i64 longest)
        : unpacking_(std::move(cabinet), entry, std::move(target), longest),
          thread_([this] { unpacking_.run(); }) {}
    ~UnpackingThread() override {
        unpacking_.stop();
        if (thread_.joinable()) thread_.join();
    }
    UnpackingThread(const UnpackingThread&) = delete;
    UnpackingThread& operator=(const UnpackingThread&) = delete;

    int percent() noexcept override { return unpacking_.percent(); }
    bool has_ended() noexcept override { return unpacking_.has_ended(); }
    std::unique_ptr<File> finish() override {
        if (thread_.joinable()) thread_.join();
        return unpacking_.result();
    }

  private:
    Unpacking unpacking_;
    std::thread thread_;
};

}  // namespace

void CabinetFiles::compress(File& source, std::string_view entry, File& cabinet,
                            const CabinetProgress& progress) {
    pack_cabinet(source, entry, cabinet, progress);
}

std::unique_ptr<Extraction> CabinetFiles::extract(std::unique_ptr<File> cabinet,
                                                  std::string_view entry,
                                                  std::unique_ptr<File> target, i64 longest) {
    return std::make_unique<UnpackingThread>(std::move(cabinet), entry, std::move(target), longest);
}

}  // namespace tavernook
