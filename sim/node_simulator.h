// NodeSimulator: the meter at its node on the network, run until a signal ends it. Signals do what they
// do for the meter on a pseudo terminal, see simulator.h.
#pragma once

#include "sim/node.h"
#include "sim/node_sockets.h"
#include "sim/run_loop.h"
#include "sim/simulator.h"

namespace sim {

class NodeSimulator {
  public:
    explicit NodeSimulator(const SimulatorOptions& options);

    // Prints the node's IP address and its own address, a line, first; returns the exit status, 0 or 2.
    int Run();

  private:
    bool Step(int signals);
    bool HandleSignal(Asked asked);
    void Listen();
    void Exchange();
    void TellAll();
    std::string Save() const;

    SimulatorOptions options_;
    Node node_;
    NodeSockets sockets_;
};

}  // namespace sim
