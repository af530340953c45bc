#include "core/project/settings_file_format.h"

#include <algorithm>
#include <cstring>

#include "basics/byte_codec.h"

namespace tavernook {

namespace {

constexpr std::size_t path_positions[recent_project_places] = {1, 257, 385, 513};
constexpr std::size_t count_position = 1000;
constexpr std::size_t hide_welcome_position = 2000;
constexpr std::size_t height_position = 3000;
constexpr std::size_t width_position = 3010;
constexpr std::size_t left_position = 3020;
constexpr std::size_t top_position = 3030;

std::string padded(std::string_view bytes) {
    std::string whole(bytes);
    whole.resize(std::max(whole.size(), settings_file_size), '\0');
    return whole;
}

i16 word_at(const std::string& bytes, std::size_t position) {
    return load_little_endian<i16>(bytes.data() + position - 1);
}

void put_word(std::string& bytes, std::size_t position, i16 word) {
    store_little_endian(bytes.data() + position - 1, word);
}

// A place that was never written holds zeros, which count as blank.
FixedString<recent_path_size> path_at(const std::string& bytes, std::size_t position) {
    const char* start = bytes.data() + position - 1;
    const void* zero = std::memchr(start, '\0', recent_path_size);
    const auto* end = zero != nullptr ? static_cast<const char*>(zero) : start + recent_path_size;
    return std::string_view(start, static_cast<std::size_t>(end - start));
}

}  // namespace

SettingsRecord decode_settings(std::string_view bytes) noexcept {
    const std::string whole = padded(bytes.substr(0, settings_file_size));
    SettingsRecord record;
    for (std::size_t place = 0; place < recent_project_places; ++place) {
        record.recent_projects[place] = path_at(whole, path_positions[place]);
    }
    record.recent_count =
        std::clamp(word_at(whole, count_position), i16{0}, i16{recent_project_places});
    record.hide_welcome_dialog = word_at(whole, hide_welcome_position);
    record.geometry = {word_at(whole, height_position), word_at(whole, width_position),
                       word_at(whole, left_position), word_at(whole, top_position)};
    return record;
}

std::string encode_settings(const SettingsRecord& record, std::string_view bytes) noexcept {
    std::string whole = padded(bytes);
    for (std::size_t place = 0; place < recent_project_places; ++place) {
        std::memcpy(whole.data() + path_positions[place] - 1, record.recent_projects[place].data(),
                    recent_path_size);
    }
    put_word(whole, count_position, record.recent_count);
    put_word(whole, hide_welcome_position, record.hide_welcome_dialog);
    put_word(whole, height_position, record.geometry.height);
    put_word(whole, width_position, record.geometry.width);
    put_word(whole, left_position, record.geometry.left);
    put_word(whole, top_position, record.geometry.top);
    return whole;
}

}  // namespace tavernook
