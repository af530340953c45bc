// Bytes of the code pages that rich text names.
#pragma once

#include <QString>
#include <string_view>

namespace tavernook::rtf {

// 0 for the character sets that leave the choice to the document.
int code_page_of_character_set(int character_set);

// Single- and double-byte code pages; one that this system does not know reads as windows-1252.
QString decoded(std::string_view bytes, int code_page);

// The signs of pictorial fonts that texts use as bullets, ticks and Greek letters.
QString decoded_symbols(std::string_view bytes, const QString& font);

// Without control characters and the code points that a document keeps for its own structure.
QString without_structure_marks(QString text);

}  // namespace tavernook::rtf
