#include "structure/source_rules.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string_view>
#include <system_error>

namespace tavernook::structure {

namespace {

namespace fs = std::filesystem;

using Rooms = std::set<std::string>;

const Rooms logic_rooms = {"core",     "inventory", "recipes",  "planning", "shopping",
                           "barcodes", "reports",   "transfer", "aids"};
const Rooms qt_rooms = {"rich_text", "platform_qt", "screens", "app"};

// Room -> the rooms that its files may include.
std::map<std::string, Rooms> allowed_arrows() {
    std::map<std::string, Rooms> arrows;
    arrows["basics"] = {"basics"};
    arrows["platform"] = {"platform", "basics"};
    arrows["rich_text"] = {"rich_text", "basics"};
    arrows["platform_disk"] = {"platform_disk", "platform", "basics"};
    Rooms from_logic = logic_rooms;
    from_logic.insert({"platform", "basics"});
    for (const std::string& room : logic_rooms) arrows[room] = from_logic;
    arrows["platform_qt"] = from_logic;
    arrows["platform_qt"].insert({"platform_qt", "platform_disk"});
    arrows["screens"] = from_logic;
    arrows["screens"].insert({"screens", "rich_text"});
    for (const auto& [room, targets] : arrows) arrows["app"].insert(room);
    arrows["app"].insert("app");
    return arrows;
}

struct Include {
    int line;
    std::string name;
    bool quoted;
};

std::string_view without_blanks_in_front(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

bool take(std::string_view& text, std::string_view word) {
    text = without_blanks_in_front(text);
    if (text.substr(0, word.size()) != word) return false;
    text.remove_prefix(word.size());
    return true;
}

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

std::string normal(const fs::path& path) {
    return path.lexically_normal().generic_string();
}

// Where the include leads, as a path below src/; first beside the including file, then from the
// root. A path that leaves src/ begins with "..".
std::string target_of(const SourceTree& tree, const std::string& file, const Include& include) {
    if (include.quoted) {
        const std::string beside = normal(fs::path(file).parent_path() / include.name);
        if (tree.count(beside) > 0 || include.name.rfind("..", 0) == 0) return beside;
    }
    return normal(include.name);
}

// "" for a file that lies in no room.
std::string room_of(const std::string& path) {
    const std::size_t slash = path.find('/');
    return slash == std::string::npos ? "" : path.substr(0, slash);
}

std::string place(const std::string& file, int line) {
    return file + ":" + std::to_string(line);
}

bool begins_with(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

bool ends_with(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// <QString>, <QtCore/QString>, <qglobal.h>, and what Qt's tools generate.
bool is_qt_header(std::string_view name) {
    const bool lower_case_header =
        begins_with(name, "q") && ends_with(name, ".h") && name.find('/') == std::string_view::npos;
    return begins_with(name, "Q") || lower_case_header || begins_with(name, "ui_") ||
           begins_with(name, "moc_") || ends_with(name, ".moc");
}

// Depth first; `path` holds the files on the way from the start.
class CircleSearch {
  public:
    explicit CircleSearch(const SourceTree& tree) : tree_(tree) {}

    std::vector<std::string> run() {
        for (const auto& [file, text] : tree_) visit(file);
        return circles_;
    }

  private:
    void visit(const std::string& file) {
        if (done_.count(file) > 0) return;
        const auto on_path = std::find(path_.begin(), path_.end(), file);
        if (on_path != path_.end()) {
            report(on_path);
            return;
        }
        path_.push_back(file);
        for (const Include& include : includes_of(tree_.at(file))) {
            const std::string target = target_of(tree_, file, include);
            if (tree_.count(target) > 0) visit(target);
        }
        path_.pop_back();
        done_.insert(file);
    }

    void report(std::vector<std::string>::const_iterator start) {
        std::string circle;
        for (auto file = start; file != path_.end(); ++file) circle += *file + " -> ";
        circles_.push_back(circle + *start);
    }

    const SourceTree& tree_;
    std::set<std::string> done_;
    std::vector<std::string> path_;
    std::vector<std::string> circles_;
};

std::string read_file(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        throw fs::filesystem_error("cannot open", path, std::make_error_code(std::errc::io_error));
    }
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace

SourceTree read_source_tree(const std::string& folder) {
    static const std::set<std::string> endings = {".h",  ".hpp", ".hh",  ".inc",
                                                  ".cc", ".cpp", ".cxx", ".ipp"};
    SourceTree tree;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file() || endings.count(entry.path().extension().string()) == 0) {
            continue;
        }
        tree[entry.path().lexically_relative(folder).generic_string()] = read_file(entry.path());
    }
    return tree;
}

int count_inner_includes(const SourceTree& tree) {
    int count = 0;
    for (const auto& [file, text] : tree) {
        for (const Include& include : includes_of(text)) {
            count += tree.count(target_of(tree, file, include)) > 0 ? 1 : 0;
        }
    }
    return count;
}

std::vector<std::string> broken_arrows(const SourceTree& tree) {
    static const std::map<std::string, Rooms> arrows = allowed_arrows();
    std::vector<std::string> offences;
    for (const auto& [file, text] : tree) {
        const auto allowed = arrows.find(room_of(file));
        if (allowed == arrows.end()) {
            offences.push_back(file + " lies in no known room");
            continue;
        }
        for (const Include& include : includes_of(text)) {
            const std::string target = target_of(tree, file, include);
            const std::string room = room_of(target);
            if (room == "..") {
                offences.push_back(place(file, include.line) + " leaves src/ for " + target);
            } else if (arrows.count(room) > 0 && allowed->second.count(room) == 0) {
                offences.push_back(place(file, include.line) + " must not include " + target);
            }
        }
    }
    return offences;
}

std::vector<std::string> misplaced_qt(const SourceTree& tree) {
    std::vector<std::string> offences;
    for (const auto& [file, text] : tree) {
        if (qt_rooms.count(room_of(file)) > 0) continue;
        for (const Include& include : includes_of(text)) {
            if (!is_qt_header(include.name)) continue;
            offences.push_back(place(file, include.line) + " must not include " + include.name);
        }
    }
    return offences;
}

std::vector<std::string> include_circles(const SourceTree& tree) {
    return CircleSearch(tree).run();
}

std::vector<std::string> raw_dialogs(const SourceTree& tree) {
    std::vector<std::string> offences;
    for (const auto& [file, text] : tree) {
        if (room_of(file) == "platform_qt") continue;
        for (const char* name : {"QMessageBox", "QInputDialog", "QFileDialog"}) {
            const std::size_t found = text.find(name);
            if (found == std::string::npos) continue;
            const auto line =
                std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(found), '\n');
            offences.push_back(place(file, static_cast<int>(line) + 1) + " uses " + name);
        }
    }
    return offences;
}

}  // namespace tavernook::structure
