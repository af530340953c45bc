#include "rich_text/rtf_writer.h"

#include <QBuffer>
#include <QImage>
#include <QPixmap>
#include <QTextBlock>
#include <QTextFragment>
#include <QTextList>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

#include "basics/code_page.h"
#include "rich_text/rtf_lists.h"
#include "rich_text/rtf_pictures.h"

namespace tavernook::rtf {

namespace {

constexpr int twips_in_pixel = 15;
constexpr double most_pixels = 2000;  // twips have 16 bits
constexpr int twips_in_list_level = 720;
constexpr int twips_in_list_marker = 360;
constexpr int deepest_level = 9;
// A photograph is hardly larger so, and written in a third of the time.
constexpr int quick_png = 85;

int twips(double pixels) {
    return static_cast<int>(
        std::lround(std::clamp(pixels, -most_pixels, most_pixels) * twips_in_pixel));
}

std::string word(const char* name, int parameter) {
    return std::string("\\") + name + std::to_string(parameter);
}

void append_byte(std::string& out, unsigned char byte) {
    static constexpr char digits[] = "0123456789abcdef";
    out += digits[byte >> 4];
    out += digits[byte & 15];
}

void append_unicode(std::string& out, char16_t unit) {
    out += word("u", static_cast<std::int16_t>(unit)) + '?';
}

void append_character(std::string& out, char16_t unit) {
    char byte = 0;
    if (unit == u'\t') {
        out += "\\tab ";
    } else if (unit == 0x2028 || unit == 0x2029) {
        out += "\\line ";
    } else if (unit == 0x00A0) {
        out += "\\~";
    } else if (unit == '\\' || unit == '{' || unit == '}') {
        out += '\\';
        out += static_cast<char>(unit);
    } else if (unit >= 0x20 && unit < 0x7F) {
        out += static_cast<char>(unit);
    } else if (unit >= 0xA0 && unit != 0xAD && byte_from_unicode(unit, byte)) {
        out += "\\'";
        append_byte(out, static_cast<unsigned char>(byte));
    } else if (unit >= 0x80) {
        append_unicode(out, unit);
    }
}

std::string escaped(const QString& text) {
    std::string out;
    out.reserve(static_cast<std::size_t>(text.size()));
    bool after_blank = false;
    for (const QChar character : text) {
        const bool blank = character == u' ';
        // Some word processors widen a row of blanks; an empty group parts it for them.
        if (blank && after_blank) out += "{}";
        append_character(out, character.unicode());
        after_blank = blank;
    }
    return out;
}

QImage image_of(const QTextDocument& document, const QString& name) {
    const QVariant resource = document.resource(QTextDocument::ImageResource, QUrl(name));
    if (resource.canConvert<QImage>()) {
        const QImage image = resource.value<QImage>();
        if (!image.isNull()) return image;
    }
    if (resource.typeId() == QMetaType::QByteArray) {
        return raster_picture(resource.toByteArray()).image;
    }
    return {};
}

// The step of the size that headings from other sources carry instead of points.
double adjusted_size(double points, const QTextCharFormat& format) {
    static constexpr double factors[] = {0.7, 0.8, 1.0, 1.2, 1.5, 2.0, 2.4};
    if (!format.hasProperty(QTextFormat::FontSizeAdjustment)) return points;
    const int step = format.intProperty(QTextFormat::FontSizeAdjustment);
    return points * factors[std::clamp(step + 2, 0, 6)];
}

class Writer {
  public:
    explicit Writer(const QTextDocument& document) : document_(document) {
        font_index(default_family());
    }

    std::string run() {
        for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
            write_block(block);
        }
        return header() + body_ + "}\r\n";
    }

  private:
    struct NumberedList {
        int number = 0;  // from 1, as the paragraphs name it
        int entries = 0;
    };

    QString default_family() const { return document_.defaultFont().family(); }

    std::string header() const {
        std::string out = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl";
        for (std::size_t i = 0; i < fonts_.size(); ++i) {
            QString name = fonts_[i];
            name = name.remove(u';').simplified();
            out += '{';
            out += word("f", static_cast<int>(i)) + "\\fnil\\fcharset0 " + escaped(name) + ";}";
        }
        out += "}\r\n{\\colortbl ;";
        for (const QRgb colour : colours_) {
            out += word("red", qRed(colour)) + word("green", qGreen(colour)) +
                   word("blue", qBlue(colour)) + ";";
        }
        return out + "}\r\n" + list_tables();
    }

