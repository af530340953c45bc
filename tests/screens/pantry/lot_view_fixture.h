// The lots of an item on their screen: an item with two filled lots, and ways into its commands.
#pragma once

#include <QCalendarWidget>
#include <QContextMenuEvent>
#include <QTableView>

#include "inventory/lots.h"
#include "screens/child_screen_fixture.h"
#include "screens/pantry/LotView.h"

namespace tavernook {

class LotViewScreen : public ChildScreenTest {
  protected:
    void SetUp() override {
        ChildScreenTest::SetUp();
        items[3].in_use = 1;
        items[3].name = "Milk";
        items[3].qty_units = 2;
        items[3].storage_time = 10;
        units[2].name = "quart(s)";
        units[2].in_use = 1;
        init_lot_record(3);
        fill(0, 2.5, 45420, 45426);  // 8 and 14 May: past its date
        fill(2, 4, 45426, 45427);    // until today
        items[3].quantity = 6.5;
        lots[3].current_lot = 2;
        look_for_changes();
    }

    static void fill(std::size_t place, f64 quantity, Date created, Date expires) {
        lots[3].lot_quantity[place] = quantity;
        lots[3].creation_date[place] = created;
        lots[3].expiration_date[place] = expires;
    }

    void open_lots(i16 item = 3) {
        show_lot_view(item);
        open("LotView");
    }
    LotView& view() { return static_cast<LotView&>(*screen); }
    QTreeView& list() { return part<QTreeView>("lot_list"); }
    QCalendarWidget& calendar() { return part<QCalendarWidget>("calendar"); }

    std::string key(int row) {
        return list().model()->index(row, 0).data(Qt::UserRole).toString().toStdString();
    }
    int selected() {
        const QModelIndexList rows = list().selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.first().row();
    }

    // Opens the popup menu of the selected row by its key and walks to the entry.
    void choose_in_popup(const char* name) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                                list().viewport()->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(list().viewport(), &event);
        auto& popup = part<QMenu>("LotviewpOP");
        ASSERT_EQ(QApplication::activePopupWidget(), &popup);
        for (qsizetype step = 0; step <= popup.actions().size(); ++step) {
            if (popup.activeAction() == &part<QAction>(name)) break;
            press("Down");
        }
        ASSERT_EQ(popup.activeAction(), &part<QAction>(name));
        press("Return");
    }

    void expect_quantity_box(const char* initial, std::optional<std::string> answer) {
        platform.boxes.expect_input("Type new Quantity", "Modify Quantity", initial,
                                    std::move(answer));
    }

    // Clicks on the day of the month shown.
    void click_day(int day) {
        auto* days_shown = calendar().findChild<QTableView*>("qt_calendar_calendarview");
        for (int row = 1; row <= 6; ++row) {
            for (int cell = 0; cell < 8; ++cell) {
                const QModelIndex index = days_shown->model()->index(row, cell);
                const bool first_week = day < 8 ? row < 3 : row > 1;
                if (index.data().toInt() != day || !first_week) continue;
                QTest::mouseClick(days_shown->viewport(), Qt::LeftButton, {},
                                  days_shown->visualRect(index).center());
                return;
            }
        }
        FAIL() << "no day " << day;
    }
    void press_in_calendar(Qt::Key key) {
        QTest::keyClick(calendar().findChild<QTableView*>("qt_calendar_calendarview"), key);
    }
};

}  // namespace tavernook
