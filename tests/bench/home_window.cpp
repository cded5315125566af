// bench_home_window FOLDER: the desktop tool from its start to the painted home view, then it ends.
#include <QApplication>

#include "first_paint.h"
#include "platform/qt/core/core_runtime.h"
#include "platform/qt/core/program_folder.h"
#include "platform/qt/core/qt_files.h"
#include "platform/qt/core/qt_port_catalog.h"
#include "platform/qt/core/qt_pump.h"
#include "platform/qt/core/qt_serial_port.h"
#include "platform/qt/widgets/desktop.h"
#include "platform/qt/widgets/first_start.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    counter::SettleLocale();
    const std::string folder = argc > 1 ? argv[1] : ".";
    counter::QtFiles files;
    counter::QtPump pump;
    counter::QtPortCatalog catalog(folder);
    counter::QtSerialPort port(catalog);
    counter::QtDialogs dialogs(pump, folder);
    counter::Session session(pump, port, dialogs, {files, folder});
    counter::StartWithSettings(session, dialogs);
    counter::Desktop desktop(session, {counter::DataFolders(folder, "help"), {}});
    desktop.GoHome();
    const EndsAfterFirstPaint watch(desktop.Window());
    desktop.Window().show();
    return QApplication::exec();
}
