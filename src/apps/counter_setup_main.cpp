// counter-setup: the desktop tool.
#include <QApplication>
#include <QTimer>
#include <optional>

#include "desktop/desktop.h"
#include "desktop/first_start.h"
#include "desktop/pages/program_icon.h"
#include "system/core_runtime.h"
#include "system/disk_files.h"
#include "system/display_check.h"
#include "system/program_folder.h"
#include "system/qt_line.h"
#include "system/qt_port_catalog.h"
#include "system/qt_pump.h"
#include "system/qt_sockets.h"

namespace counter {

namespace {

constexpr const char* kDescription = "Setup tool for a panel counter/timer.";

int Run(int argc, char** argv) {
    if (HelpIsAsked(argc, argv)) FolderAndFileArguments(QCoreApplication(argc, argv), kDescription);
    std::optional<QApplication> application;
    {
        const DisplayCheck check;
        application.emplace(argc, argv);
    }
    SettleLocale();
    CarryIcon("counter-setup");
    const auto [folder, file] = FolderAndFileArguments(*application, kDescription);
    DiskFiles files;
    QtPump pump;
    pump.InstallInterruptHandler();
    QtPortCatalog catalog(folder);
    QtLine port(catalog);
    QtDialogs dialogs(pump, folder);
    QtSockets sockets;
    Session session(pump, port, dialogs, {files, folder}, sockets.Both());

    const Status started = StartWithSettings(session, dialogs, !file.empty());
    TriedDevice tried;
    QtLine trials(tried);
    Desktop desktop(session, {DataFolders(folder, "help"), DataFolders(folder, "boards")},
                    LinkSwitch::World{trials, tried, catalog});
    dialogs.SetParent(&desktop.Window());
    if (!started.Ok()) session.Home.ShowStatus(started.Text(), ColorRed);
    desktop.ShowFirst();
    if (!file.empty()) {
        desktop.Home().OpenFile(file);
        if (!started.Ok()) session.Home.AddNote(started.Text());
    }
    desktop.Window().show();
    pump.OnInterrupt = [&desktop] { desktop.Interrupt(); };
    // The pump's own wait carries the whole run, so that whatever waits inside it nests.
    QTimer::singleShot(0, &*application, [&pump] {
        pump.WaitUntil(
            Pump::kForever, [] { return false; }, "what the user does");
    });
    QTimer::singleShot(0, &*application, [&desktop] { desktop.LogIn(); });
    return QApplication::exec();
}

}  // namespace

}  // namespace counter

int main(int argc, char** argv) {
    return counter::Run(argc, argv);
}
