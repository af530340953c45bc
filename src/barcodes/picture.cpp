#include "barcodes/picture.h"

#include <algorithm>

#include "basics/byte_codec.h"

namespace tavernook {

namespace {

// The file's head: offset / size / meaning
//   0  2  "BM"
//   2  4  bytes of the file
//   6  4  0
//  10  4  where the pixels begin
//  14  4  40, the bytes from here to the pixels
//  18  4  width
//  22  4  height; positive: the lowest row comes first
//  26  2  planes, 1
//  28  2  bits a pixel, 24
//  30  4  compression, 0 = none
//  34  4  bytes of the pixels
//  38  8  pixels a metre, across and down
//  46  8  colours of the palette, and important ones: none
// Each row is blue, green, red a pixel, filled up with zeros to a multiple of 4 bytes.
constexpr i32 file_head_size = 14;
constexpr i32 picture_head_size = 40;
constexpr i16 bits_a_pixel = 24;
constexpr i32 pixels_a_metre = 3780;  // 96 an inch

std::size_t row_size(const Picture& picture) {
    return (static_cast<std::size_t>(picture.width) * 3 + 3) / 4 * 4;
}

void write_head(ByteWriter& writer, const Picture& picture) {
    const auto pixel_bytes =
        static_cast<i32>(row_size(picture) * static_cast<std::size_t>(picture.height));
    constexpr i32 heads = file_head_size + picture_head_size;
    writer.write_bytes("BM");
    writer.write_i32(heads + pixel_bytes);
    writer.write_i32(0);
    writer.write_i32(heads);
    writer.write_i32(picture_head_size);
    writer.write_i32(picture.width);
    writer.write_i32(picture.height);
    writer.write_i16(1);
    writer.write_i16(bits_a_pixel);
    writer.write_i32(0);
    writer.write_i32(pixel_bytes);
    writer.write_i32(pixels_a_metre);
    writer.write_i32(pixels_a_metre);
    writer.write_zeros(8);
}

std::string row_bytes(const Picture& picture, int row) {
    std::string bytes;
    bytes.reserve(row_size(picture));
    const auto width = static_cast<std::size_t>(picture.width);
    const Colour* const first = picture.pixels.data() + static_cast<std::size_t>(row) * width;
    for (const Colour* pixel = first; pixel != first + width; ++pixel) {
        bytes += static_cast<char>(pixel->blue);
        bytes += static_cast<char>(pixel->green);
        bytes += static_cast<char>(pixel->red);
    }
    bytes.resize(row_size(picture), '\0');
    return bytes;
}

}  // namespace

Picture white_picture(int width, int height) noexcept {
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return {width, height, std::vector<Colour>(count, white)};
}

void fill_rectangle(Picture& picture, int x, int y, int width, int height, Colour colour) noexcept {
    const int right = std::min(x + width, picture.width);
    const int bottom = std::min(y + height, picture.height);
    for (int row = std::max(y, 0); row < bottom; ++row) {
        for (int column = std::max(x, 0); column < right; ++column) {
            picture.pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(picture.width) +
                           static_cast<std::size_t>(column)] = colour;
        }
    }
}

std::string windows_bitmap(const Picture& picture) noexcept {
    ByteWriter writer;
    write_head(writer, picture);
    for (int row = picture.height - 1; row >= 0; --row) {
        writer.write_bytes(row_bytes(picture, row));
    }
    return std::string(writer.bytes());
}

}  // namespace tavernook
