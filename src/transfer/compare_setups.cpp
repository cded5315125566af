#include "transfer/compare_setups.h"

#include "meter/field_code.h"
#include "meter/firmware.h"
#include "transfer/put_frames.h"

namespace counter {

namespace {

bool Covers(int position, int digits, const FieldRow& row) {
    return position <= row.Pos && row.Pos + row.Digits <= position + digits;
}

bool AsciiWritesIt(std::span<const AsciiWrite> writes, const FieldRow& row) {
    for (const AsciiWrite& write : writes) {
        for (const Stretch& stretch : write.Data) {
            if (Covers(stretch.Position, stretch.Digits, row)) return true;
        }
    }
    return false;
}

bool ModbusWritesIt(const FieldRow& row, int firmwareVersion) {
    for (const ModbusWrite& write : ModbusWrites()) {
        if (write.NeedsCutoffRegister && !ModbusTakesCutoffValue(firmwareVersion)) continue;
        for (const RegisterPiece& piece : write.Data) {
            if (Covers(piece.Position, piece.Digits, row)) return true;
        }
    }
    return false;
}

bool IsHardware(Field field) {
    switch (field) {
        case Field::InputOption:
        case Field::CommOption:
        case Field::RelayOption:
        case Field::LockoutJumper:
        case Field::AnalogOption:
            return true;
        default:
            return false;
    }
}

bool ReadAlike(const FieldValue& a, const FieldValue& b) {
    return a.IsNumber == b.IsNumber && a.Text == b.Text;
}

// What reads as nothing is shown as it is.
FieldValue Shown(const SetupImage& image, Field field) {
    return FieldIsHex(image, field) ? ValueOfField(image, field) : FieldValue{FieldDigits(image, field)};
}

// Behind what two values that differ both read as: " (code 3)", " (000000)".
std::string Stored(const SetupImage& image, Field field) {
    return RowOf(field).IsBits() ? " (code " + std::to_string(CodeOf(image, field)) + ")"
                                 : " (" + FieldDigits(image, field) + ")";
}

std::string Surplus(const SetupImage& image) {
    return image.SetupData.size() > kImageDigits ? image.SetupData.substr(kImageDigits) : std::string();
}

// Whether a meter is Basic or Extended is fitted; which curve an Extended one has is set.
bool OtherClass(const SetupImage& a, const SetupImage& b) {
    return ExtendedMeterFromSetup(a) != ExtendedMeterFromSetup(b);
}

bool Compared(const FieldRow& row) {
    return row.Kind != Mark::Overlap;
}

}  // namespace

PutRoad RoadOf(const LinkState& link) {
    if (link.ModbusLink) return PutRoad::Modbus;
    return link.EthernetMode ? PutRoad::AsciiNode : PutRoad::AsciiSerial;
}

Standing StandingOf(Field field, PutRoad road, int firmwareVersion) {
    if (field == Field::FirmwareVersion || field == Field::MeterType) return Standing::ReadOnly;
    if (IsHardware(field)) return Standing::Hardware;
    const FieldRow& row = RowOf(field);
    const bool written = road == PutRoad::Modbus
                             ? ModbusWritesIt(row, firmwareVersion)
                             : AsciiWritesIt(road == PutRoad::AsciiNode ? NodeWrites() : SerialWrites(), row);
    return written ? Standing::Written : Standing::NotWritten;
}

std::string_view StandingName(Standing standing) {
    constexpr std::string_view kNames[] = {"written", "not written", "hardware", "read-only"};
    return kNames[static_cast<std::size_t>(standing)];
}

FieldDifference DifferenceIn(Field field, const SetupImage& a, const SetupImage& b, Standing standing) {
    FieldDifference difference = {RowOf(field).Name, RowOf(field).Pos, Shown(a, field), Shown(b, field),
                                  standing};
    if (ReadAlike(difference.A, difference.B)) {
        difference.A.Text += Stored(a, field);
        difference.B.Text += Stored(b, field);
    }
    return difference;
}

Standing StandingBetween(Field field, const SetupImage& a, const SetupImage& b, PutRoad road,
                         int firmwareVersion) {
    if (field == Field::ClassAndCurve && OtherClass(a, b)) return Standing::Hardware;
    return StandingOf(field, road, firmwareVersion);
}

std::vector<FieldDifference> CompareSetups(const SetupImage& a, const SetupImage& b, PutRoad road,
                                           int firmwareVersion) {
    std::vector<FieldDifference> differences;
    for (const FieldRow& row : FieldTable()) {
        if (!Compared(row) || FieldEqual(a, b, row.Handle)) continue;
        const Standing standing = StandingBetween(row.Handle, a, b, road, firmwareVersion);
        differences.push_back(DifferenceIn(row.Handle, a, b, standing));
    }
    return differences;
}

std::vector<FieldDifference> CompareFiles(const SetupImage& a, const SetupImage& b) {
    std::vector<FieldDifference> differences;
    for (const FieldRow& row : FieldTable()) {
        if (!Compared(row) || FieldEqual(a, b, row.Handle)) continue;
        differences.push_back(DifferenceIn(row.Handle, a, b));
    }
    if (const auto surplus = SurplusDifference(a, b)) differences.push_back(*surplus);
    return differences;
}

std::optional<FieldDifference> SurplusDifference(const SetupImage& a, const SetupImage& b) {
    if (Surplus(a) == Surplus(b)) return std::nullopt;
    return FieldDifference{"Digits behind the setup", kImageDigits + 1, {Surplus(a)}, {Surplus(b)}};
}

std::vector<FieldPair> PairSetups(const SetupImage& a, const SetupImage& b, PutRoad road,
                                  int firmwareVersion) {
    std::vector<FieldPair> pairs;
    for (const FieldRow& row : FieldTable()) {
        if (!Compared(row)) continue;
        const bool differs = !FieldEqual(a, b, row.Handle);
        const Standing standing = StandingBetween(row.Handle, a, b, road, firmwareVersion);
        FieldDifference both = DifferenceIn(row.Handle, a, b, standing);
        if (!differs) both.A = both.B = Shown(a, row.Handle);
        pairs.push_back({both, row.Handle, differs});
    }
    return pairs;
}

}  // namespace counter
