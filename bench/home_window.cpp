// bench_home_window FOLDER: the desktop tool from its start to the painted home view, then it ends.
#include <QApplication>

#include "desktop/desktop.h"
#include "desktop/first_start.h"
#include "first_paint.h"
#include "system/core_runtime.h"
#include "system/disk_files.h"
#include "system/program_folder.h"
#include "system/qt_port_catalog.h"
#include "system/qt_pump.h"
#include "system/qt_serial_port.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    counter::SettleLocale();
    const std::string folder = argc > 1 ? argv[1] : ".";
    counter::DiskFiles files;
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
