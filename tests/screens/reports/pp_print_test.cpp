// A page is printed; what becomes of the print when other things happen meanwhile.
#include "screens/reports/pp_fixture.h"

namespace tavernook {
namespace {

class PreviewPrint : public PreviewTest {
  protected:
    static std::string rows(int count) {
        std::string text = "<html><table>";
        for (int n = 0; n < count; ++n) text += n % 2 == 0 ? "<tr><td>x</td></tr>" : "<TR><td>";
        return text;
    }
    void begin_print(i16 kind = 0) {
        show(kind);
        click("print_button");
        ASSERT_EQ(calls("print"), 1);
    }
    int asked() const { return static_cast<int>(print_prompt.calls.entries.size()); }
};

const char* const stopped =
    "Printing was stopped.  A part of the page may come out of the printer.";
const char* const closed = "Printing was stopped, as the preview was closed.";

TEST_F(PreviewPrint, AsksForThePrinterAndTellsWhenItIsDone) {
    show(0);
    EXPECT_FALSE(is_seen("printing_bar") || is_seen("stop_button") || is_seen("printing_label"));
    press("Return");
    EXPECT_EQ(print_prompt.calls.entries, std::vector<std::string>{"ask Week Review"});
    EXPECT_EQ(calls("print"), 1);
    expect_all_off_but({});
    EXPECT_TRUE(is_seen("printing_bar") && is_seen("stop_button") && is_on("stop_button"));
    EXPECT_EQ(said(), "");
    html_views.tell_progress(40);
    EXPECT_EQ(part<QProgressBar>("printing_bar").value(), 40);
    html_views.end_print(true);
    EXPECT_EQ(said(), "The page was handed to the printer.");
    EXPECT_FALSE(is_seen("printing_bar") || is_seen("stop_button"));
    expect_all_off_but({"print_button", "edit_button", "save_button"});
    EXPECT_EQ(focused(), "print_button");
}

TEST_F(PreviewPrint, AMonthAndAReportAreOfferedASheetThatLiesAcross) {
    for (const i16 kind : {2, 4, 0, 1, 3, 5, 6}) {
        show(kind);
        click("print_button");
        EXPECT_EQ(print_prompt.was_wide, kind == 2 || kind == 4) << kind;
        html_views.end_print(true);
        settle();
    }
}

TEST_F(PreviewPrint, TheEnterKeyThatBeganItStopsNothing) {
    show(0);
    press("Return");
    press("Return");
    EXPECT_EQ(calls("cancel printing"), 0);
    EXPECT_TRUE(is_open("PP"));
    EXPECT_EQ(calls("print"), 1);
}

TEST_F(PreviewPrint, ByItsKeyAlsoFromThePage) {
    show(0);
    click("edit_button");
    press("Ctrl+P");
    EXPECT_EQ(calls("print"), 1);
    EXPECT_TRUE(page_has_focus());
    press("Ctrl+P");
    EXPECT_EQ(asked(), 1);
}

TEST_F(PreviewPrint, NothingIsSaidWhenTheDialogIsCancelled) {
    show(0);
    print_prompt.agrees = false;
    click("print_button");
    EXPECT_EQ(asked(), 1);
    EXPECT_EQ(calls("print"), 0);
    EXPECT_EQ(said(), "");
    EXPECT_TRUE(is_on("print_button"));
}

TEST_F(PreviewPrint, FiveThousandRowsArePrintedUnasked) {
    put_page(rows(5000));
    begin_print(4);
}

TEST_F(PreviewPrint, MoreRowsAreAskedAbout) {
    put_page(rows(5001));
    show(4);
    const char* const question =
        "This page has 5001 rows and takes many sheets of paper.  Do you want to print it?";
    platform.boxes.expect_message(question, Answer::no)
        .buttons(Buttons::yes_no)
        .default_button(DefaultButton::no);
    click("print_button");
    EXPECT_EQ(asked(), 0);
    platform.boxes.expect_message(question, Answer::yes);
    click("print_button");
    EXPECT_EQ(calls("print"), 1);
}

TEST_F(PreviewPrint, APageWhoseFileHasGoneIsPrintedAsItStands) {
    show(0);
    std::filesystem::remove(page_path());
    click("print_button");
    EXPECT_EQ(calls("print"), 1);
}

TEST_F(PreviewPrint, AFailureIsTold) {
    begin_print();
    html_views.end_print(false);
    EXPECT_EQ(said(), "The page could not be printed, or only a part of it.");
    EXPECT_TRUE(is_on("print_button"));
}

TEST_F(PreviewPrint, CanBeStopped) {
    begin_print();
    click("stop_button");
    EXPECT_EQ(calls("cancel printing"), 1);
    EXPECT_EQ(said(), "Printing is being stopped.");
    EXPECT_FALSE(is_on("stop_button"));
    EXPECT_FALSE(is_on("print_button"));
    html_views.end_print(false);
    EXPECT_EQ(said(), stopped);
    click("print_button");
    EXPECT_TRUE(is_on("stop_button"));
    html_views.end_print(false);
    EXPECT_EQ(said(), "The page could not be printed, or only a part of it.");
}

TEST_F(PreviewPrint, WhatWasDoneBeforeItCouldBeStoppedIsDone) {
    begin_print();
    click("stop_button");
    html_views.end_print(true);
    EXPECT_EQ(said(), "The page was handed to the printer.");
}

TEST_F(PreviewPrint, EscapeStopsItAndLeavesThePreview) {
    begin_print();
    press("Escape");
    press("Escape");
    EXPECT_EQ(calls("cancel printing"), 1);
    EXPECT_TRUE(is_open("PP"));
    html_views.end_print(false);
    EXPECT_EQ(said(), stopped);
}

TEST_F(PreviewPrint, CancelEndsItAndSaysSo) {
    begin_print();
    const auto progress = html_views.answers.progress;
    const auto late = html_views.answers.printed;
    click("cancel_button");
    EXPECT_FALSE(is_open("PP"));
    EXPECT_EQ(calls("cancel printing"), 1);
    EXPECT_TRUE(comes_true([] { return preview() == nullptr; }));
    progress(50);
    late(false);
    EXPECT_EQ(said(), closed);
}

TEST_F(PreviewPrint, TheCloseBoxEndsItAndSaysSo) {
    begin_print();
    screen->parentWidget()->close();
    EXPECT_EQ(calls("cancel printing"), 1);
    settle();
    EXPECT_EQ(said(), closed);
}

TEST_F(PreviewPrint, ClosingTheProjectEndsItAndSaysSo) {
    bring_project();
    begin_print();
    const auto late = html_views.answers.printed;
    platform.boxes.expect_message(
        "A page is still being printed or saved, and leaving now stops that.  Do you want to leave "
        "all the same?",
        Answer::no);
    action("mnuFile_Close").trigger();
    EXPECT_NE(project_open, 0);
    EXPECT_EQ(calls("cancel printing"), 0);
    platform.boxes.expect_message(
        "A page is still being printed or saved, and leaving now stops that.  Do you want to leave "
        "all the same?",
        Answer::yes);
    action("mnuFile_Close").trigger();
    EXPECT_EQ(project_open, 0);
    EXPECT_EQ(calls("cancel printing"), 1);
    late(true);
    EXPECT_TRUE(comes_true([] { return preview() == nullptr; }));
    EXPECT_EQ(said(), closed);
}

TEST_F(PreviewPrint, ClosingTheProgramEndsIt) {
    begin_print();
    platform.boxes.expect_message(
        "A page is still being printed or saved, and leaving now stops that.  Do you want to leave "
        "all the same?",
        Answer::no);
    EXPECT_FALSE(window.close());
    EXPECT_EQ(calls("cancel printing"), 0);
    platform.boxes.expect_message(
        "A page is still being printed or saved, and leaving now stops that.  Do you want to leave "
        "all the same?",
        Answer::yes);
    EXPECT_TRUE(window.close());
    EXPECT_EQ(calls("cancel printing"), 1);
    EXPECT_EQ(ends, 1);
}

TEST_F(PreviewPrint, WithoutAPrintNothingIsSaidOnClosing) {
    show(0);
    click("cancel_button");
    settle();
    EXPECT_EQ(said(), "");
    EXPECT_EQ(calls("cancel printing"), 0);
}

TEST_F(PreviewPrint, AnAuditByTheClockLeavesItAlone) {
    bring_project();
    begin_print();
    audit_hour = 12;  // it is 12:00
    audit_minute = 0;
    EXPECT_TRUE(tick("timer_1"));
    EXPECT_EQ(panel(activity_panel), "Ready");
    EXPECT_EQ(calls("cancel printing"), 0);
    EXPECT_TRUE(is_seen("stop_button"));
    html_views.end_print(true);
    EXPECT_EQ(said(), "The page was handed to the printer.");
    project_modified = 0;
}

TEST_F(PreviewPrint, AnotherPageWaitsForTheEnd) {
    begin_print(0);
    ask_for(2);
    EXPECT_EQ(navigations(), 1);
    EXPECT_EQ(screen->windowTitle(), "Week Review");
    html_views.end_print(true);
    EXPECT_EQ(said(), "The page was handed to the printer.");
    EXPECT_EQ(navigations(), 2);
    EXPECT_EQ(screen->windowTitle(), "Month Review");
    html_views.show();
    EXPECT_TRUE(is_on("print_button"));
}

TEST_F(PreviewPrint, APageThatIsLostMeanwhileIsTold) {
    begin_print();
    html_views.lose();
    EXPECT_EQ(said(), "The page was lost before it was done.");
    EXPECT_FALSE(is_seen("stop_button"));
    html_views.end_print(false);
    EXPECT_EQ(said(), "The page was lost before it was done.");
}

TEST_F(PreviewPrint, ThePageMayGoWhileTheDialogIsOpen) {
    show(0);
    print_prompt.while_open = [this] { html_views.lose(); };
    click("print_button");
    EXPECT_EQ(calls("print"), 0);
    EXPECT_EQ(said(), "The page is not there any more.  Nothing was done with it.");
}

TEST_F(PreviewPrint, TheScreenMayGoWhileABoxIsOpen) {
    put_page(rows(5001));
    show(4);
    platform.boxes
        .expect_message(
            "This page has 5001 rows and takes many sheets of paper.  Do you want to print it?",
            Answer::yes)
        .during([this] { delete screen->parentWidget(); });
    part<QPushButton>("print_button").click();
    EXPECT_EQ(asked(), 0);
    put_page("<html>");
    show(0);
    print_prompt.while_open = [this] { delete screen->parentWidget(); };
    part<QPushButton>("print_button").click();
    EXPECT_EQ(asked(), 1);
    EXPECT_EQ(calls("print"), 0);
}

}  // namespace
}  // namespace tavernook
