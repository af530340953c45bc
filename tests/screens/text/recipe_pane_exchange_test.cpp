// Pictures, the clipboard and drops.
#include <QBuffer>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>
#include <cstdint>
#include <fstream>

#include "screens/text/recipe_pane_fixture.h"

namespace tavernook {
namespace {

void append_number(std::string& bytes, std::uint32_t number, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xFF);
}

// A Windows bitmap of two dots, byte by byte: blue at the left, green at the right.
std::string bitmap_of_two_dots(std::uint32_t told_width = 2, std::uint32_t told_height = 1) {
    std::string bytes = "BM";
    append_number(bytes, 62, 4);  // length
    append_number(bytes, 0, 4);
    append_number(bytes, 54, 4);  // where the dots begin
    append_number(bytes, 40, 4);  // the second head
    append_number(bytes, told_width, 4);
    append_number(bytes, told_height, 4);
    append_number(bytes, 1, 2);
    append_number(bytes, 24, 2);
    for (int i = 0; i < 6; ++i) append_number(bytes, 0, 4);
    bytes += std::string("\xFF\x00\x00\x00\xFF\x00\x00\x00", 8);
    return bytes;
}

class RecipePaneExchange : public RecipePaneTest {
  protected:
    std::string file_with(const std::string& name, const std::string& bytes) {
        const std::string path = platform.path(name);
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    void insert_image(std::optional<std::string> path) {
        platform.dialogs.expect_open("Insert Picture", std::move(path))
            .filter("Bitmap Files (*.bmp)|*.bmp");
        click("picture");
    }
    void paste(QMimeData* data) {
        QApplication::clipboard()->setMimeData(data);
        press("Ctrl+V");
    }
    // Whether the pane takes the drop; it is dropped where it is taken.
    bool drop(const QMimeData& data) {
        QWidget* target = text().viewport();
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &enter);
        QDropEvent event(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &event);
        return enter.isAccepted();
    }
    static std::string data_address(const QImage& picture) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "PNG");
        return "data:image/png;base64," + bytes.toBase64().toStdString();
    }
};

TEST_F(RecipePaneExchange, ABitmapComesAtTheCaret) {
    pane.load(R"({\rtf1 Soup\par})");
    put_caret(2);
    insert_image(file_with("soup.bmp", bitmap_of_two_dots()));
    EXPECT_EQ(text().toPlainText(), QStringLiteral("So\uFFFCup"));
    const auto pictures = saved_pictures();
    ASSERT_EQ(pictures.size(), 1u);
    ASSERT_EQ(pictures[0].image.size(), QSize(2, 1));
    EXPECT_EQ(pictures[0].image.pixelColor(0, 0), QColor(0, 0, 255));
    EXPECT_EQ(pictures[0].image.pixelColor(1, 0), QColor(0, 255, 0));
    EXPECT_TRUE(pane.is_changed());
    EXPECT_TRUE(text().hasFocus());
    press("Ctrl+Z");
    EXPECT_EQ(text().toPlainText(), "Soup");
}

TEST_F(RecipePaneExchange, LettersBehindAPictureLookLikeThoseBeforeIt) {
    pane.load(R"({\rtf1{\fonttbl{\f0 Arial;}}\b\fs36 Soup\par})");
    put_caret(4);
    ASSERT_TRUE(pane.insert_picture(plain_picture(4, 2)));
    ASSERT_TRUE(pane.insert_picture(plain_picture(4, 2)));
    type("salt");
    EXPECT_EQ(saved_look("salt").fontWeight(), QFont::Bold);
    EXPECT_EQ(saved_look("salt").fontPointSize(), 18);
}

TEST_F(RecipePaneExchange, ACancelledDialogChangesNothing) {
    insert_image(cancelled);
    EXPECT_FALSE(pane.is_changed());
}

TEST_F(RecipePaneExchange, AFileThatIsNoPictureIsTold) {
    platform.boxes.expect_message("This file holds no picture that can be shown.");
    insert_image(file_with("soup.bmp", "Boil water"));
    platform.boxes.expect_message("This file holds no picture that can be shown.");
    insert_image(file_with("empty.bmp", ""));
    EXPECT_FALSE(pane.is_changed());
}

TEST_F(RecipePaneExchange, AnEnormousPictureIsToldBeforeItIsDrawn) {
    platform.boxes.expect_message(
        "This picture is too large for a recipe. Please make it smaller first.");
    insert_image(file_with("soup.bmp", bitmap_of_two_dots(6000, 5001)));
    EXPECT_FALSE(pane.is_changed());
}

TEST_F(RecipePaneExchange, AFileThatIsGoneIsTold) {
    platform.boxes.expect_message("there has been an error");
    insert_image(platform.path("gone.bmp"));
    EXPECT_FALSE(pane.is_changed());
}

TEST_F(RecipePaneExchange, PicturesWithoutDotsOrWithTooManyAreRefused) {
    EXPECT_FALSE(pane.insert_picture(QImage()));
    EXPECT_FALSE(pane.insert_picture(QImage(6000, 5001, QImage::Format_Mono)));
    EXPECT_FALSE(pane.is_changed());
}

