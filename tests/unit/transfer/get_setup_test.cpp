// Get Setup against the simulated meter: which frames go out, what they cost, what each failure
// leaves.
#include <gtest/gtest.h>

#include "meter/default_setup.h"
#include "shell/get_action.h"
#include "support/bench_meter.h"
#include "support/meter_kinds.h"

namespace counter::test {
namespace {

using Words = std::vector<std::string>;

// The default setup as a meter of `version` gives it over Custom ASCII.
sim::MeterOptions AsciiOf(int version) {
    return MeterOf(kLinkKinds[0], version);
}

Words AsciiFrames(const Words& bodies) {
    Words frames = {"|**|\r\n"};
    for (const std::string& body : bodies) frames.push_back("*1" + body + "\r\n");
    return frames;
}

struct GetBench : BenchMeter {
    explicit GetBench(sim::MeterOptions options = {}, const Words& settings = {})
        : BenchMeter(std::move(options), settings) {
        SwitchOn();
    }
    int Get() {
        TookMs = Pump.Took([this] { GetSetup(Program); });
        return Program.LinkState.LinkError;
    }
    double TookMs = 0;
};

TEST(GetAscii, BringsTheWholeImage) {
    GetBench bench;
    EXPECT_EQ(bench.Get(), 0);
    EXPECT_EQ(bench.Program.Image.SetupData, bench.Line.Meter().ImageText());
    EXPECT_EQ(bench.Line.Sent(), AsciiFrames({"XR1AZ", "XR35Z", "XB74Z", "G130", "G128", "C0"}));
    EXPECT_EQ(bench.Program.Identity.FirmwareVersion, 83);
    EXPECT_EQ(bench.Program.Identity.MeterType, 3);
    EXPECT_EQ(bench.Program.Identity.SetupFromMeter, 1);
    EXPECT_EQ(bench.Program.Derived.ExtendedMeter, 1);
    EXPECT_EQ(bench.Program.Home.StatusText, "Getting data from the Counter.  Data received OK.");
    EXPECT_TRUE(bench.Program.Home.PutEnabled && bench.Program.Home.CalibrationEnabled);
    EXPECT_TRUE(bench.Boxes.Shown.empty());
}

// A meter of version 78 tells code 3 as code 1, and by bit 2 of byte 2B which of them it is.
TEST(GetAscii, CommandsAndRelaysFollowTheVersion) {
    const struct {
        const char* Name;
        int Version, RelayCode;
        Words Frames;  // after the three blocks
        int Relays;    // of the image, as a code
    } cases[] = {
        {"78, four relays", 78, 1, {"G130", "G12B", "G128", "C0"}, 1},
        {"78, raw 3", 78, 3, {"G130", "G12B", "G128", "C0"}, 3},
        {"78, two relays", 78, 2, {"G130", "G128", "C0"}, 2},
        {"78, no relays", 78, 0, {"G130", "G128", "C0"}, 0},
        {"77", 77, 1, {"G130", "G128", "C0"}, 1},
        {"75", 75, 1, {"G130", "G128", "R141", "C0"}, 1},
        {"74", 74, 1, {"G130", "G128", "R141", "C0"}, 1},
        {"73", 73, 1, {"G130", "G128", "C0"}, 1},
    };
    for (const auto& c : cases) {
        sim::MeterOptions options = AsciiOf(c.Version);
        options.RelayBoard = c.RelayCode;
        GetBench bench(options);
        EXPECT_EQ(bench.Get(), 0) << c.Name;
        Words frames = {"XR1AZ", "XR35Z", "XB74Z"};
        frames.insert(frames.end(), c.Frames.begin(), c.Frames.end());
        EXPECT_EQ(bench.Line.Sent(), AsciiFrames(frames)) << c.Name;
        EXPECT_EQ(BitsGet(bench.Program.Image, 6, 5, 193), c.Relays) << c.Name;
    }
}

TEST(GetAscii, LiveBytesGoOverTheImage) {
    sim::MeterOptions options = AsciiOf(75);
    options.InputBoard = 2;
    options.AnalogBoard = 3;
    options.Extended = false;
    options.LiveBytes[0x30] = 0x2C;
    GetBench bench(options);
    EXPECT_EQ(bench.Get(), 0);
    EXPECT_EQ(ByteGet(bench.Program.Image, 193), 0x2C);
    EXPECT_EQ(ByteGet(bench.Program.Image, 143), 3);
    EXPECT_EQ(BitsGet(bench.Program.Image, 3, 2, 185), 0) << "a Basic meter has no curve";
    EXPECT_EQ(bench.Program.Derived.ExtendedMeter, 0);
}

TEST(GetAscii, Version78TellsTwoRelaysByBit2OfByte2B) {
    const struct {
        const char* Fault;
        int Byte2B, Expected;
    } cases[] = {
        {"none:noreply", 0x00, 0x69},
        {"none:noreply", 0x04, 0x29},
        {"none:noreply", 0xFB, 0x69},
        {"G12B:noreply", 0x04, 0x69},  // taken from the reply before, 29, whose bit 2 is 0
    };
    for (const auto& c : cases) {
        sim::MeterOptions options = WithFaults(AsciiOf(78), {c.Fault});
        options.LiveBytes = {{0x30, 0x29}, {0x2B, c.Byte2B}};
        GetBench bench(options);
        bench.Program.LinkState.PortFault = 1;  // of an exchange before
        EXPECT_EQ(bench.Get(), 0);
        EXPECT_EQ(ByteGet(bench.Program.Image, 193), c.Expected) << c.Fault << " " << c.Byte2B;
    }
}

TEST(GetAscii, AMeterWithoutInputBoardIsARemoteDisplay) {
    const struct {
        const char *Name, *Byte185;
        int Option;
        const char* Expected;
        std::size_t Notes;
    } cases[] = {
        {"type 0 becomes Remote A", "04", 0x48, "64", 1},
        {"type 7 stays", "74", 0x48, "74", 0},
        {"with a board it stays", "04", 0x49, "04", 0},
        {"Remote A with a board has its note too", "64", 0x49, "64", 1},
    };
    for (const auto& c : cases) {
        sim::MeterOptions options;
        options.Patches = {{185, c.Byte185}};
        options.LiveBytes[0x30] = c.Option;
        GetBench bench(options);
        EXPECT_EQ(bench.Get(), 0) << c.Name;
        EXPECT_EQ(bench.Program.Image.SetupData.substr(184, 2), c.Expected) << c.Name;
        EXPECT_EQ(bench.Boxes.Shown.size(), c.Notes) << c.Name;
    }
}

TEST(GetAscii, OldMetersGetTimeAfterEachBlock) {
    GetBench now({}, {"FirmwareVersion=46"});
    EXPECT_EQ(now.Get(), 0);
    GetBench old({}, {"FirmwareVersion=45", "LongWakeUp=1"});
    EXPECT_EQ(old.Get(), 0);
    EXPECT_EQ(old.Line.Sent()[0], "|************|\r\n");
    EXPECT_NEAR(old.TookMs - now.TookMs, 3 * 2500, 0.01);
}

TEST(GetAscii, NoPanelModelsBefore76AreHalfDuplex) {
    for (const auto& [version, expected] : {std::pair{"75", 1}, {"76", 0}}) {
        GetBench bench({}, {"MeterType=7", std::string("FirmwareVersion=") + version});
        EXPECT_EQ(bench.Get(), 0);
        EXPECT_EQ(BitsGet(bench.Program.Image, 7, 7, 187), expected) << version;
    }
}

// The table of faults tells the number for every frame.
TEST(GetAscii, AFailureLeavesWhatHadCome) {
    const std::size_t whole = 260;
    const struct {
        const char* Fault;
        int Version, LinkError;
        std::size_t Digits;
    } cases[] = {
        {"XR1A:cut=10", 83, 23, whole},
        {"XR35:noreply", 83, 21, 108},
        {"XB74:garbage", 83, 23, 204},
        {"R141:noreply", 75, 21, whole},
    };
    for (const auto& c : cases) {
        GetBench bench(WithFaults(AsciiOf(c.Version), {c.Fault}));
        EXPECT_EQ(bench.Get(), c.LinkError) << c.Fault;
        EXPECT_EQ(bench.Program.Image.SetupData.size(), c.Digits) << c.Fault;
        EXPECT_EQ(bench.Program.Identity.SetupFromMeter, 0) << c.Fault;
        EXPECT_FALSE(bench.Program.Home.PutEnabled) << c.Fault;
        EXPECT_EQ(bench.Program.Home.StatusText,
                  "Failed to Get data, check connections, then try again.      ( " +
                      std::to_string(c.LinkError) + ")");
    }
}

// A meter that answers with one length too many or too few: the far end is played by the test.
TEST(GetAscii, WrongLengthsHaveTheNumberOfTheirStep) {
    const std::string block(108, '0');
    const struct {
        const char* Name;
        Words Replies;
        int LinkError;
    } cases[] = {
        {"first block", {std::string(106, '0')}, 1},
        {"second block", {block, std::string(110, '0')}, 4},
        {"third block", {block, block, std::string(42, '0')}, 7},
        {"option boards", {block, block, std::string(44, '0'), "0000"}, 8},
        {"Extended", {block, block, std::string(44, '0'), "00", ""}, 10},
        {"109 digits pass as 108", {block + "7", block, std::string(44, '0'), "00", "0000"}, 10},
    };
    for (const auto& c : cases) {
        GetBench bench;
        bench.Line.Unplug();
        double at = 5 + 300 + 300 + 310;
        for (const std::string& reply : c.Replies) {
            bench.Line.InjectAfter(at, reply + "\r");
            at += 310 + 200 + 61.46;
            if (reply == "00") at += 200;
        }
        EXPECT_EQ(bench.Get(), c.LinkError) << c.Name;
    }
}

TEST(GetModbus, BringsTheImageAndTheServiceFile) {
    for (const LinkKind& kind : {kRtu, kModbusAscii}) {
        sim::MeterOptions options = MeterOf(kind);
        options.Patches = {{31, "8186A0"}, {43, "800001"}, {103, "E1E240"}, {67, "11E240"},
                           {79, "902710"}, {49, "FFD8F0"}, {191, "61"}};
        GetBench bench(options, {kind.Setting, "FirmwareVersion=83", "BaudIndex=6"});
        EXPECT_EQ(bench.Get(), 0) << kind.Name;
        std::string expected = bench.Line.Meter().ImageText();
        // Three bytes are in no register range.
        expected.replace(140, 2, "00");
        expected.replace(152, 2, "00");
        EXPECT_EQ(bench.Program.Image.SetupData, expected) << kind.Name;
        EXPECT_EQ(bench.Program.Identity.SetupFromMeter, 1);
        std::string service = expected;
        service.replace(190, 2, "00");
        EXPECT_EQ(bench.Store.Contents["home/DataFil2"], service + "\r\n") << kind.Name;
    }
}

TEST(GetModbus, OldMetersHaveTheirOwnCheckAndNoAnalogByte) {
    sim::MeterOptions options = MeterOf(kRtu);
    options.Crc = sim::CrcKind::C2;
    options.AnalogBoard = 2;
    for (const auto& [version, analog] : {std::pair{"75", 0}, {"76", 2}}) {
        GetBench bench(options, {"SerialProtocol=1", std::string("FirmwareVersion=") + version});
        EXPECT_EQ(bench.Get(), 0) << version;
        EXPECT_EQ(ByteGet(bench.Program.Image, 143), analog) << version;
        EXPECT_EQ(bench.Program.Identity.FirmwareVersion, std::stoi(version)) << "the settings' stays";
    }
}

TEST(GetModbus, FailuresStopWhereTheyAre) {
    for (const LinkKind& kind : {kRtu, kModbusAscii}) {
        GetBench bench(WithFaults(MeterOf(kind), {"030025:exception=2"}), {kind.Setting});
        EXPECT_EQ(bench.Get(), kind.Protocol == kRtu.Protocol ? 2 : 7) << kind.Name;
        EXPECT_EQ(bench.Line.Sent().size(), 4U) << kind.Name;
        EXPECT_EQ(bench.Program.Image.SetupData.size(), 260U);
        EXPECT_EQ(bench.Store.Contents.count("home/DataFil2"), 0U) << "only a good Get leaves it";
    }
}

}  // namespace
}  // namespace counter::test
