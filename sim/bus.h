// Bus: meters on one line. All of them hear what the tool sends; whoever is meant answers.
//
// Meters do not hear each other, as on four wires. Where two put bytes on the line at once, what arrives is
// neither's: a bit is one where both send a one.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/meter.h"

namespace sim {

struct BusMeter {
    std::string Name;  // empty for a meter that is alone
    MeterOptions Options;
    std::string ImageFile;  // read at start and at SIGHUP; empty for none
};

class Bus {
  public:
    explicit Bus(const std::vector<BusMeter>& meters);

    // Bytes at the speed `baud`, in bits a second; nothing: whatever speed a meter listens at. Those of
    // another speed are not understood, see Meter for the rest. False when none listens at that speed.
    bool Receive(std::string_view bytes, std::optional<int> baud, double nowMs);
    std::optional<double> NextDueMs() const;
    std::string TakeDue(double nowMs);

    // A fault of one meter takes the line away from all.
    bool LineGone() const;
    void LineBack();
    void FarEndClosed();

    // What has been asked since the last call: the meter's name and its command, or "?" and a command that
    // none took.
    std::vector<std::string> TakeCommands();

    std::size_t Size() const { return meters_.size(); }
    Meter& At(std::size_t index) { return meters_.at(index).Meter; }
    const Meter& At(std::size_t index) const { return meters_.at(index).Meter; }

  private:
    struct Member {
        std::string Name;
        sim::Meter Meter;
    };
    std::deque<Member> meters_;
};

}  // namespace sim