// What is read again takes no further picture beyond 100 million dots.
TEST_F(RecipePaneExchange, PicturesThatAreTooMuchTogetherAreRefused) {
    pane.hide();
    QImage large(5000, 6000, QImage::Format_Mono);
    large.fill(0);
    for (int count = 0; count < 3; ++count) ASSERT_TRUE(pane.insert_picture(large));
    pane.set_unchanged();
    EXPECT_FALSE(pane.insert_picture(large));
    platform.boxes.expect_message("The recipe has no room for a further picture of this size.");
    const std::string path = platform.path("large.bmp");
    ASSERT_TRUE(large.save(QString::fromStdString(path)));
    insert_image(path);
    EXPECT_FALSE(pane.is_changed());
    EXPECT_TRUE(pane.insert_picture(plain_picture(4, 2)));
}

TEST_F(RecipePaneExchange, AFileThatIsLongerThanAnyPictureIsNotRead) {
    const std::string path = platform.path("long.bmp");
    platform.disk.open(path, OpenMode::read_write)->write(120'004'096, "x");
    platform.boxes.expect_message(
        "This picture is too large for a recipe. Please make it smaller first.");
    insert_image(path);
    EXPECT_FALSE(pane.is_changed());
}

TEST_F(RecipePaneExchange, TheBarcodeOfARecipeComesAtTheCaret) {
    pane.load(R"({\rtf1 Soup\par})");
    pane.insert_barcode_of(7);
    EXPECT_TRUE(text().toPlainText().startsWith(QChar::ObjectReplacementCharacter));
    const auto pictures = saved_pictures();
    ASSERT_EQ(pictures.size(), 1u);
    const QImage file(QString::fromStdString(platform.system.program_folder() + "/barcode/m7.bmp"));
    ASSERT_FALSE(file.isNull());
    EXPECT_EQ(pictures[0].image.convertToFormat(QImage::Format_RGB32),
              file.convertToFormat(QImage::Format_RGB32));
}

TEST_F(RecipePaneExchange, PlainTextIsPastedInTheLookOfTheCaret) {
    pane.load(R"({\rtf1\b Soup\par})");
    put_caret(4);
    auto* data = new QMimeData;
    data->setText("m3 <of> salt");
    paste(data);
    EXPECT_EQ(saved_text(), "Soupm3 <of> salt");
    EXPECT_EQ(saved_look("salt").fontWeight(), QFont::Bold);
}

TEST_F(RecipePaneExchange, APageIsPastedWithItsLooksAndPictures) {
    auto* data = new QMimeData;
    const QString picture = QString::fromStdString(data_address(plain_picture(3, 5, Qt::blue)));
    data->setHtml("<p>Boil <b>water</b> <img src='" + picture + "'></p>");
    data->setText("Boil water");
    paste(data);
    EXPECT_EQ(saved_look("water").fontWeight(), QFont::Bold);
    const auto pictures = saved_pictures();
    ASSERT_EQ(pictures.size(), 1u);
    EXPECT_EQ(pictures[0].image.size(), QSize(3, 5));
    EXPECT_EQ(pictures[0].image.pixelColor(1, 1), QColor(Qt::blue));
}

TEST_F(RecipePaneExchange, APastedPageReachesForNoFile) {
    const std::string path = platform.path("private.png");
    plain_picture(3, 3).save(QString::fromStdString(path));
    auto* data = new QMimeData;
    data->setHtml(QString::fromStdString("<p>Soup<img src='file://" + path + "'></p>"));
    paste(data);
    EXPECT_TRUE(saved_text().starts_with("Soup"));
    EXPECT_TRUE(saved_pictures().empty());
}

TEST_F(RecipePaneExchange, APictureIsPasted) {
    auto* data = new QMimeData;
    data->setImageData(plain_picture(4, 2));
    paste(data);
    ASSERT_EQ(saved_pictures().size(), 1u);
    EXPECT_EQ(saved_pictures()[0].image.size(), QSize(4, 2));
}

TEST_F(RecipePaneExchange, APastedPictureThatIsTooLargeIsTold) {
    auto* data = new QMimeData;
    data->setImageData(QImage(6000, 5001, QImage::Format_Grayscale8));
    platform.boxes.expect_message(
        "This picture is too large for a recipe, there is no room for it, or it cannot be shown.");
    paste(data);
    QCoreApplication::processEvents();
    EXPECT_FALSE(pane.is_changed());
}

TEST_F(RecipePaneExchange, RichTextIsPastedRatherThanItsPageOrItsPicture) {
    auto* data = new QMimeData;
    data->setData("text/rtf", R"({\rtf1 salt \i and\i0  pepper\par})");
    data->setHtml("<p>poorer</p>");
    data->setImageData(plain_picture(4, 2));
    type("Soup, ");
    paste(data);
    EXPECT_EQ(saved_text(), "Soup, salt and pepper");
    EXPECT_TRUE(saved_look("and").fontItalic());
}

TEST_F(RecipePaneExchange, DamagedRichTextGivesWayToTheText) {
    auto* data = new QMimeData;
    data->setData("text/rtf", R"({\rtf1 cut sho)");
    data->setText("cut short");
    paste(data);
    EXPECT_EQ(saved_text(), "cut short");
}

