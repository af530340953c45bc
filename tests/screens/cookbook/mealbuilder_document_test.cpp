// The texts of the recipe manager and their files: nothing that was written is lost, and what
// could not be read is never saved over.
#include <QClipboard>

#include "core/program_folders.h"
#include "rich_text/rtf_reader.h"
#include "screens/cookbook/mealbuilder_fixture.h"

namespace tavernook {
namespace {

constexpr const char* plain_rtf = "{\\rtf1\\ansi Beat the eggs.}";

class RecipeDocuments : public MealbuilderTest {
  protected:
    void SetUp() override {
        MealbuilderTest::SetUp();
        put_household();
        project_modified = i16_false;
    }

    // A text in the file of the slot, which the slot points to.
    void put_document(i16 slot, const std::string& bytes) {
        put_file(file_of(slot), bytes);
        meal_documents[slot] = "*vk14" + file_of(slot);
    }
    static std::string file_of(i16 slot) { return "home00000" + std::to_string(slot) + ".rtf"; }
    bool has_file(const std::string& name) { return platform.disk.exists(recipe_path(name)); }

    // What a file says, without its look.
    std::string text_in(const std::string& name) {
        QTextDocument document;
        rtf::read(file_bytes(name), document);
        return document.toPlainText().toStdString();
    }
    void write(const char* words) {
        document().setFocus();
        document().moveCursor(QTextCursor::End);
        type(words);
    }
    void expect_load_error(const char* error, const std::string& name) {
        platform.boxes.expect_message(std::string("Error: ") + error +
                                      " Path = " + recipe_path(name));
    }
    void expect_save_error(const char* error, const std::string& name) {
        platform.boxes.expect_message(std::string("Save Error: ") + error +
                                      " Path = " + recipe_path(name));
    }
    // From now on every operation on files fails.
    void break_disk() {
        platform.files.start_over();
        platform.files.fail_at(1, fault_number::disk_full, Repeat::persistently);
    }
    bool notice() { return part<QWidget>("document_notice").isVisible(); }
};

TEST_F(RecipeDocuments, AreShownWithTheRecipe) {
    put_document(1, plain_rtf);
    open();
    mark("1c");
    EXPECT_EQ(pane_text(), "Beat the eggs.");
    EXPECT_EQ(label("Label2"), "\\recipes\\home000001.rtf\nBarcode Name: TVK1");
    EXPECT_FALSE(document().isReadOnly());
    EXPECT_FALSE(notice());
    EXPECT_EQ(project_modified, i16_false);
    mark("2c");
    EXPECT_EQ(pane_text(), "");
}

TEST_F(RecipeDocuments, TheEntryOfSlotSevenIsMarkerStemAndNumber) {
    put_recipe(7, "Broth");
    open();
    mark("7c");
    write("Boil.");
    EXPECT_TRUE(screen().save_document());
    EXPECT_EQ(meal_documents[7], "*vk14home000007.rtf");
    EXPECT_EQ(text_in("home000007.rtf"), "Boil.");
}

TEST_F(RecipeDocuments, EditsInThreeRecipesAreFoundAgain) {
    open();
    const std::pair<const char*, const char*> texts[] = {
        {"1c", "Fry both sides."}, {"2c", "Stir well."}, {"3c", "Simmer for hours."}};
    for (const auto& [key, text] : texts) {
        mark(key);
        write(text);
    }
    mark("1c");
    write(" Serve hot.");
    close();
    settle();
    ASSERT_FALSE(is_open());
    open();
    mark("1c");
    EXPECT_EQ(pane_text(), "Fry both sides. Serve hot.");
    mark("2c");
    EXPECT_EQ(pane_text(), "Stir well.");
    mark("3c");
    EXPECT_EQ(pane_text(), "Simmer for hours.");
}

TEST_F(RecipeDocuments, ReadingWritesNothing) {
    put_document(1, plain_rtf);
    open();
    mark("1c");
    mark("2c");
    mark("1c");
    close();
    settle();
    EXPECT_EQ(file_bytes("home000001.rtf"), plain_rtf);
    EXPECT_FALSE(has_file("home000002.rtf"));
    EXPECT_EQ(project_modified, i16_false);
}

TEST_F(RecipeDocuments, TypingMarksTheProject) {
    put_document(1, plain_rtf);
    open();
    mark("1c");
    write("x");
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(RecipeDocuments, SavingTheProjectSavesTheTextFirst) {
    open();
    mark("1c");
    write("Fry.");
    press("Ctrl+S");
    EXPECT_EQ(text_in("home000001.rtf"), "Fry.");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_EQ(pane_text(), "Fry.");
}

TEST_F(RecipeDocuments, SavingTheProjectTakesASizeThatIsStillBeingTyped) {
    open();
    mark("1c");
    auto& size = part<QLineEdit>("serving_size");
    size.setFocus();
    size.setText("6");
    press("Ctrl+S");
    EXPECT_EQ(meal_serving_size[1], 6);
    EXPECT_EQ(label("calories_per_serving"), "60.00");
    EXPECT_EQ(project_modified, i16_false);
    EXPECT_FALSE(has_file("home000001.rtf"));
}

TEST_F(RecipeDocuments, SavingTheTextTakesASizeThatIsStillBeingTyped) {
    open();
    mark("1c");
    write("Fry.");
    auto& size = part<QLineEdit>("serving_size");
    size.setText("6");
    ASSERT_TRUE(screen().Save_RTF(1));
    EXPECT_EQ(meal_serving_size[1], 6);
    EXPECT_EQ(text_in("home000001.rtf"), "Fry.");
}

TEST_F(RecipeDocuments, ASavedTextIsNotSavedAgain) {
    open();
    mark("1c");
    write("Fry.");
    press("Ctrl+S");
    break_disk();
    mark("2c");
    EXPECT_EQ(screen().get_mealid(), 2);
    platform.files.work_normally();
}

TEST_F(RecipeDocuments, ASizeThatIsStillBeingTypedStaysWithItsRecipe) {
    open();
    mark("1c");
    auto& size = part<QLineEdit>("serving_size");
    size.setFocus();
    size.setText("6");
    screen().setid(2);
    screen().populate_tree_list(2);
    EXPECT_EQ(meal_serving_size[1], 6);
    EXPECT_EQ(meal_serving_size[2], 1);
    EXPECT_EQ(size.text(), "1");
}

TEST_F(RecipeDocuments, ClosingTheProjectSavesTheText) {
    open();
    mark("1c");
    write("Fry.");
    platform.boxes.expect_message(
        "Project has been modified.  Would you like to save before closing?", Answer::yes);
    action("mnuFile_Close").trigger();
    EXPECT_EQ(text_in("home000001.rtf"), "Fry.");
    EXPECT_EQ(project_open, i16_false);
}

TEST_F(RecipeDocuments, LeavingTheProjectUnsavedBringsTheTextBeforeBack) {
    put_document(1, plain_rtf);
    open();
    mark("1c");
    write(" And more.");
    platform.boxes.expect_message(
        "Project has been modified.  Would you like to save before closing?", Answer::no);
    action("mnuFile_Close").trigger();
    EXPECT_EQ(file_bytes("home000001.rtf"), plain_rtf);
}

TEST_F(RecipeDocuments, AnOldTextBecomesAFileWhenItIsSeen) {
    meal_documents[1] = "{\\rtf1 From the old days}";
    meal_documents[2] = "{\\rtf1 Never looked at}";
    open();
    mark("1c");
    EXPECT_EQ(pane_text(), "From the old days");
    EXPECT_EQ(meal_documents[1], "*vk14home000001.rtf");
    EXPECT_EQ(text_in("home000001.rtf"), "From the old days");
    EXPECT_EQ(meal_documents[2], "{\\rtf1 Never looked at}");
    EXPECT_FALSE(has_file("home000002.rtf"));
}

TEST_F(RecipeDocuments, AnOldTextStaysWhereItIsWhenItsFileCannotBeWritten) {
    meal_documents[1] = "{\\rtf1 From the old days}";
    open();
    break_disk();
    expect_load_error("Disk full", "home000001.rtf");
    mark("1c");
    EXPECT_EQ(pane_text(), "From the old days");
    EXPECT_EQ(meal_documents[1], "{\\rtf1 From the old days}");
}

TEST_F(RecipeDocuments, ARenamedProjectKeepsItsOldFilesUntilTheNextSave) {
    put_document(1, plain_rtf);
    open();
    mark("1c");
    set_project_path(platform.path("villa.tvk"));
    screen().populate_tree();
    EXPECT_EQ(label("Label2"), "\\recipes\\home000001.rtf\nBarcode Name: TVK1");
    write(" Fry.");
    EXPECT_TRUE(screen().save_document());
    EXPECT_EQ(meal_documents[1], "*vk14villa000001.rtf");
    EXPECT_EQ(text_in("villa000001.rtf"), "Beat the eggs. Fry.");
    EXPECT_EQ(file_bytes("home000001.rtf"), plain_rtf);
}

TEST_F(RecipeDocuments, ADamagedOneKeepsThePaneAndTheFile) {
    const std::string damaged = "{\\rtf1 Half of a te";
    put_document(1, plain_rtf);
    put_document(2, damaged);
    open();
    mark("1c");
    expect_load_error("Bad record number", "home000002.rtf");
    mark("2c");
    EXPECT_EQ(pane_text(), "Beat the eggs.");
    EXPECT_TRUE(document().isReadOnly());
    EXPECT_TRUE(notice());
    EXPECT_EQ(label("notice_text"),
              "The text of \"Porridge\" could not be read. Nothing is changed in its file. Below "
              "still stands the text of \"Pancakes\".");
    EXPECT_FALSE(part<QWidget>("write_anew_button").isVisible());
    write("x");
    screen().add_text("y");
    screen().AddMealInfo();
    EXPECT_EQ(pane_text(), "Beat the eggs.");
    EXPECT_TRUE(screen().save_document());
    EXPECT_FALSE(screen().Save_RTF(2));
    mark("3c");
    EXPECT_FALSE(notice());
    EXPECT_EQ(pane_text(), "");
    close();
    settle();
    EXPECT_EQ(file_bytes("home000002.rtf"), damaged);
    EXPECT_EQ(file_bytes("home000001.rtf"), plain_rtf);
    EXPECT_EQ(meal_documents[2], "*vk14home000002.rtf");
}

TEST_F(RecipeDocuments, ServingFieldsOfARecipeThatCannotBeReadAreStillStored) {
    put_document(1, "no rich text");
    open();
    expect_load_error("Type mismatch", "home000001.rtf");
    mark("1c");
    auto& size = part<QLineEdit>("serving_size");
    size.setText("8");
    mark("2c");
    EXPECT_EQ(meal_serving_size[1], 8);
    EXPECT_EQ(file_bytes("home000001.rtf"), "no rich text");
}

TEST_F(RecipeDocuments, AMissingOneCanBeBegunAgain) {
    meal_documents[1] = "*vk14lost000001.rtf";
    put_document(2, plain_rtf);
    open();
    mark("2c");
    expect_load_error("File not found", "lost000001.rtf");
    mark("1c");
    EXPECT_TRUE(document().isReadOnly());
    EXPECT_EQ(pane_text(), "Beat the eggs.");
    project_modified = i16_false;
    click("write_anew_button");
    EXPECT_EQ(project_modified, i16_true);
    EXPECT_EQ(pane_text(), "");
    EXPECT_FALSE(notice());
    write("Anew.");
    mark("2c");
    EXPECT_EQ(text_in("home000001.rtf"), "Anew.");
    EXPECT_EQ(meal_documents[1], "*vk14home000001.rtf");
    EXPECT_EQ(file_bytes("home000002.rtf"), plain_rtf);
}

TEST_F(RecipeDocuments, ARecipeWithoutANameLoadsNothing) {
    put_document(1, plain_rtf);
    meals[1].name = "";
    open();
    mark("1c");
    EXPECT_EQ(pane_text(), "");
    EXPECT_TRUE(document().isReadOnly());
    EXPECT_EQ(label("notice_text"),
              "A recipe without a name has no text. Give it a name (F2), then press F5.");
    tree().setFocus();
    press("F2");
    type_name("Named");
    press("F5");
    EXPECT_EQ(pane_text(), "Beat the eggs.");
    EXPECT_FALSE(document().isReadOnly());
}

TEST_F(RecipeDocuments, AFailedSaveStaysWithTheRecipeAndItsText) {
    put_document(1, plain_rtf);
    put_document(2, "{\\rtf1 Stir.}");
    open();
    mark("1c");
    write(" And more.");
    break_disk();
    expect_save_error("Disk full", "home000001.rtf");
    mark("2c");
    EXPECT_EQ(screen().get_mealid(), 1);
    EXPECT_EQ(marked(), "1c");
    EXPECT_EQ(pane_text(), "Beat the eggs. And more.");
    EXPECT_EQ(file_bytes("home000001.rtf"), plain_rtf);
    platform.files.work_normally();
    mark("2c");
    EXPECT_EQ(pane_text(), "Stir.");
    EXPECT_EQ(text_in("home000001.rtf"), "Beat the eggs. And more.");
}

TEST_F(RecipeDocuments, AFailedSaveStopsANewRecipe) {
    open();
    mark("1c");
    write("Fry.");
    break_disk();
    platform.boxes.expect_input("Enter a new recipe name", "New Recipe", "", "Waffles");
    expect_save_error("Disk full", "home000001.rtf");
    command("Toolbar1_1");
    EXPECT_EQ(meals[4].in_use, 0);
    EXPECT_EQ(pane_text(), "Fry.");
    EXPECT_EQ(marked(), "1c");
    platform.files.work_normally();
}

TEST_F(RecipeDocuments, AFailedSaveStopsDeletingACategory) {
    open();
    mark("1c");
    write("Fry.");
    mark("2r");
    break_disk();
    expect_save_error("Disk full", "home000001.rtf");
    command("Toolbar1_3");
    EXPECT_EQ(catagories[2].in_use, 1);
    EXPECT_EQ(pane_text(), "Fry.");
    platform.files.work_normally();
}

TEST_F(RecipeDocuments, AFailedSaveKeepsTheScreenOpenUntilTheUserGivesUp) {
    open();
    mark("1c");
    write("Fry.");
    const char* question =
        "The text of \"Pancakes\" cannot be saved.  Do you want to go on without saving it?";
    break_disk();
    expect_save_error("Disk full", "home000001.rtf");
    close();
    ASSERT_TRUE(is_open());
    for (const Answer answer : {Answer::no, Answer::yes}) {
        expect_save_error("Disk full", "home000001.rtf");
        platform.boxes.expect_message(question, answer).default_button(DefaultButton::no);
        close();
        EXPECT_EQ(is_open(), answer == Answer::no);
    }
    platform.files.work_normally();
}

TEST_F(RecipeDocuments, ANewRecipeDoesNotInheritTheTextOfADeletedOne) {
    put_document(1, plain_rtf);
    open();
    mark("1c");
    command("Toolbar1_3");
    platform.boxes.expect_input("Enter a new recipe name", "New Recipe", "", "Waffles");
    command("Toolbar1_1");
    ASSERT_EQ(screen().get_mealid(), 1);
    EXPECT_EQ(pane_text(), "");
    mark("2c");
    mark("1c");
    EXPECT_EQ(pane_text(), "");
    EXPECT_EQ(text_in("home000001.rtf"), "");
}

TEST_F(RecipeDocuments, TheTextOfADeletedRecipeSurvivesAsABackUp) {
    put_document(1, plain_rtf);
    open();
    mark("1c");
    write(" And more.");
    command("Toolbar1_3");
    EXPECT_EQ(text_in("home000001.bak"), "Beat the eggs. And more.");
    EXPECT_EQ(file_bytes("home000001.rtf"), plain_rtf);
    EXPECT_EQ(pane_text(), "");
}

TEST_F(RecipeDocuments, ADeletedTextThatCannotBeKeptStaysInThePane) {
    put_document(1, plain_rtf);
    open();
    mark("1c");
    break_disk();
    expect_save_error("Disk full", "home000001.bak");
    command("Toolbar1_3");
    EXPECT_EQ(meals[1].in_use, 0);
    EXPECT_EQ(pane_text(), "Beat the eggs.");
    EXPECT_TRUE(document().isReadOnly());
    EXPECT_EQ(label("notice_text"),
              "The recipe is deleted, but its text could not be kept. Copy what you need.");
    platform.files.work_normally();
    mark("3c");
    EXPECT_EQ(pane_text(), "");
    EXPECT_FALSE(notice());
}

TEST_F(RecipeDocuments, ABackUpOfADamagedOneIsTheFileItself) {
    put_document(1, "{\\rtf1 Half of a te");
    open();
    expect_load_error("Bad record number", "home000001.rtf");
    mark("1c");
    command("Toolbar1_3");
    EXPECT_EQ(file_bytes("home000001.bak"), "{\\rtf1 Half of a te");
    EXPECT_EQ(pane_text(), "");
}

TEST_F(RecipeDocuments, TheInformationBlockTellsWhatIsOnTheScreen) {
    meals[1].serving_size_units = 2;
    open();
    mark("1c");
    part<QLineEdit>("serving_size").setText("4");
    write("Fry.");
    part<QAction>("recipe_information").trigger();
    const std::string rule(43, '_');
    EXPECT_EQ(pane_text(),
              "Fry.Ingredients\n" + rule + "\n1.5 Cup(s) Milk\n4 Cup(s) Flour\n" + rule +
                  "\nServing Size = 4 Cup(s)\n" + "Nutritional and Cost Information\n" + rule +
                  "\nCalories/Cup(s): 90.00\nFat/Cup(s): 3.50\nCost/Cup(s): $0.44\n" +
                  "Total Calories: 360\nTotal Fat: 14\nTotal Cost: $1.75\n" + rule + "\n");
    EXPECT_EQ(meal_serving_size[1], 4);
}

TEST_F(RecipeDocuments, TheBarcodeOfTheRecipeGoesIntoItsText) {
    open();
    mark("1c");
    part<QAction>("recipe_barcode").trigger();
    EXPECT_TRUE(platform.disk.exists(platform.system.program + "/barcode/m1.bmp"));
    EXPECT_EQ(document().toPlainText(), QString(QChar::ObjectReplacementCharacter) + '\n');
    EXPECT_EQ(project_modified, i16_true);
}

TEST_F(RecipeDocuments, TextIsAddedAtTheCaret) {
    put_document(1, plain_rtf);
    open();
    mark("1c");
    screen().add_text("Caf\xE9: ");
    EXPECT_EQ(pane_text(), "Caf\u00E9: Beat the eggs.");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "Caf\u00E9: ");
}

// More paragraphs than the reader takes.
TEST_F(RecipeDocuments, ATextThatCouldNotBeReadAgainIsNotSaved) {
    put_document(1, plain_rtf);
    open();
    mark("1c");
    document().document()->setPlainText(QString(200'000, u'\n'));
    expect_save_error("The text has too many paragraphs for a recipe.  Take some out.",
                      "home000001.rtf");
    mark("2c");
    EXPECT_EQ(marked(), "1c");
    EXPECT_EQ(document().document()->blockCount(), 200'001);
    EXPECT_FALSE(document().isReadOnly());
    EXPECT_EQ(file_bytes("home000001.rtf"), plain_rtf);
    document().document()->setPlainText("Fry.");
    mark("2c");
    EXPECT_EQ(text_in("home000001.rtf"), "Fry.");
}

// Laid out with its looks it would hold the window for minutes.
class HeavyRecipeDocuments : public RecipeDocuments {
  protected:
    static std::string heavy_rtf() {
        std::string bytes = "{\\rtf1 ";
        for (int run = 0; run < 1'000; ++run) bytes += "{\\b a}b";
        return bytes + "}";
    }
    static std::string heavy_words() { return QStringLiteral("ab").repeated(1'000).toStdString(); }
};

TEST_F(HeavyRecipeDocuments, AreShownInBareWordsAndStayAsTheyAre) {
    put_document(1, heavy_rtf());
    open();
    mark("1c");
    EXPECT_EQ(pane_text(), heavy_words());
    EXPECT_TRUE(document().isReadOnly());
    EXPECT_TRUE(notice());
    EXPECT_EQ(label("notice_text"),
              "The text of \"Pancakes\" is too long, or changes its look too often, to be changed "
              "here. Below stand its words, or the first of them, to be read and copied. Nothing "
              "is changed in its file.");
    EXPECT_FALSE(part<QWidget>("write_anew_button").isVisible());
    write("x");
    screen().add_text("y");
    screen().AddMealInfo();
    EXPECT_EQ(pane_text(), heavy_words());
    EXPECT_FALSE(screen().Save_RTF(1));
    mark("2c");
    EXPECT_FALSE(notice());
    close();
    settle();
    EXPECT_EQ(file_bytes("home000001.rtf"), heavy_rtf());
}

TEST_F(HeavyRecipeDocuments, OneThatBecameSoHereIsSavedAndTold) {
    put_document(1, plain_rtf);
    open();
    mark("1c");
    document().document()->setPlainText(QString(2'001, u'x'));
    mark("2c");
    EXPECT_EQ(text_in("home000001.rtf"), std::string(2'001, 'x'));
    EXPECT_EQ(hint(),
              "Saved. But the text is so long now that it will be shown without its looks, and can "
              "not be changed then. Part it into two recipes.");
}

TEST_F(HeavyRecipeDocuments, OfTheOldFormStayInTheProject) {
    meal_documents[1] = heavy_rtf();
    open();
    mark("1c");
    EXPECT_EQ(pane_text(), heavy_words());
    EXPECT_EQ(meal_documents[1], heavy_rtf());
    EXPECT_FALSE(has_file("home000001.rtf"));
}

TEST_F(HeavyRecipeDocuments, AreKeptWholeWhenTheirRecipeIsDeleted) {
    put_document(1, heavy_rtf());
    open();
    mark("1c");
    EXPECT_TRUE(screen().Save_RTF_bak(1));
    EXPECT_EQ(file_bytes("home000001.bak"), heavy_rtf());
    command("Toolbar1_3");
    EXPECT_EQ(file_bytes("home000001.bak"), heavy_rtf());
}

TEST_F(RecipeDocuments, ARecipeThatOnlyCountsAsShownTakesNoText) {
    put_document(2, plain_rtf);
    open();
    mark("1c");
    screen().clear_document();
    screen().setid(2);
    EXPECT_TRUE(document().isReadOnly());
    EXPECT_TRUE(screen().save_document());
    EXPECT_EQ(file_bytes("home000002.rtf"), plain_rtf);
    screen().set_meal(2);
    EXPECT_EQ(pane_text(), "Beat the eggs.");
}

}  // namespace
}  // namespace tavernook
