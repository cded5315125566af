#include "meter/field_table.h"

#include <gtest/gtest.h>

#include <array>

namespace counter {
namespace {

// Samples written from the meter's memory, not from the table.

TEST(FieldTable, KnowsValueFields) {
    // clang-format off
    const struct {
        const char* Name;
        Field Handle;
        int Pos, Code, Digits;
    } cases[] = {
        {"Analog Hi Range Reading", Field::AnalogHi, 1, 2, 6}, {"Deviation 2", Field::Deviation2, 13, 2, 6},
        {"Offset 2",     Field::Offset2,   25, 2, 6}, {"Preset",          Field::Preset,       25, 2, 6},
        {"Scale 1",      Field::Scale1,    43, 3, 6}, {"Setpoint 1",      Field::Setpoint1,    55, 2, 6},
        {"High Read 2",  Field::HighRead2, 61, 2, 6}, {"High In 2",       Field::HighIn2,      67, 4, 6},
        {"Low In 2",     Field::LowIn2,    79, 4, 6}, {"Read 0 In",       Field::Read0In,      79, 4, 6},
        {"Low Read 1",   Field::LowRead1,  97, 2, 6}, {"Pulses per Rev",  Field::PulsesPerRev, 161, 0, 4},
        {"Time Out",     Field::TimeOut,  173, 0, 4}, {"Cutoff Value",    Field::CutoffValue,  145, 0, 4},
        {"Setpoint 3",   Field::Setpoint3, 223, 2, 6}, {"Deviation 4",    Field::Deviation4,   205, 2, 6},
        {"Analog 2 Lo Range Reading", Field::Analog2Lo, 255, 2, 6},
        {"Calibration, Parts per Million", Field::Calibration, 137, 1, 4},
    };
    // clang-format on
    for (const auto& c : cases) {
        const FieldRow& row = RowOf(c.Handle);
        EXPECT_EQ(FieldName(c.Handle), c.Name);
        EXPECT_EQ((std::array{row.Pos, row.ValueCode, row.Digits}), (std::array{c.Pos, c.Code, c.Digits}))
            << c.Name;
    }
}

TEST(FieldTable, KnowsBitFields) {
    // clang-format off
    const struct {
        Field Handle;
        const char* Name;
        int Pos, HiBit, LoBit;
        const char* FirstAndLastEntry;  // with "|" between; none for a number
    } cases[] = {
        {Field::ModbusTimeout,      "Modbus Timeout",        109, 5, 4, "  1 Sec| 10 Sec"},
        {Field::Parity,             "Parity",                109, 1, 0, " None| Even"},
        {Field::ModbusAddress,      "Modbus Address",        111, 7, 0, ""},
        {Field::DecimalPoint2,      "Decimal Point 2",       151, 6, 4, " 222222.| 2. 22222"},
        {Field::Resolution,         "Resolution",            155, 3, 0, " 0. 00001|   100000"},
        {Field::DisplayItem,        "Display Item No.",      157, 1, 0, " Item 1| Item 3"},
        {Field::TriggerSlopeA,      "Trigger Slope A",       159, 1, 1, " Positive| Negative"},
        {Field::Multiplier2,        "Multiplier 2",          165, 7, 4, " 0. 00001|   100000"},
        {Field::AnalogRange,        "Analog Range",          167, 3, 2, "0-20mA Current|-10V to +10V"},
        {Field::Alarm4Source,       "Alarm 4 Source",        169, 1, 0, "Filtered Item|Item 3"},
        {Field::BatchCount,         "Batch Count",           171, 5, 3, "Up,Preset,Preset|Dn,All,All"},
        {Field::Lockout0,           "Input Type",            183, 3, 3, ""},
        {Field::Lockout4,           "Slope, DecPt's",        183, 7, 7, ""},
        {Field::Lockout10,          "Calibration",           181, 1, 1, ""},
        {Field::Lockout14,          " Front Pnl Func Resets", 181, 5, 5, ""},
        {Field::DisplayType,        "Display Type",          185, 7, 4, " Normal, Expnt| Rmt Dsply C"},
        {Field::ClassAndCurve,      "Meter Class and Custom Curve", 185, 3, 2, "Basic meter|curve 2"},
        {Field::OutputItems,        "Output Items",          187, 2, 0, "All Active Items|All+Peak+Valley"},
        {Field::IncludeLf,          "Include LF",            189, 7, 7, ""},
        {Field::Address,            "Address",               189, 4, 0, "  1| 31"},
        {Field::OutputRate,         "Output Rate",           191, 3, 0, "Read Rate|Read Rate/256"},
        {Field::RelayOption,        "Relay Option",          193, 6, 5, "None|4-Relay Board"},
        {Field::InputOption,        "Input Option",          193, 2, 0, "None|Quadrature"},
        {Field::Mode,               "Mode",                  199, 7, 4, "Rate|Quadrature"},
        {Field::Function,           "Function",              199, 3, 0, ""},
        {Field::DeviationCode,      "Deviation Types and No Deviation in Menu", 201, 5, 3, ""},
        {Field::NumRdgsAlarms12,    "Alarms 1,2 No. Rdgs to Alarm", 201, 2, 0, "  1 Reading| 128 Readings"},
        {Field::Relay2State,        "Relay 2 Alarm State",   203, 7, 7, " Active On| Active Off"},
        {Field::Alarm4State,        "Alarm 4 State",         231, 3, 2, " Active High| Disabled"},
    };
    // clang-format on
    for (const auto& c : cases) {
        const FieldRow& row = RowOf(c.Handle);
        EXPECT_EQ(FieldName(c.Handle), c.Name);
        EXPECT_EQ((std::array{row.Pos, row.HiBit, row.LoBit}), (std::array{c.Pos, c.HiBit, c.LoBit}))
            << c.Name;
        std::string ends;
        if (!row.Entries.empty()) ends.append(row.Entries.front()).append("|").append(row.Entries.back());
        EXPECT_EQ(ends, c.FirstAndLastEntry) << c.Name;
    }
}

TEST(FieldTable, MarksOverlapsAndCarriedDigits) {
    std::string overlaps, carried;
    for (const FieldRow& row : FieldTable()) {
        if (row.Kind == Mark::Overlap) overlaps.append(row.Name).append("; ");
        if (row.Kind == Mark::Carried && !row.IsBits()) carried += std::to_string(row.Pos) + " ";
    }
    EXPECT_EQ(overlaps, "Preset; Read 0 In; Deviation Types and No Deviation in Menu; ");
    EXPECT_EQ(carried, "113 141 153 ");
}

}  // namespace
}  // namespace counter
