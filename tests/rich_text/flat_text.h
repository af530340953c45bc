// A text document in one XML file, as office suites export it, read as far as the tests look.
#pragma once

#include <QByteArray>
#include <QString>
#include <map>
#include <string>
#include <vector>

namespace tavernook::rtf {

struct FlatLook {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    // As they stand in the file; empty where the file does not say.
    QString colour;
    QString background;
    QString size;
    QString position;
};

struct FlatRun {
    QString text;
    FlatLook look;
};

// A picture is the object replacement character in the text.
struct FlatParagraph {
    QString side;
    QString left;
    QString list_style;
    int list_level = 0;
    std::vector<FlatRun> runs;

    QString text() const;
    bool in_list() const { return list_level > 0; }
};

struct FlatPicture {
    QString width;
    QString height;
    QByteArray bytes;
};

struct FlatText {
    std::vector<FlatParagraph> paragraphs;
    std::vector<FlatPicture> pictures;
    // "bullet" or "number" and its form, by list style and level.
    std::map<std::pair<QString, int>, QString> lists;

    // Of the run and of the paragraph that begin so; the test fails where none does.
    FlatLook look(const char* text) const;
    FlatParagraph paragraph(const char* text) const;
    QString list_kind(const char* text) const;
};

FlatText read_flat_text(const std::string& path);

}  // namespace tavernook::rtf
