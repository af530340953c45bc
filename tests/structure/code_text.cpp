#include "structure/code_text.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace tavernook::structure {

namespace {

bool is_word(char letter) {
    return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_';
}

// Walks over a text once and blanks what is no code.
class Blanker {
  public:
    explicit Blanker(const std::string& text) : text_(text), code_(text) {}

    std::string run() {
        while (at_ < text_.size()) step();
        return code_;
    }

  private:
    bool here(const char* word) const {
        return text_.compare(at_, std::char_traits<char>::length(word), word) == 0;
    }

    // Blanks up to `end`, line ends apart, and goes on there.
    void blank_to(std::size_t end) {
        for (; at_ < std::min(end, text_.size()); ++at_) {
            if (text_[at_] != '\n') code_[at_] = ' ';
        }
    }

    std::size_t behind(const std::string& end) const {
        const std::size_t found = text_.find(end, at_);
        return found == std::string::npos ? text_.size() : found + end.size();
    }

    void step() {
        if (here("//")) return blank_to(std::min(text_.find('\n', at_), text_.size()));
        if (here("/*")) return blank_to(behind("*/"));
        if (here("R\"")) return raw_string();
        const char letter = text_[at_];
        const bool separator = letter == '\'' && at_ > 0 && is_word(text_[at_ - 1]);
        if (letter == '"' || (letter == '\'' && !separator)) return quoted(letter);
        ++at_;
    }

    void raw_string() {
        const std::size_t open = text_.find('(', at_);
        if (open == std::string::npos) return blank_to(text_.size());
        const std::string end = ")" + text_.substr(at_ + 2, open - at_ - 2) + "\"";
        at_ += 2;
        blank_to(behind(end) - 1);
        ++at_;
    }

    void quoted(char quote) {
        std::size_t end = at_ + 1;
        while (end < text_.size() && text_[end] != quote && text_[end] != '\n') {
            end += text_[end] == '\\' ? 2 : 1;
        }
        ++at_;
        blank_to(end);
        ++at_;
    }

    const std::string& text_;
    std::string code_;
    std::size_t at_ = 0;
};

}  // namespace

std::string code_of(const std::string& text) {
    return Blanker(text).run();
}

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

bool is_blank(const std::string& line) {
    return line.find_first_not_of(" \t\r") == std::string::npos;
}

int code_lines(const std::string& text) {
    const std::vector<std::string> lines = lines_of(code_of(text));
    return static_cast<int>(std::count_if(lines.begin(), lines.end(),
                                          [](const auto& line) { return !is_blank(line); }));
}

}  // namespace tavernook::structure
