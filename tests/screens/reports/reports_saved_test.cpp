// Saved reports on the reports' screen.
#include "screens/reports/reports_screen_fixture.h"

namespace tavernook {
namespace {

class SavedReports : public ReportsScreen {
  protected:
    static constexpr const char* overwrite = "Do you want to overwrite this saved report?";
    static constexpr const char* sure = "Are you sure that you want to delete this configuration?";

    void remove_file(const std::string& name) { platform.disk.remove(report_path(name)); }
    void destroy_file(const std::string& name) {
        remove_file(name);
        platform.disk.open(report_path(name), OpenMode::read_write)->write(0, "torn");
    }
    std::string written(const std::string& name) {
        const auto file = platform.disk.open(report_path(name), OpenMode::read);
        std::string text(static_cast<std::size_t>(file->length()), '\0');
        file->read(0, text.data(), text.size());
        return text;
    }
    bool exists(const std::string& name) { return platform.disk.exists(report_path(name)); }
};

TEST_F(SavedReports, AreNoneAtFirst) {
    open_reports();
    EXPECT_EQ(saved_names(), Texts{});
    EXPECT_EQ(chosen_name(), "");
}

TEST_F(SavedReports, ANewOneIsSavedUnderItsNameAndSelected) {
    open_reports();
    save_new("Milk");
    EXPECT_TRUE(exists("Milk.rcg"));
    EXPECT_EQ(saved_names(), Texts{"Milk"});
    EXPECT_EQ(chosen_name(), "Milk");
    EXPECT_EQ(status(), "The report is saved as \"Milk\".");
}

TEST_F(SavedReports, ANameKeepsWhatNoFileMayBeCalled) {
    open_reports();
    save_new("Milk/Eggs: all?");
    EXPECT_TRUE(exists("Milk_1Eggs_3 all_5.rcg"));
    EXPECT_EQ(chosen_name(), "Milk/Eggs: all?");
}

TEST_F(SavedReports, AnEmptyNameAndCancelSaveNothing) {
    open_reports();
    save_new("");
    platform.boxes.expect_input("Configuration Name", "Configuration Save", "", std::nullopt);
    command("report_toolbar_3").trigger();
    EXPECT_EQ(saved_names(), Texts{});
    EXPECT_EQ(status(), "");
}

TEST_F(SavedReports, BringBackSearchStringsMarksColumnsAndSort) {
    open_reports();
    search(1, "*milk*");
    toggle(2);
    press("F5");
    drag_header(0, 1);
    click_header(3);  // Quantity
    const Texts order = titles();
    save_new("Milk");
    drag_header(0, 5);
    press_letter("Alt+E");
    click_header(0);
    ASSERT_NE(titles(), order);
    ASSERT_EQ(names().size(), 4u);
    choose_saved("Milk");
    EXPECT_EQ(search_string(1), "*milk*");
    EXPECT_FALSE(is_checked(2));
    EXPECT_EQ(titles(), order);
    EXPECT_EQ(names(), (Texts{"Whole milk", "Milk Chocolate"}));
    EXPECT_EQ(sort_mark(), (std::pair<int, int>{3, Qt::DescendingOrder}));
    EXPECT_EQ(chosen_name(), "Milk");
}

TEST_F(SavedReports, LeaveTheLogicStringsAsTheyStand) {
    open_reports();
    search(1, "*milk*");
    save_new("Milk");
    type_logic(1, "xor");
    choose_saved("Milk");
    EXPECT_EQ(logic_string(1), "xor");
    EXPECT_EQ(names(), (Texts{"Apples", "Bread"}));
}

TEST_F(SavedReports, OneOf79ColumnsComesBackWhole) {
    open_reports();
    press_letter("Alt+N");
    press_letter("Alt+A");
    press("F5");
    drag_header(1, 0);
    const Texts order = titles();
    ASSERT_EQ(order.size(), 79u);
    save_new("Everything");
    press_letter("Alt+E");
    drag_header(1, 3);
    ASSERT_NE(titles()[0], order[0]);
    choose_saved("Everything");
    EXPECT_EQ(titles(), order);
}

TEST_F(SavedReports, YesOverwritesTheOneThatIsShown) {
    open_reports();
    save_new("Milk");
    search(1, "bread");
    platform.boxes.expect_message(overwrite, Answer::yes).buttons(Buttons::yes_no);
    command("report_toolbar_3").trigger();
    EXPECT_EQ(saved_names(), Texts{"Milk"});
    EXPECT_EQ(chosen_name(), "Milk");
    EXPECT_EQ(status(), "The report is saved as \"Milk\".");
    press_letter("Alt+E");
    choose_saved("Milk");
    EXPECT_EQ(names(), Texts{"Bread"});
}

TEST_F(SavedReports, NoSavesItUnderAnotherName) {
    open_reports();
    save_new("Milk");
    search(1, "bread");
    save_new("Bread");
    EXPECT_EQ(saved_names(), (Texts{"Milk", "Bread"}));
    EXPECT_EQ(chosen_name(), "Bread");
    choose_saved("Milk");
    EXPECT_EQ(names().size(), 4u);
}

TEST_F(SavedReports, ANewNameThatAnotherReportHasReplacesThatOneAndSaysSo) {
    open_reports();
    save_new("Milk");
    save_new("Bread");
    EXPECT_EQ(status(), "The report is saved as \"Bread\".");
    save_new("Milk");
    EXPECT_EQ(saved_names(), (Texts{"Bread", "Milk"}));
    EXPECT_EQ(chosen_name(), "Milk");
    EXPECT_EQ(status(), "The report is saved as \"Milk\", in place of the older one.");
}

TEST_F(SavedReports, AFolderThatCannotBeWrittenToIsTold) {
    open_reports();
    platform.boxes.expect_input("Configuration Name", "Configuration Save", "", "Milk")
        .during([this] {
            platform.files.start_over();
            platform.files.fail_at(1, fault_number::disk_full, Repeat::persistently);
        });
    platform.boxes.expect_message("there has been an error");
    command("report_toolbar_3").trigger();
    platform.files.work_normally();
    EXPECT_EQ(saved_names(), Texts{});
    EXPECT_EQ(status(), "");
    EXPECT_EQ(names().size(), 4u);
}

TEST_F(SavedReports, OneWhoseFileWentMeanwhileIsToldAndChangesNothing) {
    open_reports();
    save_new("Milk");
    save_new("Bread");
    search(1, "*a*");
    const Texts found = names();
    remove_file("Milk.rcg");
    choose_saved("Milk");
    EXPECT_EQ(status(), "The saved report \"Milk\" cannot be read. Nothing has changed.");
    EXPECT_EQ(search_string(1), "*a*");
    EXPECT_EQ(names(), found);
    EXPECT_EQ(saved_names(), Texts{"Bread"});
    EXPECT_EQ(chosen_name(), "Bread");
}

TEST_F(SavedReports, OfADamagedFileWhatCanBeReadIsTaken) {
    open_reports();
    save_new("Milk");
    destroy_file("Milk.rcg");
    choose_saved("Milk");
    EXPECT_EQ(names().size(), 4u);
    press_letter("Alt+E");
    EXPECT_EQ(saved_names(), Texts{});  // it has no name any more
}

TEST_F(SavedReports, DeletingNeedsOneThatIsChosen) {
    open_reports();
    platform.boxes.expect_message("No current configuration loaded.");
    press_letter("Alt+D");
}

TEST_F(SavedReports, ADeletedOneIsGoneAndTheFilterAsAtFirst) {
    open_reports();
    search(1, "*milk*");
    save_new("Milk");
    platform.boxes.expect_message(sure, Answer::no).buttons(Buttons::yes_no);
    press_letter("Alt+D");
    EXPECT_TRUE(exists("Milk.rcg"));
    EXPECT_EQ(chosen_name(), "Milk");
    platform.boxes.expect_message(sure, Answer::yes).buttons(Buttons::yes_no);
    press_letter("Alt+D");
    EXPECT_FALSE(exists("Milk.rcg"));
    EXPECT_EQ(saved_names(), Texts{});
    EXPECT_EQ(search_string(1), "*");
    EXPECT_EQ(names().size(), 4u);
    EXPECT_EQ(status(), "The saved report \"Milk\" is deleted.");
    platform.boxes.expect_message("No current configuration loaded.");
    press_letter("Alt+D");
}

TEST_F(SavedReports, OneThatWasDeletedByHandGoesWithoutATrouble) {
    open_reports();
    save_new("Milk");
    remove_file("Milk.rcg");
    platform.boxes.expect_message(sure, Answer::yes).buttons(Buttons::yes_no);
    press_letter("Alt+D");
    EXPECT_EQ(saved_names(), Texts{});
}

TEST_F(SavedReports, AreListedAgainAtASecondLoadWithNoneChosen) {
    open_reports();
    save_new("Milk");
    save_new("Bread");
    close_reports();
    open_reports();
    EXPECT_EQ(saved_names(), (Texts{"Milk", "Bread"}));
    EXPECT_EQ(chosen_name(), "");
    window.resize(1000, 700);
    settle();
    EXPECT_EQ(saved_names(), (Texts{"Milk", "Bread"}));
}

TEST_F(SavedReports, TheNameGoesOnThePrintedPage) {
    open_reports();
    save_new("Milk");
    press("Ctrl+P");
    EXPECT_NE(written("rlist.htm").find("Tavernook Report-Milk "), std::string::npos);
}

// What a newcomer comes for: what is past its date, the oldest first, kept under a name and
// printed.
TEST_F(SavedReports, WhatIsPastItsDateIsFoundSortedKeptAndPrinted) {
    lots[bread].expiration_date[0] = date_from_civil(2024, 5, 1);
    lots[milk].expiration_date[0] = date_from_civil(2023, 12, 24);
    lots[apples].expiration_date[0] = date_from_civil(2024, 7, 1);
    action("toolbar_2_1").trigger();
    open_reports();
    press_letter("Alt+N");
    toggle(31);
    type_search(31, "*/*");
    QTest::mouseClick(&part("report_toolbar_1_button"), Qt::LeftButton);
    EXPECT_EQ(status(), "3 items found.");
    click_header(1);
    click_header(1);
    EXPECT_EQ(names(), (Texts{"Milk Chocolate", "Bread", "Apples"}));
    save_new("Past its date");
    QTest::mouseClick(&part("report_toolbar_2_button"), Qt::LeftButton);
    const std::string page = written("rlist.htm");
    EXPECT_NE(page.find("Tavernook Report-Past its date "), std::string::npos);
    EXPECT_LT(page.find("12/24/2023"), page.find("05/01/2024"));
    EXPECT_LT(page.find("05/01/2024"), page.find("07/01/2024"));
    double_click_row(list(), 0);
    EXPECT_EQ(food_inventory()->getindex(), milk);
}

TEST_F(SavedReports, AScreenThatGoesWhileItSavesIsLeftAlone) {
    open_reports();
    platform.boxes.expect_input("Configuration Name", "Configuration Save", "", "Milk")
        .during([this] { delete screen; });
    command("report_toolbar_3").trigger();
    EXPECT_TRUE(exists("Milk.rcg"));
}

}  // namespace
}  // namespace tavernook
