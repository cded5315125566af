// Two setups field by field, and what a Put can do about a difference.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "link/link_state.h"
#include "meter/field_table.h"
#include "meter/field_value.h"
#include "meter/setup_image.h"

namespace counter {

enum class PutRoad { AsciiSerial, AsciiNode, Modbus };

// The path that a Put over this link takes.
PutRoad RoadOf(const LinkState& link);

enum class Standing {
    Written,     // a Put on that path writes it
    NotWritten,  // it does not reach that far
    Hardware,    // what is fitted: boards, jumper; a Put does not change it
    ReadOnly,    // version and kind of the meter
};

// "written", "not written", "hardware", "read-only".
std::string_view StandingName(Standing standing);

// What a Put writes is worked out from the frames that it sends.
Standing StandingOf(Field field, PutRoad road, int firmwareVersion);

// The same of a field that two setups have: whether a meter is Basic or Extended is fitted, the curve is set.
Standing StandingBetween(Field field, const SetupImage& a, const SetupImage& b, PutRoad road,
                         int firmwareVersion);

struct FieldDifference {
    std::string_view Name;
    int Position;  // from 1
    FieldValue A,
        B;  // as people read them; the digits where both read alike, or as they are where they are none
    Standing Stands = Standing::Written;
    bool Counts() const { return Stands == Standing::Written; }
};

FieldDifference DifferenceIn(Field field, const SetupImage& a, const SetupImage& b,
                             Standing standing = Standing::Written);

// In the order of the field table; fields that show the digits of others are left out.
std::vector<FieldDifference> CompareSetups(const SetupImage& a, const SetupImage& b, PutRoad road,
                                           int firmwareVersion);

// All fields of that list, those that agree as well.
struct FieldPair : FieldDifference {
    Field Of = Field::Count;
    bool Differs = true;
};
std::vector<FieldPair> PairSetups(const SetupImage& a, const SetupImage& b, PutRoad road,
                                  int firmwareVersion);

// What they have after their 260 digits, where that differs.
std::optional<FieldDifference> SurplusDifference(const SetupImage& a, const SetupImage& b);

// Of two files every difference counts, and so does what one has after its 260 digits.
std::vector<FieldDifference> CompareFiles(const SetupImage& a, const SetupImage& b);

}  // namespace counter
