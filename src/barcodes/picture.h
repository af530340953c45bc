// A small picture in memory: a surface to fill rectangles on, and its bytes as a Windows bitmap.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavernook {

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Colour&) const = default;
};

inline constexpr Colour black{0, 0, 0};
inline constexpr Colour white{255, 255, 255};

// In pixels; (0, 0) is the upper left one. A row is `width` entries, the upper one first.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Colour> pixels;
};

// All white. Both lengths are at least 0.
Picture white_picture(int width, int height) noexcept;

// What lies outside the picture is left out.
void fill_rectangle(Picture& picture, int x, int y, int width, int height, Colour colour) noexcept;

// The bytes of a .bmp file: 24 bits a pixel, not compressed, 96 pixels an inch.
std::string windows_bitmap(const Picture& picture) noexcept;

}  // namespace tavernook
