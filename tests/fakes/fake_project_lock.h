// Project locks in memory.
#pragma once

#include <set>
#include <string>

#include "platform/project_lock.h"

namespace tavernook {

class FakeProjectLock : public ProjectLock {
  public:
    bool acquire(const std::string& project_path) override {
        if (taken_elsewhere.count(project_path) > 0) return false;
        held.insert(project_path);
        return true;
    }
    void release(const std::string& project_path) override { held.erase(project_path); }

    std::set<std::string> taken_elsewhere;  // paths that "another program" has open
    std::set<std::string> held;             // paths that this program holds
};

}  // namespace tavernook
