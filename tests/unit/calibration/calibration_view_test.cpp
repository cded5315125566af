// The view of a calibration: what is shown when, and that nothing can interrupt a run.
#include "calibration/calibration_view.h"

#include <gtest/gtest.h>

#include "time_base_meter.h"

namespace counter::test {
namespace {

struct ViewBench : CalibrationBench {
    CalibrationView View{Program};
    int Home = 0;

    explicit ViewBench(TimeBaseMeter meter = {}) : CalibrationBench(std::move(meter)) {
        View.ShowMainMenu = [this] { ++Home; };
        View.Activate();
    }
    Refusal Press(const char* button) { return View.Controls.Click(*View.Controls.Find(button)); }
    void EnterFrequency(const std::string& text) {
        View.Controls.Type(View.txtFreq, text);
        View.Controls.Enter(View.txtFreq);
    }
    // What is visible of all that comes and goes.
    std::string Shown() {
        std::string names;
        for (const char* name : {"picCAL2", "lblCalc", "lblRange", "lblReturn", "lblSet", "txtScaleFactor",
                                 "lblPPM", "lblDone", "cmdOK", "cmdCANCEL"}) {
            if (View.Controls.Find(name)->Visible) names += std::string(" ") + name;
        }
        return names;
    }
};

TEST(CalibrationView, ShowsItsStages) {
    ViewBench bench({1000, 40000});
    EXPECT_EQ(bench.View.Controls.Focused(), &bench.View.txtFreq);
    std::vector<std::string> stages;
    bench.View.Controls.Changed = [&] {
        if (stages.empty() || stages.back() != bench.Shown()) stages.push_back(bench.Shown());
    };
    bench.EnterFrequency(" 1000 ");
    const std::string ending = " picCAL2 lblCalc lblRange lblReturn lblSet txtScaleFactor lblPPM";
    EXPECT_EQ(stages, (std::vector<std::string>{
                          " cmdCANCEL", " picCAL2", " picCAL2 lblCalc", " picCAL2 lblCalc lblRange",
                          " picCAL2 lblCalc lblRange lblReturn", ending, ending + " lblDone cmdOK"}));
    EXPECT_EQ(bench.View.txtScaleFactor.Text, "-29999");
    EXPECT_EQ(bench.View.Controls.Focused(), &bench.View.cmdOK);
    bench.Press("cmdOK");
    bench.View.Activate();
    EXPECT_EQ(bench.Shown(), " cmdCANCEL");
    EXPECT_EQ(bench.View.txtFreq.Text, "");
    EXPECT_NE(bench.Port.Story(), "");
    bench.Press("cmdCANCEL");
    EXPECT_EQ(bench.Home, 2);
    EXPECT_EQ(bench.Port.Story(), "");
}

TEST(CalibrationView, NoPressInterruptsARun) {
    ViewBench bench;
    for (const double ms : {100.0, 900.0, 5000.0, 9000.0, 12000.0, 15000.0}) {
        bench.Pump.After(ms, [&] {
            EXPECT_TRUE(bench.View.Running());
            EXPECT_EQ(bench.Press("cmdCANCEL"), Refusal::Hidden);
            EXPECT_EQ(bench.Press("cmdOK"), Refusal::Hidden);
            EXPECT_EQ(bench.View.Controls.Type(bench.View.txtFreq, "5"), Refusal::Disabled);
            EXPECT_TRUE(bench.Program.Home.Hourglass);
            bench.EnterFrequency("5");
            bench.View.Unload();
            bench.View.Activate();
        });
    }
    bench.EnterFrequency("1000");
    EXPECT_TRUE(bench.View.lblDone.Visible);
    EXPECT_TRUE(bench.Boxes.Shown.empty());
    EXPECT_FALSE(bench.Program.Home.Hourglass);
}

TEST(CalibrationView, AFrequencyInDoubtIsAskedAboutBeforeAnythingIsSent) {
    ViewBench bench;
    bench.Boxes.SaysYes = false;
    bench.EnterFrequency("1.000,5");
    EXPECT_EQ(bench.Port.Story(), "");
    EXPECT_EQ(bench.Shown(), " cmdCANCEL");
    EXPECT_EQ(bench.View.txtFreq.Text, "1.000,5") << "to be put right";
}

// Closing the window stays in the view and says what became of it; an exit goes.
TEST(CalibrationView, AnEndPutsTheScaleBackFirst) {
    for (const bool exits : {false, true}) {
        ViewBench bench;
        int ended = 0;
        bench.View.ExitProgram = [&] {
            ++ended;
            EXPECT_FALSE(bench.View.HoldExit()) << "it may go now";
            EXPECT_NE(bench.Program.Writes.SoFar().find("factor back"), std::string::npos);
        };
        bench.Pump.After(8000,
                         [&] { exits ? static_cast<void>(bench.View.HoldExit()) : bench.View.WantEnd(); });
        bench.EnterFrequency("1000");
        EXPECT_LT(bench.Pump.NowMs(), 16000);
        EXPECT_EQ(bench.Meter.Words(), "8000FF0186A0 0500 8064");
        EXPECT_EQ(ended, exits ? 1 : 0);
        EXPECT_EQ(bench.Boxes.Shown.size(), exits ? 0U : 1U);
        EXPECT_FALSE(bench.View.lblDone.Visible);
        bench.EnterFrequency("1000");
        EXPECT_EQ(ended, exits ? 1 : 0) << "the wish was for one end";
        EXPECT_TRUE(bench.View.lblDone.Visible);
    }
}

TEST(CalibrationView, WhatIsNotDoneIsNotCalledSo) {
    ViewBench kept;
    kept.Meter.SilentAt = "W3118000FF0186A0Z";
    kept.EnterFrequency("1000");
    EXPECT_FALSE(kept.View.lblDone.Visible);
    ASSERT_EQ(kept.Boxes.Shown.size(), 1U);
    EXPECT_NE(kept.Boxes.Shown[0].Text.find("Not all that was written comes back"), std::string::npos);

    ViewBench modbus;
    modbus.UseModbusAscii();
    modbus.View.Activate();
    modbus.EnterFrequency("1000");
    EXPECT_EQ(modbus.View.picCAL2.Text, kNeedsAsciiText);
    EXPECT_EQ(modbus.Port.Story(), "");
    EXPECT_EQ(modbus.Press("cmdCANCEL"), Refusal::None);
}

}  // namespace
}  // namespace counter::test
