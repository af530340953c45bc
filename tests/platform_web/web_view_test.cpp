// Showing, editing, inserting, reading; and a renderer that dies.
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPointer>
#include <QUrl>
#include <QWidget>
#include <csignal>

#include "basics/fault.h"
#include "platform_web/renderers.h"
#include "platform_web/web_fixture.h"

namespace tavernook {
namespace {

using testing::Test;

class WebViewTest : public WebTest {};

TEST_F(WebViewTest, APageIsShownWithThePicturesOfItsFolder) {
    write_whole_file(folder.path("point.png"), small_png());
    ASSERT_TRUE(show(page_around("<p>Milk</p><img src='point.png'>")));
    const std::string page = read().value();
    EXPECT_NE(page.find("<p>Milk</p>"), std::string::npos);
    EXPECT_NE(page.find("<img src=\"data:image/png;base64,"), std::string::npos) << page;
}

TEST_F(WebViewTest, WhatIsNoPageIsTold) {
    EXPECT_FALSE(navigate(folder.path("none.htm")));
    EXPECT_FALSE(read().has_value());
    EXPECT_FALSE(navigate(folder.path()));
    EXPECT_TRUE(show(page_around("Milk")));
}

TEST_F(WebViewTest, AFilmDoesNotHoldThePageUp) {
    EXPECT_TRUE(
        show(page_around("<video src='x.mp4' autoplay></video><audio src='y.mp3'></audio>")));
}

TEST_F(WebViewTest, AnyNameOfAPageWillDo) {
    for (const char* name : {"a b.htm", "100%25 #1?.htm", "K\xc3\xa4se.htm"}) {
        EXPECT_TRUE(show(page_around("Milk"), name)) << name;
        EXPECT_NE(read().value().find("Milk"), std::string::npos) << name;
    }
}

TEST_F(WebViewTest, OnlyPicturesOfTheFolderItselfAreSeen) {
    write_whole_file(folder.path("right.png"), small_png());
    write_whole_file(folder.path("secret.png"), "no picture");
    write_whole_file(folder.path(".hidden.png"), small_png());
    const TempFolder other;
    write_whole_file(other.path("x.png"), small_png());
    const std::string beside = "../" + other.path().substr(other.path().rfind('/') + 1) + "/x.png";
    ASSERT_TRUE(show(page_around("<img src='right.png'><img src='secret.png'><img src='" + beside +
                                 "'><img src='%2e%2e%2fx.png'><img src='file://" +
                                 other.path("x.png") + "'><img src='.hidden.png'>")));
    EXPECT_EQ(occurrences(read().value(), "data:image"), 1);
}

TEST_F(WebViewTest, NothingIsTypedIntoAPageUntilItIsAllowed) {
    view->widget().show();
    ASSERT_TRUE(show(page_around("Milk")));
    click_and_type("x");
    EXPECT_NE(read().value().find("<body>Milk</body>"), std::string::npos);
    edit();
    click_and_type("Fresh");
    EXPECT_TRUE(comes_true([&] { return read().value().find("Fresh") != std::string::npos; }));
}

TEST_F(WebViewTest, KeysReachThePageWithoutTheMouse) {
    view->widget().show();
    ASSERT_TRUE(becomes_active(view->widget()));
    ASSERT_TRUE(show(page_around("<p>Milk</p>")));
    edit();
    drawn_page().setFocus();
    QTest::keyClicks(&drawn_page(), "Fresh ");
    EXPECT_TRUE(comes_true([&] { return read().value().find("Fresh") != std::string::npos; }));
}

TEST_F(WebViewTest, TypingAllowedWhileThePageLoadsHoldsForItAndNotForTheNext) {
    view->widget().show();
    write_whole_file(folder.path("page.htm"), page_around("Milk"));
    bool shown = false;
    view->navigate(folder.path("page.htm"), [&](bool) { shown = true; });
    view->set_design_mode_on();
    ASSERT_TRUE(comes_true([&] { return shown; }));
    ASSERT_TRUE(read().has_value());
    click_and_type("Fresh");
    EXPECT_TRUE(comes_true([&] { return read().value().find("Fresh") != std::string::npos; }));

    ASSERT_TRUE(navigate(folder.path("page.htm")));
    click_and_type("x");
    EXPECT_NE(read().value().find("<body>Milk</body>"), std::string::npos);
}

TEST_F(WebViewTest, APictureOfAnyFolderComesIntoThePage) {
    const TempFolder other;
    write_whole_file(other.path("it's \"mine\".png"), small_png(40, 30));
    write_whole_file(other.path("note.png"), "no picture");
    ASSERT_TRUE(show(page_around("<p>Milk</p>")));
    view->set_design_mode_on();
    EXPECT_TRUE(view->insert_image(other.path("it's \"mine\".png")));
    EXPECT_FALSE(view->insert_image(other.path("note.png")));
    EXPECT_FALSE(view->insert_image(other.path("none.png")));
    EXPECT_FALSE(view->insert_image(other.path()));
    const std::string page = read().value();
    EXPECT_EQ(occurrences(page, "<img src=\"data:image/png;base64,"), 1) << page;
    EXPECT_NE(page.find("max-width: 100%"), std::string::npos);
    EXPECT_LT(page.find("<img"), page.find("Milk"));
}

TEST_F(WebViewTest, APictureOfAKindThatBrowsersDoNotKnowComesAsPng) {
    const std::string pixmap = "P3 1 1 255 255 0 0\n";
    write_whole_file(folder.path("photo.ppm"), pixmap);
    ASSERT_TRUE(show(page_around("Milk")));
    view->set_design_mode_on();
    EXPECT_TRUE(view->insert_image(folder.path("photo.ppm")));
    EXPECT_NE(read().value().find("data:image/png;base64,"), std::string::npos);
}

TEST_F(WebViewTest, CharactersOutsideTheCodePageAreSavedByTheirNumbers) {
    ASSERT_TRUE(show(page_around("Cr\xe8me \x80 5 &#8805; &#128512; &lt;b&gt;")));
    const std::string page = read().value();
    EXPECT_NE(page.find("Cr\xe8me \x80 5 &#8805; &#128512; &lt;b&gt;"), std::string::npos) << page;
    EXPECT_EQ(occurrences(page, "charset=windows-1252"), 1);
}

TEST_F(WebViewTest, ACharsetThatWasOnceTrueIsNotSaved) {
    ASSERT_TRUE(show("<html><head><meta charset='utf-8'></head><body>Cr\xe8me</body></html>"));
    const std::string page = read().value();
    EXPECT_NE(page.find("Cr\xe8me"), std::string::npos) << page;
    EXPECT_EQ(page.find("utf-8"), std::string::npos);
}

TEST_F(WebViewTest, ASavedPageHasOurPolicyOnceAndItsOwn) {
    const std::string own =
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'\">";
    ASSERT_TRUE(show("<!DOCTYPE html><html><head>" + own + "</head><body>Milk</body></html>"));
    const std::string once = read().value();
    EXPECT_EQ(occurrences(once, "Content-Security-Policy"), 2) << once;
    EXPECT_NE(once.find(own), std::string::npos);
    EXPECT_EQ(once.find("<!DOCTYPE html>"), 0u);
    EXPECT_LT(once.find("img-src data:;"), once.find(own));
    ASSERT_TRUE(show(once, "again.htm"));
    EXPECT_EQ(occurrences(read().value(), "Content-Security-Policy"), 2);
}

TEST_F(WebViewTest, ADocumentTypeStaysInFrontOfThePolicy) {
    ASSERT_TRUE(show("\n <!DocType html>\n<html><body><p id=a>Milk</p></body></html>"));
    EXPECT_EQ(read().value().find("<!DOCTYPE html>"), 0u);
}

TEST_F(WebViewTest, FilesDroppedOnThePageGoNowhere) {
    view->widget().show();
    write_whole_file(folder.path("other.htm"), page_around("other"));
    ASSERT_TRUE(show(page_around("Milk")));
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QString::fromStdString(folder.path("other.htm")))});
    QList<QWidget*> parts = view->widget().findChildren<QWidget*>();
    parts.append(&view->widget());
    for (QWidget* part : parts) {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        enter.setAccepted(false);
        QCoreApplication::sendEvent(part, &enter);
        EXPECT_FALSE(enter.isAccepted()) << part->metaObject()->className();
    }
    EXPECT_NE(read().value().find("Milk"), std::string::npos);
}

