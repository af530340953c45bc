#include "platform_qt/shipped_page_files.h"

#include <gtest/gtest.h>

#include "aids/lessons.h"
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

TEST(ShippedPageFiles, TheProgramCarriesEachLesson) {
    for (const i16 section : lesson_sections) {
        const std::string name = lesson_file_name(section);
        EXPECT_EQ(shipped_lesson_file(name),
                  read_whole_file(TAVERNOOK_SOURCE_FOLDER "/assets/lessons/" + name));
    }
}

TEST(ShippedPageFiles, WhatItDoesNotCarryIsAFault) {
    EXPECT_THROW((void)shipped_page_file("none.dat"), Fault);
    EXPECT_THROW((void)shipped_lesson_file("tut800.dat"), Fault);
}

}  // namespace
}  // namespace tavernook
