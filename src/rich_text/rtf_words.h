// What the control words and symbols do to a draft. Unknown ones do nothing. Both let Fault 63
// through: a paragraph or a run too many.
#pragma once

#include "rich_text/rtf_draft.h"
#include "rich_text/rtf_tokens.h"

namespace tavernook::rtf {

// `after_star`: the word stands behind `\*`, which marks groups that readers may skip; a word that
// is not read all the same makes its group a skipped one.
void take_word(Draft& draft, const Token& word, bool after_star);

// All symbols but `\*`.
void take_symbol(Draft& draft, char symbol);

}  // namespace tavernook::rtf
