// Bringing the link up from Settings.SSS: line settings of each protocol, order of the port operations,
// refusals.
#include "link/read_settings.h"

#include <gtest/gtest.h>

#include "support/bench_meter.h"

namespace counter::test {
namespace {

using Words = std::vector<std::string>;

TEST(BringUp, LineSettingsOfEachProtocol) {
    const struct {
        const char* Name;
        Words Settings;
        const char* Line;
    } cases[] = {
        {"Custom ASCII", {"BaudIndex=5"}, "Settings 9600,n,8,1"},
        {"Custom ASCII has no parity", {"BaudIndex=0", "ParityIndex=2"}, "Settings 300,n,8,1"},
        {"RTU, even", {"SerialProtocol=1", "ParityIndex=2"}, "Settings 9600,e,8,1"},
        {"RTU, none", {"SerialProtocol=1", "BaudIndex=6"}, "Settings 19200,n,8,2"},
        {"Modbus ASCII, none", {"SerialProtocol=2"}, "Settings 9600,n,7,2"},
        {"Modbus ASCII, odd", {"SerialProtocol=2", "ParityIndex=1"}, "Settings 9600,o,7,1"},
    };
    for (const auto& c : cases) {
        BenchMeter bench({}, c.Settings);
        EXPECT_TRUE(bench.SwitchOn().Ok()) << c.Name;
        EXPECT_EQ(bench.Line.Calls(), (Words{"CommPort 1", c.Line, "Open", "DTR on"})) << c.Name;
        bench.SwitchOn();
        EXPECT_EQ(bench.Line.Calls()[4], "Close") << "an open port first";
    }
}

TEST(BringUp, CharacterTimeAlsoWithoutALink) {
    BenchMeter bench({}, {"CommsEnabled=0"});
    bench.Program.Identity.SetupFromMeter = 1;
    EXPECT_TRUE(bench.SwitchOn().Ok());
    EXPECT_TRUE(bench.Line.Calls().empty());
    EXPECT_FLOAT_EQ(bench.Program.LinkState.CharTimeMs, 1.1458334F);
    EXPECT_EQ(bench.Program.Identity.SetupFromMeter, 0);
}

TEST(BringUp, ANodeLeavesThePortAlone) {
    BenchMeter bench({}, {"NodeAddress=0080A3010203"});
    EXPECT_TRUE(bench.SwitchOn().Ok());
    EXPECT_TRUE(bench.Line.Calls().empty());
    EXPECT_EQ(bench.Program.LinkState.EthernetMode, 1);
    EXPECT_EQ(bench.Program.LinkState.CharTimeMs, 0);
}

TEST(BringUp, TheModbusCheckIsDecidedByTheVersionInTheFile) {
    for (const auto& [version, fixed] : {std::pair{"80", false}, {"81", true}}) {
        BenchMeter bench({}, {std::string("FirmwareVersion=") + version});
        bench.SwitchOn();
        EXPECT_EQ(bench.Program.LinkState.CrcTableFixed, fixed) << version;
    }
}

TEST(BringUp, MeterType7IsRememberedForEver) {
    BenchMeter bench({}, {"MeterType=7"});
    bench.SwitchOn();
    bench.Store.Contents["home/Settings.SSS"] = "3501000100100831010000\r\n2711000000000000F6CB00000000\r\n";
    bench.SwitchOn();
    EXPECT_EQ(bench.Program.Identity.MeterType, 3);
    EXPECT_EQ(bench.Program.Identity.NoPanelModel, 1);
}

TEST(BringUp, Refusals) {
    const std::string path = "home/Settings.SSS";
    const struct {
        const char *Line1, *Text;  // null: there is no file
    } cases[] = {
        // clang-format off
        {nullptr,                  "No such file or directory"},
        {"3901000100100831010000", "the baud digit, position 2 of line 1, is none of 0 to 6"},
        {"3501300100100831010000", "the protocol digit, position 5 of line 1, is none of 0 to 2"},
        {"3501190100100831010000", "the parity digit, position 6 of line 1, is none of 0 to 2"},
        // clang-format on
    };
    for (const auto& c : cases) {
        BenchMeter bench;
        bench.Store.Contents.clear();
        if (c.Line1) bench.Store.Contents[path] = std::string(c.Line1) + "\r\n\r\n";
        EXPECT_EQ(bench.SwitchOn().Text(), path + ": " + c.Text);
    }
    BenchMeter port;
    port.Line.NextOpen = {StatusKind::NotFound, "home/ports/com1", "No such file or directory"};
    EXPECT_EQ(port.SwitchOn().Text(), "home/ports/com1: No such file or directory");
    EXPECT_FALSE(port.Line.PortOpen());
}

TEST(BringUp, AnotherProgramsSettingsEndTheProcess) {
    BenchMeter bench({}, {"ProgramKind=8"});
    EXPECT_THROW(bench.SwitchOn(), ProcessEnded);
    ASSERT_EQ(bench.Boxes.Shown.size(), 1U);
    EXPECT_EQ(bench.Boxes.Shown[0].Title, "Program Error");
    EXPECT_EQ(bench.Boxes.Shown[0].Text, "Wrong Tolvane program for this meter.  Please terminate program.");
    EXPECT_TRUE(bench.Line.Calls().empty());
}

}  // namespace
}  // namespace counter::test
