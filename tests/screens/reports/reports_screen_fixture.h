// The reports' screen in a real main window, driven by mouse and keyboard. It is Wednesday, 15 May
// 2024, 12:00. There are four foods; the reports are saved in a temporary folder.
#pragma once

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>

#include "basics/date.h"
#include "inventory/lots.h"
#include "reports/report_fields.h"
#include "screens/child_screen_fixture.h"
#include "screens/parts/guard.h"

namespace tavernook {

class ReportsScreen : public ChildScreenTest {
  protected:
    using Texts = std::vector<std::string>;

    static constexpr i16 apples = 2;
    static constexpr i16 milk = 3;
    static constexpr i16 bread = 5;
    static constexpr i16 salt = 9;

    // Columns of the first report.
    static constexpr int category_column = 1;
    static constexpr int quantity_column = 4;
    static constexpr int cost_column = 5;
    static constexpr int first_columns = 24;  // 22 fields, of which one has three

    void SetUp() override {
        window.resize(1280, 900);
        ChildScreenTest::SetUp();
        platform.clock.time = date_from_civil(2024, 5, 15) + 0.5;
        catagories[1].name = "Produce";
        catagories[1].in_use = 1;
        put_food(apples, "Apples", 10, 0.25);
        put_food(milk, "Milk Chocolate", 2, 1.5);
        put_food(bread, "Bread", 1, 4);
        put_food(salt, "Whole milk", 9, 0.5);
        end_of_step();
    }

    static void put_food(i16 item, const char* name, f64 quantity, f64 cost) {
        ItemRecord& record = items[item];
        record = ItemRecord{};
        record.in_use = 1;
        record.name = name;
        record.category = 1;
        record.quantity = quantity;
        record.cost = cost;
        record.barcode = "empty";
        init_lot_record(item);
    }
    static void fill_all_items() {
        for (i16 item = 1; item <= item_capacity; ++item) {
            const std::string name = "Food " + std::to_string(item);
            put_food(item, name.c_str(), item * 7919 % 10007, 1);
        }
    }

    void open_reports() { open("Reports"); }
    void close_reports() {
        screen->parentWidget()->close();
        settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QTreeView& list() { return part<QTreeView>("report_list"); }
    QTreeView& rows() { return part<QTreeView>("row_list"); }
    QComboBox& saved() { return part<QComboBox>("saved_reports"); }
    QAction& command(const char* name) { return part<QAction>(name); }
    Texts names() { return column(list()); }
    std::string status() { return panel(1); }
    std::string label(const char* name) { return part<QLabel>(name).text().toStdString(); }
    std::string button_text(const char* name) { return plain(part<QPushButton>(name).text()); }

    // --- the filter

    void choose_filter_row(int row) { click_row(rows(), row - 1); }
    std::string filter_cell(int row, int number) { return column(rows(), number).at(index(row)); }
    std::string search_string(int row) { return filter_cell(row, 1); }
    std::string logic_string(int row) { return filter_cell(row, 2); }
    bool is_checked(int row) {
        const QModelIndex cell = rows().model()->index(row - 1, 0);
        return cell.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    }
    std::vector<int> checked_rows() {
        std::vector<int> found;
        for (int row = 1; row <= report_rows; ++row) {
            if (is_checked(row)) found.push_back(row);
        }
        return found;
    }
    void type_search(int row, const char* pattern) {
        platform.boxes.expect_input("Enter the Search String", "Search String", search_string(row),
                                    pattern);
        choose_filter_row(row);
        press("F2");
    }
    void type_logic(int row, const char* word) {
        platform.boxes.expect_input("Enter the Logic String (AND, OR, XOR)", "Logic String",
                                    logic_string(row), word);
        choose_filter_row(row);
        click("logic");
    }
    void toggle(int row) {
        choose_filter_row(row);
        press("Space");
    }
    void search(int row, const char* pattern) {
        type_search(row, pattern);
        press("F5");
    }

    // --- the list

    QHeaderView& header() { return *list().header(); }
    Texts titles() {
        Texts found;
        for (int place = 0; place < header().count(); ++place) {
            const int section = header().logicalIndex(place);
            if (header().isSectionHidden(section)) continue;
            found.push_back(
                list().model()->headerData(section, Qt::Horizontal).toString().toStdString());
        }
        return found;
    }
    QPoint place_of_header(int number) {
        return {header().sectionViewportPosition(number) + header().sectionSize(number) / 2,
                header().height() / 2};
    }
    void click_header(int number) {
        list().scrollTo(list().model()->index(0, number));
        QTest::mouseClick(header().viewport(), Qt::LeftButton, {}, place_of_header(number));
    }
    // The column goes to the place of another one.
    void drag_header(int number, int to) {
        QWidget* bar = header().viewport();
        const QPoint start = place_of_header(number);
        const QPoint end = place_of_header(to);
        const QPoint beyond = end + QPoint(end.x() > start.x() ? 10 : -10, 0);
        QTest::mousePress(bar, Qt::LeftButton, {}, start);
        QTest::mouseMove(bar, (start + end) / 2);
        QTest::mouseMove(bar, beyond);
        QTest::mouseRelease(bar, Qt::LeftButton, {}, beyond);
    }
    std::pair<int, int> sort_mark() {
        return {header().sortIndicatorSection(), header().sortIndicatorOrder()};
    }
    Texts selected_names() {
        Texts found;
        for (const QModelIndex& row : list().selectionModel()->selectedRows()) {
            found.push_back(row.data().toString().toStdString());
        }
        std::sort(found.begin(), found.end());
        return found;
    }

    // --- saved reports

    std::string reports_folder() const { return platform.system.program + "/reports"; }
    std::string report_path(const std::string& name) const { return reports_folder() + "/" + name; }
    Texts saved_names() {
        Texts found;
        for (int place = 0; place < saved().count(); ++place) {
            found.push_back(saved().itemText(place).trimmed().toStdString());
        }
        return found;
    }
    std::string chosen_name() { return saved().currentText().trimmed().toStdString(); }
    void save_new(const char* name) {
        if (saved().currentIndex() < 0) {
            platform.boxes.expect_input("Configuration Name", "Configuration Save", "", name);
        } else {
            platform.boxes.expect_message("Do you want to overwrite this saved report?", Answer::no)
                .buttons(Buttons::yes_no);
            platform.boxes.expect_input("Report Name", "Report Save", "", name);
        }
        command("report_toolbar_3").trigger();
    }
    // By the keyboard, which tells as the mouse does.
    void choose_saved(const std::string& name) {
        saved().setFocus();
        const int wanted = saved().findText(QString::fromStdString(name), Qt::MatchStartsWith);
        ASSERT_GE(wanted, 0) << name;
        if (saved().currentIndex() == wanted) saved().setCurrentIndex(-1);
        while (saved().currentIndex() < wanted) {
            const int before = saved().currentIndex();
            press("Down");
            if (saved().currentIndex() == before) break;
        }
        while (saved().currentIndex() > wanted) press("Up");
    }

  private:
    static std::size_t index(int row) { return static_cast<std::size_t>(row) - 1; }
};

}  // namespace tavernook
