// The state of one reading pass over rich text.
#pragma once

#include <QByteArray>
#include <string>
#include <string_view>
#include <vector>

#include "rich_text/rtf_model.h"
#include "rich_text/rtf_pictures.h"
#include "rich_text/rtf_tokens.h"

namespace tavernook::rtf {

enum class Destination { body, fonts, colours, picture, list_marker, list_form, skipped };

// What a group inherits and gives back at its end.
struct GroupState {
    Destination destination = Destination::body;
    CharacterLook look;
    ParagraphLook paragraph;
    int unicode_skip = 1;
};

class Parser {
  public:
    explicit Parser(std::string_view bytes) : tokens_(bytes) {}
    Content run();

  private:
    void take(const Token& token);
    void open_group();
    void close_group();
    bool take_skipped(const Token& token);
    void take_word(const Token& token);
    void take_symbol(char symbol);
    void take_text(std::string_view text);
    void take_byte(char byte);
    void take_binary(std::string_view data);

    bool take_destination(std::string_view word);
    bool take_document_word(const Token& token);
    bool take_font_word(const Token& token);
    bool take_colour_word(const Token& token);
    bool take_picture_word(const Token& token);
    bool take_list_word(const Token& token);
    bool take_character_word(const Token& token);
    bool take_toggle(const Token& token);
    bool take_paragraph_word(const Token& token);
    bool take_text_word(const Token& token);
    bool take_structure_word(std::string_view word);

    void take_font_text(std::string_view text);
    void take_colour_text(std::string_view text);
    void take_picture_text(std::string_view text);
    void take_unicode(int parameter);
    void add_character(char16_t character);
    void add_text(QString text);
    void flush_bytes();
    void flush_font_bytes();
    void finish_font();
    void finish_picture();
    void finish_list_form();
    void add_run(Run run);
    void settle_paragraph(const ParagraphLook& look);
    void end_paragraph();
    void end_cell();
    void end_row();
    Paragraph& current();
    int code_page() const;

    Tokenizer tokens_;
    Content content_;
    std::vector<GroupState> groups_;
    GroupState state_;
    // Bytes that wait for the rest of their run, so that double-byte characters stay together.
    std::string bytes_;
    int skip_left_ = 0;
    bool after_star_ = false;
    bool open_paragraph_ = false;
    ParagraphLook last_look_;
    std::size_t runs_ = 0;

    int document_code_page_ = 1252;
    int default_font_ = 0;
    int font_ = 0;
    QString font_name_;
    // The part of the name that waits for the font's character set.
    std::string font_bytes_;
    bool colour_given_ = false;
    QColor colour_ = Qt::black;

    QByteArray picture_bytes_;
    int picture_digit_ = -1;
    PictureKind picture_kind_ = PictureKind::unknown;
    int picture_width_ = 0;
    int picture_height_ = 0;
    int picture_scale_x_ = 100;
    int picture_scale_y_ = 100;
    long long pixels_ = 0;

    ListKind form_ = ListKind::none;
    QString marker_;
    int cells_ended_ = 0;
    bool in_row_ = false;
};

// The kind of list whose entries have such a text in front.
ListKind list_kind_of_marker(const QString& marker);

}  // namespace tavernook::rtf
