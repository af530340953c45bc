// The window with one barcode: what it shows, how it follows its item, and the way to it.
#include <QContextMenuEvent>
#include <QMenu>
#include <filesystem>

#include "barcodes/barcode_on_show.h"
#include "barcodes/code39.h"
#include "core/trap.h"
#include "screens/child_screen_fixture.h"
#include "screens/scanning/barcode_view.h"

namespace tavernook {
namespace {

class BarcodeWindow : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        project_path = platform.path("home.tvk");
        put_item(1, "Milk", "40123455");
        put_item(2, "Tea", "empty");
        meals[7].name = "Soup";
        meals[7].in_use = 1;
        end_of_step();
    }
    static void put_item(i16 slot, const char* name, const char* barcode) {
        items[slot].name = name;
        items[slot].barcode = barcode;
        items[slot].in_use = 1;
    }
    void show(i16 number, bool is_meal = false) {
        ASSERT_TRUE(put_barcode_on_show(number, is_meal));
        open("BCGEN");
        end_of_step();
    }
    std::string text(const char* label) {
        auto& found = part<QLabel>(label);
        return found.isVisible() ? found.text().toStdString() : "";
    }
    BarcodeView& bars() { return part<BarcodeView>("bars"); }
    std::string file(const char* name) const {
        return platform.system.program + "/barcode/" + name;
    }
    std::string said() { return panel(message_panel); }

    void choose_item(i16 item) {
        open("FoodInventory");
        food_inventory()->view_item(item, 1);
        end_of_step();
    }
};

TEST_F(BarcodeWindow, ShowsBarsCodeAndFileOfAnItem) {
    show(1);
    EXPECT_EQ(screen->windowTitle(), "Barcode Picture");
    EXPECT_EQ(text("name_label"), "Milk");
    EXPECT_EQ(text("code_label"), "40123455");
    EXPECT_EQ(text("file_label"), "Saved as " + file("1.bmp"));
    EXPECT_EQ(text("hint_label"), "");
    EXPECT_TRUE(bars().isVisible());
    EXPECT_GE(bars().scale(1), 1);
    EXPECT_EQ(bars().accessibleName(), "Barcode 40123455");
    EXPECT_TRUE(std::filesystem::exists(file("1.bmp")));
}

TEST_F(BarcodeWindow, AndOfARecipe) {
    show(7, true);
    EXPECT_EQ(text("name_label"), "Soup");
    EXPECT_EQ(text("code_label"), "tvk7");
    EXPECT_EQ(text("file_label"), "Saved as " + file("m7.bmp"));
    EXPECT_EQ(text("hint_label"), "");
    meals[7].in_use = 0;
    end_of_step();
    EXPECT_EQ(text("hint_label"), "The recipe has been deleted.");
}

// The modules of the uppermost row of the picture, each `times` pixels of the screen.
std::vector<bool> modules_of(const QImage& drawn, int times) {
    std::vector<bool> modules;
    for (int x = 0; x < drawn.width(); ++x) {
        const bool is_black = drawn.pixel(x, drawn.height() / 2) == qRgb(0, 0, 0);
        EXPECT_TRUE(is_black || drawn.pixel(x, drawn.height() / 2) == qRgb(255, 255, 255));
        modules.push_back(is_black);
    }
    const auto first = std::find(modules.begin(), modules.end(), true);
    std::vector<bool> once;
    for (auto at = first; modules.end() - at >= times; at += times) {
        EXPECT_EQ(std::count(at, at + times, *at), times) << "a bar of parts of pixels";
        once.push_back(*at);
    }
    while (!once.empty() && !once.back()) once.pop_back();
    return once;
}

std::vector<bool> modules_of(const std::string& code) {
    std::vector<bool> modules;
    for (const char character : code39_symbol(code)) {
        for (int module = 15; module >= 0; --module) {
            modules.push_back((code39_mask(character) >> module & 1) != 0);
        }
    }
    while (!modules.back()) modules.pop_back();
    return modules;
}

TEST_F(BarcodeWindow, BarsAreWholePixelsAtEveryScaleOfTheScreen) {
    BarcodeView view;
    view.show_picture(barcode_picture("40123455"));
    for (const QSize size : {QSize(301, 60), QSize(640, 101), QSize(999, 400)}) {
        for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
            SCOPED_TRACE(ratio);
            view.resize(size);
            QImage drawn(size * ratio, QImage::Format_RGB32);
            drawn.setDevicePixelRatio(ratio);
            drawn.fill(Qt::red);
            view.render(&drawn);
            EXPECT_EQ(modules_of(drawn, view.scale(ratio)), modules_of("40123455"));
        }
    }
}

TEST_F(BarcodeWindow, WithoutRoomNothingIsDrawn) {
    BarcodeView view;
    view.resize(400, 100);
    EXPECT_EQ(view.scale(1), 0);
    view.grab();
    view.show_picture(barcode_picture("40123455"));
    EXPECT_EQ(view.scale(1), 1);
    view.resize(200, 100);
    EXPECT_EQ(view.scale(1), 0);
    view.grab();
    EXPECT_GE(view.sizeHint().width(), view.minimumSizeHint().width());
    EXPECT_EQ(view.minimumSizeHint().width(), 300);
}

