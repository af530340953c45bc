// A Fault that only the net beneath the screens has caught fails the test that caused it.
#pragma once

#include <gtest/gtest.h>

#include "screens/parts/application.h"

namespace tavernook {

class NetGuard : public testing::EmptyTestEventListener {
  public:
    void OnTestStart(const testing::TestInfo&) override {
        expected = 0;
        before_count = faults_caught_by_net();
    }
    void OnTestEnd(const testing::TestInfo&) override {
        EXPECT_EQ(faults_caught_by_net() - before_count, expected)
            << "A Fault came through Qt to the net of the application.";
    }

    // How many the running test provokes.
    static inline int expected = 0;

    // The count when it began.
    static int before() { return before_count; }

  private:
    static inline int before_count = 0;
};

}  // namespace tavernook
