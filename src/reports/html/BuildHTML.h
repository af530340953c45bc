// The fragments of which pages are put together: pure functions that give text. Nothing is escaped:
// what holds markup goes into the page as it stands, so that a caller may pass ready HTML. Sizes
// are HTML font sizes, 1 to 7.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "basics/values.h"

namespace tavernook {

std::string TagHead() noexcept;
std::string TagTail() noexcept;
std::string TagRow() noexcept;
std::string TagRowEnd() noexcept;
std::string TagTableEnd() noexcept;
std::string TagBold() noexcept;
std::string TagBoldEnd() noexcept;
std::string TagRule() noexcept;
std::string TagFontEnd() noexcept;

// The width is in per cent; 0 leaves it to the browser.
std::string TagTable(i16 border, i16 width) noexcept;
std::string TagPara(std::string_view text, i16 size) noexcept;

// A paragraph without room above and below: one line under the other.
std::string TagLine(std::string_view text, i16 size) noexcept;

// The same behind what the page holds already, its text in parts.
void append_line(std::string& page, std::initializer_list<std::string_view> text,
                 i16 size) noexcept;

// 20% wide, however many columns there are.
std::string TagCell(std::string_view text, i16 size) noexcept;

// The same behind what the page holds already, for long lists.
void append_cell(std::string& page, std::string_view text, i16 size) noexcept;

std::string TagFont(std::string_view face, i16 size) noexcept;

}  // namespace tavernook
