// Locks beside the projects: ".home.tvk.lock" for "home.tvk", made for as long as it is open.
#pragma once

#include <QLockFile>
#include <map>
#include <memory>
#include <string>

#include "platform/project_lock.h"

namespace tavernook {

// Paths that lead to the same file (symbolic links, "./") count as one project.
class QtProjectLock : public ProjectLock {
  public:
    bool acquire(const std::string& project_path) override;
    void release(const std::string& project_path) override;

  private:
    // Nothing behind a path where no lock could be made.
    std::map<QString, std::unique_ptr<QLockFile>> held_;

    // A path as it was given, and the project that it led to then: saving may replace a link.
    std::map<std::string, QString> known_;
};

}  // namespace tavernook
