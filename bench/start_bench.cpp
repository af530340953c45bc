// How long the first window takes, beside the first paint of an empty main window. Both programs
// are started in turn, whole, and the medians compared.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int runs = 31;

// Milliseconds; below 0 when the program could not be run.
double time_of(const std::string& program) {
    std::string path = program;
    char* arguments[] = {path.data(), nullptr};
    const auto start = Clock::now();
    pid_t child = 0;
    int status = 0;
    if (posix_spawn(&child, path.c_str(), nullptr, nullptr, arguments, environ) != 0) return -1;
    if (waitpid(child, &status, 0) != child || status != 0) return -1;
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace

int main(int, char** argv) {
    const auto folder = std::filesystem::path(argv[0]).parent_path();
    const auto home = std::filesystem::temp_directory_path() / "tavernook_start_bench";
    setenv("TAVERNOOK_HOME", home.c_str(), 1);
    std::vector<double> empty;
    std::vector<double> ours;
    for (int run = 0; run <= runs; ++run) {
        const double yardstick = time_of(folder / "empty_window");
        const double measured = time_of(folder / "first_window");
        if (yardstick < 0 || measured < 0) {
            std::fprintf(stderr, "A program could not be run.\n");
            return 1;
        }
        if (run == 0) continue;  // warm-up
        empty.push_back(yardstick);
        ours.push_back(measured);
    }
    std::filesystem::remove_all(home);
    std::printf("first window %.1f ms, empty main window %.1f ms, ratio %.2f (goal 1.5)\n",
                median(ours), median(empty), median(ours) / median(empty));
    return 0;
}
