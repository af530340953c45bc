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
            .filter(
                "Bitmap Files (*.bmp)|*.bmp|"
                "Photographs (*.jpg;*.jpeg;*.png;*.gif)|*.jpg;*.jpeg;*.png;*.gif");
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
    const std::string& status() const { return platform.main.status[message_panel]; }
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
    EXPECT_EQ(text().toPlainText(), QStringLiteral("So\n\uFFFC\nup"));
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
    QImage large(1600, 1600, QImage::Format_Mono);
    large.fill(0);
    for (int count = 0; count < 39; ++count) ASSERT_TRUE(pane.insert_picture(large));
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

// What reaches for a file would find the picture.
TEST_F(RecipePaneExchange, ADrawingInAPastedPageReachesForNoFile) {
    const std::string path = platform.path("private.png");
    plain_picture(3, 3).save(QString::fromStdString(path));
    const QByteArray drawing = QByteArray::fromStdString(
        "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
        "width='3' height='3'><image xlink:href='file://" +
        path + "' width='3' height='3'/></svg>");
    auto* data = new QMimeData;
    data->setHtml("<p>Soup<img src='data:image/svg+xml;base64," + drawing.toBase64() +
                  "'><img src='data:image/png;base64," + drawing.toBase64() + "'></p>");
    paste(data);
    EXPECT_EQ(saved_text(), "Soup");
    EXPECT_TRUE(saved_pictures().empty());
}

// As the clipboard of the desktop tells of a drawing: it would have the drawing drawn.
class DrawingData : public QMimeData {
  public:
    explicit DrawingData(bool& is_drawn) : is_drawn_(is_drawn) {}
    QStringList formats() const override { return {"image/svg+xml", "application/x-qt-image"}; }
    bool hasFormat(const QString& name) const override { return formats().contains(name); }

  protected:
    QVariant retrieveData(const QString& name, QMetaType) const override {
        if (name != "application/x-qt-image") return QByteArray("<svg/>");
        is_drawn_ = true;
        return plain_drawing();
    }

  private:
    static QImage plain_drawing() { return QImage(3, 3, QImage::Format_RGB32); }

    bool& is_drawn_;
};

TEST_F(RecipePaneExchange, ADrawingAloneIsNeverDrawn) {
    bool is_drawn = false;
    platform.boxes.expect_message(
        "This picture is too large for a recipe, there is no room for it, or it cannot be shown.");
    paste(new DrawingData(is_drawn));
    QCoreApplication::processEvents();
    EXPECT_FALSE(is_drawn);
    EXPECT_TRUE(saved_pictures().empty());
}

TEST_F(RecipePaneExchange, TheDocumentReachesForNoFile) {
    const QString path = QString::fromStdString(platform.path("private.png"));
    plain_picture(3, 3).save(path);
    EXPECT_FALSE(text()
                     .document()
                     ->resource(QTextDocument::ImageResource, QUrl::fromLocalFile(path))
                     .isValid());
}

TEST_F(RecipePaneExchange, APictureOfAPageThatIsTooLargeIsLeftOutAndTold) {
    QImage large(5000, 6001, QImage::Format_Mono);
    large.fill(0);
    auto* data = new QMimeData;
    data->setHtml(QString::fromStdString("<p>Soup<img src='" + data_address(large) + "'></p>"));
    paste(data);
    EXPECT_EQ(saved_text(), "Soup");
    EXPECT_EQ(status(), "A picture of the pasted page is too large and was left out.");
}

TEST_F(RecipePaneExchange, BytesOfAPictureArePasted) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    plain_picture(2000, 1000, Qt::green).save(&buffer, "JPEG");
    auto* data = new QMimeData;
    data->setData("image/jpeg", bytes);
    data->setData("application/x-qt-image", "not drawn");
    paste(data);
    ASSERT_EQ(saved_pictures().size(), 1u);
    EXPECT_EQ(saved_pictures()[0].image.size(), QSize(1600, 800));
}

TEST_F(RecipePaneExchange, APhotographIsKeptSmaller) {
    const std::string path = platform.path("soup.jpg");
    plain_picture(4000, 3000).save(QString::fromStdString(path));
    insert_image(path);
    ASSERT_EQ(saved_pictures().size(), 1u);
    EXPECT_EQ(saved_pictures()[0].image.size(), QSize(1600, 1200));
}

// --- too much of it --------------------------------------------------------------------------

constexpr const char* pasted_plain =
    "The text is too long, or changes its look too often: it was pasted as plain text.";
constexpr const char* no_room = "The recipe has no room for so long a text. Nothing was pasted.";

