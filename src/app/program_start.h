// What must be done once before the first window, by every program that shows the screens.
#pragma once

#include <QStringList>

class QApplication;

namespace tavernook {

// The names by which the desktop knows the program, its icon and version.
void introduce_program(QApplication& application);

// Places the files that come with the program among the user's and hands over the sample household
// and the lessons.
// False when one could not be placed.
[[nodiscard]] bool place_program_files();

// Where the help file may lie: beside the program, or where an installed one has its own files.
QStringList help_folders();

// Lays the sample household out, the lessons, and the templates and pictures of the pages, while
// the splash stands, so that the first window does not wait for the disk. The message panel tells
// what could not be placed until something else is told there.
void place_sample_and_pages();

// What could not be placed is missing in the program, which goes on without it.
void tell_not_placed();

}  // namespace tavernook
