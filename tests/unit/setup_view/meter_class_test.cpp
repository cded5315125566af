#include "meter/default_setup.h"
#include "shell/get_action.h"
#include "stories.h"

namespace counter::test {
namespace {

constexpr const char* kFile = "home/Settings.SSS";

TEST(MeterClass, Baud9600GoesIntoFileAndPort) {
    SetupBench bench;
    bench.Bench.SwitchOn();
    bench.Bench.Program.LinkState.BaudIndex = 2;
    bench.Bench.Store.Contents[kFile] = "32010001001083018\r\n0000000000000000000000000000\r\n";
    bench.Open();
    bench.Do("cmd9600");
    EXPECT_EQ(bench.Bench.Store.Contents[kFile],
              "3501000100108301810000\r\n00000000000000000000000000000\r\n");
    EXPECT_EQ(bench.Bench.Line.Calls().back(), "Settings 9600,n,8,1");
    EXPECT_EQ(bench.Bench.Program.LinkState.BaudIndex, 2) << "as it was, until the settings are read again";
    EXPECT_EQ(bench.Bench.Program.Settings.Lines.SettingsLine1, "3501000100108301810000");
}

TEST(MeterClass, Baud9600OfALinkForTheSessionLeavesTheFiles) {
    SetupBench bench;
    bench.Bench.SwitchOn();
    const std::string own = bench.Bench.Store.Contents[kFile];
    bench.Bench.Program.ChosenLink.Choose("3201000700100831010000");
    ASSERT_TRUE(ReadSettings(bench.Bench.Program.BringUp).Ok());
    bench.Open();
    bench.Do("cmd9600");
    EXPECT_EQ(bench.Bench.Store.Contents[kFile], own.substr(0, own.size() - 2) + "0\r\n");
    EXPECT_EQ(bench.Bench.Program.ChosenLink.Choice(), "3501000700100831010000");
}

TEST(MeterClass, AFileThatTakesNothingLeavesThePort) {
    SetupBench bench;
    bench.Bench.SwitchOn();
    bench.Bench.Store.ReadOnly.insert(kFile);
    const std::size_t calls = bench.Bench.Line.Calls().size();
    bench.Open();
    bench.Do("cmd9600");
    EXPECT_EQ(bench.Bench.Line.Calls().size(), calls);
    EXPECT_EQ(bench.Bench.Program.Home.StatusColor, ColorRed);
}

TEST(MeterClass, ALineThatCannotBeSetIsToldAndLeavesTheFile) {
    SetupBench bench;
    const char* strange = "3501150100100830000000\r\n\r\n";  // RTU with parity 5, no link
    bench.Bench.Store.Contents[kFile] = strange;
    bench.Bench.SwitchOn();
    bench.Open();
    bench.Do("cmd9600");
    EXPECT_EQ(bench.Bench.Store.Contents[kFile], strange);
    EXPECT_EQ(bench.Bench.Program.Home.StatusText,
              "home/Settings.SSS: the parity digit, position 6 of line 1, is none of 0 to 2");
}

TEST(MeterClass, IsWrittenIntoAConnectedMeterAlone) {
    const struct {
        const char* Name;
        const char* Meters;  // bytes 185 and 187 in the meter
        const char *Button, *After;
    } cases[] = {
        {"basic, curve dropped", "C901", "cmdQBasic", "C101"},
        {"extended", "C101", "cmdQExtended", "C501"},
        {"extended with its curve", "0C01", "cmdQExtended", "0C01"},
    };
    for (const auto& c : cases) {
        SetupBench bench;
        bench.Bench.SwitchOn();
        BuildDefaultSetup(bench.Image());
        bench.Open();
        std::string meters = bench.Image().SetupData;
        bench.Bench.Line.Meter().LoadImage(meters.replace(184, 4, c.Meters));
        bench.Bench.Pump.After(200, [&] { EXPECT_NE(bench.View.Buttons.picText.Text, "") << c.Name; });
        EXPECT_NEAR(bench.Bench.Pump.Took([&] { bench.Do(c.Button); }), 1063, 1) << c.Name;
        EXPECT_EQ(bench.Bench.Line.Meter().ImageText(), meters.replace(184, 4, c.After)) << c.Name;
        EXPECT_EQ(bench.Seen("@185"), "04") << c.Name;
        EXPECT_EQ(bench.View.Buttons.picText.Text, "") << c.Name;
        EXPECT_FALSE(bench.Bench.Program.Home.Hourglass) << c.Name;
        for (const char* button : {"cmdQBasic", "cmdQExtended"}) {
            EXPECT_EQ(bench.Seen(std::string(button) + ".back"),
                      button == std::string(c.Button) ? "ColorLightGray" : "ColorGray")
                << c.Name;
        }
    }
}

TEST(MeterClass, NothingGoesOutWithoutALinkOrOverModbus) {
    for (const char* given : {"comms=0", "comms=1; modbus=1"}) {
        SetupBench bench(given);
        bench.Open();
        bench.Do("cmdQBasic");
        EXPECT_TRUE(bench.Bench.Line.Sent().empty()) << given;
        EXPECT_EQ(bench.View.Buttons.picText.Text, bench.View.Class.WhyNotWritten()) << given;
        EXPECT_FALSE(bench.View.Class.WhyNotWritten().empty()) << given;
    }
}

TEST(MeterClass, AnEndThatIsWantedComesAfterIt) {
    SetupBench bench;
    bench.Bench.SwitchOn();
    bench.Open();
    SetupWrites& writes = bench.Bench.Program.Writes;
    bool ended = false;
    writes.EndProgram = [&] { ended = true; };
    bench.Bench.Pump.After(200, [&] {
        EXPECT_EQ(writes.Running, 1);
        writes.Wish = EndWish::Outside;
    });
    bench.Do("cmdQBasic");
    EXPECT_TRUE(ended);
}

TEST(MeterClass, AGetThatItFallsIntoIsNotTaken) {
    SetupBench bench;
    bench.Bench.SwitchOn();
    bench.Open();
    const SetupImage before = bench.Image();
    bench.Bench.Pump.After(2000, [&] { bench.Do("cmdQBasic"); });
    GetSetup(bench.Bench.Program);
    EXPECT_EQ(bench.Bench.Program.Home.StatusColor, ColorRed) << bench.Bench.Program.Home.StatusText;
    EXPECT_EQ(bench.Image().SetupData, before.SetupData);
}

}  // namespace
}  // namespace counter::test
