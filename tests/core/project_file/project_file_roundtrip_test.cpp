// What was saved comes back: tables, slots, odd texts and odd numbers.
#include <bit>
#include <limits>

#include "core/project_file/project_file_testing.h"
#include "support/generated_projects.h"

namespace tavernook {

namespace {

class ProjectFileRoundTrip : public ProjectFileTest {
  protected:
    // Saves, opens in a fresh program and saves again.
    void expect_to_come_back() {
        const TableSnapshot before;
        const std::string bytes = save();
        open();
        expect_opened();
        EXPECT_EQ(before.difference(TableSnapshot()), "");
        EXPECT_EQ(first_difference(bytes, save()), "");
        EXPECT_FALSE(platform.disk.exists(platform.path("home.previous.tvk")));
    }
};

TEST_F(ProjectFileRoundTrip, AnEmptyProject) {
    project_created = 45427;
    file_version = 1;
    expect_to_come_back();
}

TEST_F(ProjectFileRoundTrip, ATypicalProject) {
    fill_typical_project();
    expect_to_come_back();
}

TEST_F(ProjectFileRoundTrip, AFullProject) {
    fill_full_project();
    expect_to_come_back();
    EXPECT_EQ(items[10000].name, "Item number 10000");
    EXPECT_EQ(pooled_strings[30000].substr(0, 28), "Text in the pool, row 30000x");
}

TEST_F(ProjectFileRoundTrip, AProjectOfTheOlderFormStaysInIt) {
    fill_typical_project();
    file_version = 0;
    expect_to_come_back();
    EXPECT_EQ(file_version, 0);
    EXPECT_EQ(older_file_format, i16_true);
    const std::string bytes = save();
    EXPECT_EQ(long_at(bytes, 9), 100 + word_at(bytes, 1) * 164 + 2);
}

TEST_F(ProjectFileRoundTrip, TheCurrentFormIsNotMarkedAsOlder) {
    fill_typical_project();
    save();
    older_file_format = i16_true;
    open();
    EXPECT_EQ(older_file_format, i16_false);
}

TEST_F(ProjectFileRoundTrip, SlotsKeepTheirNumbersWithGaps) {
    project_created = 45427;
    for (const int slot : {3, 7}) {
        items[slot].in_use = 1;
        items[slot].name = "In slot " + std::to_string(slot);
    }
    save();
    open();
    EXPECT_EQ(items[3].name, "In slot 3");
    EXPECT_EQ(items[7].name, "In slot 7");
    for (const int slot : {1, 2, 4, 5, 6, 8}) {
        EXPECT_EQ(items[slot].in_use, 0) << slot;
        EXPECT_TRUE(items[slot].name.blank()) << slot;
    }
}

TEST_F(ProjectFileRoundTrip, TheLongestStrings) {
    project_created = 45427;
    const std::string longest(65535, 'x');
    for (const int row : {1, 2, 29999, 30000}) pooled_strings[row] = longest;
    meal_documents[1000] = longest;
    wams[200].in_use = -1;
    wams[200].text = longest;
    expect_to_come_back();
    EXPECT_EQ(pooled_strings[30000].size(), 65535U);
    EXPECT_TRUE(pooled_strings[3].empty());
}

TEST_F(ProjectFileRoundTrip, AStringThatItsCountCannotTellIsNotSaved) {
    pooled_strings[1] = std::string(65536, 'x');
    platform.boxes.expect_message(
        "There has been a file access error.  The error number is ERROR #: 6");
    EXPECT_FALSE(Project_Save(1));
}

TEST_F(ProjectFileRoundTrip, TextsOfEveryByte) {
    project_created = 45427;
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    pooled_strings[1] = all;
    meal_documents[1] = all;
    wams[1].text = all;
    ftp_server = all.substr(0, 128);
    ftp_directory = all.substr(128);
    catagories[1].name = std::string("a\0b\0", 4);
    expect_to_come_back();
    EXPECT_EQ(pooled_strings[1], all);
    EXPECT_EQ(ftp_directory.stored(), all.substr(128));
}

TEST_F(ProjectFileRoundTrip, NumbersKeepTheirBits) {
    project_created = 45427;
    constexpr f64 none = 0;
    const f64 odd[] = {std::bit_cast<f64>(0x7FF8000000000123U),
                       std::bit_cast<f64>(0xFFF8000000000001U),
                       std::numeric_limits<f64>::infinity(),
                       -std::numeric_limits<f64>::infinity(),
                       -none,
                       std::numeric_limits<f64>::denorm_min(),
                       std::numeric_limits<f64>::max()};
    items[1].in_use = 1;
    lots.grow(1);
    meals[1].in_use = 1;
    const std::vector<f64*> fields = {
        &items[1].quantity,           &items[1].cost,
        &items[1].last_restock_date,  &sales_tax,
        &meals[1].ingredient_qty[50], &day_quantities[1095].item_quantity[30],
        &meal_serving_size[1000],     &item_details[10000].protien,
        &lots[2].lot_quantity[15]};
    for (const f64 number : odd) {
        for (f64* field : fields) *field = number;
        save();
        for (f64* field : fields) *field = 1;
        open();
        lots.grow(1);
        for (std::size_t at = 0; at < fields.size(); ++at) {
            EXPECT_EQ(std::bit_cast<std::uint64_t>(*fields[at]),
                      std::bit_cast<std::uint64_t>(number))
                << "field " << at << ", " << number;
        }
    }
}

}  // namespace

}  // namespace tavernook
