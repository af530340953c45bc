#include "screens/text/picture_files.h"

#include "platform/platform.h"

namespace tavernook {

rtf::RasterPicture picture_in_file(const std::string& path) {
    const auto file = files().open(path, OpenMode::read);
    const i64 length = file->length();
    if (length > rtf::largest_picture_bytes) return {.image = {}, .is_too_large = true};
    QByteArray bytes(static_cast<qsizetype>(length), '\0');
    const auto count = static_cast<std::size_t>(length);
    bytes.truncate(static_cast<qsizetype>(file->read(0, bytes.data(), count)));
    return rtf::raster_picture(bytes);
}

}  // namespace tavernook
