// The entries of the lists of fields, spelled and spaced as shown. Where an entry depends on the meter's
// version it is the one of version 83; where it depends on the Display Type, the one below 6.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace counter::lists {

using Text = std::string_view;

inline constexpr Text kParity[] = {" None", " Odd", " Even"};
inline constexpr Text kProtocol[] = {"Custom ASCII", "Modbus RTU", "Modbus ASCII"};
inline constexpr Text kModbusTimeout[] = {"  1 Sec", "  3 Sec", "  5 Sec", " 10 Sec"};
inline constexpr Text kAnalogOption[] = {"None", "12 Bit Unipolar", "16 Bit Unipolar", "16 Bit Uni/Bipolar",
                                         "16 Bit Dual Unipolar"};

// Stored code 0 means no entry.
inline constexpr std::uint8_t kFromOne[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16,
                                            17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31};
inline constexpr Text kDecPt1[] = {" 111111.",  " 11111. 1", " 1111. 11",
                                   " 111. 111", " 11. 1111", " 1. 11111"};
inline constexpr Text kDecPt2[] = {" 222222.",  " 22222. 2", " 2222. 22",
                                   " 222. 222", " 22. 2222", " 2. 22222"};
inline constexpr Text kMultiplier[] = {" 0. 00001", "  0. 0001", "   0. 001", "    0. 01",
                                       "     0. 1", "        1", "       10", "      100",
                                       "     1000", "    10000", "   100000"};
inline constexpr Text kPeakKeyAction[] = {" Displays Peak", " Displays Valley", " Peak then Valley"};
inline constexpr Text kDisplayItem[] = {" Item 1", " Item 2", " Item 3"};
inline constexpr Text kSlope[] = {" Positive", " Negative"};
inline constexpr Text kAnalogRange[] = {"0-20mA Current", "0-10V Voltage", "4-20mA Current", "-10V to +10V"};
inline constexpr Text kAnalogRange2[] = {"0-20mA Current", "0-10V Voltage", "4-20mA Current"};
inline constexpr Text kSource[] = {"Filtered Item", "Item 1", "Item 2", "Item 3"};

inline constexpr Text kBatchCount[] = {"Up,Preset,Preset", "Dn,Preset,Preset", "Up,All,Preset",
                                       "Dn,All,Preset",    "Up,Preset,All",    "Dn,Preset,All",
                                       "Up,All,All",       "Dn,All,All"};
inline constexpr Text kBatchReset[] = {"Internal", "External"};
inline constexpr Text kBatchItem2[] = {"Grand Total", "# Batches"};
inline constexpr Text kBatchStart[] = {"'Ready'", "Start Immediate"};

inline constexpr Text kDisplayType[] = {" Normal, Expnt", " Norml 999999", " 1 RH Zero",   " 2 RH Zeros",
                                        " Time in Secs",  " Clock hhmmss", " Rmt Dsply A", " Rmt Dsply S",
                                        " Rmt Dsply 1",   " Rmt Dsply 2",  " Rmt Dsply 3", " Rmt Dsply 4",
                                        " Rmt Dsply C"};
inline constexpr Text kClassAndCurve[] = {"Basic meter", "Extended, no curve", "curve 1", "curve 2"};
inline constexpr Text kCutoffEnable[] = {" Enabled", " Disabled"};

inline constexpr Text kDuplex[] = {"Full Duplex", "Half Duplex"};
inline constexpr Text kTransmission[] = {"No Special Chars", "Special Tx Chars"};
inline constexpr Text kRecognition[] = {"Standard (*)", "Custom Char"};
inline constexpr Text kRtsType[] = {"Non-Latching", "Latching"};
inline constexpr Text kCr[] = {"At End of All", "At End of Each"};
inline constexpr Text kOutputItems[] = {"All Active Items", "Item 1", "Item 2",         "Item 3", "Peak",
                                        "Displayed Item",   "Valley", "All+Peak+Valley"};
inline constexpr Text kOutputMode[] = {"Continuous", "Command"};
inline constexpr Text kAddress[] = {"  1", "  2", "  3", "  4", "  5", "  6", "  7", "  8",
                                    "  9", " 10", " 11", " 12", " 13", " 14", " 15", " 16",
                                    " 17", " 18", " 19", " 20", " 21", " 22", " 23", " 24",
                                    " 25", " 26", " 27", " 28", " 29", " 30", " 31"};
