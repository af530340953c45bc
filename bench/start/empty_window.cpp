// The yardstick: the least that a program with a main window of the same size can do.
#include <QApplication>
#include <QMainWindow>
#include <QScreen>

#include "first_paint.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    const tavernook::FirstPaint first_paint(window);
    window.resize(QGuiApplication::primaryScreen()->availableSize() * 0.7);
    window.show();
    return QApplication::exec();
}
