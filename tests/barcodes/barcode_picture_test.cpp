// The pictures of barcodes on the disk, read back by a barcode reader.
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "barcodes/bitmap_reading.h"
#include "barcodes/code39.h"
#include "basics/byte_codec.h"
#include "basics/fault.h"
#include "core/project_data.h"
#include "core/trap.h"
#include "fakes/test_platform.h"

namespace tavernook {
namespace {

class BarcodePicture : public testing::Test {
  protected:
    static i32 field(const std::string& bytes, std::size_t offset) {
        return load_little_endian<i32>(bytes.data() + offset);
    }
    static std::string save_item(i16 item, const std::string& barcode) {
        items[item].barcode = barcode;
        return save_barcode_picture(item, false);
    }
    std::size_t files_in_folder() const {
        const std::filesystem::directory_iterator folder(barcodes);
        return static_cast<std::size_t>(std::distance(begin(folder), end(folder)));
    }

    TestPlatform platform;
    const std::string barcodes = platform.system.program + "/barcode";
};

class ScannedPicture : public BarcodePicture {
  protected:
    void SetUp() override {
        if (reader.empty()) GTEST_SKIP() << "zbarimg is not installed";
    }
    // The codes in the pictures, one a line, in their order.
    std::string scanned(const std::vector<std::string>& pictures) const {
        std::string names;
        for (const std::string& picture : pictures) names += " '" + picture + "'";
        // Without a session bus it says so on the error output.
        std::string text = output_of(reader + " --raw --quiet --nodbus -Sdisable -Scode39.enable" +
                                     names + " 2>/dev/null");
        if (text.ends_with('\n')) text.pop_back();
        return text;
    }
    std::string scanned(const std::string& picture) const { return scanned(std::vector{picture}); }
    const std::string reader = found_program("zbarimg");
};

TEST_F(BarcodePicture, AnItemsPictureBearsItsNumber) {
    EXPECT_EQ(save_item(17, "40123455"), barcodes + "/17.bmp");
    EXPECT_TRUE(std::filesystem::exists(barcodes + "/17.bmp"));
}

TEST_F(BarcodePicture, ARecipesPictureBearsItsNumberBehindAnM) {
    EXPECT_EQ(save_barcode_picture(17, true), barcodes + "/m17.bmp");
    EXPECT_TRUE(std::filesystem::exists(barcodes + "/m17.bmp"));
}

TEST_F(BarcodePicture, AShortCodeStandsInAPictureOf300Pixels) {
    const std::string bytes = read_whole_file(save_item(1, "7"));
    EXPECT_EQ(field(bytes, 18), 300);
    EXPECT_EQ(bytes.size(), 54U + 900U * static_cast<std::size_t>(field(bytes, 22)));
}

TEST_F(BarcodePicture, IsBlackOnWhiteIn24Bits) {
    const std::string bytes = read_whole_file(save_item(1, "7"));
    EXPECT_EQ(field(bytes, 28) & 0xFFFF, 24);
    const std::string pixels = bytes.substr(54);  // 300 across: no bytes between the rows
    std::size_t blacks = 0;
    for (std::size_t pixel = 0; pixel < pixels.size(); pixel += 3) {
        const std::string colour = pixels.substr(pixel, 3);
        ASSERT_TRUE(colour == std::string(3, '\0') || colour == "\xFF\xFF\xFF") << pixel;
        if (colour[0] == '\0') ++blacks;
    }
    // Three characters; in each 9 of 16 modules at most are black, over half of the height.
    EXPECT_GT(blacks, 0U);
    EXPECT_LT(blacks, pixels.size() / 3 / 10);
}

TEST_F(BarcodePicture, TheLongestCodeHasWhiteOnBothSides) {
    // 34 characters of 16 modules, and ten modules of white on each side at least.
    const std::string bytes = read_whole_file(save_item(1, "ABCDEFGHIJKLMNOPQRSTUVWXYZ012345"));
    const i32 width = field(bytes, 18);
    EXPECT_GE(width, 34 * 16 + 20);
    const std::size_t row = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
    const std::string upper = bytes.substr(bytes.size() - row, static_cast<std::size_t>(width) * 3);
    const std::size_t first = upper.find('\0') / 3;
    const std::size_t last = upper.rfind('\0') / 3;
    EXPECT_GE(first, 10U);
    EXPECT_GE(static_cast<std::size_t>(width) - 1 - last, 10U);
    EXPECT_EQ(last - first + 1, 34U * 16U - 1U) << "without the last gap";
}

TEST_F(BarcodePicture, AnOldPictureIsReplacedInOneStep) {
    save_item(3, "ABCDEFGHIJKLMNOPQRSTUVWXYZ012345");
    const std::string wide = read_whole_file(barcodes + "/3.bmp");
    platform.files.start_over();
    save_item(3, "7");
    EXPECT_LT(read_whole_file(barcodes + "/3.bmp").size(), wide.size());
    EXPECT_EQ(files_in_folder(), 1U);
    ASSERT_FALSE(platform.files.log().empty());
    EXPECT_EQ(platform.files.log().back(), "rename 3.bmp.new -> 3.bmp");
}

TEST_F(BarcodePicture, AFaultAtAnyStepTellsAndKeepsTheOldPicture) {
    save_item(3, "OLD");
    const std::string old = read_whole_file(barcodes + "/3.bmp");
    platform.files.start_over();
    save_item(3, "OLD");
    const std::vector<std::string> steps = platform.files.log();
    ASSERT_GT(steps.size(), 3U);
    items[3].barcode = "NEW";
    for (int step = 1; step <= static_cast<int>(steps.size()); ++step) {
        // That the picture's rights are not those of the old one fails nothing.
        if (steps[static_cast<std::size_t>(step - 1)].starts_with("copy_attributes")) continue;
        platform.files.start_over();
        platform.files.fail_at(step, fault_number::disk_full, Repeat::once, Torn::yes);
        platform.boxes.expect_message(module_message(Fault(fault_number::disk_full)));
        EXPECT_EQ(save_barcode_picture(3, false), "") << step;
        platform.boxes.check_used_up();
        EXPECT_TRUE(read_whole_file(barcodes + "/3.bmp") == old) << step;
        EXPECT_EQ(files_in_folder(), 1U) << step;
    }
}

TEST_F(BarcodePicture, ANumberBeyondTheTableTells) {
    platform.boxes.expect_message(module_message(Fault(fault_number::subscript_out_of_range)));
    EXPECT_EQ(save_barcode_picture(10001, false), "");
    EXPECT_FALSE(std::filesystem::exists(barcodes));
}

TEST_F(ScannedPicture, AnItemsCodeIsRead) {
    for (const std::string code : {"40123455", "012345678905", "A", "HELLO WORLD", "$1.50/KG+5%",
                                   "ABCDEFGHIJKLMNOPQRSTUVWXYZ012345"}) {
        EXPECT_EQ(scanned(save_item(5, code)), code);
    }
    EXPECT_EQ(scanned(save_item(5, " *abc-9* ")), "ABC-9");
    EXPECT_EQ(scanned(save_item(5, "empty")), "EMPTY");
}

TEST_F(ScannedPicture, EveryCharacterIsRead) {
    const std::string charset = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%";
    for (const char character : charset) {
        const std::string code = std::string("A") + character + "Z";
        EXPECT_EQ(scanned(save_item(6, code)), code);
    }
}

// Of all characters but the star, of all lengths that an item can bear, blanks within.
std::string random_code(std::mt19937& random) {
    const std::string charset = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-.$/+% ";
    std::string code(1 + random() % 31, ' ');
    for (std::size_t at = 0; at < code.size(); ++at) {
        const bool is_within = at > 0 && at + 1 < code.size();
        code[at] = charset[random() % (charset.size() - (is_within ? 0 : 1))];
    }
    return code;
}

TEST_F(ScannedPicture, TwoHundredRandomCodesAreRead) {
    std::mt19937 random(39);
    std::vector<std::string> pictures;
    std::string expected;
    const auto add = [&](const std::string& picture, const std::string& code) {
        pictures.push_back(picture);
        expected += (expected.empty() ? "" : "\n") + code;
    };
    for (i16 item = 1; item <= 200; ++item) {
        const std::string code = random_code(random);
        add(save_item(item, code), code);
    }
    for (int count = 0; count < 20; ++count) {
        const auto recipe = static_cast<i16>(1 + random() % 1000);
        add(save_barcode_picture(recipe, true), "TVK" + std::to_string(recipe));
    }
    EXPECT_EQ(scanned(pictures), expected);
}

TEST_F(ScannedPicture, ARecipesCodeIsTvkAndItsSlot) {
    for (const i16 slot : {1, 42, 1000}) {
        EXPECT_EQ(scanned(save_barcode_picture(slot, true)), "TVK" + std::to_string(slot));
    }
}

}  // namespace
}  // namespace tavernook