    std::string list_tables() const {
        if (numbered_.empty()) return {};
        std::string out = "{\\*\\listtable\r\n" + list_table_ + "}\r\n{\\*\\listoverridetable\r\n";
        for (int number = 1; number <= static_cast<int>(numbered_.size()); ++number) {
            out += "{\\listoverride" + word("listid", number) + "\\listoverridecount0" +
                   word("ls", number) + "}\r\n";
        }
        return out + "}\r\n";
    }

    int font_index(const QString& family) {
        const auto found = std::find(fonts_.begin(), fonts_.end(), family);
        const auto index = static_cast<int>(found - fonts_.begin());
        if (found == fonts_.end()) fonts_.push_back(family);
        return index;
    }

    // 0 means the reader's own colour.
    int colour_index(const QBrush& brush) {
        if (brush.style() == Qt::NoBrush || brush.color().alpha() == 0) return 0;
        const QRgb colour = brush.color().rgb();
        const auto found = std::find(colours_.begin(), colours_.end(), colour);
        const auto index = static_cast<int>(found - colours_.begin());
        if (found == colours_.end()) colours_.push_back(colour);
        return index + 1;
    }

    int half_points(const QTextCharFormat& format) const {
        const QFont standard = document_.defaultFont();
        double points = format.fontPointSize();
        if (points <= 0 && format.hasProperty(QTextFormat::FontPixelSize)) {
            points = format.intProperty(QTextFormat::FontPixelSize) * 0.75;
        }
        if (points <= 0) points = standard.pointSizeF();
        if (points <= 0) points = standard.pixelSize() * 0.75;
        return std::clamp(static_cast<int>(std::lround(adjusted_size(points, format) * 2)), 2,
                          3276);
    }

    std::string look(const QTextCharFormat& format) {
        const QStringList families = format.fontFamilies().toStringList();
        const QString family = families.isEmpty() ? default_family() : families.front();
        std::string out = "\\plain" + word("f", font_index(family));
        out += word("fs", half_points(format));
        if (format.fontWeight() >= QFont::DemiBold) out += "\\b";
        if (format.fontItalic()) out += "\\i";
        if (format.fontUnderline()) out += "\\ul";
        if (format.fontStrikeOut()) out += "\\strike";
        if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript) out += "\\super";
        if (format.verticalAlignment() == QTextCharFormat::AlignSubScript) out += "\\sub";
        if (const int ink = colour_index(format.foreground())) out += word("cf", ink);
        if (const int paper = colour_index(format.background())) {
            out += word("highlight", paper) + word("chcbpat", paper);
        }
        return out + " ";
    }

    void write_block(const QTextBlock& block) {
        const QTextBlockFormat format = block.blockFormat();
        body_ += "\\pard";
        write_alignment(format);
        if (const int after = twips(format.rightMargin())) body_ += word("ri", after);
        if (const int above = twips(format.topMargin())) body_ += word("sb", above);
        if (const int below = twips(format.bottomMargin())) body_ += word("sa", below);
        write_indent(block, format);
        if (block.begin().atEnd()) body_ += look(block.charFormat());
        for (auto part = block.begin(); !part.atEnd(); ++part) write_fragment(part.fragment());
        body_ += "\\par\r\n";
    }

    void write_alignment(const QTextBlockFormat& format) {
        if (format.layoutDirection() == Qt::RightToLeft) body_ += "\\rtlpar";
        const Qt::Alignment side = format.alignment();
        if (side & Qt::AlignHCenter) {
            body_ += "\\qc";
        } else if (side & Qt::AlignRight) {
            body_ += "\\qr";
        } else if (side & Qt::AlignJustify) {
            body_ += "\\qj";
        }
    }

    void write_indent(const QTextBlock& block, const QTextBlockFormat& format) {
        const int left = twips(format.leftMargin() + format.indent() * document_.indentWidth());
        const QTextList* list = block.textList();
        if (list != nullptr) return write_list_entry(*list, left);
        if (left != 0) body_ += word("li", left);
        if (const int first = twips(format.textIndent())) body_ += word("fi", first);
    }

    void write_list_entry(const QTextList& list, int left) {
        const int level = std::clamp(list.format().indent(), 1, deepest_level);
        body_ += word("fi", -twips_in_list_marker) + word("li", left + level * twips_in_list_level);
        const ListKind kind = kind_of(list.format().style());
        if (is_numbered(kind)) return write_number(list, kind, level);
        const std::string marker = escaped(QString(bullet(kind)));
        // A marker before its form, so that readers of either find one.
        body_ += "{\\pntext" + word("f", 0) + " " + marker + "\\tab}{\\*\\pn\\pnlvlblt";
        body_ += word("pnf", 0) + word("pnindent", twips_in_list_marker);
        body_ += "{\\pntxtb " + marker + "}}";
    }

