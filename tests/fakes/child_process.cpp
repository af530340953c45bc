#include "fakes/child_process.h"

#include <cerrno>
#include <cstdio>
#include <exception>
#include <gtest/gtest.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace tavernook {

namespace {

[[noreturn]] void run_and_exit(const std::function<void()>& body) {
    int status = 0;
    try {
        body();
        status = testing::Test::HasFailure() ? 1 : 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The child ended with: %s\n", error.what());
        status = 1;
    }
    std::fflush(nullptr);
    ::_exit(status);
}

}  // namespace

int exit_status_in_child(const std::function<void()>& body) {
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child < 0) throw std::runtime_error("cannot fork");
    if (child == 0) run_and_exit(body);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) throw std::runtime_error("cannot wait for the child");
    }
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace tavernook
