#include <QClipboard>
#include <QMenu>
#include <QSignalSpy>
#include <QTimer>

#include "basics/fault.h"
#include "screens/text/recipe_pane_fixture.h"

namespace tavernook {
namespace {

constexpr const char* soup = R"({\rtf1\ansi{\fonttbl{\f0 Times New Roman;}}
\pard\f0\fs24 Boil \b water\b0 , then \i stir\i0 .\par
\pard\qc Serve \ul hot\ulnone .\par})";

TEST_F(RecipePaneTest, LoadsShowsAndSavesADocument) {
    pane.load(soup);
    EXPECT_EQ(text().toPlainText().toStdString(), "Boil water, then stir.\nServe hot.");
    EXPECT_EQ(saved_text(), "Boil water, then stir.\nServe hot.");
    EXPECT_EQ(saved_look("water").fontWeight(), QFont::Bold);
    EXPECT_EQ(saved_look("Boil").fontWeight(), QFont::Normal);
    EXPECT_EQ(saved_look("Boil").fontFamilies().toStringList(), QStringList("Times New Roman"));
    EXPECT_EQ(saved_paragraph(1).blockFormat().alignment(), Qt::AlignHCenter);
    EXPECT_EQ(text().textCursor().position(), 0);
}

TEST_F(RecipePaneTest, ATextThatIsNoRichTextLeavesThePaneAsItWas) {
    pane.load(soup);
    put_caret(5);
    type("hot ");
    try {
        pane.load("Boil water");
        FAIL();
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, fault_number::type_mismatch);
    }
    try {
        pane.load(R"({\rtf1\ansi Cut sho)");
        FAIL();
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, fault_number::bad_record_number);
    }
    EXPECT_EQ(saved_text(), "Boil hot water, then stir.\nServe hot.");
    EXPECT_TRUE(pane.is_changed());
    press("Ctrl+Z");
    EXPECT_EQ(saved_text(), "Boil water, then stir.\nServe hot.");
}

TEST_F(RecipePaneTest, AnotherDocumentForgetsTheUndoHistory) {
    type("old");
    pane.load(soup);
    press("Ctrl+Z");
    EXPECT_EQ(saved_text(), "Boil water, then stir.\nServe hot.");
    type("My ");
    pane.clear();
    press("Ctrl+Z");
    EXPECT_EQ(saved_text(), "");
}

TEST_F(RecipePaneTest, KnowsWhetherItWasChanged) {
    QSignalSpy changes(&pane, &RecipePane::changed);
    EXPECT_FALSE(pane.is_changed());
    pane.load(soup);
    EXPECT_FALSE(pane.is_changed());
    EXPECT_EQ(changes.count(), 0);
    type("x");
    EXPECT_TRUE(pane.is_changed());
    EXPECT_GE(changes.count(), 1);
    pane.set_unchanged();
    EXPECT_FALSE(pane.is_changed());
    select("water");
    press("Ctrl+I");
    EXPECT_TRUE(pane.is_changed());
    pane.clear();
    EXPECT_FALSE(pane.is_changed());
}

TEST_F(RecipePaneTest, ANewDocumentIsWrittenInArialTen) {
    type("Soup");
    EXPECT_EQ(saved_look("Soup").fontFamilies().toStringList(), QStringList("Arial"));
    EXPECT_EQ(saved_look("Soup").fontPointSize(), 10);
    EXPECT_EQ(part<QComboBox>("recipe_font").currentText(), "Arial");
    EXPECT_EQ(part<QComboBox>("recipe_font_size").currentText(), "10");
}

TEST_F(RecipePaneTest, TheScreensFontIsNotTheDocuments) {
    const QFont before = QApplication::font();
    QApplication::setFont(QFont("Courier", 22));
    type("Soup");
    EXPECT_EQ(saved_look("Soup").fontFamilies().toStringList(), QStringList("Arial"));
    EXPECT_EQ(saved_look("Soup").fontPointSize(), 10);
    QApplication::setFont(before);
}

TEST_F(RecipePaneTest, ClearingForgetsTheLookOfTheOldDocument) {
    pane.load(R"({\rtf1{\colortbl;\red255\green0\blue0;}\pard\qc\b\cf1 All bold\par})");
    press("Ctrl+A");
    pane.clear();
    type("plain");
    EXPECT_EQ(saved_look("plain").fontWeight(), QFont::Normal);
    EXPECT_EQ(saved_look("plain").foreground().style(), Qt::NoBrush);
    EXPECT_EQ(saved_paragraph(0).blockFormat().alignment() & Qt::AlignHCenter, 0);
}

