// Rich text from any bytes: every file is read or refused, and what was read and written back
// reads as the same text and is written as the same bytes again.
#include <QGuiApplication>
#include <QTextDocument>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "basics/fault.h"
#include "rich_text/rtf_bounds.h"
#include "rich_text/rtf_reader.h"
#include "rich_text/rtf_writer.h"

namespace tavernook {

namespace {

// Writing bigger pictures would take longer than all the rest.
constexpr long long most_pixels_to_write = 100'000;

long long pixels_of(const rtf::Content& content) {
    long long pixels = 0;
    for (const rtf::Picture& picture : content.pictures) {
        pixels += static_cast<long long>(picture.image.width()) * picture.image.height();
    }
    return pixels;
}

void require_equal(const std::string& first, const std::string& again) {
    if (first == again) return;
    std::fprintf(stderr, "first: %s\nagain: %s\n", first.c_str(), again.c_str());
    std::abort();
}

// A fault of the second reading ends the run: what the program wrote it must read. What it
// read is written as the same bytes again, but for the resolution that a picture may lack.
void write_and_read_again(const QTextDocument& document, bool has_pictures) {
    const std::string bytes = rtf::written(document);
    QTextDocument again;
    rtf::read(bytes, again);
    require_equal(document.toPlainText().toStdString(), again.toPlainText().toStdString());
    if (!has_pictures) require_equal(bytes, rtf::written(again));
}

// What is shown of a text that is too much can be laid out without a wait.
void require_light(const QString& words) {
    rtf::Extent extent = rtf::extent_of(words);
    // Parting the lines makes more of them.
    extent.paragraphs = 0;
    extent.runs = 0;
    if (!rtf::is_light(extent)) std::abort();
}

void read(std::string_view input) {
    rtf::Content content;
    try {
        content = rtf::parse(input);
    } catch (const Fault&) {
        return;
    }
    // As in the program, only a light text is laid out with its looks.
    if (!rtf::is_light(rtf::extent_of(content))) {
        require_light(rtf::with_short_paragraphs(rtf::plain_text(content)));
        return;
    }
    QTextDocument document;
    rtf::fill(document, content);
    if (pixels_of(content) <= most_pixels_to_write) {
        write_and_read_again(document, !content.pictures.empty());
    }
}

}  // namespace

}  // namespace tavernook

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    // Damaged pictures are reported by the hundred.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::read({reinterpret_cast<const char*>(data), size});
    return 0;
}
