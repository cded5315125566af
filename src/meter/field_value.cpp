#include "meter/field_value.h"

#include <string_view>

#include "meter/derived_values.h"
#include "meter/deviation_code.h"
#include "meter/field_lists.h"
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

std::string TextOfValue(const SetupImage& image, const FieldRow& row) {
    DerivedValues values = DeriveFromImage(image, StoredCode(image, Field::FirmwareVersion));
    ValueContext context{values.InputOption, values.ModeIndex, values.TimeEntry};
    int decPt = PointOf(image, values, row.DecPt);
    return std::string(Trimmed(ValueText(image, context, row.ValueCode, row.Pos, decPt)));
}

// Which deviation type an alarm has depends on all three bits of the deviation code.
std::string_view DeviationEntry(const SetupImage& image, Field field) {
    DeviationCode code =
        DeviationFromCode(StoredCode(image, Field::DeviationCode), StoredCode(image, Field::FirmwareVersion));
    int type = field == Field::Deviation1Type ? code.Type1 : code.Type2;
    return lists::kDeviationType[static_cast<std::size_t>(type)];
}

// Only one analog board goes below zero; the others show that range as the one below it.
std::string_view AnalogRangeEntry(const SetupImage& image, int code) {
    DerivedValues values = DeriveFromImage(image, StoredCode(image, Field::FirmwareVersion));
    return EntryOfCode(RowOf(Field::AnalogRange), code == 3 && values.AnalogOption != 3 ? 2 : code);
}

std::string_view EntryShown(const SetupImage& image, Field field, int code) {
    if (field == Field::Deviation1Type || field == Field::Deviation2Type) return DeviationEntry(image, field);
    if (field == Field::AnalogRange) return AnalogRangeEntry(image, code);
    return EntryOfCode(RowOf(field), code);
}

}  // namespace

FieldValue ValueOfField(const SetupImage& image, Field field) {
    const FieldRow& row = RowOf(field);
    if (row.IsValue()) return {TextOfValue(image, row), false, 0};
    if (row.Kind == Mark::Carried && !row.IsBits()) return {FieldDigits(image, field), false, 0};
    int code = StoredCode(image, field);
    std::string_view entry = Trimmed(EntryShown(image, field, code));
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
