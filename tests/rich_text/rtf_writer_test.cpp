#include "rich_text/rtf_writer.h"

#include <QImage>
#include <QStandardPaths>
#include <QTextCursor>
#include <QTextList>
#include <algorithm>

#include "fakes/temp_folder.h"
#include "gui_support/processes.h"
#include "rich_text/rtf_generated.h"
#include "rich_text/rtf_testing.h"

namespace tavernook::rtf {
namespace {

TEST(RtfWriter, GeneratedDocumentsComeBack) {
    Random random(7);
    for (int round = 0; round < 400; ++round) {
        QTextDocument document;
        generate(document, random);
        QTextDocument again;
        read(written(document), again);
        ASSERT_EQ(described(again), described(document)) << round;
        // Nothing drifts from one saving to the next.
        QTextDocument third;
        read(written(again), third);
        ASSERT_EQ(described(third), described(document)) << round;
    }
}

TEST(RtfWriter, BytesArePlainAscii) {
    QTextDocument document;
    document.setPlainText(QString::fromUtf8("é Ω {x}"));
    const std::string bytes = written(document);
    EXPECT_TRUE(bytes.starts_with("{\\rtf1\\ansi\\ansicpg1252"));
    EXPECT_NE(bytes.find("\\'e9 \\u937? \\{x\\}\\par"), std::string::npos) << bytes;
    EXPECT_TRUE(std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte >= 0; }));
}

TEST(RtfWriter, NamesOfFontsInAnyLanguageComeBack) {
    for (const char* name : {"Noto Serif", "Crème", "明朝体", "Шрифт 2", "{a} \\ b"}) {
        QTextCharFormat format;
        format.setFontFamilies({QString::fromUtf8(name)});
        QTextDocument document;
        QTextCursor(&document).insertText(QStringLiteral("x"), format);
        QTextDocument again;
        read(written(document), again);
        EXPECT_EQ(format_at(again, "x").fontFamilies().toStringList().join(u','),
                  QString::fromUtf8(name));
    }
}

// "A", two blanks and "B; C" are one name to the writer, without the sign that would end it.
TEST(RtfWriter, BlanksAndSemicolonsInAFontsNameAreTidied) {
    QTextCharFormat format;
    format.setFontFamilies({QStringLiteral("A  B; C")});
    QTextDocument document;
    QTextCursor(&document).insertText(QStringLiteral("x"), format);
    QTextDocument again;
    read(written(document), again);
    EXPECT_EQ(format_at(again, "x").fontFamilies().toStringList(), QStringList("A B C"));
}

TEST(RtfWriter, ARowOfBlanksIsKept) {
    QTextDocument document;
    document.setPlainText(QStringLiteral("a  b   c    "));
    const std::string bytes = written(document);
    EXPECT_NE(bytes.find("a {} b {} {} c {} {} {} \\par"), std::string::npos) << bytes;
    EXPECT_EQ(text_of(bytes), "a  b   c    ");
}

TEST(RtfWriter, EmptyParagraphsComeBack) {
    for (const char* text : {"", "a", "a\n", "\na", "\n\n"}) {
        QTextDocument document;
        document.setPlainText(QString::fromUtf8(text));
        EXPECT_EQ(text_of(written(document)), text);
    }
}

TEST(RtfWriter, ListsComeBack) {
    for (const auto style : {QTextListFormat::ListDisc, QTextListFormat::ListCircle,
                             QTextListFormat::ListSquare, QTextListFormat::ListDecimal,
                             QTextListFormat::ListLowerAlpha, QTextListFormat::ListUpperAlpha,
                             QTextListFormat::ListLowerRoman, QTextListFormat::ListUpperRoman}) {
        for (int level = 1; level <= 9; ++level) {
            QTextDocument document;
            QTextCursor cursor(&document);
            QTextListFormat form;
            form.setStyle(style);
            form.setIndent(level);
            cursor.createList(form);
            for (int i = 0; i < 12; ++i) cursor.insertText(QStringLiteral("entry\n"));
            QTextDocument again;
            read(written(document), again);
            EXPECT_EQ(again.toPlainText(), document.toPlainText());
            const QTextList* list = again.begin().textList();
            ASSERT_NE(list, nullptr) << style;
            EXPECT_EQ(list->count(), 13) << style;
            EXPECT_EQ(list->format().style(), style);
            EXPECT_EQ(list->format().indent(), level);
        }
    }
}

TEST(RtfWriter, APictureBeyondTheFormatsSizesKeepsItsShape) {
    QTextDocument document;
    QTextCursor cursor(&document);
    QImage image(40, 10, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    document.addResource(QTextDocument::ImageResource, QUrl("wide"), image);
    QTextImageFormat format;
    format.setName("wide");
    format.setWidth(4000);
    format.setHeight(1000);
    cursor.insertImage(format);
    // 2000 and 500 pixels of 15 twips.
    EXPECT_NE(written(document).find("\\picwgoal30000\\pichgoal7500"), std::string::npos);
}

TEST(RtfWriter, PicturesComeBackPixelForPixel) {
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(QColor(10, 20, 30));
    image.setPixelColor(2, 1, QColor(200, 100, 50));
    QTextDocument document;
    document.addResource(QTextDocument::ImageResource, QUrl("pot"), image);
    QTextImageFormat format;
    format.setName("pot");
    format.setWidth(60);
    QTextCursor(&document).insertImage(format);
    QTextDocument again;
    read(written(document), again);
    const QTextImageFormat read_format =
        again.begin().begin().fragment().charFormat().toImageFormat();
    EXPECT_EQ(read_format.width(), 60);
    EXPECT_EQ(read_format.height(), 40);
    const QImage found =
        again.resource(QTextDocument::ImageResource, QUrl(read_format.name())).value<QImage>();
    EXPECT_EQ(found.convertToFormat(QImage::Format_RGB32), image);
}

TEST(RtfWriter, AnIndependentConverterReadsIt) {
    const QString converter = QStandardPaths::findExecutable(QStringLiteral("unrtf"));
    if (converter.isEmpty()) GTEST_SKIP() << "unrtf is not installed";
    QTextDocument document;
    document.setHtml(QString::fromUtf8(
        "<p>Soup <b>thick</b> <i>hot</i> <font color=\"#ff0000\">red</font> é Ω</p>"
        "<ol><li>stir</li></ol>"));
    const TempFolder folder;
    const std::string path = folder.path() + "/soup.rtf";
    write_whole_file(path, written(document));
    const std::string html = output_of(converter, {"--html", QString::fromStdString(path)});
    for (const char* part : {"Soup ", "<b>thick</b>", "<i>hot</i>", "<font color=\"#ff0000\">red",
                             "&eacute; &Omega;", "1.", "stir"}) {
        EXPECT_NE(html.find(part), std::string::npos) << part << "\n" << html;
    }
}

}  // namespace
}  // namespace tavernook::rtf
