// counter-setup: the desktop tool.
#include <QApplication>
#include <QTimer>

#include "platform/qt/core/core_runtime.h"
#include "platform/qt/core/qt_files.h"
#include "platform/qt/core/qt_port_catalog.h"
#include "platform/qt/core/qt_pump.h"
#include "platform/qt/core/qt_serial_port.h"
#include "platform/qt/widgets/desktop.h"
#include "platform/qt/widgets/first_start.h"
#include "platform/qt/widgets/program_arguments.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    counter::SettleLocale();
    QApplication::setApplicationDisplayName("Counter Setup");
    const std::string folder = counter::FolderArgument(application, "Setup tool for a panel counter/timer.");
    counter::QtFiles files;
    counter::QtPump pump;
    pump.InstallInterruptHandler();
    counter::QtPortCatalog catalog(folder);
    counter::QtSerialPort port(catalog);
    counter::QtDialogs dialogs(pump, folder);
    counter::Session session(pump, port, dialogs, {files, folder});

    const counter::Status started = counter::StartWithSettings(session, dialogs);
    counter::Desktop desktop(session);
    dialogs.SetParent(&desktop.Window());
    if (!started.Ok()) session.Home.ShowStatus(started.Text(), counter::ColorRed);
    desktop.GoHome();
    desktop.Window().show();
    pump.OnInterrupt = [&desktop] { desktop.Home().Exit(); };
    // The pump's own wait carries the whole run, so that whatever waits inside it nests.
    QTimer::singleShot(0, &application, [&pump] {
        pump.WaitUntil(
            counter::Pump::kForever, [] { return false; }, "what the user does");
    });
    return QApplication::exec();
}
