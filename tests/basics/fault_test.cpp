#include "basics/fault.h"

#include <gtest/gtest.h>
#include <string>

namespace tavernook {
namespace {

TEST(Fault, DescribesEveryNumberOfTheProgram) {
    EXPECT_EQ(fault_description(6), "Overflow");
    EXPECT_EQ(fault_description(7), "Out of memory");
    EXPECT_EQ(fault_description(9), "Subscript out of range");
    EXPECT_EQ(fault_description(11), "Division by zero");
    EXPECT_EQ(fault_description(13), "Type mismatch");
    EXPECT_EQ(fault_description(51), "Internal error");
    EXPECT_EQ(fault_description(53), "File not found");
    EXPECT_EQ(fault_description(57), "Device I/O error");
    EXPECT_EQ(fault_description(61), "Disk full");
    EXPECT_EQ(fault_description(62), "Input past end of file");
    EXPECT_EQ(fault_description(63), "Bad record number");
    EXPECT_EQ(fault_description(70), "Permission denied");
    EXPECT_EQ(fault_description(75), "Path/File access error");
    EXPECT_EQ(fault_description(76), "Path not found");
    EXPECT_EQ(fault_description(32755), "Cancel was selected");
}

TEST(Fault, NamedNumbersAreTheNumbersThatFilesAndMessagesBear) {
    EXPECT_EQ(fault_number::overflow, 6);
    EXPECT_EQ(fault_number::out_of_memory, 7);
    EXPECT_EQ(fault_number::subscript_out_of_range, 9);
    EXPECT_EQ(fault_number::division_by_zero, 11);
    EXPECT_EQ(fault_number::type_mismatch, 13);
    EXPECT_EQ(fault_number::internal_error, 51);
    EXPECT_EQ(fault_number::file_not_found, 53);
    EXPECT_EQ(fault_number::device_io_error, 57);
    EXPECT_EQ(fault_number::disk_full, 61);
    EXPECT_EQ(fault_number::input_past_end, 62);
    EXPECT_EQ(fault_number::bad_record_number, 63);
    EXPECT_EQ(fault_number::permission_denied, 70);
    EXPECT_EQ(fault_number::path_file_access_error, 75);
    EXPECT_EQ(fault_number::path_not_found, 76);
    EXPECT_EQ(fault_number::cancel_was_selected, 32755);
}

TEST(Fault, UnknownNumberIsNamedByItself) {
    EXPECT_EQ(fault_description(0), "Error 0");
    EXPECT_EQ(fault_description(-1), "Error -1");
    EXPECT_EQ(fault_description(1000), "Error 1000");
}

TEST(Fault, TakesTheDescriptionOfItsNumber) {
    const Fault fault(61);
    EXPECT_EQ(fault.number, 61);
    EXPECT_EQ(fault.description, "Disk full");
    EXPECT_STREQ(fault.what(), "Disk full");
}

TEST(Fault, KeepsADescriptionOfItsOwn) {
    const Fault fault(53, "No page template");
    EXPECT_EQ(fault.number, 53);
    EXPECT_EQ(fault.description, "No page template");
}

TEST(Fault, IsCaughtAsAStandardException) {
    try {
        throw Fault(70);
    } catch (const std::exception& caught) {
        EXPECT_STREQ(caught.what(), "Permission denied");
        return;
    }
    FAIL() << "not caught";
}

}  // namespace
}  // namespace tavernook
