#include "rich_text/rtf_pictures.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>
#include <algorithm>
#include <cstdint>

namespace tavernook::rtf {

namespace {

constexpr qsizetype file_header_size = 14;
constexpr std::uint32_t placeable_key = 0x9AC6CDD7;
constexpr qsizetype placeable_header_size = 22;
constexpr qsizetype metafile_header_size = 18;

std::uint16_t u16_at(const QByteArray& bytes, qsizetype position) {
    if (position < 0 || position + 2 > bytes.size()) return 0;
    return qFromLittleEndian<std::uint16_t>(bytes.constData() + position);
}

std::uint32_t u32_at(const QByteArray& bytes, qsizetype position) {
    if (position < 0 || position + 4 > bytes.size()) return 0;
    return qFromLittleEndian<std::uint32_t>(bytes.constData() + position);
}

long long dots_of(const QSize& size) {
    return static_cast<long long>(size.width()) * size.height();
}

bool is_jpeg(const QByteArray& bytes) {
    return bytes.startsWith("\xFF\xD8");
}

// Null where the bytes begin as none of them.
const char* raster_format(const QByteArray& bytes) {
    if (bytes.startsWith("\x89PNG")) return "png";
    if (is_jpeg(bytes)) return "jpeg";
    if (bytes.startsWith("GIF8")) return "gif";
    return bytes.startsWith("BM") ? "bmp" : nullptr;
}

bool is_beyond_kept(const QSize& size) {
    return std::max(size.width(), size.height()) > longest_kept_side;
}

QSize kept_size(const QSize& size) {
    return size.scaled(longest_kept_side, longest_kept_side, Qt::KeepAspectRatio)
        .expandedTo({1, 1});
}

QImage read_image(QByteArray bytes, const char* format) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty()) return {};
    if (dots_of(size) > largest_picture) return {};
    return reader.read();
}

// Where the pixels begin, counted from the start of the bitmap's header.
std::uint32_t pixel_offset(const QByteArray& dib) {
    constexpr std::uint32_t core_header = 12;
    constexpr std::uint32_t info_header = 40;
    const std::uint32_t header = u32_at(dib, 0);
    const bool core = header == core_header;
    const std::uint32_t bits = u16_at(dib, core ? 10 : 14);
    std::uint32_t colours = core ? 0 : u32_at(dib, 32);
    if (colours == 0 && bits <= 8) colours = 1u << bits;
    const std::uint32_t masks = header == info_header && u32_at(dib, 16) == 3 ? 12 : 0;
    return header + masks + colours * (core ? 3 : 4);
}

QImage read_bitmap(const QByteArray& dib) {
    if (dib.size() < 16 || u32_at(dib, 0) > 200) return {};
    QByteArray file(file_header_size, '\0');
    file[0] = 'B';
    file[1] = 'M';
    const auto size = static_cast<std::uint32_t>(dib.size() + file_header_size);
    qToLittleEndian(size, file.data() + 2);
    qToLittleEndian(pixel_offset(dib) + static_cast<std::uint32_t>(file_header_size),
                    file.data() + 10);
    return read_image(file + dib, "bmp");
}

// Bytes of a record before its bitmap; 0 for records that carry none.
qsizetype bitmap_start(std::uint16_t function) {
    switch (function) {
        case 0x0940:
            return 22;
        case 0x0B41:
            return 26;
        case 0x0F43:
            return 28;
        default:
            return 0;
    }
}

QImage read_metafile(const QByteArray& bytes) {
    qsizetype position = u32_at(bytes, 0) == placeable_key ? placeable_header_size : 0;
    position += metafile_header_size;
    while (position + 6 <= bytes.size()) {
        const qsizetype size = qsizetype{u32_at(bytes, position)} * 2;
        if (size < 6 || size > bytes.size() - position) return {};
        const qsizetype start = bitmap_start(u16_at(bytes, position + 4));
        if (start != 0 && start < size) {
            const QImage image = read_bitmap(bytes.mid(position + start, size - start));
            if (!image.isNull()) return image;
        }
        position += size;
    }
    return {};
}

QImage read_compressed(const QByteArray& bytes) {
    if (bytes.startsWith("\x89PNG")) return read_image(bytes, "png");
    if (is_jpeg(bytes)) return read_image(bytes, "jpeg");
    return {};
}

}  // namespace

QImage kept_picture(const QImage& picture) {
    if (!is_beyond_kept(picture.size())) return picture;
    return picture.scaled(kept_size(picture.size()), Qt::IgnoreAspectRatio,
                          Qt::SmoothTransformation);
}

RasterPicture raster_picture(const QByteArray& bytes) {
    const char* format = raster_format(bytes);
    if (format == nullptr) return {};
    if (bytes.size() > largest_picture_bytes) return {.image = {}, .is_too_large = true};
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (dots_of(size) > (is_jpeg(bytes) ? largest_photograph : largest_picture)) {
        return {.image = {}, .is_too_large = true};
    }
    // A photograph is never there in all its pixels.
    if (is_jpeg(bytes) && is_beyond_kept(size)) reader.setScaledSize(kept_size(size));
    return {.image = kept_picture(reader.read())};
}

QImage decoded_picture(PictureKind kind, const QByteArray& bytes) {
    switch (kind) {
        case PictureKind::compressed:
            return read_compressed(bytes);
        case PictureKind::bitmap:
            return read_bitmap(bytes);
        case PictureKind::metafile:
            return read_metafile(bytes);
        case PictureKind::unknown:
            return {};
    }
    return {};
}

}  // namespace tavernook::rtf
