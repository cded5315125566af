#include "sim/modbus_frame.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

TEST(ModbusFrame, CrcInBothStatesOfTheTable) {
    static constexpr struct {
        const char *Name, *Body, *Published, *C2;
    } kCases[] = {
        // clang-format off
        {"diagnostics, same in both",      "010800010000", "B1CB", "B1CB"},
        {"passes entry 233 at its end",    "050400070002", "C18E", "C28E"},
        {"the customary check string",     "313233343536373839", "374B", "374B"},
        {"nothing",                        "",             "FFFF", "FFFF"},
        // clang-format on
    };
    for (const auto& c : kCases) {
        EXPECT_EQ(HexOfBytes(CrcTables(CrcKind::Published).CheckOf(Bytes(c.Body))), c.Published) << c.Name;
        EXPECT_EQ(HexOfBytes(CrcTables(CrcKind::C2).CheckOf(Bytes(c.Body))), c.C2) << c.Name;
    }
}

TEST(ModbusFrame, RtuNeedsBothCheckBytesInTheirOrder) {
    const CrcTables crc(CrcKind::Published);
    EXPECT_EQ(HexOfBytes(ParseRtu(Bytes("010800010000B1CB"), crc).value().Pdu), "0800010000");
    for (const char* bad : {"010800010000CBB1", "010800010001B1CB", "FFFF", "050400070002C28E"})
        EXPECT_FALSE(ParseRtu(Bytes(bad), crc)) << bad;
}

TEST(ModbusFrame, AsciiCarriesTheTrueLrc) {
    EXPECT_EQ(ModbusAsciiFrame({1, Bytes("0800010006F0")}), ":010800010006F000\r\n") << "sum 256 gives 00";
    for (const char* bad : {"01080001000F6", "01FF", "", "010800010006F0G0"})
        EXPECT_FALSE(ParseModbusAscii(bad)) << bad;
}

}  // namespace
}  // namespace sim
