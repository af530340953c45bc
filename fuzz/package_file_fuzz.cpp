// Unpacking of any bytes, with every box answered by one bit of the first byte, and into folders
// that hold a text already. A package is refused and nothing has changed, or what came out is what
// its rules give byte by byte, in the recipes folder and beside the package and nowhere else.
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>

#include "core/program_folders.h"
#include "core/program_state.h"
#include "core/project_data.h"
#include "kept_files.h"
#include "platform/platform.h"
#include "quiet_platform.h"
#include "transfer/package.h"

namespace tavernook {
namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

// The text questions are answered by the first bit; the project is never opened.
class AnsweringBoxes : public Boxes {
  public:
    bool overwrites = false;
    bool has_failed = false;

    Answer message(std::string_view text, Buttons buttons, std::string_view,
                   DefaultButton) override {
        if (buttons == Buttons::ok) {
            has_failed = true;
            return Answer::ok;
        }
        return text.starts_with("File ") && overwrites ? Answer::yes : Answer::no;
    }
    std::optional<std::string> input(std::string_view, std::string_view,
                                     std::string_view) override {
        return std::nullopt;
    }
};

// Files of one length are not one file here.
class NodeFiles : public KeptFiles {
  public:
    FileStamp stamp(const std::string& path) override {
        FileStamp stamp = KeptFiles::stamp(path);
        if (exists(path)) stamp.node = std::distance(kept.begin(), kept.find(path)) + 1;
        return stamp;
    }
};

constexpr const char* source = "/home/trip.vpk";
constexpr const char* target = "/home/trip.tvk";
constexpr std::string_view recipes = "/program/recipes/";

struct Household {
    NodeFiles files;
    AnsweringBoxes boxes;
    StillClock clock;
    QuietMain main;
    QuietProgress progress;
    QuietLock lock;
    FixedInfo system;

    Household() {
        set_platform({.clock = &clock,
                      .boxes = &boxes,
                      .files = &files,
                      .project_lock = &lock,
                      .system_info = &system,
                      .save_progress = &progress,
                      .main = &main});
        recipes_folder = recipes;
    }
};

void run(std::string_view input) {
    if (input.empty()) return;
    static Household& household = *new Household;
    auto& kept = household.files.kept;
    kept.clear();
    kept[source] = input.substr(1);
    kept[target] = "an earlier one";
    kept[std::string(recipes) + "soup.rtf"] = "mine";
    const auto before = kept;
    household.boxes.overwrites = (input[0] & 1) != 0;
    household.boxes.has_failed = false;
    unpack_project(source);
    if (household.boxes.has_failed) return require(kept == before);
    require(kept.at("/home/trip 2.tvk") == "an earlier one");
    const std::string& package = kept.at(source);
    require(package.compare(99, kept.at(target).size(), kept.at(target)) == 0);
    for (const auto& [path, bytes] : kept) {
        const bool is_text =
            path.starts_with(recipes) && path.find('/', recipes.size()) == std::string::npos;
        require(is_text || path.starts_with("/home/trip"));
        require(bytes == "mine" || path == source || path == "/home/trip 2.tvk" ||
                package.find(bytes) != std::string::npos);
    }
}

}  // namespace
}  // namespace tavernook

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavernook::run({reinterpret_cast<const char*>(data), size});
    return 0;
}