TEST_F(BarcodeWindow, FollowsANewName) {
    show(1);
    items[1].name = "Whole <b>milk</b>";
    end_of_step();
    EXPECT_EQ(text("name_label"), "Whole <b>milk</b>");
    EXPECT_EQ(part<QLabel>("name_label").textFormat(), Qt::PlainText);
}

TEST_F(BarcodeWindow, AnotherCodeIsDrawnAndSavedAnew) {
    show(1);
    const std::string before = read_whole_file(file("1.bmp"));
    items[1].barcode = "abc";
    end_of_step();
    EXPECT_EQ(text("code_label"), "abc");
    EXPECT_EQ(text("file_label"), "The picture with this code is not saved.");
    settle();
    EXPECT_NE(read_whole_file(file("1.bmp")), before);
    EXPECT_EQ(text("file_label"), "Saved as " + file("1.bmp"));
    EXPECT_EQ(text("hint_label"),
              "Scanners read another code here: such a barcode cannot hold small letters, stars or "
              "signs other than - . $ / + %.");
}

TEST_F(BarcodeWindow, WhatCannotBeSavedAnewIsToldOnce) {
    show(1);
    items[1].barcode = "123";
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::disk_full);
    platform.boxes.expect_message(module_message(Fault(fault_number::disk_full)));
    end_of_step();
    settle();
    EXPECT_EQ(text("code_label"), "123");
    EXPECT_EQ(text("file_label"), "The picture with this code is not saved.");
    end_of_step();
    settle();
}

TEST_F(BarcodeWindow, AnItemThatGoesTakesTheBarsAlong) {
    show(1);
    items[1].barcode = "empty";
    end_of_step();
    settle();
    EXPECT_EQ(text("hint_label"), "The item has no barcode any more.");
    EXPECT_FALSE(bars().isVisible());
    EXPECT_EQ(text("code_label") + text("file_label"), "");
    items[1].in_use = 0;
    end_of_step();
    EXPECT_EQ(text("hint_label"), "The item has been deleted.");
    put_item(1, "Another", "99");
    end_of_step();
    settle();
    EXPECT_EQ(text("hint_label"), "The item has been deleted.");
    EXPECT_FALSE(bars().isVisible());
}

TEST_F(BarcodeWindow, ClosesByItsButtonAndByEscape) {
    show(1);
    EXPECT_EQ(focused(), "close_button");
    press("Return");
    EXPECT_FALSE(is_open("BCGEN"));
    show(1);
    press("Escape");
    EXPECT_FALSE(is_open("BCGEN"));
}

TEST_F(BarcodeWindow, CanBeUsedByKeysAndByEar) {
    show(1);
    expect_accessible_names();
    expect_unique_mnemonics();
    expect_every_button_has_a_mnemonic();
}

// --- from the list of items

TEST_F(BarcodeWindow, ComesUpFromTheMenuOfTheItemList) {
    choose_item(1);
    QStringList offered;
    QTimer::singleShot(0, screen, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* entry : menu->actions())
            offered << QString::fromStdString(plain(entry->text()));
        menu->close();
    });
    auto& tree = part<QTreeView>("item_tree");
    const QPoint at = tree.visualRect(tree.currentIndex()).center();
    QContextMenuEvent wish(QContextMenuEvent::Mouse, at, tree.viewport()->mapToGlobal(at));
    QApplication::sendEvent(tree.viewport(), &wish);
    EXPECT_TRUE(offered.contains("Barcode Picture")) << offered.join(", ").toStdString();
    part<QAction>("barcode_picture").trigger();
    screen = window.registry().loaded("BCGEN");
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(text("code_label"), "40123455");
}

TEST_F(BarcodeWindow, AWindowThatStandsThereShowsTheNextItem) {
    put_item(3, "Rice", "777");
    end_of_step();
    show(1);
    choose_item(3);
    part<QAction>("barcode_picture").trigger();
    screen = window.registry().loaded("BCGEN");
    EXPECT_EQ(text("name_label"), "Rice");
    EXPECT_EQ(text("code_label"), "777");
}

TEST_F(BarcodeWindow, WithoutACodeALineSaysSo) {
    choose_item(2);
    part<QAction>("barcode_picture").trigger();
    EXPECT_FALSE(is_open("BCGEN"));
    EXPECT_EQ(said(), "Tea has no barcode.  Scan or type one into its form first.");
    EXPECT_FALSE(std::filesystem::exists(file("2.bmp")));
}

TEST_F(BarcodeWindow, WithoutAnItemThereIsNothingToShow) {
    open("FoodInventory");
    part<QAction>("barcode_picture").trigger();
    EXPECT_FALSE(is_open("BCGEN"));
    EXPECT_EQ(said(), "");
}

TEST_F(BarcodeWindow, APictureThatCannotBeSavedOpensNoWindow) {
    choose_item(1);
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::disk_full);
    platform.boxes.expect_message(module_message(Fault(fault_number::disk_full)));
    part<QAction>("barcode_picture").trigger();
    EXPECT_FALSE(is_open("BCGEN"));
}

}  // namespace
}  // namespace tavernook
