// Put Setup against the simulated meter: frames byte for byte, what the link does afterwards.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <sstream>
#include <utility>

#include "meter/default_setup.h"
#include "meter/hex_text.h"
#include "shell/get_action.h"
#include "shell/put_action.h"
#include "support/bench_meter.h"
#include "support/meter_kinds.h"
#include "transfer/compare_setups.h"
#include "transfer/put_setup.h"

namespace counter::test {
namespace {

using Words = std::vector<std::string>;

// The default image, set to the protocol that the meter speaks already.
struct PutBench : BenchMeter {
    explicit PutBench(const sim::MeterOptions& options = {}, const Words& settings = {})
        : BenchMeter(options, settings) {
        SwitchOn();
        BuildDefaultSetup(Program.Image);
        BitsPut(Program.Image, 3, 2, 109,
                static_cast<int>(options.Protocol.value_or(sim::LineProtocol::CustomAscii)));
    }
    int Put() {
        Settled = PutSetup(Program);
        return Program.LinkState.LinkError;
    }
    std::string SettingsText() { return Store.Contents["home/Settings.SSS"]; }
    Status Settled;
};

std::string Printable(const std::string& frame, const LinkKind& kind) {
    return kind.Protocol == sim::LineProtocol::ModbusRtu ? HexOfText(frame)
                                                         : frame.substr(0, frame.size() - 2);
}

// The file was worked out apart from the tool and reviewed: a difference is a change of what goes to meters.
TEST(Put, FramesOfTheDefaultImageAreTheReviewedOnes) {
    std::ostringstream frames;
    for (const LinkKind& kind : kLinkKinds) {
        PutBench bench(MeterOf(kind), {kind.Setting});
        EXPECT_EQ(bench.Put(), 0) << kind.Name;
        frames << kind.Name << "\n";
        EXPECT_FALSE(bench.Program.Home.ProgressVisible);
        for (const std::string& frame : bench.Line.Sent()) frames << Printable(frame, kind) << "\n";
    }
    std::ifstream golden(TEST_FOLDER "/put_default.golden");
    std::ostringstream expected;
    expected << golden.rdbuf();
    EXPECT_EQ(frames.str(), expected.str());
}

TEST(Put, AShortImageIsFilledAndALongOneCut) {
    for (const std::size_t digits : {std::size_t{204}, std::size_t{300}}) {
        PutBench bench;
        bench.Program.Image.SetupData.resize(digits, '7');
        EXPECT_EQ(bench.Put(), 0);
        EXPECT_EQ(bench.Program.Image.SetupData.size(), 260U);
        EXPECT_EQ(bench.Line.Sent()[5].substr(0, 6), "*1WB74");
        EXPECT_EQ(bench.Line.Sent()[5].size(), 6 + 44 + 1 + 2U);
    }
}

TEST(Put, ARemoteCDisplayIsPutAsItsProtocolNeeds) {
    PutBench ascii;
    DigitsPut(ascii.Program.Image, 185, "C");
    DigitsPut(ascii.Program.Image, 199, "12");
    EXPECT_EQ(ascii.Put(), 0);
    EXPECT_EQ(DigitsGet(ascii.Program.Image, 185, 1), "C");
    EXPECT_EQ(DigitsGet(ascii.Program.Image, 199, 2), "00");

    PutBench rtu(MeterOf(kRtu), {kRtu.Setting});
    DigitsPut(rtu.Program.Image, 185, "C");
    EXPECT_EQ(rtu.Put(), 0);
    EXPECT_EQ(DigitsGet(rtu.Program.Image, 185, 1), "7");
    EXPECT_EQ(rtu.Line.Meter().ImageText().substr(184, 1), "7");
}

TEST(Put, AModbusAddressOf0BecomesOneBeforeItReachesTheMeter) {
    PutBench bench(MeterOf(kRtu), {kRtu.Setting});
    DigitsPut(bench.Program.Image, 111, "00");
    EXPECT_EQ(bench.Put(), 0);
    EXPECT_EQ(bench.Line.Meter().ImageText().substr(110, 2), "01");
    EXPECT_EQ(bench.Program.LinkState.ModbusAddressHex, "01");
}

TEST(BoardCheck, WarnsAndGoesOn) {
    const struct {
        const char *Name, *MeterMode, *ImageMode, *ImageType, *Text;
    } cases[] = {
        {"V-F data, quadrature meter", "C0", "80", "0",
         "You cannot write V-F Converter data\rto a Quadrature Meter."},
        {"dual data, V-F meter", "81", "00", "0",
         "You cannot write Dual Signal Conditioner data\rto a V-F Converter."},
        {"Modes 0 and 4 are one board", "40", "00", "0", ""},
        {"Remote C goes to any board", "C0", "80", "C", ""},
    };
    for (const auto& c : cases) {
        for (const LinkKind& kind : {kLinkKinds[0], kRtu}) {
            sim::MeterOptions options = MeterOf(kind);
            options.Patches = {{199, c.MeterMode}};
            PutBench bench(options, {kind.Setting});
            DigitsPut(bench.Program.Image, 199, c.ImageMode);
            DigitsPut(bench.Program.Image, 185, c.ImageType);
            EXPECT_EQ(bench.Put(), 0) << c.Name;
            std::string shown;
            for (const Message& box : bench.Boxes.Shown) shown += box.Title + "|" + box.Text;
            EXPECT_EQ(shown, *c.Text == 0 ? "" : std::string("Put Data|") + c.Text) << c.Name << kind.Name;
        }
    }
}

TEST(Put, ALineLostAtTheResetLeavesIt) {
    PutBench bench;
    bench.Pump.After(6000, [&] { bench.Line.GoAway(); });
    EXPECT_EQ(bench.Put(), 27);
    EXPECT_EQ(bench.Program.LinkState.FramesWritten, (Words{"WR1A", "W435", "WG2A", "WB74"}));
}

// The bar in percent, and how long a Put takes: with each of its pauses.
TEST(Put, StepsAndPausesOfBothTransfers) {
    const struct {
        const LinkKind& Kind;
        const char* Baud;
        std::vector<int> Get, Put;
        double Ms;
    } cases[] = {
        {kLinkKinds[0], "BaudIndex=5", {0, 6, 30, 60, 90, 100}, {5, 8, 30, 43, 80, 100}, 7163},
        {kRtu, "BaudIndex=1", {0, 5, 12, 39, 53, 67, 81, 100}, {5, 8, 23, 38, 51, 68, 85, 100}, 9775},
        {kRtu, "BaudIndex=2", {0, 5, 12, 39, 53, 67, 81, 100}, {5, 8, 23, 38, 51, 68, 85, 100}, 11534},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Baud);
        PutBench bench(MeterOf(c.Kind), {c.Kind.Setting, c.Baud});
        std::vector<int> shown;
        bench.Program.Home.Changed = [&] {
            const int percent = bench.Program.Home.ProgressPercent;
            if (bench.Program.Home.ProgressVisible && (shown.empty() || shown.back() != percent))
                shown.push_back(percent);
        };
        GetSetup(bench.Program);
        EXPECT_EQ(std::exchange(shown, {}), c.Get);
        EXPECT_NEAR(bench.Pump.Took([&] { bench.Put(); }), c.Ms, 1);
        EXPECT_EQ(shown, c.Put);
    }
}

TEST(BoardCheck, AnAnswerOfAnotherLengthIsNoComparison) {
    PutBench bench(WithFaults({}, {"G12D:cut=0"}));
    bench.Line.Unplug();
    bench.Line.InjectAfter(300 + 300 + 310, "0000\r");
    EXPECT_EQ(bench.Put(), 0);
    EXPECT_EQ(bench.Program.LinkState.PortFault, 1);
    EXPECT_EQ(bench.Line.Sent().size(), 7U) << "the Put goes on";
}

TEST(LinkSettings, FollowTheImage) {
    const struct {
        const char* Name;
        int Position;
        const char *Digits, *Line1;
    } cases[] = {
        {"nothing", 1, "002710", "3501000100100831010000"},
        {"address 17", 189, "31", "3501000H00100831010000"},
        {"RTU, even", 109, "06", "3501120100100831010000"},
        {"parity without Modbus", 109, "02", "3501000100100831010000"},
        {"Modbus address", 111, "F7", "3501000124700831010000"},
        {"duplex", 187, "81", "3501000100110831010000"},
    };
    for (const auto& c : cases) {
        SetupImage image;
        BuildDefaultSetup(image);
        DigitsPut(image, c.Position, c.Digits);
        EXPECT_EQ(LinkSettingsLine("3501000100100831010000", image), c.Line1) << c.Name;
    }
}

TEST(LinkSettings, APutWithoutAChangeLeavesFileAndPortAlone) {
    PutBench bench;
    const std::string before = bench.SettingsText();
    bench.Put();
    EXPECT_EQ(bench.SettingsText(), before);
    EXPECT_EQ(std::count(bench.Line.Calls().begin(), bench.Line.Calls().end(), "Open"), 2)
        << "start and board check";
}

TEST(LinkSettings, ThePortFollowsTheMeterToANewRate) {
    PutBench bench;
    DigitsPut(bench.Program.Image, 191, "60");
    DigitsPut(bench.Program.Image, 189, "2A");
    EXPECT_EQ(bench.Put(), 0);
    EXPECT_EQ(bench.SettingsText(), "3601000A00100831010000\r\n2711000000000000F6CB00000000\r\n");
    EXPECT_EQ(bench.Line.Calls()[bench.Line.Calls().size() - 3], "Settings 19200,n,8,1");
    EXPECT_EQ(bench.Line.Meter().ActiveLine().Baud, 19200);
    EXPECT_EQ(bench.Program.LinkState.MeterAddressChar, 'A');
}

TEST(LinkSettings, AFileThatCannotBeWrittenIsTold) {
    PutBench bench;
    DigitsPut(bench.Program.Image, 191, "60");
    bench.Store.ReadOnly.insert("home/Settings.SSS");
    bench.Put();
    EXPECT_EQ(bench.Settled.Text(), "home/Settings.SSS: Permission denied");
    EXPECT_EQ(bench.Program.Settings.Lines.SettingsLine1, "3501000100100831010000")
        << "memory says what the file says";
}

TEST(Compare, KnowsWhatEachRoadWrites) {
    using enum Standing;
    const struct {
        Field Which;
        std::array<Standing, 4> Expected;  // ASCII over a line and a node, Modbus up to 75 and from 76 on
    } cases[] = {
        // clang-format off
        {Field::Setpoint1,    {Written, Written, Written, Written}},
        {Field::LowIn1,       {Written, NotWritten, Written, Written}},
        {Field::CutoffValue,  {Written, Written, NotWritten, Written}},
        {Field::Calibration,  {NotWritten, NotWritten, NotWritten, NotWritten}},
        {Field::Carried113,   {NotWritten, NotWritten, NotWritten, NotWritten}},
        {Field::Carried141,   {Written, Written, NotWritten, NotWritten}},
        {Field::AnalogOption, {Hardware, Hardware, Hardware, Hardware}},
        {Field::CommOption,   {Hardware, Hardware, Hardware, Hardware}},
        {Field::InputOption,  {Hardware, Hardware, Hardware, Hardware}},
        {Field::LockoutJumper,   {Hardware, Hardware, Hardware, Hardware}},
        {Field::FirmwareVersion, {ReadOnly, ReadOnly, ReadOnly, ReadOnly}},
        {Field::RelayOption,  {Hardware, Hardware, Hardware, Hardware}},
        {Field::MeterType,    {ReadOnly, ReadOnly, ReadOnly, ReadOnly}},
        // clang-format on
    };
    for (const auto& c : cases) {
        const std::array found = {
            StandingOf(c.Which, PutRoad::AsciiSerial, 83), StandingOf(c.Which, PutRoad::AsciiNode, 83),
            StandingOf(c.Which, PutRoad::Modbus, 75), StandingOf(c.Which, PutRoad::Modbus, 76)};
        EXPECT_EQ(found, c.Expected) << FieldName(c.Which);
    }
}

}  // namespace
}  // namespace counter::test
