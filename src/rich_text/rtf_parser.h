// One reading pass over rich text: tokens to groups, text and words.
#pragma once

#include <string_view>
#include <vector>

#include "rich_text/rtf_draft.h"
#include "rich_text/rtf_tokens.h"

namespace tavernook::rtf {

// Every group begins with the state of the one around it, which comes back at its end.
class Parser {
  public:
    explicit Parser(std::string_view bytes) : tokens_(bytes) {}

    // To the end of the first group, once only. Fault 63 where the text is cut short or beyond the
    // bounds of a document.
    Content run();

  private:
    void take(const Token& token);
    bool take_skipped(const Token& token);
    void open_group();
    void close_group();

    Tokenizer tokens_;
    Draft draft_;
    // Of the groups around the present one.
    std::vector<GroupState> outer_;
    bool after_star_ = false;
};

}  // namespace tavernook::rtf
