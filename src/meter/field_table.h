// The field table: every field of the setup, by position, with its bits, encoding and list.
//
// Positions and bits are those of setup_image.h, value codes those of value_codec.h. Each bit of the 260
// digits belongs to exactly one row, apart from rows marked as an overlap: those show the same bits as other
// rows under another name.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace counter {

// Handles, in the order of the rows: by position, in a byte from the high bits to the low ones, an overlap
// after what it overlaps.
enum class Field {
    AnalogHi,
    AnalogLo,
    Deviation2,
    Deviation1,
    Offset2,
    Preset,
    Scale2,
    Offset1,
    Scale1,
    Setpoint2,
    Setpoint1,
    HighRead2,
    HighIn2,
    LowRead2,
    LowIn2,
    Read0In,
    HighRead1,
    HighIn1,
    LowRead1,
    LowIn1,
    Spare109,
    ModbusTimeout,
    SerialProtocol,
    Parity,
    ModbusAddress,
    Carried113,
    Calibration,
    Carried141,
    AnalogOption,
    CutoffValue,
    CustomRecognition,
    Spare151High,
    DecimalPoint2,
    Spare151Low,
    DecimalPoint1,
    Carried153,
    Spare155,
    Resolution,
    Spare157,
    PeakKeyAction,
    DisplayItem,
    Spare159,
    TriggerSlopeA,
    TriggerSlopeB,
    PulsesPerRev,
    Multiplier2,
    Multiplier1,
    AnalogRange2,
    AnalogSource2,
    AnalogRange,
    AnalogSource,
    Alarm1Source,
    Alarm2Source,
    Alarm3Source,
    Alarm4Source,
    Spare171,
    BatchCount,
    BatchTotalReset,
    BatchItem2,
    BatchStart,
    TimeOut,
    GateTime,
    Lockout12,
    Lockout13,
    Lockout14,
    Lockout15,
    Lockout8,
    Lockout9,
    Lockout10,
    Lockout11,
    Lockout4,
    Lockout5,
    Lockout6,
    Lockout7,
    Lockout0,
    Lockout1,
    Lockout2,
    Lockout3,
    DisplayType,
    ClassAndCurve,
    SquareRoot,
    CutoffEnable,
    Duplex,
    TransmissionChars,
    RecognitionChar,
    RtsType,
    Cr,
    OutputItems,
    IncludeLf,
    IncludeAlarmData,
    OutputMode,
    Address,
    OutputFilter,
    BaudRate,
    OutputRate,
    LockoutJumper,
    RelayOption,
    CommOption,
    InputOption,
    Spare195,
    FilterType,
    PeakValleyFilter,
    DisplayFilter,
    FilterThreshold,
    FilterTimeConstant,
    PowerOnTotal,
    LeadingZeros,
    Group1Form,
    Group2Form,
    ControlInputs,
    Mode,
    Function,
    Spare201,
    DeviationCodeHighBit,
    Deviation2Type,
    Deviation1Type,
    DeviationCode,
    NumRdgsAlarms12,
    Relay2State,
    Relay1State,
    Alarm2Type,
    Alarm1Type,
    Alarm2State,
    Alarm1State,
    Deviation4,
    Deviation3,
    Setpoint4,
    Setpoint3,
    Spare229,
    Deviation4Type,
    Deviation3Type,
    NumRdgsAlarms34,
    Relay4State,
    Relay3State,
    Alarm4Type,
    Alarm3Type,
    Alarm4State,
    Alarm3State,
    FirmwareVersion,
    MeterType,
    SpecialStopChar,
    SpecialStartChar,
    ShowNo,
    SkipNo,
    StopChar,
    StartChar,
    Analog2Hi,
    Analog2Lo,
    Count,
};

inline constexpr int kFields = static_cast<int>(Field::Count);

// Where the decimal point of a value comes from.
enum class Point {
    None,    // not a value, or one without a point
    Code1,   // 123456.
    Code3,   // 1234.56
    Code6,   // 1.23456
    Stored,  // in the field itself
    DecPt1,
    Group2,  // Decimal Point 2, or 1 where both scale inputs of one result
    Alarm1Source,
    Alarm2Source,
    Alarm3Source,
    Alarm4Source,
    AnalogSource,
    AnalogSource2,
};

enum class Mark {
    None,
    Overlap,  // its bits belong to other rows too
    Carried,  // the meter's own: read, kept and never interpreted
};

inline constexpr int kNoValueCode = -1;
inline constexpr int kByteCode = 7;  // a byte that digit entry edits as a number 0..255
inline constexpr int kNoCap = -1;

struct FieldRow {
    Field Handle = Field::Count;
    std::string_view Name;
    int Pos = 0;
    int Digits = 2;  // 2 for a byte and its bits
    int HiBit = 7;   // of the byte; of every byte where there are more digits
    int LoBit = 0;
    int ValueCode = kNoValueCode;  // 0..4 a value, kByteCode, or kNoValueCode for bits
    Point DecPt = Point::None;
    std::span<const std::string_view> Entries;  // of its list; none: the field is a number
    std::span<const std::uint8_t> Codes;        // stored codes parallel to Entries; none: the index
    int Cap = kNoCap;                           // codes above it are shown as this one
    Mark Kind = Mark::None;

    constexpr bool IsValue() const { return ValueCode >= 0 && ValueCode <= 4; }
    // True for a field that is only part of its byte.
    constexpr bool IsBits() const { return Digits == 2 && (HiBit != 7 || LoBit != 0); }
};

// All rows in the order of the handles.
std::span<const FieldRow> FieldTable();

extern const std::array<FieldRow, kFields> FieldRows;
inline const FieldRow& RowOf(Field field) {
    return FieldRows[static_cast<std::size_t>(field)];
}
std::string_view FieldName(Field field);

// The list entry that represents a stored code, as spelled in the list; empty where there is none.
std::string_view EntryOfCode(const FieldRow& row, int code);

}  // namespace counter
