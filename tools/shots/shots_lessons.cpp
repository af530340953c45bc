#include "shots/shots_lessons.h"

#include <QToolButton>

#include "screens/aids/Dialog.h"
#include "screens/aids/tut.h"
#include "screens/frame/Main.h"
#include "screens/parts/screen_switch.h"

namespace tavernook {

namespace {

Dialog& welcome(Main& window) {
    show_screen(QStringLiteral("Dialog"));
    return *window.findChild<Dialog*>();
}

void take_lesson(Main& window, const TakePicture& take, const char* picture) {
    welcome(window).findChild<QToolButton*>(QLatin1String(picture))->click();
    take(QLatin1String(picture), window);
}

}  // namespace

void take_lessons(Main& window, const TakePicture& take) {
    Dialog& dialog = welcome(window);
    dialog.findChild<QToolButton*>(QStringLiteral("lesson_items"))->setFocus(Qt::TabFocusReason);
    take(QStringLiteral("welcome"), dialog);
    dialog.reject();
    for (const char* picture : {"lesson_items", "lesson_planner", "lesson_setup"}) {
        take_lesson(window, take, picture);
    }
    const QSize size = window.size();
    window.resize(1024, 700);
    take(QStringLiteral("lesson_small"), window);
    window.resize(size);
    QMetaObject::invokeMethod(window.findChild<tut*>(), "close_wanted");
}

}  // namespace tavernook
