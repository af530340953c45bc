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

// A null image when it cannot be drawn. `compressed` is PNG or JPEG, `bitmap` a device-independent
// bitmap without file header; of a metafile the first bitmap inside is taken.
QImage decoded_picture(PictureKind kind, const QByteArray& bytes);

}  // namespace tavernook::rtf
