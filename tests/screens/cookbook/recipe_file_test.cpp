// Recipe files come into the recipe manager, from its toolbar and by a drop, and go out of it.
#include <QUrl>
#include <filesystem>

#include "recipes/documents.h"
#include "screens/cookbook/mealbuilder_fixture.h"
#include "transfer/recipe_bytes.h"

namespace tavernook {
namespace {

constexpr i16 soups = 5;
constexpr const char* link_refusal =
    "Sorry Tavernook v1.7 doesn't support direct drag and drop from Internet to Recipe Manager.  "
    "Please save the file to your Windows desktop and then drag into the Recipe Manager.";

class RecipeFiles : public MealbuilderTest {
  protected:
    void SetUp() override {
        MealbuilderTest::SetUp();
        put_catagory(soups, "Soups");
        put_recipe(1, "Waffles", soups);
        put_file("home000001.rtf", "{\\rtf1 Bake.}");
        meal_documents[1] = "*vk14home000001.rtf";
    }
    std::string put_soup(const std::string& file, const std::string& name,
                         const std::string& document = "{\\rtf1 Stir.}") {
        RecipeBytes recipe;
        recipe.name = name;
        recipe.document = document;
        recipe.ingredients = {IngredientBytes{}};
        recipe.ingredients[0].name = "Salt for " + name;
        write_whole_file(platform.path(file), "cabinet of temppf.tmp\n" + recipe.bytes());
        return platform.path(file);
    }
    void user_imports(const std::string& path) {
        platform.dialogs.expect_open("Import Recipe", path);
        command("Toolbar1_6");
    }
    static QMimeData& files(QMimeData& data, const std::vector<std::string>& paths) {
        QList<QUrl> urls;
        for (const std::string& path : paths) {
            urls.append(QUrl::fromLocalFile(QString::fromStdString(path)));
        }
        data.setUrls(urls);
        return data;
    }
    bool drop_files(const QPoint& place, const std::vector<std::string>& paths) {
        QMimeData data;
        const bool is_taken = drop(tree(), place, files(data, paths));
        settle();
        return is_taken;
    }
    std::string heading() { return label("recipe_heading"); }
};

TEST_F(RecipeFiles, ImportAsksForAFileAndShowsTheRecipe) {
    open();
    mark("5r");
    platform.dialogs.expect_open("Import Recipe", put_soup("soup.rpf", "Soup"))
        .filter("Recipe Portable Format Files (*.rpf)|*.rpf")
        .initial_file(platform.path("*.rpf"));
    command("Toolbar1_6");
    EXPECT_EQ(heading(), "Soup");
    EXPECT_EQ(pane_text(), "Stir.");
    EXPECT_EQ(marked(), "2c");
    EXPECT_EQ(meals[2].category, soups);
    EXPECT_EQ(ingredients().size(), 1u);
    EXPECT_EQ(hint(),
              "Imported the recipe \"Soup\" with 1 ingredient: 1 new item, 0 of yours.  New "
              "units: 4.  New stores: 1.");
}

TEST_F(RecipeFiles, AMarkedRecipeStandsForItsCategory) {
    open();
    mark("1c");
    user_imports(put_soup("soup.rpf", "Soup"));
    EXPECT_EQ(meals[2].category, soups);
    mark("r0");
    user_imports(put_soup("tea.rpf", "Tea"));
    EXPECT_EQ(meals[3].category, 0);
}

TEST_F(RecipeFiles, CancelIsSilent) {
    open();
    platform.dialogs.expect_open("Import Recipe", cancelled);
    command("Toolbar1_6");
    platform.dialogs.expect_open("Import Recipe", platform.path("x")).during([] {
        throw Fault(fault_number::path_not_found);
    });
    platform.boxes.expect_message("Error in importing RPF file.  Error = 76 Desc = " +
                                  fault_description(fault_number::path_not_found));
    command("Toolbar1_6");
    EXPECT_FALSE(platform.cabinets.log.entries.size() > 0);
}

TEST_F(RecipeFiles, ADamagedFileHasABoxAndTheMessagePanel) {
    open();
    mark("1c");
    write_whole_file(platform.path("x.rpf"), "no cabinet");
    platform.boxes.expect_message("Import_RPF63");
    user_imports(platform.path("x.rpf"));
    EXPECT_EQ(hint(), "x.rpf was not imported: it is no recipe file, or a damaged one.");
    EXPECT_EQ(heading(), "Waffles");
}

// A filter that hides it goes.
TEST_F(RecipeFiles, TheImportedRecipeComesInSight) {
    open();
    part<QLineEdit>("filter").setText("waf");
    settle();
    user_imports(put_soup("soup.rpf", "Soup"));
    EXPECT_EQ(marked(), "2c");
}

TEST_F(RecipeFiles, WhatIsWrittenIsSavedBeforeAnotherRecipeComes) {
    open();
    mark("1c");
    QTest::keyClicks(&document(), QStringLiteral("Eat. "));
    user_imports(put_soup("soup.rpf", "Soup"));
    EXPECT_EQ(pane_text(), "Stir.");
    EXPECT_NE(file_bytes("home000001.rtf").find("Eat. Bake."), std::string::npos);
}

TEST_F(RecipeFiles, OverwritingTheRecipeOnShowShowsTheNewText) {
    open();
    mark("1c");
    QTest::keyClicks(&document(), QStringLiteral("Eat. "));
    platform.boxes.expect_message(
        "This meal already exists in your project.\nPress YES to overwrite existing meal\nOr NO "
        "to import as different recipe\nOr CANCEL to cancel Import",
        Answer::yes);
    user_imports(put_soup("waffles.rpf", "Waffles"));
    EXPECT_EQ(pane_text(), "Stir.");
    EXPECT_EQ(file_bytes("home000001.rtf"), "{\\rtf1 Stir.}");
    close();
    settle();
    EXPECT_EQ(file_bytes("home000001.rtf"), "{\\rtf1 Stir.}");
}

TEST_F(RecipeFiles, ARecipeWithoutATextComesWithAnEmptyOne) {
    open();
    mark("1c");
    user_imports(put_soup("soup.rpf", "Soup", ""));
    EXPECT_EQ(heading(), "Soup");
    EXPECT_EQ(pane_text(), "");
    EXPECT_FALSE(part<QWidget>("document_notice").isVisible());
    QTest::keyClicks(&document(), QStringLiteral("Stir."));
    EXPECT_EQ(pane_text(), "Stir.");
}

TEST_F(RecipeFiles, ExportIsOfTheRecipeOnShowWithWhatIsWritten) {
    open();
    EXPECT_FALSE(part<QAction>("Toolbar1_7").isEnabled());
    EXPECT_TRUE(part<QAction>("Toolbar1_6").isEnabled());
    mark("1c");
    EXPECT_TRUE(part<QAction>("Toolbar1_7").isEnabled());
    QTest::keyClicks(&document(), QStringLiteral("Eat. "));
    platform.dialogs.expect_save("Save Recipe Portable Format", platform.path("w.rpf"));
    command("Toolbar1_7");
    const std::string bytes = read_whole_file(platform.path("w.rpf"));
    EXPECT_EQ(bytes.substr(22, 8), std::string("Waffles\0", 8));
    EXPECT_NE(bytes.find("Eat. Bake."), std::string::npos);
    EXPECT_EQ(hint(), "Exported the recipe \"Waffles\" with 0 ingredients as w.rpf.");
}

TEST_F(RecipeFiles, AFileIsDroppedIntoTheCategoryUnderIt) {
    open();
    EXPECT_TRUE(drop_files(middle_of("5r"), {put_soup("soup.rpf", "Soup")}));
    EXPECT_EQ(meals[2].category, soups);
    EXPECT_EQ(heading(), "Soup");
    EXPECT_TRUE(drop_files(middle_of("1c"), {put_soup("tea.RPF", "Tea")}));
    EXPECT_EQ(meals[3].category, soups);
    EXPECT_TRUE(drop_files(middle_of("r0"), {put_soup("pie.rpf", "Pie")}));
    EXPECT_EQ(meals[4].category, 0);
    const QPoint nowhere = tree().viewport()->rect().bottomRight() - QPoint(5, 5);
    EXPECT_TRUE(drop_files(nowhere, {put_soup("jam.rpf", "Jam")}));
    EXPECT_EQ(meals[5].category, 0);
}

// The other program waits for the end of the drop.
TEST_F(RecipeFiles, TheImportBeginsBehindTheDrop) {
    open();
    QMimeData data;
    files(data, {put_soup("soup.rpf", "Soup")});
    const Qt::DropActions offered = Qt::MoveAction | Qt::CopyAction;
    QDragEnterEvent enter(middle_of("5r"), offered, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(tree().viewport(), &enter);
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
    QDropEvent event(middle_of("5r"), offered, &data, Qt::LeftButton, {});
    event.ignore();
    QCoreApplication::sendEvent(tree().viewport(), &event);
    EXPECT_EQ(event.dropAction(), Qt::CopyAction);
    EXPECT_EQ(meals[2].in_use, 0);
    settle();
    EXPECT_EQ(meals[2].in_use, 1);
}

TEST_F(RecipeFiles, SeveralFilesComeOneAfterTheOther) {
    open();
    write_whole_file(platform.path("x.rpf"), "no cabinet");
    platform.boxes.expect_message("Import_RPF63");
    platform.boxes.expect_message("Import_RPF53");
    EXPECT_TRUE(
        drop_files(middle_of("5r"), {put_soup("soup.rpf", "Soup"), platform.path("x.rpf"),
                                     put_soup("tea.rpf", "Tea"), platform.path("note.txt")}));
    EXPECT_EQ(rows(), "[General [Soups Soup Tea Waffles ] ] ");
    EXPECT_EQ(heading(), "Tea");
    EXPECT_EQ(hint(), "2 of 4 recipes were imported. Not, or not whole: x.rpf, note.txt.");
}

TEST_F(RecipeFiles, WhatComesFromTheWebIsRefused) {
    open();
    QMimeData link;
    link.setUrls({QUrl("https://example.com/soup.rpf")});
    platform.boxes.expect_message(link_refusal);
    EXPECT_TRUE(drop(tree(), middle_of("5r"), link));
    settle();
    platform.boxes.expect_message(link_refusal);
    EXPECT_TRUE(drop(tree(), middle_of("1c"), "http://example.com"));
    settle();
    EXPECT_EQ(meals[2].in_use, 0);
}

// What a browser or a mail program has saved may have lost the ending of its name.
TEST_F(RecipeFiles, AFileOfAnyNameIsTried) {
    open();
    EXPECT_TRUE(drop_files(middle_of("5r"), {put_soup("soup.rpf.txt", "Soup")}));
    EXPECT_EQ(heading(), "Soup");
    std::filesystem::create_directory(platform.path("folder"));
    platform.boxes.expect_message("Import_RPF75");
    EXPECT_TRUE(drop_files(middle_of("5r"), {platform.path("folder")}));
    EXPECT_EQ(heading(), "Soup");
}

TEST_F(RecipeFiles, AFileDroppedWhileAQuestionIsOpenIsRefused) {
    open();
    const std::string soup = put_soup("soup.rpf", "Soup");
    platform.boxes.expect_message("Which one?").during([&] {
        drop_files(middle_of("5r"), {soup});
    });
    boxes().message("Which one?");
    settle();
    EXPECT_EQ(hint(), "Answer the question first, then drop the file again.");
    EXPECT_EQ(meals[2].in_use, 0);
}

// Somebody else has replaced its file.
TEST_F(RecipeFiles, ATextThatWasReplacedIsReadAgainAndNotWrittenBack) {
    open();
    mark("1c");
    QTest::keyClicks(&document(), QStringLiteral("Eat. "));
    put_file("home000001.rtf", "{\\rtf1 Simmer.}");
    mealbuilder()->reread_document();
    EXPECT_EQ(pane_text(), "Simmer.");
    EXPECT_TRUE(mealbuilder()->save_document());
    EXPECT_EQ(file_bytes("home000001.rtf"), "{\\rtf1 Simmer.}");
    QTest::keyClicks(&document(), QStringLiteral("Now: "));
    EXPECT_TRUE(mealbuilder()->save_document());
    EXPECT_NE(file_bytes("home000001.rtf").find("Now: Simmer."), std::string::npos);
}

// A project dragged over the tree is taken by the main window.
TEST_F(RecipeFiles, ProjectsAreLeftToTheWindow) {
    open();
    const auto is_taken = [&](QWidget& over, const char* name) {
        QMimeData data;
        files(data, {platform.path(name)});
        QDragEnterEvent enter(middle_of("5r"), Qt::CopyAction, &data, Qt::LeftButton, {});
        enter.ignore();
        QCoreApplication::sendEvent(&over, &enter);
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(&over, &leave);
        return enter.isAccepted();
    };
    QWidget& rows = *tree().viewport();
    EXPECT_TRUE(is_taken(rows, "soup.rpf"));
    EXPECT_TRUE(is_taken(rows, "cabin.tvk"));
    EXPECT_TRUE(is_taken(rows, "note.txt"));
    EXPECT_TRUE(is_taken(window, "cabin.tvk"));
    EXPECT_FALSE(is_taken(window, "soup.rpf"));
}

}  // namespace
}  // namespace tavernook
