// What the groups beside the text gather: the table of fonts, the table of colours, a picture.
#pragma once

#include <QByteArray>
#include <QColor>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "rich_text/rtf_model.h"
#include "rich_text/rtf_pictures.h"

namespace tavernook::rtf {

// The fonts, and the bytes of text read as they say. A font's name comes in pieces, bytes or
// characters; `;`, the next font or the end of a group finishes it.
class FontTable {
  public:
    // For fonts that name no code page of their own.
    void set_document_code_page(int code_page) { document_code_page_ = code_page; }

    void begin_font(int number);
    // Of the font begun last.
    void set_character_set(int character_set);
    void set_code_page(int code_page);
    void take_bytes(std::string_view bytes);
    void add_to_name(const QString& text);
    void finish_font();

    // Empty where the table has no such font.
    QString name(int font) const;
    QString text_of(std::string_view bytes, int font) const;

    // Leaves the table empty.
    std::map<int, Font> taken() { return std::exchange(fonts_, {}); }

  private:
    int code_page(int font) const;
    void flush_bytes();

    std::map<int, Font> fonts_;
    int document_code_page_ = 1252;
    int font_ = 0;
    QString name_;
    // The part of the name that waits for the font's character set.
    std::string bytes_;
};

// The colours. Every `;` ends one; where no part was set before it, it is the reader's own colour.
class ColourTable {
  public:
    using Part = void (QColor::*)(int);

    void set_part(Part part, int value);
    void take_text(std::string_view text);

    // Leaves the table empty.
    std::vector<std::optional<QColor>> taken() { return std::exchange(colours_, {}); }

  private:
    std::vector<std::optional<QColor>> colours_;
    bool given_ = false;
    QColor colour_ = Qt::black;
};

// One picture: its bytes, in hex or raw, and the size it is meant to have.
struct PictureGroup {
    PictureKind kind = PictureKind::unknown;
    int width_twips = 0;
    int height_twips = 0;
    int scale_x = 100;
    int scale_y = 100;
    QByteArray bytes;
    // The first half of a byte, or -1.
    int digit = -1;

    void take_hex(std::string_view text);
    // With a null image when it cannot be drawn.
    Picture drawn() const;
};

}  // namespace tavernook::rtf
