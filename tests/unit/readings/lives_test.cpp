// Views that end in the middle of things: New Scale, End and Unload during a sweep or a wait, many times
// over.
#include "readings/graph_view.h"
#include "readings/list_view.h"
#include "readings/plot_view.h"
#include "readings_bench.h"

namespace counter::test {
namespace {

struct LivesDesk : ReadingsBench {
    ListView List{Program};
    PlotView Plot{Program};
    GraphView Graph{Program};

    void Open(ReadingView& view) {
        view.Load();
        view.Activate();
    }
    void OpenChart(ChartView& view) {
        Open(view);
        TypeScale(view, "0", "1", "100");
        Press(view, view.cmdOK);
    }
    // What the home view does when it comes to the front.
    void UnloadAll() {
        for (ReadingView* view : std::initializer_list<ReadingView*>{&List, &Plot, &Graph}) view->Unload();
    }
};

void OpenPlot(LivesDesk& desk) {
    desk.OpenChart(desk.Plot);
}
void OpenList(LivesDesk& desk) {
    desk.UnloadAll();
    desk.Open(desk.List);
}

// A silent meter is told of until it sends a reading after all.
TEST(Lives, AViewTellsThatTheMeterDidNotAnswer) {
    LivesDesk desk;
    const auto shown = [](ReadingView& view) { return view.Controls.Find("lblStatus")->Visible; };
    for (ReadingView* view : std::initializer_list<ReadingView*>{&desk.List, &desk.Plot, &desk.Graph}) {
        desk.Program.Frames.Failure = 21;
        desk.Open(*view);
        EXPECT_TRUE(shown(*view)) << "before any reading";
        if (auto* chart = dynamic_cast<ChartView*>(view)) StartChart(*chart, "0", "1", "100");
        EXPECT_TRUE(view->Controls.Find("lblStatus")->Caption.ends_with("( 21)"));
        EXPECT_EQ(view->Controls.Find("lblStatus")->TextColor, ColorRed);
        for (const char* reading : {"rest", "1", "2"}) desk.MeterSends(200, reading);
        EXPECT_FALSE(shown(*view));
        desk.Program.Frames.Failure = 0;
        desk.Open(*view);
        EXPECT_FALSE(shown(*view));
        view->Unload();
    }
}

struct WatchingPrinter : Printer {
    std::function<bool()> Shown;
    std::string Seen;
    Status PrintView() override {
        return Seen += Shown() ? "line " : "clean ", Status{StatusKind::NotFound, "lp0", "out of paper"};
    }
    Status PrintText(const std::string&, const std::string&) override { return {}; }
    Status PrintPages(const std::string&, const std::string&) override { return {}; }
    Status WritePdf(const std::string&, const std::string&, const std::string&) override { return {}; }
};

TEST(Lives, AFailedPrintIsNoPartOfTheNext) {
    LivesDesk desk;
    desk.Open(desk.List);
    WatchingPrinter printer;
    printer.Shown = [&] { return desk.List.lblStatus.Visible; };
    desk.List.Paper = &printer;
    for (int i = 0; i < 2; ++i) Press(desk.List, desk.List.cmdPrint);
    EXPECT_EQ(printer.Seen, "clean clean ");
    EXPECT_EQ(desk.List.lblStatus.Caption, "lp0: out of paper");
}

struct MemoryKeeper : ReadingKeeper {
    std::string Kept;
    Status Begins;
    Status Begin() override { return Kept += "begin ", Begins; }
    void Take(std::string_view frame) override { Kept.append(frame).append(" "); }
    Status End() override { return Kept += "end ", Status{}; }
    std::string Words() const override { return {}; }
};

// A chart takes one reading of an arrival; the record has them all, but for the pause.
TEST(Lives, ARecordHasEveryReadingThatIsNotThrownAway) {
    LivesDesk desk;
    for (ReadingView* view : std::initializer_list<ReadingView*>{&desk.List, &desk.Plot, &desk.Graph}) {
        MemoryKeeper keeper;
        view->Keeper = &keeper;
        desk.Open(*view);
        if (auto* chart = dynamic_cast<ChartView*>(view)) StartChart(*chart, "0", "1", "100");
        Press(*view, view->cmdRecord);
        desk.MeterSends(200, "rest\r1.0\r2.0\r3.0");
        Press(*view, *view->Controls.Find("cmdPause"));
        desk.MeterSends(200, "4.0");
        Press(*view, *view->Controls.Find(view == &desk.List ? "cmdContin" : "cmdContinue"));
        desk.MeterSends(200, "rest\r5.0");
        Press(*view, view->cmdRecord);
        desk.MeterSends(200, "6.0");
        Press(*view, view->cmdRecord);
        view->Unload();
        EXPECT_EQ(keeper.Kept, "begin 1.0 2.0 3.0 5.0 end begin end ");
        EXPECT_EQ(view->cmdRecord.Caption, "Record");

        keeper.Begins = {StatusKind::Other, "readings.db", "the disk is full"};
        desk.Open(*view);
        Press(*view, view->cmdRecord);
        EXPECT_EQ(view->Controls.Find("lblStatus")->Caption, "readings.db: the disk is full");
        EXPECT_EQ(view->cmdRecord.Caption, "Record");
        view->Unload();
    }
}

TEST(Lives, AfterNewScaleAndUnloadNoByteReachesAView) {
    LivesDesk desk;
    for (int round = 0; round < 50; ++round) {
        desk.Open(desk.List);
        desk.Line.Inject("rest\rsizes\rone\rtw");
        EXPECT_EQ(desk.List.Cell(0, 0), "one");
        desk.List.Unload();
        for (ChartView* chart : std::initializer_list<ChartView*>{&desk.Plot, &desk.Graph}) {
            desk.OpenChart(*chart);
            const std::size_t frame = chart->Chart.Record().size();
            for (const char* reading : {"o", "1", "2"}) desk.MeterSends(200, reading);
            EXPECT_EQ(chart->Chart.Record().size(), frame + 2);
            if (round % 2 == 0) Press(*chart, chart->cmdNewScale);
            if (round % 3 == 0) chart->Unload();
            desk.Line.Inject("late\rlater\r");
            EXPECT_EQ(chart->Chart.Record().empty(), round % 2 == 0 || round % 3 == 0);
            EXPECT_EQ(desk.Line.InBufferCount(), round % 3 == 0 ? 11U : 0U);
            chart->Unload();
        }
    }
}

// A press while a view starts its stream; the meter sends all the time.
TEST(Lives, PressesWhileARunStarts) {
    // clang-format off
    const struct {
        const char* Name;
        double AfterMs;
        void (*Open)(LivesDesk&);
        void (*Press)(LivesDesk&);
        bool MeterSendsOn, Draws;
    } cases[] = {
        {"New Scale",        100, OpenPlot, [](LivesDesk& d) { Press(d.Plot, d.Plot.cmdNewScale); },  true,  false},
        {"Pause",            100, OpenPlot, [](LivesDesk& d) { Press(d.Plot, d.Plot.cmdPause); },     true,  false},
        {"Continue",         100, OpenPlot, [](LivesDesk& d) { Press(d.Plot, d.Plot.cmdContinue); },  true,  true},
        {"End",              100, OpenPlot, [](LivesDesk& d) { Press(d.Plot, d.Plot.cmdEnd); },       false, false},
        {"Unload",           100, OpenPlot, [](LivesDesk& d) { d.UnloadAll(); },                      false, false},
        {"opened again",     100, OpenPlot, [](LivesDesk& d) { d.UnloadAll(), d.Open(d.Plot); },      true,  false},
        {"the list instead", 100, OpenPlot, OpenList,                                                 true,  false},
        {"list, End",        100, OpenList, [](LivesDesk& d) { Press(d.List, d.List.cmdEnd); },       false, false},
        {"list, late End",   400, OpenList, [](LivesDesk& d) { Press(d.List, d.List.cmdEnd); },       false, false},
    };
    // clang-format on
    for (const auto& c : cases) {
        LivesDesk desk;
        for (int i = 0; i < 300; ++i) desk.Pump.After(10 * i, [&] { desk.Line.Inject("+  1.50\r"); });
        desk.Pump.After(c.AfterMs, [&] { c.Press(desk); });
        c.Open(desk);
        EXPECT_EQ(desk.Line.Sent().back().starts_with("*1A0"), c.MeterSendsOn) << c.Name;
        const std::size_t before = desk.Plot.Chart.Record().size();
        desk.Pump.Pass(100);
        EXPECT_EQ(desk.Plot.Chart.Record().size() > before, c.Draws) << c.Name;
        desk.Pump.Pass(3000);
        EXPECT_EQ(desk.Line.InBufferCount() == 0, c.MeterSendsOn) << c.Name << ": who sends is listened to";
    }
}

TEST(Lives, EndPressedTwiceEndsOnce) {
    LivesDesk desk;
    int shown = 0;
    desk.Plot.ShowMainMenu = [&] { desk.UnloadAll(), ++shown; };
    for (int round = 1; round <= 20; ++round) {
        desk.OpenChart(desk.Plot);
        desk.Sent();
        for (Control* button : {&desk.Plot.cmdEnd, &desk.Plot.cmdNewScale})
            desk.Pump.After(100, [&desk, button] { Press(desk.Plot, *button); });
        Press(desk.Plot, desk.Plot.cmdEnd);
        EXPECT_EQ(shown, round);
        EXPECT_EQ(desk.Sent(), Lines{"*1A1\r\n"});
        Press(desk.Plot, desk.Plot.cmdEnd);
        EXPECT_EQ(shown, round) << "a view that is gone has no buttons";
    }
}

// The home view comes to the front, and the view opens again, before End has come to its end.
TEST(Lives, EndDoesNotEndWhatWasOpenedMeanwhile) {
    LivesDesk desk;
    desk.OpenChart(desk.Graph);
    desk.Graph.ShowMainMenu = [] { FAIL() << "it was there already"; };
    desk.Pump.After(100, [&] { desk.UnloadAll(), desk.OpenChart(desk.Graph); });
    Press(desk.Graph, desk.Graph.cmdEnd);
    EXPECT_TRUE(desk.Graph.Stream.Attached());
}

TEST(Lives, TheProgramOrAViewEndsInTheMiddle) {
    LivesDesk desk;
    desk.OpenChart(desk.Plot);
    desk.Pump.After(100, [&] { desk.Pump.EndProcess(0); });
    EXPECT_THROW(Press(desk.Plot, desk.Plot.cmdEnd), ProcessEnded) << "in a wait of End";
    {
        ListView first(desk.Program), second(desk.Program);
        first.Activate();
        second.Activate();
        first.Unload();
        EXPECT_TRUE(second.Stream.Attached()) << "the port is the other one's";
    }
    desk.Line.Inject("1\r");
    EXPECT_EQ(desk.Line.InBufferCount(), 2U);
}

}  // namespace
}  // namespace counter::test
