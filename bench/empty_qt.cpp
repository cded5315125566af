// The measure for counterctl's start: a program that only makes its application object.
#include <QCoreApplication>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
}
