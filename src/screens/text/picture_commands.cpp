#include "screens/text/picture_commands.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>
#include <algorithm>
#include <limits>

#include "screens/text/fitting_pictures.h"

namespace tavernook {

namespace {

constexpr double largest_side = 1900;
constexpr double smallest_width = 16;
constexpr double step_factor = 1.25;

// Null where no picture stands there.
QTextCursor picture_of_character(const QTextEdit& text, int place) {
    QTextDocument& document = *text.document();
    if (document.characterAt(place) != QChar::ObjectReplacementCharacter) return {};
    QTextCursor cursor(&document);
    cursor.setPosition(place);
    cursor.setPosition(place + 1, QTextCursor::KeepAnchor);
    return cursor.charFormat().isImageFormat() ? cursor : QTextCursor();
}

QRectF area_of(const QTextCursor& picture) {
    const QTextBlock block = picture.document()->findBlock(picture.selectionStart());
    const int place = picture.selectionStart() - block.position();
    const QTextLine line = block.layout()->lineForTextPosition(place);
    if (!line.isValid()) return {};
    const double left = line.cursorToX(place);
    const QRectF area(left, line.y(), line.cursorToX(place + 1) - left, line.height());
    return area.normalized().translated(block.layout()->position());
}

}  // namespace

QTextCursor picture_at_caret(const QTextEdit& text) {
    const QTextCursor caret = text.textCursor();
    const int start = caret.selectionStart();
    const int length = caret.selectionEnd() - start;
    if (length > 1) return {};
    const QTextCursor behind = picture_of_character(text, start);
    if (length == 1 || !behind.isNull() || start == 0) return behind;
    return picture_of_character(text, start - 1);
}

QTextCursor picture_at(const QTextEdit& text, const QPoint& place) {
    const QPointF point =
        place + QPoint(text.horizontalScrollBar()->value(), text.verticalScrollBar()->value());
    const int hit = text.document()->documentLayout()->hitTest(point, Qt::FuzzyHit);
    for (const int character : {hit, hit - 1}) {
        const QTextCursor picture = picture_of_character(text, character);
        if (!picture.isNull() && area_of(picture).contains(point)) return picture;
    }
    return {};
}

void insert_picture_paragraph(QTextCursor& cursor, const QTextImageFormat& picture) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    QTextCharFormat letters = cursor.charFormat();
    if (letters.isImageFormat()) letters = cursor.blockCharFormat();
    const QTextBlockFormat form = cursor.blockFormat();
    QTextBlockFormat own = form;
    own.setObjectIndex(-1);  // no entry of a list
    if (!cursor.atBlockStart()) {
        cursor.insertBlock(own, letters);
    } else if (!cursor.atBlockEnd()) {
        cursor.setBlockFormat(own);
    }
    const bool goes_on = cursor.atBlockEnd() && cursor.block().next().isValid();
    cursor.insertImage(picture);
    if (goes_on) {
        cursor.movePosition(QTextCursor::NextCharacter);
    } else {
        cursor.insertBlock(form, letters);
    }
    cursor.endEditBlock();
}

QSizeF told_size(const QSize& dots, double widest) {
    const QSizeF size(dots);
    const double longest = std::max(size.width(), size.height());
    const double factor = std::min({1.0, largest_side / longest, widest / size.width()});
    return size * factor;
}

bool resize_picture(QTextCursor picture, PictureStep step, const QSizeF& shown, double room) {
    QTextImageFormat format = picture.charFormat().toImageFormat();
    const QSize dots = picture_dots(*picture.document(), format);
    if (shown.isEmpty()) return false;
    QSizeF size = told_size(dots, std::numeric_limits<double>::max());
    if (step != PictureStep::original || dots.isEmpty()) {
        const double wanted =
            step == PictureStep::larger ? shown.width() * step_factor : shown.width() / step_factor;
        const double tallest_width = largest_side * shown.width() / shown.height();
        const double width =
            std::clamp(wanted, std::min(smallest_width, shown.width()),
                       std::max(std::min({room, largest_side, tallest_width}), smallest_width));
        size = shown * (width / shown.width());
    }
    if (size == QSizeF(format.width(), format.height())) return false;
    format.setWidth(size.width());
    format.setHeight(size.height());
    picture.setCharFormat(format);
    return true;
}

}  // namespace tavernook