TEST_F(RecipePaneExchange, APageOfTooManyTagsIsPastedAsPlainText) {
    const QString deep =
        QStringLiteral("<b>").repeated(100'000) + "soup" + QStringLiteral("</b>").repeated(100'000);
    const QString many = QStringLiteral("<b>so</b>up ").repeated(30'000);
    const QString pictures = QStringLiteral("<img src='x'>").repeated(20'000);
    const QString wide = "<table><tr><td colspan=100000>x</td></tr></table>";
    const QString table = "<table><tr>" + QStringLiteral("<td>x").repeated(5'000) +
                          QStringLiteral("<tr>").repeated(5'000) + "</table>";
    for (const QString& html : {deep, many, pictures, wide, table}) {
        pane.clear();
        auto* data = new QMimeData;
        data->setHtml(html);
        data->setText("plain soup");
        paste(data);
        EXPECT_EQ(saved_text(), "plain soup") << html.left(10).toStdString();
        EXPECT_EQ(saved_look("plain").fontWeight(), QFont::Normal);
        EXPECT_EQ(status(), pasted_plain);
    }
}

TEST_F(RecipePaneExchange, AnOrdinaryPageIsLight) {
    auto* data = new QMimeData;
    data->setHtml("<style>p { margin: 0 }</style><div>" +
                  QStringLiteral("<p>salt <b>and</b> pepper<br>").repeated(1'000) +
                  "</div><table>" + QStringLiteral("<tr><td>a<td colspan=2>b").repeated(300) +
                  "</table>");
    data->setText("plain");
    paste(data);
    EXPECT_EQ(saved_look("and").fontWeight(), QFont::Bold);
    EXPECT_EQ(status(), "");
}

TEST_F(RecipePaneExchange, APageOfTooManyTagsAloneIsNotPasted) {
    auto* data = new QMimeData;
    data->setHtml(QStringLiteral("<b>").repeated(100'000) + "soup");
    paste(data);
    EXPECT_FALSE(pane.is_changed());
    EXPECT_EQ(status(), "The page is too long for a recipe. Nothing was pasted.");
}

TEST_F(RecipePaneExchange, RichTextOfTooManyLooksIsPastedAsPlainText) {
    std::string bytes = "{\\rtf1 ";
    for (int run = 0; run < 1'000; ++run) bytes += "{\\b a}b";
    auto* data = new QMimeData;
    data->setData("text/rtf", QByteArray::fromStdString(bytes + "}"));
    paste(data);
    EXPECT_EQ(text().toPlainText(), QStringLiteral("ab").repeated(1'000));
    EXPECT_EQ(text().document()->begin().begin().fragment().length(), 2'000);
    EXPECT_EQ(status(), pasted_plain);
}

TEST_F(RecipePaneExchange, AVeryLongParagraphIsPastedInParts) {
    auto* data = new QMimeData;
    data->setText(QStringLiteral("salt ").repeated(80'000));
    paste(data);
    EXPECT_EQ(text().document()->blockCount(), 20);
    QString pasted = text().toPlainText();
    EXPECT_EQ(pasted.remove(u'\n').size(), 400'000);
    EXPECT_EQ(status(), "A very long paragraph was parted into shorter ones.");
}

TEST_F(RecipePaneExchange, TooManyLinesAreNotPasted) {
    type("Soup");
    for (const QString& words :
         {QStringLiteral("a\n").repeated(300'000), QStringLiteral("salt\n").repeated(300'000)}) {
        auto* data = new QMimeData;
        data->setText(words);
        paste(data);
        EXPECT_EQ(saved_text(), "Soup");
        EXPECT_EQ(status(), no_room);
    }
}

TEST_F(RecipePaneExchange, WhatIsThereCountsWithWhatComes) {
    auto* data = new QMimeData;
    data->setText(QStringLiteral("salt\n").repeated(12'000));
    paste(data);
    EXPECT_EQ(text().document()->blockCount(), 12'001);
    EXPECT_EQ(status(), "");
    press("Ctrl+V");
    EXPECT_EQ(text().document()->blockCount(), 12'001);
    EXPECT_EQ(status(), no_room);
}

TEST_F(RecipePaneExchange, APasteMakesNoParagraphTooLong) {
    auto* data = new QMimeData;
    data->setText(QStringLiteral("salt ").repeated(3'000));
    paste(data);
    put_caret(5'000);
    press("Ctrl+V");
    const QStringList lines = text().toPlainText().split(u'\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0].size(), 5'000);
    EXPECT_EQ(lines[1].size(), 15'000);
    EXPECT_EQ(lines[2].size(), 10'000);
    press("Ctrl+Z");
    EXPECT_EQ(text().document()->blockCount(), 1);
}

TEST_F(RecipePaneExchange, APasteMakesNoWordTooLong) {
    auto* data = new QMimeData;
    data->setText(QString(1'500, u'x'));
    paste(data);
    press("Ctrl+V");
    EXPECT_EQ(text().toPlainText(), QString(1'500, u'x') + u'\n' + QString(1'500, u'x') + u'\n');
    const std::string bytes = pane.rich_text();
    EXPECT_TRUE(pane.load(bytes));
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

TEST_F(RecipePaneExchange, AnAddedTextGoesByTheClipboard) {
    QApplication::clipboard()->setText("hers");
    pane.load(R"({\rtf1 Soup\par})");
    put_caret(2);
    pane.add_text("sa\nlt");
    EXPECT_EQ(QApplication::clipboard()->text(), "sa\nlt");
    EXPECT_EQ(saved_text(), "Sosa\nltup");
    press("Ctrl+V");
    EXPECT_EQ(saved_text(), "Sosa\nltsa\nltup");
    pane.set_editable(false);
    pane.add_text("pepper");
    EXPECT_EQ(saved_text(), "Sosa\nltsa\nltup");
}

TEST_F(RecipePaneExchange, LinesAndPicturesLeaveTheClipboardAlone) {
    QApplication::clipboard()->setText("hers");
    pane.add_lines({"pepper"});
    ASSERT_TRUE(pane.insert_picture(plain_picture(4, 2)));
    pane.insert_barcode_of(7);
    EXPECT_EQ(QApplication::clipboard()->text(), "hers");
}

}  // namespace
}  // namespace tavernook
