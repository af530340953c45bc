// The one way to files on disk. Paths are the file system's own bytes (UTF-8 on Linux), never
// code page text. Every operation throws a Fault when it fails: 53 no such file, 57 device error,
// 61 disk full, 70 permission denied, 75 any other refusal, 76 no such folder.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "basics/date.h"
#include "basics/values.h"

namespace tavernook {

enum class OpenMode {
    read,       // Fault 53 when the file does not exist
    read_write  // made when it does not exist, kept when it does
};

// An open file; the destructor closes it. Offsets count from 0.
class File {
  public:
    virtual ~File() = default;

    // Fills `buffer` from `offset` as far as the file goes and returns the bytes read.
    virtual std::size_t read(i64 offset, char* buffer, std::size_t count) = 0;

    // Writes all bytes; a gap behind the old end reads as zeros.
    virtual void write(i64 offset, std::string_view bytes) = 0;

    virtual i64 length() = 0;

    // Returns when the bytes are on the disk.
    virtual void flush() = 0;
};

// What tells one content of a file from another without reading it; all 0 when there is no file.
struct FileStamp {
    i64 node = 0;
    i64 length = 0;
    i64 changed = 0;  // nanoseconds since 1970
    bool operator==(const FileStamp&) const = default;
};

// Without a node the file system is a plain one, which may round the time to 2 seconds when it
// likes.
constexpr bool is_same_content(const FileStamp& a, const FileStamp& b) noexcept {
    constexpr i64 rounding = 2'000'000'000;
    if (a == b) return true;
    if (a.node != 0 || b.node != 0 || a.length != b.length) return false;
    if (a.changed == 0 || b.changed == 0) return false;
    return a.changed - b.changed < rounding && b.changed - a.changed < rounding;
}

class Files {
  public:
    virtual ~Files() = default;

    virtual bool exists(const std::string& path) = 0;

    // The same, but a symbolic link that leads nowhere has the name, too.
    virtual bool is_taken(const std::string& path) = 0;

    // The file that a symbolic link leads to; any other path as it is. Never throws.
    virtual std::string behind_link(const std::string& path) = 0;
    virtual std::unique_ptr<File> open(const std::string& path, OpenMode mode) = 0;
    virtual void remove(const std::string& path) = 0;

    // Replaces `to` in one step when it exists.
    virtual void rename(const std::string& from, const std::string& to) = 0;
    virtual void copy(const std::string& from, const std::string& to) = 0;

    // The same without waiting for the disk: for what may be lost with the power.
    virtual void copy_unflushed(const std::string& from, const std::string& to) = 0;

    // Mode, owner, group, access list and extended attributes, as far as the system lets it. What
    // is written beside a project tells as much as the project itself and must not lie open to
    // others for a moment: a missing `to` is made empty, before anything is written into it, and
    // takes the rights alone, with the owner's to write; where `from` is missing, too, it is open
    // to its owner only. Nothing happens without a `from`.
    virtual void copy_attributes(const std::string& from, const std::string& to) noexcept = 0;

    // The file is there and its mode lets nobody write it.
    virtual bool is_write_protected(const std::string& path) = 0;
    virtual FileStamp stamp(const std::string& path) = 0;

    // Removes what programs that were killed left half copied in the folder.
    virtual void remove_left_over(const std::string& folder) noexcept = 0;
    virtual Date modified(const std::string& path) = 0;

    // Returns when renames and removals in the folder are on the disk.
    virtual void flush_folder(const std::string& folder) = 0;

    // Returns when everything on the file system of the folder is on its disk: for many small files
    // at once.
    virtual void flush_all(const std::string& folder) = 0;

    // Names (not paths) of the files that end in `suffix`, sorted; none when the folder is missing.
    virtual std::vector<std::string> list(const std::string& folder, std::string_view suffix) = 0;

    // Makes the folder and those above it; that it exists is no error.
    virtual void make_folder(const std::string& folder) = 0;
};

}  // namespace tavernook
