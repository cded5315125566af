// One case of the fault campaign: a command line of counterctl against a fresh simulated meter on the virtual
// clock, with faults, and what is left behind it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "sim/fault.h"

namespace counter::test {

using Words = std::vector<std::string>;
using Contents = std::map<std::string, std::string>;

// How the tool reaches the meter. Key: the letter by which tables name it.
struct Road {
    char Key;
    const char* Name;
    int Protocol;  // 0 Custom ASCII, 1 Modbus RTU, 2 Modbus ASCII
    bool Node = false;
    bool Echoes = false;  // an adapter gives back whatever is sent, and the tool knows it
};

struct Frame {
    std::string Name;    // its beginning
    int ReplyBytes = 0;  // of the meter, or of the node in its name; 0 where the tool awaits none
};

// What one command left behind.
struct CaseResult {
    int Status = 0;
    std::string Out, Err;
    double Ms = 0;
    std::size_t FramesSent = 0;
    Contents Files;
    std::string Memory;      // of the meter: 256 words, four digits each, from the highest down
    bool Streaming = false;  // the meter still transmits some seconds later
    int NextGet = 0;         // status of a get some seconds later, with the line whole again
};

// A file of a setup that differs from the meter's in every frame of a Put; with another address than 1 in the
// address too.
std::string OtherSetup(const Road& road, int address);
// Names and replies of all frames that a command sends when nothing goes wrong.
std::vector<Frame> FramesOf(const Road& road, const Words& line, const Contents& files);
CaseResult RunCase(const Road& road, const Words& line, const Contents& files,
                   const std::vector<sim::Fault>& faults);

}  // namespace counter::test
