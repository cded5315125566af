// Simulator: the meter on a pseudo terminal, run until a signal ends it.
//
// SIGHUP reads the image file again, SIGUSR1 saves the image, SIGTERM, SIGINT and SIGQUIT save and end,
// and so does SIGHUP from a terminal that hung up or without an image file.
#pragma once

#include <string>

#include "sim/face_window.h"
#include "sim/meter.h"
#include "sim/pty_line.h"
#include "sim/run_loop.h"

namespace sim {

struct SimulatorOptions {
    MeterOptions Meter;
    std::string ImageFile;  // read at start and at SIGHUP; empty for none
    std::string SaveFile;   // empty for none
    std::string Link;       // symbolic link to the device; empty for none
    bool AnyBaud = false;   // understand bytes at any speed
    bool Node = false;      // at an Ethernet node instead of on a pseudo terminal
    std::string NodeIp = "127.0.0.1";
    std::string NodeAddress = "0080A3010203";  // 12 upper-case hexadecimal digits
    bool Face = false;                         // show the face in a window
    bool Verbose = false;                      // tell every command on standard error
};

// Puts the image file, when there is one, into the meter's options. Empty text, or what failed.
std::string LoadImageFile(SimulatorOptions& options);

class Simulator {
  public:
    explicit Simulator(const SimulatorOptions& options) : options_(options), meter_(options.Meter) {}
    ~Simulator();

    // Prints the device, a line, first and whenever it changes; returns the exit status, 0 or 2.
    int Run();

  private:
    std::string Connect();
    bool Step(int signals);
    bool HandleSignal(Asked asked);
    void Exchange();
    void Tell(const std::string& text) const;
    std::string Save() const;

    SimulatorOptions options_;
    Meter meter_;
    PtyLine line_;
    FaceWindow face_;
};

}  // namespace sim
