#include "shots/shots_scanning.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QPushButton>

#include "barcodes/barcode_on_show.h"
#include "barcodes/scan_list.h"
#include "barcodes/scanners.h"
#include "core/project_data.h"
#include "inventory/items.h"
#include "platform/platform.h"
#include "screens/frame/Main.h"
#include "screens/parts/guard.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

namespace {

template <typename Widget>
Widget& part(const char* name) {
    return *load_screen(QStringLiteral("BCBuild"))->findChild<Widget*>(QLatin1String(name));
}

void settle() {
    for (int round = 0; round < 10; ++round) QCoreApplication::processEvents();
}

// Two known codes, one with a lot of its own, and two that nobody bears.
void take_scan_list(Main& window, const TakePicture& take) {
    const i16 scanner_before = scanner_type;
    show_screen(QStringLiteral("CS1504GETUPC"));
    take(QStringLiteral("scan_list_empty"), window);
    populate_item(items[5].barcode.trimmed(), 2, "");
    populate_item(items[6].barcode.trimmed(), 0.5, "Lot B");
    populate_item("4006381333931", 1, "");
    populate_item("TVK7", 1, "");
    scanner_type = batch_scanner;
    end_of_step();
    settle();
    take(QStringLiteral("scan_list"), window);
    scanner_type = scanner_before;
    clear_scan_list();
    load_screen(QStringLiteral("CS1504GETUPC"))->parentWidget()->close();
}

void take_sheet(Main& window, const TakePicture& take) {
    show_screen(QStringLiteral("BCBuild"));
    take(QStringLiteral("labels_first"), window);
    part<QCheckBox>("Check2").click();
    part<QPushButton>("build_button").click();
    settle();
    take(QStringLiteral("labels"), window);
    part<QPushButton>("print_button").click();
    take(QStringLiteral("labels_printing"), window);
    part<QPushButton>("stop_button").click();
    const QSize size = window.size();
    window.resize(900, 600);
    take(QStringLiteral("labels_small"), window);
    window.resize(size);
    load_screen(QStringLiteral("BCBuild"))->parentWidget()->close();
}

void take_barcode(Main& window, const TakePicture& take, const char* name, const char* code) {
    const i16 flour = find_item_by_name("All-Purpose Flour");
    items[flour].barcode = code;
    end_of_step();
    if (!put_barcode_on_show(flour, false)) return;
    QWidget* screen = show_screen(QStringLiteral("BCGEN"));
    settle();
    take(QLatin1String(name), window);
    screen->parentWidget()->close();
}

}  // namespace

void take_scanning_screens(Main& window, const TakePicture& take) {
    take_scan_list(window, take);
    take_sheet(window, take);
    take_barcode(window, take, "barcode", "4006381333931");
    take_barcode(window, take, "barcode_long", "flour-ABCDEFGHIJKLMNOPQRSTUVWXYZ");
}

}  // namespace tavernook
