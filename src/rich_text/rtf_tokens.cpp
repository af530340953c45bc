#include "rich_text/rtf_tokens.h"

#include <algorithm>

namespace tavernook::rtf {

namespace {

// Parameters beyond this are cut; no known word needs more.
constexpr int largest_parameter = 1'000'000'000;

bool is_letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

int hex_digit(char c) {
    if (is_digit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

Token Tokenizer::next() {
    while (!rest_.empty() && (rest_.front() == '\r' || rest_.front() == '\n')) {
        rest_.remove_prefix(1);
    }
    if (rest_.empty()) return {};
    switch (rest_.front()) {
        case '{':
            rest_.remove_prefix(1);
            return {TokenKind::group_start, {}};
        case '}':
            rest_.remove_prefix(1);
            return {TokenKind::group_end, {}};
        case '\\':
            rest_.remove_prefix(1);
            return control();
        default:
            return text();
    }
}

Token Tokenizer::control() {
    if (rest_.empty()) return {};
    if (is_letter(rest_.front())) return word();
    if (rest_.front() == '\'') return hex_byte();
    Token token{TokenKind::symbol, rest_.substr(0, 1)};
    const bool is_line_end = rest_.substr(0, 2) == "\r\n";
    rest_.remove_prefix(is_line_end ? 2 : 1);
    return token;
}

Token Tokenizer::word() {
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), is_letter);
    Token token{TokenKind::word, rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()))};
    rest_.remove_prefix(token.text.size());
    read_parameter(token);
    if (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
    if (token.text == "bin") return binary(token.parameter);
    return token;
}

void Tokenizer::read_parameter(Token& token) {
    const bool negative = rest_.size() > 1 && rest_.front() == '-' && is_digit(rest_[1]);
    if (negative) rest_.remove_prefix(1);
    long long value = 0;
    while (!rest_.empty() && is_digit(rest_.front())) {
        token.has_parameter = true;
        value = std::min<long long>(value * 10 + (rest_.front() - '0'), largest_parameter);
        rest_.remove_prefix(1);
    }
    token.parameter = static_cast<int>(negative ? -value : value);
}

Token Tokenizer::hex_byte() {
    rest_.remove_prefix(1);
    Token token{TokenKind::hex_byte, {}};
    const std::string_view digits = rest_.substr(0, 2);
    const int high = digits.size() == 2 ? hex_digit(digits[0]) : -1;
    const int low = digits.size() == 2 ? hex_digit(digits[1]) : -1;
    if (high < 0 || low < 0) return {TokenKind::text, {}};
    rest_.remove_prefix(2);
    token.byte = static_cast<char>(high * 16 + low);
    return token;
}

Token Tokenizer::binary(int length) {
    const std::size_t wanted = static_cast<std::size_t>(std::max(length, 0));
    Token token{TokenKind::binary, rest_.substr(0, wanted)};
    rest_.remove_prefix(token.text.size());
    return token;
}

Token Tokenizer::text() {
    const std::size_t end = std::min(rest_.find_first_of("\\{}\r\n"), rest_.size());
    Token token{TokenKind::text, rest_.substr(0, end)};
    rest_.remove_prefix(end);
    return token;
}

}  // namespace tavernook::rtf
