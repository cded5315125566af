// What the image means as a whole: the values that views work out from it each time they are built.
#pragma once

#include <array>

#include "meter/setup_image.h"

namespace counter {

struct DerivedValues {
    int InputOption = 0;    // 0 none, 1 two signal conditioners, 2 V-F converter, 3 quadrature
    int ModeIndex = 0;      // 0..12, made legal; without a board as stored, 0..15
    int FunctionIndex = 0;  // 0..15, made legal
    int ExtendedMeter = 0;  // 1 on an Extended meter
    int DisplayType = 0;    // 0..15; from 6 on a remote display
    int ClockMode = 0;      // 4 or 5, the Display Type, where a stopwatch shows time; else 0
    int DecPt1 = 0;         // decimal point codes as stored, 0..7
    int DecPt2 = 0;
    int TimeEntry = 0;  // set by callers for the length of a conversion

    int ModeWord = 0;      // see mode_tables.h
    int ItemLevel = 0;     // layout 0..3 of the scaling page
    int ItemCount = 0;     // 1..3
    int ItemRow = 0;       // row of ItemRows
    int FilteredItem = 0;  // item that is a source in its filtered form too, 0 none
    int SourceItems = 0;   // items that are sources, 0..3
    // Point code of each source: 0 the filtered item, 1 to 3 the items.
    std::array<int, 4> ItemDecPts{};

    int RelayOption = 0;   // 0 none, 1 two relays, 2 four
    int CommOption = 0;    // 0 none, 1 RS232, 2 RS485 and the others
    int AnalogOption = 0;  // 0 none, 1 to 4 as the list of boards
    int ProtocolCode = 0;  // 0 Custom ASCII, 1 Modbus RTU, 2 Modbus ASCII

    int PresetActive = 0;  // 1: the Time Out box shows the Preset
    int CutoffActive = 0;  // 1: the Pulses box shows the Cutoff Value
};

// Makes the pair of Mode and Function legal for board and class, and takes its ModeWord and ItemRow. The
// image keeps what it has, so an illegal pair stays stored until the user picks another.
void NormaliseModeFunction(DerivedValues& values, int firmwareVersion);

// ItemLevel and ItemCount from ModeWord, Mode and Function.
void ItemLevelUpdate(DerivedValues& values);

// FilteredItem and SourceItems from Mode, Function and Display Type.
void SrcUpdate(DerivedValues& values);

// ItemDecPts from ItemLevel, ItemCount and the two points. The last entry stays where there are fewer than
// three items.
void ItemDecPtMap(DerivedValues& values);

// PresetActive and CutoffActive from ModeWord, Mode, Function and Display Type.
void ActiveBoxesUpdate(DerivedValues& values);

// The source 0..3 that an alarm or analog output with this stored code 0..3 has: one that isn't offered is
// Item 1, and a remote display has Item 3 alone.
int SourceInForce(const DerivedValues& values, int storedCode);

// The point code of the second scaling group: that of the first where both scale inputs of one result.
int Group2DecPt(const DerivedValues& values);

// Everything that the image decides for a meter of this version; its kind is byte 235 of the image.
DerivedValues DeriveFromImage(const SetupImage& image, int firmwareVersion);

// The same for a meter whose kind is known otherwise.
DerivedValues DeriveFromImage(const SetupImage& image, int firmwareVersion, int meterType);

}  // namespace counter
