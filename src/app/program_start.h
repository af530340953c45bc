// What must be done once before the first window, by every program that shows the screens.
#pragma once

class QApplication;

namespace tavernook {

// The names by which the desktop knows the program, its icon and version.
void introduce_program(QApplication& application);

// Places the files that come with the program among the user's. False when one could not be placed.
[[nodiscard]] bool place_program_files();

}  // namespace tavernook
