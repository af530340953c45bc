// What a scanner answers, from any bytes. The first byte chooses the command, the layout of the
// codes and whether the bytes are given the CRC that belongs to them; the rest is an answer to the
// framer, held against the rules written out, and then a whole conversation: a length byte and so
// many bytes for each reading of the line.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform_services/cs1504_scanner.h"

namespace tavernook {
namespace {

using cs1504::Command;
using cs1504::ReplyFramer;

void require(bool holds) {
    if (!holds) std::abort();
}

unsigned value_of(char byte) {
    return static_cast<unsigned char>(byte);
}

// High bit first over reversed bits, polynomial 8005 hex.
unsigned reversed(unsigned value, unsigned bits) {
    unsigned result = 0;
    for (unsigned bit = 0; bit < bits; ++bit) result |= ((value >> bit) & 1u) << (bits - 1 - bit);
    return result;
}
unsigned crc_by_the_rules(std::string_view bytes) {
    unsigned crc = 0xFFFF;
    for (const char byte : bytes) {
        crc ^= reversed(value_of(byte), 8) << 8;
        for (int bit = 0; bit < 8; ++bit) crc = ((crc << 1) ^ (crc & 0x8000 ? 0x8005 : 0)) & 0xFFFF;
    }
    return reversed(crc, 16) ^ 0xFFFF;
}

std::string ended(std::string bytes) {
    const unsigned crc = crc_by_the_rules(bytes);
    return bytes + static_cast<char>(crc >> 8) + static_cast<char>(crc & 0xFF);
}

// Whether the bytes begin with a whole reply with the right CRC; its strings.
bool is_whole_by_the_rules(std::string_view bytes, std::size_t fixed,
                           std::vector<std::string>& strings) {
    if (bytes.size() < 2 || bytes[0] != 6 || bytes[1] != 2) return false;
    std::size_t at = 2 + fixed;
    while (at < bytes.size() && bytes[at] != 0) {
        strings.emplace_back(bytes.substr(at + 1, value_of(bytes[at])));
        at += 1 + value_of(bytes[at]);
    }
    if (at + 3 > bytes.size() || at + 3 > 6144) return false;
    const unsigned told = value_of(bytes[at + 1]) << 8 | value_of(bytes[at + 2]);
    return told == crc_by_the_rules(bytes.substr(0, at + 1));
}

void check_packets(const std::vector<std::string>& strings, cs1504::StringLayout layout) {
    cs1504::parameter_in(strings, cs1504::Parameter::store_time);
    const auto packets = cs1504::packets_of(strings, layout);
    if (!packets) return;
    require(packets->size() <= strings.size());
    for (const std::string& packet : *packets) {
        require(packet.size() == value_of(packet[0]) + 1u);
        const std::string code = packet.substr(2, packet.size() - 6);
        require(!code.empty());
        const std::size_t in_front = layout.has_type ? 1 : 0;
        require(std::any_of(strings.begin(), strings.end(), [&](const std::string& text) {
            return text.compare(in_front, code.size(), code) == 0;
        }));
    }
}

void check_framer(Command command, std::string_view bytes, cs1504::StringLayout layout) {
    ReplyFramer at_once(command);
    ReplyFramer in_parts(command);
    const auto state = at_once.take(bytes);
    auto state_in_parts = ReplyFramer::State::unfinished;
    for (std::size_t at = 0; at < bytes.size(); at += 1 + at % 3) {
        state_in_parts = in_parts.take(bytes.substr(at, 1 + at % 3));
    }
    require(state == state_in_parts);
    require(at_once.strings() == in_parts.strings());
    std::vector<std::string> strings;
    const bool is_whole = is_whole_by_the_rules(bytes, cs1504::fixed_bytes(command), strings);
    require((state == ReplyFramer::State::whole) == is_whole);
    if (!is_whole) return require(at_once.strings().empty());
    require(at_once.strings() == strings);
    check_packets(strings, layout);
}

// Says what the input holds, a part for each reading, and nothing more in the end.
class FuzzLine : public SerialLine {
  public:
    FuzzLine(std::string_view input, bool is_right) : input_(input), is_right_(is_right) {}
    std::vector<std::string> ports() override { return {"ttyS0"}; }
    void open(const std::string&) override { is_open_ = true; }
    bool is_open() const override { return is_open_; }
    void send(std::string_view) override {}
    std::string receive(Milliseconds longest) override {
        require(longest.count() >= 0);
        if (input_.empty()) {
            time_ += longest;
            return {};
        }
        const std::size_t length = value_of(input_[0]);
        std::string part(input_.substr(1, length));
        input_.remove_prefix(std::min(length + 1, input_.size()));
        time_ += Milliseconds(1);
        if (part.empty()) time_ += longest;
        if (part == "gone") is_open_ = false;
        return is_right_ && !part.empty() ? ended(part) : part;
    }
    void wake() noexcept override {}
    void discard() override {}
    void close() noexcept override { is_open_ = false; }
    void close_with(std::string_view) noexcept override { close(); }
    Milliseconds now() const override { return time_; }

  private:
    std::string_view input_;
    bool is_right_;
    bool is_open_ = false;
    Milliseconds time_{0};
};

void check_session(std::string_view conversation, bool is_right) {
    FuzzLine line(conversation, is_right);
    Cs1504Scanner scanner(line);
    require(scanner.csp2Init(0) == 0);
    const i32 count = scanner.csp2ReadData();
    require(count >= -1 && (count < 0) == !scanner.trouble().empty());
    require(line.now() <= std::chrono::seconds(21));
    char buffer[longest_packet];
    require(scanner.csp2GetPacket(buffer, std::max(count, 0), longest_packet) == 0);
    for (i32 packet = 0; packet < count; ++packet) {
        require(scanner.csp2GetPacket(buffer, packet, longest_packet) > packet_overhead);
    }
    scanner.csp2ClearData();
    scanner.close();
    require(!line.is_open());
}

void check(std::string_view input) {
    if (input.empty()) return;
    const unsigned choice = value_of(input[0]);
    input.remove_prefix(1);
    const Command commands[] = {Command::interrogate, Command::upload, Command::read_parameters,
                                Command::clear_barcodes};
    const cs1504::StringLayout layout = {.has_type = (choice & 4) != 0,
                                         .has_time = (choice & 8) != 0};
    const bool is_right = (choice & 16) != 0;
    check_framer(commands[choice & 3], is_right ? ended(std::string(input)) : std::string(input),
                 layout);
    check_session(input, is_right);
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::check({reinterpret_cast<const char*>(data), size});
    return 0;
}
