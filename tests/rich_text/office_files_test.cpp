// Files that an office suite wrote from pages whose text and look are known.
#include <QImage>
#include <QTextList>
#include <QUrl>

#include "rich_text/rtf_testing.h"

namespace tavernook::rtf {
namespace {

class OfficeFiles : public testing::Test {
  protected:
    void read_sample(const std::string& name) {
        read(file_bytes(std::string(TAVERNOOK_TEST_DATA) + "/rtf/" + name), document);
    }
    std::string text() const { return document.toPlainText().toStdString(); }
    QTextBlock paragraph(const char* text) const {
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            if (block.text().startsWith(QString::fromUtf8(text))) return block;
        }
        ADD_FAILURE() << "no paragraph begins with " << text;
        return {};
    }
    // Of the character at a place of a paragraph.
    QTextCharFormat format_in(const char* text, int place) const {
        const QTextBlock block = paragraph(text);
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            if (part.fragment().contains(block.position() + place)) {
                return part.fragment().charFormat();
            }
        }
        ADD_FAILURE() << "no character " << place;
        return {};
    }
    Qt::Alignment side(const char* text) const {
        return paragraph(text).blockFormat().alignment() & Qt::AlignHorizontal_Mask;
    }
    void expect_list(const char* text, QTextListFormat::Style style, int level, int entry) const {
        const QTextBlock block = paragraph(text);
        const QTextList* list = block.textList();
        ASSERT_NE(list, nullptr) << text;
        EXPECT_EQ(list->format().style(), style) << text;
        EXPECT_EQ(list->format().indent(), level) << text;
        EXPECT_EQ(list->itemNumber(block), entry - 1) << text;
    }

    QTextDocument document;
};

TEST_F(OfficeFiles, HeadingsRunsAndSides) {
    read_sample("office_cake.rtf");
    EXPECT_EQ(text(),
              "Apple cake\nWhat goes in\n3 sour apples\n150 g butter\ncinnamon\nHow\nPeel\n"
              "Bake at 180 °C\nServe warm\nfor everyone\nplain text to the end");
    EXPECT_EQ(format_at(document, "Apple cake").fontWeight(), int{QFont::Bold});
    EXPECT_EQ(format_at(document, "Apple cake").fontPointSize(), 24);
    EXPECT_EQ(format_at(document, "What").fontPointSize(), 18);
    EXPECT_NE(format_at(document, "3 ").fontWeight(), int{QFont::Bold});
    EXPECT_EQ(format_at(document, "sour").fontWeight(), int{QFont::Bold});
    EXPECT_NE(format_at(document, " apples").fontWeight(), int{QFont::Bold});
    EXPECT_TRUE(format_at(document, "butter").fontItalic());
    EXPECT_FALSE(format_at(document, "150 g").fontItalic());
    EXPECT_TRUE(format_at(document, "cinnamon").fontUnderline());
    EXPECT_EQ(format_at(document, "Serve").foreground().color(), QColor(0xC0, 0, 0));
    EXPECT_EQ(format_at(document, "Serve").fontPointSize(), 18);
    const QTextCharFormat both = format_at(document, "everyone");
    EXPECT_TRUE(both.fontItalic() && both.fontWeight() == QFont::Bold);
    EXPECT_EQ(side("Apple"), Qt::AlignLeft);
    EXPECT_EQ(side("Serve"), Qt::AlignHCenter);
    EXPECT_EQ(side("for"), Qt::AlignRight);
    EXPECT_EQ(side("plain"), Qt::AlignJustify);
    expect_list("3 sour", QTextListFormat::ListDisc, 1, 1);
    expect_list("cinnamon", QTextListFormat::ListDisc, 1, 3);
    expect_list("Peel", QTextListFormat::ListDecimal, 1, 1);
    expect_list("Bake", QTextListFormat::ListDecimal, 1, 2);
    EXPECT_EQ(paragraph("How").textList(), nullptr);
}

TEST_F(OfficeFiles, ListsOfLettersAndRomanNumbersAndDeeperOnes) {
    read_sample("office_lists.rtf");
    EXPECT_EQ(text(), "wash\nchop\nthen\nboil\nsimmer\nwith\nherbs\nthyme\nbay\nsalt\nindented");
    expect_list("wash", QTextListFormat::ListLowerAlpha, 1, 1);
    expect_list("chop", QTextListFormat::ListLowerAlpha, 1, 2);
    expect_list("boil", QTextListFormat::ListUpperRoman, 1, 1);
    expect_list("simmer", QTextListFormat::ListUpperRoman, 1, 2);
    expect_list("herbs", QTextListFormat::ListDisc, 1, 1);
    expect_list("thyme", QTextListFormat::ListDisc, 2, 1);
    expect_list("bay", QTextListFormat::ListDisc, 2, 2);
    expect_list("salt", QTextListFormat::ListDisc, 1, 2);
    // 2 cm and 1 cm of 96 pixels an inch.
    EXPECT_NEAR(paragraph("indented").blockFormat().leftMargin(), 75.6, 0.1);
    EXPECT_NEAR(paragraph("indented").blockFormat().textIndent(), 37.8, 0.1);
}

TEST_F(OfficeFiles, ATableAPictureAndRaisedText) {
    read_sample("office_table.rtf");
    EXPECT_EQ(text(),
              "Before\nFlour\t500 g\nYeast\t1 cube\nAfter \uFFFC the pot\n"
              "E = mc2, H2O, gone marked");
    EXPECT_EQ(format_at(document, "Yeast").fontWeight(), int{QFont::Bold});
    EXPECT_TRUE(format_at(document, "gone").fontStrikeOut());
    EXPECT_EQ(format_at(document, "marked").background().color(), QColor(255, 255, 0));
    EXPECT_EQ(format_at(document, "E = mc").verticalAlignment(), QTextCharFormat::AlignNormal);
    EXPECT_EQ(format_in("E =", 6).verticalAlignment(), QTextCharFormat::AlignSuperScript);
    EXPECT_EQ(format_in("E =", 10).verticalAlignment(), QTextCharFormat::AlignSubScript);
    EXPECT_EQ(format_in("E =", 11).verticalAlignment(), QTextCharFormat::AlignNormal);
}

// 600 x 300 twips at 200 %; the left half of its 40 x 20 pixels is red.
TEST_F(OfficeFiles, APictureAtTheSizeThatThePageGave) {
    read_sample("office_table.rtf");
    const QTextImageFormat picture = format_in("After", 6).toImageFormat();
    ASSERT_TRUE(picture.isValid());
    EXPECT_EQ(picture.width(), 80);
    EXPECT_EQ(picture.height(), 40);
    const QImage image =
        document.resource(QTextDocument::ImageResource, QUrl(picture.name())).value<QImage>();
    EXPECT_EQ(image.size(), QSize(40, 20));
    EXPECT_EQ(image.pixelColor(19, 19), QColor(200, 60, 20));
    EXPECT_EQ(image.pixelColor(20, 0), QColor(20, 120, 60));
}

TEST_F(OfficeFiles, ManyLanguages) {
    read_sample("office_languages.rtf");
    EXPECT_EQ(text(),
              "Grüße: äöü ÄÖÜ ß, crème brûlée, smørrebrød, żurek\nΕλληνική σαλάτα\n"
              "борщ со сметаной\n味噌汁 と ご飯\n김치찌개\n½ tsp – “fresh” … 5 € 😀\n"
              "100 g {flour} \\ water");
    EXPECT_EQ(paragraph("100").text().at(3), QChar(QChar::Nbsp));
}

}  // namespace
}  // namespace tavernook::rtf