TEST_F(RecipePaneTest, ClicksChangeTheSelection) {
    pane.load(R"({\rtf1 bold slanted lined\par})");
    select("bold");
    click("bold");
    select("slanted");
    click("italic");
    select("lined");
    click("underline");
    EXPECT_EQ(saved_look("bold").fontWeight(), QFont::Bold);
    EXPECT_FALSE(saved_look("bold").fontItalic());
    EXPECT_TRUE(saved_look("slanted").fontItalic());
    EXPECT_EQ(saved_look("slanted").fontWeight(), QFont::Normal);
    EXPECT_TRUE(saved_look("lined").fontUnderline());
    EXPECT_FALSE(saved_look("slanted").fontUnderline());
    click("underline");
    EXPECT_FALSE(saved_look("lined").fontUnderline());
}

TEST_F(RecipePaneTest, KeysChangeTheSelectionAndUndoTakesItBack) {
    pane.load(R"({\rtf1 bold slanted lined\par})");
    select("bold");
    press("Ctrl+B");
    select("slanted");
    press("Ctrl+I");
    select("lined");
    press("Ctrl+U");
    EXPECT_EQ(saved_look("bold").fontWeight(), QFont::Bold);
    EXPECT_TRUE(saved_look("slanted").fontItalic());
    EXPECT_TRUE(saved_look("lined").fontUnderline());
    press("Ctrl+Z");
    EXPECT_FALSE(saved_look("lined").fontUnderline());
    EXPECT_FALSE(is_down("underline"));
    press("Ctrl+Y");
    EXPECT_TRUE(saved_look("lined").fontUnderline());
    press("Ctrl+Z");
    press("Ctrl+Shift+Z");
    EXPECT_TRUE(saved_look("lined").fontUnderline());
}

TEST_F(RecipePaneTest, WhatIsTypedAfterAKeyHasItsLook) {
    type("a");
    press("Ctrl+B");
    EXPECT_TRUE(is_down("bold"));
    type("strong");
    press("Ctrl+B");
    type("weak");
    EXPECT_EQ(saved_look("strong").fontWeight(), QFont::Bold);
    EXPECT_EQ(saved_look("weak").fontWeight(), QFont::Normal);
}

TEST_F(RecipePaneTest, KeysAndClicksAlignTheParagraphs) {
    type("one");
    press("Return");
    type("two");
    press("Ctrl+E");
    EXPECT_EQ(saved_paragraph(1).blockFormat().alignment(), Qt::AlignHCenter);
    EXPECT_TRUE(is_down("center"));
    EXPECT_FALSE(is_down("left"));
    press("Ctrl+R");
    EXPECT_EQ(saved_paragraph(1).blockFormat().alignment(), Qt::AlignRight);
    click("center");
    EXPECT_EQ(saved_paragraph(1).blockFormat().alignment(), Qt::AlignHCenter);
    click("center");
    EXPECT_TRUE(is_down("center"));
    press("Ctrl+L");
    EXPECT_FALSE(saved_paragraph(1).blockFormat().alignment() & Qt::AlignHCenter);
    EXPECT_TRUE(is_down("left"));
    click("right");
    EXPECT_EQ(saved_paragraph(1).blockFormat().alignment(), Qt::AlignRight);
    EXPECT_FALSE(saved_paragraph(0).blockFormat().alignment() & Qt::AlignRight);
    press("Ctrl+A");
    for (const char* name : {"left", "center", "right"}) EXPECT_FALSE(is_down(name)) << name;
    click("right");
    EXPECT_EQ(saved_paragraph(0).blockFormat().alignment(), Qt::AlignRight);
}

TEST_F(RecipePaneTest, BulletsComeAndGoForAllParagraphsOfTheSelection) {
    pane.load(R"({\rtf1 salt\par pepper\par water\par})");
    QTextCursor two = text().textCursor();
    two.setPosition(2);
    two.setPosition(8, QTextCursor::KeepAnchor);
    text().setTextCursor(two);
    click("bullet");
    for (const int number : {0, 1}) {
        ASSERT_NE(saved_paragraph(number).textList(), nullptr) << number;
        EXPECT_EQ(saved_paragraph(number).textList()->format().style(), QTextListFormat::ListDisc);
    }
    EXPECT_EQ(saved_paragraph(2).textList(), nullptr);
    EXPECT_TRUE(is_down("bullet"));
    press("Ctrl+Z");
    EXPECT_EQ(saved_paragraph(0).textList(), nullptr);
    text().setTextCursor(two);
    press("Ctrl+Shift+L");
    EXPECT_NE(saved_paragraph(0).textList(), nullptr);
    click("bullet");
    EXPECT_EQ(saved_paragraph(0).textList(), nullptr);
    EXPECT_EQ(saved_paragraph(0).blockFormat().leftMargin(), 0);
    EXPECT_FALSE(is_down("bullet"));
}

