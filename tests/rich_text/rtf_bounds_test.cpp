#include "rich_text/rtf_bounds.h"

#include <QTextCursor>
#include <QTextImageFormat>

#include "rich_text/rtf_testing.h"
#include "rich_text/rtf_writer.h"

namespace tavernook::rtf {
namespace {

int fault_of_extent(const Extent& extent) {
    try {
        require_readable(extent);
    } catch (const Fault& fault) {
        return fault.number;
    }
    return 0;
}

TEST(RtfBounds, ADocumentIsMeasuredAsWhatIsReadOfIt) {
    QTextDocument document;
    read("{\\rtf1 plain \\b bold\\b0  plain\\par\\par last\\par}", document);
    const Extent extent = extent_of(document);
    EXPECT_EQ(extent.paragraphs, 3u);
    EXPECT_EQ(extent.runs, 4u);
    EXPECT_EQ(extent.characters, 20u);
    EXPECT_EQ(extent.longest_paragraph, 16u);
    EXPECT_EQ(extent.longest_word, 5u);
    EXPECT_EQ(extent.most_runs_of_paragraph, 3u);
    const Extent read_again = extent_of(parse(written(document)));
    EXPECT_EQ(read_again.runs, extent.runs);
    EXPECT_EQ(read_again.characters, extent.characters);
}

TEST(RtfBounds, EachPictureIsARun) {
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextImageFormat format;
    format.setName("pot");
    for (int i = 0; i < 3; ++i) cursor.insertImage(format);
    EXPECT_EQ(extent_of(document).runs, 3u);
}

// What can be written can be read: the same bounds, measured on either side.
TEST(RtfBounds, WhatTheReaderWouldRefuseIsNotReadable) {
    QTextDocument document;
    document.setPlainText(QString(static_cast<qsizetype>(most_paragraphs) - 1, u'\n'));
    EXPECT_EQ(fault_of_extent(extent_of(document)), 0);
    EXPECT_EQ(fault_of(written(document)), 0);
    document.setPlainText(QString(static_cast<qsizetype>(most_paragraphs), u'\n'));
    EXPECT_EQ(fault_of_extent(extent_of(document)), fault_number::overflow);
    EXPECT_EQ(fault_of(written(document)), fault_number::bad_record_number);
    EXPECT_EQ(fault_of_extent({.paragraphs = 1, .runs = most_runs}), 0);
    EXPECT_EQ(fault_of_extent({.paragraphs = 1, .runs = most_runs + 1}), fault_number::overflow);
}

TEST(RtfBounds, ALightTextIsLightInEveryRespect) {
    const Extent light{most_light_paragraphs,   most_light_runs,    most_light_characters,
                       longest_light_paragraph, longest_light_word, most_runs_of_light_paragraph};
    EXPECT_TRUE(is_light(light));
    for (std::size_t Extent::*measure :
         {&Extent::paragraphs, &Extent::runs, &Extent::characters, &Extent::longest_paragraph,
          &Extent::longest_word, &Extent::most_runs_of_paragraph}) {
        Extent heavy = light;
        ++(heavy.*measure);
        EXPECT_FALSE(is_light(heavy));
    }
}

TEST(RtfBounds, LongParagraphsAreBrokenBehindABlank) {
    const auto most = static_cast<qsizetype>(longest_light_paragraph);
    const QString words = QStringLiteral("salt ").repeated(most / 2);
    const QString broken = with_short_paragraphs(words + u'\n' + words);
    EXPECT_FALSE(is_light(extent_of(words)));
    EXPECT_TRUE(is_light(extent_of(broken)));
    QString joined = broken;
    EXPECT_EQ(joined.remove(u'\n'), words + words);
    for (const QString& line : broken.split(u'\n')) {
        EXPECT_LE(line.size(), most);
        EXPECT_TRUE(line.isEmpty() || line.endsWith(u' '));
    }
    const auto longest = static_cast<qsizetype>(longest_light_word);
    const QString letters(longest + 1, u'x');
    EXPECT_EQ(with_short_paragraphs(letters), letters.left(longest) + u'\n' + u'x');
    const QString signs(most + 1, QChar(0x4E2D));
    EXPECT_EQ(with_short_paragraphs(signs), signs.left(most) + u'\n' + signs.left(1));
    EXPECT_EQ(with_short_paragraphs(QStringLiteral("a\nb\n")), "a\nb\n");
    // No character is cut in two.
    const QString faces = QStringLiteral("x") + QString::fromUtf8("😀").repeated(most);
    const QStringList lines = with_short_paragraphs(faces).split(u'\n');
    EXPECT_TRUE(lines.front().back().isLowSurrogate());
}

TEST(RtfBounds, ThePlainTextIsTheWordsOfTheParagraphs) {
    const Content content = parse("{\\rtf1 a\\b b\\par\\par c\\par}");
    EXPECT_EQ(plain_text(content), "ab\n\nc");
}

}  // namespace
}  // namespace tavernook::rtf
