// MeterSearch: on which line is a meter, and how does it talk?
//
// Ports, rates, protocols and parities are tried one after the other, the most usual first. Each trial reads
// and writes nothing, neither to the meter nor to disk. One that nobody answers takes some 3 seconds.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "settings/settings.h"
#include "shell/link_trial.h"

namespace counter {

// The one device that is being tried, whatever its number.
class TriedDevice : public PortCatalog {
  public:
    std::string Device;
    std::vector<PortDescription> Ports() const override { return {}; }
    std::string DeviceOf(int) const override { return Device; }
};

struct SearchStep {
    std::string Device;
    int SerialProtocol = 0;  // Protocol
    int BaudIndex = 0;
    int ParityIndex = 0;
    bool OldCheck = false;  // Modbus RTU as meters below version 81 have it

    bool operator==(const SearchStep&) const = default;
};

// All trials in their order: without parity at every rate, then the parities, which only Modbus has. A line
// on the network has the speed and form that its server gave it, so there the protocols alone are tried.
std::vector<SearchStep> SearchSteps(const std::vector<std::string>& devices);

// "/dev/ttyUSB0, Modbus RTU at 9600 baud, even parity"
std::string StepInWords(const SearchStep& step);

struct SearchResult {
    bool Found = false;
    SettingsLines Lines;  // with which the meter answered
    std::string Device;
    std::string Words;  // what answered, or what was tried
};

// Called before each trial, from 1 on; false stops the search.
using SearchProgress = std::function<bool(int number, int all, const SearchStep& step)>;

// Addresses and the rest are those of `lines`. A port that can't be opened is left out from then on and told
// at the end. Where something answers that makes no sense, it is tried once more as a line that echoes.
SearchResult FindMeter(const TrialWorld& world, TriedDevice& tried, const SettingsLines& lines,
                       const std::vector<std::string>& devices, const SearchProgress& progress);

}  // namespace counter
