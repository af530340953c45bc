// Locks beside the projects: ".home.tvk.lock" for "home.tvk", made for as long as it is open.
#pragma once

#include <QLockFile>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/project_lock.h"

namespace tavernook {

// Paths that lead to the same file (symbolic links, "./") count as one project.
class QtProjectLock : public ProjectLock {
  public:
    bool acquire(const std::string& project_path) override;
    std::optional<LockHolder> holder_elsewhere(const std::string& project_path) override;
    bool take_over(const std::string& project_path) override;
    void release(const std::string& project_path) override;

  private:
    enum class Others { respected, swept_away };
    bool hold(const std::string& project_path, Others others);

    // Nothing behind a path where no lock could be made.
    std::map<QString, std::unique_ptr<QLockFile>> held_;

    // A path as it was given, and the project that it led to then: saving may replace a link.
    std::map<std::string, QString> known_;
};

}  // namespace tavernook
