#include "meter/field_value.h"

#include <algorithm>
#include <string_view>

#include "meter/derived_values.h"
#include "meter/field_code.h"
#include "meter/field_lists.h"
#include "meter/hex_text.h"
#include "meter/mode_tables.h"
#include "meter/text.h"
#include "meter/value_codec.h"

namespace counter {

namespace {

DerivedValues Derived(const SetupImage& image) {
    return DeriveFromImage(image, CodeOf(image, Field::FirmwareVersion));
}

std::string TextOfValue(const SetupImage& image, const FieldRow& row) {
    DerivedValues values = Derived(image);
    // Offsets are shown as a clock's where the display is one; a stopwatch's are stored in seconds.
    const bool clock = (row.Handle == Field::Offset1 || row.Handle == Field::Offset2) &&
                       values.DisplayType == DisplayType::Clock;
    const bool seconds = clock && values.ClockMode == DisplayType::Clock;
    ValueContext context{values.InputOption, values.ModeIndex,
                         seconds ? TimeEntry::Seconds : TimeEntry::None};
    int point = PointCode(image, values, row);
    std::string text(Trimmed(ValueText(image, context, row.ValueCode, row.Pos, point)));
    return clock ? AddClkDP(WithoutBlanksAndPoints(text)) : text;
}

// Which deviation type alarms 1 and 2 have depends on all three bits of the deviation code.
std::string_view DeviationEntry(const SetupImage& image, Field field, int code) {
    int version = CodeOf(image, Field::FirmwareVersion);
    DeviationCode both = DeviationFromCode(CodeOf(image, Field::DeviationCode), version);
    int type = code;
    if (field == Field::Deviation1Type) type = both.Type1;
    if (field == Field::Deviation2Type) type = both.Type2;
    if (type == 1 && !SpanHysteresisOffered(version)) return lists::kPlainHysteresis;
    return lists::kDeviationType[static_cast<std::size_t>(type)];
}

// Only one analog board goes below zero; the others show that range as the one below it.
std::string_view AnalogRangeEntry(const SetupImage& image, int code) {
    constexpr int kFourToTwentyMa = 2;
    constexpr int kTenVoltsBothWays = 3;
    bool hidden = code == kTenVoltsBothWays && Derived(image).AnalogOption != AnalogBoard::Bipolar16Bit;
    return EntryOfCode(RowOf(Field::AnalogRange), hidden ? kFourToTwentyMa : code);
}

std::string_view ControlInputsEntry(const SetupImage& image, int code) {
    bool before78 = !TotalResetInputsOffered(CodeOf(image, Field::FirmwareVersion));
    if (code == 8 && before78) return lists::kControlInputs8Before78;
    if (code == 9 && before78) return lists::kControlInputs9Before78;
    if (code == 15 && IsRemoteDisplay(CodeOf(image, Field::DisplayType)))
        return lists::kControlInputs15Remote;
    return EntryOfCode(RowOf(Field::ControlInputs), code);
}

// The source in force: a code that isn't offered is Item 1, a remote display has Item 3 alone.
std::string SourceEntry(const SetupImage& image, int code) {
    DerivedValues values = Derived(image);
    int source = SourceInForce(values, code);
    if (source == Source::FilteredItem) return "Filtered Item" + std::to_string(values.FilteredItem);
    return "Item " + std::to_string(source);
}

// The Function in force, by its name in the Mode in force.
std::string_view FunctionEntry(const SetupImage& image, int code) {
    DerivedValues values = Derived(image);
    return values.FunctionIndex == code ? FunctionName(values.ModeIndex, code) : std::string_view();
}

std::string EntryShown(const SetupImage& image, Field field, int code) {
    switch (field) {
        case Field::Deviation1Type:
        case Field::Deviation2Type:
        case Field::Deviation3Type:
        case Field::Deviation4Type:
            return std::string(DeviationEntry(image, field, code));
        case Field::AnalogRange:
            return std::string(AnalogRangeEntry(image, code));
        case Field::ControlInputs:
            return std::string(ControlInputsEntry(image, code));
        case Field::Alarm1Source:
        case Field::Alarm2Source:
        case Field::Alarm3Source:
        case Field::Alarm4Source:
        case Field::AnalogSource:
        case Field::AnalogSource2:
            return SourceEntry(image, code);
        case Field::Function:
            return std::string(FunctionEntry(image, code));
        default:
            return std::string(EntryOfCode(RowOf(field), code));
    }
}

bool IsHex(std::string_view digits) {
    return std::all_of(digits.begin(), digits.end(), [](char c) { return HexDigitValue(c) >= 0; });
}

}  // namespace

FieldValue ValueOfField(const SetupImage& image, Field field) {
    const FieldRow& row = RowOf(field);
    if (row.IsValue()) return {TextOfValue(image, row), false, 0};
    if (row.Kind == Mark::Carried && !row.IsBits()) return {FieldDigits(image, field), false, 0};
    int code = CodeOf(image, field);
    std::string shown = EntryShown(image, field, code);
    std::string_view entry = Trimmed(shown);
    if (entry.empty()) return {std::to_string(code), true, code};
    return {std::string(entry), false, code};
}

std::string FieldDigits(const SetupImage& image, Field field) {
    const FieldRow& row = RowOf(field);
    return DigitsGet(image, row.Pos, row.Digits);
}

bool FieldIsHex(const SetupImage& image, Field field) {
    return IsHex(FieldDigits(image, field));
}

bool FieldEqual(const SetupImage& a, const SetupImage& b, Field field) {
    const FieldRow& row = RowOf(field);
    if (SameDigits(a, b, row.Pos, row.Digits)) return true;
    for (int pos = row.Pos; pos < row.Pos + row.Digits; pos += 2) {
        const std::string digitsA = DigitsGet(a, pos, 2);
        const std::string digitsB = DigitsGet(b, pos, 2);
        const bool same = IsHex(digitsA) && IsHex(digitsB)
                              ? BitsGet(a, row.HiBit, row.LoBit, pos) == BitsGet(b, row.HiBit, row.LoBit, pos)
                              : digitsA == digitsB;
        if (!same) return false;
    }
    return true;
}

}  // namespace counter
