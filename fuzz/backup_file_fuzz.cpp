// The coding of back-ups on any bytes. The first byte of the input tells whether the rest is
// decoded or encoded; of the next three, two are how many bytes are put in front of it, so that the
// end of a block is never far. What comes out is what the rules give byte by byte; what is refused
// is refused with the promised Fault.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "basics/fault.h"
#include "memory_files.h"
#include "support/plain_run_coder.h"
#include "transfer/run_length.h"

namespace tavernook {
namespace {

constexpr std::size_t most_restored = 255 * 32000 + 65535;

void require(bool holds) {
    if (!holds) std::abort();
}

// False when it is refused.
bool decode(const std::string& backup) {
    MemoryFile file(backup);
    std::string restored;
    const auto take = [&](std::string_view bytes) { restored += bytes; };
    try {
        decode_runs(file, take, [](int) {});
    } catch (const Fault& fault) {
        require(fault.number == fault_number::bad_record_number);
        require(restored.size() <= most_restored);
        return false;
    }
    require(restored.size() <= most_restored && restored == plainly_decoded(backup));
    return true;
}

void encode(const std::string& project) {
    MemoryFile file(project);
    std::string backup;
    encode_runs(
        file, [&](std::string_view bytes) { backup += bytes; }, [](int) {});
    require(backup == plainly_encoded(project));
    require(decode(backup));
}

void run(std::string_view input) {
    if (input.size() < 4) return;
    const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(input[place]); };
    const std::string in_front(byte(2) + byte(3) * std::size_t{256}, 'Q');
    const std::string bytes = in_front + std::string(input.substr(4));
    if (byte(0) % 2 != 0) return encode(bytes);
    decode(bytes);
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::run({reinterpret_cast<const char*>(data), size});
    return 0;
}
