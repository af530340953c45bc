#include "structure/routine_rules.h"

#include <algorithm>
#include <cctype>
#include <regex>
#include <set>

#include "structure/arrows.h"
#include "structure/code_text.h"
#include "structure/includes.h"

namespace tavernook::structure {

namespace {

const std::set<std::string> logic_rooms = {"core",     "core/project", "inventory", "recipes",
                                           "planning", "shopping",     "barcodes",  "aids",
                                           "reports",  "transfer",     "today"};

bool is_name(char letter) {
    return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_';
}

bool is_space(char letter) {
    return std::isspace(static_cast<unsigned char>(letter)) != 0;
}

// A statement outside of all braces but those of namespaces, and where it begins.
struct Statement {
    std::string text;
    int line = 0;
};

// Cuts the code of a header into such statements. A body is the end of its statement.
class StatementReader {
  public:
    explicit StatementReader(std::string code) : code_(std::move(code)) {}

    std::vector<Statement> run() {
        for (const char letter : code_) {
            if (letter == '\n') {
                ++line_;
                in_directive_ = false;
            }
            read(letter);
        }
        return found_;
    }

  private:
    void read(char letter) {
        const bool at_start = present_.text.empty();
        if (letter == '#' && at_start) in_directive_ = true;
        if (in_directive_ || (at_start && is_space(letter))) return;
        if (letter == '{') return open();
        if (letter == '}') return close();
        if (depth_ > 0) return;
        if (letter == ';') return end();
        if (at_start) present_.line = line_;
        present_.text += letter;
    }

    void open() {
        const bool is_namespace = present_.text.find("namespace") != std::string::npos;
        if (depth_ == 0 && is_namespace) {
            present_ = {};
            return;
        }
        if (depth_ == 0) end();
        ++depth_;
    }

    void close() {
        if (depth_ > 0) --depth_;
    }

    void end() {
        if (!present_.text.empty()) found_.push_back(present_);
        present_ = {};
    }

    std::string code_;
    std::vector<Statement> found_;
    Statement present_;
    int line_ = 1;
    int depth_ = 0;
    bool in_directive_ = false;
};

// Where the parameters begin: the first "(" that stands in no "<...>".
std::size_t parameters_of(const std::string& text) {
    int depth = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '<') ++depth;
        if (text[at] == '>') --depth;
        if (text[at] == '(' && depth == 0) return at;
    }
    return std::string::npos;
}

// The function that a statement declares; "" for one that declares none.
std::string function_in(const std::string& text) {
    static const std::regex other(
        R"(^\s*(?:using|typedef|static_assert|enum|class|struct|union)\b)");
    const std::size_t open = parameters_of(text);
    if (open == std::string::npos || std::regex_search(text, other)) return "";
    const std::string before = text.substr(0, open);
    if (before.find('=') != std::string::npos) return "";
    std::size_t start = open;
    while (start > 0 && is_name(before[start - 1])) --start;
    return before.substr(start);
}

bool is_comment(const std::string& line) {
    return line.compare(0, 2, "//") == 0;
}

// The comment above the line and above the declarations that stand right before it.
std::string comment_above(const std::vector<std::string>& lines, int line) {
    std::string comment;
    for (int at = line - 2; at >= 0; --at) {
        const std::string& above = lines[static_cast<std::size_t>(at)];
        if (is_blank(above)) break;
        if (is_comment(above)) comment.insert(0, above.substr(2) + " ");
    }
    return comment;
}

bool tells_of_a_fault(const std::string& comment) {
    static const std::regex words(R"(\bFaults? +\d|\b[Tt]hrows?\b)");
    return std::regex_search(comment, words);
}

bool is_header_of_the_logic(const std::string& file) {
    const bool is_header = file.size() > 2 && file.compare(file.size() - 2, 2, ".h") == 0;
    return is_header && file != "core/trap.h" && logic_rooms.count(room_of(file)) > 0;
}

}  // namespace

std::vector<Routine> routines_of(const std::string& header) {
    static const std::regex word(R"(\bnoexcept\b)");
    const std::vector<std::string> lines = lines_of(header);
    std::vector<Routine> found;
    for (const Statement& statement : StatementReader(code_of(header)).run()) {
        const std::string name = function_in(statement.text);
        if (name.empty()) continue;
        found.push_back({name, statement.line, std::regex_search(statement.text, word),
                         tells_of_a_fault(comment_above(lines, statement.line))});
    }
    return found;
}

std::vector<std::string> offered_headers(const SourceTree& tree) {
    std::set<std::string> found;
    for (const auto& [file, text] : tree) {
        for (const Include& include : includes_of(text)) {
            const std::string target = target_of(tree, file, include);
            const bool from_outside = tree.count(target) > 0 && room_of(target) != room_of(file);
            if (from_outside && is_header_of_the_logic(target)) found.insert(target);
        }
    }
    return {found.begin(), found.end()};
}

std::vector<std::string> untold_routines(const SourceTree& tree) {
    std::vector<std::string> offences;
    for (const std::string& file : offered_headers(tree)) {
        for (const Routine& routine : routines_of(tree.at(file))) {
            if (routine.is_noexcept || routine.lets_through) continue;
            offences.push_back(place(file, routine.line) + " " + routine.name +
                               " is not noexcept and names no Fault");
        }
    }
    return offences;
}

std::vector<std::string> routines_that_let_through(const SourceTree& tree) {
    std::set<std::string> names;
    for (const std::string& file : offered_headers(tree)) {
        for (const Routine& routine : routines_of(tree.at(file))) {
            if (!routine.is_noexcept && routine.lets_through) names.insert(routine.name);
        }
    }
    return {names.begin(), names.end()};
}

}  // namespace tavernook::structure
