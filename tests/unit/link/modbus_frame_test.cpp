// Modbus frames byte for byte, with both CRC tables and the meter's own rule for the LRC.
#include "link/modbus_frame.h"

#include <gtest/gtest.h>

#include "meter/hex_text.h"

namespace counter {
namespace {

TEST(Rtu, FramesAreExact) {
    const struct {
        const char *Name, *Digits;
        bool FixedTable;
        const char* Frame;
    } cases[] = {
        {"echo", "010800010000", true, "010800010000B1CB"},
        {"echo, old table", "010800010000", false, "010800010000B1CB"},
        {"through entry 233", "050400070002", true, "050400070002C18E"},
        {"through entry 233, old", "050400070002", false, "050400070002C28E"},
        {"read of 16 registers", "010300010010", true, "01030001001015C6"},
        {"nothing", "", true, "FFFF"},
    };
    for (const auto& c : cases) EXPECT_EQ(HexOfText(FrameRtu(c.Digits, c.FixedTable)), c.Frame) << c.Name;
}

TEST(ModbusAscii, FramesAreExact) {
    EXPECT_EQ(FrameModbusAscii("010800010000"), ":010800010000F6\r\n");
    EXPECT_EQ(FrameModbusAscii("01FF"), ":01FFG0\r\n") << "a sum of 256 gives 256, not 0";
    EXPECT_EQ(FrameModbusAscii("FF"), ":FF01\r\n");
}

TEST(Rtu, RepliesAreJudged) {
    const struct {
        const char *Name, *Bytes;
        bool FixedTable;
        int LinkError;
    } cases[] = {
        {"good", "010800010000B1CB", true, 0},
        {"one bit wrong", "010800010001B1CB", true, 24},
        {"old table, new meter", "050400070002C18E", false, 24},
        {"old table, old meter", "050400070002C28E", false, 0},
        {"exception 2", "018302C0F1", true, 2},
        {"exception 0x1B shows its low digit", "01831B013B", true, 11},
        {"nothing", "", true, 24},
        {"one byte", "01", true, 24},
        {"only a check of nothing", "FFFF", true, 0},
    };
    for (const auto& c : cases) {
        LinkState link;
        link.CrcTableFixed = c.FixedTable;
        JudgeRtu(link, TextOfHex(c.Bytes));
        EXPECT_EQ(link.LinkError, c.LinkError) << c.Name;
        EXPECT_EQ(link.ReplyText, c.Bytes) << c.Name;
    }
}

TEST(ModbusAscii, RepliesAreJudged) {
    const struct {
        const char *Name, *Text;
        int LinkError;
        const char* ReplyText;
    } cases[] = {
        {"good", ":010800010000F6\r\n", 0, "010800010000F6  "},
        {"line end is cut by place", ":010800010000F6x\n", 0, "010800010000F6  "},
        {"more behind it", ":010800010000F6\r\n:01", 0, "010800010000F6  "},
        {"wrong check", ":010800010000F7\r\n", 26, "010800010000F7  "},
        {"true check of a sum of 256", ":01FF00\r\n", 26, "01FF00  "},
        {"no line feed", ":010800010000F6\r", 25, ""},
        {"only a line feed", "\n", 26, "  "},
        {"only a line end", "\r\n", 26, "  "},
    };
    for (const auto& c : cases) {
        LinkState link;
        JudgeModbusAscii(link, c.Text);
        EXPECT_EQ(link.LinkError, c.LinkError) << c.Name;
        EXPECT_EQ(link.ReplyText, c.ReplyText) << c.Name;
    }
}

}  // namespace
}  // namespace counter
