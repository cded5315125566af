// counterctl: the command line companion.
#include <unistd.h>

#include <iostream>

#include "cli/cli.h"
#include "platform/qt/core/core_runtime.h"
#include "platform/qt/core/program_folder.h"
#include "platform/qt/core/qt_files.h"
#include "platform/qt/core/qt_port_catalog.h"
#include "platform/qt/core/qt_pump.h"
#include "platform/qt/core/qt_serial_port.h"
#include "platform/qt/core/qt_sockets.h"

namespace {

class QtMachine : public counter::Machine {
  public:
    explicit QtMachine(const std::string& programFolder) : catalog_(programFolder), port_(catalog_) {
        pump_.InstallInterruptHandler();
    }
    counter::Pump& Waits() override { return pump_; }
    counter::SerialPort& Port() override { return port_; }
    const counter::PortCatalog& Catalog() override { return catalog_; }
    counter::Sockets Net() override { return sockets_.Both(); }

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

}  // namespace

int main(int argc, char** argv) {
    counter::QtFiles files;
    const counter::CliWorld world{std::cout,
                                  std::cerr,
                                  isatty(STDERR_FILENO) == 1,
                                  files,
                                  DefaultFolder,
                                  [](const std::string& folder) -> std::unique_ptr<counter::Machine> {
                                      return std::make_unique<QtMachine>(folder);
                                  }};
    const int status = counter::RunCli(world, argc, argv);
    std::cout.flush();
    return status;
}
