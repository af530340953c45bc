#include <algorithm>
#include <array>

#include "barcodes/scan_rows.h"
#include "barcodes/scan_sources.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "platform/batch_scanner.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

// The project's port, as long as one lives.
class Port {
  public:
    Port() : is_ready(scanner_device().csp2Init(scanner_comm_port - 1) == 0) {}
    ~Port() { scanner_device().close(); }
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;

    const bool is_ready;
};

[[noreturn]] void refuse_packet() {
    throw Fault(5, "Invalid procedure call");
}

std::string code_of_packet(i32 packet) {
    std::array<char, longest_packet> buffer{};
    const i32 filled = scanner_device().csp2GetPacket(buffer, packet, longest_packet);
    const i32 length = static_cast<unsigned char>(buffer[0]) - packet_overhead;
    if (length < 0) refuse_packet();
    const std::size_t end = code_in_packet + static_cast<std::size_t>(length);
    if (end > buffer.size() || static_cast<i32>(end) > filled) refuse_packet();
    return {buffer.data() + code_in_packet, buffer.data() + end};
}

// While a box or the scanner was waited for. Whoever closes a project cancels the reading, so that
// the next one gets none of its codes; a project under another name is the same one.
bool has_project_gone() {
    return project_open == i16_false;
}

// False when nothing answers or nothing is stored. Nothing comes in, and nothing is told, when the
// project has gone or the user has stopped it.
bool take_codes(int& rows) {
    const Port port;
    if (!port.is_ready) {
        boxes().message(
            "Port not Ready.  Make sure that you are using the correct Comm Port Address.");
    }
    if (has_project_gone()) return true;
    const i32 packets = scanner_device().csp2ReadData();
    if (packets == reading_cancelled || has_project_gone()) return true;
    for (i32 packet = 0; packet < packets; ++packet) {
        populate_item(code_of_packet(packet), 0, "");
        ++rows;
    }
    return packets >= 1;
}

}  // namespace

int read_cs1504() noexcept {
    int rows = 0;
    trap_in_scan_list([&rows] {
        if (!take_codes(rows)) boxes().message("Cannot connect to CS1504");
    });
    return rows;
}

void clear_scanner() noexcept {
    clear_scan_list();
    trap_in_scan_list([] {
        const Port port;
        scanner_device().csp2ClearData();
    });
}

}  // namespace tavernook
