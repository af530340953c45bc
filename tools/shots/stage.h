// Scenes for another program to look at, as a screen reader looks at the windows. Each is told in
// one line of JSON on standard output and stands until a line comes on standard input:
//   {"scene": NAME, "screens": [object names of the windows in sight], "seen": [the words on them],
//    "front": TITLE OF THE SCREEN IN FRONT, "popup": whether it has come up over its window}
// Nothing is told of a picture that is no window in sight.
#pragma once

#include <QString>

class QWidget;

namespace tavernook {

// Ends the program when nobody is there any more who could answer.
void show_scene(const QString& name, QWidget& shown);

}  // namespace tavernook
