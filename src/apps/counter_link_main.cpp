// counter-link: lays down or changes Settings.SSS, and tries what it says.
#include <QApplication>
#include <QTimer>

#include "platform/qt/core/core_runtime.h"
#include "platform/qt/core/qt_files.h"
#include "platform/qt/core/qt_port_catalog.h"
#include "platform/qt/core/qt_pump.h"
#include "platform/qt/core/qt_serial_port.h"
#include "platform/qt/widgets/link_window.h"
#include "platform/qt/widgets/program_arguments.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    counter::SettleLocale();
    const std::string folder =
        counter::FolderArgument(application, "Lays down the settings of Counter Setup.");
    counter::QtFiles files;
    counter::QtPump pump;
    counter::QtPortCatalog catalog(folder);
    counter::TriedDevice tried;
    counter::QtSerialPort port(tried);
    counter::LinkSetup view({pump, port, tried, catalog, {files, folder}});
    counter::LinkWindow window(view);
    view.Load();
    view.Close = [&window] { window.close(); };
    window.show();
    return QApplication::exec();
}
