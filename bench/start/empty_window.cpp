// The yardstick: the least that a program with a main window can do.
#include <QApplication>
#include <QMainWindow>

#include "first_paint.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    const tavernook::FirstPaint first_paint(window);
    window.show();
    return QApplication::exec();
}
