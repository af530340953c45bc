// What a recipe's text takes from the clipboard and from drops, and what it gives. Everything that
// comes in passes through the form that recipes are kept in, so that what is seen is what will be
// saved; a page from elsewhere brings only the pictures that it carries.
#pragma once

#include <QByteArray>
#include <QTextCursor>
#include <optional>
#include <string>
#include <string_view>

#include "rich_text/rtf_model.h"

class QFont;
class QMimeData;
class QTextDocument;

namespace tavernook {

bool is_of_files(const QMimeData& data);

// Files, and rows of the program's own lists: nothing to be dropped on a text.
bool is_no_text(const QMimeData& data);

// Empty when there is none.
QByteArray rich_text_in(const QMimeData& data);

// Nothing when it cannot be read or there is nothing to see in it.
std::optional<rtf::Content> content_in(std::string_view rich_text);

// A page as rich text. It reaches for no file and no address.
std::string rich_text_of_page(const QString& html, const QFont& font);

// In place of the selection, as one step of undo. A single paragraph gives its words only, without
// its own form.
void insert_document(QTextCursor cursor, const QTextDocument& document);

// The selection as plain text, page and rich text, with its pictures, as the place where it is
// pasted may be another recipe or another program.
QMimeData* selection_data(const QTextDocument& document, const QTextCursor& selection);

}  // namespace tavernook
