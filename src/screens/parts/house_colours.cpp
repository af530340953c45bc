#include "screens/parts/house_colours.h"

#include <QPalette>
#include <algorithm>
#include <cmath>

namespace tavernook {

namespace {

constexpr double readable = 4.5;
constexpr int steps_to_text = 20;

struct Tones {
    QRgb on_light;
    QRgb on_dark;
};

Tones tones_of(HouseColour which) {
    switch (which) {
        case HouseColour::past_date:
            return {0xffb3142e, 0xffff8d96};
        case HouseColour::low:
            return {0xff8a6100, 0xfff0b64f};
        default:
            return {0xffa84f2c, 0xffe8946c};
    }
}

double linear(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

// Where it reads worst.
double contrast_on(const QPalette& palette, const QColor& colour) {
    return std::min(contrast(colour, palette.color(QPalette::Active, QPalette::Window)),
                    contrast(colour, palette.color(QPalette::Active, QPalette::Base)));
}

QColor mixed(const QColor& one, const QColor& other, float share) {
    const auto part = [share](float from, float to) { return from + (to - from) * share; };
    return QColor::fromRgbF(part(one.redF(), other.redF()), part(one.greenF(), other.greenF()),
                            part(one.blueF(), other.blueF()));
}

}  // namespace

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor house_colour(HouseColour which, const QPalette& palette) {
    const Tones tones = tones_of(which);
    const QColor light(tones.on_light);
    const QColor dark(tones.on_dark);
    const QColor tone = contrast_on(palette, light) >= contrast_on(palette, dark) ? light : dark;
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    for (int step = 0; step < steps_to_text; ++step) {
        const QColor colour = mixed(tone, text, static_cast<float>(step) / steps_to_text);
        if (contrast_on(palette, colour) >= readable) return colour;
    }
    return text;
}

}  // namespace tavernook
