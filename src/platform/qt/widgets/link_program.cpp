#include "platform/qt/widgets/link_program.h"

#include <QApplication>
#include <QTimer>

#include "platform/qt/core/core_runtime.h"
#include "platform/qt/core/qt_files.h"
#include "platform/qt/core/qt_port_catalog.h"
#include "platform/qt/core/qt_pump.h"
#include "platform/qt/core/qt_serial_port.h"
#include "platform/qt/core/qt_sockets.h"
#include "platform/qt/widgets/link_window.h"
#include "platform/qt/widgets/program_arguments.h"

namespace counter {

int RunLinkProgram(int argc, char** argv) {
    QApplication application(argc, argv);
    SettleLocale();
    const std::string folder = FolderArgument(application, "Lays down the settings of Counter Setup.");
    QtFiles files;
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
