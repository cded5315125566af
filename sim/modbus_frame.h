// Modbus framing and checks, both kinds.
//
//     RTU      address, function and data, CRC low, CRC high; a silence ends the frame
//     ASCII    ":", the same bytes and the LRC as hexadecimal digits, CR LF
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "sim/options.h"

namespace sim {

struct ModbusFrame {
    int Address = 0;  // 0..255, 0 is everybody
    std::string Pdu;  // function and data, bytes
};

// The CRC by two byte tables, which are worked out from the polynomial at start.
class CrcTables {
  public:
    explicit CrcTables(CrcKind kind);
    // The two check bytes in the order in which they go out.
    std::string CheckOf(std::string_view bytes) const;

  private:
    std::array<std::uint8_t, 256> first_{}, second_{};
};

// The two's complement of the sum of the bytes, 0..255.
int LrcOf(std::string_view bytes);

std::string RtuFrame(const ModbusFrame& frame, const CrcTables& crc);
// Nothing when the frame is shorter than 4 bytes or its CRC is wrong.
std::optional<ModbusFrame> ParseRtu(std::string_view bytes, const CrcTables& crc);

std::string ModbusAsciiFrame(const ModbusFrame& frame);
// `digits` is what is between colon and CR. Nothing when it is too short, no upper-case hexadecimal text
// or its LRC is wrong.
std::optional<ModbusFrame> ParseModbusAscii(std::string_view digits);

}  // namespace sim
