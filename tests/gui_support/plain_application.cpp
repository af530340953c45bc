#include "gui_support/test_application.h"

namespace tavernook {

std::unique_ptr<QApplication> new_test_application(int& argc, char** argv) {
    return std::make_unique<QApplication>(argc, argv);
}

}  // namespace tavernook
