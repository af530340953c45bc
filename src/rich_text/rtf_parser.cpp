#include "rich_text/rtf_parser.h"

#include <algorithm>
#include <utility>

#include "basics/fault.h"
#include "rich_text/rtf_words.h"

namespace tavernook::rtf {

namespace {

constexpr std::size_t deepest_group = 200;

[[noreturn]] void damaged() {
    throw Fault(fault_number::bad_record_number);
}

}  // namespace

Content Parser::run() {
    do {
        const Token token = tokens_.next();
        if (token.kind == TokenKind::end) damaged();
        take(token);
    } while (!outer_.empty());
    return draft_.finished();
}

void Parser::take(const Token& token) {
    if (take_skipped(token)) return;
    const bool after_star = std::exchange(after_star_, false);
    switch (token.kind) {
        case TokenKind::group_start:
            return open_group();
        case TokenKind::group_end:
            return close_group();
        case TokenKind::word:
            return take_word(draft_, token, after_star);
        case TokenKind::symbol:
            after_star_ = token.text.front() == '*';
            return take_symbol(draft_, token.text.front());
        case TokenKind::hex_byte:
            return draft_.take_text({&token.byte, 1});
        case TokenKind::text:
            return draft_.take_text(token.text);
        case TokenKind::binary:
            return draft_.take_binary(token.text);
        case TokenKind::end:
            return;
    }
}

// The plain characters that stand behind a Unicode one for readers without Unicode.
bool Parser::take_skipped(const Token& token) {
    int& left = draft_.skip_left;
    if (left == 0) return false;
    if (token.kind == TokenKind::group_start || token.kind == TokenKind::group_end) {
        left = 0;
        return false;
    }
    if (token.kind != TokenKind::text) {
        --left;
        return true;
    }
    const auto skipped = std::min(token.text.size(), static_cast<std::size_t>(left));
    left -= static_cast<int>(skipped);
    draft_.take_text(token.text.substr(skipped));
    return true;
}

void Parser::open_group() {
    draft_.flush_bytes();
    if (outer_.size() >= deepest_group) damaged();
    outer_.push_back(draft_.state);
}

void Parser::close_group() {
    if (outer_.empty()) damaged();
    draft_.leave_group(outer_.back());
    outer_.pop_back();
}

}  // namespace tavernook::rtf
