#include "sim/device.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

MeterOptions With(int position, const char* digits) {
    MeterOptions options;
    options.Patches = {{position, digits}};
    return options;
}

TEST(Device, BoardsFollowTheImageUnlessTheyAreGiven) {
    MeterOptions given;
    given.InputBoard = 2;
    given.CommBoard = 2;
    given.RelayBoard = 3;
    given.AnalogBoard = 4;
    given.Extended = false;
    MeterOptions sameBoard;
    sameBoard.InputBoard = 1;
    MeterOptions live = With(193, "29");
    live.LiveBytes[0x2B] = 0;
    const struct {
        const char* Name;
        MeterOptions Options;
        int Option, Relay, Board, Extended, Analog;  // bytes 30, 2B, 2D, 28 and the analog option
    } kCases[] = {
        // clang-format off
        {"default",                     {},               0x49, 4, 0x00, 0x80, 2},
        {"all given",                   given,            0x74, 0, 0x80, 0x00, 4},
        {"Mode 0 on the given board",   sameBoard,        0x49, 4, 0x00, 0x80, 2},
        {"Basic meter",                 With(185, "00"),  0x49, 4, 0x00, 0x00, 2},
        {"custom curve 1",              With(185, "08"),  0x49, 4, 0x00, 0x80, 2},
        {"relay code 3",                With(193, "E9"),  0xE9, 0, 0x00, 0x80, 2},
        {"byte set by hand",            live,             0x29, 0, 0x00, 0x80, 2},
        // clang-format on
    };
    for (const auto& c : kCases) {
        const Device device(c.Options);
        EXPECT_EQ(device.LiveByte(0x30), c.Option) << c.Name;
        EXPECT_EQ(device.LiveByte(0x2B), c.Relay) << c.Name;
        EXPECT_EQ(device.LiveByte(0x2D), c.Board) << c.Name;
        EXPECT_EQ(device.LiveByte(0x28), c.Extended) << c.Name;
        EXPECT_EQ(device.AnalogOption(), c.Analog) << c.Name;
        EXPECT_EQ(device.ToldByte(193), c.Option) << c.Name;
    }
}

TEST(Device, LineSettingsOfTheImage) {
    MeterOptions options;
    options.Patches = {{109, "06"}, {111, "F7"}, {189, "3F"}, {191, "A0"}};
    const LineSettings line = LineSettingsOf(Device(options).Words());
    EXPECT_EQ(line, (LineSettings{LineProtocol::ModbusRtu, 2, 1200, 2, 31, 247}));
    EXPECT_EQ(LineSettingsOf(Device({}).Words()),
              (LineSettings{LineProtocol::CustomAscii, 5, 9600, 0, 1, 1}));
    EXPECT_EQ(LineSettingsOf(Device(With(191, "70")).Words()).Baud, 9600) << "index 7 is no rate";
}

TEST(Device, ReadingsMoveAndKeepTheirExtremes) {
    Device device{MeterOptions{}};
    EXPECT_EQ(device.ValueLines('1', 0), " 010000.");
    EXPECT_EQ(device.ValueLines('1', 2500), " 010500.");
    EXPECT_EQ(device.ValueLines('1', 12500), " 011500.") << "on its way down";
    EXPECT_EQ(device.ValueLines('4', 0), " 011500.");
    EXPECT_EQ(device.ValueLines('6', 5000), " 010000.");
    device.Reset(4);
    device.Reset(5);
    EXPECT_EQ(device.ValueLines('7', 5000), " 011000. 004500. 000000. 011000. 011000.");
    EXPECT_EQ(device.ValueLines('0', 0), " 010000. 005000.-000100.");
    EXPECT_EQ(device.ValueLines('8', 0), "");
}

TEST(Device, ValuesFollowTheSetup) {
    MeterOptions options;
    options.Patches = {{151, "63"}, {157, "02"}, {187, "09"}, {189, "A1"}};  // points 6 and 3, CR of each, LF
    Device device(options);
    EXPECT_EQ(device.ValueLines('0', 0), " 0100.00\r\n 0.05000\r\n-0.00100");
    EXPECT_EQ(device.ValueLines('5', 0), " 0.05000") << "the displayed Item is 2";
    EXPECT_EQ(device.LineEnd(), "\r\n");
    EXPECT_EQ(ValueText(-1234567, 0), "-234567.");
}

}  // namespace
}  // namespace sim
