// "TVK.dat" from any bytes: every file is readable, and what was read and written back reads the
// same.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "core/project/settings_file_format.h"

namespace tavernook {

namespace {

bool equal(const SettingsRecord& a, const SettingsRecord& b) {
    return a.recent_projects == b.recent_projects && a.recent_count == b.recent_count &&
           a.hide_welcome_dialog == b.hide_welcome_dialog && a.geometry == b.geometry;
}

void require(bool holds) {
    if (!holds) std::abort();
}

void read_and_write(std::string_view input) {
    const SettingsRecord record = decode_settings(input);
    require(record.recent_count >= 0 && record.recent_count <= recent_project_places);
    const std::string written = encode_settings(record, input);
    require(written.size() == std::max(input.size(), settings_file_size));
    require(equal(decode_settings(written), record));
    require(encode_settings(record, written) == written);
    if (input.size() > settings_file_size) {
        require(written.substr(settings_file_size) == input.substr(settings_file_size));
    }
}

}  // namespace

}  // namespace tavernook

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::read_and_write({reinterpret_cast<const char*>(data), size});
    return 0;
}
