#include "platform_qt/shipped_sample.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "basics/fault.h"
#include "fakes/temp_folder.h"

namespace tavernook {
namespace {

TEST(ShippedSample, TheProgramCarriesTheProjectAndEveryDocument) {
    const ShippedSample sample = shipped_sample();
    EXPECT_EQ(sample.names.size(), 1U + 28U);
    EXPECT_EQ(std::count(sample.names.begin(), sample.names.end(), "sample17.tvk"), 1);
    EXPECT_EQ(std::count(sample.names.begin(), sample.names.end(), "recipes/sample17000001.rtf"),
              1);
    EXPECT_EQ(
        sample.bytes("recipes/sample17000001.rtf"),
        read_whole_file(TAVERNOOK_SOURCE_FOLDER "/assets/sample/recipes/oatmeal_with_apple.rtf"));
    // Item details alone are 10,001 records of 106 bytes.
    EXPECT_GT(sample.bytes("sample17.tvk").size(), 1'060'106U);
}

TEST(ShippedSample, WhatItDoesNotCarryIsAFault) {
    EXPECT_THROW((void)shipped_sample().bytes("recipes/none.rtf"), Fault);
}

}  // namespace
}  // namespace tavernook
