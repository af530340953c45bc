// Keeps a second running program from opening the project that this one has open.
#pragma once

#include <optional>
#include <string>

#include "basics/date.h"

namespace tavernook {

struct LockHolder {
    std::string machine;  // text
    Date since = 0;
};

class ProjectLock {
  public:
    virtual ~ProjectLock() = default;

    // Takes the project for this program; what it held before stays held until `release`.
    // False when another running program has it. A lock left behind by a crash does not count,
    // and a folder that cannot be written needs none.
    virtual bool acquire(const std::string& project_path) = 0;

    // Whose lock refused the project, when that was another machine, where nobody can tell whether
    // the program still runs.
    virtual std::optional<LockHolder> holder_elsewhere(const std::string&) { return {}; }

    // Takes the project in spite of such a lock. False as for `acquire`.
    virtual bool take_over(const std::string& project_path) { return acquire(project_path); }
    virtual void release(const std::string& project_path) = 0;
};

}  // namespace tavernook
