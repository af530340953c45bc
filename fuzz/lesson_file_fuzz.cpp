// A lesson from any bytes: it has a title and pages without marks, one gets to each page and back,
// and the same pages written plainly are the same lesson.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "aids/lessons.h"
#include "core/program_folders.h"
#include "kept_files.h"
#include "platform/platform.h"
#include "quiet_platform.h"

namespace tavernook {
namespace {

constexpr i16 section = 100;

void require(bool holds) {
    if (!holds) std::abort();
}

KeptFiles kept_files;
QuietPlatform quiet;

void prepare_once() {
    static const bool prepared = [] {
        Platform platform = quiet.platform();
        platform.files = &kept_files;
        set_platform(platform);
        return true;
    }();
    (void)prepared;
}

void read_lesson(const std::string& bytes) {
    kept_files.kept[in_program_folder(lesson_file_name(section))] = bytes;
    quiet.main.status = {};
    set_section(section);
    require(quiet.main.status == decltype(quiet.main.status){});
}

void check_pages() {
    require(tut_pages.size() >= 2 && tut_pages.size() <= 1001 && tut_pages.back().empty());
    for (const std::string& page : tut_pages) {
        require(page.find("/b/") == std::string::npos);
        require(page.find_first_of(std::string("\r\0", 2)) == std::string::npos);
        require(page.empty() || std::string(" \t\n").find(page.back()) == std::string::npos);
    }
}

void walk_there_and_back() {
    const i16 count = lesson_page_count();
    for (i16 page = 1; page < count; ++page) show_next_page();
    require(tut_page == std::max<i16>(count, 1));
    show_next_page();
    require(tut_page == std::max<i16>(count, 1) && lesson_page(to_i16(count + 1)).empty());
    for (i16 page = count; page > 1; --page) show_previous_page();
    show_previous_page();
    require(tut_page == 1);
}

// Behind an empty line: a title may begin with what means UTF-8 at the beginning of a file.
std::string plainly_written() {
    std::string text = "\r\n";
    for (std::size_t page = 0; page + 1 < tut_pages.size(); ++page) {
        text += tut_pages[page] + "\r\n/b/\r\n";
    }
    return text;
}

void follow(std::string_view input) {
    prepare_once();
    read_lesson(std::string(input));
    check_pages();
    walk_there_and_back();
    const std::vector<std::string> pages = tut_pages;
    read_lesson(plainly_written());
    require(tut_pages == pages);
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::follow({reinterpret_cast<const char*>(data), size});
    return 0;
}
