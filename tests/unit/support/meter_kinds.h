// Short ways to say which meter a test means.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sim/options.h"

namespace counter::test {

struct LinkKind {
    const char *Name, *Setting;
    sim::LineProtocol Protocol;
};
inline constexpr LinkKind kLinkKinds[] = {
    {"Custom ASCII", "SerialProtocol=0", sim::LineProtocol::CustomAscii},
    {"Modbus RTU", "SerialProtocol=1", sim::LineProtocol::ModbusRtu},
    {"Modbus ASCII", "SerialProtocol=2", sim::LineProtocol::ModbusAscii},
};
inline constexpr LinkKind kRtu = kLinkKinds[1];
inline constexpr LinkKind kModbusAscii = kLinkKinds[2];

// A meter of this firmware version with this protocol; older ones have the check of their generation.
inline sim::MeterOptions MeterOf(const LinkKind& kind, int version = 83) {
    sim::MeterOptions options;
    options.Protocol = kind.Protocol;
    options.Version = version;
    options.Crc = version > 80 ? sim::CrcKind::Published : sim::CrcKind::C2;
    return options;
}

inline sim::MeterOptions WithFaults(sim::MeterOptions options, const std::vector<std::string>& texts) {
    for (const std::string& text : texts)
        EXPECT_EQ(sim::ParseFault(text, options.Faults.emplace_back()), "") << text;
    return options;
}

}  // namespace counter::test
