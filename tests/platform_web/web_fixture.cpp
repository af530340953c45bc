#include "platform_web/web_fixture.h"

#include <QBuffer>
#include <QImage>
#include <QWidget>

namespace tavernook {

WebLibrary& web_library() {
    static WebLibrary library({TAVERNOOK_WEB_FOLDER});
    return library;
}

WebTest::WebTest() : view(web_library().make()) {
    view->widget().resize(800, 600);
}

bool WebTest::show(const std::string& bytes, const std::string& name) {
    write_whole_file(folder.path(name), bytes);
    return navigate(folder.path(name));
}

bool WebTest::navigate(const std::string& path) {
    std::optional<bool> shown;
    view->navigate(path, [&](bool is_shown) { shown = is_shown; });
    EXPECT_TRUE(comes_true([&] { return shown.has_value(); }));
    return shown.value_or(false);
}

std::optional<std::string> WebTest::read() {
    bool is_read = false;
    std::optional<std::string> page;
    view->read_page([&](std::optional<std::string> bytes) {
        page = std::move(bytes);
        is_read = true;
    });
    EXPECT_TRUE(comes_true([&] { return is_read; }));
    return page;
}

bool WebTest::prints(const std::shared_ptr<QPrinter>& printer) {
    std::optional<bool> printed;
    view->print(
        printer, [](int) {}, [&](bool is_printed) { printed = is_printed; });
    EXPECT_TRUE(comes_true([&] { return printed.has_value(); }));
    return printed.value_or(false);
}

QWidget& WebTest::drawn_page() {
    QWidget* page = view->widget().focusProxy();
    return page != nullptr ? *page : view->widget();
}

void WebTest::edit() {
    view->set_design_mode_on();
    read();
}

void WebTest::click_and_type(const QString& text) {
    QTest::mouseClick(&drawn_page(), Qt::LeftButton, {}, QPoint(9, 17));
    QTest::keyClicks(&drawn_page(), text);
}

std::string page_around(const std::string& body) {
    return "<html><head><meta http-equiv='Content-Type' content='text/html; charset=windows-1252'>"
           "<title>before</title></head><body>" +
           body + "</body></html>";
}

std::string small_png(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes.toStdString();
}

int occurrences(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

}  // namespace tavernook
