// The saved reports: files "NAME.rcg" in the folder "reports" of the program (their bytes:
// report_file_format.h). A file is replaced in one step, so that a crash leaves the old one or the
// new one whole; what an older, longer file has behind the new bytes stays.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "reports/report_file_format.h"
#include "reports/report_filter.h"

namespace tavernook {

inline constexpr int most_configurations = 999;

struct ConfigFile {
    std::string file_name;     // the file system's own bytes, without the folder
    std::string display_name;  // 32 characters, blanks at the end included; empty: not listed
    bool operator==(const ConfigFile&) const = default;
};

struct Configurations {
    std::vector<ConfigFile> config_files;  // number 1 is the first
    i16 current_config = 0;                // the number of the one chosen, 0 for none

    // Blank for a number that is none.
    ConfigFile numbered(int number) const noexcept;

    // The numbers of those with a name, in their order: what the list of saved reports shows.
    std::vector<i16> listed() const noexcept;
};

// The name as typed, blanks around it gone, what no file may be called replaced, and ".rcg". A
// long one is shortened; names that begin alike keep files of their own.
std::string report_file_name(std::string_view name) noexcept;

// True when the file is written; a box else, and an older file is as it was.
bool save_report(std::string_view name, const ReportFilter& filter,
                 const ReportLook& look) noexcept;

// False, and nothing changed, when the file cannot be read; of a damaged one what can be read is
// taken (see decode_report). Nothing is told.
bool load_report(std::string_view file_name, ReportFilter& filter, ReportLook& look) noexcept;

// The files of the folder, 999 at most, the one written last at the end; none is chosen. One whose
// name cannot be read has an entry without a name.
void get_configs(Configurations& configurations) noexcept;

// --- commands that ask

// Saves under `shown`, the text of the list of saved reports, when the user lets it be overwritten;
// else under a name that is asked for, and then the configurations are read again. The name under
// which it was saved; empty when nothing was.
struct SavedAs {
    std::string name;
    bool is_new = false;  // the last entry of the list is to be selected
};
SavedAs ask_and_save_report(std::string_view shown, const ReportFilter& filter,
                            const ReportLook& look, Configurations& configurations) noexcept;

// Tells where none is chosen, else asks, deletes the file and reads the configurations again. True
// when the caller is to reset the filter. A file that is gone already counts as deleted; where it
// cannot be deleted a box says so, and it stays listed and chosen.
bool ask_and_delete_configuration(Configurations& configurations) noexcept;

}  // namespace tavernook
