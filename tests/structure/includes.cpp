#include "structure/includes.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string_view>

namespace tavernook::structure {

namespace {

namespace fs = std::filesystem;

std::string_view without_blanks_in_front(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

bool take(std::string_view& text, std::string_view word) {
    text = without_blanks_in_front(text);
    if (text.substr(0, word.size()) != word) return false;
    text.remove_prefix(word.size());
    return true;
}

std::string normal(const fs::path& path) {
    return path.lexically_normal().generic_string();
}

}  // namespace

std::vector<Include> includes_of(const std::string& text) {
    std::vector<Include> includes;
    std::istringstream lines(text);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        std::string_view rest = line;
        if (!take(rest, "#") || !take(rest, "include")) continue;
        const bool quoted = take(rest, "\"");
        if (!quoted && !take(rest, "<")) continue;
        const std::string_view name = rest.substr(0, rest.find(quoted ? '"' : '>'));
        includes.push_back({number, std::string(name), quoted});
    }
    return includes;
}

std::string target_of(const SourceTree& tree, const std::string& file, const Include& include) {
    if (include.quoted) {
        const std::string beside = normal(fs::path(file).parent_path() / include.name);
        if (tree.count(beside) > 0 || include.name.rfind("..", 0) == 0) return beside;
    }
    return normal(include.name);
}

std::string place(const std::string& file, int line) {
    return file + ":" + std::to_string(line);
}

}  // namespace tavernook::structure
