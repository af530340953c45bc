// The application of the tests with the engine. The font of the labels is made before it starts, as
// the system's fonts are looked up once.
#include <cstdlib>

#include "gui_support/code39_font.h"
#include "gui_support/test_application.h"

namespace tavernook {

std::unique_ptr<QApplication> new_test_application(int& argc, char** argv) {
    make_code39_font(std::string(std::getenv("XDG_DATA_HOME")) + "/fonts/code39.ttf");
    return std::make_unique<QApplication>(argc, argv);
}

}  // namespace tavernook
