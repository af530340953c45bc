// What the tests of rich text share.
#pragma once

#include <QStandardPaths>
#include <QString>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "basics/fault.h"
#include "rich_text/rtf_reader.h"

namespace tavernook::rtf {

inline std::string text_of(std::string_view bytes) {
    QTextDocument document;
    read(bytes, document);
    return document.toPlainText().toStdString();
}

// 0 when it is read.
inline int fault_of(std::string_view bytes) {
    QTextDocument document;
    try {
        read(bytes, document);
    } catch (const Fault& fault) {
        return fault.number;
    }
    return 0;
}

inline std::string file_bytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.good()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

// The office suite's program, where it comes with its word processor; else empty. A suite without
// one has the program too, and makes nothing of a text.
inline QString office_with_writer() {
    const auto found = [](const char* name) {
        return QStandardPaths::findExecutable(QLatin1String(name));
    };
    return found("lowriter").isEmpty() ? QString() : found("soffice");
}

// The format of the piece of text that begins with `text`.
inline QTextCharFormat format_at(const QTextDocument& document, const char* text) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            if (part.fragment().text().startsWith(QString::fromUtf8(text))) {
                return part.fragment().charFormat();
            }
        }
    }
    ADD_FAILURE() << "no piece begins with " << text;
    return {};
}

// The program's own samples, and those of a folder that TAVERNOOK_RTF_SAMPLES names.
inline std::vector<std::filesystem::path> sample_files() {
    std::vector<std::filesystem::path> files;
    std::vector<std::string> folders = {std::string(TAVERNOOK_TEST_DATA) + "/rtf"};
    const QByteArray more = qgetenv("TAVERNOOK_RTF_SAMPLES");
    if (!more.isEmpty()) folders.push_back(more.toStdString());
    for (const std::string& folder : folders) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() == ".rtf") files.push_back(entry.path());
        }
    }
    return files;
}

}  // namespace tavernook::rtf
