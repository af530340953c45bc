// Which page the preview shows, what may be done with it, and when there is none.
#include "screens/reports/pp_fixture.h"

namespace tavernook {
namespace {

class PreviewKinds : public PreviewTest {};

struct Kind {
    const char* title;
    bool edit, notes, sizes, gridlines;
};

constexpr Kind kinds[] = {{"Week Review", true, false, false, false},
                          {"Print Preview", false, true, true, false},
                          {"Month Review", true, false, false, false},
                          {"Item Label", true, false, false, false},
                          {"Reports", false, false, true, true},
                          {"Usage Reports", true, false, false, false},
                          {"Project Information", true, false, false, false}};

TEST_F(PreviewKinds, EachHasItsTitleAndItsCommands) {
    for (i16 kind = 0; kind <= 6; ++kind) {
        SCOPED_TRACE(kind);
        show(kind);
        EXPECT_EQ(screen->windowTitle().toStdString(), kinds[kind].title);
        EXPECT_EQ(screen->parentWidget()->windowTitle(), screen->windowTitle());
        EXPECT_TRUE(is_on("print_button") && is_on("save_button") && is_on("cancel_button"));
        EXPECT_EQ(is_on("edit_button"), kinds[kind].edit);
        EXPECT_FALSE(is_on("insert_image_button"));
        EXPECT_EQ(is_on("notes_button"), kinds[kind].notes);
        EXPECT_EQ(is_on("size_box"), kinds[kind].sizes);
        EXPECT_EQ(is_on("gridlines_box"), kinds[kind].gridlines);
        EXPECT_EQ(calls("design mode on"), kind == 4 ? 1 : 0);
        html_views.calls.clear();
    }
}

// Its code could not be scanned. Other pages have none.
TEST_F(PreviewKinds, AnItemLabelTellsOfTheMissingFont) {
    show(0);
    EXPECT_EQ(said(), "");
    show(3);
    EXPECT_TRUE(said().starts_with("The font \"3 of 9 Barcode\" is missing on this computer"))
        << said();
}

TEST_F(PreviewKinds, TheSizesAreListed) {
    show(4);
    QStringList texts;
    auto& box = part<QComboBox>("size_box");
    for (int n = 0; n < box.count(); ++n) texts << box.itemText(n);
    EXPECT_EQ(texts, QStringList({"Small", "Medium", "Large", "Extra Large"}));
    EXPECT_EQ(box.currentText(), "Small");
    EXPECT_FALSE(part<QCheckBox>("gridlines_box").isChecked());
}

TEST_F(PreviewKinds, UntilThePageIsThereNothingIsDoneWithIt) {
    ask_for(1);
    EXPECT_EQ(sentence(), "The page comes up in a moment.");
    expect_all_off_but({"size_box"});
    EXPECT_EQ(QApplication::focusWidget(), screen);
    html_views.show();
    expect_all_off_but({"print_button", "notes_button", "save_button", "size_box"});
    EXPECT_EQ(focused(), "print_button");
    EXPECT_TRUE(html_views.answers.widget->isVisible());
    EXPECT_FALSE(is_seen("sentence"));
}

TEST_F(PreviewKinds, AnotherPageComesUpInTheScreenThatIsThere) {
    show(0);
    const QWidget* first = screen;
    ASSERT_NE(show_screen("wam"), nullptr);
    show(6);
    EXPECT_EQ(screen, first);
    EXPECT_EQ(navigations(), 2);
    EXPECT_EQ(calls("make"), 1);
    EXPECT_TRUE(screen->isVisible());
    EXPECT_EQ(focused(), "print_button");
    EXPECT_EQ(screen->windowTitle(), "Project Information");
}

TEST_F(PreviewKinds, ThePortIsThereWhileTheScreenIs) {
    EXPECT_EQ(preview(), nullptr);
    show(0);
    EXPECT_NE(preview(), nullptr);
    click("cancel_button");
    EXPECT_FALSE(is_open("PP"));
    EXPECT_TRUE(comes_true([] { return preview() == nullptr; }));
    EXPECT_EQ(calls("view gone"), 1);
}

TEST_F(PreviewKinds, TheAnswerToAPageThatWasGivenUpCountsForNothing) {
    ask_for(0);
    ask_for(2);
    html_views.show(false);
    EXPECT_EQ(sentence(), "The page comes up in a moment.");
    html_views.show(true);
    EXPECT_FALSE(is_seen("sentence"));
    EXPECT_TRUE(is_on("edit_button"));
    ask_for(0);
    ask_for(2);
    html_views.show(true);
    EXPECT_FALSE(is_on("print_button"));
    html_views.show(false);
    EXPECT_TRUE(is_seen("sentence"));
}

TEST_F(PreviewKinds, APageThatIsNotThereIsToldInItsPlace) {
    ask_for(4);
    html_views.show(false);
    EXPECT_EQ(sentence(), "The page could not be shown. Its file may have been deleted.");
    expect_all_off_but({"size_box", "gridlines_box"});
    EXPECT_EQ(focused(), "show_again_button");
    EXPECT_EQ(part<QWidget>("show_again_button").accessibleDescription().toStdString(), sentence());
    press("Return");
    EXPECT_EQ(navigations(), 2);
    html_views.show(true);
    EXPECT_FALSE(is_seen("sentence"));
    EXPECT_TRUE(is_on("print_button"));
    EXPECT_TRUE(page_has_focus());
    EXPECT_EQ(calls("design mode on"), 1);
}

TEST_F(PreviewKinds, WithoutAnEngineASentenceSaysSo) {
    html_views.refuses = Fault(fault_number::file_not_found, "The library is missing");
    ask_for(4);
    EXPECT_EQ(sentence(),
              "Pages can be neither shown nor printed on this computer, as what shows them could "
              "not be started.\n\nThe library is missing");
    EXPECT_FALSE(is_seen("show_again_button"));
    expect_all_off_but({});
    EXPECT_EQ(screen->windowTitle(), "Reports");
    EXPECT_EQ(said(), "Pages can be neither shown nor printed on this computer.");
    EXPECT_EQ(focused(), "cancel_button");
    ask_for(0);
    expect_all_off_but({});
    EXPECT_EQ(screen->windowTitle(), "Week Review");
    press("Ctrl+P");
    EXPECT_TRUE(print_prompt.calls.entries.empty());
    press("Escape");
    EXPECT_FALSE(is_open("PP"));
}

TEST_F(PreviewKinds, APageThatIsLostCanBeShownAgain) {
    show(0);
    click("edit_button");
    html_views.lose();
    EXPECT_EQ(sentence(),
              "The page was lost, as what shows pages has stopped working. What was typed into it "
              "is gone.");
    expect_all_off_but({});
    EXPECT_EQ(focused(), "show_again_button");
    click("show_again_button");
    html_views.show();
    expect_all_off_but({"print_button", "edit_button", "save_button"});
}

TEST_F(PreviewKinds, AnAnswerBehindTheLossCountsForNothing) {
    ask_for(0);
    html_views.lose();
    html_views.show(true);
    EXPECT_TRUE(is_seen("sentence"));
    EXPECT_FALSE(is_on("print_button"));
}

TEST_F(PreviewKinds, AnAnswerBehindTheScreenFindsNobody) {
    ask_for(0);
    const auto shown = html_views.answers.shown.front();
    const auto lost = html_views.answers.lost;
    click("cancel_button");
    EXPECT_TRUE(comes_true([] { return preview() == nullptr; }));
    shown(true);
    lost();
}

TEST_F(PreviewKinds, ClosedByEscape) {
    show(0);
    press("Escape");
    EXPECT_FALSE(is_open("PP"));
}

TEST_F(PreviewKinds, CanBeUsedByKeysAndByEar) {
    show(4);
    expect_accessible_names();
    expect_unique_mnemonics();
    expect_every_button_has_a_mnemonic();
    EXPECT_EQ(focused(), "print_button");
    press("Tab");
    EXPECT_EQ(focused(), "save_button");
    press("Tab");
    EXPECT_EQ(focused(), "size_box");
    press("Tab");
    EXPECT_EQ(focused(), "gridlines_box");
    press("Tab");
    EXPECT_EQ(focused(), "cancel_button");
}

}  // namespace
}  // namespace tavernook
