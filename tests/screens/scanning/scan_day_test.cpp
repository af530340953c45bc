// A day with the scanner: everything that was bought goes through it, and then into stock.
#include "inventory/usage_history.h"
#include "screens/scanning/scan_list_fixture.h"

namespace tavernook {
namespace {

class ScanDay : public ScanListScreen {
  protected:
    static constexpr i16 first_food = 100;
    static constexpr int foods = 40;

    void put_foods() {
        for (int n = 0; n < foods; ++n) {
            const auto item = static_cast<i16>(first_food + n);
            put_food(item, "Food " + std::to_string(n), 1, code_of(n));
            stock(item, 2);
        }
    }
    static std::string code_of(int n) { return "40000" + std::to_string(10000 + n); }
    static std::string new_code(int n) { return "50000" + std::to_string(10000 + n); }
};

// Each fifth of the fifty codes is one that no item bears so far.
TEST_F(ScanDay, FiftyCodesAreBookedTenOfThemUnknown) {
    put_foods();
    open_list();
    int known = 0;
    int unknown = 0;
    for (int n = 0; n < 50; ++n) {
        scan(n % 5 == 4 ? new_code(unknown++) : code_of(known++));
        EXPECT_EQ(focused(), "Text1");
    }
    ASSERT_EQ(codes().size(), 50u);
    EXPECT_EQ(count(), "50 codes, 50 marked");
    for (int n = 0; n < 10; ++n) expect_new_item(new_code(n), "New " + std::to_string(n));
    click_command(3);
    EXPECT_EQ(codes(), Texts{});
    EXPECT_EQ(status(), "50 codes booked as new stock.");
    for (int n = 0; n < foods; ++n) {
        const auto item = static_cast<i16>(first_food + n);
        EXPECT_EQ(lots[item].lot_quantity[0], 2) << n;
        EXPECT_EQ(lots[item].lot_quantity[1], 1) << n;
        EXPECT_EQ(items[item].quantity, 3) << n;
    }
    for (int n = 0; n < 10; ++n) {
        const i16 item = find_barcode(new_code(n));
        ASSERT_NE(item, 0) << n;
        EXPECT_EQ(std::string(items[item].name.trimmed()), "New " + std::to_string(n));
        EXPECT_EQ(std::string(units[items[item].qty_units].name.trimmed()), "each");
        EXPECT_EQ(items[item].category, 1);
        EXPECT_EQ(lots[item].lot_quantity[0], 1);
        EXPECT_EQ(items[item].quantity, 1);
    }
    EXPECT_NE(project_modified, 0);
}

// --- codes on the list and the end of their project ----------------------------------------------

constexpr const char* question =
    "The scan list still holds 1 code that is not booked, and closing the project empties the "
    "list.  Do you want to go on?";

TEST_F(ScanDay, CodesAreAskedAboutBeforeTheProjectGoes) {
    open_list();
    scan("1111");
    press_letter("Alt+C");
    platform.boxes.expect_message(question, Answer::no).buttons(Buttons::yes_no);
    action("mnuFile_Close").trigger();
    EXPECT_NE(project_open, 0);
    EXPECT_TRUE(is_open("CS1504GETUPC"));  // there they are
    EXPECT_EQ(scan_rows.size(), 1u);
    platform.boxes.expect_message(question, Answer::yes);
    action("mnuFile_Close").trigger();
    EXPECT_EQ(project_open, 0);
    EXPECT_TRUE(scan_rows.empty());
}

TEST_F(ScanDay, CodesAreAskedAboutBeforeTheProgramEnds) {
    open_list();
    scan("1111");
    platform.boxes.expect_message(question, Answer::no);
    window.close();
    EXPECT_EQ(ends, 0);
    platform.boxes.expect_message(question, Answer::yes);
    window.close();
    EXPECT_EQ(ends, 1);
}

TEST_F(ScanDay, AProjectThatCannotBeOpenedAsksFirst) {
    open_list();
    scan("1111");
    platform.boxes.expect_message(question, Answer::no);
    press("Ctrl+O");
    EXPECT_EQ(codes(), Texts{"1111"});
}

TEST_F(ScanDay, SavingAsksNothing) {
    open_list();
    scan("1111");
    project_path = platform.path("home.tvk");
    press("Ctrl+S");
    EXPECT_EQ(codes(), Texts{"1111"});
}

}  // namespace
}  // namespace tavernook
