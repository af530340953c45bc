// Unpacking any bytes: it comes to an end, gives no more than was allowed, and what it gives is
// refused or whole. The same bytes packed come out again. The first byte tells which of the two is
// done with the rest.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>

#include "basics/fault.h"
#include "memory_files.h"
#include "platform_services/cabinet_files.h"

namespace tavernook {
namespace {

constexpr i64 longest = 200'000;

void require(bool holds) {
    if (!holds) std::abort();
}

// A file of the extraction's own, whose bytes are still there when it has gone.
class SharedFile : public MemoryFile {
  public:
    explicit SharedFile(std::string& kept) : kept_(kept) {}
    ~SharedFile() override { kept_ = bytes; }
    SharedFile(const SharedFile&) = delete;
    SharedFile& operator=(const SharedFile&) = delete;

  private:
    std::string& kept_;
};

struct Unpacked {
    std::string bytes;
    int fault = 0;
};

Unpacked unpack(const std::string& cabinet) {
    CabinetFiles cabinets;
    Unpacked result;
    const auto extraction = cabinets.extract(std::make_unique<MemoryFile>(cabinet), "temppf.tmp",
                                             std::make_unique<SharedFile>(result.bytes), longest);
    while (!extraction->has_ended()) std::this_thread::yield();
    try {
        extraction->finish();
        require(extraction->percent() == 100);
    } catch (const Fault& fault) {
        result.fault = fault.number;
        require(extraction->percent() < 100);
    }
    require(static_cast<i64>(result.bytes.size()) <= longest);
    return result;
}

void pack(const std::string& bytes) {
    CabinetFiles cabinets;
    MemoryFile source(bytes);
    MemoryFile cabinet;
    int last = 0;
    cabinets.compress(source, "temppf.tmp", cabinet, [&](int percent) {
        require(percent >= last && percent <= 100);
        last = percent;
    });
    require(last == 100);
    const Unpacked again = unpack(cabinet.bytes);
    require(again.fault == 0 && again.bytes == bytes);
}

void run(std::string_view input) {
    if (input.empty()) return;
    const std::string bytes(input.substr(1));
    if (input.front() % 8 == 0) return pack(bytes);
    const int fault = unpack(bytes).fault;
    require(fault == 0 || fault == fault_number::file_not_found ||
            fault == fault_number::bad_record_number || fault == fault_number::out_of_memory);
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::run({reinterpret_cast<const char*>(data), size});
    return 0;
}
