#include "screens/text/text_exchange.h"

#include <QMimeData>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QUrl>
#include <algorithm>

#include "rich_text/rtf_writer.h"
#include "screens/text/closed_document.h"
#include "screens/text/fitting_pictures.h"

namespace tavernook {

namespace {

// What the program's own trees drag about: "i" or "m" and a number.
bool is_of_own_trees(const QMimeData& data) {
    static const QRegularExpression form(QStringLiteral("^[im][0-9]{1,5}$"));
    return !data.hasHtml() && data.hasText() && form.match(data.text()).hasMatch();
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

int paragraphs_in(const QTextCursor& cursor) {
    const QTextDocument& document = *cursor.document();
    return document.findBlock(cursor.selectionEnd()).blockNumber() -
           document.findBlock(cursor.selectionStart()).blockNumber() + 1;
}

}  // namespace

bool is_of_files(const QMimeData& data) {
    const QList<QUrl> addresses = data.urls();
    return std::any_of(addresses.begin(), addresses.end(),
                       [](const QUrl& address) { return address.isLocalFile(); });
}

bool is_no_text(const QMimeData& data) {
    return is_of_files(data) || is_of_own_trees(data);
}

void make_room_in_paragraph(QTextCursor& caret, const rtf::Extent& text) {
    rtf::Extent joined = rtf::extent_of(caret.block());
    joined.longest_paragraph += text.longest_paragraph;
    joined.longest_word += text.longest_word;
    joined.most_runs_of_paragraph += text.most_runs_of_paragraph;
    if (rtf::is_light(joined)) return;
    caret.removeSelectedText();
    caret.insertBlock();
    caret.insertBlock();
    caret.movePosition(QTextCursor::PreviousBlock);
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

QMimeData* selection_data(const QTextDocument& document, const QTextCursor& selection) {
    ClosedDocument piece;
    piece.setDefaultFont(document.defaultFont());
    const QTextDocumentFragment selected = selection.selection();
    insert_paragraphs(QTextCursor(&piece), selected, paragraphs_in(selection));
    for_each_picture(piece, [&](const QTextCursor&, const QTextImageFormat& format) {
        const QUrl name(format.name());
        piece.addResource(QTextDocument::ImageResource, name,
                          document.resource(QTextDocument::ImageResource, name));
    });
    const QByteArray bytes = QByteArray::fromStdString(rtf::written(piece));
    auto* data = new QMimeData;
    data->setText(selected.toPlainText());
    data->setHtml(selected.toHtml());
    for (const char* name : rich_text_names) data->setData(QLatin1String(name), bytes);
    return data;
}

}  // namespace tavernook
