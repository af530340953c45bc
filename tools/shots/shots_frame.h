// Pictures of the main window itself: its menus, boxes and small windows.
#pragma once

#include "shots/shots_lookups.h"

namespace tavernook {

// `projects` is a folder for the projects that the recent ones name. Leaves the window as it stands
// with a project open.
void take_main_window(Main& window, const TakePicture& take, const QString& projects);

}  // namespace tavernook
