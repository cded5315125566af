// Compare: what is taken over and what is not, the table as text, and the view on a simulated meter.
#include <gtest/gtest.h>

#include "compare/compare_view.h"
#include "compare/take_over.h"
#include "meter/default_setup.h"
#include "offline/setup_desk.h"
#include "support/bench_meter.h"
#include "support/meter_kinds.h"

namespace counter::test {
namespace {

struct CompareBench : BenchMeter {
    CompareBench() : BenchMeter(MeterOf(kLinkKinds[0]), {"BaudIndex=5"}) {
        EXPECT_TRUE(SwitchOn().Ok());
        BuildDefaultSetup(Program.Image);
        Program.Identity.MeterType = 3;
        // As the Setup view leaves it, so that opening that changes nothing more.
        SetupDesk desk(Program);
        EXPECT_TRUE(desk.Open(Program.Image));
        Program.Image = desk.Program().Image;
        View.Activate();
    }
    // A file with these digits instead of those in memory.
    void File(const std::string& name, int pos, const std::string& digits) {
        SetupImage image = Program.Image;
        DigitsPut(image, pos, digits);
        Store.Contents[name] = image.SetupData + "\r\n";
        Boxes.Path = name;
    }
    void Press(Control& control) { EXPECT_EQ(View.Controls.Click(control), Refusal::None); }
    std::string Names() {
        std::string names;
        for (const FieldPair& row : View.Rows()) names += std::string(row.Name) + ";";
        return names;
    }
    std::string Digits(int pos, int count) { return DigitsGet(Program.Image, pos, count); }

    CompareView View{Program};
};

TEST(Compare, SingleFieldsAreTakenOverByTheRulesOfTheSetupView) {
    const struct {
        const char* Name;
        int Pos;
        const char* Digits;  // of the other setup
        Field Wanted;
        const char* Taken;  // digits then in memory; empty: refused
        const char* Why;
    } cases[] = {
        // clang-format off
        {"a value",            55,  "003039", Field::Setpoint1,     "003039", ""},
        {"a list",             191, "70",     Field::BaudRate,      "",       "Baud Rate has no entry"},
        {"a box",              181, "80",     Field::Lockout12,     "80",     ""},
        {"the meter's own",    233, "4D",     Field::FirmwareVersion, "",     "is the meter's own"},
        {"disabled by a choice", 67, "000064", Field::HighIn2,       "",       "is disabled"},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        CompareBench bench;
        const std::string before = bench.Program.Image.SetupData;
        SetupImage other = bench.Program.Image;
        DigitsPut(other, c.Pos, c.Digits);
        const TakenOver taken = TakeOver(bench.Program, other, {c.Wanted});
        std::string refused;
        for (const std::string& line : taken.Refused) refused += line;
        EXPECT_NE(refused.find(c.Why), std::string::npos) << refused;
        if (*c.Taken == '\0') continue;
        EXPECT_EQ(refused, "");
        EXPECT_EQ(bench.Digits(c.Pos, static_cast<int>(std::string(c.Taken).size())), c.Taken);
    }
}

TEST(Compare, TheViewShowsWhatDiffersAndTakesItOver) {
    CompareBench bench;
    CompareView& view = bench.View;
    EXPECT_EQ(view.Rows().size(), 0U);
    EXPECT_FALSE(view.cmdTake.Enabled || view.cmdCsv.Enabled);
    bench.File("b.CT2", 55, "003039");
    bench.Press(view.cmdFile);
    EXPECT_EQ(bench.Names(), "Setpoint 1;");
    EXPECT_EQ(view.lblStatus.Caption, "1 field differs.");
    view.Controls.Check(view.chkDiffer, 0);
    EXPECT_GT(view.Rows().size(), 100U);
    view.Controls.Check(view.chkDiffer, 1);

    bench.Boxes.Path = "out.CSV";
    bench.Press(view.cmdCsv);
    EXPECT_EQ(bench.Store.Contents["out.CSV"],
              "field,position,a,b,counts,standing\r\nSetpoint 1,55,+010000.,+012345.,true,written\r\n");

    view.Mark({0});
    bench.Press(view.cmdTake);
    EXPECT_EQ(bench.Digits(55, 6), "003039");
    EXPECT_EQ(bench.Names(), "");
    EXPECT_EQ(view.lblStatus.Caption.substr(0, 19), "1 field taken over.") << view.lblStatus.Caption;

    bench.Program.Image.SetupData.replace(54, 6, "000001");
    view.Follow();
    EXPECT_EQ(bench.Names(), "Setpoint 1;") << "memory is looked at anew";
}

TEST(Compare, TheMeterIsReadAsideAndABackupIsFound) {
    CompareBench bench;
    CompareView& view = bench.View;
    bench.Program.Image = {bench.Line.Meter().ImageText()};
    for (const char* name :
         {"2026-01-01_00-00-00-000_address-01.CT2", "2026-02-01_00-00-00-000_address-01.CT2"})
        bench.File(std::string("home/backups/") + name, 55, name[6] == '2' ? "000002" : "000001");
    DigitsPut(bench.Program.Image, 49, "000007");
    view.Activate();
    view.Controls.Select(view.Backup.Inner, 0);
    EXPECT_EQ(bench.Names(), "Setpoint 2;Setpoint 1;");
    EXPECT_EQ(view.Rows()[1].B.Text, "+000002.") << "the newest";
    const auto files = bench.Store.Contents;
    bench.Pump.After(900, [&] { EXPECT_EQ(view.Controls.Click(view.cmdMeter), Refusal::Disabled); });
    bench.Press(view.cmdMeter);
    EXPECT_EQ(bench.Names(), "Setpoint 2;") << view.lblStatus.Caption;
    EXPECT_TRUE(bench.Store.Contents == files);
    bench.Program.Home.Changed = [&] { view.Follow(); };
    bench.Pump.After(900, [&] { bench.Press(view.cmdCancel); });
    bench.Press(view.cmdMeter);
    EXPECT_EQ(view.lblStatus.Caption, "The meter was not read to its end: it was cancelled.");
    EXPECT_EQ(bench.Names(), "Setpoint 2;") << "as it was compared before";
    bench.Pump.After(900, [&] { view.PutAway(); });
    bench.Press(view.cmdMeter);
    EXPECT_EQ(bench.Names(), "") << "it was left";
}

TEST(Compare, ATableCellIsQuotedWhereASpreadsheetNeedsIt) {
    const FieldPair row = {{"Recognition, \"own\"", 149, {"a,b"}, {"\x01\xE9"}, Standing::Hardware}};
    EXPECT_EQ(CompareCsv({row}),
              "field,position,a,b,counts,standing\r\n"
              "\"Recognition, \"\"own\"\"\",149,\"a,b\",\\x01\u00E9,false,hardware\r\n");
}

}  // namespace
}  // namespace counter::test