TEST_F(WebViewTest, LinksLeadNowhere) {
    view->widget().show();
    write_whole_file(folder.path("list.htm"), page_around("the list"));
    ASSERT_TRUE(
        show(page_around("<a href='list.htm' style='position:fixed;inset:0'>To the list</a>")));
    QTest::mouseClick(&drawn_page(), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_NE(read().value().find("To the list"), std::string::npos);
    EXPECT_NE(read().value().find("To the list"), std::string::npos);
}

TEST_F(WebViewTest, ThePageThatWasAskedForLastIsShown) {
    write_whole_file(folder.path("a.htm"), page_around("first"));
    write_whole_file(folder.path("b.htm"), page_around("second"));
    std::vector<bool> told;
    view->navigate(folder.path("a.htm"), [&](bool shown) { told.push_back(shown); });
    view->navigate(folder.path("b.htm"), [&](bool shown) { told.push_back(shown); });
    ASSERT_TRUE(comes_true([&] { return told.size() == 2; }));
    EXPECT_EQ(told, (std::vector<bool>{false, true}));
    EXPECT_NE(read().value().find("second"), std::string::npos);
}

TEST_F(WebViewTest, NothingIsAnsweredOnceTheViewHasGone) {
    ASSERT_TRUE(show(page_around("Milk")));
    const QPointer<QWidget> shown = &view->widget();
    view->read_page([](const auto&) { ADD_FAILURE() << "read"; });
    view->navigate(folder.path("page.htm"), [](bool) { ADD_FAILURE() << "shown"; });
    view.reset();
    EXPECT_TRUE(shown.isNull());
    auto another = web_library().make();
    bool told = false;
    another->navigate(folder.path("page.htm"), [&](bool) { told = true; });
    EXPECT_TRUE(comes_true([&] { return told; }));
}

TEST_F(WebViewTest, TheWidgetMayGoFirst) {
    ASSERT_TRUE(show(page_around("Milk")));
    auto* window = new QWidget;
    view->widget().setParent(window);
    delete window;
    view.reset();
}

TEST_F(WebViewTest, ARendererThatDiesIsToldAndTheNextPageIsShown) {
    int lost = 0;
    view->when_lost([&] { ++lost; });
    ASSERT_TRUE(show(page_around("Milk")));
    ASSERT_TRUE(end_renderers());
    ASSERT_TRUE(comes_true([&] { return lost > 0; }));
    EXPECT_FALSE(read().has_value());
    ASSERT_TRUE(navigate(folder.path("page.htm")));
    EXPECT_NE(read().value().find("Milk"), std::string::npos);
    EXPECT_EQ(lost, 1);
}

TEST(WebLibraryTest, TellsWhatIsMissing) {
    const TempFolder empty;
    try {
        WebLibrary({empty.path()}).make();
        ADD_FAILURE();
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, fault_number::file_not_found);
        EXPECT_EQ(fault.description,
                  "The preview is missing from this installation. Install Tavernook again.");
    }
    write_whole_file(empty.path("libtavernook_web.so"), "cannot be loaded");
    try {
        WebLibrary({empty.path()}).make();
        ADD_FAILURE();
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, fault_number::file_not_found);
        EXPECT_NE(fault.description.find("libqt6webenginewidgets6"), std::string::npos);
    }
}

}  // namespace
}  // namespace tavernook
