#include "sim/modbus_frame.h"

#include <numeric>

#include "sim/hex.h"

namespace sim {

namespace {

std::string Body(const ModbusFrame& frame) {
    return static_cast<char>(frame.Address) + frame.Pdu;
}

ModbusFrame FrameOf(std::string_view body) {
    return {static_cast<unsigned char>(body[0]), std::string(body.substr(1))};
}

// What eight zero bits make of a CRC register that holds `low` in its low byte.
unsigned ShiftedOut(unsigned low) {
    constexpr unsigned kPolynomial = 0xA001;  // x^16 + x^15 + x^2 + 1, lowest bit first
    for (int bit = 0; bit < 8; ++bit) low = low & 1 ? low >> 1 ^ kPolynomial : low >> 1;
    return low;
}

}  // namespace

CrcTables::CrcTables(CrcKind kind) {
    for (unsigned i = 0; i < 256; ++i) {
        first_[i] = static_cast<std::uint8_t>(ShiftedOut(i));
        second_[i] = static_cast<std::uint8_t>(ShiftedOut(i) >> 8);
    }
    // Required: firmware up to version 80 has this one entry wrong (0xC1 is right), and frames that pass it
    // carry the check bytes that follow from it.
    if (kind == CrcKind::C2) first_[233] = 0xC2;
}

std::string CrcTables::CheckOf(std::string_view bytes) const {
    std::uint8_t a = 0xFF, b = 0xFF;
    for (char byte : bytes) {
        const std::uint8_t index = static_cast<std::uint8_t>(byte) ^ a;
        a = first_[index] ^ b;
        b = second_[index];
    }
    return {static_cast<char>(a), static_cast<char>(b)};
}

int LrcOf(std::string_view bytes) {
    const int sum = std::accumulate(bytes.begin(), bytes.end(), 0,
                                    [](int s, char byte) { return s + static_cast<unsigned char>(byte); });
    return -sum & 0xFF;
}

std::string RtuFrame(const ModbusFrame& frame, const CrcTables& crc) {
    const std::string body = Body(frame);
    return body + crc.CheckOf(body);
}

std::optional<ModbusFrame> ParseRtu(std::string_view bytes, const CrcTables& crc) {
    if (bytes.size() < 4) return std::nullopt;
    const std::string_view body = bytes.substr(0, bytes.size() - 2);
    if (crc.CheckOf(body) != bytes.substr(body.size())) return std::nullopt;
    return FrameOf(body);
}

std::string ModbusAsciiFrame(const ModbusFrame& frame) {
    const std::string body = Body(frame);
    return ":" + HexOfBytes(body) + HexOf(static_cast<std::uint32_t>(LrcOf(body)), 2) + "\r\n";
}

std::optional<ModbusFrame> ParseModbusAscii(std::string_view digits) {
    const auto bytes = BytesOfHex(digits);
    // The true LRC brings the sum of all bytes, itself included, to a multiple of 256.
    if (!bytes || bytes->size() < 3 || LrcOf(*bytes) != 0) return std::nullopt;
    return FrameOf(std::string_view(*bytes).substr(0, bytes->size() - 1));
}

}  // namespace sim
