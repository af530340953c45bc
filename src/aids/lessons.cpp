#include "aids/lessons.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "basics/code_page.h"
#include "basics/utf8_mark.h"
#include "core/program_folders.h"
#include "core/shipped_file.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

std::vector<std::string> tut_pages = {"", ""};
i16 tut_page = 1;
i16 tut_section = 0;

namespace {

constexpr i64 longest_file = 256 * 1024;
constexpr std::size_t most_pages = 999;
constexpr std::string_view page_end = "/b/";
constexpr std::string_view blanks = " \t\n";

std::function<std::string(const std::string& name)> shipped;

bool place(i16 section) {
    if (!shipped) return true;
    const std::string name = lesson_file_name(section);
    return place_shipped_file(name, [&] { return shipped(name); });
}

// In a folder where nothing can be placed the program has the lesson all the same.
std::string read_lesson(i16 section) {
    const std::string path = in_program_folder(lesson_file_name(section));
    if (!place(section) && !files().is_taken(path)) return shipped(lesson_file_name(section));
    const auto file = files().open(path, OpenMode::read);
    const i64 length = file->length();
    if (length > longest_file) throw Fault(fault_number::device_io_error);
    std::string bytes(static_cast<std::size_t>(length), '\0');
    bytes.resize(file->read(0, bytes.data(), bytes.size()));
    return bytes;
}

// In the code page. Editors that write UTF-8 may say so in front.
std::string in_code_page(const std::string& bytes) {
    if (!bytes.starts_with(utf8_mark)) return bytes;
    return text_from_utf8(std::string_view(bytes).substr(utf8_mark.size()));
}

// Every line ends with "\n", whatever ended it in the file; no zero bytes.
std::string with_plain_lines(const std::string& bytes) {
    std::string text;
    for (std::size_t place = 0; place < bytes.size(); ++place) {
        const bool ends_twice = bytes[place] == '\r' && bytes.substr(place + 1, 1) == "\n";
        if (bytes[place] == '\0' || ends_twice) continue;
        text.push_back(bytes[place] == '\r' ? '\n' : bytes[place]);
    }
    return text;
}

std::string without_blanks_around(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

// What stands behind the last mark is no page.
std::vector<std::string> pages_of(const std::string& text) {
    std::vector<std::string> pages;
    std::size_t from = 0;
    for (std::size_t end = text.find(page_end);
         end != std::string::npos && pages.size() <= most_pages; end = text.find(page_end, from)) {
        pages.push_back(without_blanks_around(std::string_view(text).substr(from, end - from)));
        from = end + page_end.size();
    }
    if (pages.empty()) pages.emplace_back();
    pages.emplace_back();
    return pages;
}

void tell_unread(i16 section) {
    main_window().set_status(message_panel, "The lesson could not be read from the file \"" +
                                                lesson_file_name(section) + "\".");
}

}  // namespace

std::string lesson_file_name(i16 section) noexcept {
    return "tut" + std::to_string(section) + ".dat";
}

void set_shipped_lessons(
    std::function<std::string(const std::string& name)> bytes_of_file) noexcept {
    shipped = std::move(bytes_of_file);
}

bool lay_out_lessons() noexcept {
    bool complete = true;
    for (const i16 section : lesson_sections) complete = place(section) && complete;
    return complete;
}

void set_section(i16 section) noexcept {
    tut_page = 1;
    populate_array(section);
    tut_proc(1);
}

void populate_array(i16 section) noexcept {
    tut_section = section;
    std::string text;
    const bool was_read =
        tried([&] { text = with_plain_lines(in_code_page(read_lesson(section))); });
    tut_pages = pages_of(text);
    if (!was_read) tell_unread(section);
}

void tut_proc(i16 page) noexcept {
    if (!lesson_page(page).empty()) tut_page = page;
}

void show_next_page() noexcept {
    if (tut_page < lesson_page_count()) tut_proc(to_i16(tut_page + 1));
}

void show_previous_page() noexcept {
    if (tut_page > 1) tut_proc(to_i16(tut_page - 1));
}

const std::string& lesson_title() noexcept {
    return tut_pages.front();
}

const std::string& lesson_page(i16 page) noexcept {
    const bool is_there = page >= 1 && static_cast<std::size_t>(page) < tut_pages.size();
    return is_there ? tut_pages[static_cast<std::size_t>(page)] : tut_pages.back();
}

i16 lesson_page_count() noexcept {
    const auto first_empty = std::find(tut_pages.begin() + 1, tut_pages.end(), std::string());
    return static_cast<i16>(first_empty - tut_pages.begin() - 1);
}

}  // namespace tavernook
