// Project locks in memory.
#pragma once

#include <map>
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
    std::optional<LockHolder> holder_elsewhere(const std::string& project_path) override {
        const auto found = on_other_machines.find(project_path);
        if (found == on_other_machines.end()) return {};
        return found->second;
    }
    bool take_over(const std::string& project_path) override {
        if (on_other_machines.erase(project_path) > 0) taken_elsewhere.erase(project_path);
        return acquire(project_path);
    }
    void release(const std::string& project_path) override { held.erase(project_path); }

    std::set<std::string> taken_elsewhere;  // paths that "another program" has open

    // Those of them whose lock was left on another machine; taking over succeeds.
    std::map<std::string, LockHolder> on_other_machines;
    std::set<std::string> held;  // paths that this program holds
};

}  // namespace tavernook
