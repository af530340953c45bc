#include "fakes/temp_folder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <stdlib.h>
#include <system_error>

namespace tavernook {

TempFolder::TempFolder()
    : path_((std::filesystem::temp_directory_path() / "tavernook-test-XXXXXX").string()) {
    if (::mkdtemp(path_.data()) == nullptr) throw std::runtime_error("cannot make " + path_);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string read_whole_file(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot open " + path);
    // At once: letter by letter takes the sanitizers a hundred times as long.
    std::string bytes(std::filesystem::file_size(path), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

void write_whole_file(const std::string& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path);
}

}  // namespace tavernook
