// A run of the reading stream from its preparation to its end, for the commands that take readings.
#pragma once

#include <string>

#include "cli/cli.h"
#include "cli/link_session.h"
#include "platform/pump.h"
#include "platform/status.h"

namespace counter {

struct StreamLimits {
    long long Count = 0;         // readings; 0 without a limit
    double Ms = Pump::kForever;  // from the first moment at which a reading can come
};

// --count and --seconds. Empty, or what is legal.
std::string ReadLimits(const CommandCall& call, StreamLimits& limits);

// Where the readings go. What fails ends the run.
class ReadingSink {
  public:
    virtual ~ReadingSink() = default;
    // Whether it can be written, before anything is sent to the meter.
    virtual Status Open(LinkSession& link) = 0;
    // The meter has answered and is about to be asked for its stream.
    virtual Status Begin(LinkSession&) { return {}; }
    // No stream will come.
    virtual void GiveUp() {}
    // A reading without blanks at its ends, never empty.
    virtual Status Take(const std::string& text) = 0;
    // What was taken since the last call came together.
    virtual Status PassDone() = 0;
    virtual Status End() = 0;
};

// Runs the stream until enough readings, enough time or an interrupt; however it ends, the meter is told to
// stop. Returns the exit status with its line written.
int RunStream(const CommandCall& call, const StreamLimits& limits, ReadingSink& sink);

}  // namespace counter
