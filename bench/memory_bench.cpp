// What a full project with every item on the shopping list keeps in memory while the four main
// screens are open: the program is started on it, whole, beside an empty main window. Goal: 120 MB.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "core/project/project_save.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "support/generated_projects.h"

namespace tavernook {
namespace {

constexpr double goal = 120;  // MB

bool save_full_project(const std::string& path) {
    fill_full_project();
    for (i16 item = 1; item <= item_capacity; ++item) {
        items[item].on_shopping_list = i16_true;
        items[item].shopping_quantity = 1;
    }
    audit_hour = 0;  // the clock of the day has no say
    project_path = path;
    project_name = "bench.tvk";
    return Project_Save(i16_true);
}

// The last figure that the program prints, in MB; below 0 when it could not be run.
double measured(const std::string& command) {
    FILE* out = ::popen(command.c_str(), "r");
    if (out == nullptr) return -1;
    double kilobytes = -1;
    char line[200];
    while (std::fgets(line, sizeof line, out) != nullptr) {
        kilobytes = std::atof(line);
        std::printf("  %6.1f MB %s", kilobytes / 1024, line + std::string(line).find(' ') + 1);
    }
    return ::pclose(out) == 0 ? kilobytes / 1024 : -1;
}

int run(const std::string& program) {
    const TestPlatform platform;
    const std::string project = platform.path("bench.tvk");
    if (!save_full_project(project)) return 1;
    ::setenv("TAVERNOOK_HOME", platform.path("home").c_str(), 1);
    const bool display =
        std::getenv("DISPLAY") != nullptr || std::getenv("WAYLAND_DISPLAY") != nullptr;
    if (!display) ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const double empty = measured("'" + program + "'");
    const double full = measured("'" + program + "' '" + project + "'");
    if (empty < 0 || full < 0) {
        std::fprintf(stderr, "A program could not be run.\n");
        return 1;
    }
    std::printf("full project %.1f MB, empty main window %.1f MB, ratio %.2f (goal %.0f MB)\n",
                full, empty, full / empty, goal);
    return 0;
}

}  // namespace
}  // namespace tavernook

int main(int, char** argv) {
    const auto folder = std::filesystem::absolute(argv[0]).parent_path();
    return tavernook::run((folder / "open_project").string());
}
