// The help as it is built, copied to where a test wants it.
#pragma once

#include <filesystem>
#include <string>

#include "fakes/temp_folder.h"

namespace tavernook {

// A folder of its own with the help's files, whose path has blanks and umlauts.
class HelpFiles {
  public:
    HelpFiles() : folder_(temp_.path("Küche und Vorräte")) {
        namespace fs = std::filesystem;
        fs::create_directory(folder_);
        for (const char* name : {"tvk.hlp", "tvk.qhc"}) {
            fs::copy_file(fs::path(TAVERNOOK_HELP_FOLDER) / name, path(name));
        }
    }

    const std::string& folder() const { return folder_; }
    const std::string& above() const { return temp_.path(); }
    std::string path(const std::string& name) const { return folder_ + "/" + name; }

  private:
    TempFolder temp_;
    std::string folder_;
};

}  // namespace tavernook
