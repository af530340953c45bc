// Lists as several word processors write them, by hand after their shapes.
#include "rich_text/rtf_lists.h"

#include <QTextCursor>
#include <QTextList>

#include "fakes/temp_folder.h"
#include "gui_support/processes.h"
#include "rich_text/rtf_testing.h"
#include "rich_text/rtf_writer.h"

namespace tavernook::rtf {
namespace {

// A line for each paragraph: what stands in front of it, and its text.
std::string shown(const QTextDocument& document) {
    std::string out;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QTextList* list = block.textList();
        const bool is_bullet =
            list != nullptr && list->format().style() > QTextListFormat::ListDecimal;
        if (is_bullet) out += "* ";
        if (list != nullptr && !is_bullet) out += list->itemText(block).toStdString() + " ";
        out += block.text().toStdString() + "\n";
    }
    return out;
}

// As it is read, and as it is read again after it was written.
std::string shown(std::string_view bytes) {
    QTextDocument document;
    read(bytes, document);
    QTextDocument again;
    read(written(document), again);
    EXPECT_EQ(shown(again), shown(document));
    return shown(document);
}

TEST(RtfLists, NumbersGoOnBehindAPlainParagraph) {
    EXPECT_EQ(shown("{\\rtf1\\pard\\fi-360\\li720{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pndec"
                    "\\pnstart1{\\pntxta .}}stir\\par {\\pntext 2.\\tab}bake\\par"
                    "\\pard meanwhile\\par"
                    "\\pard\\fi-360\\li720{\\pntext 3.\\tab}{\\*\\pn\\pnlvlbody\\pndec\\pnstart3"
                    "{\\pntxta .}}serve\\par}"),
              "1. stir\n2. bake\nmeanwhile\n3. serve\n");
}

TEST(RtfLists, AListThatBeginsAnewBeginsAnew) {
    EXPECT_EQ(shown("{\\rtf1\\pard{\\listtext 1.\\tab}a\\par{\\listtext 2.\\tab}b\\par"
                    "{\\listtext 1.\\tab}c\\par\\pard plain\\par{\\listtext 1.\\tab}d\\par}"),
              "1. a\n2. b\n1. c\nplain\n1. d\n");
}

TEST(RtfLists, ANumberThatNoListComesToStandsInTheText) {
    EXPECT_EQ(shown("{\\rtf1\\pard\\fi-360\\li720{\\listtext 5.\\tab}a\\par{\\listtext 6.\\tab}b"
                    "\\par{\\listtext 2.1\\tab}c\\par}"),
              "5.\ta\n6.\tb\n2.1\tc\n");
}

TEST(RtfLists, TheFormAloneSaysWhereTheNumbersBegin) {
    EXPECT_EQ(shown("{\\rtf1\\pard{\\*\\pn\\pnlvlbody\\pnlcltr\\pnstart1}a\\par b\\par"
                    "\\pard plain\\par\\pard{\\*\\pn\\pnlvlbody\\pnlcltr\\pnstart3}c\\par d\\par"
                    "\\pard plain\\par\\pard{\\*\\pn\\pnlvlbody\\pndec\\pnstart7}e\\par f\\par}"),
              "a. a\nb. b\nplain\nc. c\nd. d\nplain\n7.\te\n8.\tf\n");
}

const std::string tables =
    "{\\*\\listtable"
    "{\\list\\listtemplateid1\\listhybrid"
    "{\\listlevel\\levelnfc0\\levelnfcn0\\leveljc0\\levelstartat1{\\leveltext\\'02\\'00.;}"
    "{\\levelnumbers\\'01;}\\fi-360\\li720}"
    "{\\listlevel\\levelnfc4\\levelstartat1{\\leveltext\\'02\\'01.;}{\\levelnumbers\\'01;}}"
    "{\\listname ;}\\listid77}"
    "{\\list{\\listlevel\\levelnfc23\\levelstartat1{\\leveltext\\'01\\u8226 ?;}"
    "{\\levelnumbers;}}\\listid78}}"
    "{\\*\\listoverridetable{\\listoverride\\listid77\\listoverridecount0\\ls1}"
    "{\\listoverride\\listid78\\listoverridecount0\\ls2}"
    "{\\listoverride\\listid77\\listoverridecount1{\\lfolevel\\listoverridestartat"
    "\\levelstartat4}\\ls3}}";

TEST(RtfLists, TheTablesSayWhatNoMarkerSays) {
    EXPECT_EQ(shown("{\\rtf1" + tables +
                    "\\pard\\ls1\\ilvl0 a\\par\\pard\\ls1\\ilvl1 deeper\\par deeper\\par"
                    "\\pard\\ls1\\ilvl0 b\\par\\pard\\ls1\\ilvl1 anew\\par\\pard plain\\par"
                    "\\pard\\ls2\\ilvl0 dot\\par\\pard\\ls1\\ilvl0 c\\par}"),
              "1. a\na. deeper\nb. deeper\n2. b\na. anew\nplain\n* dot\n3. c\n");
}

TEST(RtfLists, TheTablesTellLettersFromRomanNumbers) {
    std::string text = "{\\rtf1" + tables;
    std::string expected;
    for (char letter = 'a'; letter <= 'j'; ++letter) {
        text += std::string("\\pard\\ls1\\ilvl1{\\listtext ") + letter + ".\\tab}x\\par";
        expected += std::string(1, letter) + ". x\n";
    }
    EXPECT_EQ(shown(text + "}"), expected);
}

TEST(RtfLists, AnOverrideMayBeginAtAnotherNumber) {
    EXPECT_EQ(shown("{\\rtf1" + tables +
                    "\\pard\\ls1\\ilvl0 a\\par b\\par c\\par\\pard plain\\par\\pard\\ls3\\ilvl0 d"
                    "\\par e\\par}"),
              "1. a\n2. b\n3. c\nplain\n4. d\n5. e\n");
}

TEST(RtfLists, TwoListsOfOneKindKeepApart) {
    EXPECT_EQ(shown("{\\rtf1" + tables +
                    "\\pard\\ls1\\ilvl0{\\listtext 1.\\tab}a\\par\\pard plain\\par"
                    "\\pard\\ls3\\ilvl0{\\listtext 1.\\tab}x\\par\\pard plain\\par"
                    "\\pard\\ls1\\ilvl0{\\listtext 2.\\tab}b\\par"
                    "\\pard\\ls3\\ilvl0{\\listtext 2.\\tab}y\\par}"),
              "1. a\nplain\n1. x\nplain\n2. b\n2. y\n");
}

// A longer list would be laid out for minutes.
TEST(RtfLists, AVeryLongListIsParted) {
    for (const bool is_bullet : {true, false}) {
        std::string text = "{\\rtf1";
        for (int entry = 1; entry <= most_entries + 2; ++entry) {
            const std::string marker = is_bullet ? "\\bullet" : std::to_string(entry) + ".";
            text += "{\\listtext " + marker + "\\tab}x\\par";
        }
        QTextDocument document;
        read(text + "}", document);
        EXPECT_EQ(document.begin().textList()->count(), most_entries);
        const QTextList* last = document.lastBlock().textList();
        if (is_bullet) {
            ASSERT_NE(last, nullptr);
            EXPECT_EQ(last->count(), 2);
        } else {
            EXPECT_EQ(last, nullptr);
            EXPECT_EQ(document.lastBlock().text(), "502.\tx");
        }
    }
}

TEST(RtfLists, NumbersAndTheirTexts) {
    const std::tuple<ListKind, int, const char*> forms[] = {
        {ListKind::decimal, 12, "12"},      {ListKind::lower_letter, 1, "a"},
        {ListKind::lower_letter, 28, "ab"}, {ListKind::upper_letter, 26, "Z"},
        {ListKind::lower_roman, 4, "iv"},   {ListKind::upper_roman, 1994, "MCMXCIV"}};
    for (const auto& [kind, number, text] : forms) {
        EXPECT_EQ(number_text(kind, number), QLatin1String(text));
        EXPECT_EQ(number_in(QStringLiteral("(%1)").arg(QLatin1String(text)), kind), number);
    }
    EXPECT_EQ(number_text(ListKind::disc, 3), QString());
    EXPECT_EQ(number_in(QStringLiteral("1.2"), ListKind::decimal), std::nullopt);
    EXPECT_EQ(number_in(QStringLiteral("iiii."), ListKind::lower_roman), std::nullopt);
}

TEST(RtfLists, AreWrittenWithTheirTables) {
    QTextDocument document;
    read("{\\rtf1{\\listtext 1.\\tab}a\\par\\pard plain\\par{\\listtext 2.\\tab}b\\par}", document);
    const std::string bytes = written(document);
    EXPECT_NE(bytes.find("\\levelnfc0"), std::string::npos);
    EXPECT_NE(bytes.find("\\listid1\\listoverridecount0\\ls1}"), std::string::npos);
    EXPECT_NE(bytes.find("\\ls1\\ilvl0{\\listtext\\f0 1.\\tab}"), std::string::npos) << bytes;
    EXPECT_NE(bytes.find("\\ls1\\ilvl0{\\listtext\\f0 2.\\tab}"), std::string::npos);
    EXPECT_EQ(bytes.find("\\ls2"), std::string::npos);
}

TEST(RtfLists, AnOfficeSuiteShowsTheSameNumbers) {
    const QString program = office_with_writer();
    if (program.isEmpty()) GTEST_SKIP() << "no office suite with a word processor";
    QTextDocument document;
    read("{\\rtf1{\\listtext 1.\\tab}a\\par\\pard plain\\par{\\listtext 2.\\tab}b\\par}", document);
    const TempFolder folder;
    write_whole_file(folder.path("list.rtf"), written(document));
    output_of(program, {QStringLiteral("-env:UserInstallation=file://%1/profile")
                            .arg(QString::fromStdString(folder.path())),
                        QStringLiteral("--headless"), QStringLiteral("--convert-to"),
                        QStringLiteral("txt:Text"), QStringLiteral("--outdir"),
                        QString::fromStdString(folder.path()),
                        QString::fromStdString(folder.path("list.rtf"))});
    std::string text = file_bytes(folder.path("list.txt"));
    std::erase(text, '\r');
    EXPECT_NE(text.find("1. a\nplain\n2. b\n"), std::string::npos) << text;
}

}  // namespace
}  // namespace tavernook::rtf
