#include "screens/text/recipe_look.h"

#include <QTextBlock>
#include <QTextEdit>
#include <QTextList>
#include <algorithm>

namespace tavernook {

namespace {

constexpr int most_bullets = 500;

QString family_of(const QTextCharFormat& format, const QFont& standard) {
    const QStringList families = format.fontFamilies().toStringList();
    return families.isEmpty() ? standard.family() : families.front();
}

double points_of(const QTextCharFormat& format, const QFont& standard) {
    return format.fontPointSize() > 0 ? format.fontPointSize() : standard.pointSizeF();
}

SelectionLook look_of(const QTextCharFormat& format, const QFont& standard) {
    SelectionLook look;
    look.bold = format.fontWeight() >= QFont::DemiBold;
    look.italic = format.fontItalic();
    look.underline = format.fontUnderline();
    look.family = family_of(format, standard);
    look.points = points_of(format, standard);
    look.automatic_colour = format.foreground().style() == Qt::NoBrush;
    if (!look.automatic_colour) look.colour = format.foreground().color().rgb();
    return look;
}

void keep_common(SelectionLook& look, const SelectionLook& other) {
    look.bold = look.bold && other.bold;
    look.italic = look.italic && other.italic;
    look.underline = look.underline && other.underline;
    look.automatic_colour = look.automatic_colour && other.automatic_colour;
    if (look.family != other.family) look.family.clear();
    if (look.points != other.points) look.points = 0;
    if (look.colour != other.colour) look.colour.reset();
}

// The last block is out when the selection ends before its first character.
QTextBlock block_behind(const QTextCursor& cursor) {
    const QTextDocument& document = *cursor.document();
    QTextBlock last = document.findBlock(cursor.selectionEnd());
    const bool only_touched = cursor.hasSelection() && cursor.selectionEnd() == last.position();
    return only_touched ? last : last.next();
}

template <typename Visit>
void for_each_block(const QTextCursor& cursor, Visit visit) {
    const QTextBlock end = block_behind(cursor);
    QTextBlock block = cursor.document()->findBlock(cursor.selectionStart());
    for (; block.isValid() && block != end; block = block.next()) visit(block);
}

void look_at_characters(const QTextEdit& text, SelectionLook& look) {
    const QTextCursor cursor = text.textCursor();
    const QFont standard = text.document()->defaultFont();
    bool first = true;
    for_each_block(cursor, [&](const QTextBlock& block) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment piece = part.fragment();
            const int end = piece.position() + piece.length();
            if (piece.position() >= cursor.selectionEnd() || end <= cursor.selectionStart()) {
                continue;
            }
            if (piece.charFormat().isImageFormat()) continue;
            const SelectionLook here = look_of(piece.charFormat(), standard);
            if (first) look = here;
            if (!first) keep_common(look, here);
            first = false;
        }
    });
    if (first) look = look_of(text.currentCharFormat(), standard);
}

Qt::Alignment side_of(const QTextBlock& block) {
    const Qt::Alignment side = block.blockFormat().alignment() & Qt::AlignHorizontal_Mask;
    for (const auto one : {Qt::AlignHCenter, Qt::AlignRight, Qt::AlignJustify}) {
        if (side & one) return one;
    }
    return Qt::AlignLeft;
}

bool has_bullet(const QTextBlock& block) {
    const QTextList* list = block.textList();
    if (list == nullptr) return false;
    const QTextListFormat::Style style = list->format().style();
    return style == QTextListFormat::ListDisc || style == QTextListFormat::ListCircle ||
           style == QTextListFormat::ListSquare;
}

}  // namespace

SelectionLook selection_look(const QTextEdit& text) {
    SelectionLook look;
    look_at_characters(text, look);
    const QTextCursor cursor = text.textCursor();
    bool first = true;
    for_each_block(cursor, [&](const QTextBlock& block) {
        const Qt::Alignment side = side_of(block);
        if (first) look.alignment = side;
        if (look.alignment != side) look.alignment.reset();
        look.bullet = has_bullet(block) && (first || look.bullet);
        first = false;
    });
    return look;
}

void set_bullets(QTextEdit& text, bool wanted) {
    QTextCursor cursor = text.textCursor();
    QTextListFormat bullets;
    bullets.setStyle(QTextListFormat::ListDisc);
    QTextList* added = nullptr;
    cursor.beginEditBlock();
    for_each_block(text.textCursor(), [&](const QTextBlock& block) {
        if (has_bullet(block) == wanted) return;
        QTextCursor here(block);
        // The time for each entry grows with their number.
        if (wanted && (added == nullptr || added->count() >= most_bullets)) {
            added = here.createList(bullets);
        } else if (wanted) {
            added->add(block);
        } else {
            QTextBlockFormat format = block.blockFormat();
            format.setObjectIndex(-1);
            here.setBlockFormat(format);
        }
    });
    cursor.endEditBlock();
}

}  // namespace tavernook
