#include "rich_text/rtf_writer.h"

#include <QImage>
#include <QStandardPaths>
#include <QTextCursor>
#include <QTextList>
#include <algorithm>
#include <random>

#include "fakes/temp_folder.h"
#include "gui_support/processes.h"
#include "rich_text/rtf_testing.h"

namespace tavernook::rtf {
namespace {

using Random = std::mt19937;

QTextCharFormat some_format(Random& random) {
    static const QStringList families = {"Serif", "Sans", "Crème Brûlée"};
    QTextCharFormat format;
    format.setFontFamilies({families[random() % 3]});
    format.setFontPointSize(6 + static_cast<double>(random() % 40) / 2);
    if (random() % 3 == 0) format.setFontWeight(QFont::Bold);
    if (random() % 3 == 0) format.setFontItalic(true);
    if (random() % 3 == 0) format.setFontUnderline(true);
    if (random() % 3 == 0) format.setFontStrikeOut(true);
    if (random() % 5 == 0) format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    if (random() % 5 == 1) format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    if (random() % 3 == 0) format.setForeground(QColor(random() % 256, random() % 256, 7));
    if (random() % 4 == 0) format.setBackground(QColor(9, random() % 256, random() % 256));
    return format;
}

QTextBlockFormat some_block_format(Random& random) {
    static const Qt::Alignment sides[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight,
                                          Qt::AlignJustify};
    QTextBlockFormat format;
    format.setAlignment(sides[random() % 4]);
    format.setLeftMargin(static_cast<double>(random() % 5 * 10));
    format.setTextIndent(static_cast<double>(random() % 3) * 5 - 5);
    format.setRightMargin(static_cast<double>(random() % 3 * 8));
    format.setTopMargin(static_cast<double>(random() % 3 * 4));
    format.setBottomMargin(static_cast<double>(random() % 3 * 6));
    return format;
}

QString some_text(Random& random) {
    static const QString signs = QString::fromUtf8("abc {}\\;\té€–“ÿ\u00A0\u00AD\u2028Ωα中文😀'*");
    QString text;
    const auto length = 1 + random() % 12;
    for (unsigned i = 0; i < length; ++i) {
        const QChar sign = signs[static_cast<qsizetype>(random() % signs.size())];
        if (!sign.isSurrogate()) text += sign;
    }
    return text + QString::fromUtf8(random() % 4 == 0 ? "😀" : ".");
}

void generate(QTextDocument& document, Random& random) {
    QTextCursor cursor(&document);
    const auto paragraphs = 1 + random() % 12;
    for (unsigned i = 0; i < paragraphs; ++i) {
        if (i > 0) cursor.insertBlock();
        cursor.setBlockFormat(some_block_format(random));
        for (auto pieces = random() % 5; pieces > 0; --pieces) {
            cursor.insertText(some_text(random), some_format(random));
        }
    }
}

std::string described(const QTextCharFormat& format) {
    std::string out = format.fontFamilies().toStringList().join(u',').toStdString();
    out += " " + std::to_string(format.fontPointSize());
    out += format.fontWeight() >= QFont::Bold ? " bold" : "";
    out += format.fontItalic() ? " italic" : "";
    out += format.fontUnderline() ? " underline" : "";
    out += format.fontStrikeOut() ? " strike" : "";
    out += " script" + std::to_string(format.verticalAlignment());
    out += " " + format.foreground().color().name().toStdString();
    out += " " + format.background().color().name().toStdString();
    return out + std::to_string(format.background().style());
}

std::string described(const QTextBlockFormat& format) {
    return std::to_string((format.alignment() & Qt::AlignHorizontal_Mask).toInt()) + " " +
           std::to_string(format.leftMargin()) + " " + std::to_string(format.textIndent()) + " " +
           std::to_string(format.rightMargin()) + " " + std::to_string(format.topMargin()) + " " +
           std::to_string(format.bottomMargin());
}

// Every paragraph and piece with its formats, one a line.
std::string described(const QTextDocument& document) {
    std::string out;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        out += "P " + described(block.blockFormat()) + "\n";
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            out += part.fragment().text().toStdString() + " | " +
                   described(part.fragment().charFormat()) + "\n";
        }
    }
    return out;
}

TEST(RtfWriter, GeneratedDocumentsComeBack) {
    Random random(7);
    for (int round = 0; round < 200; ++round) {
        QTextDocument document;
        generate(document, random);
        QTextDocument again;
        read(written(document), again);
        ASSERT_EQ(described(again), described(document)) << round;
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
        for (int level = 1; level <= 3; ++level) {
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
