// The application that a test program with widgets runs in.
#pragma once

#include <QApplication>
#include <memory>

namespace tavernook {

// For the tests of the screens the one with the net beneath it, which fails a test that needs it;
// a plain one for the others.
std::unique_ptr<QApplication> new_test_application(int& argc, char** argv);

}  // namespace tavernook
