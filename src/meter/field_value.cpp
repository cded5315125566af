#include "meter/field_value.h"

#include <string_view>

#include "meter/derived_values.h"
#include "meter/deviation_code.h"
#include "meter/field_lists.h"
#include "meter/firmware_rules.h"
#include "meter/mode_tables.h"
#include "meter/text.h"
#include "meter/value_codec.h"

namespace counter {

namespace {

int StoredCode(const SetupImage& image, Field field) {
    const FieldRow& row = RowOf(field);
    return BitsGet(image, row.HiBit, row.LoBit, row.Pos);
}

int PointOf(const SetupImage& image, const DerivedValues& values, Point point) {
    auto ofSource = [&](Field field) {
        return values.ItemDecPts[static_cast<std::size_t>(SourceInForce(values, StoredCode(image, field)))];
    };
    switch (point) {
        case Point::Code3:
            return 3;
        case Point::Code6:
            return 6;
        case Point::DecPt1:
            return values.DecPt1;
        case Point::Group2:
            return Group2DecPt(values);
        case Point::Alarm1Source:
            return ofSource(Field::Alarm1Source);
        case Point::Alarm2Source:
            return ofSource(Field::Alarm2Source);
        case Point::Alarm3Source:
            return ofSource(Field::Alarm3Source);
        case Point::Alarm4Source:
            return ofSource(Field::Alarm4Source);
        case Point::AnalogSource:
            return ofSource(Field::AnalogSource);
        case Point::AnalogSource2:
            return ofSource(Field::AnalogSource2);
        case Point::None:
        case Point::Code1:
        case Point::Stored:
            return 1;  // a stored point is taken from the field itself
    }
    return 1;
}

DerivedValues Derived(const SetupImage& image) {
    return DeriveFromImage(image, StoredCode(image, Field::FirmwareVersion));
}

std::string TextOfValue(const SetupImage& image, const FieldRow& row) {
    DerivedValues values = Derived(image);
    // A stopwatch that shows a clock keeps its offsets in seconds.
    bool clock = (row.Handle == Field::Offset1 || row.Handle == Field::Offset2) && values.ClockMode == 5;
    ValueContext context{values.InputOption, values.ModeIndex, clock ? 2 : 0};
    int decPt = PointOf(image, values, row.DecPt);
    std::string text(Trimmed(ValueText(image, context, row.ValueCode, row.Pos, decPt)));
    return clock ? AddClkDP(StripBlanks(text)) : text;
}

// Which deviation type alarms 1 and 2 have depends on all three bits of the deviation code.
std::string_view DeviationEntry(const SetupImage& image, Field field, int code) {
    int version = StoredCode(image, Field::FirmwareVersion);
    DeviationCode both = DeviationFromCode(StoredCode(image, Field::DeviationCode), version);
    int type = code;
    if (field == Field::Deviation1Type) type = both.Type1;
    if (field == Field::Deviation2Type) type = both.Type2;
    if (type == 1 && !SpanHysteresisOffered(version)) return lists::kPlainHysteresis;
    return lists::kDeviationType[static_cast<std::size_t>(type)];
}

// Only one analog board goes below zero; the others show that range as the one below it.
std::string_view AnalogRangeEntry(const SetupImage& image, int code) {
    return EntryOfCode(RowOf(Field::AnalogRange), code == 3 && Derived(image).AnalogOption != 3 ? 2 : code);
}

std::string_view ControlInputsEntry(const SetupImage& image, int code) {
    bool before78 = !TotalResetInputsOffered(StoredCode(image, Field::FirmwareVersion));
    if (code == 8 && before78) return lists::kControlInputs8Before78;
    if (code == 9 && before78) return lists::kControlInputs9Before78;
    if (code == 15 && StoredCode(image, Field::DisplayType) >= 6) return lists::kControlInputs15Remote;
    return EntryOfCode(RowOf(Field::ControlInputs), code);
}

// The source in force: a code that isn't offered is Item 1, a remote display has Item 3 alone.
std::string SourceEntry(const SetupImage& image, int code) {
    DerivedValues values = Derived(image);
    int source = SourceInForce(values, code);
    if (source == 0) return "Filtered Item" + std::to_string(values.FilteredItem);
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

}  // namespace

FieldValue ValueOfField(const SetupImage& image, Field field) {
    const FieldRow& row = RowOf(field);
    if (row.IsValue()) return {TextOfValue(image, row), false, 0};
    if (row.Kind == Mark::Carried && !row.IsBits()) return {FieldDigits(image, field), false, 0};
    int code = StoredCode(image, field);
    std::string shown = EntryShown(image, field, code);
    std::string_view entry = Trimmed(shown);
    if (entry.empty()) return {std::to_string(code), true, code};
    return {std::string(entry), false, code};
}

std::string FieldDigits(const SetupImage& image, Field field) {
    const FieldRow& row = RowOf(field);
    return DigitsGet(image, row.Pos, row.Digits);
}

bool FieldEqual(const SetupImage& a, const SetupImage& b, Field field) {
    const FieldRow& row = RowOf(field);
    for (int pos = row.Pos; pos < row.Pos + row.Digits; pos += 2) {
        if (BitsGet(a, row.HiBit, row.LoBit, pos) != BitsGet(b, row.HiBit, row.LoBit, pos)) return false;
    }
    return true;
}

}  // namespace counter
