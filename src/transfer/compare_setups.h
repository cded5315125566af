// Two setups field by field, and what a Put can do about a difference.
#pragma once

#include <vector>

#include "link/link_state.h"
#include "meter/field_table.h"
#include "meter/setup_image.h"

namespace counter {

enum class PutRoad { AsciiSerial, AsciiNode, Modbus };

// The road that a Put over this link takes.
PutRoad RoadOf(const LinkState& link);

enum class Standing {
    Written,     // a Put over the road writes it
    NotWritten,  // it does not reach that far
    Hardware,    // what is fitted: boards, jumper; a Put does not change it
    ReadOnly,    // version and kind of the meter
};

// What a Put writes is worked out from the frames that it sends.
Standing StandingOf(Field field, PutRoad road, int firmwareVersion);

struct FieldDifference {
    Field Which;
    Standing Stands;
    bool Counts() const { return Stands == Standing::Written; }
};

// In the order of the field table; fields that show the digits of others are left out.
std::vector<FieldDifference> CompareSetups(const SetupImage& a, const SetupImage& b, PutRoad road,
                                           int firmwareVersion);

}  // namespace counter
