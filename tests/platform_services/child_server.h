// A server program of the test, killed at its end.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace tavernook {

class ChildServer {
  public:
    // Runs /usr/bin/python3 with these arguments and waits for the port that it prints.
    explicit ChildServer(const std::vector<std::string>& arguments);
    ~ChildServer();
    ChildServer(const ChildServer&) = delete;
    ChildServer& operator=(const ChildServer&) = delete;

    // 0 when the program ended without a port.
    int port() const { return port_; }

    void kill() noexcept;

  private:
    pid_t child_ = -1;
    int port_ = 0;
};

// Whether /usr/bin/python3 has all of these modules.
bool python_has(const std::string& modules);

}  // namespace tavernook
