#include "platform_qt/shipped_page_files.h"

#include <gtest/gtest.h>

#include "basics/fault.h"
#include "fakes/temp_folder.h"
#include "reports/pages/shipped_pages.h"

namespace tavernook {
namespace {

TEST(ShippedPageFiles, TheProgramCarriesEachOfThem) {
    for (const ShippedPage& page : shipped_pages) {
        EXPECT_EQ(
            shipped_page_file(page.name),
            read_whole_file(TAVERNOOK_SOURCE_FOLDER "/assets/pages/" + std::string(page.name)));
    }
}

TEST(ShippedPageFiles, WhatItDoesNotCarryIsAFault) {
    EXPECT_THROW((void)shipped_page_file("none.dat"), Fault);
}

}  // namespace
}  // namespace tavernook
