// SetupTransfer: what moving a whole setup between meter and memory works on.
//
// The image is the transfer's own: what a Get has read so far, or the copy that a Put took at its start. What
// the user does in one of its waits can't touch it.
#pragma once

#include <functional>

#include "link/link.h"
#include "meter/derived_values.h"
#include "meter/field_code.h"
#include "meter/firmware.h"
#include "meter/meter_identity.h"
#include "meter/setup_image.h"

namespace counter {

struct SetupTransfer {
    Link& Line;
    SetupImage& Image;
    MeterIdentity& Identity;
    DerivedValues& Derived;
    std::function<void(int percent)> ProgressTo;  // 0..100

    // Asked before each frame; true ends it there. Either may be empty.
    std::function<bool()> Superseded = {};  // a later Put has begun: the meter is to hold that one
    std::function<bool()> EndWanted = {};   // it was called off, or the program is to end
    bool GaveUp = false;                    // one of them did

    std::string Doubt =
        {};  // what about the replies of a Get was odd though their lengths were right; empty: nothing

    bool IsSuperseded() { return GaveUp = Superseded && Superseded(); }
    bool WasCalledOff() const { return GaveUp && !(Superseded && Superseded()); }
    bool GivesUp() { return GaveUp = IsSuperseded() || (EndWanted && EndWanted()); }
};

// An old meter without a panel answers half duplex, whatever it says.
inline void AmendHalfDuplex(SetupTransfer& transfer) {
    constexpr int kHalfDuplex = 1;
    const MeterIdentity& identity = transfer.Identity;
    if (identity.NoPanelModel && AlwaysHalfDuplexWithoutPanel(identity.FirmwareVersion))
        PutCode(transfer.Image, Field::Duplex, kHalfDuplex);
}

}  // namespace counter
