// The clipboard and drops of the recipe's text.
#include <QDragEnterEvent>
#include <QMimeData>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QUrl>
#include <algorithm>
#include <string>

#include "core/trap.h"
#include "rich_text/rtf_reader.h"
#include "rich_text/rtf_writer.h"
#include "screens/text/fitting_pictures.h"
#include "screens/text/recipe_text.h"

namespace tavernook {

namespace {

const char* const rich_text_names[] = {"text/rtf", "text/richtext", "application/rtf"};

// A pasted page reaches for no file and no address: only the pictures that it carries count.
class PastedPage : public QTextDocument {
  protected:
    QVariant loadResource(int type, const QUrl& name) override {
        const bool carried = type == ImageResource && name.scheme() == QLatin1String("data");
        return carried ? QTextDocument::loadResource(type, name) : QVariant();
    }
};

bool is_of_files(const QMimeData& data) {
    const QList<QUrl> addresses = data.urls();
    return std::any_of(addresses.begin(), addresses.end(),
                       [](const QUrl& address) { return address.isLocalFile(); });
}

// What the program's own trees drag about: "i" or "m" and a number.
bool is_of_own_trees(const QMimeData& data) {
    static const QRegularExpression form(QStringLiteral("^[im][0-9]{1,5}$"));
    return !data.hasHtml() && data.hasText() && form.match(data.text()).hasMatch();
}

bool is_no_text(const QMimeData& data) {
    return is_of_files(data) || is_of_own_trees(data);
}

bool shows_nothing(const rtf::Content& content) {
    return std::all_of(content.paragraphs.begin(), content.paragraphs.end(),
                       [](const rtf::Paragraph& paragraph) { return paragraph.runs.empty(); });
}

QByteArray rich_text_in(const QMimeData& data) {
    for (const char* name : rich_text_names) {
        const QByteArray bytes = data.data(QLatin1String(name));
        if (!bytes.isEmpty()) return bytes;
    }
    return {};
}

// Words from one paragraph, without the paragraph's own form.
void insert_words(QTextCursor cursor, const QTextBlock& words) {
    for (auto part = words.begin(); !part.atEnd(); ++part) {
        const QTextFragment piece = part.fragment();
        cursor.insertText(piece.text(), piece.charFormat());
    }
}

// Lists begin under an empty line instead of in it: that line goes.
void insert_paragraphs(QTextCursor cursor, const QTextDocumentFragment& paragraphs, int count) {
    const QTextDocument& document = *cursor.document();
    const int before = document.blockCount();
    const int place = cursor.position();
    const bool on_empty_line = cursor.block().length() == 1;
    cursor.insertFragment(paragraphs);
    if (!on_empty_line || document.blockCount() < before + count) return;
    cursor.setPosition(place);
    cursor.deleteChar();
}

void insert_document(QTextCursor cursor, const QTextDocument& document) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    if (document.blockCount() == 1) {
        insert_words(cursor, document.begin());
    } else {
        insert_paragraphs(cursor, QTextDocumentFragment(&document), document.blockCount());
    }
    cursor.endEditBlock();
}

int paragraphs_in(const QTextCursor& cursor) {
    const QTextDocument& document = *cursor.document();
    return document.findBlock(cursor.selectionEnd()).blockNumber() -
           document.findBlock(cursor.selectionStart()).blockNumber() + 1;
}

}  // namespace

void RecipeText::dragEnterEvent(QDragEnterEvent* event) {
    if (is_no_text(*event->mimeData())) return event->ignore();
    QTextEdit::dragEnterEvent(event);
}

void RecipeText::dragMoveEvent(QDragMoveEvent* event) {
    if (is_no_text(*event->mimeData())) return event->ignore();
    QTextEdit::dragMoveEvent(event);
}

void RecipeText::dropEvent(QDropEvent* event) {
    if (is_no_text(*event->mimeData())) return event->ignore();
    QTextEdit::dropEvent(event);
}

bool RecipeText::canInsertFromMimeData(const QMimeData* source) const {
    if (source->hasImage()) return true;
    return !is_of_files(*source) &&
           (!rich_text_in(*source).isEmpty() || QTextEdit::canInsertFromMimeData(source));
}

void RecipeText::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || !canInsertFromMimeData(source)) return;
    if (insert_rich_text(rich_text_in(*source).toStdString())) return;
    if (source->hasImage()) {
        if (!insert_picture(qvariant_cast<QImage>(source->imageData()))) Q_EMIT picture_refused();
        return;
    }
    if (source->hasHtml() && insert_html(source->html())) return;
    if (source->hasText()) textCursor().insertText(source->text());
    ensureCursorVisible();
}

// False, and nothing is changed, when there is nothing to see in it.
bool RecipeText::insert_rich_text(std::string_view bytes) {
    rtf::Content content;
    const bool read = trap([&] { content = rtf::parse(bytes); }, [](const Fault&) {});
    if (!read || shows_nothing(content)) return false;
    insert_content(content);
    return true;
}

bool RecipeText::insert_html(const QString& html) {
    PastedPage page;
    page.setDefaultFont(document()->defaultFont());
    page.setHtml(html);
    return insert_rich_text(rtf::written(page));
}

void RecipeText::insert_content(const rtf::Content& content) {
    long long dots = 0;
    for (const rtf::Picture& picture : content.pictures) dots += dots_of(picture.image);
    if (dots > 0 && !has_room_for(dots)) return Q_EMIT picture_refused();
    QTextDocument piece;
    piece.setDefaultFont(document()->defaultFont());
    rtf::fill(piece, content);
    for_each_picture(piece, [&](QTextCursor place, QTextImageFormat format) {
        const QVariant picture = piece.resource(QTextDocument::ImageResource, format.name());
        format.setName(add_picture(picture.value<QImage>()));
        place.setCharFormat(format);
    });
    insert_document(textCursor(), piece);
    ensureCursorVisible();
}

// With its pictures, as the place where it is pasted may be another recipe or another program.
QMimeData* RecipeText::createMimeDataFromSelection() const {
    QTextDocument piece;
    piece.setDefaultFont(document()->defaultFont());
    const QTextDocumentFragment selected = textCursor().selection();
    insert_paragraphs(QTextCursor(&piece), selected, paragraphs_in(textCursor()));
    for_each_picture(piece, [&](const QTextCursor&, const QTextImageFormat& format) {
        const QUrl name(format.name());
        piece.addResource(QTextDocument::ImageResource, name,
                          document()->resource(QTextDocument::ImageResource, name));
    });
    const QByteArray bytes = QByteArray::fromStdString(rtf::written(piece));
    auto* data = new QMimeData;
    data->setText(selected.toPlainText());
    data->setHtml(selected.toHtml());
    for (const char* name : rich_text_names) data->setData(QLatin1String(name), bytes);
    return data;
}

}  // namespace tavernook
