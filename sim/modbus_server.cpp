#include "sim/modbus_server.h"

#include "sim/hex.h"
#include "sim/register_map.h"

namespace sim {

namespace {

constexpr int kNoFunction = 1, kNoAddress = 2, kBadValue = 3;
// What one frame of 256 bytes can carry.
constexpr int kMostRead = 125, kMostWritten = 123;

std::string ReadReply(char function, const RegisterValues& values) {
    std::string reply = {function, static_cast<char>(2 * values.size())};
    for (std::uint16_t value : values) {
        reply += static_cast<char>(value >> 8);
        reply += static_cast<char>(value);
    }
    return reply;
}

std::string Read(const Device& device, std::string_view request) {
    if (request.size() != 5) return ExceptionPdu(request, kBadValue);
    const int first = WordAt(request, 1), count = WordAt(request, 3);
    if (count < 1 || count > kMostRead) return ExceptionPdu(request, kBadValue);
    const auto values = request[0] == 3 ? ReadHolding(device, first, count) : ReadInput(device, first, count);
    return values ? ReadReply(request[0], *values) : ExceptionPdu(request, kNoAddress);
}

std::string WriteCoil(Device& device, std::string_view request) {
    if (request.size() != 5) return ExceptionPdu(request, kBadValue);
    const int coil = WordAt(request, 1), value = WordAt(request, 3);
    if (coil < 1 || coil > 6) return ExceptionPdu(request, kNoAddress);
    if (value != 0xFF00 && value != 0) return ExceptionPdu(request, kBadValue);
    if (value != 0) device.Reset(coil);
    return std::string(request);
}

std::string WriteOne(Device& device, std::string_view request) {
    if (request.size() != 5) return ExceptionPdu(request, kBadValue);
    const auto value = static_cast<std::uint16_t>(WordAt(request, 3));
    if (!WriteHolding(device, WordAt(request, 1), {value})) return ExceptionPdu(request, kNoAddress);
    return std::string(request);
}

std::string WriteMany(Device& device, std::string_view request) {
    if (request.size() < 6) return ExceptionPdu(request, kBadValue);
    const int count = WordAt(request, 3), bytes = static_cast<unsigned char>(request[5]);
    const bool whole = bytes == 2 * count && request.size() == 6 + static_cast<std::size_t>(bytes);
    if (count < 1 || count > kMostWritten || !whole) return ExceptionPdu(request, kBadValue);
    RegisterValues values;
    for (std::size_t offset = 6; offset < request.size(); offset += 2)
        values.push_back(static_cast<std::uint16_t>(WordAt(request, offset)));
    if (!WriteHolding(device, WordAt(request, 1), values)) return ExceptionPdu(request, kNoAddress);
    return std::string(request.substr(0, 5));
}

// Subfunctions 0 and 1 give the request back.
std::string Diagnose(std::string_view request) {
    if (request.size() < 5) return ExceptionPdu(request, kBadValue);
    if (WordAt(request, 1) > 1) return ExceptionPdu(request, kNoFunction);
    return std::string(request);
}

}  // namespace

std::string ExceptionPdu(std::string_view request, int code) {
    return {static_cast<char>(request[0] | 0x80), static_cast<char>(code)};
}

std::string AnswerModbus(Device& device, std::string_view request, double nowMs) {
    device.Follow(nowMs);
    switch (request[0]) {
        case 3:
        case 4:
            return Read(device, request);
        case 5:
            return WriteCoil(device, request);
        case 6:
            return WriteOne(device, request);
        case 8:
            return Diagnose(request);
        case 16:
            return WriteMany(device, request);
        default:
            return ExceptionPdu(request, kNoFunction);
    }
}

}  // namespace sim
