// The lessons of the tutorial: a title and short pages of text, which the reader shows beside the
// live screens. Each is a file "tut<section>.dat" in the program's folder
// (docs/formats/lesson_file.md). One lesson at a time is the present one.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "basics/values.h"

namespace tavernook {

inline constexpr std::array<i16, 7> lesson_sections = {100, 200, 300, 400, 500, 600, 700};

// The present lesson: its title in front, then its pages from 1, then an empty text. Texts of the
// code page with "\n" between their lines.
extern std::vector<std::string> tut_pages;
extern i16 tut_page;     // the page on show, from 1
extern i16 tut_section;  // of the present lesson, 0 before the first one

// "tut300.dat".
std::string lesson_file_name(i16 section) noexcept;

// The program hands over what it carries; one without lessons lays none out.
void set_shipped_lessons(
    std::function<std::string(const std::string& name)> bytes_of_file) noexcept;

// Places the files that are missing, and those that an older program has placed and nobody has
// changed, each whole or not at all. False when one could not be placed; the others are.
[[nodiscard]] bool lay_out_lessons() noexcept;

// Makes a lesson the present one, at its first page.
void set_section(i16 section) noexcept;

// Fills tut_pages from the lesson's file, which is laid out first where it has been deleted; where
// that cannot be, from what the program carries. A file
// that cannot be read or is longer than 256 KB gives a lesson without title and pages, and the
// message panel tells so.
void populate_array(i16 section) noexcept;

// The page is the one on show. Where the lesson has no such page the one on show stays.
void tut_proc(i16 page) noexcept;

// Nothing happens at the last page or at the first.
void show_next_page() noexcept;
void show_previous_page() noexcept;

const std::string& lesson_title() noexcept;
const std::string& lesson_page(i16 page) noexcept;  // empty where there is none
i16 lesson_page_count() noexcept;                   // as far as one gets from page to page

}  // namespace tavernook
