// The meter's setup, read into a text of its own: what is in memory stays as it is.
#pragma once

#include <string>

#include "meter/derived_values.h"
#include "session/session.h"

namespace counter {

// Registers that no range of the protocol names keep what the image held. Ends with LinkState::LinkError;
// what about the replies was odd though their lengths were right is the text, empty for nothing. A transfer
// that is called off ends at its next wait, with what came until then.
struct ReadSetup {
    SetupImage& Image;
    MeterIdentity& Identity;
    DerivedValues& Derived;
};
std::string ReadWholeSetup(Session& session, const ReadSetup& into, const TransferScope& scope);

struct MeterReading {
    SetupImage Came;
    std::string Trouble;  // why it is not the meter's setup, for the status line; empty: it is
};

// Under way it is a transfer like any other, with its progress, and whatever the user does in its waits is
// done. `base`: what the link does not bring is as in it. A meter that is written meanwhile gives no setup:
// blocks of before and after the write don't belong together.
MeterReading ReadMeter(Session& session, const SetupImage& base);

}  // namespace counter
