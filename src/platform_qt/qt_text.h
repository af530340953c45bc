// The border between the logic's texts and Qt's. Texts are windows-1252 bytes, paths are the file
// system's own bytes (UTF-8).
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "basics/code_page.h"

namespace tavernook {

inline QString path_to_qstring(std::string_view path) {
    return QString::fromUtf8(path.data(), static_cast<qsizetype>(path.size()));
}

inline std::string qstring_to_path(const QString& path) {
    return path.toStdString();
}

// Line ends stay as they are.
inline QString text_to_qstring(std::string_view text) {
    return path_to_qstring(utf8_from_text(text));
}

// Characters outside the code page become "?".
inline std::string qstring_to_text(const QString& text) {
    return text_from_utf8(text.toStdString());
}

}  // namespace tavernook
