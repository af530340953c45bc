#include "rich_text/rtf_reader.h"

#include <QTextList>

#include "rich_text/rtf_lists.h"
#include "rich_text/rtf_testing.h"

namespace tavernook::rtf {
namespace {

TEST(RtfReader, ParagraphsLinesAndTabs) {
    EXPECT_EQ(text_of("{\\rtf1 a\\tab b\\line c\\par d}"), "a\tb\nc\nd");
}

TEST(RtfReader, TheLastParagraphMarkAddsNoParagraph) {
    EXPECT_EQ(text_of("{\\rtf1 a\\par}"), "a");
    EXPECT_EQ(text_of("{\\rtf1 a\\par\\par}"), "a\n");
    EXPECT_EQ(text_of("{\\rtf1 a\\\nb}"), "a\nb");
}

TEST(RtfReader, EscapedCharactersAndNamedOnes) {
    EXPECT_EQ(text_of("{\\rtf1 \\{\\\\\\}\\~\\_\\emdash\\lquote x}"), "{\\} ‑—‘x");
}

TEST(RtfReader, TheDocumentsCodePage) {
    EXPECT_EQ(text_of("{\\rtf1\\ansi cr\\'e8me \\'80}"), "crème €");
    EXPECT_EQ(text_of("{\\rtf1\\ansi\\ansicpg1251 \\'cc\\'e8\\'f0}"), "Мир");
}

TEST(RtfReader, TheFontsCharacterSetGoesFirst) {
    EXPECT_EQ(text_of("{\\rtf1\\ansicpg1252{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}}"
                      "\\f0\\'cc\\f1\\'cc}"),
              "ÌМ");
}

TEST(RtfReader, NamesOfFontsInTheirCharacterSetAndInUnicode) {
    const Content content = parse(
        "{\\rtf1{\\fonttbl{\\f0\\fcharset128 \\'96\\'be\\'92\\'a9{\\*\\falt Other};}"
        "{\\f1\\uc1 A\\u26126?\\u26397\\'3f B;}}x}");
    // U+660E U+671D are 96 BE, 92 A9 in the code page.
    EXPECT_EQ(content.fonts.at(0).name, QString::fromUtf8("明朝"));
    EXPECT_EQ(content.fonts.at(1).name, QString::fromUtf8("A明朝 B"));
}

TEST(RtfReader, DoubleByteCharactersOfMixedSpelling) {
    // U+30BD is 83 5C, U+8868 is 95 5C in the code page; 5C is a backslash.
    EXPECT_EQ(text_of("{\\rtf1{\\fonttbl{\\f0\\fcharset128 M;}}\\f0\\'83\\'5c\\'95\\\\}"), "ソ表");
    EXPECT_EQ(text_of("{\\rtf1{\\fonttbl{\\f0\\fcharset134 S;}}\\f0\\'d3\\'a1}"), "印");
}

TEST(RtfReader, UnicodeAndWhatIsSkippedAfterIt) {
    EXPECT_EQ(text_of("{\\rtf1 \\u937?x\\u937\\'3fx}"), "ΩxΩx");
    EXPECT_EQ(text_of("{\\rtf1\\uc0 \\u937?x}"), "Ω?x");
    EXPECT_EQ(text_of("{\\rtf1{\\uc2 \\u937??x}\\u937?x}"), "ΩxΩx");
    EXPECT_EQ(text_of("{\\rtf1\\uc3 \\u937?}x}"), "Ω");
    EXPECT_EQ(text_of("{\\rtf1 \\u-10179?\\u-8704?}"), "😀");
}

TEST(RtfReader, CharactersOfTheDocumentsOwnStructureAreDropped) {
    EXPECT_EQ(text_of("{\\rtf1 a\\u-560?\\u-4?\\'01b}"), "ab");
}

TEST(RtfReader, UnknownDestinationsAreSkippedWhole) {
    EXPECT_EQ(text_of("{\\rtf1 a{\\*\\nobody x{y\\par}z}b{\\info{\\title t}}{\\header h}}"), "ab");
}

TEST(RtfReader, FieldsShowTheirResult) {
    EXPECT_EQ(text_of("{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt{\\ul go}}}}"), "go");
}

TEST(RtfReader, HiddenTextIsLeftOut) {
    EXPECT_EQ(text_of("{\\rtf1 a{\\v b}c\\v d\\v0 e}"), "ace");
}

TEST(RtfReader, TablesAreTextWithTabs) {
    EXPECT_EQ(
        text_of("{\\rtf1 x\\par\\trowd\\cellx1\\cellx2 a\\cell\\cell b\\cell\\row c\\cell d\\cell"
                "\\row\\pard y\\par}"),
        "x\na\t\tb\nc\td\ny");
}

TEST(RtfReader, CharacterFormats) {
    QTextDocument document;
    read(
        "{\\rtf1\\deff0{\\fonttbl{\\f0 Serif;}{\\f1 Sans;}}{\\colortbl;\\red255\\green0\\blue0;"
        "\\red0\\green128\\blue0;}\\plain p{\\f1\\fs36\\b\\i\\ul\\strike\\cf1\\highlight2 all}"
        "{\\super up}{\\sub down}\\b on\\b0 off}",
        document);
    const QTextCharFormat plain = format_at(document, "p");
    EXPECT_EQ(plain.fontFamilies().toStringList(), QStringList("Serif"));
    EXPECT_EQ(plain.fontPointSize(), 12);
    EXPECT_FALSE(plain.hasProperty(QTextFormat::ForegroundBrush));
    const QTextCharFormat all = format_at(document, "all");
    EXPECT_EQ(all.fontFamilies().toStringList(), QStringList("Sans"));
    EXPECT_EQ(all.fontPointSize(), 18);
    EXPECT_EQ(all.fontWeight(), int{QFont::Bold});
    EXPECT_TRUE(all.fontItalic() && all.fontUnderline() && all.fontStrikeOut());
    EXPECT_EQ(all.foreground().color(), QColor(255, 0, 0));
    EXPECT_EQ(all.background().color(), QColor(0, 128, 0));
    EXPECT_EQ(format_at(document, "up").verticalAlignment(), QTextCharFormat::AlignSuperScript);
    EXPECT_EQ(format_at(document, "down").verticalAlignment(), QTextCharFormat::AlignSubScript);
    EXPECT_EQ(format_at(document, "on").fontWeight(), int{QFont::Bold});
    EXPECT_NE(format_at(document, "off").fontWeight(), int{QFont::Bold});
}

// Some writers put no empty colour first.
TEST(RtfReader, ColourNumberZeroIsTheReadersOwnWhateverStandsThere) {
    for (const char* word : {"highlight0", "cb0", "chcbpat0", "cf0"}) {
        QTextDocument document;
        read(std::string("{\\rtf1{\\colortbl\\red0\\green0\\blue0;\\red255\\green0\\blue0;}"
                         "plain {\\") +
                 word + " zero}{\\cf1\\highlight1 red}}",
             document);
        for (const char* text : {"plain", "zero"}) {
            if (document.toPlainText().startsWith("plain zero") && text == std::string("zero")) {
                continue;  // one look, one piece
            }
            const QTextCharFormat format = format_at(document, text);
            EXPECT_FALSE(format.hasProperty(QTextFormat::BackgroundBrush)) << word;
            EXPECT_FALSE(format.hasProperty(QTextFormat::ForegroundBrush)) << word;
        }
        EXPECT_EQ(format_at(document, "red").background().color(), QColor(255, 0, 0));
        EXPECT_EQ(format_at(document, "red").foreground().color(), QColor(255, 0, 0));
    }
}

TEST(RtfReader, RowsOfAnInnerTableAreRows) {
    const std::string row =
        "{\\*\\nesttableprops\\trowd\\cellx1\\cellx2\\nestrow}"
        "{\\nonesttables\\par}";
    const std::string inner =
        "\\pard\\intbl\\itap2 a\\nestcell b\\nestcell" + row + "c\\nestcell d\\nestcell" + row;
    EXPECT_EQ(
        text_of("{\\rtf1 x\\par\\trowd " + inner + "\\pard\\intbl\\itap1\\cell\\row\\pard y\\par}"),
        "x\na\tb\nc\td\ny");
    EXPECT_EQ(text_of("{\\rtf1\\trowd\\pard\\intbl first\\cell " + inner +
                      "\\pard\\intbl\\itap1\\cell last\\cell\\row e\\cell f\\cell\\row\\pard y"
                      "\\par}"),
              "first\na\tb\nc\td\nlast\ne\tf\ny");
}

TEST(RtfReader, ParagraphFormats) {
    QTextDocument document;
    read("{\\rtf1\\pard\\qc\\li720\\fi-300\\ri150\\sb60\\sa90 a\\par\\pard b\\par}", document);
    const QTextBlockFormat first = document.begin().blockFormat();
    EXPECT_EQ(first.alignment(), Qt::AlignHCenter);
    EXPECT_EQ(first.leftMargin(), 48);
    EXPECT_EQ(first.textIndent(), -20);
    EXPECT_EQ(first.rightMargin(), 10);
    EXPECT_EQ(first.topMargin(), 4);
    EXPECT_EQ(first.bottomMargin(), 6);
    EXPECT_EQ(document.lastBlock().blockFormat().leftMargin(), 0);
}

TEST(RtfReader, ListsOfBothKinds) {
    QTextDocument document;
    read(
        "{\\rtf1\\pard{\\pntext\\'b7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'b7}}\\fi-200\\li200 a\\par"
        "{\\pntext\\'b7\\tab}b\\par\\pard{\\listtext 1.\\tab}\\ls1\\ilvl1 c\\par\\pard d\\par}",
        document);
    EXPECT_EQ(document.toPlainText().toStdString(), "a\nb\nc\nd");
    const QTextBlock first = document.begin();
    ASSERT_NE(first.textList(), nullptr);
    EXPECT_EQ(first.textList()->format().style(), QTextListFormat::ListDisc);
    EXPECT_EQ(first.next().textList(), first.textList());
    const QTextBlock third = first.next().next();
    ASSERT_NE(third.textList(), nullptr);
    EXPECT_EQ(third.textList()->format().style(), QTextListFormat::ListDecimal);
    EXPECT_EQ(third.textList()->format().indent(), 2);
    EXPECT_EQ(document.lastBlock().textList(), nullptr);
}

TEST(RtfReader, TheMarkerNamesTheList) {
    EXPECT_EQ(list_kind_of_marker(QStringLiteral("12.")), ListKind::decimal);
    EXPECT_EQ(list_kind_of_marker(QStringLiteral("b)")), ListKind::lower_letter);
    EXPECT_EQ(list_kind_of_marker(QStringLiteral("C.")), ListKind::upper_letter);
    EXPECT_EQ(list_kind_of_marker(QStringLiteral("iv.")), ListKind::lower_roman);
    EXPECT_EQ(list_kind_of_marker(QStringLiteral("I.")), ListKind::upper_roman);
    EXPECT_EQ(list_kind_of_marker(QStringLiteral("o")), ListKind::circle);
    EXPECT_EQ(list_kind_of_marker(QStringLiteral("-")), ListKind::disc);
}

// A bitmap of one red pixel: header of 40 bytes, then blue, green, red and a filler.
const std::string red_pixel =
    "2800000001000000010000000100180000000000040000000000000000000000000000000000000000"
    "00ff00";

TEST(RtfReader, ADeviceIndependentBitmap) {
    const Content content =
        parse("{\\rtf1{\\pict\\dibitmap0\\picwgoal150\\pichgoal300 " + red_pixel + "}}");
    ASSERT_EQ(content.pictures.size(), 1u);
    EXPECT_EQ(content.pictures[0].image.pixelColor(0, 0), QColor(255, 0, 0));
    EXPECT_EQ(content.pictures[0].width_twips, 150);
}

TEST(RtfReader, TheBitmapInsideAMetafile) {
    // Header of 9 words; one record of 3 + 11 + 22 words that stretches the bitmap.
    const std::string header = "010009000003000000000000000000000000";
    const std::string record = "24000000430f" + std::string(44, '0') + red_pixel;
    const Content content = parse("{\\rtf1{\\pict\\wmetafile8 " + header + record + "}}");
    ASSERT_EQ(content.pictures.size(), 1u);
    EXPECT_EQ(content.pictures[0].image.pixelColor(0, 0), QColor(255, 0, 0));
}

TEST(RtfReader, APictureThatCannotBeDrawnIsLeftOut) {
    EXPECT_EQ(text_of("{\\rtf1 a{\\pict\\pngblip 00ff00}{\\pict\\emfblip 1234}b}"), "ab");
    EXPECT_EQ(text_of("{\\rtf1 a{\\nonshppict{\\pict\\dibitmap0 " + red_pixel + "}}b}"), "ab");
}

TEST(RtfReader, AnOfficeSuitesDocument) {
    QTextDocument document;
    read(file_bytes(std::string(TAVERNOOK_TEST_DATA) + "/rtf/office_suite.rtf"), document);
    EXPECT_EQ(document.toPlainText().toStdString(),
              "Soup & salad\nBold italic under gone x2 H2O red\none\ntwo\nfirst\nsecond\n"
              "Crème brûlée – 50 € Ωα 中文 😀\n\uFFFCPot\na\tb\nc\td\n");
    EXPECT_EQ(format_at(document, "Soup").fontPointSize(), 24);
    EXPECT_EQ(format_at(document, "Bold").fontWeight(), int{QFont::Bold});
    EXPECT_TRUE(format_at(document, "gone").fontStrikeOut());
    EXPECT_EQ(format_at(document, "red").foreground().color(), QColor(255, 0, 0));
    const QTextBlock two = document.findBlockByNumber(3);
    ASSERT_NE(two.textList(), nullptr);
    EXPECT_EQ(two.textList()->format().style(), QTextListFormat::ListDisc);
    ASSERT_NE(two.next().textList(), nullptr);
    EXPECT_EQ(two.next().textList()->format().style(), QTextListFormat::ListDecimal);
    EXPECT_EQ(document.findBlockByNumber(7).blockFormat().alignment(), Qt::AlignRight);
    EXPECT_EQ(document.findBlockByNumber(7).begin().fragment().charFormat().toImageFormat().width(),
              40);
}

}  // namespace
}  // namespace tavernook::rtf
