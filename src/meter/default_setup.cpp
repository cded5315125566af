#include "meter/default_setup.h"

#include <string_view>

namespace counter {

namespace {

struct DefaultField {
    int Pos;
    std::string_view Digits;
};

// What isn't 0, in the order of positions.
// clang-format off
constexpr DefaultField kDefaults[] = {
    {  1, "002710"},  // Analog Hi Range Reading 10000
    { 31, "0186A0"},  // Scale 2 100000, shown as 1.00000
    { 43, "0186A0"},  // Scale 1 100000, shown as 1.00000
    { 49, "004E20"},  // Setpoint 2 20000
    { 55, "002710"},  // Setpoint 1 10000
    { 61, "002710"},  // High Read 2 10000
    { 67, "002710"},  // High In 2 10000, point code 0
    { 85, "002710"},  // High Read 1 10000
    { 91, "002710"},  // High In 1 10000, point code 0
    {111, "01"},      // Modbus Address 1
    {137, "8064"},    // Calibration -100 parts per million
    {143, "02"},      // 16 Bit Unipolar analog board
    {145, "2710"},    // Cutoff Value 10000
    {149, "23"},      // Custom Recognition Character "#"
    {151, "11"},      // both decimal points code 1
    {153, "2E"},      // carried for the meter
    {155, "05"},      // Resolution 1
    {157, "01"},      // Display Item 1, peak key displays the peak
    {159, "01"},      // slope A positive, B negative
    {161, "0400"},    // Pulses per Rev 1024
    {165, "55"},      // both multipliers 1
    {167, "07"},      // analog output 1: source 3, range 1
    {169, "05"},      // sources of alarms 3 and 4: Item 1
    {173, "012C"},    // Time Out 3.00 s
    {177, "000A"},    // Gate Time 0.10 s
    {185, "04"},      // Extended meter, no curve, Display Type 0
    {187, "01"},      // Output Items 1
    {189, "21"},      // address 1, sends on command
    {191, "50"},      // 9600 baud
    {193, "49"},      // Dual Sig Cond, RS232 and 2-Relay boards, no lockout jumper
    {195, "09"},      // Time Constant 1, Threshold 1
    {233, "53"},      // version 83
    {235, "03"},      // Counter
    {237, "0D"},      // Special Stop Char carriage return
    {241, "08"},      // remote display "C" shows 8 characters
    {245, "0D"},      // remote display "C" Stop Char carriage return
    {249, "002710"},  // Analog 2 Hi Range Reading 10000
};
// clang-format on

}  // namespace

void BuildDefaultSetup(SetupImage& image) {
    image = SetupImage{};
    for (const DefaultField& field : kDefaults) DigitsPut(image, field.Pos, field.Digits);
}

}  // namespace counter
