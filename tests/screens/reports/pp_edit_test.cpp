// A page is written on, saved, and made anew in another size.
#include <QWheelEvent>

#include "screens/reports/pp_fixture.h"

namespace tavernook {
namespace {

class PreviewEdits : public PreviewTest {
  protected:
    std::string file(const char* name) const { return platform.path(name); }
    std::string content(const std::string& path) const {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    int reports_made(const std::string& how) const {
        const auto& seen = platform.calls.entries;
        return static_cast<int>(
            std::count(seen.begin(), seen.end(), "Reports Build_HTML_Report_list " + how));
    }
};

TEST_F(PreviewEdits, EditLetsTypeIntoThePageAndInsertImages) {
    show(0);
    click("edit_button");
    EXPECT_EQ(calls("design mode on"), 1);
    EXPECT_TRUE(page_has_focus());
    EXPECT_TRUE(is_on("insert_image_button"));
    show(2);
    EXPECT_FALSE(is_on("insert_image_button"));
}

TEST_F(PreviewEdits, AddNotesLetsTypeOnly) {
    show(1);
    click("notes_button");
    EXPECT_EQ(calls("design mode on"), 1);
    EXPECT_TRUE(page_has_focus());
    EXPECT_FALSE(is_on("insert_image_button"));
}

TEST_F(PreviewEdits, AnImageComesFromAFile) {
    show(0);
    click("edit_button");
    platform.dialogs.expect_open("Insert Image", file("cake.png"))
        .filter("Pictures (*.jpg;*.jpeg;*.png;*.gif;*.bmp)|*.jpg;*.jpeg;*.png;*.gif;*.bmp");
    click("insert_image_button");
    EXPECT_EQ(calls("insert image " + file("cake.png")), 1);
    EXPECT_TRUE(page_has_focus());
    EXPECT_EQ(said(), "");
}

TEST_F(PreviewEdits, AFileWithoutAPictureIsTold) {
    show(0);
    click("edit_button");
    html_views.takes_images = false;
    platform.dialogs.expect_open("Insert Image", file("cake.txt"));
    click("insert_image_button");
    EXPECT_EQ(said(), "\"cake.txt\" holds no picture that can be shown.");
}

TEST_F(PreviewEdits, NoImageComesIntoAnotherPage) {
    show(0);
    click("edit_button");
    platform.dialogs.expect_open("Insert Image", file("cake.png")).during([this] { show(2); });
    click("insert_image_button");
    EXPECT_EQ(calls("insert image " + file("cake.png")), 0);
    EXPECT_EQ(said(), "The page is not there any more.  Nothing was done with it.");
}

TEST_F(PreviewEdits, ADialogMayOutliveTheScreen) {
    show(0);
    click("edit_button");
    platform.dialogs.expect_open("Insert Image", file("cake.png")).during([this] {
        delete screen->parentWidget();
    });
    part<QPushButton>("insert_image_button").click();
    EXPECT_EQ(calls("insert image " + file("cake.png")), 0);
    show(0);
    platform.dialogs.expect_save("Save as HTML", file("week.htm")).during([this] {
        delete screen->parentWidget();
    });
    part<QPushButton>("save_button").click();
    EXPECT_EQ(calls("read page"), 0);
}

// --- Esc

TEST_F(PreviewEdits, EscapeLeavesThePageFirst) {
    show(0);
    click("edit_button");
    press("Escape");
    EXPECT_TRUE(is_open("PP"));
    EXPECT_EQ(focused(), "print_button");
    EXPECT_EQ(said(),
              "Press Esc once more to close the preview; what was typed into the page is lost "
              "then.");
    press("Escape");
    EXPECT_FALSE(is_open("PP"));
}

TEST_F(PreviewEdits, EscapeClosesFromAPageThatIsOnlyRead) {
    show(0);
    focus_page();
    press("Escape");
    EXPECT_FALSE(is_open("PP"));
}

// --- saving

TEST_F(PreviewEdits, SavedIsThePageWithItsEdits) {
    show(0);
    platform.dialogs.expect_save("Save as HTML", file("week.htm"))
        .filter("Web Page (*.htm)|*.htm")
        .initial_file("Week Review.htm");
    click("save_button");
    expect_all_off_but({});
    EXPECT_FALSE(is_seen("stop_button"));
    EXPECT_EQ(said(), "");
    html_views.hand_over_page("edited");
    EXPECT_EQ(content(file("week.htm")), "edited");
    EXPECT_EQ(content(page_path()), "<html></html>");
    EXPECT_EQ(said(), "The page was saved as week.htm.");
    expect_all_off_but({"print_button", "edit_button", "save_button"});
    EXPECT_EQ(focused(), "print_button");
}

TEST_F(PreviewEdits, BehindALinkTheFileIsReplacedAndTheLinkStays) {
    std::ofstream(file("shared.htm")) << "older";
    std::filesystem::create_symlink(file("shared.htm"), file("week.htm"));
    show(0);
    platform.dialogs.expect_save("Save as HTML", file("week.htm"));
    click("save_button");
    html_views.hand_over_page("edited");
    EXPECT_EQ(content(file("shared.htm")), "edited");
    EXPECT_TRUE(std::filesystem::is_symlink(file("week.htm")));
}

TEST_F(PreviewEdits, ACancelledDialogSavesNothing) {
    show(0);
    platform.dialogs.expect_save("Save as HTML", cancelled);
    click("save_button");
    EXPECT_EQ(calls("read page"), 0);
    EXPECT_TRUE(is_on("save_button"));
    EXPECT_EQ(said(), "");
}

TEST_F(PreviewEdits, APageThatCannotBeReadIsNotSaved) {
    show(0);
    platform.dialogs.expect_save("Save as HTML", file("week.htm"));
    click("save_button");
    html_views.hand_over_page(std::nullopt);
    EXPECT_FALSE(platform.disk.exists(file("week.htm")));
    EXPECT_EQ(said(), "The page could not be read.  Nothing was saved.");
    EXPECT_TRUE(is_on("save_button"));
}

TEST_F(PreviewEdits, AFailedSaveIsToldAndTheOlderFileStays) {
    show(0);
    const auto save_with_failure = [this](int n) {
        std::ofstream(file("week.htm")) << "older";
        platform.dialogs.expect_save("Save as HTML", file("week.htm"));
        click("save_button");
        platform.files.start_over();
        if (n > 0) platform.files.fail_at(n, fault_number::permission_denied);
        if (n > 0)
            platform.boxes.expect_message("week.htm could not be saved.  Permission denied.");
        html_views.hand_over_page("edited");
    };
    save_with_failure(0);
    const std::vector<std::string> log = platform.files.log();
    int failures = 0;
    for (std::size_t n = 1; n <= log.size(); ++n) {
        if (log[n - 1].rfind("copy_attributes", 0) == 0) continue;  // tells of no failure
        SCOPED_TRACE(log[n - 1]);
        save_with_failure(static_cast<int>(n));
        EXPECT_EQ(content(file("week.htm")), "older");
        EXPECT_EQ(said(), "The page was not saved.");
        EXPECT_TRUE(is_on("save_button"));
        ++failures;
    }
    EXPECT_GE(failures, 4);
}

TEST_F(PreviewEdits, ThePageMayGoWhileTheDialogIsOpen) {
    show(0);
    platform.dialogs.expect_save("Save as HTML", file("week.htm")).during([this] {
        html_views.lose();
    });
    click("save_button");
    EXPECT_EQ(calls("read page"), 0);
    EXPECT_EQ(said(), "The page is not there any more.  Nothing was done with it.");
}

TEST_F(PreviewEdits, APageThatIsLostWhileItIsSavedIsTold) {
    show(0);
    platform.dialogs.expect_save("Save as HTML", file("week.htm"));
    click("save_button");
    html_views.lose();
    EXPECT_EQ(said(), "The page was lost before it was done.");
    html_views.hand_over_page("edited");
    EXPECT_FALSE(platform.disk.exists(file("week.htm")));
}

TEST_F(PreviewEdits, ClosedWhileItIsSavedThePageIsNot) {
    show(0);
    platform.dialogs.expect_save("Save as HTML", file("week.htm"));
    click("save_button");
    const auto late = html_views.answers.read;
    click("cancel_button");
    EXPECT_FALSE(is_open("PP"));
    EXPECT_TRUE(comes_true([] { return preview() == nullptr; }));
    late("edited");
    EXPECT_FALSE(platform.disk.exists(file("week.htm")));
    EXPECT_EQ(said(), "The page was not saved, as the preview was closed.");
}

TEST_F(PreviewEdits, TheKeyForSavingIsTheProjects) {
    show(0);
    int saves = 0;
    QObject::connect(&action("mnuFile_Save"), &QAction::triggered, screen, [&] { ++saves; });
    project_path = platform.path("home.tvk");
    focus_page();
    press("Ctrl+S");
    EXPECT_EQ(saves, 1);
    EXPECT_EQ(calls("read page"), 0);
}

// --- another size, gridlines

TEST_F(PreviewEdits, TheSizesByTheirNames) {
    const FakeReports reports(platform.calls);
    set_repname("What is low");
    show(4);
    const std::pair<const char*, const char*> sizes[] = {
        {"Medium", "2"}, {"Large", "3"}, {"Extra Large", "6"}};
    int pages = 1;
    for (const auto& [name, number] : sizes) {
        choose_size(name);
        EXPECT_EQ(reports_made(std::string(number) + " What is low"), 1);
        EXPECT_EQ(navigations(), ++pages);
        html_views.show();
        EXPECT_EQ(focused(), "size_box");
    }
    choose_size("Small");
    EXPECT_EQ(reports_made("1 What is low"), 1);
    EXPECT_EQ(reports_made("4 What is low") + reports_made("5 What is low"), 0);
    EXPECT_EQ(part<QComboBox>("size_box").currentText(), "Small");
}

TEST_F(PreviewEdits, GridlinesAreTheBorderOfAReport) {
    const FakeReports reports(platform.calls);
    set_repname("What is low");
    show(4);
    click("gridlines_box");
    EXPECT_EQ(reports_made("1 with gridlines What is low"), 1);
    html_views.show();
    choose_size("Medium");
    EXPECT_EQ(reports_made("2 with gridlines What is low"), 1);
    html_views.show();
    click("gridlines_box");
    EXPECT_EQ(reports_made("2 What is low"), 1);
    EXPECT_EQ(navigations(), 4);
}

TEST_F(PreviewEdits, TheListIsMadeAnewByItsScreen) {
    const FakeShoppingList list(platform.calls);
    show(1);
    choose_size("Medium");
    const auto& seen = platform.calls.entries;
    EXPECT_EQ(std::count(seen.begin(), seen.end(), "ShoppingList Build_HTMLlist 2"), 1);
    EXPECT_EQ(navigations(), 2);
}

TEST_F(PreviewEdits, ThePresentSizeOnceMoreLeavesThePageAlone) {
    const FakeReports reports(platform.calls);
    show(4);
    part<QComboBox>("size_box").setFocus();
    Q_EMIT part<QComboBox>("size_box").activated(0);
    EXPECT_EQ(navigations(), 1);
}

TEST_F(PreviewEdits, WhereThePageCannotBeMadeAnewTheBoxesGoBack) {
    FakeReports reports(platform.calls);
    show(4);
    reports.builds = false;
    choose_size_once("Down");
    EXPECT_EQ(part<QComboBox>("size_box").currentText(), "Small");
    EXPECT_EQ(said(), "The page could not be made. The one on show stays as it is.");
    click("gridlines_box");
    EXPECT_FALSE(part<QCheckBox>("gridlines_box").isChecked());
    EXPECT_EQ(navigations(), 1);
    EXPECT_TRUE(is_on("print_button"));
}

TEST_F(PreviewEdits, WithoutTheReportsScreenThePageOnShowStays) {
    show(4);
    choose_size_once("Down");
    EXPECT_EQ(part<QComboBox>("size_box").currentText(), "Small");
    EXPECT_EQ(said(),
              "The page is made of the reports' list, which is not open. The one on show stays as "
              "it is.");
    EXPECT_EQ(navigations(), 1);
}

TEST_F(PreviewEdits, WhatWasTypedIsNotOnAPageMadeAnewAndThatIsTold) {
    const FakeShoppingList list(platform.calls);
    show(1);
    choose_size("Medium");
    EXPECT_EQ(said(), "");
    html_views.show();
    click("notes_button");
    choose_size("Large");
    EXPECT_EQ(said(), "The page was made anew, without anything that was typed into it.");
    html_views.show();
    focus_page();
    press("Escape");
    EXPECT_FALSE(is_open("PP"));
}

TEST_F(PreviewEdits, ANewPageIsSmallAndWithoutGridlines) {
    const FakeReports reports(platform.calls);
    show(4);
    choose_size("Medium");
    html_views.show();
    click("gridlines_box");
    html_views.show();
    show(4);
    EXPECT_EQ(part<QComboBox>("size_box").currentText(), "Small");
    EXPECT_FALSE(part<QCheckBox>("gridlines_box").isChecked());
    choose_size("Medium");
    EXPECT_EQ(reports_made("2 "), 2);
}

TEST_F(PreviewEdits, AMissingPageIsMadeAnewInAnotherSize) {
    const FakeReports reports(platform.calls);
    ask_for(4);
    html_views.show(false);
    choose_size("Medium");
    html_views.show();
    EXPECT_FALSE(is_seen("sentence"));
    EXPECT_TRUE(is_on("print_button"));
}

TEST_F(PreviewEdits, TheWheelInPassingChangesNoSize) {
    const FakeReports reports(platform.calls);
    show(4);
    auto& box = part<QComboBox>("size_box");
    const QPointF at = QRectF(box.rect()).center();
    QWheelEvent turn(at, box.mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&box, &turn);
    EXPECT_EQ(box.currentText(), "Small");
    EXPECT_EQ(navigations(), 1);
}

}  // namespace
}  // namespace tavernook
