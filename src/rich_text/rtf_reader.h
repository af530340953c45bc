// Reads rich text into a document. Bounds: those of rtf_bounds.h, and groups 200 deep; a picture of
// more than 30 million pixels is left out, and all after 100 million.
#pragma once

#include <QTextDocument>
#include <string_view>

#include "rich_text/rtf_model.h"

namespace tavernook::rtf {

// Fault 13: no rich text. Fault 63: cut short, or beyond the bounds.
Content parse(std::string_view bytes);

// Replaces what the document holds.
void fill(QTextDocument& document, const Content& content);

// Both. After a fault the document is as it was.
void read(std::string_view bytes, QTextDocument& document);

}  // namespace tavernook::rtf
