#include "rich_text/rtf_reader.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextImageFormat>
#include <QTextList>
#include <QUrl>
#include <algorithm>

#include "basics/fault.h"
#include "basics/utf8_mark.h"
#include "rich_text/rtf_bounds.h"
#include "rich_text/rtf_lists.h"
#include "rich_text/rtf_parser.h"

namespace tavernook::rtf {

namespace {

constexpr int twips_in_pixel = 15;

double pixels(int twips) {
    return static_cast<double>(twips) / twips_in_pixel;
}

// Number 0 is the reader's own, or none, also where the table gives it a colour.
std::optional<QColor> colour(const Content& content, int index) {
    if (index <= 0 || static_cast<std::size_t>(index) >= content.colours.size()) return {};
    return content.colours[static_cast<std::size_t>(index)];
}

QTextCharFormat character_format(const Content& content, const CharacterLook& look) {
    QTextCharFormat format;
    const auto font = content.fonts.find(look.font);
    if (font != content.fonts.end() && !font->second.name.isEmpty()) {
        format.setFontFamilies({font->second.name});
    }
    format.setFontPointSize(look.half_points / 2.0);
    if (look.bold) format.setFontWeight(QFont::Bold);
    if (look.italic) format.setFontItalic(true);
    if (look.underline) format.setFontUnderline(true);
    if (look.strike) format.setFontStrikeOut(true);
    if (look.script == Script::superscript) {
        format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    }
    if (look.script == Script::subscript) {
        format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    }
    if (const auto ink = colour(content, look.colour)) format.setForeground(*ink);
    if (const auto paper = colour(content, look.background)) format.setBackground(*paper);
    return format;
}

Qt::Alignment alignment(Alignment side) {
    switch (side) {
        case Alignment::left:
            return Qt::AlignLeft;
        case Alignment::centre:
            return Qt::AlignHCenter;
        case Alignment::right:
            return Qt::AlignRight;
        case Alignment::justified:
            return Qt::AlignJustify;
    }
    return Qt::AlignLeft;
}

QTextBlockFormat block_format(const ParagraphLook& look) {
    QTextBlockFormat format;
    if (look.alignment != Alignment::left) format.setAlignment(alignment(look.alignment));
    if (look.right_to_left) format.setLayoutDirection(Qt::RightToLeft);
    if (look.right != 0) format.setRightMargin(pixels(look.right));
    if (look.before != 0) format.setTopMargin(pixels(look.before));
    if (look.after != 0) format.setBottomMargin(pixels(look.after));
    // A list indents its paragraphs itself.
    if (look.list != ListKind::none) return format;
    if (look.left != 0) format.setLeftMargin(pixels(look.left));
    if (look.first_line != 0) format.setTextIndent(pixels(look.first_line));
    return format;
}

QTextListFormat::Style list_style(ListKind kind) {
    switch (kind) {
        case ListKind::circle:
            return QTextListFormat::ListCircle;
        case ListKind::square:
            return QTextListFormat::ListSquare;
        case ListKind::decimal:
            return QTextListFormat::ListDecimal;
        case ListKind::lower_letter:
            return QTextListFormat::ListLowerAlpha;
        case ListKind::upper_letter:
            return QTextListFormat::ListUpperAlpha;
        case ListKind::lower_roman:
            return QTextListFormat::ListLowerRoman;
        case ListKind::upper_roman:
            return QTextListFormat::ListUpperRoman;
        case ListKind::none:
        case ListKind::disc:
            break;
    }
    return QTextListFormat::ListDisc;
}

class Filler {
  public:
    Filler(QTextDocument& document, const Content& content)
        : document_(document), content_(content), cursor_(&document) {}

    void run() {
        cursor_.beginEditBlock();
        for (std::size_t i = 0; i < content_.paragraphs.size(); ++i) {
            const Paragraph& paragraph = content_.paragraphs[i];
            const QTextBlockFormat format = block_format(paragraph.look);
            const QTextCharFormat ink = block_character_format(paragraph);
            if (i == 0) {
                cursor_.setBlockFormat(format);
                cursor_.setBlockCharFormat(ink);
            } else {
                cursor_.insertBlock(format, ink);
            }
            place_in_list(paragraph);
            for (const Run& piece : paragraph.runs) insert(piece);
        }
        cursor_.endEditBlock();
    }

  private:
    QTextCharFormat block_character_format(const Paragraph& paragraph) {
        return paragraph.runs.empty() ? QTextCharFormat() : format(paragraph.runs.front().look);
    }

    const QTextCharFormat& format(const CharacterLook& look) {
        if (!have_format_ || !(look == look_)) {
            look_ = look;
            format_ = character_format(content_, look);
            have_format_ = true;
        }
        return format_;
    }

    void place_in_list(const Paragraph& paragraph) {
        if (paragraph.list_index < 0) return;
        const auto index = static_cast<std::size_t>(paragraph.list_index);
        if (index < lists_.size()) return lists_[index]->add(cursor_.block());
        QTextListFormat list;
        list.setStyle(list_style(paragraph.look.list));
        list.setIndent(list_indent(paragraph.look));
        lists_.push_back(cursor_.createList(list));
    }

    void insert(const Run& piece) {
        if (piece.picture < 0) {
            cursor_.insertText(piece.text, format(piece.look));
            return;
        }
        const Picture& picture = content_.pictures[static_cast<std::size_t>(piece.picture)];
        QTextImageFormat image;
        image.setName(QStringLiteral("rtf-picture:%1").arg(piece.picture + 1));
        document_.addResource(QTextDocument::ImageResource, QUrl(image.name()), picture.image);
        if (picture.width_twips > 0) image.setWidth(pixels(picture.width_twips));
        if (picture.height_twips > 0) image.setHeight(pixels(picture.height_twips));
        cursor_.insertImage(image);
    }

    QTextDocument& document_;
    const Content& content_;
    QTextCursor cursor_;
    std::vector<QTextList*> lists_;  // as the paragraphs number them
    CharacterLook look_;
    QTextCharFormat format_;
    bool have_format_ = false;
};

}  // namespace

Content parse(std::string_view bytes) {
    if (bytes.starts_with(utf8_mark)) bytes.remove_prefix(utf8_mark.size());
    bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
    if (!bytes.starts_with("{\\rtf")) throw Fault(fault_number::type_mismatch);
    if (bytes.size() > largest_input) throw Fault(fault_number::bad_record_number);
    return Parser(bytes).run();
}

void fill(QTextDocument& document, const Content& content) {
    const bool undo = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    document.clear();
    Filler(document, content).run();
    document.setUndoRedoEnabled(undo);
    document.setModified(false);
}

void read(std::string_view bytes, QTextDocument& document) {
    fill(document, parse(bytes));
}

}  // namespace tavernook::rtf