    // Lists of the table go on counting behind other paragraphs.
    void write_number(const QTextList& list, ListKind kind, int level) {
        NumberedList& known = numbered_[&list];
        if (known.number == 0) {
            known.number = static_cast<int>(numbered_.size());
            list_table_ += list_form(known.number, kind, level);
        }
        const QString marker = number_text(kind, ++known.entries) + u'.';
        body_ += word("ls", known.number) + word("ilvl", level - 1);
        body_ += "{\\listtext" + word("f", 0) + " " + escaped(marker) + "\\tab}";
    }

    // One level, or all nine, as word processors want it.
    static std::string list_form(int number, ListKind kind, int level) {
        const int levels = level == 1 ? 1 : deepest_level;
        std::string out = "{\\list" + word("listtemplateid", number);
        if (levels == 1) out += "\\listsimple1";
        for (int i = 0; i < levels; ++i) {
            out += "{\\listlevel" + word("levelnfc", number_form(kind)) +
                   "\\leveljc0\\levelfollow0\\levelstartat1{\\leveltext\\'02\\'";
            append_byte(out, static_cast<unsigned char>(i));
            out += ".;}{\\levelnumbers\\'01;}" + word("fi", -twips_in_list_marker) +
                   word("li", (i + 1) * twips_in_list_level) + "}";
        }
        return out + word("listid", number) + "}\r\n";
    }

    static int number_form(ListKind kind) {
        switch (kind) {
            case ListKind::upper_roman:
                return 1;
            case ListKind::lower_roman:
                return 2;
            case ListKind::upper_letter:
                return 3;
            case ListKind::lower_letter:
                return 4;
            default:
                return 0;
        }
    }

    static ListKind kind_of(QTextListFormat::Style style) {
        switch (style) {
            case QTextListFormat::ListDecimal:
                return ListKind::decimal;
            case QTextListFormat::ListLowerAlpha:
                return ListKind::lower_letter;
            case QTextListFormat::ListUpperAlpha:
                return ListKind::upper_letter;
            case QTextListFormat::ListLowerRoman:
                return ListKind::lower_roman;
            case QTextListFormat::ListUpperRoman:
                return ListKind::upper_roman;
            case QTextListFormat::ListCircle:
                return ListKind::circle;
            case QTextListFormat::ListSquare:
                return ListKind::square;
            default:
                return ListKind::disc;
        }
    }

    static QChar bullet(ListKind kind) {
        if (kind == ListKind::circle) return u'\u25CB';
        return kind == ListKind::square ? u'\u25AA' : u'\u2022';
    }

    void write_fragment(const QTextFragment& fragment) {
        const QTextCharFormat format = fragment.charFormat();
        body_ += look(format);
        if (!format.isImageFormat()) {
            body_ += escaped(fragment.text());
            // Some word processors end a raised text at nothing else.
            const auto height = format.verticalAlignment();
            const bool raised = height == QTextCharFormat::AlignSuperScript ||
                                height == QTextCharFormat::AlignSubScript;
            if (raised) body_ += "\\nosupersub ";
            return;
        }
        for (const QChar character : fragment.text()) {
            if (character == QChar::ObjectReplacementCharacter) write_image(format.toImageFormat());
        }
    }

    void write_image(const QTextImageFormat& format) {
        const QImage image = image_of(document_, format.name());
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        if (image.isNull() || !image.save(&buffer, "PNG", quick_png)) return;
        double width = format.width();
        double height = format.height();
        const double ratio = static_cast<double>(image.height()) / image.width();
        if (width <= 0 && height <= 0) width = image.width();
        if (width <= 0) width = height / ratio;
        if (height <= 0) height = width * ratio;
        const double shrunk = std::min(1.0, most_pixels / std::max(width, height));
        body_ += "{\\pict\\pngblip" + word("picw", image.width()) + word("pich", image.height()) +
                 word("picwgoal", twips(width * shrunk)) +
                 word("pichgoal", twips(height * shrunk)) + "\r\n";
        const std::string hex = png.toHex().toStdString();
        constexpr std::size_t line = 128;
        for (std::size_t i = 0; i < hex.size(); i += line) body_ += hex.substr(i, line) + "\r\n";
        body_ += "}";
    }

    const QTextDocument& document_;
    std::vector<QString> fonts_;
    std::vector<QRgb> colours_;
    std::map<const QTextList*, NumberedList> numbered_;
    std::string list_table_;
    std::string body_;
};

}  // namespace

std::string written(const QTextDocument& document) {
    return Writer(document).run();
}

}  // namespace tavernook::rtf
