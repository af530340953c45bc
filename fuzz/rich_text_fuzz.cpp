// Rich text from any bytes: every file is read or refused, and what was read and written back
// reads as the same text.
#include <QGuiApplication>
#include <QTextDocument>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "basics/fault.h"
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

void require_equal(const QString& read_first, const QString& read_again, const std::string& bytes) {
    if (read_first == read_again) return;
    std::fprintf(stderr, "first: %s\nagain: %s\nwritten: %s\n", qUtf8Printable(read_first),
                 qUtf8Printable(read_again), bytes.c_str());
    std::abort();
}

// A fault of the second reading ends the run: what the program wrote it must read.
void write_and_read_again(const QTextDocument& document) {
    const std::string bytes = rtf::written(document);
    QTextDocument again;
    rtf::read(bytes, again);
    require_equal(document.toPlainText(), again.toPlainText(), bytes);
}

void read(std::string_view input) {
    rtf::Content content;
    try {
        content = rtf::parse(input);
    } catch (const Fault&) {
        return;
    }
    QTextDocument document;
    rtf::fill(document, content);
    if (pixels_of(content) <= most_pixels_to_write) write_and_read_again(document);
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