TEST_F(RecipePaneExchange, APictureIsCarriedToAnotherRecipe) {
    ASSERT_TRUE(pane.insert_picture(plain_picture(4, 2, Qt::green)));
    pane.add_text(" first");
    press("Ctrl+A");
    press("Ctrl+C");
    pane.load(R"({\rtf1 second\par})");
    ASSERT_TRUE(pane.insert_picture(plain_picture(9, 9, Qt::red)));
    text().moveCursor(QTextCursor::End);
    press("Ctrl+V");
    const auto pictures = saved_pictures();
    ASSERT_EQ(pictures.size(), 2u);
    EXPECT_EQ(pictures[0].image.size(), QSize(9, 9));
    EXPECT_EQ(pictures[1].image.size(), QSize(4, 2));
    EXPECT_EQ(pictures[1].image.pixelColor(0, 0), QColor(0, 255, 0));
}

TEST_F(RecipePaneExchange, CutAndPasteMoveAText) {
    pane.load(R"({\rtf1 \b strong\b0  soup\par})");
    select("strong");
    press("Ctrl+X");
    EXPECT_EQ(saved_text(), " soup");
    text().moveCursor(QTextCursor::End);
    press("Ctrl+V");
    EXPECT_EQ(saved_text(), " soupstrong");
    EXPECT_EQ(saved_look("strong").fontWeight(), QFont::Bold);
}

TEST_F(RecipePaneExchange, AWordTakesNoParagraphFormWithIt) {
    pane.load(R"({\rtf1\pard one \par\pard\qc centred\par
\pard{\pntext\'B7\tab}{\*\pn\pnlvlblt{\pntxtb\'B7}}\fi-360\li720 listed\par})");
    for (const char* word : {"centred", "listed"}) {
        select(word);
        press("Ctrl+C");
        put_caret(4);
        press("Ctrl+V");
        EXPECT_FALSE(saved_paragraph(0).blockFormat().alignment() & Qt::AlignHCenter) << word;
        EXPECT_EQ(saved_paragraph(0).textList(), nullptr) << word;
    }
    EXPECT_EQ(saved_paragraph(0).text(), "one listedcentred");
}

TEST_F(RecipePaneExchange, CopiedParagraphsKeepTheirForms) {
    pane.load(R"({\rtf1\pard\qc centred\par\pard\qr right\par})");
    press("Ctrl+A");
    press("Ctrl+C");
    pane.clear();
    press("Ctrl+V");
    EXPECT_EQ(saved_text(), "centred\nright");
    EXPECT_EQ(saved_paragraph(0).blockFormat().alignment(), Qt::AlignHCenter);
    EXPECT_EQ(saved_paragraph(1).blockFormat().alignment(), Qt::AlignRight);
}

TEST_F(RecipePaneExchange, ACopiedListIsPastedWithoutAnEmptyLine) {
    pane.load(R"({\rtf1\pard{\pntext\'B7\tab}{\*\pn\pnlvlblt{\pntxtb\'B7}}\fi-360\li720 salt\par
{\pntext\'B7\tab}pepper\par})");
    press("Ctrl+A");
    press("Ctrl+C");
    pane.clear();
    press("Ctrl+V");
    EXPECT_EQ(saved_text(), "salt\npepper");
    EXPECT_NE(saved_paragraph(0).textList(), nullptr);
    EXPECT_NE(saved_paragraph(1).textList(), nullptr);
    press("Ctrl+Z");
    EXPECT_EQ(saved_text(), "");
    EXPECT_EQ(saved_paragraph(0).textList(), nullptr);
    type("Take ");
    press("Ctrl+V");
    EXPECT_EQ(saved_text(), "Take \nsalt\npepper");
}

TEST_F(RecipePaneExchange, DroppedFilesAreRefused) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file_with("a.txt", "text")))});
    data.setText("file:///a.txt");
    EXPECT_FALSE(drop(data));
    EXPECT_EQ(saved_text(), "");
}

TEST_F(RecipePaneExchange, WhatTheTreesDragIsRefused) {
    for (const char* dragged : {"i1", "i10000", "m7", "m1000"}) {
        QMimeData data;
        data.setText(QLatin1String(dragged));
        EXPECT_FALSE(drop(data)) << dragged;
    }
    EXPECT_EQ(saved_text(), "");
}

TEST_F(RecipePaneExchange, DroppedTextIsTaken) {
    QMimeData data;
    data.setText("milk");
    EXPECT_TRUE(drop(data));
    EXPECT_EQ(saved_text(), "milk");
}

TEST_F(RecipePaneExchange, AddingATextLeavesTheClipboardAlone) {
    QApplication::clipboard()->setText("hers");
    pane.add_text("salt");
    pane.add_lines({"pepper"});
    ASSERT_TRUE(pane.insert_picture(plain_picture(4, 2)));
    pane.insert_barcode_of(7);
    EXPECT_EQ(QApplication::clipboard()->text(), "hers");
}

}  // namespace
}  // namespace tavernook
