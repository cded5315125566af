// counter-pictures FOLDER [WIDTH HEIGHT [PERCENT [dark]]]: a picture of every view and every page, drawn on a
// simulated meter, for the documentation and for whoever wants to look; in windows of that size, with a font
// of that size.
#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QStyleFactory>
#include <cstdio>

#include "desktop/desktop.h"
#include "desktop/pages/link_window.h"
#include "support/bench_meter.h"
#include "support/gui_pump.h"
#include "system/core_runtime.h"
#include "tour.h"

namespace {

void Save(const QWidget& shown, const QDir& folder, const std::string& name) {
    counter::test::GuiPump::Settle();
    const QString path = folder.filePath(QString::fromStdString(name + ".png"));
    if (!const_cast<QWidget&>(shown).grab().save(path))
        std::fprintf(stderr, "%s can't be written\n", qPrintable(path));
}

QPalette Dark() {
    QPalette dark(QColor(53, 53, 53));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    return dark;
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    counter::SettleLocale();
    const QStringList words = application.arguments();
    if (argc < 2 || argc == 3 || !QDir().mkpath(argv[1])) {
        std::fprintf(stderr, "usage: counter-pictures FOLDER [WIDTH HEIGHT [PERCENT [dark]]]\n");
        return 1;
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QFont font("DejaVu Sans", 9);
    if (argc > 4) font.setPointSizeF(font.pointSizeF() * words[4].toDouble() / 100);
    QApplication::setFont(font);
    if (argc > 5) QApplication::setPalette(Dark());
    const QSize size = argc > 3 ? QSize(words[2].toInt(), words[3].toInt()) : QSize(1000, 700);
    const QDir folder(argv[1]);
    counter::test::Tour(
        [&folder](const QWidget& shown, const std::string& name) { Save(shown, folder, name); }, size);
}
