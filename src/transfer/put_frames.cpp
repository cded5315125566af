#include "transfer/put_frames.h"

#include <algorithm>
#include <array>

#include "link/link_error.h"
#include "meter/firmware.h"
#include "transfer/setup_conversions.h"

namespace counter {

namespace {

using F = RegisterForm;

// clang-format off
constexpr std::array<Stretch, 1> kScaling     = {{{1, 108}}};
constexpr std::array<Stretch, 1> kScalingHigh = {{{1, 36}}};
constexpr std::array<Stretch, 1> kScalingLow  = {{{37, 36}}};
constexpr std::array<Stretch, 2> kAnalog2     = {{{249, 12}, {109, 4}}};
constexpr std::array<Stretch, 1> kBytes       = {{{141, 64}}};
constexpr std::array<Stretch, 1> kAlarms34    = {{{205, 44}}};

// Required: the last block waits for the meter to take in the ones before it.
constexpr int kBeforeLastMs = 2000;

constexpr std::array<AsciiWrite, 4> kSerialWrites = {{
    {"WR1A", kScaling,     0,  30},
    {"W435", kAnalog2,     0,  43},
    {"WG2A", kBytes,       0,  80},
    {"WB74", kAlarms34, kBeforeLastMs, 100},
}};

// The node takes the first block only in parts, and its last third, positions 73..108, is never sent: required.
constexpr std::array<AsciiWrite, 5> kNodeWrites = {{
    {"W91A", kScalingHigh, 0,   8},
    {"W911", kScalingLow,  0,  30},
    {"W435", kAnalog2,     0,  43},
    {"WG2A", kBytes,       0,  80},
    {"WB74", kAlarms34, kBeforeLastMs, 100},
}};

constexpr std::array<RegisterPiece, 8> kSetpointsAndScales = {{
    {55, 6, F::Int32},  {49, 6, F::Int32},  {223, 6, F::Int32}, {217, 6, F::Int32},
    {43, 6, F::Sign32}, {37, 6, F::Int32},  {31, 6, F::Sign32}, {25, 6, F::Int32},
}};
constexpr std::array<RegisterPiece, 8> kCoordinates = {{
    {103, 6, F::Float32}, {97, 6, F::Int32}, {91, 6, F::Float32}, {85, 6, F::Int32},
    { 79, 6, F::Float32}, {73, 6, F::Int32}, {67, 6, F::Float32}, {61, 6, F::Int32},
}};
constexpr std::array<RegisterPiece, 11> kOutputsAndTimes = {{
    { 19, 6, F::Byte},  { 13, 6, F::Byte},  {211, 6, F::Byte},  {205, 6, F::Byte},
    {  7, 6, F::Int32}, {  1, 6, F::Int32}, {255, 6, F::Int32}, {249, 6, F::Int32},
    {177, 4, F::Plain}, {173, 4, F::Plain}, {161, 4, F::Plain},
}};
constexpr std::array<RegisterPiece, 1> kCutoff = {{{145, 4, F::Plain}}};
constexpr std::array<RegisterPiece, 19> kDisplayToModbus = {{
    {185, 2, F::Byte}, {183, 2, F::Byte}, {181, 2, F::Byte}, {171, 2, F::Byte}, {169, 2, F::Byte},
    {167, 2, F::Byte}, {165, 2, F::Byte}, {159, 2, F::Byte}, {157, 2, F::Byte}, {155, 2, F::Byte},
    {151, 2, F::Byte}, {149, 2, F::Byte}, {247, 2, F::Byte}, {245, 2, F::Byte}, {243, 2, F::Byte},
    {241, 2, F::Byte}, {239, 2, F::Byte}, {237, 2, F::Byte}, {111, 2, F::Byte},
}};
constexpr std::array<RegisterPiece, 12> kAlarmsToSerial = {{
    {203, 2, F::Byte}, {201, 2, F::Byte}, {231, 2, F::Byte}, {229, 2, F::Byte}, {199, 2, F::Byte},
    {197, 2, F::Byte}, {195, 2, F::Byte}, {193, 2, F::Byte}, {191, 2, F::Byte}, {189, 2, F::Byte},
    {187, 2, F::Byte}, {109, 2, F::Byte},
}};

constexpr std::array<ModbusWrite, 6> kModbusWrites = {{
    {"100001001020", kSetpointsAndScales, 23, LinkErrors::kPut0001, false},
    {"100011001020", kCoordinates,        38, LinkErrors::kPut0011, false},
    {"100021001326", kOutputsAndTimes,    51, LinkErrors::kPut0021, false},
    {"10003A000102", kCutoff,             68, LinkErrors::kPut003A, true},
    {"10004D001326", kDisplayToModbus,    85, LinkErrors::kPut004D, false},
    {"100041000C18", kAlarmsToSerial,    100, LinkErrors::kPut0041, false},
}};
// clang-format on

constexpr const char* kResetFrame = "C0";

std::string RegisterDigits(const std::string& digits, RegisterForm form) {
    switch (form) {
        case F::Byte:
            return "00" + digits;
        case F::Int32:
            return ImageToInt32(digits);
        case F::Sign32:
            return ImageSignToInt32(digits);
        case F::Float32:
            return ImageToFloat32(digits);
        case F::Plain:
            break;
    }
    return digits;
}

}  // namespace

std::string FrameName(const ModbusWrite& write) {
    return std::string(write.Head).substr(0, 6);
}

std::span<const AsciiWrite> SerialWrites() {
    return kSerialWrites;
}
std::span<const AsciiWrite> NodeWrites() {
    return kNodeWrites;
}
std::span<const ModbusWrite> ModbusWrites() {
    return kModbusWrites;
}

std::vector<std::string> PutFrames(const LinkState& link, int firmwareVersion) {
    std::vector<std::string> frames;
    if (link.ModbusLink) {
        for (const ModbusWrite& write : kModbusWrites) {
            if (write.NeedsCutoffRegister && !ModbusTakesCutoffValue(firmwareVersion)) continue;
            frames.push_back(FrameName(write));
        }
        return frames;
    }
    for (const AsciiWrite& write : link.EthernetMode ? NodeWrites() : SerialWrites())
        frames.emplace_back(write.Command);
    frames.emplace_back(kResetFrame);
    return frames;
}

std::string PutSoFar(const LinkState& link, int firmwareVersion) {
    const std::vector<std::string>& written = link.FramesWritten;
    if (written.empty()) return "Nothing was written: the meter keeps the setup that it had.";
    std::string missing;
    for (const std::string& frame : PutFrames(link, firmwareVersion)) {
        if (std::find(written.begin(), written.end(), frame) == written.end()) missing += " " + frame;
    }
    if (missing.empty()) return "All was written: the meter has the whole setup.";
    std::string text = "Written:";
    for (const std::string& frame : written) text += " " + frame;
    text += ". Not written:" + missing + ". ";
    return text + (missing == std::string(" ") + kResetFrame
                       ? "The meter has the whole setup, which takes effect when it is switched on again."
                       : "The meter has parts of two setups: put one again.");
}

std::string AsciiData(const SetupImage& image, const AsciiWrite& write) {
    std::string data;
    for (const Stretch& stretch : write.Data) data += DigitsGet(image, stretch.Position, stretch.Digits);
    return data;
}

std::string ModbusData(const SetupImage& image, const ModbusWrite& write) {
    std::string data;
    for (const RegisterPiece& piece : write.Data) {
        data += RegisterDigits(DigitsGet(image, piece.Position, piece.Digits), piece.As);
    }
    return data;
}

}  // namespace counter
