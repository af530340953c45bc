// Keeps a second running program from opening the project that this one has open.
#pragma once

#include <string>

namespace tavernook {

class ProjectLock {
  public:
    virtual ~ProjectLock() = default;

    // Takes the project for this program; what it held before stays held until `release`.
    // False when another running program has it. A lock left behind by a crash does not count,
    // and a folder that cannot be written needs none.
    virtual bool acquire(const std::string& project_path) = 0;
    virtual void release(const std::string& project_path) = 0;
};

}  // namespace tavernook
