// The frames of a Put, and which digits of the image they carry.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "link/link_state.h"
#include "meter/setup_image.h"

namespace counter {

struct Stretch {
    int Position;  // from 1
    int Digits;
};

struct AsciiWrite {
    const char* Command;
    std::span<const Stretch> Data;
    int PauseMs;  // before the frame
    int Percent;  // progress after it
};

// In the order in which they go out, the reset at the end not included.
std::span<const AsciiWrite> SerialWrites();
std::span<const AsciiWrite> NodeWrites();

// How an image field becomes register digits.
enum class RegisterForm {
    Plain,    // as it is
    Byte,     // after two zeros
    Int32,    // ImageToInt32
    Sign32,   // ImageSignToInt32
    Float32,  // ImageToFloat32
};

struct RegisterPiece {
    int Position;
    int Digits;
    RegisterForm As;
};

struct ModbusWrite {
    const char* Head;  // function 16, first register, count, bytes
    std::span<const RegisterPiece> Data;
    int Percent;               // progress before it
    int Step;                  // LinkError of an answer of a wrong length
    bool NeedsCutoffRegister;  // only for meters that take the Cutoff Value
};

std::span<const ModbusWrite> ModbusWrites();

// Function and first register: "100001".
std::string FrameName(const ModbusWrite& write);

// The frames of a whole Put on this link, as LinkState::FramesWritten names them.
std::vector<std::string> PutFrames(const LinkState& link, int firmwareVersion);

// What a Put has brought into the meter, from the frames that have gone out: whole sentences for people.
std::string PutSoFar(const LinkState& link, int firmwareVersion);

std::string AsciiData(const SetupImage& image, const AsciiWrite& write);
std::string ModbusData(const SetupImage& image, const ModbusWrite& write);

}  // namespace counter
