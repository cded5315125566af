// The measure for the desktop tool's start: a program with an empty main window, ended once it is painted.
#include <QApplication>
#include <QMainWindow>

#include "first_paint.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1000, 700);
    const EndsAfterFirstPaint watch(window);
    window.show();
    return QApplication::exec();
}
