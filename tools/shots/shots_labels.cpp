#include "shots/shots_labels.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QPushButton>

#include "barcodes/barcode_on_show.h"
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

void take_label_screens(Main& window, const TakePicture& take) {
    take_sheet(window, take);
    take_barcode(window, take, "barcode", "4006381333931");
    take_barcode(window, take, "barcode_long", "flour-ABCDEFGHIJKLMNOPQRSTUVWXYZ");
}

}  // namespace tavernook
