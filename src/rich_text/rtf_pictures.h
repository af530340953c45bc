// Pictures inside rich text.
#pragma once

#include <QByteArray>
#include <QImage>

namespace tavernook::rtf {

enum class PictureKind { unknown, compressed, bitmap, metafile };

// Pixels of one picture; a larger one is not drawn.
inline constexpr long long largest_picture = 30'000'000;
// Pixels of all pictures of a document together; once there are so many no further one is drawn.
inline constexpr long long most_picture_pixels = 100'000'000;

// A photograph has more pixels, but it is never kept so large.
inline constexpr long long largest_photograph = 200'000'000;
// Four bytes for each pixel of the largest picture, and some for its head.
inline constexpr long long largest_picture_bytes = largest_picture * 4 + 4096;
// Pixels of the longer side of a picture that is put into a text; a larger one is scaled down, so
// that a text with photographs stays of bearable size.
inline constexpr int longest_kept_side = 1600;

struct RasterPicture {
    QImage image;  // null where the bytes are no picture that can be shown
    bool is_too_large = false;
};

// PNG, JPEG, GIF or a Windows bitmap, by the bytes' own beginning, as large as a text keeps it and
// the right way up. Anything else is no picture, drawings above all: they refer to files.
RasterPicture raster_picture(const QByteArray& bytes);

// As large as a text keeps it.
QImage kept_picture(const QImage& picture);

// A null image when it cannot be drawn. `compressed` is PNG or JPEG, `bitmap` a device-independent
// bitmap without file header; of a metafile the first bitmap inside is taken.
QImage decoded_picture(PictureKind kind, const QByteArray& bytes);

}  // namespace tavernook::rtf
