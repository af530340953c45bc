// What an office suite makes of the files that the program writes. It starts slowly, so that all
// files go through one start.
#include <vector>

#include "fakes/temp_folder.h"
#include "gui_support/processes.h"
#include "rich_text/flat_text.h"
#include "rich_text/rtf_generated.h"
#include "rich_text/rtf_testing.h"
#include "rich_text/rtf_writer.h"

namespace tavernook::rtf {
namespace {

constexpr int generated_documents = 12;

QTextCharFormat with_size(double points) {
    QTextCharFormat format;
    format.setFontPointSize(points);
    return format;
}

void insert_runs(QTextCursor& cursor) {
    QTextCharFormat plain = with_size(11);
    cursor.insertText("plain ", plain);
    QTextCharFormat format = plain;
    format.setFontWeight(QFont::Bold);
    cursor.insertText("bold ", format);
    format = plain;
    format.setFontItalic(true);
    cursor.insertText("italic ", format);
    format = plain;
    format.setFontUnderline(true);
    cursor.insertText("underlined ", format);
    format = plain;
    format.setFontStrikeOut(true);
    cursor.insertText("gone ", format);
    format = plain;
    format.setForeground(QColor(0xC0, 0x10, 0x20));
    cursor.insertText("red ", format);
    format = plain;
    format.setBackground(QColor(0xFF, 0xFF, 0));
    cursor.insertText("marked ", format);
    format = plain;
    format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    cursor.insertText("up ", format);
    format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    cursor.insertText("down ", format);
    cursor.insertText("large", with_size(20.5));
}

void insert_sides(QTextCursor& cursor) {
    const std::pair<const char*, Qt::Alignment> sides[] = {{"to the left", Qt::AlignLeft},
                                                           {"in the middle", Qt::AlignHCenter},
                                                           {"to the right", Qt::AlignRight},
                                                           {"on both sides", Qt::AlignJustify}};
    for (const auto& [text, side] : sides) {
        QTextBlockFormat format;
        format.setAlignment(side);
        format.setLeftMargin(48);
        cursor.insertBlock(format, with_size(11));
        cursor.insertText(text);
    }
}

void insert_list(QTextCursor& cursor, QTextListFormat::Style style,
                 const std::vector<const char*>& entries) {
    QTextListFormat form;
    form.setStyle(style);
    QTextList* list = nullptr;
    for (const char* entry : entries) {
        cursor.insertBlock(QTextBlockFormat(), with_size(11));
        if (list == nullptr) {
            list = cursor.createList(form);
        } else {
            list->add(cursor.block());
        }
        cursor.insertText(entry);
    }
}

void insert_rest(QTextDocument& document, QTextCursor& cursor) {
    cursor.insertBlock(QTextBlockFormat(), with_size(11));
    cursor.insertText(QString::fromUtf8("Grüße – 5 € Ωα 中文 😀 {a} \\ b"));
    cursor.insertText(QStringLiteral("  two   three    four"));
    QImage image(4, 2, QImage::Format_RGB32);
    image.fill(Qt::green);
    document.addResource(QTextDocument::ImageResource, QUrl("pot"), image);
    QTextImageFormat picture;
    picture.setName("pot");
    picture.setWidth(96);
    picture.setHeight(48);
    cursor.insertImage(picture);
}

class OfficeSuite : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        program = office_with_writer();
        if (program.isEmpty()) return;
        folder = new TempFolder;
        documents = new std::vector<std::unique_ptr<QTextDocument>>;
        QStringList arguments = {
            QStringLiteral("-env:UserInstallation=file://%1/profile").arg(folder_path()),
            QStringLiteral("--headless"),
            QStringLiteral("--convert-to"),
            QStringLiteral("fodt"),
            QStringLiteral("--outdir"),
            folder_path()};
        Random random(31);
        for (int i = 0; i <= generated_documents; ++i) {
            auto document = std::make_unique<QTextDocument>();
            if (i == 0) {
                fill_known(*document);
            } else {
                generate(*document, random);
            }
            write_whole_file(path(i, ".rtf"), written(*document));
            arguments << QString::fromStdString(path(i, ".rtf"));
            documents->push_back(std::move(document));
        }
        output_of(program, arguments);
    }
    static void TearDownTestSuite() {
        delete documents;
        delete folder;
        documents = nullptr;
        folder = nullptr;
    }
    void SetUp() override {
        if (program.isEmpty()) GTEST_SKIP() << "no office suite with a word processor";
    }

