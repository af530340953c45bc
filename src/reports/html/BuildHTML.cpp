#include "reports/html/BuildHTML.h"

#include <initializer_list>

namespace tavernook {

namespace {

std::string joined(std::initializer_list<std::string_view> parts) {
    std::size_t size = 0;
    for (const std::string_view part : parts) size += part.size();
    std::string text;
    text.reserve(size);
    for (const std::string_view part : parts) text += part;
    return text;
}

}  // namespace

std::string TagHead() noexcept {
    return "<html><head><meta http-equiv='Content-Language' content='en-us'>"
           "<meta http-equiv='Content-Type' content='text/html; charset=windows-1252'>"
           "<meta name='GENERATOR' content='Brenwyk'>"
           "<meta name='ProgId' content='Brenwyk.Editor.Document'>"
           "<title>New Page 1</title></head><body>";
}

std::string TagTail() noexcept {
    return "</body></html>";
}

std::string TagRow() noexcept {
    return "<tr>";
}

std::string TagRowEnd() noexcept {
    return "</tr>";
}

std::string TagTableEnd() noexcept {
    return "</table>";
}

std::string TagBold() noexcept {
    return "<b>";
}

std::string TagBoldEnd() noexcept {
    return "</b>";
}

std::string TagRule() noexcept {
    return "<hr color='#000080'>";
}

std::string TagFontEnd() noexcept {
    return "</font>";
}

std::string TagTable(i16 border, i16 width) noexcept {
    return joined(
        {"<table border='", std::to_string(border), "' width='", std::to_string(width), "%'>"});
}

std::string TagPara(std::string_view text, i16 size) noexcept {
    return joined(
        {"<p><font face='Arial' size='", std::to_string(size), "'>", text, "</font></p>"});
}

std::string TagLine(std::string_view text, i16 size) noexcept {
    std::string line;
    append_line(line, {text}, size);
    return line;
}

void append_line(std::string& page, std::initializer_list<std::string_view> text,
                 i16 size) noexcept {
    page.append("<p style='margin-top: 0; margin-bottom: 0'><font size='");
    page.append(std::to_string(size)).append("' face='Arial'>");
    for (const std::string_view part : text) page.append(part);
    page.append("</font></p>");
}

std::string TagCell(std::string_view text, i16 size) noexcept {
    std::string cell;
    append_cell(cell, text, size);
    return cell;
}

void append_cell(std::string& page, std::string_view text, i16 size) noexcept {
    page.append("<td width='20%'><font face='Arial' size='").append(std::to_string(size));
    page.append("'>").append(text).append("</font></td>");
}

std::string TagFont(std::string_view face, i16 size) noexcept {
    return joined({"<font face='", face, "' size='", std::to_string(size), "'>"});
}

}  // namespace tavernook
