// No test may depend on how quick the machine is. Figures are the benchmarks' business; the clock
// of the program under test is a fake one, and its timers tick when a test says so. What has to be
// waited for is waited for by gui_support/waiting.h, without a limit that a slow machine could
// meet.
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "structure/source_rules.h"

namespace tavernook::structure {
namespace {

// Each in two halves, so that this file does not find itself.
std::vector<std::string> words_of_time() {
    const std::vector<std::pair<const char*, const char*>> halves = {{"QElapsed", "Timer"},
                                                                     {"QDeadline", "Timer"},
                                                                     {"steady_", "clock"},
                                                                     {"system_", "clock"},
                                                                     {"high_resolution_", "clock"},
                                                                     {"this_", "thread"},
                                                                     {"q", "Wait"},
                                                                     {"q", "Sleep("},
                                                                     {"us", "leep("},
                                                                     {"QTRY", "_"},
                                                                     {"QBENCH", "MARK"},
                                                                     {"std::", "clock("}};
    std::vector<std::string> words;
    for (const auto& [first, second] : halves) words.push_back(std::string(first) + second);
    return words;
}

std::vector<std::string> tests_that_measure_or_wait(const SourceTree& tests) {
    std::vector<std::string> offences;
    for (const auto& [file, text] : tests) {
        if (file == "gui_support/waiting.h") continue;
        for (const std::string& word : words_of_time()) {
            if (text.find(word) != std::string::npos) offences.push_back(file + " uses " + word);
        }
    }
    return offences;
}

TEST(TestTree, NoTestMeasuresOrWaitsForTime) {
    const SourceTree tests = read_source_tree(std::string(TAVERNOOK_SOURCE_FOLDER) + "/tests");
    EXPECT_GE(tests.size(), 100u);
    EXPECT_EQ(tests.count("gui_support/waiting.h"), 1u);
    EXPECT_EQ(tests_that_measure_or_wait(tests), std::vector<std::string>{});
}

TEST(TestsThatMeasureOrWait, AreSeenEverywhereButInTheHelper) {
    for (const std::string& word : words_of_time()) {
        const std::string text = "void f() {\n    " + word + "();\n}\n";
        EXPECT_EQ(tests_that_measure_or_wait({{"screens/a_test.cpp", text}}),
                  std::vector<std::string>{"screens/a_test.cpp uses " + word});
        EXPECT_TRUE(tests_that_measure_or_wait({{"gui_support/waiting.h", text}}).empty());
    }
}

}  // namespace
}  // namespace tavernook::structure
