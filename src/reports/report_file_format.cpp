#include "reports/report_file_format.h"

#include <algorithm>
#include <cstring>

#include "basics/byte_codec.h"

namespace tavernook {

namespace {

constexpr std::size_t checks_offset = 0;
constexpr std::size_t positions_offset = 551;
constexpr std::size_t sort_key_offset = 724;
constexpr std::size_t sorted_offset = 727;
constexpr std::size_t order_offset = 731;
constexpr std::size_t strings_offset = 999;
constexpr std::size_t word_size = sizeof(i16);

void put_word(std::string& bytes, std::size_t offset, i16 word) {
    store_little_endian(bytes.data() + offset, word);
}

std::string encoded_strings(const ReportFilter& filter) {
    ByteWriter writer;
    for (const std::string& text : filter.search_strings) {
        const auto stored = std::string_view(text).substr(0, longest_search_string);
        writer.write_u16(static_cast<u16>(stored.size()));
        writer.write_bytes(stored);
    }
    return std::string(writer.bytes());
}

// The word where it is whole in the bytes and within the bounds.
void take_word(std::string_view bytes, std::size_t offset, i16& word, i16 least, i16 most) {
    if (offset + word_size > bytes.size()) return;
    const i16 stored = load_little_endian<i16>(bytes.data() + offset);
    if (stored >= least && stored <= most) word = stored;
}

void take_checks(std::string_view bytes, ReportFilter& filter) {
    for (std::size_t row = 0; row < filter_entries; ++row) {
        take_word(bytes, checks_offset + row * word_size, filter.row_checked[row], INT16_MIN,
                  INT16_MAX);
    }
}

void take_look(std::string_view bytes, ReportLook& look) {
    for (std::size_t column = 1; column <= report_rows; ++column) {
        take_word(bytes, positions_offset + (column - 1) * word_size, look.column_positions[column],
                  1, report_column_slots);
    }
    take_word(bytes, sort_key_offset, look.sort.key, 0, report_column_slots - 1);
    take_word(bytes, order_offset, look.sort.order, 0, 1);
}

void take_strings(std::string_view bytes, ReportFilter& filter) {
    if (bytes.size() < strings_offset) return;
    std::string_view rest = bytes.substr(strings_offset);
    for (std::string& text : filter.search_strings) {
        if (rest.size() < word_size) return;
        const std::size_t length = load_little_endian<u16>(rest.data());
        rest.remove_prefix(word_size);
        if (rest.size() < length) return;
        text = rest.substr(0, length);
        rest.remove_prefix(length);
    }
}

}  // namespace

std::string encode_report(const ReportName& name, const ReportFilter& filter,
                          const ReportLook& look, std::string_view bytes) noexcept {
    std::string whole(bytes.substr(0, longest_report_file));
    const std::string strings = encoded_strings(filter);
    whole.resize(std::max(whole.size(), strings_offset + strings.size()), '\0');
    for (std::size_t row = 0; row < filter_entries; ++row) {
        put_word(whole, checks_offset + row * word_size, filter.row_checked[row]);
    }
    std::memcpy(whole.data() + report_name_offset, name.data(), ReportName::size);
    for (std::size_t column = 1; column <= report_rows; ++column) {
        put_word(whole, positions_offset + (column - 1) * word_size, look.column_positions[column]);
    }
    put_word(whole, sort_key_offset, look.sort.key);
    put_word(whole, sorted_offset, look.sort.sorted);
    put_word(whole, order_offset, look.sort.order);
    std::memcpy(whole.data() + strings_offset, strings.data(), strings.size());
    return whole;
}

void decode_report(std::string_view bytes, ReportFilter& filter, ReportLook& look) noexcept {
    take_checks(bytes, filter);
    take_look(bytes, look);
    take_strings(bytes, filter);
}

std::optional<ReportName> report_name_in(std::string_view bytes) noexcept {
    if (bytes.size() < report_name_offset + ReportName::size) return std::nullopt;
    return ReportName(bytes.substr(report_name_offset, ReportName::size));
}

}  // namespace tavernook
