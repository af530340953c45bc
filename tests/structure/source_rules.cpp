#include "structure/source_rules.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string_view>
#include <system_error>

#include "structure/includes.h"

namespace tavernook::structure {

namespace {

namespace fs = std::filesystem;

const std::set<std::string> qt_rooms = {"rich_text", "platform_qt", "platform_web", "screens",
                                        "app"};

// The folder right below src/.
std::string folder_of(const std::string& path) {
    const std::size_t slash = path.find('/');
    return slash == std::string::npos ? "" : path.substr(0, slash);
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

std::vector<std::string> misplaced_qt(const SourceTree& tree) {
    std::vector<std::string> offences;
    for (const auto& [file, text] : tree) {
        if (qt_rooms.count(folder_of(file)) > 0) continue;
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
        if (folder_of(file) == "platform_qt") continue;
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
