// The meter's own words: what the numbers in its setup, in the settings and on its front panel mean. Each
// enum is an int under the meter's numbers, so codes of the image compare with it as they are.
#pragma once

namespace counter {

namespace InputBoard {
enum Code : int { None = 0, DualSigCond = 1, VfConverter = 2, Quadrature = 3 };
}

namespace RelayBoard {
enum Code : int { None = 0, TwoRelays = 1, FourRelays = 2 };
}

namespace CommBoard {
enum Code : int { None = 0, Rs232 = 1, Rs485 = 2 };  // RS485 is every other board too: USB, Ethernet, Modbus
}

namespace AnalogBoard {
enum Code : int { None = 0, Unipolar12Bit = 1, Unipolar16Bit = 2, Bipolar16Bit = 3, Dual16Bit = 4 };
}

// What is measured. Modes 3 and 11 are offered by no list.
namespace Mode {
enum Code : int {
    Rate = 0,
    Period = 1,
    Total = 2,
    None = 3,
    TimeInterval = 4,
    Stopwatch = 5,
    Phase = 6,
    DutyCycle = 7,
    Vf4To20mA = 8,
    Vf0To1mA = 9,
    Vf0To10V = 10,
    Quadrature = 12,
};
}

// Which items a Mode yields, and how the channels A and B combine. Some Modes give a number a meaning of
// their own: those names begin with the Mode.
namespace Function {
enum Code : int {
    AandB = 0,            // "A, B"
    AOnly = 1,            // "A Only"
    Batch = 2,            // " Batch"
    RateAndTotal = 3,     // "A, A Total"
    AMinusBUpDown = 4,    // "A -B  UpDn"
    ARateBTotal = 5,      // "A, B Total"
    Burst = 6,            // " Burst"
    BTotalARate = 7,      // "B, A Rate"
    VfBurst = 8,          // known to the V-F Modes, offered by no list
    UpDownControl = 9,    // "A, B UpDnCtl"
    InhibitControl = 10,  // "A, B InhibitCtl"
    Sum = 11,             // "A + B"
    Difference = 12,      // "A - B"
    Product = 13,         // "A X B"
    Ratio = 14,           // "A / B"
    RatioLessOne = 15,    // "(A / B) -1"

    StopwatchAToA = 0,
    StopwatchAToB = 1,
    StopwatchInverseAToA = 2,  // " 1/AA "
    StopwatchInverseAToB = 3,  // " 1/AB "
    TimeAToB = 1,
    TimeInverse = 2,  // " 1/AB "
    Phase0To360 = 1,
    PhasePlusMinus180 = 2,
    VfInverseRate = 15,  // "1/(A Rate)"
    DutyCycleAToB = 1,
    DutyCycleInverse = 2,  // known to the menu, offered by no list
    QuadratureTotal = 0,
    QuadratureRate = 1,
};
}

namespace DisplayType {
enum Code : int {
    Normal = 0,        // with an exponent where digits don't suffice
    Normal999999 = 1,  // stops at 999999
    OneZero = 2,       // a fixed zero on the right
    TwoZeros = 3,
    Seconds = 4,
    Clock = 5,    // hours, minutes, seconds: the last one that shows what the meter itself measures
    RemoteA = 6,  // from here on another device decides what is shown
    RemoteS = 7,
    Remote1 = 8,
    Remote2 = 9,
    Remote3 = 10,
    Remote4 = 11,
    RemoteC = 12,  // one way only: Custom ASCII
};
}

constexpr bool IsRemoteDisplay(int displayType) {
    return displayType > DisplayType::Clock;
}

// What alarms, analog outputs and lists take as their source.
namespace Source {
enum Code : int { FilteredItem = 0, Item1 = 1, Item2 = 2, Item3 = 3 };
}

namespace Protocol {
enum Code : int { CustomAscii = 0, ModbusRtu = 1, ModbusAscii = 2 };
}

namespace Parity {
enum Code : int { None = 0, Odd = 1, Even = 2 };
}

namespace MeterKind {
enum Code : int { Unknown = 0, Dpm = 1, WeightMeter = 2, Counter = 3, FirstTransmitter = 5, NoPanel = 7 };
}

// What a value of seconds is on its way in and out.
namespace TimeEntry {
enum Code : int { None = 0, PlainNumber = 1, Seconds = 2 };  // Seconds: stored so, shown as hhmmss
}

// A front panel with a menu of its own.
constexpr bool HasPanel(int meterType) {
    return meterType != MeterKind::NoPanel;
}
// Kinds 5 to 7 call themselves "Counter Transmitter".
constexpr bool IsTransmitter(int meterType) {
    return meterType >= MeterKind::FirstTransmitter && meterType <= MeterKind::NoPanel;
}
// From kind 5 on a meter has two relays, whatever its setup says.
constexpr bool HasTwoRelaysOnly(int meterType) {
    return meterType >= MeterKind::FirstTransmitter;
}
// A counter, with a panel or without.
constexpr bool IsCounterKind(int meterType) {
    return meterType == MeterKind::Counter || meterType == MeterKind::NoPanel;
}

}  // namespace counter
