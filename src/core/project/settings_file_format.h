// The bytes of "TVK.dat", the settings that belong to no project. Positions count from 1.
//
//   1, 257, 385, 513   fixed 128   paths of recent projects, newest first
//   1000               i16         number of them, 0..4
//   2000               i16         hide_welcome_dialog
//   3000, 3010,        i16         the main window's height, width,
//   3020, 3030                     left and top in pixels
//
// All other bytes are unused and kept as they are.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "basics/fixed_string.h"
#include "platform/main_window.h"

namespace tavernook {

inline constexpr int recent_project_places = 4;
inline constexpr std::size_t recent_path_size = 128;
inline constexpr std::size_t settings_file_size = 3031;

struct SettingsRecord {
    std::array<FixedString<recent_path_size>, recent_project_places> recent_projects;
    i16 recent_count = 0;  // 0..4
    i16 hide_welcome_dialog = 0;
    WindowGeometry geometry;
};

// Any bytes at all are read: what is missing reads as zero or blank, a count outside 0..4 as the
// nearest of them.
SettingsRecord decode_settings(std::string_view bytes) noexcept;

// The record written over `bytes`, the file as it was; at least settings_file_size long.
std::string encode_settings(const SettingsRecord& record, std::string_view bytes) noexcept;

}  // namespace tavernook
