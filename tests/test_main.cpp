// The start of every test program: a run without a test is a failure.
#include <cstdio>
#include <gtest/gtest.h>

#ifdef TAVERNOOK_QT_TESTS
#include "gui_support/test_application.h"
#endif

int main(int argc, char** argv) {
#ifdef TAVERNOOK_QT_TESTS
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto application = tavernook::new_test_application(argc, argv);
    QCoreApplication::setOrganizationName("Tavernook");
    QCoreApplication::setApplicationName("Tavernook");
#endif
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    if (testing::UnitTest::GetInstance()->test_to_run_count() == 0) {
        std::fprintf(stderr, "No test ran.\n");
        return 1;
    }
    return result;
}
