#include "barcodes/picture.h"

#include <gtest/gtest.h>

#include "barcodes/bitmap_reading.h"

namespace tavernook {
namespace {

constexpr Colour red{255, 0, 0};

Colour pixel(const Picture& picture, int x, int y) {
    return picture.pixels.at(static_cast<std::size_t>(y * picture.width + x));
}

TEST(Picture, BeginsAllWhite) {
    const Picture picture = white_picture(3, 2);
    ASSERT_EQ(picture.pixels.size(), 6U);
    for (const Colour& colour : picture.pixels) EXPECT_EQ(colour, white);
}

TEST(Picture, ARectangleFillsItsPixelsAndNoOthers) {
    Picture picture = white_picture(5, 4);
    fill_rectangle(picture, 1, 2, 3, 1, red);
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 5; ++x) {
            EXPECT_EQ(pixel(picture, x, y) == red, y == 2 && x >= 1 && x <= 3) << x << " " << y;
        }
    }
}

TEST(Picture, WhatLiesOutsideIsLeftOut) {
    Picture picture = white_picture(2, 2);
    fill_rectangle(picture, -1, -1, 2, 2, black);
    EXPECT_EQ(pixel(picture, 0, 0), black);
    EXPECT_EQ(pixel(picture, 1, 0), white);
    EXPECT_EQ(pixel(picture, 0, 1), white);
    fill_rectangle(picture, 1, 1, 100, 100, red);
    EXPECT_EQ(pixel(picture, 1, 1), red);
    const Picture before = picture;
    fill_rectangle(picture, 2, 0, 5, 5, red);
    fill_rectangle(picture, -9, 0, 9, 5, red);
    fill_rectangle(picture, 0, 0, 0, 5, red);
    EXPECT_EQ(picture.pixels, before.pixels);
}

// One pixel wide rows need one byte to fill up: 3 + 1.
TEST(Picture, BitmapBytesAreTheFormats) {
    Picture picture = white_picture(1, 2);
    fill_rectangle(picture, 0, 0, 1, 1, Colour{1, 2, 3});
    const unsigned char expected[] = {
        'B',  'M',                             // 0 signature
        62,   0,    0,   0,                    // 2 bytes of the file: 54 + 2 * 4
        0,    0,    0,   0,                    // 6 reserved
        54,   0,    0,   0,                    // 10 where the pixels begin
        40,   0,    0,   0,                    // 14 bytes of the second head
        1,    0,    0,   0,                    // 18 width
        2,    0,    0,   0,                    // 22 height
        1,    0,                               // 26 planes
        24,   0,                               // 28 bits a pixel
        0,    0,    0,   0,                    // 30 not compressed
        8,    0,    0,   0,                    // 34 bytes of the pixels
        0xC4, 0x0E, 0,   0, 0xC4, 0x0E, 0, 0,  // 38 3780 pixels a metre
        0,    0,    0,   0, 0,    0,    0, 0,  // 46 no palette
        255,  255,  255, 0,                    // the lower row
        3,    2,    1,   0};                   // the upper row: blue, green, red
    const std::string bytes = windows_bitmap(picture);
    ASSERT_EQ(bytes.size(), sizeof expected);
    for (std::size_t i = 0; i < sizeof expected; ++i) {
        EXPECT_EQ(static_cast<unsigned char>(bytes[i]), expected[i]) << "byte " << i;
    }
}

TEST(Picture, RowsOfEveryWidthBeginAtAMultipleOfFour) {
    const std::size_t row_sizes[] = {4, 8, 12, 12, 16};
    for (int width = 1; width <= 5; ++width) {
        const std::string bytes = windows_bitmap(white_picture(width, 3));
        EXPECT_EQ(bytes.size(), 54 + 3 * row_sizes[width - 1]) << width;
    }
}

TEST(Picture, AnIndependentProgramSeesTheSamePixels) {
    const std::string program = found_program("convert");
    if (program.empty()) GTEST_SKIP() << "convert is not installed";
    Picture picture = white_picture(3, 2);
    fill_rectangle(picture, 1, 0, 1, 1, Colour{10, 20, 30});
    fill_rectangle(picture, 2, 1, 1, 1, red);
    const TempFolder folder;
    write_whole_file(folder.path("small.bmp"), windows_bitmap(picture));
    const Colour expected[] = {white, {10, 20, 30}, white, white, white, red};
    const std::string pixels =
        output_of(program + " " + folder.path("small.bmp") + " -depth 8 rgb:-");
    ASSERT_EQ(pixels.size(), 18U);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(static_cast<unsigned char>(pixels[3 * i]), expected[i].red) << i;
        EXPECT_EQ(static_cast<unsigned char>(pixels[3 * i + 1]), expected[i].green) << i;
        EXPECT_EQ(static_cast<unsigned char>(pixels[3 * i + 2]), expected[i].blue) << i;
    }
}

}  // namespace
}  // namespace tavernook
