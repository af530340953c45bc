#include "core/program_state.h"

namespace tavernook {

i16 project_open = i16_false;
i16 project_modified = i16_false;
i16 recipe_text_changed = i16_false;
i16 project_load_failed = i16_false;
i16 older_file_format = i16_false;
i16 date_day_first = 0;

std::string recipes_folder;
std::string settings_file;

i16 hide_welcome_dialog = i16_false;
WindowGeometry window_geometry;

}  // namespace tavernook
