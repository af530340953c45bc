#include "core/file_replacement.h"

#include "basics/fault.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

void write_flushed(const std::string& path, std::string_view bytes) {
    const auto file = files().open(path, OpenMode::read_write);
    file->write(0, bytes);
    file->flush();
}

void remove_if_possible(const std::string& path) {
    try {
        files().remove(path);
    } catch (const Fault&) {
        // The next replacement removes it.
    }
}

}  // namespace

void replace_file(const std::string& path, std::string_view bytes) {
    const std::string fresh = path + ".new";
    if (files().exists(fresh)) files().remove(fresh);
    try {
        write_flushed(fresh, bytes);
        files().rename(fresh, path);
    } catch (...) {
        remove_if_possible(fresh);
        throw;
    }
}

}  // namespace tavernook
