// An open project with folders for the pages, and short ways to put a template there and to read
// what became of it. It is Wednesday, 15 May 2024, 12:00.
#pragma once

#include "recipes/recipes_fixture.h"

namespace tavernook {

class PagesTest : public RecipesTest {
  protected:
    PagesTest() {
        for (const char* folder : {"/dat", "/reports", "/barcode"}) {
            platform.disk.make_folder(platform.system.program + folder);
        }
    }

    std::string in_program(std::string_view name) const {
        return platform.system.program + "/" + std::string(name);
    }
    void put_file(std::string_view name, std::string_view text) const {
        write_whole_file(in_program(name), text);
    }
    bool is_there(std::string_view name) { return platform.disk.exists(in_program(name)); }

    // The bytes of a page; empty where there is none.
    std::string page(std::string_view name) {
        return is_there(name) ? read_whole_file(in_program(name)) : "";
    }

    static std::string shipped(const std::string& name) {
        return read_whole_file(TAVERNOOK_SOURCE_FOLDER "/assets/pages/" + name);
    }
};

// What stands between the two texts; empty where they do not follow each other.
inline std::string between(const std::string& page, const std::string& front,
                           const std::string& back) {
    const std::size_t start = page.find(front);
    if (start == std::string::npos) return {};
    const std::size_t end = page.find(back, start + front.size());
    if (end == std::string::npos) return {};
    return page.substr(start + front.size(), end - start - front.size());
}

inline int occurrences(const std::string& page, const std::string& part) {
    int count = 0;
    for (std::size_t at = page.find(part); at != std::string::npos; at = page.find(part, at + 1)) {
        ++count;
    }
    return count;
}

}  // namespace tavernook
