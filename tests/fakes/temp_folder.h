// A folder of a test's own, gone with everything in it at the end; and whole files in one call.
#pragma once

#include <string>
#include <string_view>

namespace tavernook {

class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& path() const { return path_; }
    std::string path(std::string_view name) const { return path_ + "/" + std::string(name); }

  private:
    std::string path_;
};

// These throw std::runtime_error when they fail, which fails the test.
std::string read_whole_file(const std::string& path);
void write_whole_file(const std::string& path, std::string_view bytes);

}  // namespace tavernook
