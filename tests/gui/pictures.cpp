// counter-pictures FOLDER: a picture of every view and every page, drawn on a simulated meter, for the
// documentation and for whoever wants to look.
#include <QApplication>
#include <QDir>
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

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    counter::SettleLocale();
    if (argc != 2 || !QDir().mkpath(argv[1])) {
        std::fprintf(stderr, "usage: counter-pictures FOLDER\n");
        return 1;
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setFont(QFont("DejaVu Sans", 9));
    const QDir folder(argv[1]);
    counter::test::Tour(
        [&folder](const QWidget& shown, const std::string& name) { Save(shown, folder, name); });
}