TEST_F(RecipePaneTest, ASelectionThatEndsBeforeAParagraphLeavesItAlone) {
    pane.load(R"({\rtf1 salt\par pepper\par})");
    QTextCursor first = text().textCursor();
    first.setPosition(0);
    first.setPosition(5, QTextCursor::KeepAnchor);
    text().setTextCursor(first);
    click("bullet");
    EXPECT_NE(saved_paragraph(0).textList(), nullptr);
    EXPECT_EQ(saved_paragraph(1).textList(), nullptr);
}

TEST_F(RecipePaneTest, TheButtonsFollowTheCaret) {
    pane.load(R"({\rtf1{\fonttbl{\f0 Arial;}{\f1 Courier New;}}
\pard plain \b strong\b0  \i slanted\i0  \ul lined\ulnone\par
\pard\qr\f1\fs44 big\par})");
    select("plain");
    for (const char* name : {"bold", "italic", "underline"}) EXPECT_FALSE(is_down(name)) << name;
    select("strong");
    EXPECT_TRUE(is_down("bold"));
    EXPECT_FALSE(is_down("italic"));
    select("slanted");
    EXPECT_TRUE(is_down("italic"));
    EXPECT_FALSE(is_down("bold"));
    select("lined");
    EXPECT_TRUE(is_down("underline"));
    EXPECT_TRUE(is_down("left"));
    select("big");
    EXPECT_FALSE(is_down("underline"));
    EXPECT_TRUE(is_down("right"));
    EXPECT_EQ(part<QComboBox>("recipe_font").currentText(), "Courier New");
    EXPECT_EQ(part<QComboBox>("recipe_font_size").currentText(), "22");
    press("Ctrl+A");
    EXPECT_FALSE(is_down("bold"));
    EXPECT_EQ(part<QComboBox>("recipe_font").currentText(), "");
    EXPECT_EQ(part<QComboBox>("recipe_font_size").currentText(), "");
}

TEST_F(RecipePaneTest, TheButtonsTakeTheStateOfTheSelectionWhenThePointerMoves) {
    pane.load(R"({\rtf1 plain \b\i\ul strong\par})");
    select("strong");
    for (const char* name : {"bold", "italic", "underline"}) button(name).setChecked(false);
    QTest::mouseMove(text().viewport(), QPoint(40, 40));
    QTest::mouseMove(text().viewport(), QPoint(60, 60));
    for (const char* name : {"bold", "italic", "underline"}) EXPECT_TRUE(is_down(name)) << name;
}

TEST_F(RecipePaneTest, TheSizesAreThese) {
    const auto& box = part<QComboBox>("recipe_font_size");
    std::vector<std::string> sizes;
    for (int row = 0; row < box.count(); ++row) sizes.push_back(box.itemText(row).toStdString());
    EXPECT_EQ(sizes, (std::vector<std::string>{"8", "10", "12", "14", "16", "18", "20", "22", "24",
                                               "26", "28", "36", "48", "72"}));
}

