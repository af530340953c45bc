// What is switched on in a toolbar has a line of the accent colour.
#include "screens/parts/checked_line.h"

#include <QAction>
#include <QToolButton>
#include <gtest/gtest.h>

#include "gui_support/warning_guard.h"
#include "screens/parts/house_colours.h"

namespace tavernook {
namespace {

TEST(CheckedLine, IsAtTheFootOfAButtonWhileItIsChecked) {
    QAction action("Bold");
    action.setCheckable(true);
    QToolButton button;
    button.setDefaultAction(&action);
    const CheckedLine* line = new CheckedLine(button);
    button.resize(80, 50);
    button.show();
    EXPECT_TRUE(line->isHidden());
    action.setChecked(true);
    EXPECT_FALSE(line->isHidden());
    EXPECT_EQ(line->geometry().bottom(), button.rect().bottom());
    EXPECT_GT(line->width(), 40);
    const QColor accent = house_colour(HouseColour::accent, button.palette());
    EXPECT_EQ(button.grab().toImage().pixelColor(40, 49), accent);
    button.resize(120, 60);
    EXPECT_EQ(line->geometry().center().x(), button.rect().center().x());
    EXPECT_EQ(line->geometry().bottom(), button.rect().bottom());
    action.setChecked(false);
    EXPECT_TRUE(line->isHidden());
    EXPECT_NE(button.grab().toImage().pixelColor(40, 49), accent);
}

TEST(CheckedLine, AButtonThatIsCheckedAlreadyHasItAtOnce) {
    QToolButton button;
    button.setCheckable(true);
    button.setChecked(true);
    EXPECT_FALSE((new CheckedLine(button))->isHidden());
}

}  // namespace
}  // namespace tavernook
