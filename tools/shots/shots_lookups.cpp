#include "shots/shots_lookups.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QTabWidget>
#include <QTimer>
#include <QTreeView>

#include "core/project_data.h"
#include "inventory/lots.h"
#include "platform/platform.h"
#include "screens/frame/Main.h"
#include "screens/frame/register_screens.h"
#include "screens/pantry/LotView.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

namespace {

void add_item(i16 slot, const char* name, i16 unit, i16 store, i16 days) {
    ItemRecord& item = items[slot];
    item = {};
    item.in_use = 1;
    item.category = 1;
    item.name = name;
    item.qty_units = unit;
    item.serving_size_units = unit;
    item.store = store;
    item.storage_time = days;
    init_lot_record(slot);
}

void add_lot(i16 item, std::size_t place, f64 quantity, double days_ago) {
    LotRecord& record = lots[item];
    record.lot_quantity[place] = quantity;
    record.creation_date[place] = platform_clock().now() - days_ago;
    record.expiration_date[place] = record.creation_date[place] + items[item].storage_time;
    items[item].quantity = lot_total(item);
}

void add_wam(i16 slot, const char* text) {
    wams[slot] = {i16_true, text};
}

void fill_household() {
    const char* store_names[] = {"Corner shop", "Farm market", "Supermarket", "Dairy", "Bakery"};
    for (i16 slot = 1; slot <= 5; ++slot) {
        stores[slot].name = store_names[slot - 1];
        stores[slot].in_use = 1;
    }
    add_item(1, "Whole milk", 3, 4, 7);
    add_item(2, "Wheat flour", 5, 3, 180);
    add_item(3, "Rye bread", 1, 5, 4);
    add_item(4, "Butter", 5, 4, 30);
    add_item(5, "Apples", 5, 2, 21);
    add_lot(1, 0, 0.5, 9);
    add_lot(1, 1, 1, 5);
    add_lot(1, 2, 2, 1);
    lots[1].current_lot = 1;
    add_lot(1, 6, 12.75, 0);
    lots[1].lot_name[6] = "Freezer";
    add_wam(1, "1 stick of butter = 113 grams");
    add_wam(2, "1 blue mug = 350 mL");
    add_wam(3, "1 handful of rice = 60 grams");
}

template <typename Widget>
Widget& part(QWidget& screen, const char* name) {
    return *screen.findChild<Widget*>(QLatin1String(name));
}

// The window with its popup drawn where it stands.
void take_with(const TakePicture& take, const QString& name, QWidget& window, QWidget& popup) {
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    QLabel both;
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    painter.drawPixmap(window.mapFromGlobal(popup.pos()), popup.grab());
    painter.end();
    both.setPixmap(picture);
    popup.close();
    both.resize(window.size());
    take(name, both);
}

void take_names(Main& window, const TakePicture& take, const char* screen_name) {
    const QString name = QLatin1String(screen_name);
    QWidget& screen = *show_screen(name);
    take(name, window);
    auto& list = part<QTreeView>(screen, "name_list");
    list.setCurrentIndex(list.model()->index(2, 0));
    take(name + QLatin1String("_picked"), window);
    screen.parentWidget()->close();
}

void take_lots(Main& window, const TakePicture& take) {
    show_lot_view(1);
    QWidget& screen = *show_screen(QStringLiteral("LotView"));
    take(QStringLiteral("LotView"), window);
    QMetaObject::invokeMethod(&part<QTreeView>(screen, "lot_list"), "customContextMenuRequested",
                              Q_ARG(QPoint, QPoint(5, 5)));
    take_with(take, QStringLiteral("LotView_popup"), window, part<QMenu>(screen, "LotviewpOP"));
    part<QAction>(screen, "lot_expiration").trigger();
    take_with(take, QStringLiteral("LotView_calendar"), window,
              part<QWidget>(screen, "calendar_box"));
    screen.parentWidget()->showNormal();
    screen.parentWidget()->resize(screen.parentWidget()->minimumSizeHint());
    take(QStringLiteral("LotView_small"), window);
    screen.parentWidget()->showMaximized();
    screen.parentWidget()->close();
}

void take_measures(Main& window, const TakePicture& take) {
    QWidget& screen = *show_screen(QStringLiteral("wam"));
    take(QStringLiteral("wam_fixed"), window);
    auto& tabs = part<QTabWidget>(screen, "tabs");
    tabs.setCurrentIndex(1);
    take(QStringLiteral("wam_own"), window);
    auto& list = part<QAbstractItemView>(screen, "own_list");
    list.setCurrentIndex(list.model()->index(1, 0));
    take(QStringLiteral("wam_picked"), window);
    screen.parentWidget()->close();
}

void take_replacement(const TakePicture& take) {
    QTimer::singleShot(0, [&take] {
        QWidget& screen = *QApplication::activeModalWidget();
        take(QStringLiteral("ReplaceItem"), screen);
        auto& list = part<QTreeView>(screen, "replacement_list");
        list.setCurrentIndex(list.model()->index(1, 0));
        take(QStringLiteral("ReplaceItem_picked"), screen);
        screen.close();
    });
    replace_item_screen().ask_replacement(1, 1);
}

void take_empty(Main& window, const TakePicture& take) {
    show_screen(QStringLiteral("StoresForm"));
    take(QStringLiteral("StoresForm_empty"), window);
    QWidget& measures = *show_screen(QStringLiteral("wam"));
    part<QTabWidget>(measures, "tabs").setCurrentIndex(1);
    take(QStringLiteral("wam_empty"), window);
}

}  // namespace

void take_lookup_screens(Main& window, const TakePicture& take) {
    const QSize before = window.size();
    window.resize(1000, 680);
    reset_project_tables();
    fill_household();
    take_names(window, take, "StoresForm");
    take_names(window, take, "UnitsForm");
    take_lots(window, take);
    take_measures(window, take);
    take_replacement(take);
    reset_project_tables();
    take_empty(window, take);
    window.registry().unload_all();
    window.resize(before);
}

}  // namespace tavernook
