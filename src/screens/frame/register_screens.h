// The child screens of the program.
#pragma once

namespace tavernook {

class Main;

// Tells the main window how each child screen is made; its commands are enabled by that.
void register_screens(Main& main);

}  // namespace tavernook
