// SetupTransfer: what moving a whole setup between meter and memory works on.
#pragma once

#include <functional>

#include "link/link.h"
#include "meter/derived_values.h"
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

}  // namespace counter
