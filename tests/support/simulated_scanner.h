// The other end of the serial cable: takes bytes as a CS1504 does and answers them. Made from the
// protocol's description alone, with none of the program's own code for it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavernook {

// CRC-16/USB the long-hand way: high bit first over reversed bits, polynomial 8005 hex.
inline unsigned reversed(unsigned value, int bits) {
    unsigned result = 0;
    for (int bit = 0; bit < bits; ++bit) result |= ((value >> bit) & 1u) << (bits - 1 - bit);
    return result;
}
inline unsigned usb_crc(std::string_view bytes) {
    unsigned crc = 0xFFFF;
    for (const char byte : bytes) {
        crc ^= reversed(static_cast<unsigned char>(byte), 8) << 8;
        for (int bit = 0; bit < 8; ++bit) crc = ((crc << 1) ^ (crc & 0x8000 ? 0x8005 : 0)) & 0xFFFF;
    }
    return reversed(crc, 16) ^ 0xFFFF;
}

// The bytes with the zero and the CRC that end a message.
inline std::string ended(std::string bytes) {
    bytes += '\0';
    const unsigned crc = usb_crc(bytes);
    bytes += static_cast<char>(crc >> 8);
    bytes += static_cast<char>(crc & 0xFF);
    return bytes;
}

inline std::string text_of_hex(std::string_view digits) {
    std::string bytes;
    for (std::size_t at = 0; at + 1 < digits.size(); at += 3) {
        bytes += static_cast<char>(std::stoi(std::string(digits.substr(at, 2)), nullptr, 16));
    }
    return bytes;
}

struct ScannedCode {
    char type;
    std::string code;
    std::string time = "\x78\xF4\xD6\xDA";  // 9:15:30 on 21 November 2026
};

class SimulatedScanner {
  public:
    static constexpr char interrogate = 1, clear = 2, power_down = 5, upload = 7, parameter = 8;

    // What it says to bytes that come; a command may come in parts.
    std::string answer(std::string_view bytes) {
        line_ += bytes;
        std::string answers;
        while (const std::size_t length = length_of_command()) {
            answers += answer_to(line_.substr(0, length));
            line_.erase(0, length);
        }
        return answers;
    }

    std::vector<ScannedCode> codes;
    bool sends_type = true;
    bool stores_time = true;

    // The commands that came, by number.
    std::string heard;

    // What becomes of an answer; by default nothing.
    std::function<std::string(char command, const std::string& reply)> spoil;

    std::string reply_to_upload() const {
        std::string reply = "\x06\x02" + serial_number;
        for (const ScannedCode& one : codes) {
            const std::string text = (sends_type ? std::string(1, one.type) : std::string()) +
                                     one.code + (stores_time ? one.time : std::string());
            reply += static_cast<char>(text.size()) + text;
        }
        return ended(reply);
    }

  private:
    // 0 while it is not whole.
    std::size_t length_of_command() const {
        std::size_t at = 2;
        while (at < line_.size() && line_[at] != 0) at += 1 + static_cast<unsigned char>(line_[at]);
        return at + 3 <= line_.size() ? at + 3 : 0;
    }

    std::string answer_to(const std::string& command) {
        if (ended(command.substr(0, command.size() - 3)) != command) return "\x07";
        heard += command[0];
        const std::string reply = good_answer_to(command);
        return spoil ? spoil(command[0], reply) : reply;
    }

    std::string good_answer_to(const std::string& command) {
        const std::string done = "\x06\x02";
        switch (command[0]) {
            case interrogate:
                return ended(done + "\x01\x16" + serial_number + "NBJWCE13");
            case clear:
                codes.clear();
                return ended(done);
            case power_down:
                return ended(done);
            case upload:
                return reply_to_upload();
            case parameter: {
                const bool is_on = command[3] == 16 ? sends_type : stores_time;
                return ended(done + '\x02' + command[3] + static_cast<char>(is_on ? 1 : 0));
            }
            default:
                return "\x05";
        }
    }

    const std::string serial_number{"\0\0\0\0\x01\x23\x45\x67", 8};
    std::string line_;
};

}  // namespace tavernook
