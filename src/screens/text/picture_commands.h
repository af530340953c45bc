// The pictures of a text under the user's hand: which one is meant, where a new one comes, and how
// large one is shown. Lengths are pixels at the true size of the text.
#pragma once

#include <QTextCursor>
#include <QTextImageFormat>

class QTextEdit;
class QPoint;

namespace tavernook {

enum class PictureStep { smaller, larger, original };

// Each selects the picture, or is null where there is none: the one that is selected alone or
// stands beside the caret, and the one at a place of the viewport.
QTextCursor picture_at_caret(const QTextEdit& text);
QTextCursor picture_at(const QTextEdit& text, const QPoint& place);

// In place of the selection, in a paragraph of its own. Leaves the cursor behind it, in the look
// that letters had before; one step of undo.
void insert_picture_paragraph(QTextCursor& cursor, const QTextImageFormat& picture);

// As large as a rich text can tell at most, and no wider than `widest`.
QSizeF told_size(const QSize& dots, double widest);

// `shown` is its size on the page, which is `room` wide. One step of undo. False where it has that
// size already.
bool resize_picture(QTextCursor picture, PictureStep step, const QSizeF& shown, double room);

}  // namespace tavernook
