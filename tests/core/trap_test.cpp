// What becomes of a failure at a routine's edge.
#include "core/trap.h"

#include <gtest/gtest.h>
#include <new>
#include <stdexcept>

#include "fakes/test_platform.h"

namespace tavernook {

namespace {

class Trap : public testing::Test {
  protected:
    TestPlatform platform;
};

TEST_F(Trap, WorkThatComesToItsEndShowsNothing) {
    int runs = 0;
    EXPECT_TRUE(trap_in_main("main_open", [&] { ++runs; }));
    EXPECT_TRUE(trap_in_module([&] { ++runs; }));
    EXPECT_EQ(runs, 2);
}

TEST_F(Trap, TheMainWindowNamesTheProcedure) {
    platform.boxes.expect_message(
        "Error in Module MAIN.Main_Open.  Error Number 61 Err Description=Disk full");
    EXPECT_FALSE(trap_in_main("Main_Open", [] { throw Fault(fault_number::disk_full); }));
}

TEST_F(Trap, TheLoadOfTheMainWindowHasNoProcedure) {
    platform.boxes.expect_message(
        "Error in Module MAIN.  Error Number 9 Err Description=Subscript out of range");
    EXPECT_FALSE(trap_in_main("", [] { throw Fault(fault_number::subscript_out_of_range); }));
}

TEST_F(Trap, ModulesTellTheNumberOnly) {
    platform.boxes.expect_message("Tavernook error: rt6:6. Contact Brenwyk Software.");
    EXPECT_FALSE(trap_in_module([] { throw Fault(fault_number::overflow); }));
}

TEST_F(Trap, ACancelledDialogIsPassedOverInSilence) {
    EXPECT_FALSE(trap_in_main("Main_Open", [] { throw Fault(fault_number::cancel_was_selected); }));
    EXPECT_FALSE(trap_in_module([] { throw Fault(fault_number::cancel_was_selected); }));
    bool told = false;
    EXPECT_FALSE(trap([] { throw Fault(fault_number::cancel_was_selected); },
                      [&](const Fault&) { told = true; }));
    EXPECT_FALSE(told);
}

TEST_F(Trap, TheHandlerGetsTheFault) {
    Fault got(0, "");
    EXPECT_FALSE(trap([] { throw Fault(70, "Permission denied"); },
                      [&](const Fault& fault) { got = fault; }));
    EXPECT_EQ(got.number, 70);
    EXPECT_EQ(got.description, "Permission denied");
}

TEST_F(Trap, LackOfMemoryIsError7) {
    platform.boxes.expect_message("Tavernook error: rt6:7. Contact Brenwyk Software.");
    EXPECT_FALSE(trap_in_module([] { throw std::bad_alloc(); }));
}

TEST_F(Trap, WhatTheLibraryThrowsIsError51WithItsText) {
    platform.boxes.expect_message(
        "Error in Module MAIN.Main_Open.  Error Number 51 Err Description=stoi went wrong");
    EXPECT_FALSE(trap_in_main("Main_Open", [] { throw std::out_of_range("stoi went wrong"); }));
}

TEST_F(Trap, TrapsMayStandInsideTraps) {
    platform.boxes.expect_message("Tavernook error: rt6:6. Contact Brenwyk Software.");
    EXPECT_TRUE(
        trap_in_main("outer", [] { trap_in_module([] { throw Fault(fault_number::overflow); }); }));
}

}  // namespace

}  // namespace tavernook
