#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "basics/fault.h"
#include "fakes/fake_boxes.h"
#include "fakes/fake_file_dialogs.h"

namespace tavernook {
namespace {

using Texts = std::vector<std::string>;

TEST(FakeBoxesTest, AnswersInTheOrderOfTheScript) {
    FakeBoxes fake;
    fake.expect_message("Saved.");
    fake.expect_message("Save?", Answer::cancel).buttons(Buttons::yes_no_cancel).title("Tavernook");
    fake.expect_input("How many?", "Restock", "1", "12");
    fake.expect_input("How many?", "Restock", "1", std::nullopt);
    EXPECT_EQ(fake.message("Saved.", Buttons::ok, "Tavernook"), Answer::ok);
    EXPECT_EQ(fake.message("Save?", Buttons::yes_no_cancel, "Tavernook"), Answer::cancel);
    EXPECT_EQ(fake.input("How many?", "Restock", "1"), "12");
    EXPECT_EQ(fake.input("How many?", "Restock", "1"), std::nullopt);
    EXPECT_EQ(fake.shown(), (Texts{"Saved.", "Save?", "How many?", "How many?"}));
}

TEST(FakeBoxesTest, AnUnexpectedBoxFailsTheTestAndIsClosed) {
    FakeBoxes fake;
    fake.expect_none();
    Answer answer = Answer::ok;
    EXPECT_NONFATAL_FAILURE(answer = fake.message("Boo", Buttons::ok, "T"),
                            "Unexpected: message \"Boo\"");
    EXPECT_EQ(answer, Answer::ok);
    EXPECT_NONFATAL_FAILURE(answer = fake.message("Boo", Buttons::yes_no, "T"), "Boo");
    EXPECT_EQ(answer, Answer::no);
    EXPECT_NONFATAL_FAILURE(answer = fake.message("Boo", Buttons::yes_no_cancel, "T"), "Boo");
    EXPECT_EQ(answer, Answer::cancel);
    std::optional<std::string> typed = "x";
    EXPECT_NONFATAL_FAILURE(typed = fake.input("Name?", "T", ""), "Unexpected: input \"Name?\"");
    EXPECT_EQ(typed, std::nullopt);
}

TEST(FakeBoxesTest, ADifferentTextFailsTheTest) {
    FakeBoxes fake;
    fake.expect_message("Saved.");
    EXPECT_NONFATAL_FAILURE(fake.message("Saved", Buttons::ok, "T"),
                            "text: \"Saved\", expected \"Saved.\"");
}

TEST(FakeBoxesTest, AWarningIsAMessageWithTheExclamationIcon) {
    FakeBoxes fake;
    fake.expect_message("Too much.").title("Kitchen").buttons(Buttons::ok).warning();
    fake.warning("Too much.", "Kitchen");
    fake.expect_message("Too much.").warning();
    EXPECT_NONFATAL_FAILURE(fake.message("Too much.", Buttons::ok, "Kitchen"),
                            "without the exclamation icon");
    fake.expect_message("Too much.");
    fake.warning("Too much.", "Kitchen");
}

TEST(FakeBoxesTest, DifferentTitleOrButtonsFailTheTestWhereTheyWereStated) {
    FakeBoxes fake;
    fake.expect_message("Save?", Answer::yes);
    fake.message("Save?", Buttons::yes_no, "Any");
    fake.expect_message("Save?", Answer::yes).title("Tavernook");
    EXPECT_NONFATAL_FAILURE(fake.message("Save?", Buttons::yes_no, "Other"),
                            "title: \"Other\", expected \"Tavernook\"");
    fake.expect_message("Save?", Answer::yes).buttons(Buttons::yes_no);
    EXPECT_NONFATAL_FAILURE(fake.message("Save?", Buttons::yes_no_cancel, "Any"),
                            "buttons: \"yes_no_cancel\", expected \"yes_no\"");
}

TEST(FakeBoxesTest, ADifferentDefaultButtonFailsTheTestWhereItWasStated) {
    FakeBoxes fake;
    fake.expect_message("Sure?", Answer::yes);
    fake.message("Sure?", Buttons::yes_no, "T", DefaultButton::no);
    fake.expect_message("Sure?", Answer::yes).default_button(DefaultButton::no);
    fake.message("Sure?", Buttons::yes_no, "T", DefaultButton::no);
    fake.expect_message("Sure?", Answer::yes).default_button(DefaultButton::no);
    EXPECT_NONFATAL_FAILURE(fake.message("Sure?", Buttons::yes_no, "T"),
                            "default button: \"first\", expected \"no\"");
}

TEST(FakeBoxesTest, ABoxStandsOpenWhileOtherThingsHappen) {
    FakeBoxes fake;
    bool seen = false;
    fake.expect_message("Save?").during([&] { seen = fake.is_open(); });
    EXPECT_FALSE(fake.is_open());
    fake.message("Save?", Buttons::ok, "T");
    EXPECT_TRUE(seen);
    EXPECT_FALSE(fake.is_open());
}

TEST(FakeBoxesTest, AnAnswerWithoutAButtonFailsTheTest) {
    FakeBoxes fake;
    Answer answer = Answer::yes;
    fake.expect_message("Save?", Answer::yes);
    EXPECT_NONFATAL_FAILURE(answer = fake.message("Save?", Buttons::ok, "T"),
                            "no button \"yes\" among ok");
    EXPECT_EQ(answer, Answer::ok);
    fake.expect_message("Save?", Answer::cancel);
    EXPECT_NONFATAL_FAILURE(answer = fake.message("Save?", Buttons::yes_no, "T"),
                            "no button \"cancel\" among yes_no");
    EXPECT_EQ(answer, Answer::no);
    fake.expect_message("Save?");
    EXPECT_NONFATAL_FAILURE(answer = fake.message("Save?", Buttons::yes_no_cancel, "T"),
                            "no button \"ok\" among yes_no_cancel");
    EXPECT_EQ(answer, Answer::cancel);
}

TEST(FakeBoxesTest, DifferentPromptTitleOrInitialTextOfAnInputFailTheTest) {
    FakeBoxes fake;
    for (int i = 0; i < 3; ++i) fake.expect_input("How many?", "Restock", "1", "12");
    EXPECT_NONFATAL_FAILURE(fake.input("How much?", "Restock", "1"), "prompt: \"How much?\"");
    EXPECT_NONFATAL_FAILURE(fake.input("How many?", "Stock", "1"), "title: \"Stock\"");
    EXPECT_NONFATAL_FAILURE(fake.input("How many?", "Restock", ""), "initial text: \"\"");
}

TEST(FakeBoxesTest, TheOtherKindOfBoxFailsTheTest) {
    FakeBoxes fake;
    fake.expect_message("Name?");
    fake.expect_input("Saved.", "T", "", "x");
    EXPECT_NONFATAL_FAILURE(fake.input("Name?", "T", ""), "expected message \"Name?\"");
    EXPECT_NONFATAL_FAILURE(fake.message("Saved.", Buttons::ok, "T"), "expected input \"Saved.\"");
}

TEST(FakeBoxesTest, EachLeftoverExpectationFailsTheTestOnce) {
    FakeBoxes fake;
    fake.expect_message("Never");
    EXPECT_NONFATAL_FAILURE(fake.check_used_up(), "Never asked: message \"Never\"");
    fake.check_used_up();
}

TEST(FakeBoxesTest, TheDestructorLooksForLeftovers) {
    auto fake = std::make_unique<FakeBoxes>();
    fake->expect_input("Name?", "T", "", "x");
    EXPECT_NONFATAL_FAILURE(fake.reset(), "Never asked: input \"Name?\"");
}

TEST(FakeBoxesTest, BoxesMayOpenWhileOneIsOpen) {
    FakeBoxes fake;
    std::optional<std::string> inner;
    fake.expect_message("Outer", Answer::yes).during([&] { inner = fake.input("Inner", "T", ""); });
    fake.expect_input("Inner", "T", "", "typed");
    EXPECT_EQ(fake.message("Outer", Buttons::yes_no, "T"), Answer::yes);
    EXPECT_EQ(inner, "typed");
}

TEST(FakeBoxesTest, WithoutAnyScriptABoxEndsTheProcess) {
    EXPECT_DEATH(
        {
            FakeBoxes fake;
            fake.message("Out of the blue", Buttons::ok, "T");
        },
        "No script for: message \"Out of the blue\"");
}

TEST(FakeFileDialogsTest, AnswerInTheOrderOfTheScript) {
    FakeFileDialogs fake;
    fake.expect_open("Open", "/a.tvk").filter("F|*.tvk").initial_file("/*.tvk");
    fake.expect_save("Save", "/b.tvk");
    fake.expect_save("Save", cancelled);
    EXPECT_EQ(fake.open_file({"Open", "F|*.tvk", "/*.tvk"}), "/a.tvk");
    EXPECT_EQ(fake.save_file({"Save", "any", "any"}), "/b.tvk");
    try {
        fake.save_file({"Save", "", ""});
        ADD_FAILURE() << "Cancel throws";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, 32755);
    }
    EXPECT_EQ(fake.shown(), (Texts{"Open", "Save", "Save"}));
}

// The dialog's answer, or "cancelled".
std::string asked_to_open(FakeFileDialogs& fake, const FileDialogRequest& request) {
    try {
        return fake.open_file(request);
    } catch (const Fault&) {
        return "cancelled";
    }
}

TEST(FakeFileDialogsTest, EveryDeviationFailsTheTest) {
    FakeFileDialogs fake;
    fake.expect_none();
    std::string path;
    EXPECT_NONFATAL_FAILURE(path = asked_to_open(fake, {"Open", "", ""}),
                            "Unexpected: open dialog \"Open\"");
    EXPECT_EQ(path, "cancelled");
    fake.expect_open("Open", "/a");
    EXPECT_NONFATAL_FAILURE(asked_to_open(fake, {"Opened", "", ""}), "title: \"Opened\"");
    fake.expect_open("Open", "/a").filter("F");
    EXPECT_NONFATAL_FAILURE(asked_to_open(fake, {"Open", "G", ""}), "filter: \"G\"");
    fake.expect_open("Open", "/a").initial_file("/x");
    EXPECT_NONFATAL_FAILURE(asked_to_open(fake, {"Open", "", "/y"}), "initial file: \"/y\"");
    fake.expect_save("Open", "/a");
    EXPECT_NONFATAL_FAILURE(path = asked_to_open(fake, {"Open", "", ""}),
                            "expected save dialog \"Open\"");
    EXPECT_EQ(path, "cancelled");
    fake.expect_open("Open", "/a");
    EXPECT_NONFATAL_FAILURE(fake.check_used_up(), "Never asked: open dialog \"Open\"");
}

TEST(FakeFileDialogsTest, BoxesMayOpenWhileADialogIsOpen) {
    FakeFileDialogs fake;
    bool ran = false;
    fake.expect_save("Save", "/a").during([&] { ran = true; });
    fake.save_file({"Save", "", ""});
    EXPECT_TRUE(ran);
}

TEST(FakeFileDialogsTest, WithoutAnyScriptADialogEndsTheProcess) {
    EXPECT_DEATH(
        {
            FakeFileDialogs fake;
            asked_to_open(fake, {"Open", "", ""});
        },
        "No script for: open dialog \"Open\"");
}

TEST(FakeBoxesTest, ABoxAskedWithoutEndEndsTheProcess) {
    EXPECT_DEATH(
        {
            FakeBoxes fake;
            fake.expect_none();
            while (true) fake.input("Again?", "T", "");
        },
        "Asked without end: input \"Again\\?\"");
}

}  // namespace
}  // namespace tavernook
