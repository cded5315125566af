#include "apps/command_line.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string_view>

#include "cli/cli.h"
#include "shell/meter_search.h"
#include "system/core_runtime.h"
#include "system/disk_files.h"
#include "system/own_processes.h"
#include "system/patient_output.h"
#include "system/program_folder.h"
#include "system/qt_line.h"
#include "system/qt_port_catalog.h"
#include "system/qt_pump.h"
#include "system/qt_sockets.h"
#include "system/user_name.h"

namespace counter {

namespace {

class QtMachine : public Machine {
  public:
    QtMachine(const std::string& programFolder, Patience& patience)
        : patience_(patience), catalog_(programFolder), port_(catalog_) {
        pump_.InstallInterruptHandler();
        patience_.EndWith(pump_.Interrupts());
    }
    ~QtMachine() override { patience_.EndWith(nullptr); }
    counter::Pump& Pump() override { return pump_; }
    SerialPort& Port() override { return port_; }
    SerialPort& PortOn(const std::string& device) override {
        named_.Device = device;
        return portOnNamed_;
    }
    const PortCatalog& Catalog() override { return catalog_; }
    counter::Sockets Sockets() override { return sockets_.Both(); }
    ChildProcesses& Children() override { return children_; }

  private:
    Patience& patience_;
    CoreRuntime runtime_;  // before all that lives in its event loop
    QtPump pump_;
    QtPortCatalog catalog_;
    TriedDevice named_;
    QtLine port_, portOnNamed_{named_};
    QtSockets sockets_;
    OwnProcesses children_;
};

std::string DefaultFolder() {
    const CoreRuntime runtime;
    return DefaultProgramFolder();
}

// A stream that the caller has closed is opened on what can only fail. Otherwise the next file or port to be
// opened would take its number, and text for people would go into a setup or to the meter.
void HoldStandardStreams() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) != -1) continue;
        // The lowest free number is this one.
        if (open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY) != descriptor) std::_Exit(2);
    }
}

bool IsTerminal(int descriptor) {
    return isatty(descriptor) == 1;
}

// Colours are for people at a terminal that knows them, and who do not mind.
bool TakesColors(int descriptor) {
    const char* const refused = std::getenv("NO_COLOR");
    const char* const kind = std::getenv("TERM");
    return IsTerminal(descriptor) && (refused == nullptr || *refused == '\0') && kind != nullptr &&
           std::string_view(kind) != "dumb";
}

// Only where it is taken at once: standard error may be the terminal that was stopped.
void TellPeople(const std::string& line) {
    pollfd err = {STDERR_FILENO, POLLOUT, 0};
    const std::string text = "counterctl: " + line + "\n";
    if (poll(&err, 1, 0) <= 0) return;
    [[maybe_unused]] const ssize_t size = write(STDERR_FILENO, text.data(), text.size());
}

}  // namespace

int RunCommandLine(int argc, char** argv, const RecordingCommands& recording, const SheetMaking& sheets) {
    HoldStandardStreams();
    // Nobody here needs the event loop that windows share with other libraries, and each waking of it costs
    // more.
    setenv("QT_NO_GLIB", "1", 1);
    Patience patience(TellPeople);
    DiskFiles files(patience);
    PatientOutput written(STDOUT_FILENO, patience, "standard output");
    std::ostream out(&written);
    PatientOutput complaints(STDERR_FILENO, patience, "standard error");
    std::ostream err(&complaints);
    err << std::unitbuf;
    const CliWorld world{out,
                         err,
                         IsTerminal(STDERR_FILENO),
                         files,
                         DefaultFolder,
                         [&patience](const std::string& folder) -> std::unique_ptr<Machine> {
                             return std::make_unique<QtMachine>(folder, patience);
                         },
                         std::cin,
                         std::_Exit,
                         IsTerminal(STDIN_FILENO),
                         TakesColors(STDOUT_FILENO),
                         TakesColors(STDERR_FILENO),
                         [&written] { return written.Failure(); },
                         recording,
                         sheets,
                         UserAtHost};
    return RunCli(world, argc, argv);
}

}  // namespace counter
