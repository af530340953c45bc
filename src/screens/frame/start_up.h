// How the program comes up.
#pragma once

#include <QStringList>
#include <string>

namespace tavernook {

class Main;
class Splash;

// The path of the project that the program was started with, empty without one. The arguments (less
// the program's name) count as one text, so that a path with blanks needs no quotes; file URLs are
// decoded and relative paths made absolute.
std::string project_argument(const QStringList& arguments);

// The splash for a second, then the main window, then the file associations; the splash goes last.
// `command_line` is the path of a project or empty.
void start_program(Main& main, Splash& splash, const std::string& command_line);

}  // namespace tavernook
