#include "platform_services/child_server.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <map>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavernook {

namespace {

constexpr const char* python = "/usr/bin/python3";

[[noreturn]] void become(const std::vector<std::string>& arguments, int output) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);  // it complains of those who cancel
    std::vector<char*> words = {const_cast<char*>(python)};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    ::execv(python, words.data());
    ::_exit(127);
}

std::string first_line(int input) {
    std::string line;
    for (char letter = 0; ::read(input, &letter, 1) == 1 && letter != '\n';) line += letter;
    return line;
}

}  // namespace

ChildServer::ChildServer(const std::vector<std::string>& arguments) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    child_ = ::fork();
    if (child_ < 0) throw std::runtime_error("cannot fork");
    if (child_ == 0) become(arguments, ends[1]);
    ::close(ends[1]);
    port_ = std::atoi(first_line(ends[0]).c_str());
    ::close(ends[0]);
}

ChildServer::~ChildServer() {
    kill();
}

void ChildServer::kill() noexcept {
    if (child_ < 0) return;
    ::kill(child_, SIGKILL);
    ::waitpid(child_, nullptr, 0);
    child_ = -1;
}

bool python_has(const std::string& modules) {
    static std::map<std::string, bool> known;
    const auto [place, is_new] = known.try_emplace(modules);
    if (is_new) {
        const std::string question = std::string(python) + " -c 'import " + modules + "'";
        place->second = std::system((question + " 2>/dev/null").c_str()) == 0;
    }
    return place->second;
}

}  // namespace tavernook
