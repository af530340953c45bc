// A file that is being written under a name of its own, and what such files leave behind when the
// program is killed.
//
// The file bears a lock (flock) from its first moment to its last, which the system takes away with
// the process. So a file of such a name that nobody has locked belongs to no running program, and
// only those are cleared away.
#pragma once

#include <string>

#include "platform_disk/descriptor.h"

namespace tavernook {

// A new file, open to nobody else, in the folder; gone again with this object unless it is renamed.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& folder);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    void rename_to(const std::string& path);
    const Descriptor& file() const { return file_; }
    const std::string& path() const { return path_; }

  private:
    std::string path_;
    Descriptor file_;
    bool renamed_ = false;
};

// Removes the temporary files in the folder that no running program is writing. What cannot be
// looked at or removed stays.
void remove_left_over_files(const std::string& folder) noexcept;

}  // namespace tavernook
