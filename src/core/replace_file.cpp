#include "core/replace_file.h"

#include "basics/file_names.h"
#include "basics/text.h"
#include "core/trap.h"
#include "platform/platform.h"

namespace tavernook {

namespace {

void write_flushed(const std::string& path, const std::function<void(File&)>& write) {
    const auto file = files().open(path, OpenMode::read_write);
    write(*file);
    file->flush();
}

}  // namespace

void replace_file(const std::string& path, std::string_view bytes, const std::string& bound) {
    replace_file(
        path, [bytes](File& file) { file.write(0, bytes); }, bound);
}

void replace_file(const std::string& path, const std::function<void(File&)>& write,
                  const std::string& bound) {
    files().make_folder(folder_of(path));
    const std::string fresh = path_with_ending(path, ".new");
    remove_if_there(fresh);
    try {
        const bool is_there = files().exists(path);
        files().copy_attributes(is_there ? path : bound, fresh);
        write_flushed(fresh, write);
        if (is_there) files().copy_attributes(path, fresh);
        files().rename(fresh, path);
    } catch (...) {
        tried([&] { files().remove(fresh); });  // the Fault that brought us here is the one to tell
        throw;
    }
}

void remove_if_there(const std::string& path) {
    if (files().exists(path)) files().remove(path);
}

}  // namespace tavernook
