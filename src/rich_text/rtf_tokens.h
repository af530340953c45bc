// Rich text as a row of tokens. Line ends between tokens are dropped; nothing is copied.
#pragma once

#include <cstddef>
#include <string_view>

namespace tavernook::rtf {

enum class TokenKind { group_start, group_end, word, symbol, hex_byte, text, binary, end };

struct Token {
    TokenKind kind = TokenKind::end;
    // The word's name, the symbol, the run of text or the raw bytes of \bin; a view of the input.
    std::string_view text;
    bool has_parameter = false;
    int parameter = 0;
    char byte = 0;
};

class Tokenizer {
  public:
    explicit Tokenizer(std::string_view input) : rest_(input) {}

    // Never fails: a control word that is cut short is a word, a \' without a hex number
    // is an empty text, \bin data beyond the end is what there is.
    Token next();

  private:
    Token control();
    Token word();
    Token hex_byte();
    Token binary(int length);
    void read_parameter(Token& token);
    Token text();

    std::string_view rest_;
};

// 0 to 15, or -1 when the character is no hex digit.
int hex_digit(char character);

}  // namespace tavernook::rtf
