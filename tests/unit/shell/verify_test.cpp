// Verify: what it tells, what it leaves alone, and the option that does it after each Put.
#include <gtest/gtest.h>

#include "shell/home_view.h"
#include "shell/kept_options.h"
#include "support/bench_meter.h"
#include "support/meter_kinds.h"

namespace counter::test {
namespace {

struct VerifyBench : BenchMeter {
    explicit VerifyBench(const LinkKind& kind = kLinkKinds[0], const std::vector<std::string>& faults = {})
        : BenchMeter(WithFaults(MeterOf(kind), faults), {kind.Setting, "BaudIndex=5"}) {
        EXPECT_TRUE(SwitchOn().Ok());
        Home.ShowReport = [this](const std::string&, const std::string& text) { Report = text; };
        Home.Load();
        Home.Activate();
    }
    Refusal Press(const char* name) { return Home.Controls.Click(*Home.Controls.Find(name)); }
    std::string StatusLine() { return Home.lblPGText.Caption; }

    std::string Report;
    HomeView Home{Program};
};

TEST(Verify, TellsWhatDiffersAndLeavesAllElseAlone) {
    for (const LinkKind& kind : kLinkKinds) {
        SCOPED_TRACE(kind.Name);
        VerifyBench bench(kind);
        bench.Press("mnuGet");
        bench.Press("mnuVerify");
        EXPECT_EQ(bench.StatusLine(), "The meter holds the setup in memory.");
        EXPECT_EQ(bench.Report, "");
        DigitsPut(bench.Program.Image, 55, "003039");
        BitsPut(bench.Program.Image, 2, 0, 193, 4);  // another input board
        const std::string image = bench.Program.Image.SetupData;
        bench.Program.Identity.MeterType = 7;
        bench.Program.Derived.ClockMode = 5;
        const auto files = bench.Store.Contents;
        bench.Press("mnuVerify");
        EXPECT_EQ(bench.StatusLine(), "1 field differs in the meter from the setup in memory.");
        const std::size_t apart = bench.Report.find("Not counted");
        EXPECT_LT(bench.Report.find("Setpoint 1"), apart);
        EXPECT_GT(bench.Report.find("Input Option"), apart) << bench.Report;
        EXPECT_NE(bench.Report.find("+012345."), std::string::npos);
        EXPECT_EQ(bench.Program.Image.SetupData, image);
        EXPECT_EQ(bench.Program.Identity.MeterType, 7);
        EXPECT_EQ(bench.Program.Derived.ClockMode, 5);
        EXPECT_TRUE(bench.Store.Contents == files) << "settings, backups and the service file";
        EXPECT_FALSE(bench.Program.Home.Hourglass || bench.Home.pbBar.Visible);
    }
}

TEST(Verify, ItsButtonStandsBesideTheLineOfThePut) {
    VerifyBench bench;
    EXPECT_EQ(bench.Press("mnuVerify"), Refusal::Disabled) << "no setup is in memory";
    bench.Press("mnuGet");
    EXPECT_FALSE(bench.Home.cmdVerify.Visible);
    bench.Pump.After(1500, [&] { EXPECT_EQ(bench.Press("mnuVerify"), Refusal::Disabled); });
    bench.Press("mnuPut");
    EXPECT_TRUE(bench.Home.cmdVerify.Visible);
    EXPECT_EQ(bench.Press("cmdVerify"), Refusal::None);
    EXPECT_EQ(bench.StatusLine(), "The meter holds the setup in memory.");
    EXPECT_FALSE(bench.Home.cmdVerify.Visible);
    bench.Press("mnuPut");
    bench.Press("mnuFile");
    EXPECT_FALSE(bench.Home.cmdVerify.Visible) << "the line went";
    bench.Line.Unplug();
    bench.Press("mnuVerify");
    EXPECT_EQ(bench.StatusLine(), "Failed to read the meter, check connections, then try again.      ( 21)");
}

TEST(Verify, TheOptionIsKeptAndVerifiesEachPut) {
    VerifyBench bench(kLinkKinds[0], {"XR1A#3:byte=57,57"});
    bench.Press("mnuVerifyPut");
    EXPECT_TRUE(KeptOption(bench.Program.Folder, kVerifyAfterPut));
    bench.Press("mnuGet");
    bench.Press("mnuPut");
    EXPECT_EQ(bench.StatusLine(),
              "Putting data to the Counter.  Data appears to have Transferred O.K.  (verified: the meter "
              "holds it)");
    EXPECT_EQ(bench.Report, "");
    DigitsPut(bench.Program.Image, 55, "003039");
    bench.Press("mnuPut");
    EXPECT_NE(bench.Report, "") << bench.StatusLine();
    EXPECT_EQ(bench.Home.lblPGText.TextColor, ColorRed);
    HomeView later(bench.Program);
    later.Load();
    later.Activate();
    EXPECT_EQ(later.Menu(HomeItem::VerifyAfterPut).Value, 1);
    later.Controls.Click(later.Menu(HomeItem::VerifyAfterPut));
    EXPECT_FALSE(KeptOption(bench.Program.Folder, kVerifyAfterPut));
}

}  // namespace
}  // namespace counter::test
