#include "sim/device.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

TEST(Device, BoardsFollowTheImageUnlessTheyAreGiven) {
    MeterOptions given;
    given.InputBoard = 2;
    given.CommBoard = 2;
    given.RelayBoard = 3;
    given.AnalogBoard = 4;
    given.Extended = false;
    MeterOptions sameBoard;
    sameBoard.InputBoard = 1;
    MeterOptions live = Patched({{193, "29"}});
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
        {"Basic meter",                 Patched({{185, "00"}}),  0x49, 4, 0x00, 0x00, 2},
        {"custom curve 1",              Patched({{185, "08"}}),  0x49, 4, 0x00, 0x80, 2},
        {"relay code 3",                Patched({{193, "E9"}}),  0xE9, 0, 0x00, 0x80, 2},
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
    EXPECT_EQ(LineSettingsOf(Device(Patched({{191, "70"}})).Words()).Baud, 9600) << "index 7 is no rate";
}

TEST(Device, ReadingsMoveAndKeepTheirExtremes) {
    Device device{MeterOptions{}};
    device.Follow(0);
    EXPECT_EQ(device.ValueLines('1'), " 010000.");
    device.Follow(2549);
    EXPECT_EQ(device.ValueLines('1'), " 010500.") << "a reading each 50 ms";
    device.Follow(12500);
    EXPECT_EQ(device.ValueLines('1'), " 011500.") << "on its way down";
    EXPECT_EQ(device.ValueLines('4'), " 012000.") << "nobody asked at the peak";
    EXPECT_EQ(device.ValueLines('6'), " 010000.");
    EXPECT_EQ(device.ValueLines('7'), " 011500. 004250. 012000. 010000.");
    EXPECT_EQ(device.ValueLines('3'), " 000050.") << "told though no Mode has it";
    EXPECT_EQ(device.ValueLines('8'), "");
}

TEST(Device, ResetsActOnWhatTheyName) {
    static constexpr struct {
        const char* Name;
        int Coil;
        const char* Values;  // Item 1 and 2, peak and valley after the next reading
        bool Alarm, Remote, Transmitting;
    } kCases[] = {
        // clang-format off
        {"none",            7, " 010510. 004745. 012000. 010000.", true,  true,  true},
        {"meter",           1, " 010000. 005000. 010000. 010000.", false, false, false},
        {"function",        2, " 010000. 005000. 012000. 010000.", true,  true,  true},
        {"latched alarms",  3, " 010510. 004745. 012000. 010000.", false, true,  true},
        {"peak",            4, " 010510. 004745. 010510. 010000.", true,  true,  true},
        {"valley",          5, " 010510. 004745. 012000. 010510.", true,  true,  true},
        {"remote display",  6, " 010510. 004745. 012000. 010000.", true,  false, true},
        // clang-format on
    };
    for (const auto& c : kCases) {
        Device device(Patched({{55, "002EE0"}, {203, "10"}}));  // alarm 1 at 12000, latching
        device.Follow(0);
        device.Follow(22500);
        device.ShowRemote({});
        device.Transmit(true);
        device.Reset(c.Coil);
        device.Follow(22550);
        EXPECT_EQ(device.ValueLines('7'), c.Values) << c.Name;
        EXPECT_EQ(device.AlarmsOn()[0], c.Alarm) << c.Name;
        EXPECT_EQ(device.RemoteShown().has_value(), c.Remote) << c.Name;
        EXPECT_EQ(device.Transmitting(), c.Transmitting) << c.Name;
        EXPECT_EQ(device.TakeLineRequest(), c.Coil == 1) << c.Name;
    }
}

TEST(Device, ValueLinesFollowTheSetup) {
    static constexpr struct {
        const char *Name, *ModeFunction, *Flags;  // bytes 199 and 187
        char Which;
        const char* Lines;  // points are codes 3 for the first and 6 for the second
    } kCases[] = {
        // clang-format off
        {"two Items",                 "00", "01", '0', " 0100.00 0.05000"},
        {"one",                       "01", "01", '0', " 0100.00"},
        {"a combination",             "0B", "01", '0', " 0.10000 0050.00-0001.00"},
        {"burst",                     "26", "01", '0', " 0.10000 0050.00"},
        {"batch",                     "02", "01", '0', " 0100.00 005000.-0.00100"},
        {"extremes behind one Item",  "71", "01", '7', " 0100.00 0100.00 0100.00"},
        {"displayed Item is 2",       "00", "01", '5', " 0.05000"},
        {"an end to each: the first", "00", "09", '0', " 0100.00"},
        {"an end to each",            "00", "09", '7', " 0100.00\r\n 0.05000\r\n 0100.00\r\n 0100.00"},
        // clang-format on
    };
    for (const auto& c : kCases) {
        Device device(
            Patched({{151, "63"}, {157, "02"}, {187, c.Flags}, {189, "A1"}, {199, c.ModeFunction}}));
        device.Follow(0);
        EXPECT_EQ(device.ValueLines(c.Which), c.Lines) << c.Name;
    }
    EXPECT_EQ(ValueText(-1234567, 0), "-234567.");
}

}  // namespace
}  // namespace sim