    static QString folder_path() { return QString::fromStdString(folder->path()); }
    static std::string path(int number, const char* extension) {
        return folder->path("text" + std::to_string(number) + extension);
    }
    static FlatText converted(int number) { return read_flat_text(path(number, ".fodt")); }
    static void fill_known(QTextDocument& document) {
        QTextCursor cursor(&document);
        insert_runs(cursor);
        insert_sides(cursor);
        insert_list(cursor, QTextListFormat::ListDisc, {"salt", "pepper"});
        cursor.insertBlock(QTextBlockFormat(), with_size(11));
        cursor.insertText("between");
        insert_list(cursor, QTextListFormat::ListDecimal, {"stir", "serve"});
        insert_rest(document, cursor);
    }

    static inline QString program;
    static inline TempFolder* folder = nullptr;
    static inline std::vector<std::unique_ptr<QTextDocument>>* documents = nullptr;
};

// Runs of one look are joined by the suite, so that only the text of a paragraph is compared.
TEST_F(OfficeSuite, TheTextOfEveryDocumentIsTheSame) {
    for (int i = 0; i <= generated_documents; ++i) {
        const FlatText text = converted(i);
        const QTextDocument& document = *(*documents)[static_cast<std::size_t>(i)];
        QTextBlock block = document.begin();
        for (const FlatParagraph& paragraph : text.paragraphs) {
            ASSERT_TRUE(block.isValid()) << i;
            EXPECT_EQ(paragraph.text().toStdString(), block.text().toStdString()) << i;
            block = block.next();
        }
        EXPECT_FALSE(block.isValid()) << i << ": " << block.text().toStdString();
    }
}

TEST_F(OfficeSuite, RunsKeepTheirLook) {
    const FlatText text = converted(0);
    EXPECT_TRUE(text.look("bold").bold);
    EXPECT_TRUE(text.look("italic").italic);
    EXPECT_TRUE(text.look("underlined").underline);
    EXPECT_TRUE(text.look("gone").strike);
    EXPECT_EQ(text.look("red").colour, "#c01020");
    EXPECT_EQ(text.look("marked").background, "#ffff00");
    EXPECT_EQ(text.look("large").size, "20.5pt");
    EXPECT_TRUE(text.look("up").position.startsWith(u"super")) << "raised";
    EXPECT_TRUE(text.look("down").position.startsWith(u"sub") ||
                text.look("down").position.startsWith(u'-'))
        << "lowered";
    const FlatLook plain = text.look("plain");
    EXPECT_FALSE(plain.bold || plain.italic || plain.underline || plain.strike);
    EXPECT_EQ(plain.size, "11pt");
    EXPECT_FALSE(text.look("red").bold || text.look("large").italic);
}

TEST_F(OfficeSuite, ParagraphsKeepTheirSideAndIndent) {
    const FlatText text = converted(0);
    EXPECT_TRUE(QStringList({"", "start", "left"}).contains(text.paragraph("to the left").side));
    EXPECT_EQ(text.paragraph("in the middle").side, "center");
    EXPECT_EQ(text.paragraph("to the right").side, "end");
    EXPECT_EQ(text.paragraph("on both sides").side, "justify");
    // 48 pixels are half an inch.
    EXPECT_EQ(text.paragraph("to the left").left, "0.5in");
    EXPECT_FALSE(text.paragraph("to the left").in_list());
}

TEST_F(OfficeSuite, ListsAreLists) {
    const FlatText text = converted(0);
    EXPECT_EQ(text.list_kind("salt"), "bullet");
    EXPECT_EQ(text.list_kind("pepper"), "bullet");
    EXPECT_EQ(text.list_kind("stir"), "number 1");
    EXPECT_EQ(text.list_kind("serve"), "number 1");
    EXPECT_FALSE(text.paragraph("between").in_list());
}

TEST_F(OfficeSuite, ThePictureHasItsSize) {
    const FlatText text = converted(0);
    ASSERT_EQ(text.pictures.size(), 1u);
    EXPECT_EQ(text.pictures[0].width, "1in");
    EXPECT_EQ(text.pictures[0].height, "0.5in");
    const QImage image = QImage::fromData(text.pictures[0].bytes);
    ASSERT_EQ(image.size(), QSize(4, 2));
    EXPECT_EQ(image.pixelColor(3, 1), QColor(0, 255, 0));
}

}  // namespace
}  // namespace tavernook::rtf
