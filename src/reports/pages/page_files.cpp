#include "reports/pages/page_files.h"

#include "platform/platform.h"

namespace tavernook {

std::string file_bytes(const std::string& path) {
    const auto file = files().open(path, OpenMode::read);
    std::string bytes(static_cast<std::size_t>(file->length()), '\0');
    bytes.resize(file->read(0, bytes.data(), bytes.size()));
    return bytes;
}

}  // namespace tavernook
