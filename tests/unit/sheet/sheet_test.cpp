// The setup sheet: that it holds what the views show, and is a document that stands alone.
#include <gtest/gtest.h>

#include "meter/default_setup.h"
#include "offline/setup_desk.h"
#include "sheet/sheet_html.h"
#include "sheet/sheet_view.h"
#include "support/bench_meter.h"

namespace counter::test {
namespace {

struct SheetBench : BenchMeter {
    SheetBench() {
        BuildDefaultSetup(Program.Image);
        Program.Identity = {3, 83, 0, 0};
    }
    SetupSheet Sheet(const std::optional<SheetAgainst>& against = {}) {
        SetupDesk desk(Program);
        EXPECT_TRUE(desk.Open(Program.Image)) << desk.WhyEnded();
        return MakeSheet(desk.View(), {"a<b>.CT2", "", "2026-03-04 05:06"}, against);
    }
};

std::string ValueIn(const SheetSection& page, const std::string& caption) {
    for (const SheetLine& line : page.Lines) {
        if (line.Caption == caption) return line.Value + (line.Active ? "" : " off");
    }
    return "no such line";
}

TEST(SetupSheet, HasTheFieldsOfThePagesAndTheMenu) {
    SheetBench bench;
    const SetupSheet sheet = bench.Sheet();
    ASSERT_EQ(sheet.Pages.size(), 7U);
    EXPECT_EQ(sheet.Facts[0].second, "Counter, firmware 83, Extended");
    EXPECT_EQ(ValueIn(sheet.Pages[0], "Gate Time"), "000.10");
    EXPECT_EQ(ValueIn(sheet.Pages[0], "Time Out"), "003.00 Secs") << "with its unit";
    EXPECT_EQ(ValueIn(sheet.Pages[0], "Control Inputs"),
              "Control Input 1: Meter Reset; Control Input 2: Func Reset; Both Ctrl 1, 2: Meter Reset");
    EXPECT_EQ(ValueIn(sheet.Pages[1], "Low In 1"), "+000000. off");
    EXPECT_EQ(ValueIn(sheet.Pages[3], "Setpoint 2"), "+020000.");
    EXPECT_EQ(ValueIn(sheet.Pages[0], "<9600>"), "no such line") << "a button";
    EXPECT_EQ(sheet.Menu[0].Name, "InPut");
    EXPECT_GT(sheet.Menu.size(), 20U);
    EXPECT_EQ(sheet.Setpoints.size(), 2U);
    EXPECT_EQ(SheetHtml(sheet).find("Changes"), std::string::npos);
}

TEST(SetupSheet, TellsChangesAndPagesThatAreNotOffered) {
    SheetBench bench;
    SheetAgainst before{"before.CT2", bench.Program.Image};
    DigitsPut(bench.Program.Image, 55, "003039");
    BitsPut(bench.Program.Image, 6, 5, 193, 0);  // no relays
    const SetupSheet sheet = bench.Sheet(before);
    const std::string html = SheetHtml(sheet);
    EXPECT_NE(html.find("<td>Setpoint 1</td><td>+010000.</td><td>+012345.</td>"), std::string::npos);
    EXPECT_NE(html.find("Not offered. "), std::string::npos);
    EXPECT_NE(html.find("a&lt;b&gt;.CT2"), std::string::npos);
    for (const char* outside : {"<link", "<script", "<img", "http"})
        EXPECT_EQ(html.find(outside), std::string::npos) << outside;
}

TEST(SetupSheet, OfTheSetupInMemoryLeavesItAsItIs) {
    SheetBench bench;
    PutCode(bench.Program.Image, Field::Spare171, 3);  // which opening the Setup view would mend
    const std::string image = bench.Program.Image.SetupData;
    struct NoPrinter : Printer {
        Status PrintView() override { return {}; }
        Status PrintText(const std::string&, const std::string&) override { return {}; }
        Status PrintPages(const std::string&, const std::string& html) override {
            return Printed = html, Status();
        }
        Status WritePdf(const std::string&, const std::string&, const std::string&) override { return {}; }
        std::string Printed;
    } paper;
    SheetView view(bench.Program, paper);
    view.Activate();
    view.Controls.Click(view.cmdPrint);
    EXPECT_NE(paper.Printed.find("Setup sheet"), std::string::npos);
    bench.Boxes.Path = "sheet.HTML";
    view.Controls.Click(view.cmdHtml);
    EXPECT_EQ(bench.Store.Contents["sheet.HTML"], paper.Printed);
    EXPECT_EQ(bench.Program.Image.SetupData, image);
}

}  // namespace
}  // namespace counter::test
