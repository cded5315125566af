// counter-link: lays down or changes Settings.SSS, and tries what it says.
#include <QApplication>

#include "desktop/pages/link_window.h"
#include "system/core_runtime.h"
#include "system/disk_files.h"
#include "system/program_folder.h"
#include "system/qt_port_catalog.h"
#include "system/qt_pump.h"
#include "system/qt_serial_port.h"
#include "system/qt_sockets.h"

namespace counter {

namespace {

int Run(int argc, char** argv) {
    QApplication application(argc, argv);
    SettleLocale();
    const std::string folder = FolderArgument(application, "Lays down the settings of Counter Setup.");
    DiskFiles files;
    QtPump pump;
    QtPortCatalog catalog(folder);
    TriedDevice tried;
    QtSerialPort port(tried);
    QtSockets sockets;
    LinkSetup view({pump, port, tried, catalog, {files, folder}, sockets.Both()});
    LinkWindow window(view);
    view.Load();
    view.Close = [&window] { window.close(); };
    window.show();
    return QApplication::exec();
}

}  // namespace

}  // namespace counter

int main(int argc, char** argv) {
    return counter::Run(argc, argv);
}
