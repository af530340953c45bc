#include "barcodes/cue_cat.h"

#include <algorithm>
#include <array>
#include <vector>

#include "basics/values.h"

namespace tavernook {

namespace {

constexpr std::size_t most_letters = 100;
constexpr unsigned mask = 67;

std::array<unsigned, 256> make_letter_values() {
    constexpr std::string_view letters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-";
    std::array<unsigned, 256> values{};
    for (std::size_t value = 0; value < letters.size(); ++value) {
        values[static_cast<unsigned char>(letters[value])] = static_cast<unsigned>(value);
    }
    return values;
}

// Behind the third full stop, up to a fourth one or the end.
std::string_view third_field(std::string_view line) {
    for (int stops = 0; stops < 3; ++stops) {
        const std::size_t stop = line.find('.');
        if (stop == std::string_view::npos) return {};
        line.remove_prefix(stop + 1);
    }
    return line.substr(0, line.find('.'));
}

// Missing letters of the last four read as 0.
std::vector<unsigned> six_bit_values(std::string_view field) {
    static const std::array<unsigned, 256> letter_values = make_letter_values();
    std::vector<unsigned> values;
    for (const char letter : field.substr(0, most_letters)) {
        values.push_back(letter_values[static_cast<unsigned char>(letter)]);
    }
    values.resize((values.size() + 3) / 4 * 4, 0);
    return values;
}

}  // namespace

std::string decode_cue_cat(std::string_view line) noexcept {
    if (line.empty()) return {};
    const std::string_view field = third_field(line.substr(0, line.size() - 1));
    const std::vector<unsigned> values = six_bit_values(field);
    std::string code;
    for (std::size_t i = 0; i < values.size(); i += 4) {
        const unsigned bits =
            values[i] << 18U | values[i + 1] << 12U | values[i + 2] << 6U | values[i + 3];
        for (const unsigned shift : {16U, 8U, 0U}) {
            code += static_cast<char>((bits >> shift & 0xFFU) ^ mask);
        }
    }
    const auto letters = static_cast<f64>(std::min(field.size(), most_letters));
    code.resize(static_cast<std::size_t>(round_to_i16(letters / 4 * 3)));
    return code;
}

}  // namespace tavernook
