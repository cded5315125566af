// Simulator: the meter, or all meters of a bus, on a pseudo terminal, run until a signal ends it.
//
// SIGHUP reads image files again, SIGUSR1 saves images, SIGTERM, SIGINT and SIGQUIT save and end,
// and so does SIGHUP from a terminal that hung up or without an image file.
#pragma once

#include <string>
#include <vector>

#include "sim/bus.h"
#include "sim/face_window.h"
#include "sim/pty_line.h"
#include "sim/run_loop.h"

namespace sim {

struct SimulatorOptions {
    MeterOptions Meter;
    std::string ImageFile;  // read at start and at SIGHUP; empty for none
    std::string SaveFile;   // empty for none; of a bus the folder for a file of each meter, NAME.CT2
    std::string BusFile;    // of meters that share the line, see bus_file.h; empty for one meter
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
    // One meter whose name is empty, or those of a bus.
    Simulator(const SimulatorOptions& options, std::vector<BusMeter> meters)
        : options_(options), meters_(std::move(meters)), bus_(meters_) {}
    ~Simulator();

    // Prints the device, a line, first and whenever it changes; returns the exit status, 0 or 2.
    int Run();

  private:
    std::string Connect();
    bool Step(int signals);
    bool HandleSignal(Asked asked);
    void Exchange();
    void Tell(const std::string& text) const;
    bool HasImages() const;
    std::string Reload();
    std::string Save() const;

    SimulatorOptions options_;
    std::vector<BusMeter> meters_;
    Bus bus_;
    PtyLine line_;
    FaceWindow face_;
};

}  // namespace sim
