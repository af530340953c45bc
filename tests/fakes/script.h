// A queue of expectations for a fake that answers questions. Every deviation fails the running
// test; a question to a fake that was never given a script ends the process.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>

namespace tavernook {

// Where a test stated an expectation.
struct Origin {
    const char* file;
    int line;
};

// `Expectation` has an `Origin origin` and a `std::string name() const`.
template <typename Expectation>
class Script {
  public:
    // A script without expectations: any question fails the test.
    void install() { installed_ = true; }

    Expectation& add(Expectation expectation) {
        installed_ = true;
        queue_.push_back(std::move(expectation));
        return queue_.back();
    }

    // The next expectation; none, and a failed test, when the script is used up.
    std::optional<Expectation> take(const std::string& question) {
        if (!installed_) end_process("No script for: ", question);
        if (queue_.empty()) {
            // Code that asks again until it likes the answer would never come to an end.
            if (++unexpected_ > 100) end_process("Asked without end: ", question);
            ADD_FAILURE() << "Unexpected: " << question;
            return std::nullopt;
        }
        Expectation next = std::move(queue_.front());
        queue_.pop_front();
        return next;
    }

    // Fails the test once for each expectation left over, and drops them.
    void check_used_up() {
        for (const Expectation& left : queue_) {
            ADD_FAILURE_AT(left.origin.file, left.origin.line) << "Never asked: " << left.name();
        }
        queue_.clear();
    }

  private:
    [[noreturn]] static void end_process(const char* what, const std::string& question) {
        std::fprintf(stderr, "%s%s\n", what, question.c_str());
        std::abort();
    }

    std::deque<Expectation> queue_;
    bool installed_ = false;
    int unexpected_ = 0;
};

// A line for the failure message when the two differ, else nothing.
inline std::string difference(const char* what, const std::string& expected,
                              const std::string& actual) {
    if (expected == actual) return {};
    return std::string("\n  ") + what + ": \"" + actual + "\", expected \"" + expected + "\"";
}

}  // namespace tavernook
