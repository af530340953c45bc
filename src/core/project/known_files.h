// The project files that this program has read or written to their end, and how they looked then:
// so a save knows that the file may take the place of the previous version, that it lacks what it
// lacked when it was read, and that another program (a cloud folder, say) has changed it since.
#pragma once

#include <string>

#include "platform/files.h"

namespace tavernook {

enum class FileEnd {
    proper,
    early,      // parts of the project were missing when it was read
    unfinished  // what a save that failed has left
};

// The file at the path has been read, or written whole and flushed, or left unfinished. `stamp` was
// taken before the reading and after the writing.
void project_file_is_known(const std::string& path, const FileStamp& stamp,
                           FileEnd end = FileEnd::proper) noexcept;

void forget_project_file(const std::string& path) noexcept;
void forget_project_files() noexcept;

// It was whole, or as whole as it was read, and still looks as it did. Throws what the file layer
// throws.
[[nodiscard]] bool is_known_project_file(const std::string& path);

// Another content lies where the known one lay; a file that has gone is none. Throws what the file
// layer throws.
[[nodiscard]] bool is_changed_elsewhere(const std::string& path);

// It has been read or written here, whatever lies there now.
[[nodiscard]] bool has_been_here(const std::string& path) noexcept;

// It is known and ended early when it was read.
[[nodiscard]] bool ends_early(const std::string& path) noexcept;

}  // namespace tavernook
