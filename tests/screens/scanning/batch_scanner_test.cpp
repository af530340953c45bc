// The scanner that is read, and the scan list as the item inventory's picker.
#include <QPointer>

#include "inventory/items.h"
#include "screens/scanning/scan_list_fixture.h"

namespace tavernook {
namespace {

constexpr const char* port_not_ready =
    "Port not Ready.  Make sure that you are using the correct Comm Port Address.";
constexpr const char* cannot_connect = "Cannot connect to CS1504";

class BatchReading : public ScanListScreen {
  protected:
    void SetUp() override {
        ScanListScreen::SetUp();
        scanner_type = 1;
        scanner_comm_port = 3;
    }
    void fill_scanner() { platform.scanner.packets = {packet_of("1111"), packet_of("777")}; }
};

TEST_F(BatchReading, ItsCodesComeOnTheListAndStayInTheScanner) {
    fill_scanner();
    open_list();
    click_command(1);
    EXPECT_EQ(row(0), (Texts{"1111", "Apples", "1", "Bag(s)", "Auto"}));
    EXPECT_EQ(row(1), (Texts{"777", "unknown item", "1", "", "Auto"}));
    EXPECT_EQ(status(), "2 codes came from the scanner.");
    EXPECT_EQ(focused(), "scan_list");
    EXPECT_EQ(platform.scanner.log.entries.front(), "init 2");
    click_command(1);
    EXPECT_EQ(codes(), (Texts{"1111", "777", "1111", "777"}));
}

TEST_F(BatchReading, TheBoxForCodesTellsWhereTheyComeFrom) {
    open_list();
    entry().setFocus();
    EXPECT_EQ(entry().placeholderText(), "The codes come by \"Read Scanner\"");
}

TEST_F(BatchReading, APortThatIsNotReadyHasTwoBoxes) {
    platform.scanner.port_result = 1;
    platform.scanner.is_attached = false;
    platform.scanner.why = "There is no Comm 3.";
    open_list();
    platform.boxes.expect_message(port_not_ready);
    platform.boxes.expect_message(cannot_connect);
    click_command(1);
    EXPECT_EQ(codes(), Texts{});
    EXPECT_EQ(focused(), "scan_list");
    EXPECT_EQ(status(), "There is no Comm 3.");
}

TEST_F(BatchReading, AnEmptyScannerCannotBeTold) {
    open_list();
    platform.boxes.expect_message(cannot_connect);
    click_command(1);
    EXPECT_EQ(codes(), Texts{});
}

TEST_F(BatchReading, APacketThatIsNoneEndsItBehindTheRowsBefore) {
    platform.scanner.packets = {packet_of("1111"), std::string(1, '\x04') + "xxxx",
                                packet_of("2222")};
    open_list();
    platform.boxes.expect_message("ERROR 5 ERROR DESCRIPTIONInvalid procedure call");
    click_command(1);
    EXPECT_EQ(codes(), Texts{"1111"});
}

TEST_F(BatchReading, ClearingEmptiesListAndScannerWithoutAQuestion) {
    fill_scanner();
    open_list();
    click_command(1);
    click_command(2);
    EXPECT_EQ(codes(), Texts{});
    EXPECT_TRUE(platform.scanner.packets.empty());
    EXPECT_EQ(focused(), "scan_list");
    EXPECT_EQ(status(), "The list is empty, and the scanner was told to clear its codes.");
    platform.scanner.why = "No scanner answers at ttyUSB0.";
    click_command(2);
    EXPECT_EQ(status(), "The list is empty.  No scanner answers at ttyUSB0.");
}

TEST_F(BatchReading, NothingElseBeginsWhileItIsRead) {
    fill_scanner();
    open_list();
    bool could_stop = false;
    platform.scanner.meanwhile = [&] {
        could_stop = part<QPushButton>("stop_button").isVisible();
        for (const int button : {1, 2, 3, 4, 5, 6}) EXPECT_FALSE(command(button).isEnabled());
        press("Delete");
        EXPECT_EQ(panel(message_panel), "");
    };
    click_command(1);
    EXPECT_TRUE(could_stop);
    EXPECT_FALSE(part<QPushButton>("stop_button").isVisible());
    EXPECT_EQ(codes().size(), 2u);
    for (const int button : {1, 2, 3, 4, 5, 6}) EXPECT_TRUE(command(button).isEnabled());
}

TEST_F(BatchReading, StopAndEscEndIt) {
    fill_scanner();
    open_list();
    for (const bool by_key : {false, true}) {
        platform.scanner.meanwhile = [&] { by_key ? press("Escape") : click("stop_button"); };
        click_command(1);
        EXPECT_TRUE(platform.scanner.cancelled);
        EXPECT_EQ(codes(), Texts{});
        EXPECT_TRUE(is_open("CS1504GETUPC"));
    }
}

TEST_F(BatchReading, ClosingTheScreenEndsItWithoutHarm) {
    fill_scanner();
    for (const bool by_button : {false, true}) {
        open_list();
        platform.scanner.meanwhile = [&] {
            if (by_button) return click("close_button");
            screen->parentWidget()->close();
        };
        click_command(1);
        settle();
        EXPECT_TRUE(platform.scanner.cancelled);
        EXPECT_FALSE(is_open("CS1504GETUPC"));
    }
}

TEST_F(BatchReading, ClosingTheProjectEndsItWithoutAWord) {
    fill_scanner();
    open_list();
    platform.scanner.meanwhile = [&] { action("mnuFile_Close").trigger(); };
    click_command(1);
    settle();
    EXPECT_TRUE(platform.scanner.cancelled);
    EXPECT_EQ(project_open, 0);
    EXPECT_TRUE(scan_rows.empty());
    EXPECT_FALSE(is_open("CS1504GETUPC"));
}

// --- clearing waits for the scanner, too ---------------------------------------------------------

TEST_F(BatchReading, NothingElseBeginsWhileItIsCleared) {
    fill_scanner();
    open_list();
    click_command(1);
    std::string told;
    platform.scanner.meanwhile = [&] {
        for (const int button : {1, 2, 3, 4, 5, 6}) EXPECT_FALSE(command(button).isEnabled());
        EXPECT_TRUE(part<QPushButton>("stop_button").isVisible());
        EXPECT_EQ(codes(), Texts{});
        told = part<QLabel>("work_label").text().toStdString();
    };
    click_command(2);
    EXPECT_EQ(told, "The scanner is being cleared.");
    EXPECT_FALSE(part<QPushButton>("stop_button").isVisible());
    EXPECT_TRUE(command(1).isEnabled());
    EXPECT_EQ(focused(), "scan_list");
}

TEST_F(BatchReading, EscEndsTheClearingAndKeepsTheScreen) {
    fill_scanner();
    open_list();
    platform.scanner.meanwhile = [&] { press("Escape"); };
    click_command(2);
    settle();
    EXPECT_TRUE(platform.scanner.cancelled);
    EXPECT_TRUE(is_open("CS1504GETUPC"));
    EXPECT_EQ(platform.scanner.packets.size(), 2u);
}

TEST_F(BatchReading, ClosingTheScreenEndsTheClearingWithoutHarm) {
    fill_scanner();
    open_list();
    const QPointer<QWidget> list_screen(screen);
    platform.scanner.meanwhile = [&] {
        screen->parentWidget()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(list_screen.isNull());
    };
    click_command(2);
    settle();
    EXPECT_TRUE(platform.scanner.cancelled);
    EXPECT_FALSE(is_open("CS1504GETUPC"));
}

TEST_F(BatchReading, ClosingTheProjectEndsTheClearingToo) {
    fill_scanner();
    open_list();
    platform.scanner.meanwhile = [&] { action("mnuFile_Close").trigger(); };
    click_command(2);
    settle();
    EXPECT_TRUE(platform.scanner.cancelled);
    EXPECT_EQ(project_open, 0);
    EXPECT_FALSE(is_open("CS1504GETUPC"));
}

TEST_F(BatchReading, AScannerThatIsPluggedInLaterIsReadAsIfItHadBeenThere) {
    platform.scanner.port_result = 1;
    platform.scanner.is_attached = false;
    platform.scanner.why = "There is no Comm 3: this computer has no serial ports.";
    open_list();
    platform.boxes.expect_message(port_not_ready);
    platform.boxes.expect_message(cannot_connect);
    click_command(1);
    platform.scanner.port_result = 0;
    platform.scanner.is_attached = true;
    platform.scanner.why.clear();
    fill_scanner();
    click_command(1);
    EXPECT_EQ(codes(), (Texts{"1111", "777"}));
    EXPECT_EQ(status(), "2 codes came from the scanner.");
}

// --- one code for the item inventory -------------------------------------------------------------

class CodePicking : public BatchReading {
  protected:
    void SetUp() override {
        BatchReading::SetUp();
        fill_scanner();
        screen = &open("FoodInventory");
        food_inventory()->view_item(milk, -1);
        settle();
        click("scan");
        settle();
        screen = window.registry().loaded(QStringLiteral("CS1504GETUPC"));
        ASSERT_NE(screen, nullptr);
    }
    std::string code_of_item() {
        return window.registry()
            .loaded(QStringLiteral("FoodInventory"))
            ->findChild<QLabel*>(QStringLiteral("barcode"))
            ->text()
            .toStdString();
    }
};

TEST_F(CodePicking, TheMarkedCodeGoesToTheItem) {
    EXPECT_EQ(plain(part<QPushButton>("close_button").text()), "Accept");
    for (const int button : {3, 4, 5}) EXPECT_FALSE(has_button(button));
    for (const int button : {1, 2, 6}) EXPECT_TRUE(has_button(button));
    click_command(1);
    click_row(list(), 1);
    click("close_button");
    settle();
    EXPECT_EQ(code_of_item(), "777");
    EXPECT_FALSE(is_open("CS1504GETUPC"));
    EXPECT_EQ(focused().empty(), false);
    EXPECT_EQ(std::string(items[milk].barcode.trimmed()), "2222");  // until it is accepted
}

TEST_F(CodePicking, ADoubleClickAccepts) {
    click_command(1);
    double_click_row(list(), 1);
    settle();
    EXPECT_EQ(code_of_item(), "777");
    EXPECT_FALSE(is_open("CS1504GETUPC"));
}

TEST_F(CodePicking, TheListBooksAgainWhenItsCodesHoldTheProject) {
    click_command(1);
    platform.boxes.expect_message(
        "The scan list still holds 2 codes that are not booked, and closing the project empties "
        "the list.  Do you want to go on?",
        Answer::no);
    action("mnuFile_Close").trigger();
    EXPECT_EQ(plain(part<QPushButton>("close_button").text()), "Close");
}

TEST_F(CodePicking, WithoutRowsAcceptJustCloses) {
    click("close_button");
    settle();
    EXPECT_EQ(code_of_item(), "2222");
    EXPECT_FALSE(is_open("CS1504GETUPC"));
}

TEST_F(CodePicking, WithoutAMarkedRowAcceptSaysSo) {
    click_command(1);
    list().clearSelection();
    click("close_button");
    EXPECT_EQ(status(), "Mark the code first.  Esc leaves without one.");
    EXPECT_TRUE(is_open("CS1504GETUPC"));
    list().setFocus();
    press("Escape");
    EXPECT_EQ(code_of_item(), "2222");
    EXPECT_FALSE(is_open("CS1504GETUPC"));
}

TEST_F(CodePicking, ACodeForAnItemThatIsNotOnShowAnyMoreGoesNowhere) {
    click_command(1);
    food_inventory()->view_item(bread, -1);
    click("close_button");
    settle();
    EXPECT_EQ(code_of_item(), "3333");
    EXPECT_EQ(status(),
              "The item that the barcode was for is not on show any more.  Nothing was changed.");
}

TEST_F(CodePicking, AnItemScreenThatWasClosedMeanwhileGetsNothing) {
    click_command(1);
    window.registry().loaded(QStringLiteral("FoodInventory"))->parentWidget()->close();
    settle();
    click("close_button");
    settle();
    ASSERT_NE(food_inventory(), nullptr);
    EXPECT_EQ(food_inventory()->getindex(), 0);
    EXPECT_EQ(status(),
              "The item that the barcode was for is not on show any more.  Nothing was changed.");
}

// The list is beside the item, which goes on being worked on.
TEST_F(CodePicking, AnItemThatIsAcceptedMeanwhileGetsItsCodeAllTheSame) {
    click_command(1);
    QWidget& list_screen = *screen;
    screen = window.registry().loaded(QStringLiteral("FoodInventory"));
    part<QLineEdit>("item_name").setText(QStringLiteral("Oat milk"));
    part<QAction>("item_toolbar_2_1").trigger();
    screen = &list_screen;
    click_row(list(), 1);
    click("close_button");
    settle();
    EXPECT_EQ(code_of_item(), "777");
    EXPECT_EQ(status(), "");
}

TEST_F(CodePicking, ANewItemThatIsAcceptedMeanwhileGetsItsCodeAllTheSame) {
    QWidget& list_screen = *screen;
    platform.boxes.expect_input("Please Enter New Item Name", "New Item", "", "Tea");
    food_inventory()->new_item();
    screen = window.registry().loaded(QStringLiteral("FoodInventory"));
    click("scan");
    part<QAction>("item_toolbar_2_1").trigger();
    screen = &list_screen;
    click_command(1);
    click_row(list(), 1);
    click("close_button");
    settle();
    EXPECT_EQ(code_of_item(), "777");
    EXPECT_EQ(status(), "");
}

TEST_F(CodePicking, AnItemThatIsDeletedMeanwhileGetsNothing) {
    click_command(1);
    clear_item_record(milk);
    items[milk].in_use = 0;
    end_of_step();
    put_food(milk, "Sugar", 1, "888");  // takes the slot
    end_of_step();
    food_inventory()->view_item(milk, -1);
    click("close_button");
    settle();
    EXPECT_EQ(code_of_item(), "888");
    EXPECT_EQ(status(),
              "The item that the barcode was for is not on show any more.  Nothing was changed.");
}

TEST_F(CodePicking, OpenedByItsButtonTheListBooksAgain) {
    open_list();
    EXPECT_EQ(plain(part<QPushButton>("close_button").text()), "Close");
    for (const int button : {3, 4, 5}) EXPECT_TRUE(has_button(button));
}

}  // namespace
}  // namespace tavernook
