#include "apps/link_program.h"

#include <QApplication>
#include <QTimer>

#include "apps/program_arguments.h"
#include "desktop/pages/link_window.h"
#include "system/core_runtime.h"
#include "system/disk_files.h"
#include "system/qt_port_catalog.h"
#include "system/qt_pump.h"
#include "system/qt_serial_port.h"
#include "system/qt_sockets.h"

namespace counter {

int RunLinkProgram(int argc, char** argv) {
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

}  // namespace counter