inline constexpr Text kOutputFilter[] = {"Unfiltered", "Filtered"};
inline constexpr Text kBaudRate[] = {"   300", "   600", "  1200", "  2400", "  4800", "  9600", " 19200"};
inline constexpr Text kOutputRate[] = {"Read Rate",    "Read Rate/2",   "Read Rate/4",
                                       "Read Rate/8",  "Read Rate/16",  "Read Rate/32",
                                       "Read Rate/64", "Read Rate/128", "Read Rate/256"};

inline constexpr Text kLockoutJumper[] = {"Hardware Lockout jumper is not installed",
                                          "Hardware Lockout jumper is installed"};
inline constexpr Text kRelayOption[] = {"None", "2-Relay Board", "4-Relay Board"};
inline constexpr std::uint8_t kRelayCodes[] = {0, 2, 1};
inline constexpr Text kCommOption[] = {"None", "RS232 Board", "RS485/U/E/MB"};
inline constexpr Text kInputOption[] = {"None", "Dual Sig Cond", "V-F Converter", "Quadrature"};
inline constexpr std::uint8_t kInputCodes[] = {0, 1, 4, 2};

inline constexpr Text kFilterType[] = {" Adaptive", " Conventional"};
inline constexpr Text kFiltered[] = {" Unfiltered", " Filtered"};
inline constexpr Text kThreshold[] = {" Low Adaptive", " High Adaptive"};
inline constexpr Text kTimeConstant[] = {" No Filter", " 0.1 Sec", " 0.2 Sec", " 0.4 Sec",
                                         " 0.8 Sec",   " 1.6 Sec", " 3.2 Sec", " 6.4 Sec"};
inline constexpr Text kPowerOnTotal[] = {" Zero Total", " Restore Total"};
inline constexpr Text kLeadingZeros[] = {" Blank Zeros", " Display Zeros"};
inline constexpr Text kEntryForm[] = {"Scale and Offset", "Coordinates"};
inline constexpr Text kControlInputs[] = {
    "Meter Reset       Func Reset          Meter Reset",
    "Meter Reset       Meter Hold          Meter Reset",
    "Meter Reset       Peak or Valley      Meter Reset",
    "Meter Reset       External Gate       Meter Reset",
    "Function Reset    Meter Hold          Meter Reset",
    "Valley Only       Peak Only           Function Reset",
    "Function Reset    External Gate       Meter Reset",
    "Meter Hold        Peak or Valley      Function Reset",
    "Total A Reset     Total B Reset       Both A,B Reset",
    "Alarm 1 Active    Alarm 2 Active      Both 1,2 Active",
    "Meter Reset       Display Blanking    Meter Reset",
    "Function Reset    Display Blanking    Meter Reset",
    "Meter Hold        Display Blanking    Meter Reset",
    "Peak or Valley    Display Blanking    Function Reset",
    "Display Blank     External Gate       Meter Reset",
    "Item 2            Item 3              Function Reset",
};

// What is at some codes of the control inputs instead: before version 78, and on a remote display.
inline constexpr std::string_view kControlInputs8Before78 =
    "Hold              External Gate       Function Reset";
inline constexpr std::string_view kControlInputs9Before78 = "Peak or Valley    External Gate       No Action";
inline constexpr std::string_view kControlInputs15Remote = "Enable Tare       Tare if enabled     Tare";

// Of a meter that knows no span hysteresis.
inline constexpr std::string_view kPlainHysteresis = " Hysteresis";
// Span hysteresis has no code of its own in the one bit of an alarm: DeviationFromCode.
inline constexpr Text kDeviationType[] = {" Band Deviation", " Split Hysteresis", " Span Hysteresis"};
inline constexpr Text kNumRdgs[] = {"  1 Reading",  "  2 Readings", "  4 Readings", "  8 Readings",
                                    " 16 Readings", " 32 Readings", " 64 Readings", " 128 Readings"};
inline constexpr Text kRelayState[] = {" Active On", " Active Off"};
inline constexpr Text kAlarmType[] = {" Non-Latching", " Latching"};
inline constexpr Text kAlarmState[] = {" Active High", " Active Low", " Disabled"};
inline constexpr Text kMeterType[] = {"DPM", "Weight Meter", "Counter", "Meter without front panel menu"};
inline constexpr std::uint8_t kMeterTypeCodes[] = {1, 2, 3, 7};

}  // namespace counter::lists
