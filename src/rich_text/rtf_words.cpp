// What the control words do.
#include <algorithm>
#include <set>

#include "rich_text/rtf_characters.h"
#include "rich_text/rtf_parser.h"

namespace tavernook::rtf {

namespace {

const std::set<std::string_view> left_out = {
    "stylesheet", "info",     "header",    "headerl",   "headerr",   "headerf",      "footer",
    "footerl",    "footerr",  "footerf",   "footnote",  "fldinst",   "nonshppict",   "listtable",
    "revtbl",     "xe",       "tc",        "rxe",       "txe",       "nonesttables", "sp",
    "sn",         "sv",       "shprslt",   "objdata",   "objclass",  "objname",      "filetbl",
    "pntxta",     "pntxtb",   "atnid",     "atnauthor", "comment",   "annotation",   "ftnsep",
    "ftnsepc",    "aftnsep",  "aftnsepc",  "mmathPr",   "bkmkstart", "bkmkend",      "generator",
    "template",   "listname", "leveltext", "title",     "author",    "rsidtbl",      "themedata"};

// Groups that are read although they are marked as ones to skip.
const std::set<std::string_view> read_after_star = {"shppict", "shpinst", "pn"};

bool is_on(const Token& token) {
    return !token.has_parameter || token.parameter != 0;
}

int bounded_length(int twips) {
    return std::clamp(twips, -31'680, 31'680);
}

bool is_roman(const QString& number) {
    return std::all_of(number.begin(), number.end(), [](QChar letter) {
        return QStringLiteral("ivxlcdm").contains(letter.toLower());
    });
}

}  // namespace

ListKind list_kind_of_marker(const QString& marker) {
    QString number;
    for (const QChar character : marker) {
        if (character.isLetterOrNumber()) number += character;
    }
    if (number.isEmpty()) {
        if (marker == QChar(u'\u25CB') || marker == QChar(u'\u25E6')) return ListKind::circle;
        const bool square = marker == QChar(u'\u25AA') || marker == QChar(u'\u25A0');
        return square ? ListKind::square : ListKind::disc;
    }
    if (number.front().isDigit()) return ListKind::decimal;
    if (marker == QStringLiteral("o")) return ListKind::circle;
    const bool upper = number.front().isUpper();
    const bool counts_as_roman =
        is_roman(number) && (number.size() > 1 || number.toLower() == u'i');
    if (counts_as_roman) return upper ? ListKind::upper_roman : ListKind::lower_roman;
    return upper ? ListKind::upper_letter : ListKind::lower_letter;
}

void Parser::take_symbol(char symbol) {
    if (state_.destination == Destination::skipped) return;
    switch (symbol) {
        case '*':
            after_star_ = true;
            return;
        case '\\':
        case '{':
        case '}':
            return take_byte(symbol);
        case '~':
            return add_character(u'\u00A0');
        case '_':
            return add_character(u'\u2011');
        case '-':
            return add_character(u'\u00AD');
        case '\r':
        case '\n':
            flush_bytes();
            take_structure_word("par");
            return;
        case '\t':
            return add_character(u'\t');
        default:
            return;
    }
}

void Parser::take_word(const Token& token) {
    if (state_.destination == Destination::skipped) return;
    flush_bytes();
    const bool star = std::exchange(after_star_, false);
    if (star && !read_after_star.contains(token.text)) {
        state_.destination = Destination::skipped;
        return;
    }
    if (take_destination(token.text) || take_document_word(token)) return;
    switch (state_.destination) {
        case Destination::fonts:
            take_font_word(token);
            return;
        case Destination::colours:
            take_colour_word(token);
            return;
        case Destination::picture:
            take_picture_word(token);
            return;
        case Destination::list_form:
            take_list_word(token);
            return;
        default:
            break;
    }
    take_character_word(token) || take_toggle(token) || take_paragraph_word(token) ||
        take_text_word(token) || take_structure_word(token.text);
}

bool Parser::take_destination(std::string_view word) {
    if (left_out.contains(word)) {
        state_.destination = Destination::skipped;
    } else if (word == "fonttbl") {
        state_.destination = Destination::fonts;
    } else if (word == "colortbl") {
        state_.destination = Destination::colours;
    } else if (word == "pntext" || word == "listtext") {
        state_.destination = Destination::list_marker;
        marker_.clear();
    } else if (word == "pn") {
        state_.destination = Destination::list_form;
        form_ = ListKind::disc;
    } else if (word == "pict") {
        state_.destination = Destination::picture;
        picture_bytes_.clear();
        picture_digit_ = -1;
        picture_kind_ = PictureKind::unknown;
        picture_width_ = picture_height_ = 0;
        picture_scale_x_ = picture_scale_y_ = 100;
    } else {
        return false;
    }
    return true;
}

bool Parser::take_document_word(const Token& token) {
    if (token.text == "ansicpg") {
        if (token.parameter != 0) document_code_page_ = token.parameter;
    } else if (token.text == "mac") {
        document_code_page_ = 10000;
    } else if (token.text == "pc") {
        document_code_page_ = 437;
    } else if (token.text == "pca") {
        document_code_page_ = 850;
    } else if (token.text == "deff") {
        default_font_ = token.parameter;
        state_.look.font = default_font_;
    } else if (token.text == "uc") {
        state_.unicode_skip = std::clamp(token.parameter, 0, 100);
    } else {
        return false;
    }
    return true;
}

bool Parser::take_font_word(const Token& token) {
    if (token.text == "f") {
        finish_font();
        font_ = token.parameter;
        return true;
    }
    if (token.text == "fcharset") {
        content_.fonts[font_].code_page = code_page_of_character_set(token.parameter);
        content_.fonts[font_].symbols = token.parameter == 2;
        return true;
    }
    if (token.text == "u") {
        take_unicode(token.parameter);
        return true;
    }
    if (token.text == "cpg") content_.fonts[font_].code_page = token.parameter;
    return token.text == "cpg";
}

bool Parser::take_colour_word(const Token& token) {
    const int part = std::clamp(token.parameter, 0, 255);
    if (token.text == "red") {
        colour_.setRed(part);
    } else if (token.text == "green") {
        colour_.setGreen(part);
    } else if (token.text == "blue") {
        colour_.setBlue(part);
    } else {
        return false;
    }
    colour_given_ = true;
    return true;
}

bool Parser::take_picture_word(const Token& token) {
    const std::string_view word = token.text;
    if (word == "pngblip" || word == "jpegblip") {
        picture_kind_ = PictureKind::compressed;
    } else if (word == "dibitmap") {
        picture_kind_ = PictureKind::bitmap;
    } else if (word == "wmetafile") {
        picture_kind_ = PictureKind::metafile;
    } else if (word == "picwgoal") {
        picture_width_ = token.parameter;
    } else if (word == "pichgoal") {
        picture_height_ = token.parameter;
    } else if (word == "picscalex") {
        picture_scale_x_ = token.parameter;
    } else if (word == "picscaley") {
        picture_scale_y_ = token.parameter;
    } else {
        return false;
    }
    return true;
}

bool Parser::take_list_word(const Token& token) {
    static const std::map<std::string_view, ListKind> kinds = {
        {"pnlvlblt", ListKind::disc},        {"pndec", ListKind::decimal},
        {"pnlvlbody", ListKind::decimal},    {"pnlcltr", ListKind::lower_letter},
        {"pnucltr", ListKind::upper_letter}, {"pnlcrm", ListKind::lower_roman},
        {"pnucrm", ListKind::upper_roman}};
    const auto kind = kinds.find(token.text);
    if (kind == kinds.end()) return false;
    // A numbered form names its numbers before or after this word.
    const bool named = token.text == "pnlvlbody" && form_ != ListKind::disc;
    if (!named) form_ = kind->second;
    return true;
}

bool Parser::take_character_word(const Token& token) {
    const std::string_view word = token.text;
    CharacterLook& look = state_.look;
    if (word == "plain") {
        look = {};
        look.font = default_font_;
    } else if (word == "f") {
        look.font = token.parameter;
    } else if (word == "fs") {
        look.half_points = token.has_parameter ? std::clamp(token.parameter, 2, 3276) : 24;
    } else if (word == "cf") {
        look.colour = token.parameter;
    } else if (word == "highlight" || word == "chcbpat" || word == "cb") {
        look.background = token.parameter;
    } else if (word == "super" || word == "up") {
        look.script = is_on(token) ? Script::superscript : Script::normal;
    } else if (word == "sub" || word == "dn") {
        look.script = is_on(token) ? Script::subscript : Script::normal;
    } else if (word == "nosupersub") {
        look.script = Script::normal;
    } else {
        return false;
    }
    return true;
}

bool Parser::take_toggle(const Token& token) {
    static const std::map<std::string_view, bool CharacterLook::*> toggles = {
        {"b", &CharacterLook::bold},          {"i", &CharacterLook::italic},
        {"strike", &CharacterLook::strike},   {"striked", &CharacterLook::strike},
        {"v", &CharacterLook::hidden},        {"deleted", &CharacterLook::hidden},
        {"ul", &CharacterLook::underline},    {"uld", &CharacterLook::underline},
        {"uldb", &CharacterLook::underline},  {"ulw", &CharacterLook::underline},
        {"ulth", &CharacterLook::underline},  {"uldash", &CharacterLook::underline},
        {"ulwave", &CharacterLook::underline}};
    if (token.text == "ulnone") {
        state_.look.underline = false;
        return true;
    }
    const auto toggle = toggles.find(token.text);
    if (toggle == toggles.end()) return false;
    state_.look.*(toggle->second) = is_on(token);
    return true;
}

bool Parser::take_paragraph_word(const Token& token) {
    static const std::map<std::string_view, Alignment> alignments = {{"ql", Alignment::left},
                                                                     {"qc", Alignment::centre},
                                                                     {"qr", Alignment::right},
                                                                     {"qj", Alignment::justified}};
    static const std::map<std::string_view, int ParagraphLook::*> lengths = {
        {"li", &ParagraphLook::left},
        {"ri", &ParagraphLook::right},
        {"fi", &ParagraphLook::first_line},
        {"sb", &ParagraphLook::before},
        {"sa", &ParagraphLook::after}};
    ParagraphLook& look = state_.paragraph;
    if (const auto found = alignments.find(token.text); found != alignments.end()) {
        look.alignment = found->second;
    } else if (const auto length = lengths.find(token.text); length != lengths.end()) {
        look.*(length->second) = bounded_length(token.parameter);
    } else if (token.text == "pard") {
        look = {};
    } else if (token.text == "ilvl") {
        look.list_level = std::clamp(token.parameter, 0, 8);
    } else if (token.text == "rtlpar" || token.text == "ltrpar") {
        look.right_to_left = token.text == "rtlpar";
    } else {
        return false;
    }
    return true;
}

bool Parser::take_text_word(const Token& token) {
    static const std::map<std::string_view, char16_t> characters = {
        {"tab", u'\t'},         {"line", u'\u2028'},      {"lquote", u'\u2018'},
        {"rquote", u'\u2019'},  {"ldblquote", u'\u201C'}, {"rdblquote", u'\u201D'},
        {"bullet", u'\u2022'},  {"endash", u'\u2013'},    {"emdash", u'\u2014'},
        {"enspace", u'\u2002'}, {"emspace", u'\u2003'},   {"qmspace", u'\u2005'},
        {"zwj", u'\u200D'},     {"zwnj", u'\u200C'}};
    if (token.text == "u") {
        take_unicode(token.parameter);
        return true;
    }
    const auto character = characters.find(token.text);
    if (character == characters.end()) return false;
    add_character(character->second);
    return true;
}

void Parser::take_unicode(int parameter) {
    skip_left_ = state_.unicode_skip;
    const int code = parameter < 0 ? parameter + 0x10000 : parameter;
    if (code < 0 || code > 0x10FFFF) return;
    if (code >= 0xF000 && code <= 0xF0FF) {
        // The private range in which pictorial fonts have their signs.
        const char byte = static_cast<char>(code - 0xF000);
        const auto font = content_.fonts.find(state_.look.font);
        const QString name = font == content_.fonts.end() ? QString() : font->second.name;
        return add_text(decoded_symbols({&byte, 1}, name));
    }
    const auto character = static_cast<char32_t>(code);
    add_text(code > 0xFFFF ? QString::fromUcs4(&character, 1)
                           : QString(QChar(static_cast<char16_t>(code))));
}

bool Parser::take_structure_word(std::string_view word) {
    if (state_.destination != Destination::body) return false;
    if (word == "par" || word == "sect") {
        end_paragraph();
    } else if (word == "cell" || word == "nestcell") {
        end_cell();
    } else if (word == "row" || word == "nestrow") {
        end_row();
    } else {
        return false;
    }
    return true;
}

}  // namespace tavernook::rtf
