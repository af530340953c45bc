// What must be done once before the first window, by every program that shows the screens.
#pragma once

#include <QStringList>

class QApplication;

namespace tavernook {

// The names by which the desktop knows the program, its icon and version.
void introduce_program(QApplication& application);

// Places the files that come with the program among the user's and hands the sample household over.
// False when one could not be placed.
[[nodiscard]] bool place_program_files();

// Where the help file may lie: beside the program, or where an installed one has its own files.
QStringList help_folders();

struct Placing {
    bool complete = true;
};

// Lays the sample household out, and the templates and pictures of the pages, while the splash
// stands, so that the first window does not wait for the disk. `placing` must live as long as the
// program.
void place_sample_and_pages(Placing& placing);

}  // namespace tavernook
