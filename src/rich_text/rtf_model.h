// A rich text read whole, before anything is shown: paragraphs of runs, with the tables of fonts
// and colours that they point into. Lengths are twips (1/1440 inch), font sizes half points.
#pragma once

#include <QColor>
#include <QImage>
#include <QString>
#include <map>
#include <optional>
#include <vector>

namespace tavernook::rtf {

enum class Script { normal, superscript, subscript };

struct CharacterLook {
    int font = 0;
    int half_points = 24;
    int colour = 0;
    int background = 0;
    Script script = Script::normal;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool hidden = false;

    bool operator==(const CharacterLook&) const = default;
};

enum class Alignment { left, centre, right, justified };

enum class ListKind {
    none,
    disc,
    circle,
    square,
    decimal,
    lower_letter,
    upper_letter,
    lower_roman,
    upper_roman
};

struct ParagraphLook {
    Alignment alignment = Alignment::left;
    bool right_to_left = false;
    int left = 0;
    int right = 0;
    int first_line = 0;
    int before = 0;
    int after = 0;
    // How many tables it stands in, one inside the other.
    int table_depth = 0;
    // From 0; -1 where the text does not say.
    int list_level = -1;
    // In the text's tables of lists; 0 for none.
    int list_number = 0;
    // Of the first entry, where the text shows no number.
    int list_start = 1;
    ListKind list = ListKind::none;
};

struct Picture {
    QImage image;
    int width_twips = 0;
    int height_twips = 0;
};

struct Run {
    CharacterLook look;
    QString text;
    // Index in Content::pictures; the run has no text then.
    int picture = -1;
};

struct Paragraph {
    ParagraphLook look;
    std::vector<Run> runs;
    // In front of a list's entry, as the text shows it.
    QString marker;
    // Entries of the same one are a list; -1 for other paragraphs.
    int list_index = -1;
};

struct Font {
    QString name;
    int code_page = 0;
    bool symbols = false;
};

struct Content {
    std::map<int, Font> fonts;
    // Empty: the reader's own colour. So is the first one, whatever stands there.
    std::vector<std::optional<QColor>> colours;
    std::vector<Paragraph> paragraphs;
    std::vector<Picture> pictures;
};

}  // namespace tavernook::rtf
