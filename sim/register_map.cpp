#include "sim/register_map.h"

#include <algorithm>

namespace sim {

namespace {

enum class Form {
    Int24,  // pair; image 24 bit two's complement, register sign extended
    Scale,  // pair; image sign digit (8 or 0) and 20 bit magnitude, register two's complement
    Float,  // pair; image digit of sign and point code, 20 bit magnitude; register first byte the point code,
            // low 24 bits two's complement
    Word,   // one register, four digits
    Byte,   // one register, two digits in its low half
    ReadByte,  // the same, not to be written
    Remote,    // pair that can only be written: a value for the display or Item 3, which nothing reads back
};

struct Row {
    int Register;
    int Position;  // in the image
    Form Shape;

    int Size() const {
        return Shape == Form::Int24 || Shape == Form::Scale || Shape == Form::Float || Shape == Form::Remote
                   ? 2
                   : 1;
    }
};

constexpr int kToDisplay = 0x69, kToItem3 = 0x6B, kToBoth = 0x6D;

// clang-format off
constexpr Row kHolding[] = {
    {0x01,  55, Form::Int24},     // setpoint 1
    {0x03,  49, Form::Int24},     // setpoint 2
    {0x05, 223, Form::Int24},     // setpoint 3
    {0x07, 217, Form::Int24},     // setpoint 4
    {0x09,  43, Form::Scale},     // scale 1
    {0x0B,  37, Form::Int24},     // offset 1
    {0x0D,  31, Form::Scale},     // scale 2
    {0x0F,  25, Form::Int24},     // offset 2
    {0x11, 103, Form::Float},     // low in 1
    {0x13,  97, Form::Int24},     // low read 1
    {0x15,  91, Form::Float},     // high in 1
    {0x17,  85, Form::Int24},     // high read 1
    {0x19,  79, Form::Float},     // low in 2
    {0x1B,  73, Form::Int24},     // low read 2
    {0x1D,  67, Form::Float},     // high in 2
    {0x1F,  61, Form::Int24},     // high read 2
    {0x21,  19, Form::Int24},     // deviation 1
    {0x23,  13, Form::Int24},     // deviation 2
    {0x25, 211, Form::Int24},     // deviation 3
    {0x27, 205, Form::Int24},     // deviation 4
    {0x29,   7, Form::Int24},     // analog low
    {0x2B,   1, Form::Int24},     // analog high
    {0x2D, 255, Form::Int24},     // analog 2 low
    {0x2F, 249, Form::Int24},     // analog 2 high
    {0x31, 177, Form::Word},      // gate time
    {0x32, 173, Form::Word},      // time out
    {0x33, 161, Form::Word},      // pulses per revolution
    {0x34, 113, Form::Word}, {0x35, 117, Form::Word}, {0x36, 121, Form::Word},
    {0x37, 125, Form::Word}, {0x38, 129, Form::Word}, {0x39, 133, Form::Word},
    {0x3A, 145, Form::Word},      // cutoff
    {0x3B, 137, Form::Word},      // calibration
    {0x41, 203, Form::Byte}, {0x42, 201, Form::Byte}, {0x43, 231, Form::Byte}, {0x44, 229, Form::Byte},
    {0x45, 199, Form::Byte},      // mode and function, tells the input board
    {0x46, 197, Form::Byte}, {0x47, 195, Form::Byte},
    {0x48, 193, Form::Byte},      // option boards
    {0x49, 191, Form::Byte},      // baud
    {0x4A, 189, Form::Byte},      // Custom ASCII address
    {0x4B, 187, Form::Byte},
    {0x4C, 109, Form::Byte},      // protocol and parity
    {0x4D, 185, Form::Byte}, {0x4E, 183, Form::Byte}, {0x4F, 181, Form::Byte}, {0x50, 171, Form::Byte},
    {0x51, 169, Form::Byte}, {0x52, 167, Form::Byte}, {0x53, 165, Form::Byte}, {0x54, 159, Form::Byte},
    {0x55, 157, Form::Byte}, {0x56, 155, Form::Byte}, {0x57, 151, Form::Byte}, {0x58, 149, Form::Byte},
    {0x59, 247, Form::Byte}, {0x5A, 245, Form::Byte}, {0x5B, 243, Form::Byte}, {0x5C, 241, Form::Byte},
    {0x5D, 239, Form::Byte}, {0x5E, 237, Form::Byte},
    {0x5F, 111, Form::Byte},      // Modbus address
    {0x64, 143, Form::ReadByte},  // analog option
    {0x65, 235, Form::ReadByte},  // meter type
    {0x66, 233, Form::ReadByte},  // firmware version
    {kToDisplay, 0, Form::Remote},
    {kToItem3,   0, Form::Remote},
    {kToBoth,    0, Form::Remote},
};
// clang-format on

constexpr int kProtocolRegister = 0x4C;

struct InputRow {
    int Register;
    Reading Which;
};

constexpr InputRow kInput[] = {{0x03, Reading::Item1},
                               {0x05, Reading::Peak},
                               {0x07, Reading::Valley},
                               {0x09, Reading::Item2},
                               {0x0B, Reading::Item3}};

const Row* RowOf(int number) {
    const auto row = std::find_if(std::begin(kHolding), std::end(kHolding), [&](const Row& r) {
        return number >= r.Register && number < r.Register + r.Size();
    });
    return row == std::end(kHolding) ? nullptr : row;
}

std::uint32_t SignExtended(std::uint32_t low24) {
    return low24 & 0x800000 ? low24 | 0xFF000000 : low24;
}

// First digit's bit 3 is the sign, the other five digits the magnitude.
std::uint32_t TwosComplementOf(std::uint32_t digits) {
    const std::uint32_t magnitude = digits & 0xFFFFF;
    return digits & 0x800000 ? 0 - magnitude : magnitude;
}

std::uint32_t SignMagnitudeOf(std::uint32_t value) {
    return value & 0x800000 ? 0x800000 | ((0 - value) & 0xFFFFF) : value & 0xFFFFF;
}

// The value of a whole row: 32 bits for a pair.
std::uint32_t ReadRow(const Device& device, const Row& row) {
    const Memory& memory = device.Words();
    switch (row.Shape) {
        case Form::Int24:
            return SignExtended(memory.Number(row.Position, 6));
        case Form::Scale:
            return TwosComplementOf(memory.Number(row.Position, 6));
        case Form::Float: {
            const std::uint32_t digits = memory.Number(row.Position, 6);
            return (digits >> 20 & 7) << 24 | (TwosComplementOf(digits) & 0xFFFFFF);
        }
        case Form::Word:
            return memory.Number(row.Position, 4);
        case Form::Byte:
        case Form::ReadByte:
            return static_cast<std::uint32_t>(device.ToldByte(row.Position));
        case Form::Remote:
            return 0;
    }
    return 0;
}

void WriteRow(Device& device, const Row& row, std::uint32_t value) {
    Memory& memory = device.Words();
    switch (row.Shape) {
        case Form::Int24:
            memory.SetNumber(row.Position, 6, value);
            break;
        case Form::Scale:
            memory.SetNumber(row.Position, 6, SignMagnitudeOf(value));
            break;
        case Form::Float:
            memory.SetNumber(row.Position, 6, SignMagnitudeOf(value) | (value >> 24 & 7) << 20);
            break;
        case Form::Word:
            memory.SetNumber(row.Position, 4, value);
            break;
        case Form::Byte:
            memory.SetNumber(row.Position, 2, value);
            break;
        case Form::ReadByte:
            break;
        case Form::Remote: {
            const RemoteValue sent = device.RemoteValueOfCount(static_cast<int>(value));
            if (row.Register != kToItem3) device.ShowRemote(sent);
            if (row.Register != kToDisplay) device.SetRemoteItem3(sent);
            break;
        }
    }
}

std::uint16_t HalfOf(std::uint32_t value, const Row& row, int number) {
    const bool high = row.Size() == 2 && number == row.Register;
    return static_cast<std::uint16_t>(high ? value >> 16 : value);
}

}  // namespace

std::optional<RegisterValues> ReadHolding(const Device& device, int first, int count) {
    RegisterValues values;
    for (int number = first; number < first + count; ++number) {
        const Row* row = RowOf(number);
        if (!row || row->Shape == Form::Remote) return std::nullopt;
        values.push_back(HalfOf(ReadRow(device, *row), *row, number));
    }
    return values;
}

bool WriteHolding(Device& device, int first, const RegisterValues& values) {
    const int end = first + static_cast<int>(values.size());
    for (int number = first; number < end; ++number) {
        const Row* row = RowOf(number);
        if (!row || row->Shape == Form::ReadByte) return false;
    }
    for (int number = first; number < end;) {
        const Row& row = *RowOf(number);
        // Half a pair keeps its other half; a pair is written whole, since its two forms differ in the sign.
        std::uint32_t value = ReadRow(device, row);
        for (; number < std::min(end, row.Register + row.Size()); ++number) {
            const bool high = row.Size() == 2 && number == row.Register;
            const std::uint32_t half = values[static_cast<std::size_t>(number - first)];
            value = high ? half << 16 | (value & 0xFFFF) : (value & 0xFFFF0000) | half;
        }
        WriteRow(device, row, value);
    }
    if (first <= kProtocolRegister && kProtocolRegister < end) device.RequestLine();
    return true;
}

std::optional<RegisterValues> ReadInput(const Device& device, int first, int count) {
    RegisterValues values;
    for (int number = first; number < first + count; ++number) {
        const auto row = std::find_if(std::begin(kInput), std::end(kInput), [&](const InputRow& r) {
            return number == r.Register || number == r.Register + 1;
        });
        if (row == std::end(kInput)) return std::nullopt;
        const auto value = static_cast<std::uint32_t>(device.Value(row->Which));
        values.push_back(static_cast<std::uint16_t>(number == row->Register ? value >> 16 : value));
    }
    return values;
}

}  // namespace sim