TEST_F(RecipePaneTest, ASizeIsChosenOrTyped) {
    pane.load(R"({\rtf1\fs20 Soup\par})");
    select("Soup");
    auto& box = part<QComboBox>("recipe_font_size");
    box.showPopup();
    QTest::keyClick(QApplication::activePopupWidget()->focusWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::activePopupWidget()->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(saved_look("Soup").fontPointSize(), 12);
    EXPECT_TRUE(text().hasFocus());

    const int choices = box.count();
    for (const auto& [typed, counts] : {std::pair{"15", 15.0},
                                        {"10,5", 10.5},
                                        {"11.2", 11.0},
                                        {"7", 7.0},
                                        {"1", 1.0},
                                        {"999", 999.0}}) {
        box.setFocus(Qt::TabFocusReason);
        type(typed);
        press("Return");
        EXPECT_EQ(saved_look("Soup").fontPointSize(), counts) << typed;
        EXPECT_TRUE(text().hasFocus());
    }
    EXPECT_EQ(box.count(), choices);
}

TEST_F(RecipePaneTest, WhatIsNoSizeChangesNothing) {
    pane.load(R"({\rtf1\fs20 Soup\par})");
    select("Soup");
    auto& box = part<QComboBox>("recipe_font_size");
    for (const char* typed : {"big", "0", "-4", "1000", "nan", "inf"}) {
        box.setFocus(Qt::TabFocusReason);
        type(typed);
        press("Return");
        EXPECT_EQ(saved_look("Soup").fontPointSize(), 10) << typed;
        EXPECT_EQ(box.currentText(), "10") << typed;
    }
    box.setFocus(Qt::TabFocusReason);
    type("72");
    press("Escape");
    EXPECT_EQ(saved_look("Soup").fontPointSize(), 10);
    EXPECT_EQ(box.currentText(), "10");
    EXPECT_TRUE(text().hasFocus());
    EXPECT_FALSE(pane.is_changed());
}

TEST_F(RecipePaneTest, ASizeThatIsBeingTypedIsLeftAlone) {
    pane.load(R"({\rtf1\fs20 Soup\par})");
    auto& box = part<QComboBox>("recipe_font_size");
    box.setFocus(Qt::TabFocusReason);
    type("1");
    text().moveCursor(QTextCursor::End);
    EXPECT_EQ(box.currentText(), "1");
    press("Escape");
    EXPECT_EQ(box.currentText(), "10");
}

TEST_F(RecipePaneTest, TheFontsAreLookedUpWhenTheBoxIsUsed) {
    pane.load(R"({\rtf1 Soup\par})");
    select("Soup");
    auto& box = part<QComboBox>("recipe_font");
    EXPECT_EQ(box.count(), 0);
    box.setFocus(Qt::TabFocusReason);
    EXPECT_GT(box.count(), 0);
    EXPECT_EQ(box.currentText(), "Arial");
    type("Some Font Of Hers");
    press("Return");
    EXPECT_EQ(saved_look("Soup").fontFamilies().toStringList(), QStringList("Some Font Of Hers"));
    EXPECT_EQ(box.currentText(), "Some Font Of Hers");
}

TEST_F(RecipePaneTest, AColourIsChosenAndTakenBack) {
    pane.load(R"({\rtf1 Careful, hot\par})");
    select("Careful");
    auto& menu = part<QMenu>("recipe_colours");
    const auto choose = [&](const char* name) {
        for (QAction* choice : menu.actions()) {
            if (choice->text().remove(QLatin1Char('&')) == QLatin1String(name)) choice->trigger();
        }
    };
    choose("Red");
    EXPECT_EQ(saved_look("Careful").foreground().color(), QColor(192, 0, 0));
    EXPECT_EQ(saved_look("hot").foreground().style(), Qt::NoBrush);
    choose("Automatic");
    EXPECT_EQ(saved_look("Careful").foreground().style(), Qt::NoBrush);
    press("Ctrl+Z");
    EXPECT_EQ(saved_look("Careful").foreground().color(), QColor(192, 0, 0));
}

TEST_F(RecipePaneTest, TheColoursOpenAtAClick) {
    pane.load(R"({\rtf1 Careful\par})");
    press("Ctrl+A");
    QTimer::singleShot(0, &pane, [&] {
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_EQ(popup, &part("recipe_colours"));
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Return);
    });
    click("colour");
    EXPECT_EQ(saved_look("Careful").foreground().color(), QColor(0, 0, 0));
}

TEST_F(RecipePaneTest, ATextIsOneRunInTheLookOfTheCaret) {
    pane.load(R"({\rtf1 salt \b and pepper\par})");
    select("pepper");
    pane.add_text("water");
    EXPECT_EQ(saved_text(), "salt and water");
    EXPECT_EQ(saved_look("water").fontWeight(), QFont::Bold);
    press("Ctrl+Z");
    EXPECT_EQ(saved_text(), "salt and pepper");
}

TEST_F(RecipePaneTest, LinesComeAtTheEnd) {
    pane.load(R"({\rtf1 Soup\par})");
    put_caret(0);
    pane.add_lines({"Ingredients", "1 cup salt"});
    EXPECT_EQ(saved_text(), "SoupIngredients\n1 cup salt\n");
    EXPECT_TRUE(text().textCursor().atEnd());
    press("Ctrl+Z");
    EXPECT_EQ(saved_text(), "Soup");
}

