#include "platform_web/page_bytes.h"

#include <QBuffer>
#include <QImage>
#include <array>
#include <string>

#include "basics/code_page.h"
#include "platform_web/page_folder.h"

namespace tavernook {

namespace {

constexpr qsizetype length_of_sign = 12;

QString policy_with_pictures_of(const QString& sources) {
    return QStringLiteral(
               "default-src 'none'; img-src %1; style-src 'unsafe-inline'; "
               "form-action 'none'; base-uri 'none'")
        .arg(sources);
}

// A code in the label font is one line, blanks and all, and its name stays with it on paper. The
// attribute by itself does not bring the font: engines of today take no name from it that begins
// with a digit.
constexpr char label_mark[] = "face=\"3 of 9 Barcode\"";
constexpr char label_style[] =
    "<style>font[face=\"3 of 9 Barcode\"] { font-family: \"3 of 9 Barcode\"; white-space: pre; } "
    "tr { break-inside: avoid; }</style>";

// Behind the document type, if the page begins with one.
qsizetype start_of_content(const QByteArray& page) {
    static const QByteArray mark = "<!doctype";
    qsizetype start = 0;
    while (start < page.size() && QByteArrayLiteral(" \t\r\n\f").contains(page[start])) ++start;
    if (page.mid(start, mark.size()).toLower() != mark) return 0;
    return page.indexOf('>', start) + 1;  // 0 for one without an end
}

struct PictureKind {
    const char* type;
    QByteArray sign;
};

QByteArray as_png(const QByteArray& bytes) {
    QByteArray png;
    const QImage image = QImage::fromData(bytes);
    QBuffer buffer(&png);
    if (image.isNull() || !buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG")) {
        return {};
    }
    return png;
}

}  // namespace

QString shown_policy() {
    return policy_with_pictures_of(QLatin1String(page_scheme) + QStringLiteral(": data:"));
}

QString saved_policy() {
    return policy_with_pictures_of(QStringLiteral("data:"));
}

QByteArray with_policy(const QByteArray& page) {
    const QByteArray policy = "<meta http-equiv=\"Content-Security-Policy\" content=\"" +
                              shown_policy().toLatin1() + "\">";
    const QByteArray style = page.contains(label_mark) ? label_style : "";
    QByteArray served = page;
    return served.insert(start_of_content(page), policy + style);
}

QByteArray picture_type(const QByteArray& bytes) {
    static const std::array<PictureKind, 5> kinds = {{{"image/png", "\x89PNG\r\n\x1a\n"},
                                                      {"image/jpeg", "\xff\xd8\xff"},
                                                      {"image/gif", "GIF87a"},
                                                      {"image/gif", "GIF89a"},
                                                      {"image/bmp", "BM"}}};
    for (const PictureKind& kind : kinds) {
        if (bytes.startsWith(kind.sign)) return kind.type;
    }
    const bool is_webp = bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP";
    return is_webp && bytes.size() >= length_of_sign ? QByteArray("image/webp") : QByteArray();
}

QString data_address(const QByteArray& bytes) {
    const QByteArray known = picture_type(bytes);
    const QByteArray picture = known.isEmpty() ? as_png(bytes) : bytes;
    if (picture.isEmpty()) return {};
    const QByteArray type = known.isEmpty() ? QByteArray("image/png") : known;
    return QString::fromLatin1("data:" + type + ";base64," + picture.toBase64());
}

std::string page_bytes(const QString& text) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (const char32_t character : text.toStdU32String()) {
        char byte = '?';
        if (byte_from_unicode(character, byte)) {
            bytes += byte;
        } else {
            bytes.append("&#").append(std::to_string(static_cast<unsigned>(character))) += ';';
        }
    }
    return bytes;
}

}  // namespace tavernook
