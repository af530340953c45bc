// The files of the usage history by name, in the folder "reports": the stem of the project, six
// digits of the item, and ".dat" for a saved history or ".tmp" for its working copy.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

inline constexpr std::string_view saved_extension = ".dat";
inline constexpr std::string_view working_extension = ".tmp";

std::string reports_folder();
std::string in_reports(std::string_view name);

// The path of one item's file.
std::string usage_path(std::string_view stem, i16 item, std::string_view extension);

// The number in front of the extension; 0 unless those are six digits. Page templates and other
// files in the folder are told from histories by it.
int usage_file_item(std::string_view name) noexcept;

// The item, 0 to 10000, whose file bears the name in the project of that stem, and none for every
// other name. A stem may end in digits itself: the last six are the item, all before is the stem.
std::optional<i16> item_of_usage_file(std::string_view name, std::string_view stem);

// The bytes of a file; empty where there is none. Throws what the file layer throws.
std::string usage_bytes(const std::string& path);

}  // namespace tavernook
