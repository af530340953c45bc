// What the CS1504 and a computer say to each other: the commands, the framing of the answers and
// the codes in them. Bytes only; when they are said is cs1504_scanner's business.
//
//   command  number 02 {length data...} 00 CRC CRC
//   reply    06 02 fixed... {length data...} 00 CRC CRC
//   refusal  one byte
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavernook::cs1504 {

// --- the facts --------------------------------------------------------------------------------
// All of them, so that one which a scanner proves wrong is corrected in one line.

inline constexpr int line_speed = 9600;  // with 8 data bits, odd parity and 1 stop bit

enum class Command : unsigned char {
    interrogate = 0x01,
    clear_barcodes = 0x02,
    power_down = 0x05,
    upload = 0x07,
    read_parameters = 0x08,
};

// Bytes of a reply in front of its strings.
constexpr std::size_t fixed_bytes(Command command) {
    constexpr std::size_t serial_number = 8;
    switch (command) {
        // The version of the protocol, the state (22 = low battery), and the version of the
        // program.
        case Command::interrogate:
            return 1 + 1 + serial_number + 8;
        case Command::upload:
            return serial_number;
        default:
            return 0;
    }
}

enum class FirstByte : unsigned char {
    unsupported = 0x05,
    done = 0x06,
    wrong_crc = 0x07,
    wrong_character = 0x08,
    general_error = 0x09,
};

// What came badly is worth another try; what is not understood is not.
constexpr bool is_worth_another_try(FirstByte refusal) {
    return refusal == FirstByte::wrong_crc || refusal == FirstByte::wrong_character;
}

inline constexpr unsigned char start_of_text = 0x02;
inline constexpr std::size_t longest_reply = 6144;

// Cyclic redundancy check: 16 bits, low bit first, complemented, sent with the high byte first.
inline constexpr std::uint16_t crc_polynomial = 0xA001;
inline constexpr std::uint16_t crc_start = 0xFFFF;
inline constexpr std::uint16_t crc_complement = 0xFFFF;

// Two parameters change how a code is sent; 0 is "no".
enum class Parameter : unsigned char { send_code_type = 16, store_time = 35 };
inline constexpr std::size_t type_bytes = 1;  // in front of the code
inline constexpr std::size_t time_bytes = 4;  // behind it

// The scanner is sent to sleep when its port is given back.
inline constexpr bool power_down_at_end = true;

// --- what follows from them -------------------------------------------------------------------

std::uint16_t crc_of(std::string_view bytes);

std::string command_bytes(Command command);
std::string read_parameter_bytes(Parameter parameter);

// Finds the end of a reply by its length bytes while it comes.
class ReplyFramer {
  public:
    enum class State {
        unfinished,  // there is more to come
        whole,       // and its CRC is right
        refused,
        wrong_crc,  // at the end that its length bytes tell
        garbage,    // no reply begins like this, or none is so long
    };

    explicit ReplyFramer(Command command) : fixed_(fixed_bytes(command)) {}

    // Bytes behind the end are passed over, and so is all that comes later.
    State take(std::string_view bytes);

    bool has_begun() const { return !bytes_.empty(); }
    FirstByte first_byte() const { return static_cast<FirstByte>(bytes_.at(0)); }

    // The strings of a whole reply, without their length bytes.
    std::vector<std::string> strings() const;

  private:
    State judge();

    const std::size_t fixed_;
    std::string bytes_;
    std::size_t next_length_ = 2 + fixed_;  // where the next length byte will stand
    std::size_t end_ = 0;                   // known once the last length byte has come
    State state_ = State::unfinished;
};

// Whether the parameter is on, by the reply's one string: its number and value, or the value alone.
// None when it tells of something else.
std::optional<bool> parameter_in(const std::vector<std::string>& strings, Parameter parameter);

struct StringLayout {
    bool has_type = true;
    bool has_time = true;
};

// Packets as platform/batch_scanner.h has them, of the strings of an upload; bytes for type and
// time that were not sent are 0. A string without a code gives none. None at all when a string
// cannot have that layout.
std::optional<std::vector<std::string>> packets_of(const std::vector<std::string>& strings,
                                                   StringLayout layout);

}  // namespace tavernook::cs1504
