// The program's own colours are readable on every palette.
#include "screens/parts/house_colours.h"

#include <QPalette>
#include <gtest/gtest.h>
#include <vector>

#include "gui_support/warning_guard.h"

namespace tavernook {
namespace {

constexpr HouseColour all[] = {HouseColour::accent, HouseColour::past_date, HouseColour::low};

QPalette palette_of(const char* window, const char* base, const char* text) {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(window));
    palette.setColor(QPalette::Base, QColor(base));
    palette.setColor(QPalette::WindowText, QColor(text));
    return palette;
}

double contrast_on(const QPalette& palette, const QColor& colour) {
    return std::min(contrast(colour, palette.color(QPalette::Window)),
                    contrast(colour, palette.color(QPalette::Base)));
}

TEST(Contrast, IsThatOfTheGuidelines) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 1e-6);
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 1e-6);
    EXPECT_NEAR(contrast(QColor("#a84f2c"), QColor("#a84f2c")), 1, 1e-6);
    EXPECT_NEAR(contrast(QColor("#777777"), Qt::white), 4.48, 0.005);
    EXPECT_NEAR(contrast(QColor("#ff0000"), Qt::white), 4.00, 0.005);
    EXPECT_NEAR(contrast(QColor("#0000ff"), Qt::white), 8.59, 0.005);
}

TEST(HouseColours, AreReadableOnLightAndDarkPalettes) {
    const QPalette palettes[] = {
        palette_of("#efefef", "#ffffff", "#000000"), palette_of("#eff0f1", "#fcfcfc", "#232629"),
        palette_of("#f6f5f4", "#ffffff", "#2e3436"), palette_of("#d4d0c8", "#ffffff", "#000000"),
        palette_of("#ffffff", "#ffffff", "#000000"), palette_of("#2d2d30", "#1e1e20", "#e6e6e6"),
        palette_of("#323232", "#242424", "#ffffff"), palette_of("#353535", "#2d2d2d", "#eeeeec"),
        palette_of("#2a2e32", "#1b1e20", "#fcfcfc"), palette_of("#000000", "#000000", "#ffffff")};
    for (const QPalette& palette : palettes) {
        const std::string where = palette.color(QPalette::Window).name().toStdString();
        for (const HouseColour which : all) {
            EXPECT_GE(contrast_on(palette, house_colour(which, palette)), 4.5)
                << where << " " << int(which);
        }
        const QColor accent = house_colour(HouseColour::accent, palette);
        const QColor past = house_colour(HouseColour::past_date, palette);
        const QColor low = house_colour(HouseColour::low, palette);
        EXPECT_NE(accent, past) << where;
        EXPECT_NE(accent, low) << where;
        EXPECT_NE(past, low) << where;
        EXPECT_NE(accent, palette.color(QPalette::WindowText)) << where;
    }
}

TEST(HouseColours, AreThoseOfTheHouseWhereTheyCanBe) {
    const QPalette light = palette_of("#efefef", "#ffffff", "#000000");
    EXPECT_EQ(house_colour(HouseColour::accent, light).name(), "#a84f2c");
    EXPECT_EQ(house_colour(HouseColour::past_date, light).name(), "#b3142e");
    EXPECT_EQ(house_colour(HouseColour::low, light).name(), "#8a6100");
    const QPalette dark = palette_of("#2d2d30", "#1e1e20", "#e6e6e6");
    EXPECT_EQ(house_colour(HouseColour::accent, dark).name(), "#e8946c");
}

TEST(HouseColours, GoTowardsTheTextWhereNeitherToneIsReadable) {
    const QPalette grey = palette_of("#9a9a9a", "#a6a6a6", "#000000");
    for (const HouseColour which : all) {
        const QColor colour = house_colour(which, grey);
        EXPECT_GE(contrast_on(grey, colour), 4.5);
        EXPECT_NE(colour, QColor(Qt::black));
    }
    const QPalette hopeless = palette_of("#808080", "#ffffff", "#707070");
    EXPECT_EQ(house_colour(HouseColour::accent, hopeless).name(), "#707070");
}

}  // namespace
}  // namespace tavernook