TEST_F(RecipePaneTest, NothingCanBeDoneWithoutARecipe) {
    pane.load(R"({\rtf1 Soup\par})");
    press("Ctrl+A");
    pane.set_editable(false);
    QSignalSpy wishes(&pane, &RecipePane::barcode_wanted);
    for (const char* name : {"bold", "bullet", "colour", "picture", "barcode"}) {
        EXPECT_FALSE(button(name).isEnabled()) << name;
        click(name);
    }
    for (const char* keys : {"Ctrl+B", "Ctrl+E", "Ctrl+Shift+L"}) {
        const QKeyCombination combination = QKeySequence(QLatin1String(keys))[0];
        QTest::keyClick(&pane, combination.key(), combination.keyboardModifiers());
    }
    EXPECT_FALSE(part("recipe_font").isEnabled());
    EXPECT_FALSE(part("recipe_font_size").isEnabled());
    EXPECT_FALSE(pane.is_changed());
    EXPECT_EQ(wishes.count(), 0);
    pane.set_editable(true);
    click("bold");
    EXPECT_EQ(saved_look("Soup").fontWeight(), QFont::Bold);
}

TEST_F(RecipePaneTest, ATextThatStaysWithoutItsRecipeCanBeCopiedOnly) {
    pane.load(R"({\rtf1 Soup\par})");
    text().moveCursor(QTextCursor::End);
    type(" of the day");
    press("Ctrl+Z");
    const std::string before = saved_text();
    pane.set_editable(false);
    ASSERT_TRUE(text().isEnabled());
    text().setFocus();
    press("Ctrl+A");
    press("Ctrl+C");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), before);
    for (const char* keys : {"x", "Delete", "Ctrl+X", "Ctrl+V", "Ctrl+Z", "Ctrl+Y"}) press(keys);
    EXPECT_EQ(saved_text(), before);
    pane.clear();
    EXPECT_FALSE(text().isEnabled());
    pane.set_editable(true);
    EXPECT_TRUE(text().isEnabled());
}

TEST_F(RecipePaneTest, TheScreenIsAskedForBarcodeAndInformation) {
    QSignalSpy barcode(&pane, &RecipePane::barcode_wanted);
    QSignalSpy information(&pane, &RecipePane::information_wanted);
    click("barcode");
    EXPECT_EQ(barcode.count(), 1);
    EXPECT_EQ(information.count(), 0);
    click("information");
    EXPECT_EQ(information.count(), 1);
}

TEST_F(RecipePaneTest, ATextOfTooManyLooksIsLoadedAsBareWords) {
    std::string bytes = "{\\rtf1 ";
    for (int run = 0; run < 1'000; ++run) bytes += "{\\b a}b";
    EXPECT_FALSE(pane.load(bytes + "}"));
    EXPECT_EQ(text().toPlainText(), QStringLiteral("ab").repeated(1'000));
    EXPECT_EQ(text().document()->begin().begin().fragment().length(), 2'000);
    EXPECT_FALSE(pane.is_changed());
    EXPECT_FALSE(pane.load("{\\rtf1 " + std::string(30'000, 'x') + "}"));
    EXPECT_EQ(text().document()->begin().length() - 1, 2'000);
    EXPECT_TRUE(pane.load(soup));
    EXPECT_EQ(text().toPlainText().toStdString(), "Boil water, then stir.\nServe hot.");
}

TEST_F(RecipePaneTest, BulletsBeforeManyLinesAreSeveralLists) {
    text().document()->setPlainText(QString(1'100, u'\n'));
    press("Ctrl+A");
    click("bullet");
    const QTextBlock last = text().document()->lastBlock();
    for (QTextBlock line = text().document()->begin(); line != last; line = line.next()) {
        ASSERT_NE(line.textList(), nullptr);
        EXPECT_LE(line.textList()->count(), 500);
    }
}

// Ten thousand words, every fifth one bold: about 150 KB.
TEST_F(RecipePaneTest, ALongDocumentIsLoadedWhole) {
    std::string document = R"({\rtf1\ansi )";
    for (int word = 0; word < 10'000; ++word) {
        const std::string name = "word" + std::to_string(word);
        document += word % 5 == 0 ? "{\\b " + name + "} " : name + " ";
        if (word % 20 == 19) document += "\\par\n";
    }
    document += "}";
    ASSERT_GT(document.size(), 100'000u);
    pane.load(document);
    EXPECT_EQ(saved().blockCount(), 500);
    EXPECT_EQ(saved_look("word9995").fontWeight(), QFont::Bold);
    EXPECT_EQ(saved_look("word9999").fontWeight(), QFont::Normal);
    press("Ctrl+A");
    EXPECT_FALSE(is_down("bold"));
    press("Ctrl+B");
    EXPECT_EQ(saved_look("word9999").fontWeight(), QFont::Bold);
}

}  // namespace
}  // namespace tavernook
