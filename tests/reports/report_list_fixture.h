// A report list over a few items, and short ways to fill it and to look at it.
#pragma once

#include "reports/report_list.h"
#include "reports/reports_fixture.h"

namespace tavernook {

class ReportLists : public ReportsTest {
  protected:
    using Texts = std::vector<std::string>;

    void check_only(const std::vector<int>& rows) {
        filter.row_checked.fill(0);
        for (const int row : rows) checked(row) = -1;
    }
    void show() {
        search_engine(filter);
        ASSERT_TRUE(populate_list(filter, list));
    }
    void show_only(const std::vector<int>& rows) {
        check_only(rows);
        show();
    }
    Texts column(int number) const {
        Texts cells;
        for (int row = 0; row < list.rows(); ++row) cells.emplace_back(list.cell(row, number));
        return cells;
    }
    Texts titles() const {
        Texts found;
        for (int number = 0; number < list.columns(); ++number) {
            found.emplace_back(list.title(number));
        }
        return found;
    }
    Texts first_row() const {
        Texts cells;
        for (int number = 0; number < list.columns(); ++number) {
            cells.emplace_back(list.cell(0, number));
        }
        return cells;
    }
    std::vector<i16> order() const {
        std::vector<i16> numbers;
        for (int row = 0; row < list.rows(); ++row) numbers.push_back(list.item(row));
        return numbers;
    }
    // Clicks on a title until the order is ascending.
    std::vector<i16> ascending(int number) {
        do {
            EXPECT_TRUE(sort_report(list, number));
        } while (list.sort.order != 0);
        return order();
    }
    // The only cell of the column behind the name.
    std::string cell(int row) {
        show_only({row});
        return std::string(list.cell(0, 1));
    }

    ReportList list;
};

}  // namespace tavernook
