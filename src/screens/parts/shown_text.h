// Texts of the logic on their way to and from the widgets: code page texts and paths.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "basics/code_page.h"

namespace tavernook {

inline QString shown_path(std::string_view path) {
    return QString::fromUtf8(path.data(), static_cast<qsizetype>(path.size()));
}

inline QString shown_text(std::string_view text) {
    return shown_path(utf8_from_text(text));
}

// What the user typed, as the logic stores it; characters outside the code page become "?".
inline std::string typed_text(const QString& typed) {
    return text_from_utf8(typed.toStdString());
}

// An "&" that is to be seen, in a place where it would mark a mnemonic.
inline QString without_mnemonics(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace tavernook
