// The link switched for a run: what every reader and writer of the settings then makes of file and link.
#include "shell/link_switch.h"

#include <gtest/gtest.h>

#include "meter/field_code.h"
#include "shell/home_facts.h"
#include "shell/home_view.h"
#include "support/bench_meter.h"
#include "support/fixed_catalog.h"

namespace counter::test {
namespace {

constexpr const char* kSettings = "home/Settings.SSS";
const std::string kOwn = "3501000100100831010000\r\n";
const std::string kNode = "2711000000000000F6CB00000000";

sim::MeterOptions MeterAtFive() {
    sim::MeterOptions options;
    options.Address = 5;
    return options;
}

struct SwitchBench : BenchMeter {
    SwitchBench() : BenchMeter(MeterAtFive()) {
        Home.SwitchLink = [this] { View.Load(); };
        View.Close = [this] { Home.FollowLink(); };
        EXPECT_TRUE(SwitchOn().Ok());
        Home.Load();
        Home.Activate();
    }
    Refusal Press(const char* name) { return Home.Controls.Click(*Home.Controls.Find(name)); }
    void SwitchTo(int address, const char* how = "cmdUse") {
        Press("mnuLink");
        View.Controls.Select(View.cboAddress, address);
        View.Controls.Click(*View.Controls.Find(how));
    }
    std::string& File() { return Store.Contents[kSettings]; }
    std::string Fact(std::size_t row) {
        HomeFacts facts(Program);
        facts.Follow();
        return facts.Facts[row].Text;
    }

    FixedCatalog Catalog;
    TriedDevice Tried;
    LinkSwitch View{Program, {Line, Tried, Catalog}};
    HomeView Home{Program};
};

TEST(LinkSwitch, AllThatTouchesTheSettingsKeepsLinkAndFileApart) {
    const struct {
        const char* Name;
        std::function<void(SwitchBench&)> Act;
        std::string File;
        int Address, Baud;
        bool ForSession;
    } cases[] = {
        {"switched", [](SwitchBench&) {}, kOwn + kNode + "\r\n", 5, 5, true},
        {"Get", [](SwitchBench& b) { b.Press("mnuGet"); }, kOwn + kNode + "\r\n", 5, 5, true},
        {"Put with another address and speed",
         [](SwitchBench& b) {
             b.Press("mnuGet");
             PutCode(b.Program.Image, Field::Address, 7);
             PutCode(b.Program.Image, Field::BaudRate, 6);
             b.Press("mnuPut");
             EXPECT_EQ(b.Line.Calls().back(), "DTR on") << "the port was opened anew";
             b.Boxes.Shown.clear();
             b.Press("mnuPut");
             EXPECT_TRUE(b.Boxes.Shown.empty()) << "it is the same meter";
         },
         kOwn + kNode + "\r\n", 7, 6, true},
        {"another program changes link and kind of program",
         [](SwitchBench& b) {
             b.File() = "3202000900100831710000\r\n" + kNode + "\r\n";
             b.Home.FollowChanges();
             EXPECT_EQ(b.Program.Settings.ProgramKind, 7);
         },
         "3202000900100831710000\r\n" + kNode + "\r\n", 5, 5, true},
        {"Exit", [](SwitchBench& b) { EXPECT_THROW(b.Press("mnuExit"), ProcessEnded); },
         kOwn + kNode + "1\r\n", 5, 5, true},
        {"Exit without the file",
         [](SwitchBench& b) {
             b.Store.Contents.erase(kSettings);
             EXPECT_THROW(b.Press("mnuExit"), ProcessEnded);
         },
         kOwn + kNode + "1\r\n", 5, 5, true},
        {"Keep", [](SwitchBench& b) { b.SwitchTo(6, "cmdKeep"); },
         "3501000600100831010000\r\n" + kNode + "\r\n", 6, 5, false},
        {"as in the file",
         [](SwitchBench& b) {
             b.Press("mnuLink");
             b.View.Controls.Click(b.View.cmdFile);
             b.View.Controls.Click(b.View.cmdUse);
         },
         kOwn + kNode + "\r\n", 1, 5, false},
        {"a port that can't be opened",
         [](SwitchBench& b) {
             b.Line.NextOpen = {StatusKind::NotFound, "/dev/ttyS0", "gone"};
             b.SwitchTo(9);
             EXPECT_EQ(b.View.lblResult.Caption, "/dev/ttyS0: gone. The link is as it was.");
         },
         kOwn + kNode + "\r\n", 5, 5, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        SwitchBench bench;
        bench.SwitchTo(5);
        c.Act(bench);
        EXPECT_EQ(bench.File(), c.File);
        EXPECT_EQ(bench.Program.Settings.MeterAddressValue, c.Address);
        EXPECT_EQ(bench.Program.LinkState.BaudIndex, c.Baud);
        EXPECT_EQ(bench.Program.ChosenLink.Choice().has_value(), c.ForSession);
        const bool told = bench.Fact(0).find("Settings.SSS has address ") != std::string::npos;
        EXPECT_EQ(told, c.ForSession) << bench.Fact(0);
    }
}

TEST(LinkSwitch, OneMetersSetupGoesIntoAnotherOnlyAfterAQuestion) {
    SwitchBench bench;
    bench.SwitchTo(5);
    bench.Press("mnuGet");
    bench.SwitchTo(8);
    EXPECT_NE(bench.Fact(1).find("It came from the meter at address 5 on port 1"), std::string::npos);
    bench.Boxes.SaysYes = false;
    bench.Line.Forget();
    bench.Press("mnuPut");
    ASSERT_EQ(bench.Boxes.Shown.size(), 1U);
    EXPECT_EQ(bench.Boxes.Shown[0].Text,
              "The setup in memory was read from address 5 on port 1.\nPut it into the meter at address 8 on "
              "port 1?");
    EXPECT_TRUE(bench.Line.Sent().empty());
}

TEST(LinkSwitch, FindsTheMeterAndComesBackToItsLine) {
    SwitchBench bench;
    bench.Press("mnuLink");
    bench.View.Controls.Select(bench.View.cboAddress, 5);
    bench.View.Controls.Select(bench.View.cboBaud, 2);
    bench.View.Controls.Click(bench.View.cmdFind);
    EXPECT_EQ(bench.View.cboBaud.ListIndex, 5) << bench.View.lblResult.Caption;
    EXPECT_TRUE(bench.Line.PortOpen());
    bench.Line.Unplug();
    bench.Pump.After(1500, [&] {
        EXPECT_TRUE(bench.View.Cancel());
        bench.Home.OpenLink();
        EXPECT_EQ(bench.Boxes.Shown.size(), 1U) << "refused, with the reason";
    });
    EXPECT_LT(bench.Pump.Took([&] { bench.View.Controls.Click(bench.View.cmdFind); }), 9000);
    EXPECT_TRUE(bench.View.cmdUse.Enabled);
    EXPECT_EQ(bench.File(), kOwn + kNode + "\r\n");
}

}  // namespace
}  // namespace counter::test
