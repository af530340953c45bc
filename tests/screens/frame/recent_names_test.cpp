#include "screens/frame/recent_names.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace tavernook {
namespace {

using Paths = std::vector<std::string>;

std::string telling(std::size_t place, const Paths& paths) {
    return telling_folder(place, paths).toStdString();
}

TEST(RecentNames, ANameOfItsOwnNeedsNoFolder) {
    EXPECT_EQ(telling(0, {"/a/home.tvk", "/a/shop.tvk"}), "");
    EXPECT_EQ(telling(0, {"/a/home.tvk", "/a/home.tvk"}), "");
}

TEST(RecentNames, TheSameNameTwiceIsToldByAsFewFoldersAsCan) {
    const Paths paths{"/home/me/kitchen/home.tvk", "/home/me/cabin/home.tvk", "/x/other.tvk"};
    EXPECT_EQ(telling(0, paths), "kitchen");
    EXPECT_EQ(telling(1, paths), "cabin");
    EXPECT_EQ(telling(2, paths), "");
}

TEST(RecentNames, FoldersOfTheSameNameAreToldByThoseAboveThem) {
    const Paths paths{"/me/2023/kitchen/home.tvk", "/me/2024/kitchen/home.tvk"};
    EXPECT_EQ(telling(0, paths), "2023/kitchen");
    EXPECT_EQ(telling(1, paths), "2024/kitchen");
}

TEST(RecentNames, AFolderWithinTheOtherIsToldWhole) {
    const Paths paths{"/home.tvk", "/kitchen/home.tvk", "/b/kitchen/home.tvk"};
    EXPECT_EQ(telling(0, paths), "/");
    EXPECT_EQ(telling(1, paths), "/kitchen");
    EXPECT_EQ(telling(2, paths), "/b/kitchen");
}

TEST(RecentNames, LongNamesAreCutInTheirMiddle) {
    const QFontMetrics metrics(QApplication::font());
    EXPECT_EQ(shortened("home.tvk", metrics), "home.tvk");
    const QString cut = shortened("begin" + QString(200, QLatin1Char('x')) + "end.tvk", metrics);
    EXPECT_LT(cut.size(), 60);
    EXPECT_TRUE(cut.startsWith("begin"));
    EXPECT_TRUE(cut.endsWith("end.tvk"));
}

}  // namespace
}  // namespace tavernook
