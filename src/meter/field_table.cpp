#include "meter/field_table.h"

#include <array>

#include "meter/field_lists.h"
#include "meter/mode_tables.h"
#include "meter/setup_image.h"

namespace counter {

namespace {

using F = Field;
using P = Point;
using Entries = std::span<const std::string_view>;
using Codes = std::span<const std::uint8_t>;
using namespace lists;

constexpr int DigitsOfCode(int code) {
    return code < 2 ? 4 : 6;
}

constexpr FieldRow Value(Field handle, std::string_view name, int pos, int code, Point point,
                         Mark kind = Mark::None) {
    return {handle, name, pos, DigitsOfCode(code), 7, 0, code, point, {}, {}, kNoCap, kind};
}

// Bits with a list, with stored codes where those aren't the index.
constexpr FieldRow List(Field handle, std::string_view name, int pos, int hi, int lo, Entries entries,
                        Codes codes = {}, int cap = kNoCap) {
    return {handle, name, pos, 2, hi, lo, kNoValueCode, Point::None, entries, codes, cap, Mark::None};
}

// Bits that are a number.
constexpr FieldRow Bits(Field handle, std::string_view name, int pos, int hi, int lo,
                        Mark kind = Mark::None) {
    return {handle, name, pos, 2, hi, lo, kNoValueCode, Point::None, {}, {}, kNoCap, kind};
}

// A byte that digit entry edits.
constexpr FieldRow Byte(Field handle, std::string_view name, int pos) {
    return {handle, name, pos, 2, 7, 0, kByteCode, Point::None, {}, {}, kNoCap, Mark::None};
}

// Whole digits that are the meter's own.
constexpr FieldRow Carried(Field handle, std::string_view name, int pos, int digits) {
    return {handle, name, pos, digits, 7, 0, kNoValueCode, Point::None, {}, {}, kNoCap, Mark::Carried};
}

constexpr Codes kPoints = Codes(kFromOne).first(6);
constexpr Codes kItems = Codes(kFromOne).first(3);
constexpr Entries kOneBitType = Entries(kDeviationType).first(2);
constexpr Mark kOver = Mark::Overlap;
constexpr Mark kKept = Mark::Carried;

}  // namespace

// clang-format off
constexpr std::array<FieldRow, kFields> FieldRows = std::to_array<FieldRow>({
    Value(F::AnalogHi,             "Analog Hi Range Reading",       1, 2, P::AnalogSource),
    Value(F::AnalogLo,             "Analog Lo Range Reading",       7, 2, P::AnalogSource),
    Value(F::Deviation2,           "Deviation 2",                  13, 2, P::Alarm2Source),
    Value(F::Deviation1,           "Deviation 1",                  19, 2, P::Alarm1Source),
    Value(F::Offset2,              "Offset 2",                     25, 2, P::Group2),
    Value(F::Preset,               "Preset",                       25, 2, P::DecPt1, kOver),
    Value(F::Scale2,               "Scale 2",                      31, 3, P::Code6),
    Value(F::Offset1,              "Offset 1",                     37, 2, P::DecPt1),
    Value(F::Scale1,               "Scale 1",                      43, 3, P::Code6),
    Value(F::Setpoint2,            "Setpoint 2",                   49, 2, P::Alarm2Source),
    Value(F::Setpoint1,            "Setpoint 1",                   55, 2, P::Alarm1Source),
    Value(F::HighRead2,            "High Read 2",                  61, 2, P::Group2),
    Value(F::HighIn2,              "High In 2",                    67, 4, P::Stored),
    Value(F::LowRead2,             "Low Read 2",                   73, 2, P::Group2),
    Value(F::LowIn2,               "Low In 2",                     79, 4, P::Stored),
    Value(F::Read0In,              "Read 0 In",                    79, 4, P::Stored, kOver),
    Value(F::HighRead1,            "High Read 1",                  85, 2, P::DecPt1),
    Value(F::HighIn1,              "High In 1",                    91, 4, P::Stored),
    Value(F::LowRead1,             "Low Read 1",                   97, 2, P::DecPt1),
    Value(F::LowIn1,               "Low In 1",                    103, 4, P::Stored),
    Bits (F::Spare109,             "Spare bits of byte 109",      109, 7, 6, kKept),
    List (F::ModbusTimeout,        "Modbus Timeout",              109, 5, 4, kModbusTimeout),
    List (F::SerialProtocol,       "Serial Protocol",             109, 3, 2, kProtocol),
    List (F::Parity,               "Parity",                      109, 1, 0, kParity),
    Byte (F::ModbusAddress,        "Modbus Address",              111),
    Carried(F::Carried113,         "Carried digits 113-136",      113, 24),
    Value(F::Calibration,          "Calibration, Parts per Million", 137, 1, P::Code1),
    Carried(F::Carried141,         "Carried byte 141",            141, 2),
    List (F::AnalogOption,         "Analog Option",               143, 7, 0, kAnalogOption),
    Value(F::CutoffValue,          "Cutoff Value",                145, 0, P::DecPt1),
    Byte (F::CustomRecognition,    "Custom Recognition Character", 149),
    Bits (F::Spare151High,         "Spare bit 7 of byte 151",     151, 7, 7, kKept),
    List (F::DecimalPoint2,        "Decimal Point 2",             151, 6, 4, kDecPt2, kPoints),
    Bits (F::Spare151Low,          "Spare bit 3 of byte 151",     151, 3, 3, kKept),
    List (F::DecimalPoint1,        "Decimal Point 1",             151, 2, 0, kDecPt1, kPoints),
    Carried(F::Carried153,         "Carried byte 153",            153, 2),
    Bits (F::Spare155,             "Spare bits of byte 155",      155, 7, 4, kKept),
    List (F::Resolution,           "Resolution",                  155, 3, 0, kMultiplier, {}, 10),
    Bits (F::Spare157,             "Spare bits of byte 157",      157, 7, 4, kKept),
    List (F::PeakKeyAction,        "Peak Key Action",             157, 3, 2, kPeakKeyAction),
    List (F::DisplayItem,          "Display Item No.",            157, 1, 0, kDisplayItem, kItems),
    Bits (F::Spare159,             "Spare bits of byte 159",      159, 7, 2, kKept),
    List (F::TriggerSlopeA,        "Trigger Slope A",             159, 1, 1, kSlope),
    List (F::TriggerSlopeB,        "Trigger Slope B",             159, 0, 0, kSlope),
    Value(F::PulsesPerRev,         "Pulses per Rev",              161, 0, P::Code1),
    List (F::Multiplier2,          "Multiplier 2",                165, 7, 4, kMultiplier),
    List (F::Multiplier1,          "Multiplier 1",                165, 3, 0, kMultiplier),
    List (F::AnalogRange2,         "Analog Range 2",              167, 7, 6, kAnalogRange2, {}, 2),
    List (F::AnalogSource2,        "Analog Source 2",             167, 5, 4, kSource),
    List (F::AnalogRange,          "Analog Range",                167, 3, 2, kAnalogRange),
    List (F::AnalogSource,         "Analog Source",               167, 1, 0, kSource),
    List (F::Alarm1Source,         "Alarm 1 Source",              169, 7, 6, kSource),
    List (F::Alarm2Source,         "Alarm 2 Source",              169, 5, 4, kSource),
    List (F::Alarm3Source,         "Alarm 3 Source",              169, 3, 2, kSource),
    List (F::Alarm4Source,         "Alarm 4 Source",              169, 1, 0, kSource),
    Bits (F::Spare171,             "Spare bits of byte 171",      171, 7, 6, kKept),
    List (F::BatchCount,           "Batch Count",                 171, 5, 3, kBatchCount),
    List (F::BatchTotalReset,      "Batch Total Reset",           171, 2, 2, kBatchReset),
    List (F::BatchItem2,           "Batch Item 2",                171, 1, 1, kBatchItem2),
    List (F::BatchStart,           "Batch Start",                 171, 0, 0, kBatchStart),
    Value(F::TimeOut,              "Time Out",                    173, 0, P::Code3),
    Value(F::GateTime,             "Gate Time",                   177, 0, P::Code3),
    Bits (F::Lockout12,            "View Peak",                   181, 7, 7),
    Bits (F::Lockout13,            "View Setpoints",              181, 6, 6),
    Bits (F::Lockout14,            " Front Pnl Func Resets",      181, 5, 5),
    Bits (F::Lockout15,            "Front Panel Ctr Reset",       181, 4, 4),
    Bits (F::Lockout8,             "Analog Output",               181, 3, 3),
    Bits (F::Lockout9,             "SerialCommunication",         181, 2, 2),
    Bits (F::Lockout10,            "Calibration",                 181, 1, 1),
    Bits (F::Lockout11,            "Change Display Item#",        181, 0, 0),
    Bits (F::Lockout4,             "Slope, DecPt's",              183, 7, 7),
    Bits (F::Lockout5,             "Scale,Offst,Coord,Resln",     183, 6, 6),
    Bits (F::Lockout6,             "Alrm Source,Setup,Devn",      183, 5, 5),
    Bits (F::Lockout7,             "Alarm Setpt Progra'ing",      183, 4, 4),
    Bits (F::Lockout0,             "Input Type",                  183, 3, 3),
    Bits (F::Lockout1,             "Setup, Config",               183, 2, 2),
    Bits (F::Lockout2,             "GateTime,Timeout,Batch",      183, 1, 1),
    Bits (F::Lockout3,             "Filter",                      183, 0, 0),
    List (F::DisplayType,          "Display Type",                185, 7, 4, kDisplayType),
    List (F::ClassAndCurve,        "Meter Class and Custom Curve", 185, 3, 2, kClassAndCurve),
    Bits (F::SquareRoot,           "Square Root",                 185, 1, 1),
    List (F::CutoffEnable,         "Cutoff Enable",               185, 0, 0, kCutoffEnable),
    List (F::Duplex,               "Duplex",                      187, 7, 7, kDuplex),
    List (F::TransmissionChars,    "Transmission Chars",          187, 6, 6, kTransmission),
    List (F::RecognitionChar,      "Recognition Char",            187, 5, 5, kRecognition),
    List (F::RtsType,              "RTS Type",                    187, 4, 4, kRtsType),
    List (F::Cr,                   "CR",                          187, 3, 3, kCr),
    List (F::OutputItems,          "Output Items",                187, 2, 0, kOutputItems),
    Bits (F::IncludeLf,            "Include LF",                  189, 7, 7),
    Bits (F::IncludeAlarmData,     "Incl Alarm Data",             189, 6, 6),
    List (F::OutputMode,           "Output Mode",                 189, 5, 5, kOutputMode),
    List (F::Address,              "Address",                     189, 4, 0, kAddress, kFromOne),
    List (F::OutputFilter,         "Output Filter",               191, 7, 7, kOutputFilter),
    List (F::BaudRate,             "Baud Rate",                   191, 6, 4, kBaudRate),
    List (F::OutputRate,           "Output Rate",                 191, 3, 0, kOutputRate),
    List (F::LockoutJumper,        "Hardware Lockout jumper",     193, 7, 7, kLockoutJumper),
    List (F::RelayOption,          "Relay Option",                193, 6, 5, kRelayOption, kRelayCodes, 2),
    List (F::CommOption,           "Comm Option",                 193, 4, 3, kCommOption, {}, 2),
    List (F::InputOption,          "Input Option",                193, 2, 0, kInputOption, kInputCodes),
    Bits (F::Spare195,             "Spare bit 7 of byte 195",     195, 7, 7, kKept),
    List (F::FilterType,           "Filter Type",                 195, 6, 6, kFilterType),
    List (F::PeakValleyFilter,     "Peak/Valley Filter",          195, 5, 5, kFiltered),
    List (F::DisplayFilter,        "Display Filter",              195, 4, 4, kFiltered),
    List (F::FilterThreshold,      "Filter Threshold",            195, 3, 3, kThreshold),
    List (F::FilterTimeConstant,   "Filter Time Constant",        195, 2, 0, kTimeConstant),
    List (F::PowerOnTotal,         "Power-On Total",              197, 7, 7, kPowerOnTotal),
    List (F::LeadingZeros,         "Leading Zeros",               197, 6, 6, kLeadingZeros),
    List (F::Group1Form,           "Group 1 entry form",          197, 5, 5, kEntryForm),
    List (F::Group2Form,           "Group 2 entry form",          197, 4, 4, kEntryForm),
    List (F::ControlInputs,        "Control Inputs",              197, 3, 0, kControlInputs),
    List (F::Mode,                 "Mode",                        199, 7, 4, ModeNames),
    Bits (F::Function,             "Function",                    199, 3, 0),
    Bits (F::Spare201,             "Spare bits of byte 201",      201, 7, 6, kKept),
    Bits (F::DeviationCodeHighBit, "Deviation code, high bit",    201, 5, 5),
    List (F::Deviation2Type,       "Deviation 2 Type",            201, 4, 4, kOneBitType),
    List (F::Deviation1Type,       "Deviation 1 Type",            201, 3, 3, kOneBitType),
    Bits (F::DeviationCode,        "Deviation Types and No Deviation in Menu", 201, 5, 3, kOver),
    List (F::NumRdgsAlarms12,      "Alarms 1,2 No. Rdgs to Alarm", 201, 2, 0, kNumRdgs),
    List (F::Relay2State,          "Relay 2 Alarm State",         203, 7, 7, kRelayState),
    List (F::Relay1State,          "Relay 1 Alarm State",         203, 6, 6, kRelayState),
    List (F::Alarm2Type,           "Alarm 2 Type",                203, 5, 5, kAlarmType),
    List (F::Alarm1Type,           "Alarm 1 Type",                203, 4, 4, kAlarmType),
    List (F::Alarm2State,          "Alarm 2 State",               203, 3, 2, kAlarmState, {}, 2),
    List (F::Alarm1State,          "Alarm 1 State",               203, 1, 0, kAlarmState, {}, 2),
    Value(F::Deviation4,           "Deviation 4",                 205, 2, P::Alarm4Source),
    Value(F::Deviation3,           "Deviation 3",                 211, 2, P::Alarm3Source),
    Value(F::Setpoint4,            "Setpoint 4",                  217, 2, P::Alarm4Source),
    Value(F::Setpoint3,            "Setpoint 3",                  223, 2, P::Alarm3Source),
    Bits (F::Spare229,             "Spare bits of byte 229",      229, 7, 5, kKept),
    List (F::Deviation4Type,       "Deviation 4 Type",            229, 4, 4, kOneBitType),
    List (F::Deviation3Type,       "Deviation 3 Type",            229, 3, 3, kOneBitType),
    List (F::NumRdgsAlarms34,      "Alarms 3,4 No. Rdgs to Alarm", 229, 2, 0, kNumRdgs),
    List (F::Relay4State,          "Relay 4 Alarm State",         231, 7, 7, kRelayState),
    List (F::Relay3State,          "Relay 3 Alarm State",         231, 6, 6, kRelayState),
    List (F::Alarm4Type,           "Alarm 4 Type",                231, 5, 5, kAlarmType),
    List (F::Alarm3Type,           "Alarm 3 Type",                231, 4, 4, kAlarmType),
    List (F::Alarm4State,          "Alarm 4 State",               231, 3, 2, kAlarmState, {}, 2),
    List (F::Alarm3State,          "Alarm 3 State",               231, 1, 0, kAlarmState, {}, 2),
    Bits (F::FirmwareVersion,      "FirmwareVersion",             233, 7, 0),
    List (F::MeterType,            "MeterType",                   235, 7, 0, kMeterType, kMeterTypeCodes),
    Byte (F::SpecialStopChar,      "Special Stop Char",           237),
    Byte (F::SpecialStartChar,     "Special Start Char",          239),
    Byte (F::ShowNo,               "Remote Display \"C\" Show No.", 241),
    Byte (F::SkipNo,               "Remote Display \"C\" Skip No.", 243),
    Byte (F::StopChar,             "Remote Display \"C\" Stop Char", 245),
    Byte (F::StartChar,            "Remote Display \"C\" Start Char", 247),
    Value(F::Analog2Hi,            "Analog 2 Hi Range Reading",   249, 2, P::AnalogSource2),
    Value(F::Analog2Lo,            "Analog 2 Lo Range Reading",   255, 2, P::AnalogSource2),
});
// clang-format on

namespace {

consteval bool InOrder() {
    for (std::size_t i = 0; i < FieldRows.size(); ++i) {
        if (static_cast<std::size_t>(FieldRows[i].Handle) != i) return false;
        if (i > 0 && FieldRows[i].Pos < FieldRows[i - 1].Pos) return false;
    }
    return FieldRows.size() == kFields;
}

consteval bool BitsFitTheByte() {
    for (const FieldRow& row : FieldRows) {
        bool bits = 0 <= row.LoBit && row.LoBit <= row.HiBit && row.HiBit <= 7;
        bool place = row.Pos % 2 == 1 && row.Pos + row.Digits - 1 <= kImageDigits;
        if (!bits || !place || (row.Digits > 2 && row.IsBits())) return false;
    }
    return true;
}

// Rows that aren't marked as an overlap hold each bit of all digits once; a marked one shares all its bits.
consteval bool EveryBitCoveredOnce() {
    std::array<std::array<bool, 8>, kImageDigits / 2> covered{};
    for (const FieldRow& row : FieldRows) {
        for (int byte = row.Pos / 2; byte < (row.Pos + row.Digits) / 2; ++byte) {
            for (int bit = row.LoBit; bit <= row.HiBit; ++bit) {
                bool& there = covered[static_cast<std::size_t>(byte)][static_cast<std::size_t>(bit)];
                if (there != (row.Kind == Mark::Overlap)) return false;
                there = true;
            }
        }
    }
    for (const auto& bits : covered) {
        for (bool there : bits) {
            if (!there) return false;
        }
    }
    return true;
}

consteval bool EntriesFitTheBits() {
    for (const FieldRow& row : FieldRows) {
        int codes = 1 << (row.HiBit - row.LoBit + 1);
        if (static_cast<int>(row.Entries.size()) > codes || row.Cap >= codes) return false;
        if (!row.Codes.empty() && row.Codes.size() != row.Entries.size()) return false;
        for (std::uint8_t code : row.Codes) {
            if (code >= codes) return false;
        }
    }
    return true;
}

consteval bool NamesDiffer() {
    for (const FieldRow& row : FieldRows) {
        for (const FieldRow& other : FieldRows) {
            if (row.Handle != other.Handle && row.Name == other.Name) return false;
        }
    }
    return true;
}

static_assert(InOrder(), "rows stand in the order of their handles, by position");
static_assert(BitsFitTheByte(), "bits lie in their byte, fields in the image");
static_assert(EveryBitCoveredOnce(), "a bit in no row, in two, or an overlap of its own bits");
static_assert(EntriesFitTheBits(), "lists and codes fit their bits");
static_assert(NamesDiffer(), "a field is found by its name");

}  // namespace

std::span<const FieldRow> FieldTable() {
    return FieldRows;
}

std::string_view FieldName(Field field) {
    return RowOf(field).Name;
}

std::string_view EntryOfCode(const FieldRow& row, int code) {
    int shown = row.Cap != kNoCap && code > row.Cap ? row.Cap : code;
    for (std::size_t i = 0; i < row.Entries.size(); ++i) {
        int stored = row.Codes.empty() ? static_cast<int>(i) : row.Codes[i];
        if (stored == shown) return row.Entries[i];
    }
    return {};
}

}  // namespace counter
