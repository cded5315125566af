// counter-link: lays down or changes Settings.SSS, and tries what it says.
#include <QApplication>
#include <QFile>
#include <QProcess>
#include <optional>

#include "desktop/first_start.h"
#include "desktop/kit/qt_dialogs.h"
#include "desktop/pages/link_window.h"
#include "desktop/pages/program_icon.h"
#include "system/core_runtime.h"
#include "system/disk_files.h"
#include "system/display_check.h"
#include "system/interrupt_watch.h"
#include "system/program_folder.h"
#include "system/qt_line.h"
#include "system/qt_port_catalog.h"
#include "system/qt_pump.h"
#include "system/qt_sockets.h"

namespace counter {

namespace {

constexpr int kEndedBySignal = 130;

// One that has started this program goes on by itself when it ends.
bool OpenCounterSetup(const std::string& folder) {
    if (qEnvironmentVariableIsSet(kSetupWaits)) return true;
    return QProcess::startDetached(QCoreApplication::applicationDirPath() + "/counter-setup",
                                   {"--dir", QFile::decodeName(folder.c_str())});
}

constexpr const char* kDescription = "Lays down the settings of Counter Setup.";

int Run(int argc, char** argv) {
    if (HelpIsAsked(argc, argv)) FolderArgument(QCoreApplication(argc, argv), kDescription);
    std::optional<QApplication> application;
    {
        const DisplayCheck check;
        application.emplace(argc, argv);
    }
    SettleLocale();
    CarryIcon("counter-link");
    const std::string folder = FolderArgument(*application, kDescription);
    DiskFiles files;
    QtPump pump;
    QtPortCatalog catalog(folder);
    TriedDevice tried;
    QtLine port(tried);
    QtSockets sockets;
    LinkSetup view({pump, port, tried, catalog, {files, folder}, sockets.Both()});
    LinkWindow window(view);
    view.Load();
    view.Close = [&window] { window.close(); };
    QtDialogs dialogs(pump, folder);
    dialogs.SetParent(&window);
    view.AskToDrop = [&dialogs](const Message& message) {
        return dialogs.Choose(message, "Close without saving", "Back");
    };
    view.OpenSetup = [&folder] { return OpenCounterSetup(folder); };
    window.show();
    // A trial holds a port and, through a node, a connection: it is given up with the program.
    const InterruptWatch ends([&] {
        view.StopSearch();
        port.Close();
        pump.EndProcess(kEndedBySignal);
    });
    return QApplication::exec();
}

}  // namespace

}  // namespace counter

int main(int argc, char** argv) {
    return counter::Run(argc, argv);
}
