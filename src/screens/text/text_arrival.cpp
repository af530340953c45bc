#include "screens/text/text_arrival.h"

#include <QCoreApplication>
#include <QFont>
#include <QMimeData>
#include <algorithm>
#include <string>

#include "rich_text/rtf_pictures.h"
#include "rich_text/rtf_reader.h"
#include "rich_text/rtf_writer.h"
#include "screens/parts/guard.h"
#include "screens/text/closed_document.h"
#include "screens/text/fitting_pictures.h"
#include "screens/text/page_scan.h"
#include "screens/text/text_exchange.h"

namespace tavernook {

namespace {

// Of all pictures of a page together; writing more would be a wait.
constexpr long long most_dots_of_page = 8'000'000;

QString sentence(const char* words) {
    return QCoreApplication::translate("tavernook::RecipeText", words);
}

QByteArray rich_text_in(const QMimeData& data) {
    for (const char* name : rich_text_names) {
        const QByteArray bytes = data.data(QLatin1String(name));
        if (!bytes.isEmpty()) return bytes;
    }
    return {};
}

bool shows_nothing(const rtf::Content& content) {
    return std::all_of(content.paragraphs.begin(), content.paragraphs.end(),
                       [](const rtf::Paragraph& paragraph) { return paragraph.runs.empty(); });
}

// Nothing when it cannot be read or there is nothing to see in it.
std::optional<rtf::Content> content_in(std::string_view rich_text) {
    rtf::Content content;
    const bool is_read = quietly([&] { content = rtf::parse(rich_text); });
    if (!is_read || shows_nothing(content)) return std::nullopt;
    for (rtf::Picture& picture : content.pictures) {
        picture.image = rtf::kept_picture(picture.image);
    }
    return content;
}

// Of "data:image/png;base64,...".
QByteArray bytes_in(const QUrl& address) {
    const QByteArray text = address.toEncoded();
    const qsizetype comma = text.indexOf(',');
    if (comma < 0) return {};
    const QByteArray bytes = QByteArray::fromPercentEncoding(text.mid(comma + 1));
    const bool is_base64 = text.left(comma).toLower().endsWith(";base64");
    return is_base64 ? QByteArray::fromBase64(bytes) : bytes;
}

class PastedPage : public ClosedDocument {
  public:
    bool is_picture_left_out() const { return is_picture_left_out_; }

  protected:
    QVariant loadResource(int type, const QUrl& name) override {
        if (type != ImageResource || name.scheme() != QLatin1String("data")) return {};
        const rtf::RasterPicture picture = rtf::raster_picture(bytes_in(name));
        dots_ += dots_of(picture.image);
        const bool is_too_much = picture.is_too_large || dots_ > most_dots_of_page;
        if (is_too_much) is_picture_left_out_ = true;
        if (is_too_much || picture.image.isNull()) return {};
        addResource(type, name, picture.image);
        return picture.image;
    }

  private:
    long long dots_ = 0;
    bool is_picture_left_out_ = false;
};

// A light page.
Arrival arrival_of_page(const QString& html, const QFont& font) {
    PastedPage page;
    page.setDefaultFont(font);
    page.setHtml(html);
    if (!rtf::is_light(rtf::extent_of(page))) return {.words = page.toPlainText()};
    Arrival arrival{.content = content_in(rtf::written(page))};
    if (page.is_picture_left_out()) {
        arrival.notice = sentence("A picture of the pasted page is too large and was left out.");
    }
    return arrival;
}

// A drawing alone is a picture that cannot be shown; what a program keeps for itself is drawn.
QImage picture_in(const QMimeData& data) {
    static const char* const names[] = {"image/png", "image/jpeg", "image/bmp", "image/x-bmp",
                                        "image/gif"};
    for (const char* name : names) {
        if (!data.hasFormat(QLatin1String(name))) continue;
        const QImage picture = rtf::raster_picture(data.data(QLatin1String(name))).image;
        if (!picture.isNull()) return picture;
    }
    const QStringList formats = data.formats();
    const bool is_in_a_form = std::any_of(formats.begin(), formats.end(), [](const QString& name) {
        return name.startsWith(QLatin1String("image/"));
    });
    return is_in_a_form ? QImage() : qvariant_cast<QImage>(data.imageData());
}

// The paragraphs of the present text count for nothing but their number.
bool has_room_for(const rtf::Extent& piece, const rtf::Extent& present) {
    rtf::Extent both = present + piece;
    both.longest_paragraph = piece.longest_paragraph;
    both.longest_word = piece.longest_word;
    both.most_runs_of_paragraph = piece.most_runs_of_paragraph;
    return rtf::is_light(both);
}

Arrival plain_arrival(const QString& words, const rtf::Extent& present) {
    const QString parted = rtf::with_short_paragraphs(words);
    if (!has_room_for(rtf::extent_of(parted), present)) {
        return {.notice =
                    sentence("The recipe has no room for so long a text. Nothing was pasted.")};
    }
    Arrival arrival{.words = parted};
    if (parted.size() != words.size()) {
        arrival.notice = sentence("A very long paragraph was parted into shorter ones.");
    }
    return arrival;
}

Arrival arrival_without_looks(const QString& words, const rtf::Extent& present) {
    if (words.isEmpty()) {
        return {.notice = sentence("The page is too long for a recipe. Nothing was pasted.")};
    }
    Arrival arrival = plain_arrival(words, present);
    if (!arrival.words.isEmpty()) {
        arrival.notice = sentence(
            "The text is too long, or changes its look too often: it was pasted as plain text.");
    }
    return arrival;
}

QString words_in(const QMimeData& data, const QString& otherwise) {
    return data.hasText() ? data.text() : otherwise;
}

}  // namespace

Arrival arrival_of(const QMimeData& data, const QFont& font, const rtf::Extent& present) {
    Arrival arrival{.content = content_in(rich_text_in(data).toStdString())};
    if (!arrival.content && data.hasImage()) {
        const QImage picture = picture_in(data);
        const bool is_all = !data.hasHtml() && !data.hasText();
        if (is_all || !picture.isNull()) return {.has_picture = true, .picture = picture};
    }
    if (!arrival.content && data.hasHtml()) {
        const QString html = data.html();
        if (!is_light_page(html)) return arrival_without_looks(words_in(data, {}), present);
        arrival = arrival_of_page(html, font);
        if (!arrival.words.isEmpty()) {
            return arrival_without_looks(words_in(data, arrival.words), present);
        }
    }
    if (!arrival.content) return plain_arrival(words_in(data, {}), present);
    if (has_room_for(rtf::extent_of(*arrival.content), present)) return arrival;
    return arrival_without_looks(words_in(data, rtf::plain_text(*arrival.content)), present);
}

bool has_rich_text(const QMimeData& data) {
    return !rich_text_in(data).isEmpty();
}

}  // namespace tavernook
