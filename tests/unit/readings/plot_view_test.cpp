// The plot: a scripted sweep, rails, clock, and the buttons.
#include "readings/plot_view.h"

#include "chart_record.h"
#include "meter/default_setup.h"
#include "meter/field_code.h"
#include "readings/graph_view.h"

namespace counter::test {
namespace {

struct PlotDesk : ReadingsBench {
    PlotDesk(const char* mid = "0", const char* small = "1", const char* seconds = "10") {
        View.Load();
        View.Activate();
        TypeScale(View, mid, small, seconds);
    }
    // OK, and the end of the frame that was on its way.
    void Start() {
        Press(View, View.cmdOK);
        FrameEntries = View.Chart.Record().size();
        Line.Inject("rest\r");
    }
    Lines Trace() const { return RecordFrom(View.Chart, FrameEntries); }
    PlotView View{Program};
    std::size_t FrameEntries = 0;
};

// The whole picture of a sweep of 60 s around 100: axes, ticks, grid, labels, then point, trace, both rails.
TEST(PlotView, AScriptedSweepAsItIsDrawn) {
    PlotDesk desk("100.0", "0.5", "60");
    desk.Start();
    for (const char* reading : {"+100.000", "+110.000", "+110.024", "+110.026", "+200.000", "+  90.00",
                                "+  89.90", "-   5.00", "+ 104.00", "+  96.00", "+ 100.00", "+ 100.00"})
        desk.MeterSends(6000, reading);
    ExpectGolden(desk.View.Chart, "plot_sweep.golden");
    EXPECT_EQ(desk.View.Chart.Scale(), (ChartScale{-150, 215, 1020, -250}));
    EXPECT_EQ(desk.View.Controls.Focused(), &desk.View.cmdContinue) << "the sweep is over";
    EXPECT_EQ(desk.View.Current().ChartFull, 1);
}

TEST(PlotView, HeightsAndRails) {
    // clang-format off
    const struct {
        const char *Name, *First, *Second, *Line;
    } cases[] = {
        {"20 divisions up",          "0",   "20",         "line 0,0 100,200 width 2"},
        {"over",                     "0",   "20.06",      "line 0,0 100,210 width 2"},
        {"under",                    "0",   "-21",        "line 0,0 100,-205 width 2"},
        {"stays over",               "30",  "40",         "line 0,210 100,210 width 1"},
        {"stays under",              "-30", "-40",        "line 0,-205 100,-205 width 1"},
        {"from rail to rail",        "30",  "-30",        "line 0,210 100,-205 width 2"},
        {"2.5 goes to the even one", "0",   "0.25",       "line 0,0 100,2 width 2"},
        {"7.5 goes to the even one", "0",   "0.75",       "line 0,0 100,8 width 2"},
        {"a frame without a number", "1",   "-",          "line 0,10 100,0 width 2"},
        {"eight characters count",   "0",   "0000001.99", "line 0,0 100,10 width 2"},
        {"blanks behind the sign",   "0",   "-   5.0",    "line 0,0 100,-50 width 2"},
        {"beyond all numbers",       "0",   "9E999999",   "line 0,0 100,210 width 2"},
    };
    // clang-format on
    for (const auto& c : cases) {
        PlotDesk desk;
        desk.Start();
        desk.MeterSends(100, c.First);
        desk.MeterSends(1000, c.Second);
        EXPECT_EQ(desk.Trace().back(), c.Line) << c.Name;
    }
}

TEST(PlotView, HalvesOfDecimalNumbersGoToTheEvenHeight) {
    const std::pair<const char*, double> cases[] = {{"12.305", 0},  {"12.315", 2},  {"12.325", 2},
                                                    {"12.285", -2}, {"12.3151", 2}, {"12.3249", 2}};
    for (const auto& [reading, height] : cases) {
        PlotDesk desk("12.3", "0.1");
        desk.Start();
        desk.MeterSends(100, reading);
        EXPECT_EQ(std::get<ChartPoint>(desk.View.Chart.Record().back()).Y, height) << reading;
    }
}

TEST(PlotView, TheClockStartsAtTheFirstReadingAndStandsInAPause) {
    PlotDesk desk("0", "1", "-10");  // works as 10
    desk.Start();
    for (Control* button : {&desk.View.cmdPause, &desk.View.cmdContinue}) {
        desk.Pump.Pass(5000);
        Press(desk.View, *button);
    }
    desk.MeterSends(0, "rest");
    desk.MeterSends(5000, "0");
    desk.MeterSends(2000, "1");
    Press(desk.View, desk.View.cmdPause);
    EXPECT_EQ(desk.View.Controls.Focused(), &desk.View.cmdContinue);
    desk.MeterSends(60'000, "9");
    Press(desk.View, desk.View.cmdPause);
    EXPECT_EQ(desk.View.Current().SweepBase, 2);
    Press(desk.View, desk.View.cmdContinue);
    desk.MeterSends(500, "rest");
    desk.MeterSends(500, "2");
    EXPECT_EQ(desk.Trace(),
              (Lines{"point 0,0 width 2", "line 0,0 200,10 width 2", "line 200,10 300,20 width 2"}));
    EXPECT_EQ(desk.Sent(), Lines{"*1A0\r\n"});
}

TEST(PlotView, MidnightGivesNegativeTimes) {
    PlotDesk desk("0", "1", "86400");
    desk.Start();
    desk.Pump.SetTimeOfDay(86'340);
    desk.MeterSends(0, "0");
    desk.MeterSends(59'000, "1");
    desk.MeterSends(2000, "2");
    desk.MeterSends(1000, "3");
    EXPECT_EQ(desk.Trace(),
              (Lines{"point 0,0 width 2", "line 0,0 1,10 width 2", "line 1,10 -999,20 width 2"}))
        << "what lies left of the chart altogether isn't recorded";
}

TEST(PlotView, AClockThatIsSetMovesNothing) {
    for (const int setTo : {36'000 - 3600, 36'000 + 3600, 5}) {
        PlotDesk desk;
        desk.Start();
        desk.MeterSends(0, "0");
        desk.Pump.SetTimeOfDay(setTo);
        desk.MeterSends(1000, "1");
        Press(desk.View, desk.View.cmdPause);
        desk.Pump.SetTimeOfDay(36'000);
        Press(desk.View, desk.View.cmdContinue);
        desk.MeterSends(0, "rest");
        desk.MeterSends(1000, "2");
        EXPECT_EQ(desk.Trace(),
                  (Lines{"point 0,0 width 2", "line 0,0 100,10 width 2", "line 100,10 200,20 width 2"}));
    }
}

TEST(PlotView, TabPassesNewScaleAndEnterOnItKeepsTheTexts) {
    PlotDesk desk("100", "1", "10");
    desk.Start();
    desk.MeterSends(0, "100");
    Form& form = desk.View.Controls;
    EXPECT_EQ(form.FocusByTab(desk.View.cmdNewScale), Refusal::None);
    EXPECT_EQ(form.FocusByTab(desk.View.cmdPause), Refusal::None);
    EXPECT_EQ(desk.Trace().size(), 1U) << "the run goes on";
    form.FocusByTab(desk.View.cmdNewScale);
    Press(desk.View, desk.View.cmdNewScale);
    EXPECT_EQ(desk.View.txtMidVal.Text + desk.View.txtHorzTime.Text, "10010");
    form.FocusByTab(desk.View.cmdNewScale);
    EXPECT_EQ(desk.View.txtMidVal.Text, "100") << "one Tab too far in the entry";
}

TEST(PlotView, ATextThatIsNoNumberIsRefusedWhereItStands) {
    const struct {
        const char *Mid, *Small, *Seconds, *Entry, *Status;
    } cases[] = {{"abc", "1", "x", "txtMidVal", "Mid-Scale Value is no number: \"abc\"."},
                 {"", "-", "9", "txtSmallVal", "Small Division Value is no number: \"-\"."},
                 {"1", "", "one", "txtHorzTime", "Total Plot Time (Secs) is no number: \"one\"."},
                 {"1", "2 V", "", "cmdPause", "Small Division Value \"2 V\" is taken as 2."},
                 {"1,5", "", "   ", "cmdPause", ""}};
    for (const auto& c : cases) {
        PlotDesk desk(c.Mid, c.Small, c.Seconds);
        Press(desk.View, desk.View.cmdOK);
        EXPECT_EQ(desk.View.Controls.Focused()->Name, c.Entry);
        EXPECT_EQ(desk.View.lblStatus.Caption, c.Status);
        EXPECT_EQ(desk.View.txtMidVal.Text, c.Mid) << "as it was typed";
    }
}

TEST(PlotView, ContinueStartsOverWhereTheChartIsFullOrTheSweepRuns) {
    PlotDesk desk("0", "1", " ");  // works as 1 second
    desk.Start();
    for (const char* reading : {"0", "1", "2", "3"}) desk.MeterSends(600, reading);
    EXPECT_EQ(desk.Trace().size(), 2U) << "the trace stays";
    EXPECT_EQ(desk.Line.InBufferCount(), 0U) << "the meter goes on sending";
    Press(desk.View, desk.View.cmdContinue);
    desk.MeterSends(0, "rest");
    desk.MeterSends(100, "5");
    EXPECT_EQ(desk.Trace(), Lines{"point 0,50 width 2"});
    const int generation = desk.View.Chart.Generation();
    Press(desk.View, desk.View.cmdContinue);
    EXPECT_EQ(desk.Trace(), Lines{});
    EXPECT_NE(desk.View.Chart.Generation(), generation);
    EXPECT_EQ(desk.Sent(), (Lines{"*1A0\r\n", "*1A0\r\n", "*1A0\r\n"})) << "no A1 before an A0";
}

TEST(PlotView, ReadingsThatChangeNothingInTheirColumnAreNotRecorded) {
    PlotDesk desk;
    desk.Start();
    for (const char* reading : {"0", "5", "2", "-1", "3", "30", "40", "30", "5"}) desk.MeterSends(0, reading);
    desk.MeterSends(1000, "5");
    EXPECT_EQ(desk.Trace(), (Lines{"point 0,0 width 2", "line 0,0 0,50 width 2", "line 0,20 0,-10 width 2",
                                   "line 0,30 0,210 width 2", "line 0,50 100,50 width 2"}));
}

TEST(PlotView, EnterLeadsThroughTheScaleAndOkClosesIt) {
    PlotDesk desk;
    Form& form = desk.View.Controls;
    for (const char* name : {"txtMidVal", "txtSmallVal", "txtHorzTime"}) {
        EXPECT_EQ(form.Focused()->Name, name);
        form.Enter(*form.Find(name));
    }
    EXPECT_EQ(form.Focused(), &desk.View.cmdOK);
    Press(desk.View, desk.View.cmdPause);
    Press(desk.View, desk.View.cmdContinue);
    EXPECT_EQ(desk.Sent(), Lines{}) << "a scale entry is left by OK";
    Press(desk.View, desk.View.cmdNewScale);
    EXPECT_EQ(desk.View.txtSmallVal.Text, "1") << "a click alone leaves what is typed";
    form.Focus(desk.View.cmdNewScale);
    EXPECT_EQ(desk.View.txtSmallVal.Text, "         ");
    EXPECT_EQ(form.Focused(), &desk.View.txtMidVal);
    Press(desk.View, desk.View.cmdOK);
    EXPECT_EQ(form.Focused(), &desk.View.cmdPause);
    EXPECT_EQ(form.Click(desk.View.cmdOK), Refusal::Hidden);
}

TEST(PlotView, AutoAndLastFillTheScaleEntry) {
    PlotDesk desk("100.5", "0,25", "");
    EXPECT_FALSE(desk.View.cmdLast.Enabled) << "none was kept yet";
    Press(desk.View, desk.View.cmdAuto);
    EXPECT_NE(desk.View.lblStatus.Caption.find("No reading has come"), std::string::npos);
    desk.Start();
    for (const char* reading : {"480", "520", "500"}) desk.MeterSends(50, reading);
    desk.View.Controls.Focus(desk.View.cmdNewScale);
    EXPECT_EQ(desk.View.txtMidVal.Text, std::string(9, ' ')) << "the blanks stay";
    Press(desk.View, desk.View.cmdAuto);
    EXPECT_EQ(desk.View.txtMidVal.Text + "|" + desk.View.txtSmallVal.Text + "|" + desk.View.txtHorzTime.Text,
              "500|2|60");
    EXPECT_EQ(desk.View.Controls.Focused(), &desk.View.cmdOK);
    PlotView later(desk.Program);  // as after the end of the program
    later.Activate();
    EXPECT_EQ(later.txtSmallVal.Text, std::string(9, ' '));
    Press(later, later.cmdLast);
    EXPECT_EQ(later.txtMidVal.Text + "|" + later.txtSmallVal.Text + "|" + later.txtHorzTime.Text,
              "100.5|0,25|");
    GraphView other(desk.Program);
    other.Activate();
    EXPECT_FALSE(other.cmdLast.Enabled) << "each view has its own";
}

TEST(PlotView, AnotherItemAndTwoAtOnce) {
    PlotDesk desk;
    desk.View.Controls.Select(desk.View.cboSecond, 2);
    desk.Start();
    desk.MeterSends(0, " 000001.-000002. 000003.");
    desk.MeterSends(1000, " 000002.-000003. 000004.");
    EXPECT_EQ(desk.Trace(), (Lines{"point 0,10 width 2", "point 0,-20 width 2", "line 0,10 100,20 width 2",
                                   "line 0,-20 100,-30 width 2"}));
    EXPECT_EQ(std::get<ChartLine>(desk.View.Chart.Record().back()).Ink, ChartInk::Second);
    EXPECT_EQ(desk.View.ValuesText(),
              "Seconds\tItem 1\n0.000\t1\n1.000\t2\nSeconds\tItem 2\n0.000\t-2\n1.000\t-3\n");
    desk.View.Controls.Select(desk.View.cboSecond, 0);
    desk.View.Controls.Select(desk.View.cboItem, 2);
    desk.MeterSends(0, " 000001.-000002. 000005.");
    desk.MeterSends(1000, " 000001.");  // has no third
    EXPECT_EQ(desk.Trace(), Lines{"point 100,50 width 2"}) << "the sweep goes on";
}

TEST(PlotView, ARollingChartEndsAtTheNewestReading) {
    PlotDesk desk;
    desk.View.Controls.Check(desk.View.chkRolling, 1);
    desk.Start();
    const auto labels = [&desk](const char* text) {
        const Lines record = RecordFrom(desk.View.Chart);
        return std::count_if(record.begin(), record.end(), [text](const std::string& line) {
            return line.find(text) != std::string::npos;
        });
    };
    EXPECT_EQ(labels("\"-10.\" center") + labels("\"0\" right"), 2) << "seconds before the newest";
    for (int second = 0; second <= 25; ++second) desk.MeterSends(1000, std::to_string(second % 10));
    EXPECT_EQ(desk.View.Current().ChartFull, 0);
    EXPECT_EQ(RecordFrom(desk.View.Chart).back(), "line 900,40 1000,50 width 2");
    EXPECT_EQ(desk.Trace().front(), "point 0,50 width 2") << "ten seconds before";
    desk.MeterSends(10, "7");
    EXPECT_EQ(RecordFrom(desk.View.Chart).back(), "line 900,40 1000,50 width 2") << "too soon to be seen";
    desk.Pump.Pass(100);
    EXPECT_EQ(RecordFrom(desk.View.Chart).back(), "line 999,50 1000,70 width 2");
    Press(desk.View, desk.View.cmdPause);
    EXPECT_TRUE(desk.View.AtRest());
    EXPECT_EQ(desk.View.Spot(desk.View.NearestSpot(1)).Text, "0.000 s   7");
}

TEST(PlotView, SetpointsLieOverTheChartWhereTheUserWantsThem) {
    PlotDesk desk;
    ChartSurface marks;
    desk.View.Controls.Check(desk.View.chkSetpoints, 1);
    EXPECT_NE(desk.View.lblStatus.Caption.find("no setup in memory"), std::string::npos);
    desk.Program.Home.ViewEnabled = true;
    BuildDefaultSetup(desk.Program.Image);
    PutCode(desk.Program.Image, Field::RelayOption, 2);
    PutCode(desk.Program.Image, Field::Alarm1Source, 1);
    PutCode(desk.Program.Image, Field::Alarm2State, 2);
    PutCode(desk.Program.Image, Field::DecimalPoint1, 1);
    DigitsPut(desk.Program.Image, RowOf(Field::Setpoint1).Pos, "00000A");
    desk.Start();
    desk.View.DrawMarks(marks, {});
    EXPECT_EQ(RecordFrom(marks),
              (Lines{"line 0,100 1000,100 width 2", "text \"SP1 10\" right 1000 top 100 halves -2"}));
    marks.Clear();
    desk.View.DrawMarks(marks, {0, 1, 0, 0.5});
    EXPECT_EQ(RecordFrom(marks), Lines{}) << "above what is on show";
}

// A part is drawn of the readings, not of the picture.
TEST(PlotView, APartIsDrawnLarger) {
    PlotDesk desk;
    desk.Start();
    for (const char* reading : {"0", "0.25", "20", "0"}) desk.MeterSends(1000, reading);
    Press(desk.View, desk.View.cmdPause);
    ChartSurface part;
    desk.View.DrawWindow(part, {0, 0.1, 0.5, 0.55});  // a second, 0 to 2
    EXPECT_EQ(RecordFrom(part).back(), "line 0,-200 1000,-150 width 2");
    EXPECT_EQ(desk.View.Spot(2).Text, "2.000 s   20.00");
    EXPECT_DOUBLE_EQ(desk.View.Spot(2).Y, 1);
    EXPECT_EQ(desk.View.NearestSpot(0.11), 1U);
}

TEST(PlotView, SaveAsksForAFileAndTellsAFailure) {
    PlotDesk desk;
    std::string saved;
    desk.View.SaveBitmap = [&](const std::string& path) {
        return saved += path, Status{StatusKind::NoPermission, path, "Permission denied"};
    };
    for (const char* chosen : {"", "/a.BMP"}) {  // the first is a cancelled dialog
        desk.Boxes.Path = chosen;
        Press(desk.View, desk.View.cmdSave);
        EXPECT_EQ(saved, chosen);
    }
    EXPECT_EQ(desk.Boxes.Asked[0].Title + "|" + desk.Boxes.Asked[0].Filter,
              "Save Graph As|.BMP files (*.BMP)|*.BMP");
    EXPECT_EQ(desk.View.lblStatus.Caption, "/a.BMP: Permission denied");
}

}  // namespace
}  // namespace counter::test
