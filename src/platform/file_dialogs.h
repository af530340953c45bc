// The common file dialogs. Cancel throws Fault 32755, which the commands pass over in silence.
#pragma once

#include <string>

namespace tavernook {

struct FileDialogRequest {
    std::string title;
    std::string filter;        // "Tavernook Files (*.tvk)|*.tvk"
    std::string initial_file;  // folder + "/*.tvk": the folder is shown, the pattern is not a name
};

class FileDialogs {
  public:
    virtual ~FileDialogs() = default;

    // Full path of an existing file.
    virtual std::string open_file(const FileDialogRequest& request) = 0;

    // Full path; the filter's extension is added to a name that has none. The user has agreed to
    // replace the file where one of that name exists.
    virtual std::string save_file(const FileDialogRequest& request) = 0;
};

}  // namespace tavernook
