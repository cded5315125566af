// counterctl: the command line companion.
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "cli/cli.h"
#include "cli/cli_files.h"
#include "system/core_runtime.h"
#include "system/disk_files.h"
#include "system/program_folder.h"
#include "system/qt_port_catalog.h"
#include "system/qt_pump.h"
#include "system/qt_serial_port.h"
#include "system/qt_sockets.h"

namespace {

class QtMachine : public counter::Machine {
  public:
    explicit QtMachine(const std::string& programFolder) : catalog_(programFolder), port_(catalog_) {
        pump_.InstallInterruptHandler();
    }
    counter::Pump& Pump() override { return pump_; }
    counter::SerialPort& Port() override { return port_; }
    const counter::PortCatalog& Catalog() override { return catalog_; }
    counter::Sockets Sockets() override { return sockets_.Both(); }

  private:
    counter::CoreRuntime runtime_;  // before all that lives in its event loop
    counter::QtPump pump_;
    counter::QtPortCatalog catalog_;
    counter::QtSerialPort port_;
    counter::QtSockets sockets_;
};

std::string DefaultFolder() {
    const counter::CoreRuntime runtime;
    return counter::DefaultProgramFolder();
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

}  // namespace

int main(int argc, char** argv) {
    HoldStandardStreams();
    counter::DiskFiles files;
    counter::FileOutput written(stdout);
    std::ostream out(&written);
    const counter::CliWorld world{out,
                                  std::cerr,
                                  IsTerminal(STDERR_FILENO),
                                  files,
                                  DefaultFolder,
                                  [](const std::string& folder) -> std::unique_ptr<counter::Machine> {
                                      return std::make_unique<QtMachine>(folder);
                                  },
                                  std::cin,
                                  std::_Exit,
                                  IsTerminal(STDIN_FILENO),
                                  TakesColors(STDOUT_FILENO),
                                  TakesColors(STDERR_FILENO),
                                  [&written] { return written.WhyFailed(); }};
    return counter::RunCli(world, argc, argv);
}
