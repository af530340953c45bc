// Every lesson that comes with the program, held against the screens: what it names in quotes is
// the caption of something that is there.
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QMenu>
#include <QRegularExpression>

#include "screens/aids/tutorial_fixture.h"

namespace tavernook {
namespace {

// The screens that a lesson speaks of; an amount is handed over from the inventory where it says
// so.
struct LessonScreens {
    i16 section;
    std::vector<const char*> screens;
    i16 hands_over = ports::FoodInventory::returns_nowhere;
};

const LessonScreens lessons[] = {
    {100, {}},
    {200, {}},
    {300, {"FoodInventory"}},
    {400, {"MealPlan", "FoodInventory"}, ports::FoodInventory::adds_to_day},
    {500, {"Mealbuilder", "FoodInventory"}, ports::FoodInventory::adds_to_recipe},
    {600, {"ProjectSetup"}},
    {700, {"Reports"}},
};

// The toolbars stand in one row or in two, as there is room.
TEST_F(TutorialTest, LessonsDoNotTellToolbarsByTheirPlace) {
    for (const i16 section : lesson_sections) {
        const std::string text = shipped_lesson_file(lesson_file_name(section));
        for (const char* words : {"upper toolbar", "lower toolbar"}) {
            EXPECT_EQ(text.find(words), std::string::npos) << section << words;
        }
    }
}

class LessonCaptions : public TutorialTest {
  protected:
    void add(const QString& text) { captions_.insert(QString(text).remove(QLatin1Char('&'))); }

    void add_those_of(const QWidget& part) {
        for (const auto* button : part.findChildren<QAbstractButton*>()) add(button->text());
        for (const auto* label : part.findChildren<QLabel*>()) add(label->text());
        for (const auto* group : part.findChildren<QGroupBox*>()) add(group->title());
        for (const auto* box : part.findChildren<QComboBox*>()) {
            for (int place = 0; place < box->count(); ++place) add(box->itemText(place));
        }
        for (const auto* header : part.findChildren<QHeaderView*>()) {
            if (header->model() == nullptr) continue;
            for (int place = 0; place < header->count(); ++place) {
                add(header->model()->headerData(place, Qt::Horizontal).toString());
            }
        }
        for (const auto* action : part.findChildren<QAction*>()) {
            if (!action->objectName().isEmpty()) add(action->text());
        }
        for (const auto* menu : part.findChildren<QMenu*>()) add(menu->title());
    }

    // All that a newcomer sees while this lesson is on show.
    void collect(const LessonScreens& lesson) {
        open_welcome();
        add_those_of(window);
        press("Escape");
        if (lesson.section >= 300) SeedProject();
        for (const char* name : lesson.screens) open(name);
        if (food_inventory() != nullptr) food_inventory()->set_return(lesson.hands_over);
        if (lesson.section == 300) food_inventory()->view_item(1, i16_true);
        show_screen("tut");
        settle();
        add_those_of(window);
    }

    static QStringList named(const std::string& page) {
        QStringList found;
        static const QRegularExpression quoted(QStringLiteral("\"([^\"]*)\""));
        auto matches = quoted.globalMatch(QString::fromStdString(page));
        while (matches.hasNext()) found << matches.next().captured(1);
        return found;
    }

    std::set<QString> captions_;
};

class CaptionsOfALesson : public LessonCaptions,
                          public testing::WithParamInterface<LessonScreens> {};

TEST_P(CaptionsOfALesson, EachIsThere) {
    const LessonScreens& lesson = GetParam();
    collect(lesson);
    set_section(lesson.section);
    int count = 0;
    for (i16 page = 1; page <= lesson_page_count(); ++page) {
        const std::string& text = lesson_page(page);
        EXPECT_EQ(std::count(text.begin(), text.end(), '"') % 2, 0) << text;
        for (const QString& name : named(text)) {
            EXPECT_TRUE(captions_.count(name) > 0) << name.toStdString() << "\n" << text;
            ++count;
        }
    }
    EXPECT_GE(count, 5);
}

INSTANTIATE_TEST_SUITE_P(All, CaptionsOfALesson, testing::ValuesIn(lessons),
                         [](const auto& lesson) { return std::to_string(lesson.param.section); });

// A few lines a page, nothing behind the last mark, and no letter outside the code page.
TEST_F(LessonCaptions, TheLessonsAreShortAndWhole) {
    for (const i16 section : lesson_sections) {
        SCOPED_TRACE(section);
        const std::string bytes = shipped_lesson_file(lesson_file_name(section));
        EXPECT_TRUE(bytes.ends_with("/b/\n"));
        EXPECT_TRUE(std::all_of(bytes.begin(), bytes.end(), [](unsigned char letter) {
            return letter == '\n' || (letter >= ' ' && letter <= '~');
        }));
        set_section(section);
        EXPECT_FALSE(lesson_title().empty());
        EXPECT_GE(lesson_page_count(), 5);
        EXPECT_LE(lesson_page_count(), 10);
        for (i16 page = 1; page <= lesson_page_count(); ++page) {
            EXPECT_GE(lesson_page(page).size(), 60u);
            EXPECT_LE(lesson_page(page).size(), 420u) << lesson_page(page);
            EXPECT_EQ(lesson_page(page).find("  "), std::string::npos);
        }
        EXPECT_EQ(static_cast<std::size_t>(lesson_page_count()) + 2, tut_pages.size());
    }
}

}  // namespace
}  // namespace tavernook
