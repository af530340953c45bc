#include "platform_services/cs1504_protocol.h"

#include "platform/batch_scanner.h"

namespace tavernook::cs1504 {

namespace {

constexpr std::size_t crc_bytes = 2;
constexpr std::size_t longest_code = 255 - packet_overhead;  // what a packet's length byte can tell

unsigned char byte_at(std::string_view bytes, std::size_t place) {
    return static_cast<unsigned char>(bytes.at(place));
}

void append_byte(std::string& bytes, unsigned value) {
    bytes += static_cast<char>(static_cast<unsigned char>(value));
}

// Ends the bytes of a command.
std::string closed(std::string bytes) {
    append_byte(bytes, 0);
    const unsigned crc = crc_of(bytes);
    append_byte(bytes, crc >> 8);
    append_byte(bytes, crc & 0xFF);
    return bytes;
}

std::string begun(Command command) {
    std::string bytes;
    append_byte(bytes, static_cast<unsigned char>(command));
    append_byte(bytes, start_of_text);
    return bytes;
}

bool is_refusal(FirstByte byte) {
    return byte >= FirstByte::unsupported && byte <= FirstByte::general_error &&
           byte != FirstByte::done;
}

bool has_right_crc(std::string_view reply) {
    const std::size_t place = reply.size() - crc_bytes;
    const unsigned told = byte_at(reply, place) * 256u + byte_at(reply, place + 1);
    return told == crc_of(reply.substr(0, place));
}

std::string packet_of(const std::string& text, StringLayout layout) {
    const std::size_t in_front = layout.has_type ? type_bytes : 0;
    const std::size_t behind = layout.has_time ? time_bytes : 0;
    const std::string code = text.substr(in_front, text.size() - in_front - behind);
    std::string packet;
    append_byte(packet, static_cast<unsigned>(code.size()) + packet_overhead);
    append_byte(packet, layout.has_type ? byte_at(text, 0) : 0u);
    packet += code;
    packet += layout.has_time ? text.substr(text.size() - time_bytes) : std::string(time_bytes, 0);
    return packet;
}

}  // namespace

std::uint16_t crc_of(std::string_view bytes) {
    unsigned crc = crc_start;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) != 0 ? crc_polynomial : 0u);
    }
    return static_cast<std::uint16_t>(crc ^ crc_complement);
}

std::string command_bytes(Command command) {
    return closed(begun(command));
}

std::string read_parameter_bytes(Parameter parameter) {
    std::string bytes = begun(Command::read_parameters);
    append_byte(bytes, 1);
    append_byte(bytes, static_cast<unsigned char>(parameter));
    return closed(bytes);
}

ReplyFramer::State ReplyFramer::take(std::string_view bytes) {
    for (const char byte : bytes) {
        if (state_ != State::unfinished) break;
        bytes_ += byte;
        state_ = judge();
    }
    return state_;
}

ReplyFramer::State ReplyFramer::judge() {
    const std::size_t size = bytes_.size();
    if (is_refusal(first_byte())) return State::refused;
    if (first_byte() != FirstByte::done) return State::garbage;
    if (size == 2 && byte_at(bytes_, 1) != start_of_text) return State::garbage;
    if (end_ == 0 && size == next_length_ + 1) {
        const std::size_t length = byte_at(bytes_, next_length_);
        next_length_ = size + length;
        if (length == 0) end_ = size + crc_bytes;
        if (next_length_ + 1 + crc_bytes > longest_reply && end_ == 0) return State::garbage;
    }
    if (end_ == 0 || size < end_) return State::unfinished;
    return has_right_crc(bytes_) ? State::whole : State::wrong_crc;
}

std::vector<std::string> ReplyFramer::strings() const {
    std::vector<std::string> strings;
    if (state_ != State::whole) return strings;
    std::size_t place = 2 + fixed_;
    while (const std::size_t length = byte_at(bytes_, place)) {
        strings.push_back(bytes_.substr(place + 1, length));
        place += 1 + length;
    }
    return strings;
}

std::optional<bool> parameter_in(const std::vector<std::string>& strings, Parameter parameter) {
    if (strings.size() != 1) return {};
    const std::string& text = strings.front();
    if (text.size() == 1) return text[0] != 0;
    if (text.size() != 2 || byte_at(text, 0) != static_cast<unsigned char>(parameter)) return {};
    return text[1] != 0;
}

std::optional<std::vector<std::string>> packets_of(const std::vector<std::string>& strings,
                                                   StringLayout layout) {
    const std::size_t beside =
        (layout.has_type ? type_bytes : 0) + (layout.has_time ? time_bytes : 0);
    std::vector<std::string> packets;
    for (const std::string& text : strings) {
        if (text.size() < beside || text.size() - beside > longest_code) return {};
        if (text.size() > beside) packets.push_back(packet_of(text, layout));
    }
    return packets;
}

}  // namespace tavernook::cs1504
