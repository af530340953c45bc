// A line of the Cue Cat from any bytes, held against the scheme worked out bit by bit.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "barcodes/cue_cat.h"

namespace tavernook {
namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

// Fields lie between full stops, the last byte of the line being one whatever it is.
std::vector<std::string> fields_of(const std::string& line) {
    std::vector<std::string> fields(1);
    for (std::size_t at = 0; at + 1 < line.size(); ++at) {
        if (line[at] == '.') {
            fields.emplace_back();
        } else {
            fields.back() += line[at];
        }
    }
    return fields;
}

unsigned value_of(char letter) {
    if (letter >= 'a' && letter <= 'z') return static_cast<unsigned>(letter - 'a');
    if (letter >= 'A' && letter <= 'Z') return static_cast<unsigned>(letter - 'A' + 26);
    if (letter >= '0' && letter <= '9') return static_cast<unsigned>(letter - '0' + 52);
    if (letter == '+') return 62;
    return letter == '-' ? 63 : 0;
}

// Three quarters of the letters; a half goes to the even number.
std::size_t length_of(std::size_t letters) {
    const std::size_t whole = letters * 3 / 4;
    const std::size_t quarters = letters * 3 % 4;
    return whole + (quarters == 3 || (quarters == 2 && whole % 2 == 1) ? 1 : 0);
}

std::string by_the_scheme(const std::string& line) {
    const std::vector<std::string> fields = fields_of(line);
    if (fields.size() < 4) return {};
    const std::string field = fields[3].substr(0, 100);
    std::vector<unsigned> bits;
    for (const char letter : field) {
        for (int bit = 5; bit >= 0; --bit) bits.push_back(value_of(letter) >> bit & 1U);
    }
    std::string code;
    for (std::size_t byte = 0; byte < length_of(field.size()); ++byte) {
        unsigned value = 0;
        for (std::size_t bit = byte * 8; bit < byte * 8 + 8; ++bit) {
            value = value << 1U | (bit < bits.size() ? bits[bit] : 0U);
        }
        code += static_cast<char>(value ^ 67U);
    }
    return code;
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string line(data, data + size);
    tavernook::require(tavernook::decode_cue_cat(line) == tavernook::by_the_scheme(line));
    return 0;
}
