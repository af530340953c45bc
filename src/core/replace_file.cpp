#include "core/replace_file.h"

#include "basics/file_names.h"
#include "basics/text.h"
#include "core/file_rights.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

void write_flushed(const std::string& path, std::string_view bytes) {
    const auto file = files().open(path, OpenMode::read_write);
    file->write(0, bytes);
    file->flush();
}

void remove_left_over(const std::string& path) {
    try {
        files().remove(path);
    } catch (...) {  // the fault that brought us here is the one to tell
    }
}

}  // namespace

void replace_file(const std::string& path, std::string_view bytes, const std::string& bound) {
    files().make_folder(folder_of(path));
    const std::string fresh = path_with_ending(path, ".new");
    if (files().exists(fresh)) files().remove(fresh);
    try {
        const bool is_there = files().exists(path);
        make_with_rights_of(is_there ? path : bound, fresh);
        write_flushed(fresh, bytes);
        if (is_there) take_attributes_of(path, fresh);
        files().rename(fresh, path);
    } catch (...) {
        remove_left_over(fresh);
        throw;
    }
}

}  // namespace tavernook
