// The desktop's own file dialogs where it has them, Qt's otherwise.
#pragma once

#include <QString>
#include <QStringList>
#include <string_view>
#include <vector>

#include "platform/file_dialogs.h"

namespace tavernook {

// One choice of the file type list.
struct FileFilter {
    QString description;   // "Tavernook Files"
    QStringList patterns;  // "*.tvk"
    bool operator==(const FileFilter&) const = default;
};

// Reads "Description|pattern;pattern|Description|pattern". "*.*" stands for every file.
std::vector<FileFilter> file_filters(std::string_view filter);

// The suffix of the first pattern, "tvk"; empty where that names none, as "*" does.
QString suffix_of(const FileFilter& filter);

// In Qt's form, "Tavernook Files (*.tvk)". Some desktops tell small letters from capitals and are
// given both forms.
QString name_filter(const FileFilter& filter, bool with_capitals);

// The name to save under: `chosen`, with the suffix when its last part has no "." at all.
QString with_suffix(const QString& chosen, const QString& suffix);

// Folder and name that a dialog starts with. A last part with "*" or "?" is no name, and a folder
// that is missing gives way to the nearest one above it.
struct DialogStart {
    QString folder;
    QString name;
    bool operator==(const DialogStart&) const = default;
};
DialogStart dialog_start(const QString& initial_file);

// The dialog bears the object name "file_dialog".
class QtFileDialogs : public FileDialogs {
  public:
    std::string open_file(const FileDialogRequest& request) override;
    std::string save_file(const FileDialogRequest& request) override;
};

}  // namespace tavernook
