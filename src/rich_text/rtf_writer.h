// Writes a document as rich text that word processors open with the same look.
#pragma once

#include <QTextDocument>
#include <string>

namespace tavernook::rtf {

// Pure ASCII bytes; lines end in CR LF. Pictures that the document cannot give are left out.
std::string written(const QTextDocument& document);

}  // namespace tavernook::rtf
