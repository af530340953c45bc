#include "gui_support/net_guard.h"
#include "gui_support/test_application.h"

namespace tavernook {

std::unique_ptr<QApplication> new_test_application(int& argc, char** argv) {
    testing::UnitTest::GetInstance()->listeners().Append(new NetGuard);
    return std::make_unique<Application>(argc, argv);
}

}  // namespace tavernook
