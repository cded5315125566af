// Runs GUI tests on the real widgets. Without a display of its own choice (QT_QPA_PLATFORM) they are drawn
// off screen; style and font are fixed, so that pictures and sizes are the same on every machine.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>
#include <QStyleFactory>

#include "system/core_runtime.h"

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    counter::SettleLocale();
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setFont(QFont("DejaVu Sans", 9));
    return RUN_ALL_TESTS();
}
