// Status of the running program; none of it is saved in a project. i16 with -1 true, 0 false
// unless told otherwise.
#pragma once

#include <string>

#include "basics/values.h"
#include "platform/main_window.h"

namespace tavernook {

extern i16 project_open;         // a project is open
extern i16 project_modified;     // it has unsaved changes
extern i16 recipe_text_changed;  // a text was changed since the save and can go back
extern i16 project_load_failed;  // Project_Open gave up
extern i16 older_file_format;    // the file opened has a file_version other than 1
extern i16 date_day_first;       // 1 = the user's short dates start with the day, 0 = the month

extern std::string recipes_folder;  // with the separator at its end
extern std::string settings_file;   // path of "TVK.dat"

// Saved in the settings file.
extern i16 hide_welcome_dialog;
extern WindowGeometry window_geometry;

}  // namespace tavernook
