// The pages of the help as they are written, for tests of what stands in them.
#pragma once

#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "fakes/temp_folder.h"

namespace tavernook {

// By name, without the ending.
inline std::map<std::string, std::string> help_pages() {
    std::map<std::string, std::string> pages;
    for (const auto& one : std::filesystem::directory_iterator(
             std::filesystem::path(TAVERNOOK_SOURCE_FOLDER) / "assets/help")) {
        if (one.path().extension() != ".html") continue;
        pages[one.path().stem().string()] = read_whole_file(one.path().string());
    }
    return pages;
}

// Every match of the first group, in the order of the text.
inline std::vector<std::string> all_matches(const std::string& text, const char* pattern) {
    std::vector<std::string> found;
    const std::regex wanted(pattern);
    for (auto at = std::sregex_iterator(text.begin(), text.end(), wanted);
         at != std::sregex_iterator(); ++at) {
        found.push_back((*at)[1]);
    }
    return found;
}

// As it is read: entities are letters again, a line end is a blank.
inline std::string read_text(std::string text) {
    for (const auto& [entity, letter] : std::vector<std::pair<const char*, const char*>>{
             {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}, {"\n", " "}}) {
        const std::string from = entity;
        for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + 1)) {
            text.replace(at, from.size(), letter);
        }
    }
    return text;
}

}  // namespace tavernook
