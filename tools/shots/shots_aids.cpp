#include "shots/shots_aids.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>

#include "aids/spoken_interface.h"
#include "core/project_data.h"
#include "inventory/items.h"
#include "screens/frame/Main.h"
#include "screens/parts/guard.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

namespace {

void click(QWidget& screen, const char* button) {
    screen.findChild<QPushButton*>(QLatin1String(button))->click();
}

void take_calculator(Main& window, const TakePicture& take, const char* name) {
    QWidget* screen = show_screen(QStringLiteral("Calculator"));
    take(QLatin1String(name), window);
    screen->parentWidget()->close();
}

void take_calculators(Main& window, const TakePicture& take) {
    QWidget* screen = show_screen(QStringLiteral("Calculator"));
    for (const char* key : {"Number_1", "Operator_divide", "Number_3", "Operator_equals"}) {
        click(*screen, key);
    }
    take_calculator(window, take, "calculator");
    const QFont font = QApplication::font();
    QFont larger = font;
    larger.setPointSizeF(font.pointSizeF() * 2);
    QApplication::setFont(larger);
    take_calculator(window, take, "calculator_large_text");
    QApplication::setFont(font);
}

void take_spoken_interface(Main& window, const TakePicture& take) {
    QWidget* screen = show_screen(QStringLiteral("VII"));
    take(QStringLiteral("spoken_first"), window);
    auto* list = screen->findChild<QListWidget*>(QStringLiteral("List1"));
    const i16 flour = find_item_by_name("All-Purpose Flour");
    items[flour].barcode = "4006381333931";
    for (const std::string& line : answer_to_scan("4006381333931")) {
        list->addItem(QString::fromStdString(line));
    }
    list->setCurrentRow(list->count() - 1);
    take(QStringLiteral("spoken_scan"), window);
    screen->parentWidget()->close();
}

}  // namespace

void take_aid_screens(Main& window, const TakePicture& take) {
    take_calculators(window, take);
    take_spoken_interface(window, take);
    end_of_step();
}

}  // namespace tavernook
