// SetupTransfer: what moving a whole setup between meter and memory works on.
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
};

// An old meter without a panel answers half duplex, whatever it says.
inline void AmendHalfDuplex(SetupTransfer& transfer) {
    constexpr int kHalfDuplex = 1;
    const MeterIdentity& identity = transfer.Identity;
    if (identity.NoPanelModel && AlwaysHalfDuplexWithoutPanel(identity.FirmwareVersion))
        PutCode(transfer.Image, Field::Duplex, kHalfDuplex);
}

}  // namespace counter
