#include "screens/text/picture_files.h"

#include <QBuffer>
#include <QImageReader>
#include <optional>

#include "platform/platform.h"
#include "rich_text/rtf_pictures.h"

namespace tavernook {

namespace {

// Four bytes for each dot of the largest picture, and some for its head.
constexpr i64 largest_file = rtf::largest_picture * 4 + 4096;

// Nothing when the file is longer than any picture that a recipe keeps.
std::optional<QByteArray> picture_bytes(const std::string& path) {
    const auto file = files().open(path, OpenMode::read);
    const i64 length = file->length();
    if (length > largest_file) return {};
    QByteArray bytes(static_cast<qsizetype>(length), '\0');
    const auto count = static_cast<std::size_t>(length);
    bytes.truncate(static_cast<qsizetype>(file->read(0, bytes.data(), count)));
    return bytes;
}

}  // namespace

FilePicture picture_in_file(const std::string& path) {
    std::optional<QByteArray> bytes = picture_bytes(path);
    if (!bytes) return {.picture = {}, .is_too_large = true};
    QBuffer buffer(&*bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (static_cast<i64>(size.width()) * size.height() > rtf::largest_picture) {
        return {.picture = {}, .is_too_large = true};
    }
    return {.picture = reader.read()};
}

}  // namespace tavernook
