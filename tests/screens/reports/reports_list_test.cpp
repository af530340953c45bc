// The list of the reports' screen: columns, sort, and what is done with its rows.
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QScrollBar>
#include <set>

#include "core/program_folders.h"
#include "reports/preview.h"
#include "screens/pantry/FoodInventory.h"
#include "screens/parts/guard.h"
#include "screens/reports/reports_screen_fixture.h"

namespace tavernook {
namespace {

class ReportsList : public ReportsScreen {
  protected:
    std::string written(const std::string& name) {
        const auto file = platform.disk.open(in_program_folder(name), OpenMode::read);
        std::string text(static_cast<std::size_t>(file->length()), '\0');
        file->read(0, text.data(), text.size());
        return text;
    }
    Texts first_titles() {
        Texts first = titles();
        first.resize(3);
        return first;
    }
    static void remove_item(i16 item) {
        items[item] = ItemRecord{};
        end_of_step();
    }
};

TEST_F(ReportsList, ShowsEveryItemAtOnceWithTheFirst22Fields) {
    open_reports();
    EXPECT_EQ(names(), (Texts{"Apples", "Milk Chocolate", "Bread", "Whole milk"}));
    EXPECT_EQ(titles(), (Texts{"Item",
                               "Category",
                               "Store",
                               "Store Order (SO)",
                               "Quantity",
                               "Cost/Unit",
                               "QTY Units",
                               "Manufacturer",
                               "Brand",
                               "Description",
                               "Notes",
                               "Location 1",
                               "Location 2",
                               "Location 3",
                               "Storage Time",
                               "Last Restock Date",
                               "Stock Quantity",
                               "Restock Quantity",
                               "Barcode",
                               "Serving Size",
                               "Serving Size Units",
                               "Servings/Qty Unit",
                               "Fat",
                               "Calories"}));
    EXPECT_EQ(column(list(), quantity_column), (Texts{"10", "2", "1", "9"}));
    EXPECT_EQ(column(list(), cost_column), (Texts{"$.25", "$1.50", "$4.00", "$.50"}));
    EXPECT_EQ(list().model()->index(1, 0).data(Qt::UserRole), "t3");
    const auto alignment = [this](int number) {
        return list().model()->index(0, number).data(Qt::TextAlignmentRole).toInt();
    };
    EXPECT_TRUE(alignment(quantity_column) & Qt::AlignRight);
    EXPECT_TRUE(alignment(category_column) & Qt::AlignLeft);
}

TEST_F(ReportsList, ANoteOfSeveralLinesTakesOneRow) {
    item_details[apples].notes = 21;
    pooled_strings[21] = "Wash\r\nwell";
    open_reports();
    EXPECT_EQ(column(list(), 10)[0], "Wash well");
    EXPECT_EQ(list().visualRect(list().model()->index(0, 0)).height(),
              list().visualRect(list().model()->index(1, 0)).height());
}

TEST_F(ReportsList, AFirstClickOnATitleSortsDescendingAndASecondTurnsItRound) {
    open_reports();
    click_header(quantity_column);
    EXPECT_EQ(column(list(), quantity_column), (Texts{"10", "9", "2", "1"}));
    EXPECT_EQ(sort_mark(), (std::pair<int, int>{quantity_column, Qt::DescendingOrder}));
    click_header(quantity_column);
    EXPECT_EQ(column(list(), quantity_column), (Texts{"1", "2", "9", "10"}));
    EXPECT_EQ(sort_mark(), (std::pair<int, int>{quantity_column, Qt::AscendingOrder}));
    click_header(cost_column);  // the order flips whatever the column
    EXPECT_EQ(names(), (Texts{"Bread", "Milk Chocolate", "Whole milk", "Apples"}));
    EXPECT_EQ(sort_mark(), (std::pair<int, int>{cost_column, Qt::DescendingOrder}));
    EXPECT_EQ(column(list(), cost_column), (Texts{"$4.00", "$1.50", "$.50", "$.25"}));
}

TEST_F(ReportsList, ThePointerIsBusyWhileItSorts) {
    open_reports();
    bool was_busy = false;
    QObject::connect(list().model(), &QAbstractItemModel::layoutChanged, screen, [&] {
        const QCursor* shape = QGuiApplication::overrideCursor();
        was_busy = shape != nullptr && shape->shape() == Qt::WaitCursor;
    });
    click_header(0);
    EXPECT_TRUE(was_busy);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ReportsList, SelectedRowsStaySelectedWhenSortedAndFilledAgain) {
    open_reports();
    click_row(list(), 1);
    click_row(list(), 3, Qt::ControlModifier);
    const Texts both{"Milk Chocolate", "Whole milk"};
    click_header(quantity_column);
    EXPECT_EQ(selected_names(), both);
    press("F5");
    EXPECT_EQ(selected_names(), both);
    search(1, "*milk*");
    EXPECT_EQ(selected_names(), both);
    EXPECT_TRUE(command("report_toolbar_5").isEnabled());
    search(1, "bread");
    EXPECT_EQ(selected_names(), Texts{});
    EXPECT_FALSE(command("report_toolbar_5").isEnabled());
}

TEST_F(ReportsList, TheSortStaysWhenTheSearchRunsAgain) {
    open_reports();
    click_header(quantity_column);
    search(1, "*milk*");
    EXPECT_EQ(names(), (Texts{"Whole milk", "Milk Chocolate"}));
    EXPECT_EQ(sort_mark().first, quantity_column);
}

TEST_F(ReportsList, ItsMenuSortsByKeys) {
    open_reports();
    list().setFocus();
    press("Home");
    press("Shift+F10");
    ASSERT_EQ(QApplication::activePopupWidget(), &part<QMenu>("report_menu"));
    std::set<std::string> offered;
    QAction* by_quantity = nullptr;
    for (QAction* entry : part<QMenu>("Reports_Popup").actions()) {
        if (entry->isSeparator()) continue;
        EXPECT_TRUE(offered.insert(plain(entry->text())).second) << plain(entry->text());
        if (entry->text() == "Quantity") by_quantity = entry;
    }
    const Texts shown = titles();
    std::set<std::string> expected(shown.begin(), shown.end());
    expected.erase("Item");
    expected.insert({"Item Name", "Manufacturer"});
    EXPECT_EQ(offered, expected);
    ASSERT_NE(by_quantity, nullptr);
    by_quantity->trigger();
    press("Escape");
    EXPECT_EQ(column(list(), quantity_column), (Texts{"10", "9", "2", "1"}));
    EXPECT_EQ(sort_mark().first, quantity_column);
}

TEST_F(ReportsList, ColumnsCanBeDraggedTheFirstOneToo) {
    open_reports();
    drag_header(1, 2);
    EXPECT_EQ(first_titles(), (Texts{"Item", "Store", "Category"}));
    drag_header(0, 2);
    EXPECT_EQ(first_titles(), (Texts{"Store", "Item", "Category"}));
}

TEST_F(ReportsList, PositionsWidthsAndSortSurviveAResizeARunAndASecondLoad) {
    open_reports();
    drag_header(1, 2);
    click_header(quantity_column);
    header().resizeSection(quantity_column, 133);
    const Texts order = titles();
    window.resize(1000, 700);
    settle();
    press("F5");
    EXPECT_EQ(titles(), order);
    close_reports();
    open_reports();
    EXPECT_EQ(titles(), order);
    EXPECT_EQ(sort_mark(), (std::pair<int, int>{quantity_column, Qt::DescendingOrder}));
    EXPECT_EQ(column(list(), quantity_column), (Texts{"10", "9", "2", "1"}));
    EXPECT_EQ(header().sectionSize(quantity_column), 133);
}

TEST_F(ReportsList, AWidthBelongsToItsFieldNotToItsPlace) {
    open_reports();
    header().resizeSection(quantity_column, 133);
    toggle(4);  // Store Order (SO), in front of it
    press("F5");
    EXPECT_EQ(titles()[quantity_column - 1], "Quantity");
    EXPECT_EQ(header().sectionSize(quantity_column - 1), 133);
    EXPECT_NE(header().sectionSize(quantity_column), 133);
}

// After a second load the header remembers what was hidden in another report.
TEST_F(ReportsList, ASecondLoadShowsTheColumnsOfItsOwnReport) {
    open_reports();
    press_letter("Alt+N");
    press("F5");
    EXPECT_EQ(titles(), Texts{"Item"});
    close_reports();
    open_reports();
    EXPECT_EQ(titles().size(), std::size_t{first_columns});
    for (int number = 0; number < first_columns; ++number) {
        EXPECT_GT(header().sectionSize(number), 20) << number;
    }
}

TEST_F(ReportsList, ADamagedMemoryOfTheSortIsPassedOver) {
    for (const char* damaged : {"x", "99,1,-1", "-4,0,-1", "1,2", "7,7,7,7"}) {
        platform.settings.set("Screens", "Reports.Sort", damaged);
        open_reports();
        EXPECT_EQ(names()[0], "Apples") << damaged;
        EXPECT_EQ(sort_mark().first, -1) << damaged;
        close_reports();
    }
}

TEST_F(ReportsList, ControlCCopiesTheRowsAsTheyStand) {
    open_reports();
    press_letter("Alt+N");
    toggle(5);
    toggle(6);
    press("F5");
    drag_header(1, 2);
    click_row(list(), 0);
    click_row(list(), 1, Qt::ControlModifier);
    press("Ctrl+C");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Apples\t$.25\t10\nMilk Chocolate\t$1.50\t2");
}

TEST_F(ReportsList, ADoubleClickAndEnterViewTheItem) {
    open_reports();
    double_click_row(list(), 1);
    ASSERT_TRUE(is_open("FoodInventory"));
    EXPECT_EQ(food_inventory()->getindex(), milk);
    EXPECT_TRUE(QApplication::focusWidget()->window() == &window);
    EXPECT_FALSE(screen->isAncestorOf(QApplication::focusWidget()));
    open_reports();
    click_row(list(), 2);
    press("Return");
    EXPECT_EQ(food_inventory()->getindex(), bread);
}

TEST_F(ReportsList, AnItemThatIsGoneIsNotOpenedAndItsUsageNotPrinted) {
    open_reports();
    click_row(list(), 1);
    remove_item(milk);
    put_food(milk, "Something else", 1, 1);  // the slot is taken again
    end_of_step();
    EXPECT_EQ(names()[1], "Milk Chocolate");  // as it was found
    press("Return");
    EXPECT_FALSE(is_open("FoodInventory"));
    EXPECT_EQ(status(), "This item is not there any more.");
    command("report_toolbar_5").trigger();
    EXPECT_EQ(status(), "This item is not there any more.");
    EXPECT_FALSE(platform.disk.exists(in_program_folder("reports/item.htm")));
    click_header(0);  // and it is in nobody's way
    EXPECT_EQ(names().size(), 4u);
    press("F5");
    EXPECT_EQ(selected_names(), Texts{});
}

TEST_F(ReportsList, UsageWaitsForASelectedRowAndMakesTheItemsPage) {
    platform.disk.make_folder(reports_folder());
    platform.disk.open(in_program_folder("reports/item.dat"), OpenMode::read_write)
        ->write(0, "of %8%");
    open_reports();
    EXPECT_FALSE(command("report_toolbar_5").isEnabled());
    click_row(list(), 2);
    ASSERT_TRUE(command("report_toolbar_5").isEnabled());
    command("report_toolbar_5").trigger();
    EXPECT_TRUE(written("reports/item.htm").starts_with("of Bread"));
    EXPECT_EQ(html_path, in_program_folder("reports/item.htm"));
    EXPECT_EQ(preview_kind, 5);
}

TEST_F(ReportsList, ThePrintedPageFollowsTheRowsAndNotTheDraggedColumns) {
    open_reports();
    press_letter("Alt+N");
    toggle(5);
    press("F5");
    drag_header(1, 0);
    click_header(1);
    press("Ctrl+P");
    const std::string page = written("reports/rlist.htm");
    const auto place = [&page](const char* text) { return page.find(text); };
    ASSERT_NE(place(">Item"), std::string::npos) << page;
    EXPECT_LT(place(">Item"), place(">Quantity"));
    EXPECT_LT(place("Apples"), place("Whole milk"));
    EXPECT_LT(place("Whole milk"), place("Milk Chocolate"));
    EXPECT_LT(place("Milk Chocolate"), place("Bread"));
    EXPECT_NE(place("Tavernook Report- "), std::string::npos);
    EXPECT_EQ(html_path, in_program_folder("reports/rlist.htm"));
    EXPECT_EQ(preview_kind, 4);
    EXPECT_EQ(report_name, "");
}

TEST_F(ReportsList, AReportWithoutItemsIsAPageThatSaysSo) {
    open_reports();
    search(1, "saffron");
    press("Ctrl+P");
    EXPECT_NE(written("reports/rlist.htm").find("Nothing was found"), std::string::npos);
}

TEST_F(ReportsList, APageThatCannotBeWrittenIsToldAndTheOldOneStays) {
    open_reports();
    press("Ctrl+P");
    const std::string page = written("reports/rlist.htm");
    search(1, "bread");
    platform.files.start_over();
    platform.files.fail_at(1, fault_number::disk_full, Repeat::persistently);
    press("Ctrl+P");
    platform.files.work_normally();
    EXPECT_EQ(written("reports/rlist.htm"), page);
    EXPECT_EQ(status(), "The page could not be made. There is nothing to print.");
}

TEST_F(ReportsList, TheScrollSurvivesARun) {
    fill_all_items();
    open_reports();
    list().verticalScrollBar()->setValue(4321);
    list().horizontalScrollBar()->setValue(100);
    press("F5");
    EXPECT_EQ(list().verticalScrollBar()->value(), 4321);
    EXPECT_EQ(list().horizontalScrollBar()->value(), 100);
}

TEST_F(ReportsList, TenThousandItemsAreFilteredSortedAndScrolled) {
    fill_all_items();
    open_reports();
    EXPECT_EQ(list().model()->rowCount(), item_capacity);
    search(1, "*77*");
    EXPECT_EQ(list().model()->rowCount(), 280);
    search(1, "*");
    click_header(quantity_column);
    EXPECT_EQ(column(list(), quantity_column).front(), "10006");
    list().setFocus();
    press("Ctrl+A");
    press("Ctrl+C");
    EXPECT_EQ(QGuiApplication::clipboard()->text().count('\n'), item_capacity - 1);
}

// While the progress window is up the list may be painted in the middle of it.
TEST_F(ReportsList, AListThatIsBeingFilledHasNoRows) {
    open_reports();
    int rows = -1;
    QObject::connect(list().model(), &QAbstractItemModel::modelAboutToBeReset, screen,
                     [&] { rows = 0; });
    struct Watch : ports::SaveProgress {
        void load(std::string_view caption, std::string_view label) override {
            texts = std::string(caption) + "|" + std::string(label);
        }
        void show() override {}
        void set_label(std::string_view) override {}
        void workbar(int) override { look(); }
        void hide() override {}
        void unload() override {}
        std::function<void()> look;
        std::string texts;
    } watch;
    int most_rows = 0;
    watch.look = [&] {
        most_rows = std::max(most_rows, list().model()->rowCount());
        EXPECT_FALSE(list().model()->index(0, 0).isValid());
    };
    Platform parts = outside();
    parts.save_progress = &watch;
    set_platform(parts);
    press("F5");
    EXPECT_EQ(rows, 0);
    EXPECT_EQ(most_rows, 0);
    EXPECT_EQ(watch.texts, "Building Report|Adding Items to list. Please Wait....");
    EXPECT_EQ(names().size(), 4u);
}

// --- both doors

TEST_F(ReportsList, AnAcceptedItemIsSearchedForAtOnce) {
    open_reports();
    search(1, "*milk*");
    open("FoodInventory");
    food_inventory()->view_item(bread, i16_true);
    part<QLineEdit>("item_name").setText("Milk bread");
    click("item_toolbar_2_1_button");
    ASSERT_EQ(items[bread].name, "Milk bread");
    open_reports();
    EXPECT_EQ(names(), (Texts{"Milk Chocolate", "Milk bread", "Whole milk"}));
}

TEST_F(ReportsList, ItsPortFillsTheListWithTheFilterAsItStands) {
    open_reports();
    toggle(2);
    reports()->populate_list();
    EXPECT_EQ(titles()[1], "Store");
    items[salt].in_use = 0;
    reports()->populate_list();
    EXPECT_EQ(names(), (Texts{"Apples", "Milk Chocolate", "Bread"}));
    put_food(salt, "Whole milk", 1, 1);
    reports()->search_engine();
    EXPECT_EQ(names().size(), 4u);
}

}  // namespace
}  // namespace tavernook
