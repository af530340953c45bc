// What a recipe's text gives to the clipboard, and how a piece of text is put into another.
#pragma once

#include <QTextCursor>

#include "rich_text/rtf_bounds.h"

class QMimeData;
class QTextDocument;

namespace tavernook {

bool is_of_files(const QMimeData& data);

// Files, and rows of the program's own lists: nothing to be dropped on a text.
bool is_no_text(const QMimeData& data);

// In place of the selection, as one step of undo. A single paragraph gives its words only, without
// its own form.
void insert_document(QTextCursor cursor, const QTextDocument& document);

// Parts the caret's paragraph, and lets the caret stand alone between the parts, where the
// paragraph would not be laid out without a wait with such a text in it.
void make_room_in_paragraph(QTextCursor& caret, const rtf::Extent& text);

// The names under which rich text is exchanged.
inline constexpr const char* rich_text_names[] = {"text/rtf", "text/richtext", "application/rtf"};

// The selection as plain text, page and rich text, with its pictures, as the place where it is
// pasted may be another recipe or another program.
QMimeData* selection_data(const QTextDocument& document, const QTextCursor& selection);

}  // namespace tavernook
