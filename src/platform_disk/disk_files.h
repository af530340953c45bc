// Files on a POSIX file system.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace tavernook {

class DiskFiles : public Files {
  public:
    // True for folders too; false for a link that leads nowhere.
    bool exists(const std::string& path) override;
    bool is_taken(const std::string& path) override;
    std::string behind_link(const std::string& path) override;

    // Follows symbolic links. Fault 75 for folders, pipes and sockets.
    std::unique_ptr<File> open(const std::string& path, OpenMode mode) override;
    void remove(const std::string& path) override;

    // Works on the names: a symbolic link at `to` is replaced, not followed. Both must lie on the
    // same file system.
    void rename(const std::string& from, const std::string& to) override;

    // The copy is made beside the target, flushed and renamed over it: a failure leaves the old
    // target and nothing else. It keeps the attributes of the target; a new file takes those of
    // `from`, with the owner's right to write.
    void copy(const std::string& from, const std::string& to) override;
    void copy_unflushed(const std::string& from, const std::string& to) override;

    void copy_attributes(const std::string& from, const std::string& to) noexcept override;

    // True for the files of which root may write all the same.
    bool is_write_protected(const std::string& path) override;

    // The node is left 0 where it may change from look to look: on all but the local file systems
    // that are known to keep it.
    FileStamp stamp(const std::string& path) override;

    // Files that a running program is copying stay.
    void remove_left_over(const std::string& folder) noexcept override;

    // Local time, whole seconds.
    Date modified(const std::string& path) override;
    void flush_folder(const std::string& folder) override;
    void flush_all(const std::string& folder) override;

    // Folders are left out; capitals and small letters differ.
    std::vector<std::string> list(const std::string& folder, std::string_view suffix) override;
    void make_folder(const std::string& folder) override;
};

}  // namespace tavernook
