// What the spoken interface says, word by word.
#include "aids/spoken_interface.h"

#include <gtest/gtest.h>

#include "barcodes/scanners.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

using Lines = std::vector<std::string>;

class SpokenInterface : public testing::Test {
  protected:
    SpokenInterface() {
        project_name = "Our home.tvk";
        units[4].name = "Ounce";
        units[4].in_use = 1;
        put_item(3, "Tea", "40123455", 2.5);
        put_item(5, "K\xE4se, alt", "", 1);
        meals[7].name = "Soup";
        meals[7].in_use = 1;
        scanner_type = keyboard_wedge;
    }
    static void put_item(i16 slot, const char* name, const char* barcode, f64 quantity) {
        items[slot].name = name;
        items[slot].barcode = barcode;
        items[slot].quantity = quantity;
        items[slot].qty_units = 4;
        items[slot].in_use = 1;
    }

    TestPlatform platform;
};

TEST_F(SpokenInterface, BeginsWithSixLines) {
    EXPECT_EQ(
        spoken_welcome(),
        (Lines{"Visually Impaired Interface. Version 1.7", "You are using project Our home.tvk",
               "Press F2 to hear shopping list items", "Press F3 to hear Expired items",
               "Press F4 to plan meals", "Press F5 to order items"}));
}

TEST_F(SpokenInterface, KeysNameWhatIsPlanned) {
    EXPECT_EQ(answer_to_function_key(2), "Shopping List");
    EXPECT_EQ(answer_to_function_key(3), "Expired items");
    EXPECT_EQ(answer_to_function_key(4), "Plan Meals");
    EXPECT_EQ(answer_to_function_key(5), "order items");
    EXPECT_EQ(answer_to_function_key(6), "ya");
    for (const int none : {-1, 0, 1, 7, 8, 9, 10, 12}) {
        EXPECT_EQ(answer_to_function_key(none), "") << none;
    }
}

TEST_F(SpokenInterface, CodesOfKeysPrompt) {
    EXPECT_EQ(prompt_of_key(9), "Auditing Inventory");
    EXPECT_EQ(prompt_of_key(13), "Scan Complete");
    EXPECT_EQ(prompt_of_key(19), "ready for scan.  Place item in front of scanner.");
    for (const int none : {0, 8, 10, 27, 65}) EXPECT_EQ(prompt_of_key(none), "") << none;
}

TEST_F(SpokenInterface, GoodbyeTellsDateAndTime) {
    EXPECT_EQ(spoken_goodbye(),
              "Exiting Tavern .. O .. K ... it is now ... 5/15/2024 12:00:00 PM ....  Goodbye");
    platform.clock.time = 1e12;  // a day that no calendar has
    EXPECT_EQ(spoken_goodbye(), "Exiting Tavern .. O .. K ... it is now ...  ....  Goodbye");
}

TEST_F(SpokenInterface, AnItemIsToldWithItsStock) {
    EXPECT_EQ(answer_to_scan("40123455"),
              (Lines{"You have scanned item ... Tea",
                     "this item is currently stocked at ... 2.5 .. Ounce"}));
    EXPECT_EQ(answer_to_scan(" 40123455 ").size(), 2U);
}

TEST_F(SpokenInterface, AWrongUnitHasNoName) {
    for (const i16 wrong : {i16{0}, i16{-3}, i16{32000}}) {
        items[3].qty_units = wrong;
        EXPECT_EQ(answer_to_scan("40123455")[1], "this item is currently stocked at ... 2.5 .. ");
    }
}

TEST_F(SpokenInterface, ARecipeIsToldByTheProgramsOwnLabel) {
    for (const char* code : {"TVK7", "tvk7", "Tvk7"}) {
        EXPECT_EQ(answer_to_scan(code), (Lines{"You have scanned meal ... Soup"})) << code;
    }
}

TEST_F(SpokenInterface, LabelsOfNoRecipeAreSilentAndMeanNoItem) {
    put_item(6, "Odd", "TVK0", 1);
    for (const char* code : {"TVK0", "TVK", "TVK8", "TVK-7", "tvk99999999999", "TVKx"}) {
        EXPECT_EQ(answer_to_scan(code), Lines{}) << code;
    }
}

TEST_F(SpokenInterface, AnUnknownCodeIsSilent) {
    EXPECT_EQ(answer_to_scan("4711"), Lines{});
    EXPECT_EQ(answer_to_scan(""), Lines{});
    EXPECT_EQ(answer_to_scan("empty"), Lines{});
    EXPECT_EQ(answer_to_scan(std::string(100'000, '4')), Lines{});
}

TEST_F(SpokenInterface, OtherScannersAreSilent) {
    for (const i16 type : {i16{batch_scanner}, i16{no_scanner}, i16{-1}, i16{9}}) {
        scanner_type = type;
        EXPECT_EQ(answer_to_scan("40123455"), Lines{}) << type;
        EXPECT_EQ(answer_to_scan("TVK7"), Lines{}) << type;
    }
}

// A line of that scanner, with this in the field of the code.
std::string cue_cat_line(std::string_view code) {
    constexpr std::string_view letters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-";
    std::string line = ".C3nZC3nZC3nWDNzYDxf2CNnY.cGen.";
    for (std::size_t at = 0; at + 2 < code.size(); at += 3) {
        unsigned bits = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            bits = bits << 8U | (static_cast<unsigned char>(code[at + k]) ^ 67U);
        }
        for (const unsigned shift : {18U, 12U, 6U, 0U}) line += letters[bits >> shift & 63U];
    }
    return line + ".";
}

TEST_F(SpokenInterface, TheOtherSchemeIsDecodedAndTellsNoStock) {
    scanner_type = cue_cat;
    items[3].barcode = "401234556";
    EXPECT_EQ(answer_to_scan(cue_cat_line("401234556")), (Lines{"You have scanned item ... Tea"}));
    EXPECT_EQ(answer_to_scan("401234556"), Lines{});
    meals[123].name = "Stew";
    meals[123].in_use = 1;
    EXPECT_EQ(answer_to_scan(cue_cat_line("TVK123")), (Lines{"You have scanned meal ... Stew"}));
    EXPECT_EQ(answer_to_scan(cue_cat_line("tvk123")), Lines{});
    put_item(8, "Own", "tvk123", 1);
    EXPECT_EQ(answer_to_scan(cue_cat_line("tvk123")), (Lines{"You have scanned item ... Own"}));
}

TEST_F(SpokenInterface, NamesKeepTheirLetters) {
    items[5].barcode = "77";
    EXPECT_EQ(answer_to_scan("77")[0], "You have scanned item ... K\xE4se, alt");
}

TEST_F(SpokenInterface, SpeakIsSaid) {
    Speak("ready");
    EXPECT_EQ(platform.speech.log.entries, Lines{"speak ready"});
}

}  // namespace
}  // namespace tavernook
