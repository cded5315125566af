// What the image means as a whole: the values that views work out from it each time they are built.
#pragma once

#include <array>

#include "meter/field_table.h"
#include "meter/firmware.h"
#include "meter/meter_words.h"
#include "meter/setup_image.h"

namespace counter {

struct DerivedValues {
    int InputOption = 0;    // InputBoard
    int ModeIndex = 0;      // Mode, made legal; without a board as stored, 0..15
    int FunctionIndex = 0;  // Function, made legal
    bool ExtendedMeter = false;
    int DisplayType = 0;  // 0..15
    int ClockMode = 0;    // Seconds or Clock, the Display Type, where a stopwatch shows time; else 0
    int DecPt1 = 0;       // decimal point codes as stored, 0..7
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

    int RelayOption = 0;   // RelayBoard
    int CommOption = 0;    // CommBoard
    int AnalogOption = 0;  // AnalogBoard
    int ProtocolCode = 0;  // Protocol

    bool PresetActive = false;  // the Time Out box shows the Preset
    bool CutoffActive = false;  // the Pulses box shows the Cutoff Value
};

// What the three bits mean that hold how alarms 1 and 2 deviate.
struct DeviationCode {
    int Type1 = 0;           // alarm 1: 0 band, 1 hysteresis (split, where span exists), 2 span hysteresis
    int Type2 = 0;           // alarm 2, the same
    bool NotInMenu = false;  // the meter's menu has no deviations
};

// Of a code 0..7. Where the meter knows span hysteresis, 5 to 7 are span for alarm 1 and 0 to 2 for alarm 2;
// otherwise, and for 0 to 4, the low two bits are the two types.
constexpr DeviationCode DeviationFromCode(int code, int firmwareVersion) {
    bool span = SpanHysteresisOffered(firmwareVersion);
    if (span && code >= 5) return {2, code - 5, false};
    return {code & 1, (code >> 1) & 1, span ? code == 4 : code > 3};
}

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

// Whether the meter waits a Time Out for input: by ModeWord, or on a remote display.
bool TimesOut(const DerivedValues& values);

// Up and down counts, which begin at a Preset.
bool CountsBothWays(int mode, int function);

// ClockMode from Mode and Display Type.
void ClockModeUpdate(DerivedValues& values);

// PresetActive and CutoffActive from ModeWord, Mode, Function and Display Type.
void ActiveBoxesUpdate(DerivedValues& values);

// The source 0..3 that an alarm or analog output with this stored code 0..3 has: one that isn't offered is
// Item 1, and a remote display has Item 3 alone.
int SourceInForce(const DerivedValues& values, int storedCode);

// The point code of the second scaling group: that of the first where both scale inputs of one result.
int Group2DecPt(const DerivedValues& values);

// Whose point the values of an alarm or analog output have.
enum class PointOfSource {
    InForce,   // of the source in force, as the Setup view has it
    AsStored,  // of the source as stored, offered or not, as the meter's menu has it
};

// The point code of a value field by its row of the field table.
int PointCode(const SetupImage& image, const DerivedValues& values, const FieldRow& row,
              PointOfSource source = PointOfSource::InForce);

// A code that is stored but no point has, 0 or 7, as values show it: 1..6.
constexpr int ShownPoint(int code) {
    return code < 1 ? 1 : code > 6 ? 6 : code;
}

// The point of a source 0..3 becomes the one that its values are shown with.
void SettlePointOfSource(DerivedValues& values, int source);

// Everything that the image decides for a meter of this version; its kind is byte 235 of the image.
DerivedValues DeriveFromImage(const SetupImage& image, int firmwareVersion);

// The same for a meter whose kind is known otherwise.
DerivedValues DeriveFromImage(const SetupImage& image, int firmwareVersion, int meterType);

}  // namespace counter
