#include "screens/frame/window_place.h"

#include <gtest/gtest.h>

namespace tavernook {
namespace {

const QRect left_screen(0, 0, 1920, 1080);
const QRect right_screen(1920, 0, 1280, 1024);

TEST(WindowPlace, NumbersAreCutToTheirRange) {
    const WindowGeometry cut = geometry_from_rect(QRect(-40000, 40000, 70000, 600));
    EXPECT_EQ(cut, (WindowGeometry{.height = 600, .width = 32767, .left = -32768, .top = 32767}));
    EXPECT_EQ(rect_from_geometry({.height = 3, .width = 4, .left = 1, .top = 2}),
              QRect(1, 2, 4, 3));
}

TEST(WindowPlace, TheDesignedPlaceIsInTheMiddle) {
    const QRect place = designed_place(QRect(0, 0, 1000, 800));
    EXPECT_EQ(place.size(), QSize(700, 560));
    EXPECT_EQ(place.left(), 150);
    EXPECT_EQ(place.top(), 120);
}

TEST(WindowPlace, AReachableWindowStays) {
    const QRect window(2000, 50, 800, 600);
    EXPECT_EQ(reachable_place(window, {left_screen, right_screen}), window);
    const QRect partly_out(-300, 20, 800, 600);
    EXPECT_EQ(reachable_place(partly_out, {left_screen}), partly_out);
}

TEST(WindowPlace, AWindowOnAScreenThatIsGoneComesBack) {
    EXPECT_EQ(reachable_place(QRect(2000, 50, 800, 600), {left_screen}), QRect(1120, 50, 800, 600));
    EXPECT_EQ(reachable_place(QRect(-30000, -30000, 800, 600), {left_screen}),
              QRect(0, 0, 800, 600));
}

TEST(WindowPlace, ATitleAboveTheScreenComesDown) {
    EXPECT_EQ(reachable_place(QRect(100, -200, 800, 600), {left_screen}), QRect(100, 0, 800, 600));
}

TEST(WindowPlace, AWindowIsNoLargerThanItsScreen) {
    EXPECT_EQ(reachable_place(QRect(0, 0, 5000, 4000), {left_screen}), left_screen);
}

TEST(WindowPlace, WithoutASizeItTakesTheDesignedOne) {
    EXPECT_EQ(reachable_place(QRect(10, 20, 0, 0), {QRect(0, 0, 1000, 800)}),
              QRect(10, 20, 700, 560));
    EXPECT_EQ(reachable_place(QRect(10, 20, -5, 300), {QRect(0, 0, 1000, 800)}),
              QRect(10, 20, 700, 560));
}

TEST(WindowPlace, AScreenLessThan1600WideIsSmall) {
    EXPECT_TRUE(is_small(QRect(0, 0, 1366, 768)));
    EXPECT_TRUE(is_small(QRect(1920, 0, 1599, 1200)));
    EXPECT_FALSE(is_small(QRect(0, 0, 1600, 900)));
}

}  // namespace
}  // namespace tavernook
