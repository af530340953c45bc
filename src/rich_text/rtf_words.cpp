#include "rich_text/rtf_words.h"

#include <algorithm>
#include <map>
#include <set>

namespace tavernook::rtf {

namespace {

const std::set<std::string_view> left_out = {
    "stylesheet", "info",      "header",    "headerl",   "headerr",      "headerf",    "footer",
    "footerl",    "footerr",   "footerf",   "footnote",  "fldinst",      "nonshppict", "revtbl",
    "xe",         "tc",        "rxe",       "txe",       "nonesttables", "sp",         "sn",
    "sv",         "shprslt",   "objdata",   "objclass",  "objname",      "filetbl",    "pntxta",
    "pntxtb",     "atnid",     "atnauthor", "comment",   "annotation",   "ftnsep",     "ftnsepc",
    "aftnsep",    "aftnsepc",  "mmathPr",   "bkmkstart", "bkmkend",      "generator",  "template",
    "listname",   "leveltext", "title",     "author",    "rsidtbl",      "themedata"};

// Groups that are read although they are marked as ones to skip.
const std::set<std::string_view> read_after_star = {
    "shppict", "shpinst", "pn", "listtable", "listoverridetable", "nesttableprops"};

bool is_on(const Token& token) {
    return !token.has_parameter || token.parameter != 0;
}

int bounded_length(int twips) {
    return std::clamp(twips, -31'680, 31'680);
}

bool take_destination(Draft& draft, std::string_view word) {
    if (left_out.contains(word)) {
        draft.state.destination = Destination::skipped;
    } else if (word == "fonttbl") {
        draft.state.destination = Destination::fonts;
    } else if (word == "colortbl") {
        draft.state.destination = Destination::colours;
    } else if (word == "pntext" || word == "listtext") {
        draft.state.destination = Destination::list_marker;
        draft.paragraphs.clear_marker();
    } else if (word == "pn") {
        draft.state.destination = Destination::list_form;
        draft.list_form = ListKind::disc;
        draft.list_form_start = 1;
    } else if (word == "listtable" || word == "listoverridetable") {
        draft.state.destination = Destination::list_table;
    } else if (word == "pict") {
        draft.state.destination = Destination::picture;
        draft.picture = {};
    } else {
        return false;
    }
    return true;
}

bool take_document_word(Draft& draft, const Token& token) {
    if (token.text == "ansicpg") {
        if (token.parameter != 0) draft.fonts.set_document_code_page(token.parameter);
    } else if (token.text == "mac") {
        draft.fonts.set_document_code_page(10000);
    } else if (token.text == "pc") {
        draft.fonts.set_document_code_page(437);
    } else if (token.text == "pca") {
        draft.fonts.set_document_code_page(850);
    } else if (token.text == "deff") {
        draft.default_font = token.parameter;
        draft.state.look.font = draft.default_font;
    } else if (token.text == "uc") {
        draft.state.unicode_skip = std::clamp(token.parameter, 0, 100);
    } else {
        return false;
    }
    return true;
}

bool take_font_word(Draft& draft, const Token& token) {
    if (token.text == "f") {
        draft.fonts.begin_font(token.parameter);
    } else if (token.text == "fcharset") {
        draft.fonts.set_character_set(token.parameter);
    } else if (token.text == "cpg") {
        draft.fonts.set_code_page(token.parameter);
    } else {
        return false;
    }
    return true;
}

bool take_colour_word(Draft& draft, const Token& token) {
    static const std::map<std::string_view, ColourTable::Part> parts = {
        {"red", &QColor::setRed}, {"green", &QColor::setGreen}, {"blue", &QColor::setBlue}};
    const auto part = parts.find(token.text);
    if (part == parts.end()) return false;
    draft.colours.set_part(part->second, token.parameter);
    return true;
}

bool take_picture_word(Draft& draft, const Token& token) {
    const std::string_view word = token.text;
    if (word == "pngblip" || word == "jpegblip") {
        draft.picture.kind = PictureKind::compressed;
    } else if (word == "dibitmap") {
        draft.picture.kind = PictureKind::bitmap;
    } else if (word == "wmetafile") {
        draft.picture.kind = PictureKind::metafile;
    } else if (word == "picwgoal") {
        draft.picture.width_twips = token.parameter;
    } else if (word == "pichgoal") {
        draft.picture.height_twips = token.parameter;
    } else if (word == "picscalex") {
        draft.picture.scale_x = token.parameter;
    } else if (word == "picscaley") {
        draft.picture.scale_y = token.parameter;
    } else {
        return false;
    }
    return true;
}

bool take_list_word(Draft& draft, const Token& token) {
    if (token.text == "pnstart") {
        draft.list_form_start = token.parameter;
        return true;
    }
    static const std::map<std::string_view, ListKind> kinds = {
        {"pnlvlblt", ListKind::disc},        {"pndec", ListKind::decimal},
        {"pnlvlbody", ListKind::decimal},    {"pnlcltr", ListKind::lower_letter},
        {"pnucltr", ListKind::upper_letter}, {"pnlcrm", ListKind::lower_roman},
        {"pnucrm", ListKind::upper_roman}};
    const auto kind = kinds.find(token.text);
    if (kind == kinds.end()) return false;
    // A numbered form names its numbers before or after this word.
    const bool named = token.text == "pnlvlbody" && draft.list_form != ListKind::disc;
    if (!named) draft.list_form = kind->second;
    return true;
}

bool take_character_word(Draft& draft, const Token& token) {
    const std::string_view word = token.text;
    CharacterLook& look = draft.state.look;
    if (word == "plain") {
        look = {};
        look.font = draft.default_font;
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

bool take_toggle(Draft& draft, const Token& token) {
    static const std::map<std::string_view, bool CharacterLook::*> toggles = {
        {"b", &CharacterLook::bold},          {"i", &CharacterLook::italic},
        {"strike", &CharacterLook::strike},   {"striked", &CharacterLook::strike},
        {"v", &CharacterLook::hidden},        {"deleted", &CharacterLook::hidden},
        {"ul", &CharacterLook::underline},    {"uld", &CharacterLook::underline},
        {"uldb", &CharacterLook::underline},  {"ulw", &CharacterLook::underline},
        {"ulth", &CharacterLook::underline},  {"uldash", &CharacterLook::underline},
        {"ulwave", &CharacterLook::underline}};
    if (token.text == "ulnone") {
        draft.state.look.underline = false;
        return true;
    }
    const auto toggle = toggles.find(token.text);
    if (toggle == toggles.end()) return false;
    draft.state.look.*(toggle->second) = is_on(token);
    return true;
}

bool take_paragraph_word(Draft& draft, const Token& token) {
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
    ParagraphLook& look = draft.state.paragraph;
    if (const auto found = alignments.find(token.text); found != alignments.end()) {
        look.alignment = found->second;
    } else if (const auto length = lengths.find(token.text); length != lengths.end()) {
        look.*(length->second) = bounded_length(token.parameter);
    } else if (token.text == "pard") {
        look = {};
    } else if (token.text == "ilvl") {
        look.list_level = std::clamp(token.parameter, 0, 8);
    } else if (token.text == "ls") {
        look.list_number = std::max(token.parameter, 0);
    } else if (token.text == "intbl") {
        look.table_depth = std::max(look.table_depth, 1);
    } else if (token.text == "itap") {
        look.table_depth = std::clamp(token.parameter, 0, 100);
    } else if (token.text == "rtlpar" || token.text == "ltrpar") {
        look.right_to_left = token.text == "rtlpar";
    } else {
        return false;
    }
    return true;
}

bool take_text_word(Draft& draft, const Token& token) {
    static const std::map<std::string_view, char16_t> characters = {
        {"tab", u'\t'},         {"line", u'\u2028'},      {"lquote", u'\u2018'},
        {"rquote", u'\u2019'},  {"ldblquote", u'\u201C'}, {"rdblquote", u'\u201D'},
        {"bullet", u'\u2022'},  {"endash", u'\u2013'},    {"emdash", u'\u2014'},
        {"enspace", u'\u2002'}, {"emspace", u'\u2003'},   {"qmspace", u'\u2005'},
        {"zwj", u'\u200D'},     {"zwnj", u'\u200C'}};
    const auto character = characters.find(token.text);
    if (character == characters.end()) return false;
    draft.add_character(character->second);
    return true;
}

bool take_structure_word(Draft& draft, std::string_view word) {
    if (draft.state.destination != Destination::body) return false;
    if (word == "par" || word == "sect") {
        draft.paragraphs.end_paragraph(draft.state.paragraph);
    } else if (word == "cell" || word == "nestcell") {
        draft.paragraphs.end_cell(word == "nestcell");
    } else if (word == "row" || word == "nestrow") {
        draft.paragraphs.end_row(draft.state.paragraph, word == "nestrow");
    } else {
        return false;
    }
    return true;
}

// The words of a group beside the text mean something there only; all others are the text's.
void take_word_of_group(Draft& draft, const Token& token) {
    switch (draft.state.destination) {
        case Destination::fonts:
            take_font_word(draft, token);
            return;
        case Destination::colours:
            take_colour_word(draft, token);
            return;
        case Destination::picture:
            take_picture_word(draft, token);
            return;
        case Destination::list_form:
            take_list_word(draft, token);
            return;
        case Destination::list_table:
            draft.lists.take(token.text, token.parameter);
            return;
        default:
            take_character_word(draft, token) || take_toggle(draft, token) ||
                take_paragraph_word(draft, token) || take_text_word(draft, token) ||
                take_structure_word(draft, token.text);
    }
}

}  // namespace

void take_word(Draft& draft, const Token& word, bool after_star) {
    if (draft.state.destination == Destination::skipped) return;
    draft.flush_bytes();
    if (after_star && !read_after_star.contains(word.text)) {
        draft.state.destination = Destination::skipped;
        return;
    }
    // First, as whole texts are made of it.
    if (word.text == "u") return draft.add_unicode(word.parameter);
    if (take_destination(draft, word.text) || take_document_word(draft, word)) return;
    take_word_of_group(draft, word);
}

void take_symbol(Draft& draft, char symbol) {
    if (draft.state.destination == Destination::skipped) return;
    switch (symbol) {
        case '\\':
        case '{':
        case '}':
            return draft.take_text({&symbol, 1});
        case '~':
            return draft.add_character(u'\u00A0');
        case '_':
            return draft.add_character(u'\u2011');
        case '-':
            return draft.add_character(u'\u00AD');
        case '\r':
        case '\n':
            draft.flush_bytes();
            take_structure_word(draft, "par");
            return;
        case '\t':
            return draft.add_character(u'\t');
        default:
            return;
    }
}

}  // namespace tavernook::rtf
