#include "structure/class_rules.h"

#include <map>
#include <regex>
#include <set>

#include "structure/code_text.h"
#include "structure/includes.h"

namespace tavernook::structure {

namespace {

bool begins_with(const std::string& text, const char* start) {
    return text.rfind(start, 0) == 0;
}

bool is_header(const std::string& file) {
    return file.size() > 2 && file.compare(file.size() - 2, 2, ".h") == 0;
}

// Class -> the files in which methods of it are defined outside its body.
using Definitions = std::map<std::string, std::set<std::string>>;

void note_definition(Definitions& found, const std::string& file, const std::string& line) {
    // "Result<of> Class::method(" at the begin of a line; the layout of the sources sees to that.
    static const std::regex method(R"(^(?:[\w:<>,&*\[\] ]*[ &*>])?(\w+)::(?:~?\w+|operator\W+)\()");
    std::smatch match;
    if (std::regex_search(line, match, method)) found[match[1]].insert(file);
}

Definitions definitions_in(const SourceTree& tree) {
    Definitions found;
    for (const auto& [file, text] : tree) {
        for (const std::string& line : lines_of(code_of(text))) {
            const bool may_be = !line.empty() && line[0] != ' ' && line[0] != '#' &&
                                line.find("::") != std::string::npos;
            if (may_be) note_definition(found, file, line);
        }
    }
    return found;
}

void add_classes(std::vector<ClassFiles>& found, const std::string& header,
                 const std::string& code) {
    static const std::regex body(R"((?:^|\n)(?:class|struct) +(\w+)(?: +final)?\s*(:[^;{]*)?\{)");
    for (std::sregex_iterator at(code.begin(), code.end(), body), end; at != end; ++at) {
        found.push_back({(*at)[1], header, (*at)[2].matched, {}});
    }
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
}

}  // namespace

std::vector<ClassFiles> classes_of(const SourceTree& tree) {
    std::vector<ClassFiles> found;
    for (const auto& [file, text] : tree) {
        if (is_header(file)) add_classes(found, file, code_of(text));
    }
    const Definitions definitions = definitions_in(tree);
    for (ClassFiles& one : found) {
        const auto defined = definitions.find(one.name);
        if (defined == definitions.end()) continue;
        for (const std::string& file : defined->second) {
            if (file != one.header) one.sources.push_back(file);
        }
    }
    return found;
}

std::vector<std::string> scattered_classes(const SourceTree& tree) {
    std::vector<std::string> offences;
    for (const ClassFiles& one : classes_of(tree)) {
        if (one.sources.size() < 2) continue;
        offences.push_back(one.name + " of " + one.header + " has its methods in " +
                           joined(one.sources));
    }
    return offences;
}

std::vector<std::string> long_screen_classes(const SourceTree& tree) {
    std::vector<std::string> offences;
    for (const ClassFiles& one : classes_of(tree)) {
        if (!one.derives || !begins_with(one.header, "screens/")) continue;
        int lines = code_lines(tree.at(one.header));
        for (const std::string& source : one.sources) lines += code_lines(tree.at(source));
        if (lines <= longest_screen_class) continue;
        offences.push_back(one.name + " of " + one.header + " has " + std::to_string(lines) +
                           " lines of code");
    }
    return offences;
}

std::vector<std::string> stray_traps(const SourceTree& tree) {
    static const std::regex call(R"(\btrap(_in_\w+)?\s*\()");
    std::vector<std::string> offences;
    for (const auto& [file, text] : tree) {
        if (!begins_with(file, "screens/") || begins_with(file, "screens/parts/")) continue;
        int number = 0;
        for (const std::string& line : lines_of(code_of(text))) {
            ++number;
            if (!std::regex_search(line, call)) continue;
            offences.push_back(place(file, number) + " traps Faults by itself");
        }
    }
    return offences;
}

}  // namespace tavernook::structure
