// Assistive technology hears the value that a label shows, and what it is the value of.
#include "screens/parts/label_access.h"

#include <QComboBox>
#include <QLineEdit>

#include "screens/child_screen_fixture.h"
#include "screens/heard.h"

namespace tavernook {
namespace {

std::string spoken(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name).toStdString();
}

TEST(LabelAccess, ALabelWithANameIsHeardWithItsText) {
    QLabel label("7.50");
    EXPECT_EQ(spoken(label), "7.50");
    label.setAccessibleName("Sales tax");
    EXPECT_EQ(spoken(label), "Sales tax: 7.50");
    label.setText("8.00");
    EXPECT_EQ(spoken(label), "Sales tax: 8.00");
    label.clear();
    EXPECT_EQ(spoken(label), "Sales tax");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->role(), QAccessible::StaticText);
}

TEST(LabelAccess, TheCaptionMayStandBesideIt) {
    QWidget form;
    QLabel caption("Fat/cup:", &form);
    caption.setObjectName("fat_caption");
    QLabel figure("12 g", &form);
    figure.setProperty("caption", "fat_caption");
    EXPECT_EQ(spoken(figure), "Fat/cup: 12 g");
    caption.setText("Fat/slice:");
    EXPECT_EQ(spoken(figure), "Fat/slice: 12 g");
    EXPECT_EQ(spoken(caption), "Fat/slice:");
}

TEST(LabelAccess, ALabelOfAFieldStillNamesIt) {
    QWidget form;
    QLabel label("&Name", &form);
    QLineEdit field(&form);
    label.setBuddy(&field);
    EXPECT_EQ(spoken(label), "Name");
    EXPECT_EQ(spoken(field), "Name");
    const auto relations =
        QAccessible::queryAccessibleInterface(&label)->relations(QAccessible::Labelled);
    ASSERT_EQ(relations.size(), 1);
    EXPECT_EQ(relations.first().first->object(), &field);
}

// What screen readers take for the name of a box to choose from; Qt tells its choice as the name.
std::string label_heard_of(QWidget& box) {
    const auto relations =
        QAccessible::queryAccessibleInterface(&box)->relations(QAccessible::Label);
    return relations.isEmpty() ? ""
                               : relations.first().first->text(QAccessible::Name).toStdString();
}

TEST(LabelAccess, ABoxToChooseFromHasALabelEvenWithoutOne) {
    QWidget form;
    QComboBox box(&form);
    box.addItems({"gram(s)", "kcal"});
    box.setEditable(true);
    box.setAccessibleName("Unit of Fat");
    form.show();
    EXPECT_EQ(label_heard_of(box), "Unit of Fat");
    EXPECT_EQ(label_heard_of(box), "Unit of Fat");
    const auto labels = form.findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 1);
    EXPECT_TRUE(labels.first()->isHidden());
    EXPECT_EQ(spoken(*box.lineEdit()), "Unit of Fat");
}

TEST(LabelAccess, ABoxKeepsTheLabelThatItHas) {
    QWidget form;
    QLabel label("&Store:", &form);
    QComboBox box(&form);
    box.setEditable(true);
    label.setBuddy(&box);
    EXPECT_EQ(label_heard_of(box), "Store:");
    EXPECT_EQ(form.findChildren<QLabel*>().size(), 1);
    EXPECT_EQ(spoken(*box.lineEdit()), "Store:");
}

TEST(LabelAccess, AnAnnouncementIsANotificationThatComesUp) {
    QLabel label("Copied.");
    label.setObjectName("news");
    label.setProperty("announces", true);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->role(), QAccessible::Notification);
    const Hearing hearing;
    announce(label);
    std::vector<QAccessible::Event> events;
    for (const Heard& one : heard()) events.push_back(one.event);
    EXPECT_EQ(events, (std::vector<QAccessible::Event>{QAccessible::NameChanged, QAccessible::Alert,
                                                       QAccessible::ObjectShow}));
}

TEST(LabelAccess, TextsAreHeardAsTheyAreSeen) {
    QLabel plain("salt & pepper");
    EXPECT_EQ(spoken(plain), "salt & pepper");
    QLabel rich("<b>salt</b> &amp; pepper");
    EXPECT_EQ(spoken(rich), "salt & pepper");
}

class SpokenValues : public ChildScreenTest {
  protected:
    // Each label with a text in it, and with what is to be heard before that.
    void expect_spoken(const std::vector<std::pair<const char*, std::string>>& captions) {
        for (const auto& [name, caption] : captions) {
            part<QLabel>(name).setText("4 & 2");
            EXPECT_EQ(spoken(part<QLabel>(name)), caption + ": 4 & 2") << name;
        }
    }
};

TEST_F(SpokenValues, OfTheItemScreen) {
    open("FoodInventory");
    expect_spoken({{"barcode", "Barcode"},
                   {"last_restock", "Date of the last restock"},
                   {"servings", "Servings in stock"}});
    auto& expiry = part<QPushButton>("exp_date");
    expiry.setText("Exp 05/06/24");
    EXPECT_EQ(spoken(expiry), "Exp 05/06/24");
}

TEST_F(SpokenValues, OfThePlanner) {
    open("MealPlan");
    expect_spoken({{"Label6", "Day"},
                   {"day_state", "Plan"},
                   {"calories_total", "Calories"},
                   {"fat_total", "Fat"},
                   {"cost_total", "Cost"}});
}

TEST_F(SpokenValues, OfTheRecipe) {
    open("Mealbuilder");
    part<QLabel>("calories_caption").setText("Calories/cup:");
    part<QLabel>("fat_caption").setText("Fat/cup:");
    part<QLabel>("cost_caption").setText("Cost/cup:");
    expect_spoken({{"calories_per_serving", "Calories/cup"},
                   {"fat_per_serving", "Fat/cup"},
                   {"cost_per_serving", "Cost/cup"},
                   {"total_calories", "Total Calories"},
                   {"total_fat", "Total Fat"},
                   {"total_cost", "Total Cost"}});
}

TEST_F(SpokenValues, OfTheGroceryList) {
    open("ShoppingList");
    expect_spoken({{"tax_label", "Sales tax"}, {"total_label", "Total with tax"}});
}

}  // namespace
}  // namespace tavernook
